// What durability costs: what an owner does to an account of so many rows, each as the one action that it is; the same
// without any sync; one write and a sync of the bytes that it changes; and SQLite doing the same to a table that keeps
// running totals. On a directory of the disk that is to be measured: ZENTRIK_BENCH_DIRECTORY, otherwise the one it is
// started in. Where other work goes on, compare medians of repetitions:
//
//     bench_durable --benchmark_repetitions=5 --benchmark_enable_random_interleaving=true
//
// After so many actions "in a row" the owner rests, and the files come to the disk. To reach: a new entry at the end of
// 10,000 rows within 2 times WriteAndSync of 8 KB; a back-dated one at half of SQLite's better time at 10,000 and
// 100,000 rows; the import at 0.3 of SQLite's.
#include "exchange/import.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/entries.h"
#include "platform/action.h"
#include "platform/disk.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "records/records.h"
#include "state/state.h"
#include "store/operations.h"
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>
#ifdef ZENTRIK_SQLITE
#include <sqlite3.h>
#endif

namespace {
int syncs; // so far
bool syncing = true;
} // namespace

// What the ledger asks of a host besides the disk and the clock.
void Beep(Sound) {}
void TellTerminal(const char *line) {
    fprintf(stderr, "%s\n", line);
}
void TellTrouble(int, const char *, const char *line) {
    TellTerminal(line);
}

// The linker leads the calls of the file layer here.
int RealSync(int handle) asm("__real__Z8DiskSynci");
int RealSyncDirectory(const char *path) asm("__real__Z17DiskSyncDirectoryPKc");
int CountedSync(int handle) asm("__wrap__Z8DiskSynci");
int CountedSyncDirectory(const char *path) asm("__wrap__Z17DiskSyncDirectoryPKc");
int CountedSync(int handle) {
    ++syncs;
    return !syncing || RealSync(handle);
}
int CountedSyncDirectory(const char *path) {
    ++syncs;
    return !syncing || RealSyncDirectory(path);
}

namespace {

namespace fs = std::filesystem;

constexpr uint32_t First = 1, Second = 2, FirstDay = 120000; // accounts; of their rows
constexpr int Imported = 5000;
constexpr FixedAmount EntryValue = 7777; // no other row's

void Must(bool done) {
    if (!done)
        abort();
}

std::string Directory() {
    const char *named = getenv("ZENTRIK_BENCH_DIRECTORY");
    return fs::absolute(named ? named : ".").string() + "/zentrik-bench-" + std::to_string(getpid());
}

void WriteFile(const std::string &path, const void *bytes, size_t count) {
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    Must(write(file, bytes, count) == static_cast<ssize_t>(count) && fsync(file) == 0);
    close(file);
}

// Two accounts of so many rows, a day for every third, with their balances.
class Device {
public:
    Device(int rows, bool synced) : path(Directory()) {
        const std::string data = path + "/Program Files/Zentrik/E1_Data";
        fs::remove_all(path);
        fs::create_directories(data);
        ResetState();
        SetDeviceRoot(path.c_str());
        std::vector<TRecFile> records(static_cast<size_t>(rows));
        for (int i = 0; i < rows; ++i) {
            TRec &row = records[static_cast<size_t>(i)].Rec;
            InitTRec(&row);
            row.Date = DateFromDayNumber(FirstDay + static_cast<uint32_t>(i) / 3);
            row.Value = i % 1000 - 500;
        }
        ARecFile accounts[2];
        for (uint32_t i = 0; i < 2; ++i) {
            accounts[i] = {};
            InitARec(&accounts[i].Rec);
            accounts[i].Rec.ID = First + i;
            WriteFile(data + "/E1_02A" + std::to_string(First + i), records.data(), records.size() * sizeof(TRecFile));
        }
        WriteFile(data + "/E1_01IND", accounts, sizeof accounts);
        Must(RecoverFiles());
        BeginAction();
        CalcTotals(LiveRows(First));
        CalcTotals(LiveRows(Second));
        Must(MakeDirectory("\\Program Files\\Zentrik\\Data") &&
             CommitAction()); // now there is a journal, as after years
        Must(SyncFiles());
        syncing = synced;
        syncs = 0;
    }
    ~Device() {
        syncing = true;
        static_cast<void>(SyncFiles());
        SetDeviceRoot("");
        fs::remove_all(path);
    }
    std::string path;
};

template <typename Turn> void AsAction(Turn turn) {
    BeginAction();
    turn();
    Must(CommitAction());
}

// Argument 0: rows, 1: whether it is synced, 2: actions in a row. Takes back by `restore` what a turn did, so that the
// account stays as long as it is; the counter tells the syncs of an action.
template <typename Turn, typename Restore> void Measure(benchmark::State &run, Turn turn, Restore restore) {
    const Device device(static_cast<int>(run.range(0)), run.range(1) != 0);
    const auto inRow = static_cast<int>(run.range(2));
    int64_t done = 0;
    int ofTurns = 0;
    for (auto _ : run) {
        const int before = syncs;
        AsAction(turn);
        ofTurns += syncs - before;
        run.PauseTiming();
        if (++done % inRow == 0) {
            for (int i = 0; i < inRow; ++i)
                AsAction(restore);
            Must(SyncFiles());
        }
        run.ResumeTiming();
    }
    run.counters["syncs"] = benchmark::Counter(ofTurns, benchmark::Counter::kAvgIterations);
}

void Enter(uint32_t day, uint32_t transferTo) {
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(day);
    row.Rank = EntryRank;
    row.Value = EntryValue;
    row.TransferID = transferTo;
    Must(EnterEntry(LiveRows(First), 0, &row) != 0);
}

void TakeBack(uint32_t account, uint32_t day) {
    const Place place = LiveRows(account);
    for (int32_t position = CountOf(place); position > 0; --position) {
        TRec row;
        Must(FetchRecord(place, position, &row));
        if (row.Date.DayNumber != day || std::abs(row.Value) != EntryValue)
            continue;
        Must(RemoveRecord(place, position));
        CalcTotals(place);
        return;
    }
}

uint32_t Middle(const benchmark::State &run) {
    return FirstDay + static_cast<uint32_t>(run.range(0)) / 6;
}

void EntryAtEnd(benchmark::State &run) {
    Measure(
        run, [] { Enter(LastDayNumber, 0); }, [] { TakeBack(First, LastDayNumber); });
}
void EntryInMiddle(benchmark::State &run) {
    const uint32_t day = Middle(run);
    Measure(
        run, [=] { Enter(day, 0); }, [=] { TakeBack(First, day); });
}
void Transfer(benchmark::State &run) {
    Measure(
        run, [] { Enter(LastDayNumber, Second); },
        [] {
            TakeBack(First, LastDayNumber);
            TakeBack(Second, LastDayNumber);
        });
}

void BinDrop(benchmark::State &run) {
    Measure(
        run,
        [] {
            const Place place = LiveRows(First);
            Must(DeleteToBin(place, CountOf(place)));
            CalcTotals(place);
        },
        [] {
            Place where;
            Must(MoveBin(1, &where));
        });
}

void ImportCsv(benchmark::State &run) {
    std::string text;
    for (uint32_t i = 0; i < Imported; ++i) {
        char line[200];
        const RecDate date = DateFromDayNumber(FirstDay + i / 3);
        text.append(
            line, static_cast<size_t>(snprintf(
                      line, sizeof line, "%d/%d/%d,Card payment %d,Shop in town,1,-%d.250,-%d.250,F,n,0.000\n",
                      static_cast<int>(date.Day), static_cast<int>(date.Month), static_cast<int>(date.Year), i, i, i)));
    }
    int ofTurns = 0;
    for (auto _ : run) {
        run.PauseTiming();
        {
            const Device device(static_cast<int>(run.range(0)), run.range(1) != 0);
            WriteFile(device.path + "/in", text.data(), text.size());
            run.ResumeTiming();
            AsAction([] { Must(ImportCSVFile(LiveRows(First), "\\in", 0, nullptr) == ImportDone); });
            run.PauseTiming();
            ofTurns += syncs;
            Must(state.ImportCount[0] == Imported);
        }
        run.ResumeTiming();
    }
    run.counters["syncs"] = benchmark::Counter(ofTurns, benchmark::Counter::kAvgIterations);
}

// The bytes that an action changes, in one write with a sync.
void WriteAndSync(benchmark::State &run) {
    const std::string path = Directory() + ".plain";
    const auto bytes = static_cast<size_t>(run.range(0));
    std::vector<char> data(bytes, 1);
    WriteFile(path, data.data(), bytes);
    const int file = open(path.c_str(), O_RDWR);
    for (auto _ : run) {
        ++data[0];
        Must(pwrite(file, data.data(), bytes, 0) == static_cast<ssize_t>(bytes) && fdatasync(file) == 0);
    }
    close(file);
    unlink(path.c_str());
}

#ifdef ZENTRIK_SQLITE
// Accounts 1 and 2 with so many rows each: a place that gives the order, an amount, the total so far, and as many
// further bytes as a row has; and a bin.
class Base {
public:
    Base(int rows, int64_t journal) : path(Directory() + ".sqlite") {
        Remove();
        Must(sqlite3_open(path.c_str(), &base) == SQLITE_OK);
        Run(std::string("pragma journal_mode=") + (journal ? "wal" : "delete") +
            "; pragma synchronous=full; pragma cache_size=-131072;"
            "create table account(id integer primary key, balance integer); insert into account values(1, 0), (2, 0);"
            "create table bin(id integer primary key, account integer, place integer, value integer, further blob);"
            "create table entry(account integer, place integer, value integer, total integer, further blob,"
            " primary key(account, place)) without rowid");
        for (const char *account : {"1", "2"})
            Run("with recursive n(i) as (select 1 union all select i + 1 from n where i < " + std::to_string(rows) +
                ") insert into entry select " + account + ", i * 1000, 5, i * 5, randomblob(580) from n where " +
                std::to_string(rows) + " > 0");
        Run("pragma wal_checkpoint(truncate)");
    }
    ~Base() {
        sqlite3_close(base);
        Remove();
    }
    void Run(const std::string &words) {
        if (sqlite3_exec(base, words.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK)
            return;
        fprintf(stderr, "%s: %s\n", words.c_str(), sqlite3_errmsg(base));
        abort();
    }
    sqlite3 *base;

private:
    void Remove() {
        for (const char *end : {"", "-wal", "-shm", "-journal"})
            unlink((path + end).c_str());
    }
    std::string path;
};

std::string EntryInto(const char *account, int64_t place, int value) {
    const std::string of = std::string("account = ") + account, at = std::to_string(place),
                      amount = std::to_string(value);
    return std::string("insert into entry values(") + account + ", " + at + ", " + amount +
           ", coalesce((select total from entry where " + of + " and place < " + at +
           " order by place desc limit 1), 0) + " + amount + ", randomblob(580)); update entry set total = total + " +
           amount + " where " + of + " and place > " + at + "; update account set balance = balance + " + amount +
           " where id = " + account + ";";
}

// Argument 0: rows, 1: 1 for the write-ahead log, 0 for the rollback journal. `words` says what is done in the n-th
// transaction.
template <typename Words> void Transact(benchmark::State &run, Words words) {
    Base base(static_cast<int>(run.range(0)), run.range(1));
    int64_t done = 0;
    for (auto _ : run)
        base.Run("begin immediate;" + words(++done) + "commit");
}
void SqliteAtEnd(benchmark::State &run) {
    const int64_t end = run.range(0) * 1000;
    Transact(run, [=](int64_t n) { return EntryInto("1", end + n, 7); });
}
void SqliteInMiddle(benchmark::State &run) {
    const int64_t middle = run.range(0) / 2 * 1000;
    Transact(run, [=](int64_t n) { return EntryInto("1", middle + n % 999 + 1, 7); });
}
void SqliteTransfer(benchmark::State &run) {
    const int64_t end = run.range(0) * 1000;
    Transact(run, [=](int64_t n) { return EntryInto("1", end + n, 7) + EntryInto("2", end + n, -7); });
}
void SqliteBinDrop(benchmark::State &run) {
    const int64_t rows = run.range(0);
    Transact(run, [=](int64_t n) {
        const std::string of = " from entry where account = 1 and place = " + std::to_string((rows - n % rows) * 1000);
        return "update account set balance = balance - coalesce((select value" + of +
               "), 0) where id = 1; insert into bin(account, place, value, further) select account, place, value, "
               "further" +
               of + "; delete" + of + ";";
    });
}

// As the statements of an entry, prepared once; what stands behind is moved by one statement in the end.
void SqliteImport(benchmark::State &run) {
    for (auto _ : run) {
        run.PauseTiming();
        {
            Base base(static_cast<int>(run.range(0)), run.range(1));
            run.ResumeTiming();
            base.Run("begin immediate");
            sqlite3_stmt *enter;
            Must(
                sqlite3_prepare_v2(base.base,
                                   "insert into entry values(1, ?1, ?2, coalesce((select total from entry where "
                                   "account = 1 and place < ?1 order by place desc limit 1), 0) + ?2, randomblob(580))",
                                   -1, &enter, nullptr) == SQLITE_OK);
            const int64_t end = run.range(0) * 1000;
            for (int i = 0; i < Imported; ++i) {
                sqlite3_bind_int64(enter, 1, end + i + 1);
                sqlite3_bind_int64(enter, 2, i);
                Must(sqlite3_step(enter) == SQLITE_DONE && sqlite3_reset(enter) == SQLITE_OK);
            }
            sqlite3_finalize(enter);
            base.Run(
                "update account set balance = (select total from entry where account = 1 order by place desc limit "
                "1) where id = 1; commit");
            run.PauseTiming();
        }
        run.ResumeTiming();
    }
}
#endif

using Bench = benchmark::internal::Benchmark;

void Timed(Bench *bench) {
    bench->Unit(benchmark::kMillisecond)->UseRealTime();
}
template <int Least, int Most> void Ours(Bench *bench) {
    bench->ArgNames({"rows", "synced", "inrow"});
    for (int rows = Least; rows <= Most; rows *= 10)
        bench->Args({rows, 1, 1})->Args({rows, 1, 16})->Args({rows, 0, 16});
    Timed(bench);
}
template <int Least, int Most> void Theirs(Bench *bench) {
    bench->ArgNames({"rows", "wal"});
    for (int rows = Least; rows <= Most; rows *= 10)
        bench->Args({rows, 1})->Args({rows, 0});
    Timed(bench);
}
void Empty(Bench *bench) {
    bench->Args({0, 1})->Args({0, 0});
    Timed(bench);
}

// 8 KB, the second halves of 1,000, 10,000 and 100,000 rows, an import.
BENCHMARK(WriteAndSync)->Arg(8192)->Arg(304000)->Arg(3040000)->Arg(30400000)->Apply(Timed);
BENCHMARK(EntryAtEnd)->Apply(Ours<1000, 100000>);
BENCHMARK(EntryInMiddle)->Apply(Ours<1000, 100000>);
BENCHMARK(Transfer)->Apply(Ours<10000, 10000>);
BENCHMARK(BinDrop)->Apply(Ours<10000, 10000>);
BENCHMARK(ImportCsv)->ArgNames({"rows", "synced"})->Apply(Empty);
#ifdef ZENTRIK_SQLITE
BENCHMARK(SqliteAtEnd)->Apply(Theirs<1000, 100000>);
BENCHMARK(SqliteInMiddle)->Apply(Theirs<1000, 100000>);
BENCHMARK(SqliteTransfer)->Apply(Theirs<10000, 10000>);
BENCHMARK(SqliteBinDrop)->Apply(Theirs<10000, 10000>);
BENCHMARK(SqliteImport)->ArgNames({"rows", "wal"})->Apply(Empty);
#endif

} // namespace
