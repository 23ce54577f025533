// A row of the current list being painted: what the row painters of all screens share.
#pragma once

#include "drawing/cells.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"

struct RowStrip {
    Window Where;
    int Index; // 1 to RowCount: the slot in the window of rows
    int Mode;  // RowMode
    bool Past; // the position lies behind the last entry: a blank row
    RowPlace Place;
    Bevel Pens;
};

// Paints the ground of a position's row and says where it stands. 0 when the position does not show.
[[nodiscard]] int BeginRow(RowStrip *row, Window window, int position, int mode, int ground);

// A cell that keeps its brush when the row is selected; without one (NoFill) it then takes `pressed`.
void KeepingCell(const RowStrip &row, int left, int right, int brush, int pressed = NoFill);
// A cell that always takes `pressed` when the row is selected.
void TurningCell(const RowStrip &row, int left, int right, int brush, int pressed);

void RowText(const RowStrip &row, int left, int right, const char16_t *text, Align align = Align::Left,
             Font font = Font::Normal, Colour ink = Black);
void RowAmount(const RowStrip &row, int left, int right, FixedAmount value, int decimals = 2,
               Align align = Align::Right);
void RowAmountIn(const RowStrip &row, int left, int right, FixedAmount value, int decimals, Align align, Colour ink);

// The magnitude of a whole number, never cut.
void RowNumber(const RowStrip &row, int left, int right, int64_t value, Align align, Colour ink);

// "Bank", "List" or "Share".
const char16_t *AccountTypeName(uint32_t accountType);
