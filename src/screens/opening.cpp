#include "screens/opening.h"
#include "forms/forms.h"
#include "frame/shown.h"
#include "screens/list_screen.h"
#include "screens/switching.h"
#include "state/greys.h"
#include "store/windows.h"

namespace {

int OpenNewAccount(int) {
    return OpenAccountForm(1);
}

int OpenTransaction(int entryKind) {
    return OpenTransactionForm(entryKind);
}

// The selection is a row that can be seen, in the middle of the window.
void CentreOnSelected() {
    const int screen = state.CurrentScreen;
    if (state.SelectedPos[screen] == 0)
        state.SelectedPos[screen] = state.EntryCount[screen] > 0 ? state.TopPos[screen] : 1;
    LoadShownRows(SetRecPosition(state.SelectedPos[screen], state.EntryCount[screen]));
}

int OpenWith(int (*open)()) {
    CentreOnSelected();
    return open();
}

int OpenRecurring(int) {
    return OpenWith(OpenRecurringForm);
}

int OpenTemplate(int) {
    return OpenWith(OpenTemplateForm);
}

int OpenConversion(int) {
    return OpenWith(OpenConversionForm);
}

int OpenCategory(int) {
    return OpenWith(OpenCategoryForm);
}

// ORDER LIST; null: nothing opens
constexpr int (*Openers[ListCount])(int entryKind) = {nullptr, OpenNewAccount, OpenTransaction,
                                                      nullptr, OpenRecurring,  OpenTemplate,
                                                      nullptr, OpenCategory,   OpenConversion};

} // namespace

int DoButtonDblclk(Window window, int entryKind) {
    if (window != ListWindow || state.ActiveDialog != NoDialog || !state.DataUsable)
        return 0;
    // From the graph an entry's form opens over the transactions, and its end leads back.
    if (state.CurrentScreen == GraphList) {
        state.BackToGraph = 1;
        state.CurrentScreen = TransactionList;
    }
    const auto open = Openers[state.CurrentScreen];
    if (open && open(entryKind))
        return 1;
    if (state.BackToGraph)
        state.CurrentScreen = GraphList;
    state.BackToGraph = 0;
    return 0;
}

void ShowEnteredAccount() {
    static constexpr HelpChoice Entered = {Help::BackToTransactions, Help::EnteredArchive, InArchiveView};
    DoRightArrow();
    SetGreys(state.CurrentScreen);
    ShowChoice(Entered);
}
