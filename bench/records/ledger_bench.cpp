// The ledger's rules. The counter "ratio" is the time of one turn in times of the reference, taken in the same run just
// before and after: reading the same rows once, or reading and writing them once. All times are the process's own, in
// the program and in the system, so that what else the machine does is not counted.
#include "frame/changes.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/order.h"
#include "ledger/reconcile.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "rows.h"
#include "store/configuration.h"
#include "frame/changes.h"
#include <algorithm>
#include <ctime>

namespace {

double Now() {
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// An account that the index knows, with rows as in rows.h; balances right.
struct AccountOnDisk : RowsOnDisk {
    explicit AccountOnDisk(int32_t count) : RowsOnDisk(count) {
        static_cast<void>(LoadConfFile());
        ARecFile account = {};
        InitARec(&account.Rec);
        account.Rec.ID = BenchAccount;
        const auto *bytes = reinterpret_cast<const uint8_t *>(&account);
        testhost::WriteBytes(Root.DataFile("E1_01IND"), {bytes, bytes + sizeof account});
        LoadAccFile(1);
        CalcBalance(BenchAccount);
        LoadTranFile(1, 0);
        state.CurrentScreen = TransactionList;
    }
};

enum class Against { Reading, ReadingAndWriting };

// The best of a few turns.
double ReferenceSeconds(int32_t count, Against against) {
    double best = 1e9;
    for (int turn = 0; turn < 5; ++turn) {
        const auto start = Now();
        PassOver(count, against == Against::ReadingAndWriting);
        best = std::min(best, Now() - start);
    }
    return best;
}

// Times `turn` alone; `restore` puts things back. The ratio is of the two best times.
template <typename Turn, typename Restore>
void Measure(benchmark::State &run, int32_t rows, Against against, Turn turn, Restore restore) {
    double reference = ReferenceSeconds(rows, against), best = 1e9;
    for (auto _ : run) {
        const auto start = Now();
        turn();
        const double seconds = Now() - start;
        run.SetIterationTime(seconds);
        best = std::min(best, seconds);
        restore();
    }
    reference = std::min(reference, ReferenceSeconds(rows, against));
    run.counters["ratio"] = best / reference;
}

void Nothing() {}

void ChangeFirstRow() {
    const int file = OpenDataFile(FileKind::Transactions, OpenExisting, BenchAccount, nullptr);
    TRecFile row;
    if (ReadRecord(file, FileKind::Transactions, 1, &row)) {
        ++row.Rec.Value;
        static_cast<void>(WriteRecord(file, FileKind::Transactions, 1, &row));
    }
    CloseFile(file);
}

void CalcAllChanging(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const AccountOnDisk account(count);
    ChangeFirstRow();
    Measure(
        run, count, Against::ReadingAndWriting, [] { CalcBalance(BenchAccount); }, ChangeFirstRow);
}

void CalcNoneChanging(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const AccountOnDisk account(count);
    Measure(
        run, count, Against::Reading, [] { CalcBalance(BenchAccount); }, Nothing);
}

// As the form's tick does it: its place, the record, the balances, the window.
void EnterOn(uint32_t day) {
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(day);
    row.Rank = EntryRank;
    row.Value = 77;
    state.CurrentScreen = TransactionList;
    AddRecFile(BenchAccount, CpDates(row.Date, row.Rank), &row, 0);
    CalcBalance(BenchAccount);
    LoadTranFile(1, SetRecPosition(state.SelectedPos[TransactionList], state.EntryCount[TransactionList]));
}

void TakeBack() {
    state.CurrentScreen = TransactionList;
    DeleteRecFile(BenchAccount, state.SelectedPos[TransactionList]);
    CalcBalance(BenchAccount);
}

void EntryAtEnd(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const AccountOnDisk account(count);
    Measure(
        run, count, Against::Reading, [] { EnterOn(LastDayNumber); }, TakeBack);
}

void EntryInMiddle(benchmark::State &run) {
    const auto count = static_cast<int32_t>(run.range(0));
    const AccountOnDisk account(count);
    const uint32_t middle = 120000 + static_cast<uint32_t>(count) / 6;
    Measure(
        run, count, Against::ReadingAndWriting, [middle] { EnterOn(middle); }, TakeBack);
}

void OpenAtEnd(benchmark::State &run) {
    const AccountOnDisk account(static_cast<int32_t>(run.range(0)));
    for (auto _ : run)
        LoadTranFile(1, 0);
}

void ArchiveHalf(benchmark::State &run) {
    constexpr int32_t Count = 100000;
    const AccountOnDisk account(Count);
    Measure(
        run, Count, Against::ReadingAndWriting,
        [] {
            if (!Archive(1, Count / 2, nullptr))
                std::abort();
        },
        [] {
            state.ArchiveView = 1;
            Unarchive(1, 1, nullptr);
            state.ArchiveView = 0;
        });
}

// Against the rows that return alone: twice as many are written.
void UnarchiveHalf(benchmark::State &run) {
    constexpr int32_t Count = 100000;
    const AccountOnDisk account(Count);
    const auto away = [] {
        state.ArchiveView = 0;
        if (!Archive(1, Count / 2, nullptr))
            std::abort();
        state.ArchiveView = 1;
    };
    away();
    Measure(
        run, Count / 2, Against::ReadingAndWriting, [] { Unarchive(1, 1, nullptr); }, away);
}

// Argument 0 shows half of the rows, 1 all of them.
void FilterRows(benchmark::State &run) {
    constexpr int32_t Count = 100000;
    const AccountOnDisk account(Count);
    const FilterBy field = run.range(0) ? FilterBy::Flag : FilterBy::Sign;
    FilterCriteria criteria = {};
    criteria.Value = -1;
    Measure(
        run, Count, Against::ReadingAndWriting, [&] { ApplyFilter(BenchAccount, 1, field, criteria, 0); },
        [] { ClearFilters(); });
}

void EmptyBinOf5000(benchmark::State &run) {
    const AccountOnDisk account(100);
    std::vector<uint8_t> bin(5000 * sizeof(BinRecFile));
    for (int i = 0; i < 5000; ++i) {
        BinRecFile row = {};
        row.Rec.Version = RecordVersion;
        row.Rec.SourceList = TransactionList;
        __builtin_memcpy(bin.data() + static_cast<size_t>(i) * sizeof row, &row, sizeof row);
    }
    for (auto _ : run) {
        testhost::WriteBytes(account.Root.DataFile("E1_06BIN"), bin);
        const auto start = Now();
        EmptyBin();
        run.SetIterationTime(Now() - start);
    }
}

// 1,000 items, every second due today, all of one account of some rows.
void CheckItems(benchmark::State &run) {
    const AccountOnDisk account(static_cast<int32_t>(run.range(0)));
    const std::vector<uint8_t> rows = testhost::ReadBytes(account.Root.DataFile("E1_02A5"));
    RecDate today;
    LoadTodaysDate(&today);
    std::vector<uint8_t> items(1000 * sizeof(DDRecFile));
    for (uint32_t i = 0; i < 1000; ++i) {
        DDRecFile item = {};
        InitDDRec(&item.Rec);
        item.Rec.NextDate = DateFromDayNumber(i < 500 ? today.DayNumber : today.DayNumber + 10 + i / 50);
        item.Rec.DayWanted = static_cast<uint8_t>(item.Rec.NextDate.Day);
        item.Rec.Rank = EntryRank;
        item.Rec.PeriodCount = 1;
        item.Rec.TotalCount = item.Rec.Remaining = ForEver;
        CopyText(item.Rec.PeriodUnit, 10, u"Month(s)");
        for (DDBlock &block : item.Rec.Block) {
            block.Units = 1;
            block.Value = 1000;
            block.Account = BenchAccount;
        }
        __builtin_memcpy(items.data() + i * sizeof item, &item, sizeof item);
    }
    for (auto _ : run) {
        testhost::WriteBytes(account.Root.DataFile("E1_02A5"), rows);
        testhost::WriteBytes(account.Root.DataFile("E1_04DD"), items);
        const auto start = Now();
        CheckDDs();
        run.SetIterationTime(Now() - start);
    }
}

// No mask fits: all 2^20 - 1 of them are tried.
void FullSearch(benchmark::State &run) {
    ResetState();
    state.CandidateCount = MostCandidates;
    for (int i = 0; i < MostCandidates; ++i)
        state.Candidates[i] = {i + 1, 2 * (1000 + i * i * 7919), 0, 0};
    state.Discrepancy = 1;
    for (auto _ : run)
        SearchReconcile();
    if (state.ReconcileState != ReconcileStep::Impossible)
        std::abort();
}

#define ON_ALL_SIZES(name)                                                                                             \
    BENCHMARK(name)->Arg(1000)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMicrosecond)
ON_ALL_SIZES(CalcAllChanging);
ON_ALL_SIZES(CalcNoneChanging);
ON_ALL_SIZES(EntryAtEnd);
ON_ALL_SIZES(EntryInMiddle);
BENCHMARK(OpenAtEnd)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ArchiveHalf)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(UnarchiveHalf)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FilterRows)->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EmptyBinOf5000)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(CheckItems)->Arg(100)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FullSearch)->Unit(benchmark::kMicrosecond);

} // namespace
