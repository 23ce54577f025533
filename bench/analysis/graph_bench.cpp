// The blue tab: a plot costs the same however long its account is, and a step of an extrapolation box is to stay below
// 5 ms. On the surface of the tests, which is slower than a real one.
#include "../records/rows.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "frame/shown.h"
#include "screens/list_screen.h"
#include "screens/screens.h"

namespace {

// The account plotted in a mode.
struct Plotted : RowsOnDisk {
    Plotted(int32_t count, int mode) : RowsOnDisk(count) {
        state.CurrentScreen = GraphList;
        state.BalanceView = 0; // the rows have values alone
        state.GraphMode = mode;
        for (char16_t const *&name : state.MonthNames)
            name = u"Mar";
        SetPaintProcedures();
        ReloadList(GraphList, 1);
        doGraph(ListWindow, EveryBand);
    }
};

void Graph(benchmark::State &run) {
    const Plotted account(static_cast<int32_t>(run.range(0)), static_cast<int>(run.range(1)));
    for (auto _ : run) { // as when the account or the mode changes
        ReloadList(GraphList, 1);
        doGraph(ListWindow, EveryBand);
    }
}
BENCHMARK(Graph)
    ->ArgNames({"rows", "mode"})
    ->ArgsProduct({{100, 1000, 100000}, {PlainGraph, Regression}})
    ->Unit(benchmark::kMillisecond);

void Reading(benchmark::State &run) {
    const Plotted account(static_cast<int32_t>(run.range(0)), PlainGraph);
    for (auto _ : run)
        LoadGraphData(EntriesShown());
}
BENCHMARK(Reading)->ArgName("rows")->Arg(100)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

// The date box a day on and back, the value predicted and the plot painted.
void BoxStep(benchmark::State &run) {
    const Plotted account(static_cast<int32_t>(run.range(0)), Extrapolation);
    state.BoxSelection = DateBox;
    int up = 0;
    for (auto _ : run) {
        StepBox(up = !up);
        doGraph(ListWindow, 17);
    }
}
BENCHMARK(BoxStep)->ArgName("rows")->Arg(100)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace
