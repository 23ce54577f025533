#include "ledger/recurring.h"
#include "ledger/entries.h"
#include "ledger/shares.h"
#include "platform/action.h"
#include "platform/text.h"
#include "records/entry_values.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Recurring;

int OpenItems(In function) {
    const int handle = OpenDataFile(Kind, OpenOrCreate);
    if (handle < 0)
        ReportError(function, Trouble::DcreateFail);
    return handle;
}

int WriteItem(int handle, int32_t position, const DDRec &item, In function) {
    DDRecFile record = {item, {}};
    if (WriteRecord(handle, Kind, position, &record))
        return 1;
    ReportError(function, Trouble::DwriteFail);
    return 0;
}

const DDBlock &BlockOf(const DDRec &item) {
    return item.Block[BlockInForce(item)];
}

// The entry as it stands in an account of that type, before any transfer.
void BuildEntry(const DDRec &item, int64_t accountType, TRec *row) {
    InitTRec(row);
    row->Date = item.NextDate;
    row->Rank = item.Rank;
    CopyText(row->Name, TextRoom, item.Name);
    CopyEntryValues(BlockOf(item), row);
    row->TransferID = 0;
    if (row->Cash && !IsShare(accountType)) {
        row->Cash = 0;
        row->Units = 1;
    }
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

// Both give 0 for a date past the last valid day.
int AddDays(RecDate *date, int64_t days) {
    const int64_t day = date->DayNumber + days;
    if (day > LastDayNumber)
        return 0;
    *date = DateFromDayNumber(static_cast<uint32_t>(day));
    return 1;
}

int AddMonths(RecDate *date, int64_t months, uint8_t dayWanted) {
    const int64_t month = date->Month - 1 + months;
    const int64_t year = date->Year + month / 12;
    if (year > LastYear)
        return 0;
    date->Year = static_cast<uint32_t>(year);
    date->Month = static_cast<int8_t>(month % 12 + 1);
    SetWantedDay(date, dayWanted);
    return 1;
}

// To the next occurrence. 0 when there is none: past the last valid day, or by a unit that is not known.
int AdvanceDate(DDRec *item) {
    switch (item->PeriodUnit[0]) {
    case u'D':
        return AddDays(&item->NextDate, item->PeriodCount);
    case u'W':
        return AddDays(&item->NextDate, int64_t{7} * item->PeriodCount);
    case u'M':
        return AddMonths(&item->NextDate, item->PeriodCount, item->DayWanted);
    case u'Y':
        return AddMonths(&item->NextDate, int64_t{12} * item->PeriodCount, item->DayWanted);
    default:
        return 0;
    }
}

uint32_t Horizon() {
    const int64_t last = int64_t{state.SharedToday.DayNumber} + state.CheckAheadDays;
    return static_cast<uint32_t>(std::clamp<int64_t>(last, 0, LastDayNumber));
}

bool IsDue(const DDRec &item, uint32_t horizon) {
    const uint32_t day = item.NextDate.DayNumber;
    return day >= FirstDayNumber && day <= LastDayNumber && day <= horizon && item.Remaining >= 1 &&
           item.PeriodCount >= 1 && KnownAccountOf(BlockOf(item).Account);
}

// One occurrence is over.
void Advance(DDRec *item) {
    if (item->TotalCount != ForEver)
        --item->Remaining;
    item->FirstDone = 1;
    if (item->Remaining > 0 && !AdvanceDate(item))
        item->Remaining = 0;
}

// Queues what is due of one item, and advances it. Returns how many entries, -1 when one was refused.
int PostItem(DDRec *item, uint32_t horizon) {
    int fired = 0;
    for (; fired < EntriesAPass && IsDue(*item, horizon); ++fired) {
        if (!AddDDEntry(*item))
            return -1;
        Advance(item);
    }
    item->ItemStatus &= ~GeneratesMany;
    if (fired == EntriesAPass && IsDue(*item, horizon))
        item->ItemStatus |= GeneratesMany;
    return fired;
}

// Shows `visit` every item with its position and the open file; it answers false to end. Reads in runs of its own.
template <typename Visit> void ForEachItem(In function, Visit visit) {
    constexpr int32_t AtOnce = 32;
    DDRecFile records[AtOnce];
    const int handle = OpenItems(function);
    bool more = handle >= 0;
    int32_t read = AtOnce;
    for (int32_t first = 1; more && read == AtOnce; first += read) {
        read = ReadRecords(handle, Kind, first, AtOnce, records, Broken::Shows);
        for (int32_t index = 0; more && index < read; ++index)
            more = visit(handle, first + index, records[index].Rec);
    }
    CloseFile(handle);
}

// Dates have moved on: the items are put into the order of their days; those of one day keep theirs. Into a file
// beside, which takes the place of the items' file. More than MostKeys are left as they stand.
struct ItemKey {
    uint32_t Day;
    int32_t Position;
};
constexpr int32_t MostKeys = RunBytes / 2 / static_cast<int32_t>(sizeof(ItemKey));

int RestoreDateOrder() {
    auto *keys = reinterpret_cast<ItemKey *>(state.RunBuffer + RunBytes / 2);
    int32_t count = 0;
    bool inOrder = true;
    ForEachItem(In::CheckDDs, [&](int, int32_t position, const DDRec &item) {
        inOrder = inOrder && (count == 0 || keys[count - 1].Day <= item.NextDate.DayNumber);
        keys[count++] = {item.NextDate.DayNumber, position};
        return count < MostKeys;
    });
    if (inOrder || count == MostKeys)
        return 1;
    std::sort(keys, keys + count, [](const ItemKey &a, const ItemKey &b) {
        return a.Day < b.Day || (a.Day == b.Day && a.Position < b.Position);
    });
    char items[PathRoom], sorted[PathRoom];
    DataPath(items, Kind);
    std::snprintf(sorted, sizeof sorted, "%s\\DD~", DataDirectory);
    const int source = OpenItems(In::CheckDDs), target = OpenFile(sorted, OpenOrCreate);
    constexpr int32_t AtOnce = RunBytes / 2 / static_cast<int32_t>(sizeof(DDRecFile));
    int done = source >= 0 && target >= 0 && CutFile(target, 0);
    for (int32_t from = 0; done && from < count; from += AtOnce) {
        const int32_t run = std::min(AtOnce, count - from);
        for (int32_t index = 0; done && index < run; ++index)
            done = ReadRun(source, Kind, keys[from + index].Position, 1, index) == 1;
        done = done && WriteRun(target, Kind, 0, run, from + 1);
    }
    CloseFile(source);
    CloseFile(target);
    return done && MoveFileTo(sorted, items);
}

} // namespace

int AddDDEntry(const DDRec &item) {
    const DDBlock &block = BlockOf(item);
    const KnownAccount *account = KnownAccountOf(block.Account), *partner = KnownAccountOf(block.Transfer);
    if (!account)
        return 0;
    TRec row;
    if (partner) {
        BuildEntry(item, account->AccType, &row);
        MakeCounterEntry(&row, account->AccType, partner->AccType);
        if (!QueueEntry(LiveRows(partner->ID), row))
            return 0;
    }
    BuildEntry(item, account->AccType, &row);
    row.TransferID = partner ? partner->ID : 0;
    return QueueEntry(LiveRows(account->ID), row);
}

int32_t EntriesDue() {
    LoadTodaysDate(&state.SharedToday);
    int32_t due = 0;
    if (!state.DataUsable)
        return 0;
    KnowAccounts();
    ForEachItem(In::CheckDDs, [&](int, int32_t, DDRec &item) {
        for (int fired = 0; fired < EntriesAPass && IsDue(item, Horizon()); ++fired, ++due)
            Advance(&item);
        return true;
    });
    return due;
}

int PostDueItems(ProgressTeller tell) {
    LoadTodaysDate(&state.SharedToday);
    if (!state.DataUsable)
        return 0;
    KnowAccounts();
    int fired = 0, refused = 0;
    ForEachItem(In::CheckDDs, [&](int handle, int32_t position, DDRec &item) {
        const DDRec before = item;
        const int posted = PostItem(&item, Horizon());
        fired += posted;
        refused = posted < 0 ||
                  (std::memcmp(&before, &item, sizeof before) != 0 && !WriteItem(handle, position, item, In::CheckDDs));
        return !refused;
    });
    if (!refused && fired > 0)
        refused = !PlaceQueuedEntries(tell) || !RestoreDateOrder();
    if (!refused)
        return fired;
    state.WaitingCount = 0;
    RefuseAction(); // no entry without its item, no item without its entry
    return 0;
}

int DDFileCheck() {
    if (!state.DataUsable)
        return state.RecurringInOrder != 0;
    KnowAccounts();
    int clean = 1;
    ForEachItem(In::DDFileCheck, [&](int handle, int32_t position, DDRec &item) {
        if (IsBroken(&item))
            return true; // it stays as it is
        const uint32_t before = item.ItemStatus;
        const DDBlock &block = BlockOf(item);
        const bool missing = !KnownAccountOf(block.Account) || (block.Transfer != 0 && !KnownAccountOf(block.Transfer));
        // What a pass found of an item that makes many entries holds until the next pass.
        item.ItemStatus = (before & GeneratesMany) | (missing ? +MissingAccount : 0U);
        if (item.ItemStatus != 0 || WholeMagnitude(TimesUnits(block.Units, block.Value)) > uint64_t{LargestShown})
            clean = 0;
        return item.ItemStatus == before || WriteItem(handle, position, item, In::DDFileCheck);
    });
    state.RecurringInOrder = static_cast<uint32_t>(clean);
    return clean;
}
