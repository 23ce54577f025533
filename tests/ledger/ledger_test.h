// What all tests of the ledger start from: a fresh device with a data directory, accounts made by hand, and the files
// read back as their bytes lie, not through the program.
#pragma once

#include "forms/due_items.h"
#include "frame/changes.h"
#include "host/rows.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/order.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "records/records.h"
#include "state/state.h"
#include "store/index.h"
#include "store/windows.h"
#include <cstring>
#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace testhost;

constexpr uint32_t Today = 155289; // 2 March 2026 as a day number

struct Entry { // a row as a test writes it down
    int Day;   // from today
    const char *Name;
    int64_t Value;
    int32_t Units = 1;
    uint32_t Cleared = 0;
    uint8_t RowKind = 0;
    uint32_t Cash = 0, NoCash = 0;
};

inline int Archived(uint32_t account, int32_t position, ProgressTeller tell = nullptr) {
    return Archive(account, position, tell) == ArchiveResult::Done;
}
inline int Unarchived(uint32_t account, int32_t position, ProgressTeller tell = nullptr) {
    return Unarchive(account, position, tell) == ArchiveResult::Done;
}
inline int Restored(int32_t binPosition) {
    Place where;
    return MoveBin(binPosition, &where) > 0;
}

class Ledger : public testing::Test {
protected:
    TestRoot Root;

    Ledger();
    ~Ledger() override { EXPECT_EQ(disk.OpenHandles, 0); }
    // Appends an account of a type with its own ID; it is the current one.
    uint32_t NewAccount(uint32_t type, const char *name = "Account");
    uint32_t NewAccount(uint32_t type, const std::vector<Entry> &entries);
    // By the program: date order, record operation, balances.
    void Put(uint32_t account, const Entry &entry);
    // Straight into the file, as they come; then CalcBalance.
    void Fill(uint32_t account, const std::vector<Entry> &entries, bool archive = false);
    // The screen shown stays.
    void PutItem(const DDRec &item);
    void GoTo(uint32_t account, bool archive = false);

    std::vector<TRec> Rows(uint32_t account, bool archive = false) const;
    template <typename Record> std::vector<Record> Read(const std::string &file) const {
        return RecordsIn<Record>(Root.DataFile(file));
    }
    ARec Account(uint32_t account) const;
    // "Balance, ClearedBalance" of the account list.
    std::string Balances(uint32_t account) const { return Fields(Account(account), "Balance ClearedBalance"); }
    std::vector<BinRec> Bin() const { return Read<BinRec>("E1_06BIN"); }
    std::vector<DDRec> Items() const { return Read<DDRec>("E1_04DD"); }
    // The file as it lies on the disk.
    std::vector<uint8_t> File(uint32_t account, bool archive = false) const;
    // "Name total" of each row, in whole units, with ", " between them.
    std::string Names(uint32_t account, bool archive = false) const;
    // Every entry, named by a letter, stands in the account, in its archive or in the bin.
    void ExpectNoneLost(const std::string &entries, uint32_t account) const;
};

TRec RowOf(const Entry &entry);
DDRec ItemOf(const char *name, int day, uint32_t account, int64_t value, const char *unit, int32_t period,
             int32_t total);
