// The record operations, against reading and writing the same file once.
#include "rows.h"

namespace {

void ReferenceReading(benchmark::State &run) {
    const RowsOnDisk rows(CountIn(run));
    for (auto _ : run)
        PassOver(rows.Root, CountIn(run), Against::Reading);
}

void ReferenceReadingAndWriting(benchmark::State &run) {
    const RowsOnDisk rows(CountIn(run));
    for (auto _ : run)
        PassOver(rows.Root, CountIn(run), Against::ReadingAndWriting);
}

void Add(int32_t position) {
    TRec row;
    InitTRec(&row);
    Must(AddRecFile(BenchAccount, position, &row, 1));
}

// `part` of 2: where in the file.
void AddThere(benchmark::State &run, int part) {
    const RowsOnDisk rows(CountIn(run));
    const int32_t position = CountIn(run) / 2 * part + 1;
    Measure(
        run, rows.Root, CountIn(run), Against::Reading, [=] { Add(position); },
        [=] { Must(DeleteRecFile(BenchAccount, position)); });
}
void AddAtEnd(benchmark::State &run) {
    AddThere(run, 2);
}
void AddInMiddle(benchmark::State &run) {
    AddThere(run, 1);
}

void DeleteInMiddle(benchmark::State &run) {
    const RowsOnDisk rows(CountIn(run));
    const int32_t position = CountIn(run) / 2;
    Measure(
        run, rows.Root, CountIn(run), Against::Reading, [=] { Must(DeleteRecFile(BenchAccount, position)); },
        [=] { Add(position); });
}

void ChangeInMiddle(benchmark::State &run) {
    const RowsOnDisk rows(CountIn(run));
    TRec row;
    InitTRec(&row);
    Measure(
        run, rows.Root, CountIn(run), Against::Reading,
        [&] {
            ++row.Value;
            Must(ModRecFile(BenchAccount, CountIn(run) / 2, &row));
        },
        Nothing);
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
ON_ALL_SIZES(AddAtEnd)->UseManualTime();
ON_ALL_SIZES(AddInMiddle)->UseManualTime();
ON_ALL_SIZES(DeleteInMiddle)->UseManualTime();
ON_ALL_SIZES(ChangeInMiddle)->UseManualTime();
ON_ALL_SIZES(WindowAtEnd);

} // namespace
