#include "analysis/chart_window.h"
#include "analysis/charts.h"
#include "state/state.h"
#include <algorithm>

namespace {

// One sector for each segment that is a degree wide or more. The last one closes the circle.
void CutPie() {
    constexpr float DegreesOfPercent = 3.6f;
    float sum = 0;
    int32_t at = 0, colour = 0;
    state.PieSectorCount = 0;
    const auto add = [&](int32_t row, int32_t end) {
        if (end > at)
            state.PieSectors[state.PieSectorCount++] = {row, end, colour};
        at = end;
    };
    WalkGRecs([&](int32_t row, const GRec &segment) {
        if (PercentOf(segment) <= 0)
            return 1;
        sum += PercentOf(segment);
        colour = segment.PieColour;
        add(row, std::clamp(static_cast<int32_t>(sum * DegreesOfPercent), at, PieDegrees));
        return 1;
    });
    if (sum > 0)
        add(0, PieDegrees);
}

} // namespace

int TableRows() {
    return state.RowCount - (state.MessageWindowOn ? 1 : 0);
}

int32_t LowestChartTop() {
    return std::max(1, state.EntryCount[GraphList] - TableRows() + 1);
}

void LoadChart(const Place &place, int32_t top) {
    const int32_t count = ConvertRecToGRec(place);
    state.EntryCount[GraphList] = count;
    int32_t *const selected = &state.SelectedPos[GraphList];
    *selected = std::clamp(*selected, std::min(1, count), count);
    state.DroppedList = 0;
    CutPie();
    LoadChartRows(top);
}

void LoadChartRows(int32_t top) {
    state.TopPos[GraphList] = std::clamp(top, 1, LowestChartTop());
    state.ChartRowCount = LoadGRecs(state.TopPos[GraphList], MostRows, state.ChartRows);
    const int32_t selected = state.SelectedPos[GraphList], row = selected - state.TopPos[GraphList];
    const bool shows = row >= 0 && row < state.ChartRowCount;
    state.SegmentSelected = shows ? 1 : static_cast<uint32_t>(LoadGRec(selected, &state.Segment));
    if (shows)
        state.Segment = state.ChartRows[row];
}
