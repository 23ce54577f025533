#include "drawing/cells.h"
#include "drawing/geometry.h"
#include "drawing/saying.h"
#include "platform/text.h"
#include "state/state.h"
#include "values/amounts.h"
#include <algorithm>

namespace {

constexpr int ThreeDimensional = 3;
constexpr int AmountRoom = 32, DateRoom = 32;
constexpr int DateLeft = 2;
constexpr int ErasedRight = 230; // the frame of a selection may have stood on a wider row

bool Raised3D() {
    return state.DrawDepth == ThreeDimensional;
}

void DrawFrame(Window window, const Rect &box, Colour pen, int width) {
    const int right = box.Right - width, bottom = box.Bottom - width;
    const Point corners[] = {
        {box.Left, box.Top}, {right, box.Top}, {right, bottom}, {box.Left, bottom}, {box.Left, box.Top}};
    DrawPolyline(window, corners, 5, pen, width);
}

void NoteFill(int left, int right, Colour fill) {
    if (state.RowFills < MostFills)
        state.RowFill[state.RowFills++] = {left, right, fill};
}

} // namespace

Colour FillOfRow(int x) {
    for (int i = state.RowFills - 1; i >= 0; --i)
        if (x >= state.RowFill[i].Left && x < state.RowFill[i].Right)
            return state.RowFill[i].Fill;
    return White;
}

void DrawCell(Window window, int top, int bottom, int left, int right, const Bevel &bevel, int brush, int style) {
    const int lastX = right - 1, innerX = left + 1, below = bottom + 1;
    const bool raised = style == RaisedCell;
    if (Raised3D()) {
        const Point raisedLight[] = {{innerX, top + 1}, {lastX, top + 1}, {lastX, bottom}};
        const Point raisedDark[] = {{left, top + 2}, {left, bottom}, {lastX, bottom}};
        const Point pressedLight[] = {{left, top}, {left, below}, {lastX, below}};
        const Point pressedDark[] = {{innerX, top}, {lastX, top}, {lastX, below}};
        DrawPolyline(window, raised ? raisedLight : pressedLight, 3, bevel.Light);
        DrawPolyline(window, raised ? raisedDark : pressedDark, 3, bevel.Dark);
    }
    if (brush < 1)
        return;
    const Rect inside = raised ? Rect{innerX, top + 2, lastX, bottom} : Rect{innerX, top + 1, lastX, below};
    FillRect(window, inside, BrushColour(brush));
}

RowPlace StartRow(Window window, int row, int mode, int brush, int list) {
    const int top = RowTop(row);
    const Rect box = {0, row == 1 ? 0 : top + 1, RightEdge, top + RowHeight + 1};
    FillRect(window, box, BrushColour(brush));
    state.RowFills = 0;
    NoteFill(box.Left, box.Right, BrushColour(brush));
    if (!Raised3D()) {
        if (mode == ErasedRow)
            DrawFrame(window, {box.Left, box.Top, ErasedRight, box.Bottom}, White, 2);
        else if (IsPressed(mode))
            DrawFrame(window, box, Black, 2);
        else
            DrawFrame(window, box, SeparatorColour(list), 1);
    }
    return {top, IsPressed(mode)};
}

void RowCell(Window window, const RowPlace &place, int left, int right, const Bevel &bevel, int brush,
             int pressedBrush) {
    const int bottom = place.Top + RowHeight;
    const int shown = place.Pressed && pressedBrush != NoFill && Raised3D() ? pressedBrush : brush;
    if (shown != NoFill)
        NoteFill(left, right, BrushColour(shown));
    if (!place.Pressed) {
        DrawCell(window, place.Top, bottom, left, right, bevel, brush, RaisedCell);
        return;
    }
    DrawCell(window, place.Top + 1, bottom - 1, left + 1, right, bevel, shown, PressedCell);
}

void DrawSeparators(Window window, const int *edges, int count, int list) {
    if (Raised3D())
        return;
    const int bottom = state.RowCount * RowHeight;
    for (int i = 0; i < count; ++i) {
        const Point line[] = {{edges[i], 0}, {edges[i], bottom}};
        DrawPolyline(window, line, 2, SeparatorColour(list));
    }
}

void PaintAmountIn(Window window, FixedAmount value, const Rect &box, int decimals, Align align, Colour ink) {
    char16_t text[AmountRoom];
    SayAmount(value, decimals, ink == AlertRed);
    WriteAmount(text, AmountRoom, value, decimals);
    PaintText(window, text, box, align, Font::Normal, InkOn(FillOfRow((box.Left + box.Right) / 2), ink), 1);
}

void PaintAmount(Window window, FixedAmount value, const Rect &box, int decimals, Align align) {
    PaintAmountIn(window, value, box, decimals, align, value < 0 ? AlertRed : Black);
}

void PaintDate(Window window, const RecDate &date, int top, int right, Colour ink, Font font) {
    ink = InkOn(FillOfRow(DateLeft), ink);
    const int month = std::clamp<int>(date.Month, 1, 12); // a damaged record may hold anything
    char16_t text[DateRoom] = u"";
    AppendNumber(text, DateRoom, date.Day, 2);
    AppendAscii(text, DateRoom, " ");
    AppendText(text, DateRoom, state.MonthNames[month]);
    PaintText(window, text, RowTextBox(top, DateLeft, std::min(right, state.YearColumn)), Align::Left, font, ink, 1);
    char16_t year[8] = u"";
    AppendNumber(year, 8, date.Year % 100, 2);
    AppendAscii(text, DateRoom, " ");
    AppendText(text, DateRoom, year);
    Say(text);
    if (state.YearColumn >= right)
        return;
    PaintText(window, year, RowTextBox(top, state.YearColumn, right), Align::Left, font, ink);
}

void PaintFlag(Window window, int64_t flag, int edge, int top) {
    if (flag < 1 || flag > 3)
        return;
    SayFlag(flag);
    FillRect(window, {edge - 2, top + 2, edge, top + RowHeight}, FlagColour(flag));
}

void MeasureYearColumn() {
    int widest = 0;
    for (int month = 1; month <= 12; ++month) {
        char16_t text[DateRoom] = u"99 ";
        AppendText(text, DateRoom, state.MonthNames[month]);
        AppendAscii(text, DateRoom, "G");
        widest = std::max(widest, TextWidth(text, Font::Normal));
    }
    state.YearColumn = widest;
}
