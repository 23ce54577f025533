// An account of many rows on a fresh device, and the references that the other figures are told as ratios of.
#pragma once

#include "core/state.h"
#include "host/test_host.h"
#include "store/records/records.h"
#include "store/windows.h"
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
