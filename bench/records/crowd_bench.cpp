// What grows with the number of accounts and of recurring items. To reach: the list of 1,000 accounts within 8 ms; the
// start with 1,000 accounts and 1,000 items within 60 ms; 3,000 due items within 150 ms; 25 entries into 100,000 rows
// within 3 times one entry; two years of 200 weekly items within 1 s.
#include "forms/due_items.h"
#include "host/hands.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "rows.h"
#include "store/catalogue.h"

namespace {

constexpr uint32_t FirstOfCrowd = 100;
constexpr int32_t RowsOfEach = 20;

// So many accounts, each with some rows of its own, at the account list; the program has been left once.
struct Crowd {
    testhost::TestRoot Root;
    explicit Crowd(int32_t accounts) {
        Must(testhost::StartProgram()); // makes the samples
        testhost::QuitProgram();
        testhost::WriteBytes(Root.DataFile("E1_01IND"), BytesOf(MakeAccounts(accounts, FirstOfCrowd)));
        const std::vector<uint8_t> rows = BytesOf(MakeRows(RowsOfEach));
        for (int32_t i = 0; i < accounts; ++i)
            testhost::WriteBytes(Root.DataFile("E1_02A" + std::to_string(FirstOfCrowd + static_cast<uint32_t>(i))),
                                 rows);
    }
    void Start() const { Must(testhost::StartProgram()); }
};

// Items that fall due `days` before today and then every period, into so many accounts in turn.
std::vector<DDRecFile> MakeItems(uint32_t count, uint32_t daysAgo, const char16_t *unit, uint32_t firstAccount,
                                 uint32_t accounts) {
    RecDate today;
    LoadTodaysDate(&today);
    std::vector<DDRecFile> items(count);
    for (uint32_t i = 0; i < count; ++i) {
        DDRec &item = items[i].Rec;
        InitDDRec(&item);
        item.NextDate = DateFromDayNumber(today.DayNumber - daysAgo);
        item.DayWanted = static_cast<uint8_t>(item.NextDate.Day);
        item.Rank = EntryRank;
        item.PeriodCount = 1;
        item.TotalCount = item.Remaining = ForEver;
        CopyText(item.PeriodUnit, 10, unit);
        for (DDBlock &block : item.Block) {
            block.Units = 1;
            block.Value = 1000;
            block.Account = firstAccount + i % accounts;
        }
    }
    return items;
}

void Settled() {
    for (int pass = 0; EntriesDue() > 0; ++pass)
        Must(pass < 1000 && testhost::AsAction([] { CheckDDs(); }));
    Must(SyncFiles());
}

// --- Accounts

// The list of accounts is entered, painted included; nothing has changed since.
void AccountTab(benchmark::State &run) {
    const Crowd crowd(CountIn(run));
    crowd.Start();
    for (auto _ : run) {
        testhost::ShowScreen(TemplateList);
        const double start = Now();
        testhost::ShowScreen(AccountList);
        run.SetIterationTime(Now() - start);
    }
    Must(state.EntryCount[AccountList] == CountIn(run));
    testhost::QuitProgram();
}

// From power-on to the list of accounts: so many accounts, and as many items of which none is due.
void Start(benchmark::State &run) {
    const Crowd crowd(CountIn(run));
    const auto count = static_cast<uint32_t>(CountIn(run));
    std::vector<DDRecFile> items = MakeItems(count, 0, u"Month(s)", FirstOfCrowd, count);
    RecDate today;
    LoadTodaysDate(&today);
    for (uint32_t i = 0; i < count; ++i)
        items[i].Rec.NextDate = DateFromDayNumber(today.DayNumber + 20 + i / 50);
    testhost::WriteBytes(crowd.Root.DataFile("E1_04DD"), BytesOf(items));
    crowd.Start();
    for (auto _ : run) {
        testhost::QuitProgram();
        ResetState();
        SetDeviceRoot(crowd.Root.Path().c_str());
        const double start = Now();
        crowd.Start();
        run.SetIterationTime(Now() - start);
    }
    Must(state.EntryCount[AccountList] == CountIn(run) && state.EntryCount[RecurringList] == CountIn(run));
    testhost::QuitProgram();
}

// --- Items

// Into accounts of so many rows from `firstDay` on, their balances right, until nothing is due.
void Post(benchmark::State &run, const Crowd &crowd, const std::vector<DDRecFile> &items, uint32_t accounts,
          int32_t rowsOfEach, uint32_t firstDay) {
    const auto fileOf = [&](uint32_t i) { return crowd.Root.DataFile("E1_02A" + std::to_string(FirstOfCrowd + i)); };
    testhost::WriteBytes(fileOf(0), BytesOf(MakeRows(rowsOfEach, firstDay)));
    Must(testhost::AsAction([] { CalcTotals(LiveRows(FirstOfCrowd)); }) && SyncFiles());
    const std::vector<uint8_t> rows = testhost::ReadBytes(fileOf(0)), due = BytesOf(items);
    double best = 1e9;
    for (auto _ : run) {
        for (uint32_t i = 0; i < accounts; ++i)
            testhost::WriteBytes(fileOf(i), rows);
        testhost::WriteBytes(crowd.Root.DataFile("E1_04DD"), due);
        const double start = Now();
        Settled();
        const double seconds = Now() - start;
        best = std::min(best, seconds);
        run.SetIterationTime(seconds);
    }
    run.counters["best ms"] = best * 1e3;
}

// So many items, each due once.
void DueItems(benchmark::State &run) {
    const Crowd crowd(10);
    crowd.Start();
    Post(run, crowd, MakeItems(static_cast<uint32_t>(CountIn(run)), 0, u"Month(s)", FirstOfCrowd, 10), 10, 1000,
         FirstBenchDay);
    testhost::QuitProgram();
}

// So many occurrences of one item, at the end of 100,000 rows or, argument 1, amidst them.
void ManyOfOneItem(benchmark::State &run) {
    constexpr int32_t Rows = 100000;
    const Crowd crowd(1);
    crowd.Start();
    const auto daysAgo = static_cast<uint32_t>(CountIn(run) - 1) * 7;
    std::vector<DDRecFile> items = MakeItems(1, daysAgo, u"Week(s)", FirstOfCrowd, 1);
    items[0].Rec.TotalCount = items[0].Rec.Remaining = CountIn(run);
    RecDate today;
    LoadTodaysDate(&today);
    Post(run, crowd, items, 1, Rows, today.DayNumber - Rows / (run.range(1) ? 6 : 3) - daysAgo);
    testhost::QuitProgram();
}

// 200 weekly items of 10 accounts, after two years.
void TwoYears(benchmark::State &run) {
    const Crowd crowd(10);
    crowd.Start();
    Post(run, crowd, MakeItems(200, 2 * 365, u"Week(s)", FirstOfCrowd, 10), 10, 1000, FirstBenchDay);
    testhost::QuitProgram();
}

BENCHMARK(AccountTab)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Start)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(DueItems)->Arg(1000)->Arg(3000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ManyOfOneItem)->ArgsProduct({{1, 25}, {0, 1}})->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(TwoYears)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
