// The row of boxes above an extrapolation: zero button, eight digits, percentage, date.
#include "screens/graph_boxes.h"
#include "analysis/extrapolation.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "platform/text.h"
#include "resources/art.h"
#include "screens/graph_plot.h"
#include <initializer_list>

namespace {

constexpr Colour LinkPen = SeparatorGrey, ActiveLinkPen = Rgb(224, 24, 48), ThousandsPen = Rgb(0, 39, 159),
                 FramePen = Rgb(150, 165, 190), NeutralFill = Rgb(244, 247, 252);

bool IsSelected(int kind, int index) {
    return state.BoxSelection == kind && (kind == ZeroBox || kind == PercentBox || state.BoxIndex == index);
}

Rect DrawBox(int kind, int index) {
    Rect box;
    ExtrapBoxRect(kind, index, &box);
    FillRect(ListWindow, {box.Left, box.Top, box.Right + 1, box.Bottom + 1}, FramePen);
    FillRect(ListWindow, {box.Left + 1, box.Top + 1, box.Right, box.Bottom},
             IsSelected(kind, index) ? BrushColour(PressedGold) : NeutralFill);
    return box;
}

void DrawWord(const char16_t *word, const Rect &box, Colour ink) {
    PaintText(ListWindow, word, {box.Left, box.Top, box.Right + 1, box.Bottom + 1}, Align::Centre, Font::SmallBold, ink,
              1);
}

void DrawNumber(int64_t number, const Rect &box, Colour ink) {
    char16_t text[16] = u"";
    AppendNumber(text, 16, number < 0 ? -number : number);
    DrawWord(text, box, ink);
}

void DrawDigits() {
    int32_t rest = state.ExtrapValue;
    const bool stars = rest <= -LargestExtrapolated || rest >= LargestExtrapolated;
    const Colour ink = rest < 0 ? AlertRed : Black;
    for (const int index : {3, 6}) { // between the thousands
        Rect box;
        ExtrapBoxRect(ValueBox, index, &box);
        FillRect(ListWindow, {box.Left - 2, box.Top, box.Left + 1, box.Bottom + 1}, ThousandsPen);
    }
    for (int index = 1; index <= Digits; ++index, rest /= 10) {
        const Rect box = DrawBox(ValueBox, index);
        if (stars)
            DrawWord(u"*", box, ink);
        else if (rest != 0 || (index == 1 && state.ExtrapValue == 0))
            DrawNumber(rest % 10, box, ink);
    }
}

void DrawPercent() {
    const Rect box = DrawBox(PercentBox, 1);
    DrawNumber(state.ExtrapPercent, box, state.ExtrapPercent < 0 ? AlertRed : Black);
    PaintText(ListWindow, u"%", {box.Right + 2, box.Top, box.Right + 18, box.Bottom + 1}, Align::Left, Font::SmallBold,
              Black);
}

void DrawDate() {
    const RecDate &date = state.TargetDate;
    const bool stars = date.DayNumber <= FirstDayNumber || date.DayNumber >= LastDayNumber;
    const Rect day = DrawBox(DateBox, DayPart), month = DrawBox(DateBox, MonthPart), year = DrawBox(DateBox, YearPart);
    if (stars) {
        DrawWord(u"**", day, Black);
        DrawWord(u"***", month, Black);
        DrawWord(u"****", year, Black);
        return;
    }
    DrawNumber(date.Day, day, Black);
    DrawWord(state.MonthNames[date.Month], month, Black);
    DrawNumber(date.Year, year, Black);
}

// An arrow from the percentage to what it acts on: its tip at `tip`, its line from there to `end`.
void DrawLink(int link, int tip, int end, int y) {
    const int back = tip < end ? 3 : -3;
    const Colour pen = state.PercentLink == link ? ActiveLinkPen : LinkPen;
    const Point head[] = {{tip, y}, {tip + back, y - 2}, {tip + back, y + 2}};
    const Point line[] = {{tip, y}, {end, y}};
    FillPolygon(ListWindow, head, 3, pen, pen);
    DrawPolyline(ListWindow, line, 2, pen);
}

void DrawLinks() {
    Rect units, percent, day;
    ExtrapBoxRect(ValueBox, 1, &units);
    ExtrapBoxRect(PercentBox, 1, &percent);
    ExtrapBoxRect(DateBox, DayPart, &day);
    const int y = units.Top + 2;
    DrawLink(LinkValue, units.Right + 2, percent.Left - 1, y);
    DrawLink(LinkDate, day.Left - 1, percent.Right + 2, y);
}

void DrawZeroButton() {
    constexpr int Size = 14;
    const Rect box = DrawBox(ZeroBox, 1);
    CopyImage(ListWindow, {box.Left + 2, box.Top + 1}, ZeroImage, {0, 0, Size, Size}, Blit::And);
}

} // namespace

Rect BoxRowBand() {
    Rect box;
    ExtrapBoxRect(ZeroBox, 1, &box);
    return {0, 0, ScreenWidth, box.Bottom + 1};
}

void DrawBoxRow() {
    FillRect(ListWindow, BoxRowBand(), White);
    DrawZeroButton();
    DrawDigits();
    DrawPercent();
    DrawDate();
    DrawLinks();
}
