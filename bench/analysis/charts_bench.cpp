// Charts of large accounts: from the account's file to segments in their order. Times are the process's own.
#include "../records/rows.h"
#include "analysis/charts.h"
#include "platform/text.h"
#include "store/operations.h"
#include <cstdio>

namespace {

// `count` rows, so many of them of different names, on the graph screen as a pie.
struct ChartOnDisk {
    testhost::TestRoot Root;
    ChartOnDisk(int32_t count, int32_t names) {
        Root.MakeDataDirectory();
        std::vector<uint8_t> bytes(static_cast<size_t>(count) * sizeof(TRecFile));
        for (int32_t i = 0; i < count; ++i) {
            TRecFile record = {};
            InitTRec(&record.Rec);
            record.Rec.Date = DateFromDayNumber(120000 + static_cast<uint32_t>(i) / 3);
            record.Rec.Value = i * 7919 % 1000003 - 500000;
            CopyText(record.Rec.Name, TextRoom, u"Shop number ");
            AppendNumber(record.Rec.Name, TextRoom, i % names);
            __builtin_memcpy(bytes.data() + static_cast<size_t>(i) * sizeof record, &record, sizeof record);
        }
        testhost::WriteBytes(Root.DataFile("E1_02A5"), bytes);
        state.CurrentScreen = GraphList;
        state.GraphMode = 5;
        state.CurAccount.ID = BenchAccount;
        state.AnalysisGroup = ByName;
    }
};

void PieByName(benchmark::State &run) {
    const ChartOnDisk chart(static_cast<int32_t>(run.range(0)), static_cast<int32_t>(run.range(1)));
    state.AnalysisOrder = static_cast<int32_t>(run.range(2));
    int32_t segments = 0;
    for (auto _ : run)
        segments = ConvertRecToGRec(LiveRows(BenchAccount));
    run.counters["segments"] = segments;
}
BENCHMARK(PieByName)
    ->Unit(benchmark::kMillisecond)
    ->Args({100, 20, LargestFirst})
    ->Args({10000, 5000, LargestFirst}) // to reach: below 50 ms
    ->Args({10000, 5000, FromAToZ})
    ->Args({10000, 10000, FromAToZ})
    ->Args({100000, 100000, FromAToZ});

} // namespace
