// An account of many rows on a fresh device, and the references that the other figures are told as ratios of.
#pragma once

#include "host/test_host.h"
#include "platform/files.h"
#include "records/records.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/windows.h"
#include <benchmark/benchmark.h>
#include <vector>

inline constexpr uint32_t BenchAccount = 5;
inline constexpr int ReferenceRun = 256; // records of the one fixed buffer

// A root whose account holds `count` rows, a day for every third.
struct RowsOnDisk {
    testhost::TestRoot Root;
    explicit RowsOnDisk(int32_t count) {
        Root.MakeDataDirectory();
        std::vector<uint8_t> bytes(static_cast<size_t>(count) * sizeof(TRecFile));
        for (int32_t i = 0; i < count; ++i) {
            TRecFile record = {};
            InitTRec(&record.Rec);
            record.Rec.Date = DateFromDayNumber(120000 + static_cast<uint32_t>(i) / 3);
            record.Rec.Value = i % 1000 - 500;
            __builtin_memcpy(bytes.data() + static_cast<size_t>(i) * sizeof record, &record, sizeof record);
        }
        testhost::WriteBytes(Root.DataFile("E1_02A5"), bytes);
        state.CurrentScreen = TransactionList;
        state.CurAccount.ID = BenchAccount;
    }
};

// The reference: the account's file read, and written back, once through one fixed buffer.
inline void PassOver(int32_t count, bool writing) {
    alignas(8) static uint8_t buffer[ReferenceRun * sizeof(TRecFile)];
    const int file = OpenDataFile(FileKind::Transactions, OpenExisting, BenchAccount, nullptr);
    const int64_t length = int64_t{count} * static_cast<int64_t>(sizeof(TRecFile));
    for (int64_t at = 0; at < length;) {
        const int64_t bytes = ReadFileAt(file, at, buffer, sizeof buffer);
        if (writing && !WriteFileAt(file, at, buffer, bytes))
            return;
        benchmark::DoNotOptimize(buffer);
        at += bytes;
    }
    CloseFile(file);
}
