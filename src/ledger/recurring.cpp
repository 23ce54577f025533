#include "ledger/recurring.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/filter.h"
#include "ledger/moves.h"
#include "ledger/order.h"
#include "ledger/shares.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/operations.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Recurring;

int OpenItems(In function) {
    const int handle = OpenDataFile(Kind, OpenOrCreate, 0, nullptr);
    if (handle < 0)
        ReportError(function, Trouble::DcreateFail);
    return handle;
}

void WriteItem(int handle, int32_t position, const DDRec &item, In function) {
    DDRecFile record = {item, {}};
    if (!WriteRecord(handle, Kind, position, &record))
        ReportError(function, Trouble::DwriteFail);
}

// The entry as it stands in an account of that type, before any transfer.
void BuildEntry(const DDRec &item, int64_t accountType, TRec *row) {
    const DDBlock &block = item.Block[BlockInForce(item)];
    InitTRec(row);
    row->Date = item.NextDate;
    row->Rank = item.Rank;
    CopyText(row->Name, TextRoom, item.Name);
    CopyText(row->Memo, TextRoom, block.Memo);
    row->Cleared = block.Cleared;
    row->Cash = block.Cash;
    row->NoCash = block.NoCash;
    row->Flag = block.Flag;
    row->Units = block.Units;
    row->CatID = block.CatID;
    row->Value = block.Value;
    row->CashAmount = block.Cash ? block.Value : 0;
    if (row->Cash && !IsShare(accountType)) {
        row->Cash = 0;
        row->Units = 1;
    }
}

// Into its date order in an account, which becomes the current one. The position, or 0 when the disk could not take it.
int32_t PostEntry(uint32_t accountID, const TRec &row) {
    state.CurrentScreen = TransactionList;
    MakeAccountCurrent(accountID);
    const int32_t position = CpDates(row.Date, row.Rank);
    return AddRecFile(accountID, position, &row, 1) ? position : 0;
}

// A month as long as it is in a year divisible by 4, without the rule for centuries. This is deliberate: an item of
// the 29th also falls on 29 February 2100, in the entry's date as it is shown.
void SetWantedDay(RecDate *date, uint8_t dayWanted) {
    const int length = date->Month == 2 && date->Year % 4 == 0 ? 29 : DaysInMonth(date->Year, date->Month);
    const int day = std::clamp<int>(dayWanted, 1, length);
    const int real = std::min(day, DaysInMonth(date->Year, date->Month));
    date->Day = static_cast<int8_t>(real);
    InsertAbs(date);
    date->Day = static_cast<int8_t>(day);
    date->DayNumber += static_cast<uint32_t>(day - real);
}

void AddDays(RecDate *date, int64_t days) {
    const int64_t day = std::min<int64_t>(date->DayNumber + days, LastDayNumber);
    *date = DateFromDayNumber(static_cast<uint32_t>(day));
}

void AddMonths(RecDate *date, int64_t months, uint8_t dayWanted) {
    int64_t month = date->Month + months;
    int64_t year = date->Year;
    if (month > 12) {
        const int64_t years = (month - 1) / 12;
        year += years;
        month -= 12 * years;
    }
    if (year > 9999) {
        *date = DateFromDayNumber(LastDayNumber);
        return;
    }
    date->Year = static_cast<uint32_t>(year);
    date->Month = static_cast<int8_t>(month);
    SetWantedDay(date, dayWanted);
}

void AdvanceDate(DDRec *item) {
    RecDate date = item->NextDate;
    switch (item->PeriodUnit[0]) {
    case u'D':
        AddDays(&date, item->PeriodCount);
        break;
    case u'W':
        AddDays(&date, int64_t{7} * item->PeriodCount);
        break;
    case u'M':
        AddMonths(&date, item->PeriodCount, item->DayWanted);
        break;
    case u'Y':
        AddMonths(&date, int64_t{12} * item->PeriodCount, item->DayWanted);
        break;
    }
    item->NextDate = date;
}

int IsDue(const DDRec &item, uint32_t horizon) {
    const uint32_t day = item.NextDate.DayNumber;
    return day >= FirstDayNumber && day <= LastDayNumber && day <= horizon && item.Remaining >= 1 &&
           item.PeriodCount >= 1 && AccountThere(item.Block[BlockInForce(item)].Account);
}

// Writes what is due of one item. Returns how many entries.
int PostItem(DDRec *item, uint32_t horizon) {
    int fired = 0;
    while (fired < EntriesAPass && IsDue(*item, horizon) && AddDDEntry(item)) {
        ++fired;
        if (item->TotalCount != ForEver)
            --item->Remaining;
        item->FirstDone = 1;
        if (item->Remaining > 0)
            AdvanceDate(item);
    }
    item->ItemStatus &= ~GeneratesMany;
    if (fired == EntriesAPass && IsDue(*item, horizon))
        item->ItemStatus |= GeneratesMany;
    return fired;
}

// Where an item belongs among the records behind it, which are in date order: before the first of its day or later.
int32_t PlaceAmong(int handle, int32_t first, int32_t last, uint32_t day) {
    while (first <= last) {
        const int32_t middle = first + (last - first) / 2;
        DDRecFile record;
        if (!ReadRecord(handle, Kind, middle, &record))
            break;
        if (record.Rec.NextDate.DayNumber < day)
            first = middle + 1;
        else
            last = middle - 1;
    }
    return first;
}

// Dates have moved on: items that now stand before an earlier one are carried behind it, from the end of the file on.
// Items of one day keep their order.
void RestoreDateOrder(int32_t count) {
    state.CurrentScreen = RecurringList;
    for (int32_t position = count - 1; position > 0; --position) {
        const int handle = OpenItems(In::CheckDDs);
        DDRecFile item;
        const int read = ReadRecord(handle, Kind, position, &item);
        const int32_t to = read ? PlaceAmong(handle, position + 1, count, item.Rec.NextDate.DayNumber) : 0;
        CloseFile(handle);
        if (!read || (to > position + 1 && !ShiftRecord(0, position, to, &item.Rec)))
            return;
    }
}

} // namespace

int AddDDEntry(const DDRec *item) {
    const DDBlock &block = item->Block[BlockInForce(*item)];
    ARec account, partner;
    if (!FindAccount(block.Account, &account, nullptr))
        return 0;
    TRec row;
    int32_t counterPosition = 0;
    const int transfer = block.Transfer != 0 && FindAccount(block.Transfer, &partner, nullptr);
    if (transfer) {
        BuildEntry(*item, account.AccType, &row);
        MakeCounterEntry(&row, account.AccType, partner.AccType);
        counterPosition = PostEntry(block.Transfer, row);
        if (counterPosition == 0)
            return 0;
        CalcBalance(block.Transfer);
    }
    BuildEntry(*item, account.AccType, &row);
    row.TransferID = transfer ? block.Transfer : 0;
    if (PostEntry(block.Account, row) == 0) {
        if (counterPosition > 0) {
            DeleteRecFile(block.Transfer, counterPosition);
            CalcBalance(block.Transfer);
        }
        return 0;
    }
    CalcBalance(block.Account);
    return 1;
}

void CheckDDs() {
    LoadTodaysDate(&state.SharedToday);
    if (!state.DataUsable)
        return;
    const int64_t last = int64_t{state.SharedToday.DayNumber} + state.CheckAheadDays;
    const auto horizon = static_cast<uint32_t>(std::clamp<int64_t>(last, 0, LastDayNumber));
    const int32_t screen = state.CurrentScreen;
    const uint32_t view = state.ArchiveView;
    int fired = 0;
    const int32_t accountPosition = state.SelectedPos[AccountList];
    const uint32_t accountID = state.CurAccount.ID;
    int32_t selection = state.SelectedPos[TransactionList];
    const int handle = OpenItems(In::CheckDDs);
    const int32_t count = CountRecords(handle, Kind);
    DDRecFile record;
    for (int32_t position = 1; position <= count && ReadRecord(handle, Kind, position, &record); ++position) {
        const DDRec before = record.Rec;
        if (!fired && IsDue(record.Rec, horizon)) {
            // The entries must reach the real files; the row one was on is another one without a filter.
            ClearFilters();
            selection = state.SelectedPos[TransactionList];
        }
        state.ArchiveView = 0;
        fired += PostItem(&record.Rec, horizon);
        state.ArchiveView = view;
        state.CurrentScreen = screen;
        if (std::memcmp(&before, &record.Rec, sizeof before) != 0)
            WriteItem(handle, position, record.Rec, In::CheckDDs);
    }
    CloseFile(handle);
    if (fired)
        RestoreDateOrder(count);
    state.SelectedPos[AccountList] = accountPosition;
    if (fired || state.CurAccount.ID != accountID) { // an entry that failed has left its account the current one
        LoadCurrentAccount();
        CountTransactions();
    }
    if (fired) {
        CheckT1totals(0);
        state.CurrentScreen = screen;
        ReloadList(screen, state.TopPos[screen]);
        CountTransactions();
        Beep(Sound::Exclamation);
    }
    state.SelectedPos[TransactionList] = selection;
    state.CurrentScreen = screen;
    if (fired)
        RepaintScreen();
}

int DDFileCheck() {
    if (!state.DataUsable)
        return state.RecurringInOrder != 0;
    const int handle = OpenItems(In::DDFileCheck);
    int clean = 1;
    DDRecFile record;
    for (int32_t position = 1; ReadRecord(handle, Kind, position, &record); ++position) {
        DDRec item = record.Rec;
        const DDBlock &block = item.Block[BlockInForce(item)];
        const int missing = !AccountThere(block.Account) || (block.Transfer != 0 && !AccountThere(block.Transfer));
        item.ItemStatus = missing ? MissingAccount : 0U;
        if (missing || WholeMagnitude(TimesUnits(block.Units, block.Value)) > uint64_t{LargestShown})
            clean = 0;
        if (item.ItemStatus != record.Rec.ItemStatus)
            WriteItem(handle, position, item, In::DDFileCheck);
    }
    CloseFile(handle);
    state.RecurringInOrder = static_cast<uint32_t>(clean);
    return clean;
}
