#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "ledger/order.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

constexpr FileKind Kind = FileKind::Transactions;

void ClearRows() {
    for (TranRow &row : state.TranRows) {
        InitTRec(&row.Rec);
        row.Rec.Date.DayNumber = 0;
        row.Position = 0;
    }
}

int ShowNothing() {
    state.EntryCount[TransactionList] = 0;
    state.TopPos[TransactionList] = 1;
    state.SelectedPos[TransactionList] = 1;
    state.TranFileShown = 0;
    state.FilterView = state.FilterShown = 0;
    return 0;
}

// The rows of the window as they lie in the file.
struct RowsRead {
    TRecFile Records[MostRows];
    int32_t Count;
};

void ReadShown(int handle, RowsRead *window) {
    window->Count =
        ReadRecords(handle, Kind, state.TopPos[TransactionList], state.RowCount, window->Records, Broken::Shows);
}

// A Day marker in the window that is not today's; the last one, when there are several. Its position, 0 for none.
int32_t StaleDayMarker(const RowsRead &window, const RecDate &today, TRec *marker) {
    for (int32_t row = window.Count - 1; row >= 0; --row) {
        const TRec &record = window.Records[row].Rec;
        if (record.RowKind != DayMarker || record.Date.DayNumber == today.DayNumber)
            continue;
        *marker = record;
        return state.TopPos[TransactionList] + row;
    }
    return 0;
}

void ShowRows(const RowsRead &window) {
    ClearRows();
    for (int row = 1; row <= state.RowCount; ++row) {
        TranRow &shown = state.TranRows[row];
        shown.Position = static_cast<uint32_t>(state.TopPos[TransactionList] + row - 1);
        if (row > window.Count)
            continue;
        const TRec &record = window.Records[row - 1].Rec;
        if (IsBroken(&record))
            continue; // its row stays blank
        CopyFields(FieldsOfList(TransactionList), &record, &shown.Rec);
        if (record.Version != RecordVersion)
            ReportDamagedRow(record.Name);
    }
}

// The marker follows the calendar: it moves to where today's belongs.
void MoveDayMarker(const Place &place, int32_t position, const RecDate &today, TRec *marker) {
    SetMarkerDay(marker, today);
    marker->Rank = DayRank;
    marker->Cleared = 0;
    const int32_t to = PositionByDate(place, today, DayRank);
    if (ChangeRecord(place, position, *marker) && MoveRecord(place, position, to))
        CalcTotals(place);
}

// 1 when every row can be read. Without a key nothing is looked at.
int AllRead(int handle) {
    TRecFile records[MostRows];
    int32_t read = state.CurrentKey == NoKey ? 0 : MostRows;
    for (int32_t first = 1; read == MostRows; first += read) {
        read = ReadRecords(handle, Kind, first, MostRows, records, Broken::Shows);
        for (int32_t row = 0; row < read; ++row)
            if (IsBroken(&records[row]))
                return 0;
    }
    return 1;
}

int OpenRows(const Place &place) {
    const int handle = OpenPlace(place, OpenOrCreate, &state.FilterView);
    if (handle < 0)
        ReportError(In::LoadTranFile, Trouble::TcreateFail);
    return handle;
}

int AcceptFile(int handle) {
    TRecFile record;
    return !ReadRecord(handle, Kind, 1, &record, Broken::Shows) || IsBroken(&record) ||
           AcceptVersion(record.Rec.Version, In::LoadTranFile);
}

} // namespace

int LoadRows(const Place &place, int32_t top) {
    ClearRows();
    if (!state.DataUsable || place.Account == 0)
        return ShowNothing();
    int handle = OpenRows(place);
    const int32_t count = CountRecords(handle, Kind);
    if (!AcceptFile(handle)) {
        CloseFile(handle);
        return ShowNothing();
    }
    state.EntryCount[TransactionList] = count;
    state.TopPos[TransactionList] = TopFor(top, count);
    if (count == 0)
        state.SelectedPos[TransactionList] = 0;
    state.TranFileShown = place.Account;
    RecDate today;
    LoadTodaysDate(&today);
    TRec marker;
    RowsRead window;
    ReadShown(handle, &window);
    // Rows keep their places as long as a form is open, which is for one of them, and when they are read anew after a
    // refusal.
    const bool mayMove = place.Of == View::Live && !state.OpenedForm && !state.ShownUnread;
    const int32_t stale = mayMove ? StaleDayMarker(window, today, &marker) : 0;
    if (stale > 0 && AllRead(handle)) { // the move goes through the totals, which a row that can't be read stops
        CloseFile(handle);
        MoveDayMarker(place, stale, today, &marker);
        handle = OpenRows(place);
        ReadShown(handle, &window);
    }
    ShowRows(window);
    CloseFile(handle);
    state.FilterShown = state.FilterView;
    return state.FilterView == 1;
}

int AcceptRows(const Place &place) {
    const int handle = OpenPlace(place, OpenExisting);
    const int accepted = AcceptFile(handle); // there may be no such file yet
    CloseFile(handle);
    return accepted;
}
