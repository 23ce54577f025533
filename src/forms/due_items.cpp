#include "forms/due_items.h"
#include "forms/progress.h"
#include "frame/changes.h"
#include "frame/refusal.h"
#include "ledger/balance.h"
#include "ledger/recurring.h"
#include "platform/shell.h"
#include "resources/deeds.h"

namespace {

constexpr int32_t ManyEntries = 1000; // fewer stand there before a form does

} // namespace

void CheckDDs() {
    const int32_t due = EntriesDue();
    if (due == 0)
        return;
    ClearFilters(); // the entries must reach the real files
    const int32_t selection = state.SelectedPos[TransactionList];
    const bool told = due >= ManyEntries && OpenProgressForm(PostingDialog);
    const int posted = PostDueItems(told ? TellProgress : nullptr);
    if (told)
        CloseProgressForm();
    if (posted == 0)
        return;
    NameDeed(Deed::Posted);
    CheckT1totals();
    RefreshAccounts();
    LoadCurrentAccount();
    ReloadList(state.CurrentScreen, state.TopPos[state.CurrentScreen]);
    CountTransactions();
    state.SelectedPos[TransactionList] = selection;
    Beep(Sound::Exclamation);
    RepaintScreen();
}
