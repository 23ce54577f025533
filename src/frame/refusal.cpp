#include "frame/refusal.h"
#include "frame/form.h"
#include "frame/shown.h"
#include "platform/action.h"
#include "resources/deeds.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/index.h"
#include "store/windows.h"
#include <algorithm>

namespace {

struct Shown {
    int32_t CurrentScreen;
    uint32_t AccountID;
    int32_t TopPos[ScreenCount + 1], SelectedPos[ScreenCount + 1];
};
Shown noted;

void FindAccountAgain() {
    const int32_t position = IDtoRec(noted.AccountID);
    if (position > 0)
        state.SelectedPos[AccountList] = position;
    const int32_t count = state.EntryCount[AccountList];
    state.SelectedPos[AccountList] = std::clamp(state.SelectedPos[AccountList], 1, std::max(count, 1));
    LoadCurrentAccount();
}

void HoldInside(int list) {
    const int32_t count = state.EntryCount[list];
    state.SelectedPos[list] = std::min(state.SelectedPos[list], count + 1);
    if (state.TopPos[list] > count + 1)
        ReloadList(list, SetRecPosition(state.SelectedPos[list], count));
}

} // namespace

void NameDeed(Deed deed) {
    NameAction(static_cast<int>(deed));
}

void NoteShown() {
    noted.CurrentScreen = state.CurrentScreen;
    noted.AccountID = state.CurAccount.ID;
    std::copy(std::begin(state.TopPos), std::end(state.TopPos), noted.TopPos);
    std::copy(std::begin(state.SelectedPos), std::end(state.SelectedPos), noted.SelectedPos);
}

void ReloadShown() {
    state.ReconcileState = ReconcileStep::Idle;
    state.RangeStart = state.RangeFinish = 0;
    state.RangeStartPlace = state.RangeFinishPlace = {};
    state.WaitingCount = 0;
    state.Restructuring = 0;
    state.DragSource = 0;
    if (!state.DataUsable || !state.FileAccessReady) // before the right pass code nothing can be read
        return;
    // Looking goes on also where nothing can be written: the owner stays on a screen that was asked for.
    const int32_t screen = state.CurrentScreen;
    if (screen == noted.CurrentScreen) {
        std::copy(std::begin(noted.TopPos), std::end(noted.TopPos), state.TopPos);
        std::copy(std::begin(noted.SelectedPos), std::end(noted.SelectedPos), state.SelectedPos);
    }
    ReloadList(AccountList, state.TopPos[AccountList]);
    FindAccountAgain();
    const int32_t selected = state.SelectedPos[TransactionList];
    LoadTranFile(state.SelectedPos[AccountList], state.TopPos[TransactionList]);
    state.SelectedPos[TransactionList] = selected;
    if (screen >= RecurringList && screen <= ConversionList)
        ReloadList(screen, state.TopPos[screen]);
    if (screen >= AccountList && screen <= ConversionList && screen != GraphList)
        HoldInside(screen);
    state.CurrentScreen = screen;
}

int FinishAction() {
    if (!CommitAction()) {
        GiveActionUp();
        return 0;
    }
    BeginAction();
    NoteShown();
    return 1;
}

void GiveActionUp() {
    GiveActionUp(ActionRefused() == ReadRefused ? Help::NotRead : Help::NotWritten);
}

void GiveActionUp(Help help) {
    AbortAction();
    BeginAction();
    ReloadShown();
    if (state.ActiveDialog == NoDialog && state.FileAccessReady) {
        SetGreys(state.CurrentScreen);
        RepaintScreen();
    }
    RefuseTick(help);
}
