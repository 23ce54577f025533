#include "screens/inserting.h"
#include "frame/changes.h"
#include "ledger/markers.h"
#include "state/messages.h"

bool InsertDayMarker() {
    if (state.ActiveDialog != NoDialog || state.FilterView || !LoadCurrentAccount() ||
        state.CurAccount.RowKind == HeadingRow)
        return false;
    const int32_t position = AddDayMarker(EntriesShown());
    if (position == 0)
        return false;
    RefreshAccounts();
    state.SelectedPos[TransactionList] = position;
    int32_t top = state.TopPos[TransactionList];
    if (position < top || position >= top + state.RowCount)
        top = TopAround(TransactionList, position, state.EntryCount[TransactionList]);
    LoadTranFile(state.SelectedPos[AccountList], top);
    return true;
}

bool InsertTotalMarker() {
    if (state.CurrentScreen != AccountList || !state.DataUsable)
        return false;
    int32_t position = state.SelectedPos[AccountList];
    if (position < 1 || position > state.EntryCount[AccountList])
        position = state.EntryCount[AccountList] + 1;
    const bool made = AddTotalMarker(position) > 0;
    if (made)
        ShowHelp(Help::TotalMarkerMade);
    ReloadList(AccountList, state.TopPos[AccountList]);
    LoadCurrentAccount();
    return made;
}
