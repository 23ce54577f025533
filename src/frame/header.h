// The header band and the column titles of TopWindow.
#pragma once

#include "drawing/colours.h"
#include "platform/surface.h"
#include "state/state.h"

// Bits of the repaint mask passed to every doXxx.
enum RepaintMask : int {
    PaintCounts = 1,
    PaintArrows = 2,
    PaintTitle = 4,
    PaintColumns = 8,
    PaintRows = 16,
    PaintTabs = 32,
    PaintAll = EveryBand,
    PaintAllButTabs = 991,
};

// The two count boxes of the current screen: selected position and number of entries.
void UpdateCounts();
// Fills the title box and writes the title; a null title leaves the box to the caller's image.
void DrawHeaderTitle(const char16_t *title);
void DrawHeaderArrows();
// One column title cell. The texts "X B" and "A =" are the conversions' and get their signs.
void DrawColumnTitle(int left, int right, const char16_t *text, int brush);
// Where the grips of a column's edges stand in the titles, and how far from its edge the outermost of a column reaches;
// 0 when it has none.
inline constexpr int GripTop = 19, GripHeight = 13;
int GripReach(int left, int right);
// Ink of header title and counts: red on screens 1 to 3 in the archive view.
Colour HeaderInk();
