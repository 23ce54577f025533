#include "screens/rows.h"
#include "drawing/saying.h"
#include "platform/text.h"

int BeginRow(RowStrip *row, Window window, int position, int mode, int ground) {
    const int list = state.CurrentScreen;
    const int index = RowOfPosition(position);
    if (!RowShows(index))
        return 0;
    const bool past = position > state.EntryCount[list];
    *row = {window, index, mode, past, StartRow(window, index, mode, ground, list), BevelOfList(list)};
    return 1;
}

void KeepingCell(const RowStrip &row, int left, int right, int brush, int pressed) {
    TurningCell(row, left, right, brush, brush == NoFill ? pressed : NoFill);
}

void TurningCell(const RowStrip &row, int left, int right, int brush, int pressed) {
    RowCell(row.Where, row.Place, left, right, row.Pens, brush, pressed);
}

void RowText(const RowStrip &row, int left, int right, const char16_t *text, Align align, Font font, Colour ink) {
    if (right <= left || !*text)
        return;
    Say(text);
    PaintText(row.Where, text, RowTextBox(row.Place.Top, left, right), align, font,
              InkOn(FillOfRow((left + right) / 2), ink));
}

void RowAmount(const RowStrip &row, int left, int right, FixedAmount value, int decimals, Align align) {
    if (right > left)
        PaintAmount(row.Where, value, RowTextBox(row.Place.Top, left, right), decimals, align);
}

void RowAmountIn(const RowStrip &row, int left, int right, FixedAmount value, int decimals, Align align, Colour ink) {
    if (right > left)
        PaintAmountIn(row.Where, value, RowTextBox(row.Place.Top, left, right), decimals, align, ink);
}

void RowNumber(const RowStrip &row, int left, int right, int64_t value, Align align, Colour ink) {
    char16_t text[24] = {};
    AppendNumber(text, 24, value < 0 ? -value : value);
    if (right <= left)
        return;
    SayNumber(value, ink == AlertRed);
    PaintText(row.Where, text, RowTextBox(row.Place.Top, left, right), align, Font::Normal,
              InkOn(FillOfRow((left + right) / 2), ink), 1);
}

const char16_t *AccountTypeName(uint32_t accountType) {
    if (accountType == BankAccount)
        return u"Bank";
    return accountType == ListAccount ? u"List" : u"Share";
}
