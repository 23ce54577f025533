#include "screens/opening.h"
#include "forms/forms.h"
#include "ledger/account_window.h"
#include "screens/hub.h"
#include "screens/hub_values.h"
#include "screens/list_screen.h"
#include "screens/screens.h"
#include "state/greys.h"
#include "store/windows.h"

namespace {

int OpenAccount(int) {
    return OpenAccountForm(1);
}

int OpenTransaction(int entryKind) {
    if (entryKind == ReconcileEntry && state.HubState == SmallHub)
        return AddReconcileEntry();
    return OpenTransactionForm(entryKind);
}

// The selection is a row that can be seen, in the middle of the window.
void CentreSelection() {
    const int screen = state.CurrentScreen;
    if (state.SelectedPos[screen] == 0)
        state.SelectedPos[screen] = state.EntryCount[screen] > 0 ? state.TopPos[screen] : 1;
    LoadWindow(SetRecPosition(state.SelectedPos[screen], state.EntryCount[screen]));
}

int OpenWith(int (*open)()) {
    CentreSelection();
    return open();
}

int OpenRecurring(int) {
    return OpenWith(OpenRecurringForm);
}

int OpenTemplate(int) {
    return OpenWith(OpenTemplateForm);
}

int OpenConversion(int) {
    if (state.HubPicking)
        return PickRate();
    return OpenWith(OpenConversionForm);
}

int OpenCategory(int) {
    return OpenWith(OpenCategoryForm);
}

// ORDER LIST; null: nothing opens
constexpr int (*Open[ListCount])(int entryKind) = {
    nullptr, OpenAccount, OpenTransaction, nullptr, OpenRecurring, OpenTemplate, nullptr, OpenCategory, OpenConversion};

} // namespace

int DoButtonDblclk(Window window, int entryKind) {
    if (window != ListWindow || (state.ActiveDialog != NoDialog && !state.HubPicking) || !state.DataUsable)
        return 0;
    // From the graph an entry's form opens over the transactions, and its end leads back.
    if (state.CurrentScreen == GraphList) {
        state.BackToGraph = 1;
        state.CurrentScreen = TransactionList;
    }
    const auto open = Open[state.CurrentScreen];
    if (open && open(entryKind))
        return 1;
    if (state.BackToGraph)
        state.CurrentScreen = GraphList;
    state.BackToGraph = 0;
    return 0;
}

void ShowEnteredAccount() {
    static constexpr HelpChoice Entered = {{{0, 122, 9, 10, 0, 0}}, {{0, 122, 9, 84, 0, 0}}, InArchiveView};
    DoRightArrow();
    SetGreys(state.CurrentScreen);
    ShowChoice(Entered);
}
