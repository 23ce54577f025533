// The record operations, against reading and writing the same file once.
#include "rows.h"
#include "frame/changes.h"
#include <benchmark/benchmark.h>

namespace {

void ReferenceReading(benchmark::State &run) {
    const RowsOnDisk rows(static_cast<int32_t>(run.range(0)));
    for (auto _ : run)
        PassOver(static_cast<int32_t>(run.range(0)), false);
}

void ReferenceReadingAndWriting(benchmark::State &run) {
    const RowsOnDisk rows(static_cast<int32_t>(run.range(0)));
    for (auto _ : run)
        PassOver(static_cast<int32_t>(run.range(0)), true);
}

// `part` of 2: where in the file.
void AddAndTakeBack(benchmark::State &run, int part, bool timeAdding) {
    const auto count = static_cast<int32_t>(run.range(0));
    const RowsOnDisk rows(count);
    const int32_t position = count / 2 * part + 1;
    TRec row;
    InitTRec(&row);
    for (auto _ : run) {
        if (!timeAdding)
            run.PauseTiming();
        AddRecFile(BenchAccount, position, &row, 1);
        if (timeAdding)
            run.PauseTiming();
        else
            run.ResumeTiming();
        DeleteRecFile(BenchAccount, position);
        if (timeAdding)
            run.ResumeTiming();
    }
}
void AddAtEnd(benchmark::State &run) {
    AddAndTakeBack(run, 2, true);
}
void AddInMiddle(benchmark::State &run) {
    AddAndTakeBack(run, 1, true);
}
void DeleteInMiddle(benchmark::State &run) {
    AddAndTakeBack(run, 1, false);
}

void ChangeInMiddle(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const RowsOnDisk rows(count);
    TRec row;
    InitTRec(&row);
    for (auto _ : run) {
        ++row.Value; // so that every total behind it changes
        ModRecFile(BenchAccount, count / 2, &row);
    }
}

void WindowAtEnd(benchmark::State &run) {
    const RowsOnDisk rows(10);
    testhost::WriteBytes(rows.Root.DataFile("E1_05FAV"),
                         std::vector<uint8_t>(static_cast<size_t>(run.range(0)) * sizeof(FRecFile), RecordVersion));
    for (auto _ : run)
        LoadFavFile(0);
}

#define ON_ALL_SIZES(name) BENCHMARK(name)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond)
ON_ALL_SIZES(ReferenceReading);
ON_ALL_SIZES(ReferenceReadingAndWriting);
ON_ALL_SIZES(AddAtEnd);
ON_ALL_SIZES(AddInMiddle);
ON_ALL_SIZES(DeleteInMiddle);
ON_ALL_SIZES(ChangeInMiddle);
ON_ALL_SIZES(WindowAtEnd);

} // namespace
