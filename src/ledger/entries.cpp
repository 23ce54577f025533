#include "ledger/entries.h"
#include "cipher/hooks.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "ledger/order.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <algorithm>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

int64_t TypeOfAccount(uint32_t accountID) {
    ARec account = {};
    FindAccount(accountID, &account, nullptr);
    return account.AccType;
}

bool Follows(const TRec &row, const TRec &other) { // or stands level with it
    return row.Date.DayNumber > other.Date.DayNumber ||
           (row.Date.DayNumber == other.Date.DayNumber && row.Rank >= other.Rank);
}

bool SameFile(const WaitingEntry &a, const WaitingEntry &b) {
    return a.Account == b.Account && a.Of == b.Of;
}

bool ComesFirst(const WaitingEntry &a, const WaitingEntry &b) {
    if (!SameFile(a, b))
        return a.Account != b.Account ? a.Account < b.Account : a.Of < b.Of;
    if (a.Row.Date.DayNumber != b.Row.Date.DayNumber)
        return a.Row.Date.DayNumber < b.Row.Date.DayNumber;
    return a.Row.Rank != b.Row.Rank ? a.Row.Rank < b.Row.Rank : a.Order < b.Order;
}

// Rows on their way up, in two halves of the buffer: those read, and behind them those to be written.
constexpr int32_t Half = RunBytes / 2 / static_cast<int32_t>(sizeof(TRecFile));

struct Upward {
    int Handle;
    int32_t Begin; // position that the first row waiting is for
    int32_t Waiting;
};

int WriteWaiting(Upward *up) {
    const int written = up->Waiting == 0 || WriteRun(up->Handle, Kind, 2 * Half - up->Waiting, up->Waiting, up->Begin);
    up->Waiting = 0;
    return written;
}

// The room for the row before those that wait.
TRecFile *RoomBefore(Upward *up) {
    if (up->Waiting == Half && !WriteWaiting(up))
        return nullptr;
    ++up->Waiting;
    --up->Begin;
    return RunRecord<TRec>(2 * Half - up->Waiting);
}

// Moves the rows behind each new one up by as many as come before them. `entries` in date order.
int MergeEntries(int handle, const WaitingEntry *entries, int32_t count) {
    int32_t position = CountRecords(handle, Kind);
    Upward up = {handle, position + count + 1, 0};
    while (count > 0) {
        const int32_t read =
            position > 0 ? ReadRun(handle, Kind, std::max(1, position - Half + 1), std::min(position, Half)) : 0;
        if (position > 0 && read == 0)
            return 0;
        int32_t index = read;
        while (count > 0) {
            TRecFile row;
            if (index > 0) {
                row = *RunRecord<TRec>(index - 1);
                if (!DecipherRecord(Kind, &row))
                    return 0;
            } else if (position > 0) {
                break; // more rows stand before this run
            }
            const bool lands = position == 0 || Follows(entries[count - 1].Row, row.Rec);
            TRecFile *room = RoomBefore(&up);
            if (!room)
                return 0;
            if (lands) {
                *room = {entries[--count].Row, {}};
                if (!EncipherRecord(Kind, room))
                    return 0;
                continue;
            }
            *room = *RunRecord<TRec>(index - 1);
            --index;
            --position;
        }
    }
    return WriteWaiting(&up);
}

} // namespace

int32_t EnterEntry(const Place &place, int32_t position, TRec *row) {
    const int64_t type = TypeOfAccount(place.Account);
    ARec partner = {};
    const bool transfer = row->TransferID != 0 && FindAccount(row->TransferID, &partner, nullptr);
    if (!transfer)
        row->TransferID = 0;
    const bool opensArchive =
        place.Of == View::Archive && CountOf(RowsOf(place.Account, View::Archive, Rows::All)) == 0;
    position = AddRecord(place, position > 0 ? position : PositionByDate(place, row->Date, row->Rank), *row);
    if (position == 0)
        return 0;
    // What stands in an archive counts through the marker.
    if (opensArchive && !ArchiveMarked(place.Account) && !MarkArchive(place.Account, *row))
        return 0;
    if (transfer) {
        TRec counter = *row;
        CopyText(counter.FITID, TextRoom, u""); // the bank's identity is the row's own
        MakeCounterEntry(&counter, type, partner.AccType);
        const Place other = LiveRows(partner.ID, Rows::All);
        if (!AddRecord(other, PositionByDate(other, counter.Date, counter.Rank), counter))
            return 0;
        CalcTotals(other);
    }
    CalcTotals(place);
    return position;
}

int32_t ChangeEntry(const Place &place, int32_t position, TRec row) {
    TRec kept;
    if (!FetchRecord(place, position, &kept))
        return 0;
    row.TransferID = kept.TransferID;
    const bool keepsPlace = TypeOfAccount(place.Account) == ListAccount;
    const int32_t to = keepsPlace ? position : PositionByDate(place, row.Date, row.Rank);
    if (!ChangeRecord(place, position, row))
        return 0;
    if (to != position && to != position + 1)
        position = MoveRecord(place, position, to);
    if (position > 0)
        CalcTotals(place);
    return position;
}

int AddFirstRows(uint32_t accountID, uint32_t accountType) {
    const Place place = LiveRows(accountID, Rows::All);
    RecDate today;
    LoadTodaysDate(&today);
    TRec row;
    if (accountType != ListAccount) {
        FillDayMarker(&row, today);
        if (!AddRecord(place, 1, row))
            return 0;
    }
    InitTRec(&row);
    row.Date = today;
    row.Units = IsShare(accountType) ? 0 : 1; // nothing is held yet
    CopyText(row.Name, TextRoom, u"Opening balance");
    if (!AddRecord(place, 1, row))
        return 0;
    CalcTotals(place);
    return 1;
}

int QueueEntry(const Place &place, const TRec &row) {
    if (state.WaitingCount == MostWaitingEntries && !PlaceQueuedEntries())
        return 0;
    WaitingEntry &entry = state.WaitingEntries[state.WaitingCount];
    entry = {place.Account, static_cast<uint32_t>(state.WaitingCount), place.Of, row};
    ++state.WaitingCount;
    return 1;
}

int PlaceQueuedEntries(ProgressTeller tell) {
    WaitingEntry *const begin = state.WaitingEntries, *const end = begin + state.WaitingCount, *next = begin;
    std::sort(begin, end, ComesFirst);
    state.WaitingCount = 0;
    while (next < end) {
        WaitingEntry *behind =
            std::find_if(next, end, [=](const WaitingEntry &entry) { return !SameFile(entry, *next); });
        const Place place = RowsOf(next->Account, next->Of, Rows::All);
        ForgetFindings(place);
        const int handle = OpenPlace(place, OpenOrCreate);
        const int placed = handle >= 0 && MergeEntries(handle, next, static_cast<int32_t>(behind - next));
        CloseFile(handle);
        if (!placed) {
            ReportError(In::AddRecFile, handle < 0 ? Trouble::TcreateFail : Trouble::TwriteFail);
            return 0;
        }
        CalcTotals(place);
        next = behind;
        if (tell)
            tell(static_cast<int>((next - begin) * 100 / (end - begin)));
    }
    return 1;
}
