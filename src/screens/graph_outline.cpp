// The outline of the plots: grid, axes, labels of amounts and days.
#include "screens/graph_outline.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/regression.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "platform/text.h"
#include "screens/graph_plot.h"
#include "state/state.h"
#include <algorithm>
#include <initializer_list>

namespace {

constexpr Colour GridPen = Rgb(214, 224, 238), FramePen = Rgb(150, 165, 190), DebitInk = AlertRed;
constexpr int FrameLeft = 23, Bands = 11; // grid rows below the top
constexpr int LabelCell = 12;             // height of the axis font

int Bottom() {
    return state.PlotBase + state.PlotBand * Bands;
}
int Top() {
    return state.PlotBase + state.PlotBand;
}
int64_t Zero() {
    return state.PlotZero + state.PlotBase;
}

// --- The grid

// Lines through the plot as one zigzag, so that their ends are joined.
void DrawRows() {
    int off = static_cast<int>(state.PlotZero % state.PlotBand);
    if (off > state.PlotBand / 2)
        off -= state.PlotBand;
    Point line[2 * Bands];
    for (int k = 0; k < Bands; ++k) {
        const int y = PlotRow(Top() + off + k * state.PlotBand);
        const bool back = k % 2 != 0;
        line[2 * k] = {back ? PlotRight : FrameLeft, y};
        line[2 * k + 1] = {back ? FrameLeft : PlotRight, y};
    }
    DrawPolyline(ListWindow, line, 2 * Bands, GridPen);
    for (const int x : {FrameLeft, PlotRight})
        FillRect(ListWindow, {x, PlotRow(state.PlotBase), x + 1, PlotRow(Bottom())}, FramePen);
}

void DrawColumns() {
    constexpr int Lines = 10, First = 51, Pitch = 18;
    Point line[2 * Lines];
    const int top = PlotRow(Top() - 10), bottom = PlotRow(Bottom() + 10);
    for (int k = 0; k < Lines; ++k) {
        const bool up = k % 2 != 0;
        line[2 * k] = {First + Pitch * k, up ? bottom : top};
        line[2 * k + 1] = {First + Pitch * k, up ? top : bottom};
    }
    DrawPolyline(ListWindow, line, 2 * Lines, GridPen);
    // The joints of the zigzag go: they would run into the labels.
    FillRect(ListWindow, {PlotLeft, PlotRow(state.PlotBase + 3), 214, PlotRow(Top() - 8)}, White);
    FillRect(ListWindow,
             {PlotLeft, PlotRow(Bottom() + 10), 214, PlotRow(state.PlotBase + int64_t{state.PlotBand + 1} * Bands + 2)},
             White);
}

void DrawAxisRibbons(FixedAmount min) {
    const int zero = PlotRow(Zero()), foot = Bottom() + (min < 0 ? 0 : 4);
    const Point upright[] = {{PlotLeft, PlotRow(Top())}, {PlotLeft, PlotRow(foot)}};
    const Point level[] = {{PlotLeft - 4, zero}, {PlotRight, zero}};
    const Point joint[] = {{PlotLeft, zero - state.DrawDepth}, {PlotLeft, zero}};
    DrawRibbon(upright, 2, AxisRibbon);
    DrawRibbon(level, 2, AxisRibbon);
    DrawRibbon(joint, 2, AxisRibbon);
}

// --- The axes

void AddPoint(int x, int64_t row) {
    if (state.AxisPoints < AxisRoom)
        state.AxisLine[state.AxisPoints++] = {x, PlotRow(row)};
}

// There and back over the tip of an arrow.
void AddHead(int tip, int barbs) {
    AddPoint(PlotLeft, tip);
    AddPoint(PlotLeft - 2, barbs);
    AddPoint(PlotLeft, tip);
    AddPoint(PlotLeft + 2, barbs);
    AddPoint(PlotLeft, tip);
}

void DrawAxes(FixedAmount min, FixedAmount max) {
    const bool noTop = max <= 0 && min != 0;
    state.AxisPoints = 0;
    if (noTop)
        AddPoint(PlotLeft, Top() - 4);
    else
        AddHead(Top(), Top() + 2);
    if (min < 0)
        AddHead(Bottom(), Bottom() - 2);
    else
        AddPoint(PlotLeft, Bottom() + 4);
    AddPoint(PlotLeft, Zero());
    AddPoint(PlotLeft - 4, Zero());
    AddPoint(PlotRight, Zero());
    AddPoint(PlotRight - 2, Zero() - 2);
    AddPoint(PlotRight, Zero());
    AddPoint(PlotRight - 2, Zero() + 2);
    DrawPolyline(ListWindow, state.AxisLine, state.AxisPoints, Black);
}

// --- Labels

bool Meets(const Rect &a, const Rect &b) {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

void DrawLabel(const char16_t *text, const Rect &box, Align align, Colour ink) {
    const PointerPlace pointer = PlaceOfPointer();
    if (!Meets(box, pointer.Day) && !Meets(box, pointer.Amount))
        PaintText(ListWindow, text, box, align, Font::SmallBold, ink, 1);
}

// The highest and lowest row of what is plotted.
struct Reach {
    int High, Low;
};
Reach ReachOfPlot() {
    Reach reach = {PlotRow(200), PlotRow(50)};
    const Point *point = state.GraphMode == Extrapolation ? state.LineEnds : state.SamplePt + 1;
    const int count = state.GraphMode == Extrapolation ? 2 : state.SampleCount;
    for (int i = 0; i < count; ++i) {
        reach.High = std::min(reach.High, point[i].Y);
        reach.Low = std::max(reach.Low, point[i].Y);
    }
    reach.Low = std::min(reach.Low, PlotRow(Bottom()));
    return reach;
}

void DrawAmounts(FixedAmount min, FixedAmount max) {
    constexpr int Near = 18, Rise = 6, Right = 29;
    const bool labels = state.SampleCount > 1;
    const Reach reach = ReachOfPlot();
    if (labels && max > 0)
        DrawLabel(Ystr(max), {1, reach.High - Rise, Right, reach.High - Rise + LabelCell}, Align::Right, Black);
    if (labels && min < 0 && state.PlotZero < int64_t{state.PlotBand} * Bands)
        DrawLabel(Ystr(min), {1, reach.Low - Rise, Right, reach.Low - Rise + LabelCell}, Align::Right, DebitInk);
    const int row = PlotRow(Zero() - 7);
    const bool nearTop = max != 0 && std::abs(row - reach.High) < Near,
               nearBottom = min != 0 && std::abs(row - reach.Low) < Near;
    if (!labels || !(nearTop || nearBottom))
        DrawLabel(u"0", {FrameLeft, row, 43, row + LabelCell}, Align::Left, Black);
}

RecDate Normalised(RecDate date) {
    return DateFromDayNumber(std::clamp(date.DayNumber, FirstDayNumber, LastDayNumber));
}

void DrawDate(const RecDate &date, int left) {
    constexpr int Width = 45;
    const int top = PlotRow(Bottom() + 10), yearTop = PlotRow(Bottom() + 20);
    char16_t text[16] = u"";
    AppendNumber(text, 16, date.Day);
    AppendAscii(text, 16, " ");
    AppendText(text, 16, state.MonthNames[date.Month]);
    DrawLabel(text, {left, top, left + Width, top + LabelCell}, Align::Centre, Black);
    if (state.MessageWindowOn)
        return;
    text[0] = 0;
    AppendNumber(text, 16, date.Year);
    DrawLabel(text, {left, yearTop, left + Width, yearTop + LabelCell}, Align::Centre, Black);
}

void DrawDates() {
    constexpr int First = 28, Second = 193;
    if (state.SampleCount < 1 || state.AccountKind == ListAccount)
        return;
    const bool extrapolation = state.GraphMode == Extrapolation;
    const RecDate left = extrapolation ? state.LeftDate : state.SampleRow[1].Date,
                  right = extrapolation ? state.TargetDate : state.SampleRow[state.SampleCount].Date;
    if (left.Year == 0)
        return;
    DrawDate(Normalised(left), First);
    DrawDate(Normalised(right), Second);
}

} // namespace

void DrawGraphOutline(FixedAmount min, FixedAmount max) {
    DrawRows();
    DrawColumns();
    DrawAxisRibbons(min);
    DrawAxes(min, max);
    DrawAmounts(min, max);
    DrawDates();
}
