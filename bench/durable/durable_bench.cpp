// What durability costs: entries into an account of so many rows, beside one write and a sync of the changed bytes, and
// beside SQLite keeping a table with stored running totals. On a directory of the disk that is to be measured:
// ZENTRIK_BENCH_DIRECTORY, otherwise the one it is started in.
#include "platform/action.h"
#include "platform/disk.h"
#include "platform/files.h"
#include "store/catalogue.h"
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>
#ifdef ZENTRIK_SQLITE
#include <sqlite3.h>
#endif

namespace fs = std::filesystem;

namespace {

constexpr int RowBytes = 608, RunOfRows = 430;

std::string Directory() {
    const char *named = getenv("ZENTRIK_BENCH_DIRECTORY");
    return std::string(named ? named : ".") + "/zentrik-bench-" + std::to_string(getpid());
}

class Place {
public:
    explicit Place(int rows) : path(Directory()) {
        fs::remove_all(path);
        fs::create_directories(path + "/Program Files/Zentrik/E1_Data");
        SetDeviceRoot(path.c_str());
        std::vector<char> bytes(static_cast<size_t>(rows) * RowBytes);
        for (size_t at = 0; at < bytes.size(); ++at)
            bytes[at] = static_cast<char>(at * 31 >> 3);
        const int file = open((path + "/Program Files/Zentrik/E1_Data/E1_02A1").c_str(), O_RDWR | O_CREAT, 0600);
        if (write(file, bytes.data(), bytes.size()) < 0 || fsync(file) != 0)
            abort();
        close(file);
        if (!RecoverFiles())
            abort();
    }
    ~Place() {
        static_cast<void>(SyncFiles());
        SetDeviceRoot("");
        fs::remove_all(path);
    }
    std::string path;
};

// One row into position `at` of a file; the totals of all behind it change: what a back-dated entry does.
void InsertRow(int64_t at, int64_t changed) {
    static char run[RunOfRows * RowBytes], carried[RowBytes];
    const int file = OpenFile("\\Program Files\\Zentrik\\E1_Data\\E1_02A1", OpenExisting);
    const int64_t length = FileLength(file);
    std::memset(carried, static_cast<int>(changed), sizeof carried);
    int64_t from = at * RowBytes;
    int64_t rest = length - from;
    for (int64_t end = length; rest > 0;) { // from the tail on
        const int64_t bytes = rest < static_cast<int64_t>(sizeof run) ? rest : static_cast<int64_t>(sizeof run);
        if (ReadFileAt(file, end - bytes, run, bytes) != bytes)
            abort();
        for (int64_t row = 0; row < bytes; row += RowBytes)
            run[row + 232] = static_cast<char>(run[row + 232] + 1); // the running total
        if (!WriteFileAt(file, end - bytes + RowBytes, run, bytes))
            abort();
        end -= bytes;
        rest -= bytes;
    }
    if (!WriteFileAt(file, from, carried, RowBytes))
        abort();
    ReleaseFile(file);
    const int index = OpenFile("\\Program Files\\Zentrik\\E1_Data\\E1_01IND", OpenOrCreate);
    if (!WriteFileAt(index, 0, carried, RowBytes))
        abort();
    ReleaseFile(index);
}

void Entry(benchmark::State &run, bool inMiddle) {
    const int rows = static_cast<int>(run.range(0));
    Place place(rows);
    int64_t count = rows, done = 0;
    for (auto _ : run) {
        BeginAction();
        InsertRow(inMiddle ? count / 2 : count, ++done);
        if (!CommitAction())
            abort();
        ++count;
        run.PauseTiming(); // an owner's pause
        if (done % 16 == 0 && !SyncFiles())
            abort();
        run.ResumeTiming();
    }
}
void EntryAtEnd(benchmark::State &run) {
    Entry(run, false);
}
void EntryInMiddle(benchmark::State &run) {
    Entry(run, true);
}

// The bytes that an entry changes, in one write with a sync.
void WriteAndSync(benchmark::State &run) {
    const std::string path = Directory() + ".plain";
    const auto bytes = static_cast<size_t>(run.range(0));
    const int file = open(path.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
    std::vector<char> data(bytes, 1);
    if (pwrite(file, data.data(), bytes, 0) < 0 || fsync(file) != 0)
        abort();
    for (auto _ : run) {
        ++data[0];
        if (pwrite(file, data.data(), bytes, 0) < 0 || fdatasync(file) != 0)
            abort();
    }
    close(file);
    unlink(path.c_str());
}

#ifdef ZENTRIK_SQLITE
void Run(sqlite3 *base, const std::string &words) {
    if (sqlite3_exec(base, words.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        fprintf(stderr, "%s: %s\n", words.c_str(), sqlite3_errmsg(base));
        abort();
    }
}

// A row by its place, with its total and further fields of a row's size.
void SqliteEntry(benchmark::State &run, const char *journal, bool inMiddle) {
    const std::string path = Directory() + ".sqlite";
    const int rows = static_cast<int>(run.range(0));
    sqlite3 *base;
    if (sqlite3_open(path.c_str(), &base) != SQLITE_OK)
        abort();
    Run(base, std::string("pragma journal_mode=") + journal + "; pragma synchronous=full; pragma cache_size=-65536");
    Run(base, "create table entry(place integer primary key, value integer, total integer, further blob);"
              "create table account(id integer primary key, balance integer); insert into account values(1, 0)");
    Run(base, "with recursive n(i) as (select 1 union all select i + 1 from n where i < " + std::to_string(rows) +
                  ") insert into entry select i * 1000, 5, i * 5, randomblob(580) from n");
    int64_t done = 0;
    for (auto _ : run) {
        ++done;
        const int64_t place = inMiddle ? int64_t{rows} * 500 + done % 999 + 1 : int64_t{rows} * 1000 + done;
        const std::string at = std::to_string(place);
        Run(base,
            "begin immediate; insert or replace into entry values(" + at +
                ", 7, (select total from entry where place < " + at +
                " order by place desc limit 1), randomblob(580)); update entry set total = total + 7 where place >= " +
                at + "; update account set balance = balance + 7 where id = 1; commit");
    }
    sqlite3_close(base);
    for (const char *end : {"", "-wal", "-shm", "-journal"})
        unlink((path + end).c_str());
}
void SqliteWalAtEnd(benchmark::State &run) {
    SqliteEntry(run, "wal", false);
}
void SqliteRollbackAtEnd(benchmark::State &run) {
    SqliteEntry(run, "delete", false);
}
void SqliteWalInMiddle(benchmark::State &run) {
    SqliteEntry(run, "wal", true);
}
void SqliteRollbackInMiddle(benchmark::State &run) {
    SqliteEntry(run, "delete", true);
}
#endif

void Rows(benchmark::internal::Benchmark *bench) {
    bench->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(WriteAndSync)->Arg(8192)->Arg(3 << 20)->Arg(30 << 20)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(EntryAtEnd)->Apply(Rows);
BENCHMARK(EntryInMiddle)->Apply(Rows);
#ifdef ZENTRIK_SQLITE
BENCHMARK(SqliteWalAtEnd)->Apply(Rows);
BENCHMARK(SqliteRollbackAtEnd)->Apply(Rows);
BENCHMARK(SqliteWalInMiddle)->Apply(Rows);
BENCHMARK(SqliteRollbackInMiddle)->Apply(Rows);
#endif

} // namespace
