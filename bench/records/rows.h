// An account of many rows on a fresh device, and the references that the other figures are told as ratios of.
#pragma once

#include "frame/changes.h"
#include "host/test_host.h"
#include "ledger/balance.h"
#include "platform/disk.h"
#include "platform/files.h"
#include "records/records.h"
#include "state/state.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/windows.h"
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

inline constexpr uint32_t BenchAccount = 5;
inline constexpr int ReferenceRun = 256; // records of the one fixed buffer
inline constexpr uint32_t FirstBenchDay = 120000;

// Of the process alone, in the program and in the system: what else the machine does is not counted.
inline double Now() {
    timespec time;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// A bench that measures something else than it says is worse than none.
inline void Must(bool done) {
    if (!done)
        std::abort();
}

inline int32_t CountIn(const benchmark::State &run) {
    return static_cast<int32_t>(run.range(0));
}

template <typename Record> std::vector<uint8_t> BytesOf(const std::vector<Record> &records) {
    const auto *bytes = reinterpret_cast<const uint8_t *>(records.data());
    return {bytes, bytes + records.size() * sizeof(Record)};
}

// Rows with a day for every third, `step` days apart.
inline std::vector<TRecFile> MakeRows(int32_t count, uint32_t firstDay = FirstBenchDay, uint32_t step = 1) {
    std::vector<TRecFile> rows(static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i) {
        TRec &row = rows[static_cast<size_t>(i)].Rec;
        InitTRec(&row);
        row.Date = DateFromDayNumber(firstDay + static_cast<uint32_t>(i) / 3 * step);
        row.Value = i % 1000 - 500;
    }
    return rows;
}

// A root whose account holds `count` rows.
struct RowsOnDisk {
    testhost::TestRoot Root;
    explicit RowsOnDisk(int32_t count) {
        Root.MakeDataDirectory();
        testhost::WriteBytes(Root.DataFile("E1_02A5"), BytesOf(MakeRows(count)));
        state.CurrentScreen = TransactionList;
        state.CurAccount.ID = BenchAccount;
    }
};

inline std::vector<ARecFile> MakeAccounts(int32_t count, uint32_t firstID) {
    std::vector<ARecFile> accounts(static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i) {
        InitARec(&accounts[static_cast<size_t>(i)].Rec);
        accounts[static_cast<size_t>(i)].Rec.ID = firstID + static_cast<uint32_t>(i);
    }
    return accounts;
}

// An account that the index knows, with rows as above; balances right.
struct AccountOnDisk : RowsOnDisk {
    explicit AccountOnDisk(int32_t count) : RowsOnDisk(count) {
        Must(LoadConfFile());
        testhost::WriteBytes(Root.DataFile("E1_01IND"), BytesOf(MakeAccounts(1, BenchAccount)));
        LoadAccFile(1);
        Must(testhost::AsAction([] { CalcBalance(BenchAccount); }));
        LoadTranFile(1, 0);
        state.CurrentScreen = TransactionList;
        Must(SyncFiles());
    }
};

// The reference: the first `count` rows of the account's file read once through one fixed buffer, and written back to
// where they stood, or into a new file.
enum class Against { Reading, ReadingAndWriting, Copying };

inline void PassOver(const testhost::TestRoot &root, int32_t count, Against against) {
    alignas(8) static uint8_t buffer[ReferenceRun * sizeof(TRecFile)];
    const int file = DiskOpen(root.DataFile("E1_02A5").c_str(), 0);
    const int to = against == Against::Copying ? DiskOpen(root.DataFile("copy").c_str(), 1) : file;
    const int64_t length = int64_t{count} * static_cast<int64_t>(sizeof(TRecFile));
    for (int64_t at = 0; at < length;) {
        const int64_t bytes = DiskRead(file, at, buffer, std::min<int64_t>(length - at, sizeof buffer));
        Must(bytes > 0 && (against == Against::Reading || DiskWrite(to, at, buffer, bytes)));
        benchmark::DoNotOptimize(buffer);
        at += bytes;
    }
    Must(DiskClose(file) && (to == file || DiskClose(to)));
}

inline double SecondsOfPass(const testhost::TestRoot &root, int32_t count, Against against) {
    double best = 1e9;
    for (int pass = 0; pass < 5; ++pass) {
        const double start = Now();
        PassOver(root, count, against);
        best = std::min(best, Now() - start);
        if (against == Against::Copying)
            Must(DiskDelete(root.DataFile("copy").c_str()));
    }
    return best;
}

// Times `turn` alone, as the one action that an event of the owner is; `restore` puts things back, and what the two
// wrote comes to the disk, as it does when the owner rests. The counter "ratio" is the best time in times of the best
// pass over as many rows, taken in the same run just before and after; "copies" is the same against copying them.
template <typename Turn, typename Restore> void Measure(benchmark::State &run, const testhost::TestRoot &root,
                                                        int32_t rows, Against against, Turn turn, Restore restore) {
    double once = SecondsOfPass(root, rows, against), best = 1e9;
    const double copy = SecondsOfPass(root, rows, Against::Copying);
    for (auto _ : run) {
        const double start = Now();
        Must(testhost::AsAction(turn));
        const double seconds = Now() - start;
        run.SetIterationTime(seconds);
        best = std::min(best, seconds);
        Must(testhost::AsAction(restore) && SyncFiles());
    }
    once = std::min(once, SecondsOfPass(root, rows, against));
    run.counters["best ms"] = best * 1e3;
    run.counters["ratio"] = best / once;
    run.counters["copies"] = best / copy;
}
inline void Nothing() {}
