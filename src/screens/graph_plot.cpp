#include "screens/graph_plot.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/regression.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "platform/text.h"
#include "resources/art.h"
#include "state/state.h"
#include <algorithm>
#include <initializer_list>

namespace {

constexpr Colour RegressionPen = Rgb(0, 22, 96), PointerPen = Rgb(224, 24, 48), CaptionColour = Rgb(255, 244, 190);
constexpr int LineRibbon = HeaderBrush;
constexpr int CaptionCell = 12;

// --- Lines

void DrawRegressionLine() {
    if (!SetLineEnds())
        return;
    DrawRibbon(state.LineEnds, 2, LineRibbon);
    DrawPolyline(ListWindow, state.LineEnds, 2, RegressionPen);
}

// The ribbon of a curve covers a line that lies above it on the screen: there the line is drawn again.
void RedrawLineAboveCurve(float slope, int y0, const Point *curve, int count, const Point line[2], int ribbon,
                          Colour pen) {
    if (state.DrawDepth != 3)
        return;
    Stretch stretches[MostSamples];
    const int found = LineAboveCurve(slope, y0, curve, count, line, stretches);
    for (int i = 0; i < found; ++i) {
        const Point ends[] = {stretches[i].From, stretches[i].To};
        DrawRibbon(ends, 2, ribbon);
        const Point on[] = {ends[0], {ends[1].X, ends[1].Y - (ends[1].X != line[1].X ? 1 : 0)}};
        DrawPolyline(ListWindow, on, 2, pen);
    }
}

void DrawAxesAgain() {
    DrawPolyline(ListWindow, state.AxisLine, state.AxisPoints, Black);
}

// --- The pointer

void DrawMark(const Point &at) {
    constexpr int Size = 7;
    CopyImage(ListWindow, {at.X - Size / 2, at.Y - Size / 2}, PointMark, {0, 0, Size, Size}, Blit::And);
}

void DrawPointer(const Point &at) {
    constexpr int AxisLeft = 29;
    const int foot = PlotRow(int64_t{state.PlotBand} * 11 + state.PlotBase + 6);
    const Point line[] = {{AxisLeft, at.Y}, at, {at.X, foot}};
    DrawPolyline(ListWindow, line, 3, PointerPen);
}

Point PointOfPointer() {
    if (state.GraphMode == Extrapolation)
        return {state.PointerX, PlotRow(state.PointerY)};
    return state.SamplePt[state.SelectedSample];
}

void DrawDay(const RecDate &day, const Rect &box) {
    char16_t text[24] = u"";
    FillRect(ListWindow, box, CaptionColour);
    if (state.AccountKind == ListAccount) {
        AppendNumber(text, 24, state.SelectedEntry);
    } else {
        AppendNumber(text, 24, day.Day);
        AppendAscii(text, 24, " ");
        AppendText(text, 24, state.MonthNames[std::clamp<int>(day.Month, 1, 12)]);
    }
    PaintText(ListWindow, text, {box.Left, box.Top, box.Right, box.Top + CaptionCell}, Align::Centre, Font::SmallBold,
              Black, 1);
    if (state.MessageWindowOn || state.AccountKind == ListAccount)
        return;
    text[0] = 0;
    AppendNumber(text, 24, day.Year);
    PaintText(ListWindow, text, {box.Left, box.Bottom - CaptionCell, box.Right, box.Bottom}, Align::Centre,
              Font::SmallBold, Black, 1);
}

void DrawAmount(FixedAmount amount, const Rect &box) {
    const char16_t *text = Ystr(amount);
    const int width = std::min(TextWidth(text, Font::SmallBold) + 2, box.Right - box.Left);
    FillRect(ListWindow, {box.Right - width, box.Top, box.Right, box.Bottom}, CaptionColour);
    PaintText(ListWindow, text, box, Align::Right, Font::SmallBold, amount < 0 ? AlertRed : Black, 1);
}

void DrawTitle(const char16_t *title, const Point &at) {
    constexpr int Least = 35, Most = 231, Rise = 18;
    if (!title[0])
        return;
    const int width = TextWidth(title, Font::SmallBold) + 2;
    const int top = static_cast<int>(static_cast<float>(at.Y) - static_cast<float>(Rise) * state.PlotYScale);
    int left = at.X - width / 2;
    left = std::max(Least, std::min(left, Most - width));
    PaintText(ListWindow, title, {left, top, std::min(left + width, Most), top + CaptionCell}, Align::Centre,
              Font::SmallBold, Black, 1);
}

} // namespace

int PointerTells() {
    return state.PointerOn && !ChartShown() && state.SelectedSample > 0 && state.SampleCount >= 2;
}

PlotPoint PointOfPlot() {
    PlotPoint point = {};
    point.At = PointOfPointer();
    if (state.GraphMode == Extrapolation) {
        point.Day = state.PointerDate;
        point.Amount = PredictValue(state.PointerDate.DayNumber) * Thousand;
        return point;
    }
    const TRec &row = state.SampleRow[state.SelectedSample];
    point.Day = row.Date;
    point.Amount = GetGraphValue(row);
    CopyText(point.Title, TextRoom, row.Name);
    return point;
}

void DrawRibbon(const Point *points, int count, int brush) {
    const int depth = state.DrawDepth;
    if (depth != 3)
        return;
    const Colour colour = BrushColour(brush);
    if (count == 2) {
        const Point band[] = {points[0],
                              points[1],
                              {points[1].X + depth, points[1].Y - depth},
                              {points[0].X + depth, points[0].Y - depth}};
        FillPolygon(ListWindow, band, 4, colour, colour);
        return;
    }
    Point shifted[MostSamples + 1];
    for (int k = depth - 1; k >= 1; --k)
        for (const int up : {k, k - 1}) { // without the second copy a slanted ribbon would have holes
            for (int i = 0; i < count; ++i)
                shifted[i] = {points[i].X + k, points[i].Y - up};
            DrawPolyline(ListWindow, shifted, count, colour);
        }
}

void DrawGraph() {
    const int count = state.SampleCount;
    const bool regression = state.GraphMode == Regression && CalcRegression();
    if (regression)
        DrawRegressionLine();
    if (count > 1)
        DrawRibbon(state.SamplePt, count + 1, CurveRibbon);
    if (count > 0)
        DrawPolyline(ListWindow, state.SamplePt, count + 1, Black);
    if (regression)
        RedrawLineAboveCurve(state.RegSlope, state.LineEnds[0].Y, state.SamplePt + 1, count, state.LineEnds, LineRibbon,
                             RegressionPen);
    DrawAxesAgain();
    if (state.SelectedSample < 1)
        return;
    DrawMark(PointOfPointer());
    if (state.PointerOn)
        DrawPointer(PointOfPointer());
    ShowGraphPtr();
}

void DrawExtrapolation() {
    if (state.SampleCount >= 2) {
        DrawRegressionLine();
        const int zero = PlotRow(state.PlotZero + state.PlotBase);
        const Point line[] = {{state.LineEnds[0].X, zero}, {state.LineEnds[1].X, zero}};
        RedrawLineAboveCurve(0, zero, state.LineEnds, 2, line, AxisRibbon, Black);
    }
    DrawAxesAgain();
    if (!state.PointerOn)
        return;
    DrawMark(PointOfPointer());
    DrawPointer(PointOfPointer());
    ShowGraphPtr();
}

PointerPlace PlaceOfPointer() {
    constexpr int Before = 20, Least = 28, Most = 193, Width = 45, AmountRight = 29;
    PointerPlace place = {};
    if (!PointerTells())
        return place;
    place.At = PointOfPointer();
    const int left = std::clamp(place.At.X - Before, Least, Most);
    const int64_t under = int64_t{state.PlotBand} * 11 + state.PlotBase;
    const int top = PlotRow(under + 10);
    place.Day = {left, top, left + Width, (state.MessageWindowOn ? top : PlotRow(under + 20)) + CaptionCell};
    place.Amount = {1, place.At.Y - 5, AmountRight, place.At.Y - 5 + CaptionCell};
    return place;
}

void ShowGraphPtr() {
    if (!PointerTells())
        return;
    const PointerPlace place = PlaceOfPointer();
    const PlotPoint point = PointOfPlot();
    DrawDay(point.Day, place.Day);
    DrawAmount(point.Amount, place.Amount);
    DrawTitle(point.Title, point.At);
}
