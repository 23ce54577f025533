#include "store/index.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/operations.h"

namespace {

int OpenIndex(In function) {
    if (!state.DataUsable)
        return -1;
    const int file = OpenDataFile(FileKind::Accounts, OpenOrCreate, 0, nullptr);
    if (file < 0)
        ReportError(function, Trouble::AcreateFail);
    return file;
}

// Shows `visit` every row with its position, until it answers 0.
template <typename Visit> void WalkIndex(int file, Visit visit) {
    constexpr int32_t AtOnce = 16; // most owners' whole list
    ARecFile records[AtOnce];
    int32_t read = AtOnce;
    for (int32_t first = 1; read == AtOnce; first += read) {
        read = ReadRecords(file, FileKind::Accounts, first, AtOnce, records);
        for (int32_t index = 0; index < read; ++index) {
            ARec row = {};
            CopyRecFile(AccountList, &records[index], &row);
            if (!visit(first + index, row))
                return;
        }
    }
}

// The position of the first account that matches, with its row; 0 for none.
template <typename Matches> int32_t FindAccount(In function, ARec *row, Matches matches) {
    const int file = OpenIndex(function);
    if (file < 0)
        return 0;
    int32_t found = 0;
    WalkIndex(file, [&](int32_t position, const ARec &account) {
        if (matches(account)) {
            found = position;
            *row = account;
        }
        return !found;
    });
    CloseFile(file);
    return found;
}

int LiveFileExists(uint32_t accountID) {
    char path[PathRoom];
    TransactionPath(path, TransactionFile::Live, accountID);
    return FileExists(path);
}

} // namespace

uint32_t AccountNameToId(const char16_t *name) {
    ARec row = {};
    // A heading may bear any name, but has no entries.
    const auto isIt = [=](const ARec &r) { return r.RowKind != HeadingRow && SameText(r.Name, name, TextRoom - 1); };
    return FindAccount(In::AccountNameToId, &row, isIt) ? row.ID : 0;
}

const char16_t *AccountIdToName(uint32_t accountID) {
    static char16_t name[TextRoom];
    ARec row = {};
    if (!state.DataUsable)
        CopyText(name, TextRoom, u"");
    else if (accountID && FindAccount(In::AccountIdToName, &row, [=](const ARec &r) { return r.ID == accountID; }))
        CopyText(name, TextRoom, row.Name);
    else
        CopyText(name, TextRoom, OverflowText);
    return name;
}

uint32_t RectoID(int32_t position) {
    const int file = OpenIndex(In::RectoID);
    if (file < 0)
        return 0;
    ARec row = {};
    const int there = ReadRow(file, AccountList, position, &row);
    CloseFile(file);
    return there ? row.ID : 0;
}

int32_t IDtoRec(uint32_t accountID) {
    ARec row = {};
    return accountID ? FindAccount(In::IDtoRec, &row, [=](const ARec &r) { return r.ID == accountID; }) : 0;
}

int32_t IDtoAccount(uint32_t accountID, ARec *row) {
    const auto isIt = [=](const ARec &r) { return r.ID == accountID && r.RowKind != HeadingRow; };
    return accountID ? FindAccount(In::IDtoRec, row, isIt) : 0;
}

uint32_t GetNextID() {
    if (!state.DataUsable)
        return 0;
    constexpr uint32_t LowestNext = 2, WhenUnread = 2;
    ConfRec record;
    if (!ReadConfiguration(&record, In::GetNextID))
        record.NextID = WhenUnread;
    do
        record.NextID = static_cast<int32_t>(record.NextID) < 1 ? LowestNext : record.NextID + 1;
    while (LiveFileExists(record.NextID - 1));
    WriteConfiguration(&record, In::GetNextID);
    return record.NextID - 1;
}

void SumHeadings() {
    const int file = OpenIndex(In::AccountNameToId);
    if (file < 0)
        return;
    FixedAmount ARec::*const totals[] = {&ARec::Balance, &ARec::ClearedBalance, &ARec::ArcBalance,
                                         &ARec::ArcClearedBalance};
    ARec sums = {};
    WalkIndex(file, [&](int32_t position, ARec &row) {
        if (position == 1 && row.Version != RecordVersion)
            return false; // the loader is about to refuse this file
        int changed = 0;
        for (const auto total : totals) {
            if (row.RowKind != HeadingRow) {
                sums.*total = AddAmounts(sums.*total, row.*total);
                continue;
            }
            changed |= row.*total != sums.*total;
            row.*total = sums.*total;
            sums.*total = 0;
        }
        if (changed && !WriteRow(file, AccountList, position, &row))
            ReportError(In::AccountNameToId, Trouble::AwriteFail);
        return true;
    });
    CloseFile(file);
}
