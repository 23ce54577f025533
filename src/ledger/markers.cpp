#include "ledger/markers.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/order.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

constexpr int MarkerNameUnits = 24;

} // namespace

void SetMarkerDay(TRec *row, const RecDate &date) {
    row->Date = date;
    CopyText(row->Name, TextRoom, u"");
    CopyText(row->Name, MarkerNameUnits + 1, WeekdayName(WeekdayOf(date)));
}

void FillDayMarker(TRec *row, const RecDate &date) {
    InitTRec(row);
    row->RowKind = DayMarker;
    row->Rank = DayRank;
    row->Units = row->ClearedUnits = 0;
    SetMarkerDay(row, date);
    CopyText(row->Memo, TextRoom, u"Auto generated");
}

void SetArchiveTotals(TRec *marker, int64_t accountType, const FileTotals &totals) {
    if (IsShare(accountType)) {
        marker->Units = totals.Shares;
        marker->ClearedUnits = totals.ClearedShares;
        marker->Value = totals.Price;
        marker->ClearedValue = totals.ClearedPrice;
        marker->CashAmount = totals.Balance;
        marker->ClearedCashAmount = totals.Cleared;
    } else {
        marker->Units = marker->ClearedUnits = 1;
        marker->Value = totals.Balance;
        marker->ClearedValue = totals.Cleared;
    }
}

void FillTotalMarker(ARec *row) {
    InitARec(row);
    row->RowKind = HeadingRow;
    CopyText(row->Name, TextRoom, u"Total");
    row->ID = GetNextID();
    row->MinLimit = 50;
    row->MaxLimit = 50000;
}

int InsertDayMarker() {
    if (state.ActiveDialog != NoDialog || state.FilterView || !LoadCurrentAccount() ||
        state.CurAccount.RowKind == HeadingRow)
        return 0;
    const int32_t screen = state.CurrentScreen;
    state.CurrentScreen = TransactionList;
    RecDate today;
    LoadTodaysDate(&today);
    TRec row;
    FillDayMarker(&row, today);
    const int made = AddRecFile(state.CurAccount.ID, CpDates(today, DayRank), &row, 0);
    if (made) {
        CalcBalance(state.CurAccount.ID);
        int32_t top = state.TopPos[TransactionList];
        const int32_t selection = state.SelectedPos[TransactionList];
        if (selection < top || selection >= top + state.RowCount)
            top = SetRecPosition(selection, state.EntryCount[TransactionList]);
        LoadTranFile(state.SelectedPos[AccountList], top);
    }
    state.CurrentScreen = screen;
    return made;
}

int InsertTotalMarker() {
    if (state.CurrentScreen != AccountList || !state.DataUsable)
        return 0;
    ARec row;
    FillTotalMarker(&row);
    int32_t position = state.SelectedPos[AccountList];
    if (position < 1 || position > state.EntryCount[AccountList])
        position = state.EntryCount[AccountList] + 1;
    const int made = AddRecFile(0, position, &row, 0);
    if (made)
        ShowHelp(Help::TotalMarkerMade);
    LoadAccFile(state.TopPos[AccountList]);
    LoadCurrentAccount();
    return made;
}
