#include "store/index.h"
#include "platform/action.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/operations.h"
#include <algorithm>

namespace {

// The position of the first account that matches, with its row; 0 for none.
template <typename Matches> int32_t FindRow(In function, ARec *row, Matches matches) {
    int32_t found = 0;
    bool broken = false;
    ForEachAccount(function, [&](int32_t position, const ARec &account) {
        broken = broken || IsBroken(&account);
        if (!IsBroken(&account) && matches(account)) {
            found = position;
            if (row)
                *row = account;
        }
        return found == 0;
    });
    if (found == 0 && broken)
        DoubtAction(); // it may be the one that can't be read
    return found;
}

// The names of up to MostRows accounts, by one walk over the index. Without an ID there is no name to show.
void NameAccounts(const uint32_t *ids, char16_t (*names)[TextRoom]) {
    for (int i = 1; i <= MostRows; ++i)
        CopyText(names[i], TextRoom, OverflowText);
    ForEachAccount(In::AccountIdToName, [&](int32_t, const ARec &account) {
        for (int i = 1; i <= MostRows; ++i)
            if (ids[i] == account.ID && ids[i] != 0)
                CopyText(names[i], TextRoom, account.Name);
        return true;
    });
}

bool LiveFileThere(uint32_t accountID) {
    char path[PathRoom];
    TransactionPath(path, TransactionFile::Live, accountID);
    return FileThere(path) != 0; // one that can't be looked at counts as there
}

} // namespace

int OpenIndex(In function) {
    if (!state.DataUsable)
        return -1;
    const int file = OpenDataFile(FileKind::Accounts, OpenOrCreate);
    if (file < 0)
        ReportError(function, Trouble::AcreateFail);
    return file;
}

int32_t ReadIndex(int handle, int32_t first, ARec *rows) {
    ARecFile records[IndexBlock];
    const int32_t read = ReadRecords(handle, FileKind::Accounts, first, IndexBlock, records, Broken::Shows);
    for (int32_t index = 0; index < read; ++index) {
        rows[index] = {};
        CopyFields(FieldsOfList(AccountList), &records[index], &rows[index]); // a damaged name ends within its field
    }
    return read;
}

void CloseIndex(int handle) {
    CloseFile(handle);
}

uint32_t AccountNameToId(const char16_t *name) {
    ARec row = {};
    // A heading may bear any name, but has no entries.
    const auto isIt = [=](const ARec &r) { return r.RowKind != HeadingRow && SameText(r.Name, name, TextRoom - 1); };
    return FindRow(In::AccountNameToId, &row, isIt) ? row.ID : 0;
}

const char16_t *AccountIdToName(uint32_t accountID) {
    static char16_t name[TextRoom];
    ARec row = {};
    if (!state.DataUsable)
        CopyText(name, TextRoom, u"");
    else if (accountID && FindRow(In::AccountIdToName, &row, [=](const ARec &r) { return r.ID == accountID; }))
        CopyText(name, TextRoom, row.Name);
    else
        CopyText(name, TextRoom, OverflowText);
    return name;
}

uint32_t RectoID(int32_t position) {
    ARec row = {};
    return FetchRecord(Place{AccountList}, position, &row) ? row.ID : 0;
}

int32_t IDtoRec(uint32_t accountID) {
    return accountID ? FindRow(In::IDtoRec, nullptr, [=](const ARec &r) { return r.ID == accountID; }) : 0;
}

int FindAccount(uint32_t accountID, ARec *row, int32_t *position) {
    const auto isIt = [=](const ARec &r) { return r.ID == accountID && r.RowKind != HeadingRow; };
    const int32_t found = accountID ? FindRow(In::IDtoRec, row, isIt) : 0;
    if (found && position)
        *position = found;
    return found != 0;
}

void KnowAccounts() {
    state.KnownAccountCount = 0;
    ForEachAccount(In::IDtoRec, [](int32_t position, const ARec &row) {
        if (IsBroken(&row))
            DoubtAction(); // whoever asks for that account is told that there is none
        if (row.RowKind != HeadingRow && row.ID != 0)
            state.KnownAccounts[state.KnownAccountCount++] = {row.ID, row.AccType, position};
        return state.KnownAccountCount < MostKnownAccounts;
    });
    std::sort(state.KnownAccounts, state.KnownAccounts + state.KnownAccountCount,
              [](const KnownAccount &a, const KnownAccount &b) {
                  return a.ID < b.ID || (a.ID == b.ID && a.Position < b.Position);
              });
}

const KnownAccount *KnownAccountOf(uint32_t accountID) {
    KnownAccount *end = state.KnownAccounts + state.KnownAccountCount;
    const KnownAccount *found = std::lower_bound(state.KnownAccounts, end, accountID,
                                                 [](const KnownAccount &a, uint32_t id) { return a.ID < id; });
    return found != end && found->ID == accountID && accountID != 0 ? found : nullptr;
}

int WriteAccount(int32_t position, const ARec &row, In function) {
    const int file = OpenIndex(function);
    RecordBuffer record = PackRow(row);
    const int written = file >= 0 && WriteRecord(file, FileKind::Accounts, position, record.Bytes);
    if (file >= 0 && !written)
        ReportError(function, Trouble::AwriteFail);
    CloseFile(file);
    return written;
}

void NameBinOwners() {
    uint32_t ids[MostRows + 1] = {};
    for (int i = 1; i <= MostRows; ++i)
        ids[i] = state.BinRows[i].OwnerID;
    NameAccounts(ids, state.BinOwnerNames);
}

void NameItemAccounts() {
    uint32_t ids[MostRows + 1] = {};
    for (int i = 1; i <= MostRows; ++i)
        ids[i] = state.DDRows[i].Block[state.DDRows[i].FirstDone != 0].Account;
    NameAccounts(ids, state.DDAccountNames);
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
    while (LiveFileThere(record.NextID - 1));
    return WriteConfiguration(&record, In::GetNextID) ? record.NextID - 1 : 0;
}

void SumHeadings() {
    FixedAmount ARec::*const totals[] = {&ARec::Balance, &ARec::ClearedBalance, &ARec::ArcBalance,
                                         &ARec::ArcClearedBalance};
    ARec sums = {};
    bool known = true; // what stands between two headings
    ForEachAccount(In::AccountNameToId, [&](int32_t position, ARec &row) {
        if (position == 1 && row.Version != RecordVersion && !IsBroken(&row))
            return false; // the loader is about to refuse this file
        known = known && !IsBroken(&row);
        const bool heading = row.RowKind == HeadingRow && !IsBroken(&row), keeps = heading && !known;
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
        known = known || heading;
        return !changed || keeps || WriteAccount(position, row, In::AccountNameToId);
    });
}
