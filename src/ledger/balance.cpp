#include "ledger/balance.h"
#include "cipher/hooks.h"
#include "ledger/jeopardy.h"
#include "ledger/markers.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <cstring>
#include <initializer_list>

namespace {

// One pass over a file: what all rows so far come to.
struct Pass : FileTotals {
    bool Changed; // the present row's bytes
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
        pass->Balance = AddAmounts(pass->Balance, value);
        if (KeepsCleared(*row))
            pass->Cleared = AddAmounts(pass->Cleared, row->ClearedValue);
        else if (row->Cleared == 1)
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
        if (KeepsCleared(*row)) {
            pass->ClearedPrice = row->ClearedValue;
            pass->ClearedShares = AddUnits(pass->ClearedShares, row->ClearedUnits);
        } else if (row->Cleared == 1) {
            pass->ClearedPrice = pass->Price;
            pass->ClearedShares = AddUnits(pass->ClearedShares, row->Units);
        }
        StorePrices(pass, row);
        if (KeepsCleared(*row)) {
            pass->Balance = AddAmounts(pass->Balance, row->CashAmount);
            pass->Cleared = AddAmounts(pass->Cleared, row->ClearedCashAmount);
        } else if (row->RowKind == DeletedMarker)
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

// Runs over the whole file and writes back the rows that changed. Rows are watched when `watches` is not null. What is
// the same for all rows is decided outside: the kind of account, and whether there is a key.
template <bool Share> void CalcRows(int handle, const ARec &account, Watches *watches, Pass *total, Today *asOfToday) {
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
            TRecFile *record = RunRecord<TRec>(index);
            if (enciphered && !DecipherRecord(Kind, record))
                return;
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
                    if (!EncipherRecord(Kind, record))
                        return;
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
}

// The live file's Archive marker carries the archive's totals. 1 when there is one, wherever it stands.
int RefreshArchiveMarker(const Place &live, const ARec &account, const Pass &pass) {
    constexpr FileKind Kind = FileKind::Transactions;
    const int handle = OpenPlace(live, OpenExisting);
    int32_t found = 0;
    for (int32_t first = 1, read; !found && (read = ReadRun(handle, Kind, first, RunLength(Kind))) > 0; first += read) {
        for (int32_t index = 0; index < read && !found; ++index) {
            TRecFile record = *RunRecord<TRec>(index);
            if (!DecipherRecord(Kind, &record) || record.Rec.RowKind != ArchiveMarker)
                continue;
            found = first + index;
            record.Rec.Cash = 0;
            SetArchiveTotals(&record.Rec, account.AccType, pass);
            std::memset(record.Tail, 0, sizeof record.Tail);
            if (!WriteRecord(handle, Kind, found, &record))
                ReportError(In::CalcBalance, Trouble::TwriteFail);
        }
    }
    CloseFile(handle);
    return found != 0;
}

// The totals as of today, by the view.
void TakeTotals(ARec *account, View view, const Today &today) {
    const bool archive = view == View::Archive;
    (archive ? account->ArcBalance : account->Balance) = today.Balance;
    (archive ? account->ArcClearedBalance : account->ClearedBalance) = today.Cleared;
}

FixedAmount CalcFile(const Place &place, int withMarker) {
    ARec account;
    int32_t position;
    if (!FindAccount(place.Account, &account, &position))
        return 0;
    state.ExtrapReload = 1; // what the graph foretold came from the entries as they were
    const bool archive = place.Of == View::Archive;
    uint32_t filtered;
    const int handle = OpenPlace(place, OpenOrCreate, &filtered);
    if (handle < 0) {
        ReportError(In::CalcBalance, Trouble::TcreateFail);
        return 0;
    }
    Pass pass = {};
    Today today = {};
    Watches watches = {};
    const bool watched = !archive && (account.LowWatch || account.HighWatch);
    if (static_cast<int32_t>(account.AccType) < 0)
        ReportError(In::CalcBalance, Trouble::CaseError); // the rows keep their totals
    else
        (IsShare(account.AccType) ? CalcRows<true> : CalcRows<false>)(handle, account, watched ? &watches : nullptr,
                                                                      &pass, &today);
    CloseFile(handle);
    if (!filtered) { // what a filter leaves is not what the account holds
        const ARec before = account;
        if (!archive) {
            account.BalanceInJeopardy = watches.Balance.Flag;
            account.ClearedInJeopardy = watches.Cleared.Flag;
        }
        TakeTotals(&account, place.Of, today);
        if (std::memcmp(&before, &account, sizeof account) != 0)
            static_cast<void>(WriteAccount(position, account, In::CalcBalance)); // reported, and refuses the action
    }
    const Place live = LiveRows(place.Account, place.Through);
    if (archive && withMarker && RefreshArchiveMarker(live, account, pass))
        CalcFile(live, 0);
    return today.Balance;
}

// Walks a file back from its end to the row whose totals are those as of today; 0 rows leave `row` alone. -1 when one
// can't be read on the way. In the live
// file every row dated today or later is watched on the way, and raises the account's flags.
int TotalsAsOfToday(int handle, uint32_t today, int live, ARec *account, TRec *row) {
    TRecFile record;
    int found = 0;
    for (int32_t position = CountRecords(handle, FileKind::Transactions); position > 0; --position) {
        if (!ReadRecord(handle, FileKind::Transactions, position, &record, Broken::Shows))
            break;
        if (IsBroken(&record))
            return -1;
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

FixedAmount CalcTotals(const Place &place) {
    return CalcFile(place, 1);
}

FixedAmount CalcOneView(const Place &place) {
    return CalcFile(place, 0);
}

void CheckT1totals() {
    if (!state.DataUsable || !StampLastChecked())
        return;
    RecDate today;
    LoadTodaysDate(&today);
    ForEachAccount(In::CheckT1totals, [&](int32_t position, ARec &account) {
        if (account.RowKind == HeadingRow || account.ID == 0)
            return true;
        const ARec before = account;
        account.Balance = account.ClearedBalance = account.ArcBalance = account.ArcClearedBalance = 0;
        int known = 1; // of a future version, or past a row that can't be read, no total can be told: the stored stay
        for (const View view : {View::Live, View::Archive}) {
            const bool archive = view == View::Archive;
            const int handle = OpenPlace(RowsOf(account.ID, view, Rows::All), OpenExisting);
            if (handle == FailedOpen) {
                ReportError(In::CheckT1totals, archive ? Trouble::RcreateFail : Trouble::TcreateFail);
                known = 0;
            }
            if (handle < 0)
                continue; // no rows
            TRecFile first;
            if (ReadRecord(handle, FileKind::Transactions, 1, &first, Broken::Shows) && !IsBroken(&first) &&
                first.Rec.Version != RecordVersion)
                known = 0;
            TRec row;
            const int found = TotalsAsOfToday(handle, today.DayNumber, !archive, &account, &row);
            if (found < 0)
                known = 0;
            if (found > 0)
                TakeTotals(&account, view, {RowBalance(row, account.AccType, 0), RowBalance(row, account.AccType, 1)});
            CloseFile(handle);
        }
        return !known || std::memcmp(&before, &account, sizeof account) == 0 ||
               WriteAccount(position, account, In::CheckT1totals);
    });
}
