#include "ledger/jeopardy.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "platform/shell.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/operations.h"
#include "store/windows.h"

int BreaksWholeLimit(const ARec &account, int64_t whole) {
    return (account.LowWatch && whole < account.MinLimit) || (account.HighWatch && whole > account.MaxLimit);
}

int BreaksLimit(const ARec &account, FixedAmount value) {
    return BreaksWholeLimit(account, WholePart(value));
}

namespace {

int SelectedAccount(ARec *account) {
    if (state.ActiveDialog == NoDialog && FetchAccount(state.SelectedPos[AccountList], account))
        return 1;
    Beep();
    ShowHelp(Help::SelectEntryFirst);
    return 0;
}

// Stores the watches and lets every flag follow. The flags belong to the live file, whichever view is shown.
void StoreWatches(const ARec &account) {
    const int32_t screen = state.CurrentScreen;
    state.CurrentScreen = AccountList;
    ModRecFile(0, state.SelectedPos[AccountList], &account);
    CalcOneView(account.ID, 0);
    CheckT1totals(1);
    LoadCurrentAccount();
    ReloadList(screen, state.TopPos[screen]);
}

} // namespace

int JeopardyOn() {
    ARec account;
    if (!SelectedAccount(&account))
        return 0;
    if (account.LowWatch) {
        account.HighWatch = 1;
        ShowHelp(Help::AllWatched);
    } else {
        account.LowWatch = 1;
        ShowHelp(Help::MinWatched);
    }
    StoreWatches(account);
    return 1;
}

int JeopardyOff() {
    ARec account;
    if (!SelectedAccount(&account))
        return 0;
    account.LowWatch = account.HighWatch = 0;
    ShowHelp(Help::NoneWatched);
    StoreWatches(account);
    return 1;
}
