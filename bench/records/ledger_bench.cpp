// The ledger's rules on one account, each against reading the same rows once, or reading and writing them once.
#include "ledger/archive.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/reconcile.h"
#include "rows.h"
#include "store/operations.h"

namespace {

const Place BenchRows = LiveRows(BenchAccount);

void ChangeFirstRow() {
    TRec row;
    Must(FetchRecord(BenchRows, 1, &row));
    ++row.Value;
    Must(ChangeRecord(BenchRows, 1, row));
}

void CalcAllChanging(benchmark::State &run) {
    const AccountOnDisk account(CountIn(run));
    Must(testhost::AsAction(ChangeFirstRow));
    Measure(
        run, account.Root, CountIn(run), Against::ReadingAndWriting, [] { CalcBalance(BenchAccount); }, ChangeFirstRow);
}

void CalcNoneChanging(benchmark::State &run) {
    const AccountOnDisk account(CountIn(run));
    Measure(
        run, account.Root, CountIn(run), Against::Reading, [] { CalcBalance(BenchAccount); }, Nothing);
}

// As the form's tick does it: its place, the record, the balances, the window.
void EnterOn(uint32_t day) {
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(day);
    row.Rank = EntryRank;
    row.Value = 77;
    state.CurrentScreen = TransactionList;
    Must(AddRecFile(BenchAccount, CpDates(row.Date, row.Rank), &row, 0));
    CalcBalance(BenchAccount);
    LoadTranFile(1, SetRecPosition(state.SelectedPos[TransactionList], state.EntryCount[TransactionList]));
}

void TakeBack() {
    state.CurrentScreen = TransactionList;
    Must(DeleteRecFile(BenchAccount, state.SelectedPos[TransactionList]));
    CalcBalance(BenchAccount);
}

void EntryAtEnd(benchmark::State &run) {
    const AccountOnDisk account(CountIn(run));
    Measure(
        run, account.Root, CountIn(run), Against::Reading, [] { EnterOn(LastDayNumber); }, TakeBack);
}

void EntryInMiddle(benchmark::State &run) {
    const AccountOnDisk account(CountIn(run));
    const uint32_t middle = FirstBenchDay + static_cast<uint32_t>(CountIn(run)) / 6;
    Measure(
        run, account.Root, CountIn(run), Against::ReadingAndWriting, [middle] { EnterOn(middle); }, TakeBack);
}

void OpenAtEnd(benchmark::State &run) {
    const AccountOnDisk account(CountIn(run));
    for (auto _ : run)
        LoadTranFile(1, 0);
}

// --- The archive

// Half of the rows behind each other, or their days also those of the rows that the archive holds: argument 1.
constexpr int32_t Large = 100000;

struct WithArchive : AccountOnDisk {
    explicit WithArchive(bool interleaved) : AccountOnDisk(Large) {
        if (interleaved)
            testhost::WriteBytes(Root.DataFile("E1_02R5"), BytesOf(MakeRows(Large / 2)));
    }
};

void Away() {
    Must(Archive(BenchAccount, Large / 2, nullptr) == ArchiveResult::Done);
}
// As many rows as had gone.
void Back() {
    const int32_t archived = CountOf(RowsOf(BenchAccount, View::Archive));
    Must(Unarchive(BenchAccount, archived - Large / 2 + 1, nullptr) == ArchiveResult::Done);
}

// Against the rows of both files.
int32_t RowsConcerned(bool interleaved) {
    return interleaved ? Large + Large / 2 : Large;
}

void Scale(benchmark::State &run, int32_t measured, int32_t concerned) {
    for (const char *counter : {"ratio", "copies"})
        run.counters[counter] = run.counters[counter].value * measured / concerned;
}

void ArchiveHalf(benchmark::State &run) {
    const bool interleaved = run.range(0) != 0;
    const WithArchive account(interleaved);
    Measure(run, account.Root, Large, Against::ReadingAndWriting, Away, Back);
    Scale(run, Large, RowsConcerned(interleaved));
}

void UnarchiveHalf(benchmark::State &run) {
    const bool interleaved = run.range(0) != 0;
    const WithArchive account(interleaved);
    Must(testhost::AsAction(Away));
    Measure(run, account.Root, Large / 2, Against::ReadingAndWriting, Back, Away);
    Scale(run, Large / 2, RowsConcerned(interleaved));
}

// --- Deleting

// 50,000 rows from the middle of an account, against these; the balances included, as the command does it.
void DeleteRange(benchmark::State &run) {
    const AccountOnDisk account(Large);
    const std::vector<uint8_t> rows = testhost::ReadBytes(account.Root.DataFile("E1_02A5"));
    Measure(
        run, account.Root, Large / 2, Against::ReadingAndWriting,
        [] {
            Must(DeleteRangeToBin(BenchRows, Large / 4 + 1, Large / 4 * 3) == 1);
            CalcBalance(BenchAccount);
        },
        [&] {
            Must(EmptyBin());
            testhost::WriteBytes(account.Root.DataFile("E1_02A5"), rows);
        });
}

void EmptyBinOf5000(benchmark::State &run) {
    const AccountOnDisk account(100);
    std::vector<BinRecFile> bin(5000);
    for (BinRecFile &row : bin) {
        row.Rec.Version = RecordVersion;
        row.Rec.SourceList = TransactionList;
    }
    const auto fill = [&] { testhost::WriteBytes(account.Root.DataFile("E1_06BIN"), BytesOf(bin)); };
    fill();
    Measure(
        run, account.Root, 100, Against::Reading, [] { Must(EmptyBin()); }, fill);
}

// Argument 0 shows half of the rows, 1 all of them.
void FilterRows(benchmark::State &run) {
    const AccountOnDisk account(Large);
    const FilterBy field = run.range(0) ? FilterBy::Flag : FilterBy::Sign;
    FilterCriteria criteria = {};
    criteria.Value = -1;
    Measure(
        run, account.Root, Large, Against::ReadingAndWriting,
        [&] {
            FilterCount count;
            Must(ApplyFilter(BenchAccount, 1, field, criteria, 0, &count));
        },
        [] { ClearFilters(); });
}

// --- Reconciling

// No mask fits: all 2^20 - 1 of them are tried.
void FullSearch(benchmark::State &run) {
    ResetState();
    state.CandidateCount = MostCandidates;
    for (int i = 0; i < MostCandidates; ++i) {
        state.Candidates[i] = {};
        state.Candidates[i].Position = i + 1;
        state.Candidates[i].Sum = 2 * (1000 + i * i * 7919);
    }
    state.Discrepancy = 1;
    for (auto _ : run)
        SearchReconcile();
    Must(state.ReconcileState == ReconcileStep::Impossible);
}

void MarkCandidates(bool reconciled) {
    for (int i = 0; i < MostCandidates; ++i) {
        state.Candidates[i] = {};
        state.Candidates[i].Position = (i + 1) * 10;
        state.Candidates[i].Selected = 1;
    }
    state.CandidateCount = MostCandidates;
    state.ReconcileState = ReconcileStep::Solved;
    if (reconciled)
        return;
    for (int i = 0; i < MostCandidates; ++i) {
        TRec row;
        Must(FetchRecord(BenchRows, (i + 1) * 10, &row));
        row.Cleared = 0;
        Must(ChangeRecord(BenchRows, (i + 1) * 10, row));
    }
    MarkCandidates(true);
}

// The most rows that a solution can have, without the balances.
void ApplyMostReconciled(benchmark::State &run) {
    const AccountOnDisk account(1000);
    MarkCandidates(true);
    Measure(
        run, account.Root, 1000, Against::Reading, [] { Must(ApplyReconcile(BenchRows)); },
        [] { MarkCandidates(false); });
}

#define ON_ALL_SIZES(name)                                                                                             \
    BENCHMARK(name)->Arg(1000)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMicrosecond)
ON_ALL_SIZES(CalcAllChanging);
ON_ALL_SIZES(CalcNoneChanging);
ON_ALL_SIZES(EntryAtEnd);
ON_ALL_SIZES(EntryInMiddle);
BENCHMARK(OpenAtEnd)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ArchiveHalf)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UnarchiveHalf)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DeleteRange)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EmptyBinOf5000)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(FilterRows)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FullSearch)->Unit(benchmark::kMicrosecond);
BENCHMARK(ApplyMostReconciled)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace
