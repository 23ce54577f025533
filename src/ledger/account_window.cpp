#include "ledger/account_window.h"
#include "ledger/account_file.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "ledger/moves.h"
#include "ledger/order.h"
#include "platform/shell.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/index.h"
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
struct Window {
    TRecFile Records[MostRows];
    int32_t Count;
};

void ReadWindow(int handle, Window *window) {
    window->Count = ReadRecords(handle, Kind, state.TopPos[TransactionList], state.RowCount, window->Records);
}

// A Day marker in the window that is not today's; the last one, when there are several. Its position, 0 for none.
int32_t StaleDayMarker(const Window &window, const RecDate &today, TRec *marker) {
    for (int32_t row = window.Count - 1; row >= 0; --row) {
        const TRec &record = window.Records[row].Rec;
        if (record.RowKind != DayMarker || record.Date.DayNumber == today.DayNumber)
            continue;
        *marker = record;
        return state.TopPos[TransactionList] + row;
    }
    return 0;
}

void ShowRows(const Window &window) {
    ClearRows();
    for (int row = 1; row <= state.RowCount; ++row) {
        TranRow &shown = state.TranRows[row];
        shown.Position = static_cast<uint32_t>(state.TopPos[TransactionList] + row - 1);
        if (row > window.Count)
            continue;
        const TRec &record = window.Records[row - 1].Rec;
        CopyRecFile(TransactionList, &record, &shown.Rec);
        if (record.Version != RecordVersion) {
            Beep();
            TraceWide(record.Name);
        }
    }
}

// The marker follows the calendar: it moves to where today's belongs.
void MoveDayMarker(uint32_t accountID, int32_t position, const RecDate &today, TRec *marker) {
    const int32_t selection = state.SelectedPos[TransactionList];
    SetMarkerDay(marker, today);
    marker->Rank = DayRank;
    marker->Cleared = 0;
    ShiftRecord(accountID, position, CpDates(today, DayRank), marker);
    CalcBalance(accountID);
    state.SelectedPos[TransactionList] = selection;
    CheckT1totals(0);
}

int OpenAccountFile(uint32_t accountID) {
    const int handle = OpenDataFile(Kind, OpenOrCreate, accountID, &state.FilterView);
    if (handle < 0)
        ReportError(In::LoadTranFile, Trouble::TcreateFail);
    return handle;
}

int AcceptFile(int handle) {
    TRecFile record;
    return !ReadRecord(handle, Kind, 1, &record) || AcceptVersion(record.Rec.Version, In::LoadTranFile);
}

int LoadAccount(uint32_t accountID, int32_t top) {
    int handle = OpenAccountFile(accountID);
    const int32_t count = CountRecords(handle, Kind);
    if (!AcceptFile(handle)) {
        CloseFile(handle);
        return ShowNothing();
    }
    state.EntryCount[TransactionList] = count;
    state.TopPos[TransactionList] = TopFor(top, count);
    if (count == 0)
        state.SelectedPos[TransactionList] = 0;
    state.TranFileShown = accountID;
    RecDate today;
    LoadTodaysDate(&today);
    TRec marker;
    Window window;
    ReadWindow(handle, &window);
    const int32_t stale = state.ArchiveView ? 0 : StaleDayMarker(window, today, &marker);
    if (stale > 0) {
        CloseFile(handle);
        MoveDayMarker(accountID, stale, today, &marker);
        handle = OpenAccountFile(accountID);
        ReadWindow(handle, &window);
    }
    ShowRows(window);
    CloseFile(handle);
    state.AccountKind = static_cast<int32_t>(state.CurAccount.AccType);
    state.FilterShown = state.FilterView;
    return state.FilterView == 1;
}

} // namespace

int LoadTranFile(int32_t accountPosition, int32_t top) {
    const int32_t screen = state.CurrentScreen;
    state.CurrentScreen = TransactionList;
    state.SelectedPos[GraphList] = state.TopPos[GraphList] = 1;
    ClearRows();
    int filtered = 0;
    if (!state.DataUsable || state.EntryCount[AccountList] < 1) {
        ShowNothing();
    } else {
        state.SelectedPos[AccountList] = accountPosition;
        if (LoadCurrentAccount() && state.CurAccount.ID != 0 && state.CurAccount.RowKind != HeadingRow)
            filtered = LoadAccount(state.CurAccount.ID, top);
        else
            ShowNothing();
    }
    state.CurrentScreen = screen;
    return filtered;
}

int AcceptTranFile(int32_t accountPosition) {
    const uint32_t accountID = RectoID(accountPosition);
    if (accountID == 0)
        return 1;
    const int handle = OpenDataFile(Kind, OpenExisting, accountID, nullptr);
    const int accepted = AcceptFile(handle);
    ReleaseFile(handle); // there may be no such file yet
    return accepted;
}

int LoadCurrentAccount() {
    return FetchAccount(state.SelectedPos[AccountList], &state.CurAccount);
}

int MakeAccountCurrent(uint32_t accountID) {
    ARec row;
    const int32_t position = IDtoAccount(accountID, &row);
    return position > 0 && FetchAccount(position, &state.CurAccount);
}

void ReloadList(int list, int32_t top) {
    switch (list) {
    case AccountList:
        LoadAccFile(top);
        break;
    case TransactionList:
        LoadTranFile(state.SelectedPos[AccountList], top);
        break;
    case RecurringList:
        LoadDDFile(top);
        break;
    case TemplateList:
        LoadFavFile(top);
        break;
    case BinList:
        LoadBinFile(top);
        break;
    case CategoryList:
        LoadCatFile(top);
        break;
    case ConversionList:
        LoadCurFile(top);
        break;
    }
    state.CurrentScreen = list;
}

void RepaintScreen() {
    const int32_t screen = state.CurrentScreen;
    if (screen >= AccountList && screen <= ScreenCount && state.Paint[screen])
        state.Paint[screen](ListWindow, EveryBand);
}

int32_t CountTransactions() {
    uint32_t filtered;
    const int handle = state.CurAccount.ID == 0
                           ? -1
                           : OpenDataFile(FileKind::Transactions, OpenExisting, state.CurAccount.ID, &filtered);
    state.EntryCount[TransactionList] = CountRecords(handle, Kind);
    if (handle >= 0)
        CloseFile(handle);
    return state.EntryCount[TransactionList];
}
