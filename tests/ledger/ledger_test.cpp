#include "ledger/ledger_test.h"
#include "resources/error_names.h"
#include "state/messages.h"
#include "store/configuration.h"

TRec RowOf(const Entry &entry) {
    TRec row;
    InitTRec(&row);
    row.Date = DateFromDayNumber(Today + static_cast<uint32_t>(entry.Day));
    row.RowKind = entry.RowKind;
    row.Rank = RankOf(entry.RowKind, In::WndProc);
    CopyText(row.Name, TextRoom, Utf16(entry.Name).c_str());
    row.Value = entry.Value;
    row.Units = entry.Units;
    row.Cleared = entry.Cleared;
    row.Cash = entry.Cash;
    row.NoCash = entry.NoCash;
    if (entry.Cash)
        row.CashAmount = entry.Value;
    return row;
}

DDRec ItemOf(const char *name, int day, uint32_t account, int64_t value, const char *unit, int32_t period,
             int32_t total) {
    DDRec item;
    InitDDRec(&item);
    item.ItemStatus = 0;
    item.NextDate = DateFromDayNumber(Today + static_cast<uint32_t>(day));
    item.DayWanted = static_cast<uint8_t>(item.NextDate.Day);
    item.Rank = EntryRank;
    CopyText(item.Name, TextRoom, Utf16(name).c_str());
    CopyText(item.PeriodUnit, 10, Utf16(unit).c_str());
    item.PeriodCount = period;
    item.TotalCount = item.Remaining = total;
    for (DDBlock &block : item.Block) {
        block.Units = 1;
        block.Value = value;
        block.Account = account;
    }
    return item;
}

static std::string FileName(uint32_t account, bool archive) {
    return (archive ? "E1_02R" : "E1_02A") + std::to_string(account);
}

Ledger::Ledger() {
    SetClock(2026, 3, 2);
    Root.MakeDataDirectory();
    LoadHelp();
    EXPECT_EQ(LoadConfFile(), 1);
    LoadTodaysDate(&state.SharedToday);
}

uint32_t Ledger::NewAccount(uint32_t type, const char *name) {
    ARec row;
    InitARec(&row);
    CopyText(row.Name, TextRoom, Utf16(name).c_str());
    row.ID = GetNextID();
    row.AccType = type;
    row.MinLimit = 50;
    row.MaxLimit = 50000;
    state.CurrentScreen = AccountList;
    AddRecFile(0, state.EntryCount[AccountList] + 1, &row, 0);
    LoadAccFile(1);
    GoTo(row.ID);
    return row.ID;
}

uint32_t Ledger::NewAccount(uint32_t type, const std::vector<Entry> &entries) {
    const uint32_t account = NewAccount(type);
    Fill(account, entries);
    return account;
}

void Ledger::GoTo(uint32_t account, bool archive) {
    state.ArchiveView = archive;
    LoadTranFile(IDtoRec(account), 0);
    state.CurrentScreen = TransactionList;
}

void Ledger::Put(uint32_t account, const Entry &entry) {
    const TRec row = RowOf(entry);
    state.CurrentScreen = TransactionList;
    MakeAccountCurrent(account);
    ASSERT_EQ(AddRecFile(account, CpDates(row.Date, row.Rank), &row, 0), 1);
    CalcBalance(account);
}

void Ledger::Fill(uint32_t account, const std::vector<Entry> &entries, bool archive) {
    std::vector<uint8_t> bytes(entries.size() * sizeof(TRecFile));
    for (size_t i = 0; i < entries.size(); ++i) {
        const TRecFile record = {RowOf(entries[i]), {}};
        std::memcpy(bytes.data() + i * sizeof record, &record, sizeof record);
    }
    WriteBytes(Root.DataFile(FileName(account, archive)), bytes);
    CalcOneView(RowsOf(account, archive ? View::Archive : View::Live));
    GoTo(account);
}

void Ledger::PutItem(const DDRec &item) {
    const int screen = state.CurrentScreen;
    state.CurrentScreen = RecurringList;
    ASSERT_EQ(AddRecFile(0, CpDates(item.NextDate, item.Rank), &item, 1), 1);
    state.CurrentScreen = screen;
}

std::vector<TRec> Ledger::Rows(uint32_t account, bool archive) const {
    return Read<TRec>(FileName(account, archive));
}

std::vector<uint8_t> Ledger::File(uint32_t account, bool archive) const {
    return ReadBytes(Root.DataFile(FileName(account, archive)));
}

ARec Ledger::Account(uint32_t account) const {
    for (const ARec &row : Read<ARec>("E1_01IND"))
        if (row.ID == account)
            return row;
    return {};
}

std::string Ledger::Names(uint32_t account, bool archive) const {
    std::string names;
    for (const TRec &row : Rows(account, archive))
        names += (names.empty() ? "" : ", ") + Utf8(row.Name) + " " + std::to_string(row.RunTotal / 1000);
    return names;
}

void Ledger::ExpectNoneLost(const std::string &entries, uint32_t account) const {
    std::string found;
    for (const bool archive : {false, true})
        for (const TRec &row : Rows(account, archive))
            found += row.RowKind == EntryRow ? Utf8(row.Name) : "";
    for (const BinRec &row : Bin())
        found += Utf8(row.Name);
    for (const char name : entries)
        EXPECT_NE(found.find(name), std::string::npos) << name << " is not in " << found;
}
