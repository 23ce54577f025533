#include "program/invariants.h"
#include "analysis/charts.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_value.h"
#include "frame/form.h"
#include "platform/action.h"
#include "platform/files.h"
#include "platform/painting.h"
#include "screens/list_screen.h"
#include "state/state.h"

namespace {

bool Within(int64_t value, int64_t least, int64_t most) {
    return value >= least && value <= most;
}

// The screen's own window can be seen: neither a page nor a form stands for it.
bool ListIsUp() {
    return state.FrontPageDone && state.PageShown == Page::None && state.ActiveDialog == NoDialog;
}

bool EveryList(bool (*holds)(int list)) {
    for (int list = AccountList; list < ListCount; ++list)
        if (!holds(list))
            return false;
    return true;
}

bool ColumnsRise(int list) {
    const int32_t *edge = state.ColumnEdge[list];
    for (int i = 0; i <= ScreenOf(list)->Grabs; ++i)
        if (edge[i] > edge[i + 1])
            return false;
    return edge[0] == 0;
}

bool SelectedSampleIsTheEntry() {
    const int32_t sample = state.SelectedSample;
    return sample < 1 ? state.SelectedEntry == 0 : state.SamplePos[sample] == state.SelectedEntry;
}

bool PlotIsUp() {
    return state.CurrentScreen == GraphList && !ChartShown();
}
bool ChartIsUp() {
    return state.CurrentScreen == GraphList && ChartShown();
}

struct Invariant {
    const char *Name;
    bool (*Holds)();
};
// clang-format off
constexpr Invariant Invariants[] = { // a row may lean on those before it
    {"no data file is open", [] { return FilesOpen() == 0; }},
    {"no action runs", [] { return !ActionRuns(); }},
    {"nothing is being painted or listened to", [] { return !Painting::Runs() && !state.Heard; }},
    {"what an event asked for is done", [] { return state.Next == NextStep::None || state.Next == NextStep::Left; }},
    {"one of the screens is shown", [] { return Within(state.CurrentScreen, AccountList, ConversionList); }},
    {"positions count from 1, and counts from 0", [] {
        return EveryList([](int list) {
            return state.TopPos[list] >= 1 && state.SelectedPos[list] >= 0 && state.EntryCount[list] >= 0; }); }},
    {"columns stand from left to right", [] { return EveryList(ColumnsRise); }},
    {"an open form is the active dialog", [] {
        return state.OpenedForm ? state.OpenedForm->Dialog == state.ActiveDialog : state.ActiveDialog != ClosingDialog; }},
    {"the list leaves room for the messages", [] {
        return Within(state.RowCount, RowsAboveMessages, MostRows) &&
               (!ListIsUp() || state.RowCount == (state.MessageWindowOn ? RowsAboveMessages : MostRows)); }},
    {"help mode has its window", [] { return !state.HelpMode || state.MessageWindowOn; }},
    {"the hub is closed, a panel or the calculator", [] { return Within(state.HubState, HubClosed, LargeHub); }},
    {"rates are picked from the panel", [] {
        return !state.HubPicking || (state.HubState == SmallHub && state.CurrentScreen == ConversionList); }},
    {"the graph has a mode", [] { return Within(state.GraphMode, 0, PieChart); }},
    {"the sample table is within its room", [] {
        return Within(state.SampleCount, 0, MostSamples) && state.SampleTotal >= state.SampleCount &&
               Within(state.SelectedSample, -1, state.SampleCount); }},
    {"the selected sample is the selected entry", [] { return !PlotIsUp() || SelectedSampleIsTheEntry(); }},
    {"the boxes hold what they can show", [] {
        return Within(state.ExtrapValue, -LargestExtrapolated, LargestExtrapolated) &&
               Within(state.ExtrapPercent, -LargestPercent, LargestPercent) &&
               Within(state.BoxSelection, NoBox, PercentBox) && Within(state.PercentLink, LinkDate, LinkValue); }},
    {"charts have a group and an order", [] {
        return Within(state.AnalysisGroup, ByName, BySign) && Within(state.AnalysisOrder, 0, OrderCount - 1) &&
               Within(state.DroppedList, 0, 2) && Within(state.BarZoom, 1, 243); }},
    {"the table of a chart is within it", [] {
        return Within(state.ChartRowCount, 0, MostRows) && Within(state.PieSectorCount, 0, PieDegrees) &&
               (!ChartIsUp() || state.TopPos[GraphList] + state.ChartRowCount <= state.EntryCount[GraphList] + 1); }},
    {"no search is half done", [] {
        return state.ReconcileState != ReconcileStep::Computing && Within(state.CandidateCount, 0, MostCandidates) &&
               Within(state.SelectedCount, 0, state.CandidateCount); }},
    {"no entry waits to be placed", [] { return state.WaitingCount == 0; }},
    {"no new pass code lies about", [] { return state.FirstEntry[0] == 0 || state.ActiveDialog == PassCodeDialog; }},
};
// clang-format on

} // namespace

const char *BrokenInvariant() {
    for (const Invariant &invariant : Invariants)
        if (!invariant.Holds())
            return invariant.Name;
    return nullptr;
}
