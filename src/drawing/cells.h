// What every list row is built from: bevelled cells, and the texts in them.
#pragma once

#include "drawing/colours.h"
#include "platform/surface.h"
#include "records/records.h"

enum CellStyle : int { PressedCell = 128, RaisedCell = 131 };

// One cell. `top` and `bottom` are the row's; the bevel is lit on top and right when raised, and the pens change roles
// when pressed: this asymmetry is deliberate. Brush NoFill leaves the row's fill in place.
void DrawCell(Window window, int top, int bottom, int left, int right, const Bevel &bevel, int brush, int style);

// ORDER ROWMODE: plain, marked, selected, erase the selection, selected and marked
enum RowMode : int { PlainRow = 0, MarkedRow = 1, SelectedRow = 2, ErasedRow = 3, SelectedMarkedRow = 4 };
constexpr bool IsPressed(int mode) {
    return mode == SelectedRow || mode == SelectedMarkedRow;
}
constexpr bool IsMarked(int mode) {
    return mode == MarkedRow || mode == SelectedMarkedRow;
}

// A row being painted. It owns the pixels Top + 1 to Top + RowHeight, the first row also y 0, so that a row can be
// painted alone without hurting its neighbours.
struct RowPlace {
    int Top;
    bool Pressed;
};
// Fills the row with a brush and, in flat mode, frames it by its mode with the separator pen of the list.
RowPlace StartRow(Window window, int row, int mode, int brush, int list);
// A cell of the row in the style of its mode. A pressed cell in 3D takes `pressedBrush` where that is not NoFill.
void RowCell(Window window, const RowPlace &place, int left, int right, const Bevel &bevel, int brush,
             int pressedBrush = NoFill);
// Flat mode alone: lines between the columns of all rows, at `count` edges.
void DrawSeparators(Window window, const int *edges, int count, int list);

// What fills the row painted last at an x of ListWindow.
Colour FillOfRow(int x);

// An amount right-aligned: its magnitude, red when negative, stars above the limit. Never cut: drawn narrower instead.
void PaintAmount(Window window, FixedAmount value, const Rect &box, int decimals = 2, Align align = Align::Right);
// The same with the ink chosen by the caller. Both inks are made readable on what fills the row there.
void PaintAmountIn(Window window, FixedAmount value, const Rect &box, int decimals, Align align, Colour ink);
// Day and month from x 2, the year from state.YearColumn, up to `right`.
void PaintDate(Window window, const RecDate &date, int top, int right, Colour ink, Font font);
// The flag stripe left of an edge; a flag other than 1 to 3 paints nothing.
void PaintFlag(Window window, int64_t flag, int edge, int top);
// Measures state.YearColumn over the month names of the state block.
void MeasureYearColumn();
