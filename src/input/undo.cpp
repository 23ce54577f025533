#include "input/undo.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "input/asking.h"
#include "platform/action.h"
#include "platform/history.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/configuration.h"

namespace {

// The settings stand in words of the state as well as in the record that has changed.
void ReadSettings() {
    if (!LoadConfFile())
        RefuseActionFor(ReadRefused);
    UpdateBmap();
}

} // namespace

void TakeActionBack(bool again) {
    if (state.ActiveDialog != NoDialog) { // what is on it was not written yet
        Beep();
        return;
    }
    if (ActionChanged() && !FinishAction()) // what the event did on the way here stands for itself
        return;
    if (!state.DataUsable || !(again ? RedoCount() : HistoryCount())) {
        Beep();
        Tell(again ? Help::NothingToDoAgain : Help::NothingToTakeBack, AddedLine::None);
        return;
    }
    const int label = again ? RedoLabel() : UndoLabel();
    if (!(again ? RedoAction() : UndoAction()))
        return; // the refused action is given up as a whole, and told
    ReadSettings();
    ReloadShown();
    SetGreys(state.CurrentScreen);
    RepaintScreen();
    Tell(again ? Help::DoneAgain : Help::TakenBack, static_cast<AddedLine>(WordsOfDeed(label)));
}
