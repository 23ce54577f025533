#include "ledger/balance.h"
#include "cipher/hooks.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/jeopardy.h"
#include "ledger/markers.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/runs.h"
#include "store/windows.h"
#include <cstring>

namespace {

// One pass over a file: what all rows so far come to.
struct Pass : FileTotals {
    int32_t Multiplier; // applied last
    bool Changed;       // the present row's bytes
};

struct Today {
    FixedAmount Balance, Cleared;
};

struct JeopardyWatch { // of one of the two balances
    uint32_t Flag;
    uint32_t LastBreach; // day number
};

template <typename Field> void Store(Pass *pass, Field *field, Field value) {
    pass->Changed |= *field != value;
    *field = value;
}

void StoreTotals(Pass *pass, TRec *row) {
    Store(pass, &row->RunTotal, pass->Balance);
    Store(pass, &row->RunCleared, pass->Cleared);
}

void StoreShares(Pass *pass, TRec *row) {
    Store(pass, &row->RunUnits, pass->Shares);
    Store(pass, &row->RunClearedUnits, pass->ClearedShares);
}

void StorePrices(Pass *pass, TRec *row) {
    Store(pass, &row->Value, pass->Price);
    Store(pass, &row->ClearedValue, pass->ClearedPrice);
}

void StoreNoUnits(Pass *pass, TRec *row) {
    Store(pass, &row->Units, 0);
    Store(pass, &row->ClearedUnits, 0);
}

void ApplyMoneyRow(Pass *pass, TRec *row) {
    switch (row->RowKind) {
    case DayMarker:
    case ReconcileEntry:
        StoreNoUnits(pass, row);
        break;
    case ArchiveMarker:
        pass->Balance = AddAmounts(pass->Balance, row->Value);
        pass->Cleared = AddAmounts(pass->Cleared, row->ClearedValue);
        break;
    default: {
        const int32_t units = row->RowKind == DeletedMarker || row->Cash ? 1 : row->Units;
        const FixedAmount value = TimesUnits(units, row->Value);
        pass->Multiplier = units;
        pass->Balance = AddAmounts(pass->Balance, value);
        if (row->Cleared == 1)
            pass->Cleared = AddAmounts(pass->Cleared, value);
    }
    }
    StoreTotals(pass, row);
}

// A row that moves cash alone: a cash row, a Deleted marker.
void AddCash(Pass *pass, const TRec &row, FixedAmount cash) {
    pass->Balance = AddAmounts(pass->Balance, cash);
    if (row.Cleared == 1)
        pass->Cleared = AddAmounts(pass->Cleared, cash);
}

void ApplyShareRow(Pass *pass, TRec *row) {
    if (row->RowKind == DayMarker) {
        StorePrices(pass, row);
        StoreNoUnits(pass, row);
    } else if (row->RowKind == ArchiveMarker) {
        pass->Shares = AddUnits(pass->Shares, row->Units);
        pass->ClearedShares = AddUnits(pass->ClearedShares, row->ClearedUnits);
        pass->Balance = AddAmounts(pass->Balance, row->CashAmount);
        pass->Cleared = AddAmounts(pass->Cleared, row->ClearedCashAmount);
        pass->Price = row->Value;
        pass->ClearedPrice = row->ClearedValue;
    } else if (row->Cash) {
        AddCash(pass, *row, row->CashAmount);
        StorePrices(pass, row); // the price carries through
    } else {
        pass->Price = row->Value;
        pass->Shares = AddUnits(pass->Shares, row->Units);
        if (row->Cleared == 1) {
            pass->ClearedPrice = pass->Price;
            pass->ClearedShares = AddUnits(pass->ClearedShares, row->Units);
        }
        StorePrices(pass, row);
        if (row->RowKind == DeletedMarker)
            AddCash(pass, *row, row->CashAmount);
        else if (!row->NoCash)
            AddCash(pass, *row, NegateAmount(TimesUnits(row->Units, row->Value)));
    }
    StoreShares(pass, row);
    StoreTotals(pass, row);
}

FixedAmount ShareBalance(int32_t shares, FixedAmount price, FixedAmount cash) {
    return AddAmounts(TimesUnits(shares, price), cash);
}

Today SnapShot(const Pass &pass, bool share) {
    if (!share)
        return {pass.Balance, pass.Cleared};
    return {ShareBalance(pass.Shares, pass.Price, pass.Balance),
            ShareBalance(pass.ClearedShares, pass.ClearedPrice, pass.Cleared)};
}

// Shares and cash are each cut to whole units before they are added.
int64_t WholeBalance(bool share, int32_t shares, FixedAmount price, FixedAmount cash) {
    return (share ? WholePart(TimesUnits(shares, price)) : 0) + WholePart(cash);
}

// A breach to come stays flagged; one in the past is forgiven by any later row within the limits up to today.
void Watch(JeopardyWatch *watch, const ARec &account, int64_t whole, uint32_t day) {
    if (BreaksWholeLimit(account, whole)) {
        watch->LastBreach = day;
        watch->Flag = 1;
    } else if (watch->Flag && day > watch->LastBreach && day <= state.SharedToday.DayNumber) {
        watch->Flag = 0;
    }
}

// Writes the changed rows `from` to `to` - 1 of the run in the buffer, which begins at position `first`.
void WriteBack(int handle, int32_t first, int32_t from, int32_t to) {
    if (!WriteRun(handle, FileKind::Transactions, from, to - from, first + from))
        ReportError(In::CalcBalance, Trouble::TwriteFail);
}

struct Watches {
    JeopardyWatch Balance, Cleared;
};

// Runs over the whole file and writes back the rows that changed. Rows are watched when `watches` is not null. Returns
// how many there are. What is the same for all rows is decided outside: the kind of account, and whether there is a
// key.
template <bool Share>
int32_t CalcRows(int handle, const ARec &account, Watches *watches, Pass *total, Today *asOfToday) {
    constexpr FileKind Kind = FileKind::Transactions;
    constexpr int32_t Run = 256; // rows that stay in the cache between reading and writing
    const bool enciphered = state.CurrentKey != NoKey;
    RecDate today;
    LoadTodaysDate(&today);
    bool beforeToday = true;
    Pass pass = *total;
    int32_t first = 1, read = Run;
    for (; read == Run; first += read) {
        read = ReadRun(handle, Kind, first, Run);
        int32_t changedFrom = read; // the start of the changed rows that end here, `read` for none
        for (int32_t index = 0; index < read; ++index) {
            auto *record = static_cast<TRecFile *>(RunRecord(Kind, index));
            if (enciphered)
                DecipherRecord(Kind, record);
            const uint32_t day = record->Rec.Date.DayNumber;
            if (beforeToday && day > today.DayNumber) {
                beforeToday = false;
                *asOfToday = SnapShot(pass, Share);
            }
            pass.Changed = false;
            if constexpr (Share)
                ApplyShareRow(&pass, &record->Rec);
            else
                ApplyMoneyRow(&pass, &record->Rec);
            if (watches) {
                Watch(&watches->Cleared, account,
                      WholeBalance(Share, pass.ClearedShares, pass.ClearedPrice, pass.Cleared), day);
                Watch(&watches->Balance, account, WholeBalance(Share, pass.Shares, pass.Price, pass.Balance), day);
            }
            if (pass.Changed) {
                changedFrom = changedFrom < index ? changedFrom : index;
                if (enciphered) {
                    std::memset(record->Tail, 0, sizeof record->Tail);
                    EncipherRecord(Kind, record);
                }
            } else if (changedFrom < index) {
                WriteBack(handle, first, changedFrom, index);
                changedFrom = read;
            }
        }
        if (changedFrom < read)
            WriteBack(handle, first, changedFrom, read);
    }
    if (beforeToday)
        *asOfToday = SnapShot(pass, Share);
    *total = pass;
    state.LastMultiplier = pass.Multiplier;
    return first - 1;
}

// The live file's Archive marker carries the archive's totals. 1 when there is one. It stands at the head; one that
// was moved further down than a list shows rows is not found.
int RefreshArchiveMarker(const ARec &account, const Pass &pass) {
    const int handle = OpenView(0, account.ID, OpenOrCreate);
    if (handle < 0)
        ReportError(In::CalcBalance, Trouble::TcreateFail);
    TRecFile record;
    TRec *row = &record.Rec;
    int found = 0;
    for (int32_t position = 1; position <= state.RowCount && !found; ++position) {
        if (!ReadRecord(handle, FileKind::Transactions, position, &record))
            break;
        if (row->RowKind != ArchiveMarker)
            continue;
        found = 1;
        row->Cash = 0;
        SetArchiveTotals(row, account.AccType, pass);
        std::memset(record.Tail, 0, sizeof record.Tail);
        if (!WriteRecord(handle, FileKind::Transactions, position, &record))
            ReportError(In::CalcBalance, Trouble::TwriteFail);
    }
    CloseFile(handle);
    return found;
}

// The totals as of today, by the view.
void TakeTotals(ARec *account, const Today &today) {
    (state.ArchiveView ? account->ArcBalance : account->Balance) = today.Balance;
    (state.ArchiveView ? account->ArcClearedBalance : account->ClearedBalance) = today.Cleared;
}

// Writes an account and has the list of accounts follow.
void StoreAccount(int32_t position, const ARec &account, In function) {
    WriteAccount(position, account, function);
    const int32_t screen = state.CurrentScreen;
    LoadAccFile(state.TopPos[AccountList]);
    state.CurrentScreen = screen;
}

FixedAmount CalcView(uint32_t accountID, uint32_t archive, int withMarker) {
    ARec account;
    int32_t position;
    if (!FindAccount(accountID, &account, &position))
        return 0;
    state.ExtrapReload = 1; // what the graph foretold came from the entries as they were
    const uint32_t view = state.ArchiveView;
    state.ArchiveView = archive;
    Pass pass = {};
    Today today = {};
    Watches watches = {};
    int32_t count = 0;
    const int handle = OpenView(archive, accountID, OpenOrCreate);
    if (handle < 0)
        ReportError(In::CalcBalance, Trouble::TcreateFail);
    else if (static_cast<int32_t>(account.AccType) < 0) {
        ReportError(In::CalcBalance, Trouble::CaseError); // the rows keep their totals
        count = CountRecords(handle, FileKind::Transactions);
    } else
        count = (IsShare(account.AccType)
                     ? CalcRows<true>
                     : CalcRows<false>)(handle, account,
                                        archive || !(account.LowWatch || account.HighWatch) ? nullptr : &watches, &pass,
                                        &today);
    CloseFile(handle);
    if (handle >= 0) {
        const ARec before = account;
        if (!archive) {
            account.BalanceInJeopardy = watches.Balance.Flag;
            account.ClearedInJeopardy = watches.Cleared.Flag;
        }
        TakeTotals(&account, today);
        if (std::memcmp(&before, &account, sizeof account) != 0)
            StoreAccount(position, account, In::CalcBalance);
        if (archive && withMarker && RefreshArchiveMarker(account, pass))
            CalcView(accountID, 0, 0);
    }
    state.ArchiveView = view;
    if (accountID == state.CurAccount.ID && archive == view)
        state.EntryCount[TransactionList] = count;
    else
        CountTransactions();
    return today.Balance;
}

// Walks a file back from its end to the row whose totals are those as of today; 0 rows leave `row` alone. In the live
// file every row dated today or later is watched on the way, and raises the account's flags.
int TotalsAsOfToday(int handle, uint32_t today, int live, ARec *account, TRec *row) {
    TRecFile record;
    int found = 0;
    for (int32_t position = CountRecords(handle, FileKind::Transactions); position > 0; --position) {
        if (!ReadRecord(handle, FileKind::Transactions, position, &record))
            break;
        const uint32_t day = record.Rec.Date.DayNumber;
        if (live || day <= today) {
            *row = record.Rec;
            found = 1;
        }
        if (live && day >= today) {
            if (BreaksLimit(*account, RowBalance(*row, account->AccType, 0)))
                account->BalanceInJeopardy = 1;
            if (BreaksLimit(*account, RowBalance(*row, account->AccType, 1)))
                account->ClearedInJeopardy = 1;
        }
        if (day <= today)
            break;
    }
    return found;
}

} // namespace

FixedAmount RowBalance(const TRec &row, int64_t accountType, int cleared) {
    const FixedAmount cash = cleared ? row.RunCleared : row.RunTotal;
    if (!IsShare(accountType))
        return cash;
    return cleared ? ShareBalance(row.RunClearedUnits, row.ClearedValue, cash)
                   : ShareBalance(row.RunUnits, row.Value, cash);
}

FixedAmount CalcBalance(uint32_t accountID) {
    return CalcView(accountID, state.ArchiveView, 1);
}

FixedAmount CalcOneView(uint32_t accountID, uint32_t archive) {
    return CalcView(accountID, archive, 0);
}

void UpdateT2FILtot(int32_t position, FixedAmount todayBalance, FixedAmount todayCleared) {
    ARec account;
    if (!ReadAccount(position, &account))
        return;
    TakeTotals(&account, {todayBalance, todayCleared});
    StoreAccount(position, account, In::UpdateT2FILtot);
}

void CheckT1totals(int) {
    if (!state.DataUsable)
        return;
    StampLastChecked();
    RecDate today;
    LoadTodaysDate(&today);
    ARec account;
    for (int32_t position = 1; ReadAccount(position, &account); ++position) {
        if (account.RowKind == HeadingRow || account.ID == 0)
            continue;
        const ARec before = account;
        account.Balance = account.ClearedBalance = account.ArcBalance = account.ArcClearedBalance = 0;
        int known = 1; // of a future version no total can be told: the stored ones stay
        for (uint32_t archive = 0; archive < 2; ++archive) {
            const int handle = OpenView(archive, account.ID, OpenOrCreate);
            if (handle < 0)
                ReportError(In::CheckT1totals, archive ? Trouble::RcreateFail : Trouble::TcreateFail);
            TRecFile first;
            if (ReadRecord(handle, FileKind::Transactions, 1, &first) && first.Rec.Version != RecordVersion)
                known = 0;
            TRec row;
            if (TotalsAsOfToday(handle, today.DayNumber, !archive, &account, &row)) {
                (archive ? account.ArcBalance : account.Balance) = RowBalance(row, account.AccType, 0);
                (archive ? account.ArcClearedBalance : account.ClearedBalance) = RowBalance(row, account.AccType, 1);
            }
            CloseFile(handle);
        }
        if (known && std::memcmp(&before, &account, sizeof account) != 0)
            WriteAccount(position, account, In::CheckT1totals);
    }
}

int32_t ReGraphFILsiz(int32_t position) {
    const uint32_t accountID = RectoID(position);
    if (accountID == 0)
        return 0;
    const int live = OpenTransactions(TransactionFile::Live, accountID, OpenOrCreate);
    if (live < 0)
        ReportError(In::ReGraphFILsiz, Trouble::AcreateFail);
    const int archive = OpenTransactions(TransactionFile::Archive, accountID, OpenOrCreate);
    if (archive < 0)
        ReportError(In::ReGraphFILsiz, Trouble::RcreateFail);
    const int64_t bytes = FileLength(live) + FileLength(archive);
    CloseFile(live);
    CloseFile(archive);
    return static_cast<int32_t>(bytes / RecordSize(FileKind::Transactions));
}
