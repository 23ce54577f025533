#include "screens/switching.h"
#include "analysis/charts.h"
#include "forms/due_items.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "ledger/balance.h"
#include "screens/list_screen.h"
#include "screens/screens.h"
#include "state/error_log.h"
#include "state/greys.h"
#include "store/windows.h"

namespace {

bool CurrentIsHeading() {
    return state.CurAccount.RowKind == HeadingRow;
}

// Brings the account list's window to the selection when it shows elsewhere.
void ShowSelectedAccount() {
    const int row = state.SelectedPos[AccountList] - state.TopPos[AccountList] + 1;
    if (row >= 1 && row <= state.RowCount)
        return;
    ReloadList(AccountList, TopAround(AccountList, state.SelectedPos[AccountList], state.EntryCount[AccountList]));
}

// Makes the selected account one that has transactions.
void ValidateAccount() {
    int32_t *selected = &state.SelectedPos[AccountList];
    if (*selected > state.EntryCount[AccountList])
        *selected = state.EntryCount[AccountList];
    if (*selected < 1)
        *selected = 1;
    LoadCurrentAccount();
    if (CurrentIsHeading())
        StepAccount(1);
}

// The end of the current account, its last entry selected.
void ShowLastTransactions() {
    LoadTranFile(state.SelectedPos[AccountList], 0);
    state.SelectedPos[TransactionList] = state.EntryCount[TransactionList];
}

int32_t ArrivalTop(const ListScreen &screen) {
    switch (screen.Arrives) {
    case Arrival::CentreSelection:
        return SetRecPosition(state.SelectedPos[screen.List], state.EntryCount[screen.List]);
    case Arrival::KeepTop:
        return state.TopPos[screen.List];
    default:
        return 0;
    }
}

void ChooseSelection(const ListScreen &screen) {
    int32_t *selected = &state.SelectedPos[screen.List];
    const int32_t count = state.EntryCount[screen.List];
    if (screen.Selection == RowChosen::Last || (screen.Selection == RowChosen::LastWhenNone && *selected == 0))
        *selected = count;
    if (screen.Selection == RowChosen::FirstWhenNone && *selected == 0)
        *selected = 1;
}

void EnterFromAccounts(int forward) {
    if (CurrentIsHeading())
        return;
    int32_t *selected = &state.SelectedPos[AccountList];
    const int32_t count = state.EntryCount[AccountList];
    if (*selected > count)
        *selected = count;
    if (forward && *selected < 1 && count > 0)
        *selected = 1;
    if (!forward)
        ShowSelectedAccount();
    EnterTransactions();
}

void ShowNextTransactions(int forward) {
    StepAccount(forward);
    ShowLastTransactions();
    doTransactions(ListWindow, PaintAllButTabs);
}

void ShowNextGraph(int forward) {
    StepAccount(forward);
    state.SelectedPos[GraphList] = 1;
    state.BarZoom = 1;
    if (state.GraphMode == 3 && state.AccountKind == ListAccount)
        state.GraphMode = 2;
    LoadShownRows(1);
    SetGreys(GraphList);
    doGraph(ListWindow, PaintAllButTabs);
}

void StepScreen(int forward, In function) {
    state.ReconcileState = ReconcileStep::Idle;
    if (state.ActiveDialog == PassCodeDialog)
        return;
    switch (state.CurrentScreen) {
    case AccountList:
        EnterFromAccounts(forward);
        return;
    case TransactionList:
        ShowNextTransactions(forward);
        return;
    case GraphList:
        if (!GraphScreen.PlotKey(forward ? Key::Right : Key::Left))
            ShowNextGraph(forward);
        return;
    case RecurringList:
    case TemplateList:
    case BinList:
    case CategoryList:
    case ConversionList:
        return;
    default:
        ReportError(function, Trouble::CaseError);
    }
}

} // namespace

void StepAccount(int forward) {
    const int32_t count = state.EntryCount[AccountList];
    int32_t position = state.SelectedPos[AccountList];
    for (int32_t tried = 0; tried < count; ++tried) {
        position += forward ? 1 : -1;
        if (position > count)
            position = 1;
        if (position < 1)
            position = count;
        state.SelectedPos[AccountList] = position;
        if (LoadCurrentAccount() && !CurrentIsHeading())
            break;
    }
    ShowSelectedAccount();
}

void EnterTransactions() {
    state.ReconcileState = ReconcileStep::Idle;
    SetGreys(state.CurrentScreen);
    CheckDDs();
    state.CurrentScreen = TransactionList;
    ValidateAccount();
    int32_t *selected = &state.SelectedPos[TransactionList];
    if (state.TranFileShown != 0 && state.TranFileShown == state.CurAccount.ID) {
        const int32_t count = CountTransactions();
        if (*selected == 0)
            *selected = count;
        LoadTranFile(state.SelectedPos[AccountList], SetRecPosition(*selected, count));
    } else {
        ShowLastTransactions();
    }
    doTransactions(ListWindow, PaintAll);
}

void EnterScreen(int screen) {
    const ListScreen *entered = ScreenOf(screen);
    if (!entered || screen == state.CurrentScreen)
        return;
    state.DragSource = 0; // what was held is let go
    const int before = state.CurrentScreen;
    if (before == GraphList)
        EndCharts();
    if (screen == TransactionList) {
        EnterTransactions();
        return;
    }
    state.CurrentScreen = screen;
    if (entered->NeedsAccount)
        ValidateAccount();
    SetGreys(screen);
    if (entered->PostsDues)
        CheckDDs();
    if (entered->ChecksTotals)
        CheckT1totals();
    if (entered->Arrives != Arrival::Own)
        LoadShownRows(ArrivalTop(*entered));
    ChooseSelection(*entered);
    if (before == GraphList)
        PlaceListScrollBar();
    entered->Paint(ListWindow, PaintAll);
}

void DoRightArrow() {
    StepScreen(1, In::DoRightArrow);
}

void DoLeftArrow() {
    StepScreen(0, In::DoLeftArrow);
}
