#include "frame/shown.h"
#include "analysis/chart_window.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "ledger/account_window.h"
#include "ledger/filter.h"
#include "state/state.h"
#include "store/configuration.h"
#include "store/index.h"

namespace {

// Every column stays at least this wide, the last ones giving way first.
void SetTransactionEdges(const ARec &account) {
    constexpr int32_t Least = 30;
    int32_t *edge = state.ColumnEdge[TransactionList];
    edge[0] = 0;
    edge[1] = account.AccType == ListAccount ? 0 : denormalise(account.ColumnPos[1]);
    if (account.AccType != ListAccount && edge[1] < Least)
        edge[1] = Least;
    edge[2] = denormalise(account.ColumnPos[2]);
    edge[3] = denormalise(account.ColumnPos[3]);
    edge[4] = RightEdge;
    if (edge[1] + Least > edge[2])
        edge[2] = edge[1] + Least;
    if (edge[2] + Least > edge[3])
        edge[3] = edge[2] + Least;
    for (int i = 3; i > 0 && edge[i] + Least > edge[i + 1]; --i)
        edge[i] = edge[i + 1] - Least;
    for (int i = 0; i < 5; ++i) {
        state.LoadedEdge[TransactionList][i] = edge[i];
        state.StoredColumn[TransactionList][i] = account.ColumnPos[i];
    }
}

} // namespace

View ViewShown() {
    return state.ArchiveView ? View::Archive : View::Live;
}

Place EntriesShown() {
    return RowsOf(state.CurAccount.RowKind == HeadingRow ? 0 : state.CurAccount.ID, ViewShown());
}

Place PlaceShown() {
    return KindOfList(state.CurrentScreen) == FileKind::Transactions
               ? EntriesShown()
               : Place{.List = state.CurrentScreen, .Of = ViewShown()};
}

void TakeAccount(const ARec &account) {
    state.CurAccount = account;
    state.AccountKind = static_cast<int32_t>(account.AccType);
    SetTransactionEdges(account);
}

int LoadCurrentAccount() {
    ARec account;
    if (!FetchAccount(state.SelectedPos[AccountList], &account)) {
        state.CurAccount = account;
        return 0;
    }
    TakeAccount(account);
    return 1;
}

int MakeAccountCurrent(uint32_t accountID) {
    ARec account;
    if (!FindAccount(accountID, &account, nullptr))
        return 0;
    TakeAccount(account);
    return 1;
}

int LoadTranFile(int32_t accountPosition, int32_t top) {
    state.SelectedPos[GraphList] = state.TopPos[GraphList] = 1;
    if (!state.DataUsable || state.EntryCount[AccountList] < 1)
        return LoadRows(RowsOf(0, View::Live), top);
    state.SelectedPos[AccountList] = accountPosition;
    const int filtered = LoadRows(LoadCurrentAccount() ? EntriesShown() : RowsOf(0, View::Live), top);
    if (state.CurrentScreen == GraphList)
        ReloadList(GraphList, 1);
    return filtered;
}

void ReloadList(int list, int32_t top) {
    switch (list) {
    case AccountList:
        LoadAccFile(top);
        for (int i = 1; i <= MostRows; ++i)
            state.AccFiltered[i] = state.AccRows[i].ID != 0 && AccountFiltered(state.AccRows[i].ID);
        break;
    case TransactionList:
        LoadTranFile(state.SelectedPos[AccountList], top);
        break;
    case GraphList:
        if (ChartShown())
            LoadChart(EntriesShown(), top);
        else
            LoadGraphData(EntriesShown());
        break;
    case RecurringList:
        LoadDDFile(top);
        break;
    case BinList:
        LoadBinFile(top);
        break;
    default:
        LoadListWindow(list, top);
    }
}

void RefreshAccounts() {
    ReloadList(AccountList, state.TopPos[AccountList]);
    if (state.CurAccount.ID != 0 && state.CurAccount.RowKind != HeadingRow)
        MakeAccountCurrent(state.CurAccount.ID);
    CountTransactions();
}

int32_t CountTransactions() {
    return state.EntryCount[TransactionList] = CountOf(EntriesShown());
}

int FetchTran(int32_t position, TRec *row) {
    InitTRec(row);
    if (FetchRecord(EntriesShown(), position, row))
        return 1;
    row->ClearedUnits = 1;
    return 0;
}

int32_t SetRecPosition(int32_t selection, int32_t count) {
    return TopAround(state.CurrentScreen, selection, count);
}

void RepairTop(int list) {
    int32_t *top = &state.TopPos[list];
    if (*top > 1 && state.EntryCount[list] - *top + 3 < state.RowCount)
        --*top;
}

void RepaintScreen() {
    const int32_t screen = state.CurrentScreen;
    if (screen >= AccountList && screen <= ScreenCount && state.Paint[screen])
        state.Paint[screen](ListWindow, EveryBand);
}
