#include "analysis/regression.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/single.h"
#include "state/state.h"

namespace {

float ZeroRow() {
    return static_cast<float>(state.PlotZero + state.PlotBase) * state.PlotYScale;
}

// Sets UnitsPerRow and RowsPerDay by the extreme of the larger magnitude.
void SetUnits() {
    const bool upper = state.SampleMin > -state.SampleMax; // turned round: the smallest amount has no positive one
    const int extreme = upper ? state.MaxIndex : state.MinIndex;
    if (extreme < 1 || extreme > state.SampleCount + 1)
        return;
    const auto value = static_cast<float>(upper ? state.SampleMax : state.SampleMin);
    const float rows = ZeroRow() - static_cast<float>(state.SamplePt[extreme].Y);
    state.UnitsPerRow = rows == 0 ? 1 : value / rows * 0.001F;
    const auto width = static_cast<float>(state.SamplePt[state.SampleCount].X - state.SamplePt[1].X);
    state.RowsPerDay = state.DaySpan == 0 ? 1 : width / static_cast<float>(state.DaySpan);
}

Point OnLine(int x) {
    return {x, Cut(static_cast<float>(x) * state.RegSlope + state.RegIntercept)};
}

} // namespace

int CalcRegression() {
    const int count = state.SampleCount;
    const Point *const point = state.SamplePt;
    if (count < 2)
        return 0;
    SetUnits();
    float sumX = 0, sumY = 0;
    for (int i = 1; i <= count; ++i) {
        sumX += static_cast<float>(point[i].X);
        sumY += static_cast<float>(point[i].Y);
    }
    const float each = 1.0F / static_cast<float>(count);
    const float meanX = each * sumX, meanY = each * sumY;
    float sumXY = 0, sumXX = 0;
    for (int i = 1; i <= count; ++i) {
        const float dx = static_cast<float>(point[i].X) - meanX, dy = static_cast<float>(point[i].Y) - meanY;
        sumXY += dy * dx;
        sumXX += dx * dx;
    }
    state.RegSlope = sumXY / (sumXX == 0 ? 1 : sumXX);
    state.RegIntercept = meanY - state.RegSlope * meanX;
    const float first = static_cast<float>(point[1].X) * state.RegSlope + state.RegIntercept;
    state.FirstValue = Cut((ZeroRow() - first) * state.UnitsPerRow);
    return 1;
}

int SetLineEnds() {
    if (state.SampleCount < 2)
        return 0;
    const int left = state.SamplePt[1].X, right = state.SamplePt[state.SampleCount].X;
    if (state.GraphMode == Extrapolation) {
        const FixedAmount span = state.SampleMax == state.SampleMin ? 1 : state.SampleMax - state.SampleMin;
        state.LineEnds[0] = {left, PlotRow(RowOfValue(state.LeftValue, span))};
        state.LineEnds[1] = {right, PlotRow(RowOfValue(state.TargetValue, span))};
    } else {
        state.LineEnds[0] = OnLine(left);
        state.LineEnds[1] = OnLine(right);
    }
    return 1;
}

int LineAboveCurve(float slope, int y0, const Point *curve, int count, const Point line[2], Stretch *stretches) {
    const auto rowAt = [&](int x) { return Cut(static_cast<float>(x - curve[0].X) * slope + static_cast<float>(y0)); };
    const auto crossing = [&](const Point &a, const Point &b) -> Point {
        const float gradient = static_cast<float>(b.Y - a.Y) / static_cast<float>(b.X - a.X);
        const float off = gradient == slope ? 0 : static_cast<float>(rowAt(a.X) - a.Y) / (gradient - slope);
        return {Cut(static_cast<float>(a.X) + off), Cut(off * gradient + static_cast<float>(a.Y))};
    };
    int found = 0;
    bool above = false;
    Point start = {};
    for (int i = 1; i < count; ++i) {
        const Point &vertex = curve[i];
        if (!above && rowAt(vertex.X) <= vertex.Y) {
            above = true;
            start = i == 1 && y0 <= curve[0].Y ? line[0] : crossing(curve[i - 1], vertex);
        } else if (above && rowAt(vertex.X) > vertex.Y) {
            above = false;
            const Point end = crossing(curve[i - 1], vertex);
            stretches[found++] = {start, {end.X, end.Y + 1}};
        }
    }
    if (above)
        stretches[found++] = {start, line[1]};
    return found;
}
