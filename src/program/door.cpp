#include "program/door.h"
#include "frame/refusal.h"
#include "input/press.h"
#include "input/wndproc.h"
#include "platform/action.h"
#include "platform/files.h"
#include "program/start_up.h"
#include "screens/movie.h"
#include "state/state.h"

namespace {

bool inside; // an event brought another one with it, which belongs to the same action

} // namespace

int WinMain() {
    inside = false;
    return StartUp();
}

void HandleEvent(const Event &event) {
    if (state.Next == NextStep::Left)
        return;
    if (inside) {
        WndProc(event);
        return;
    }
    inside = true;
    BeginAction();
    NoteShown();
    WndProc(event);
    if (!CommitAction()) {
        GiveActionUp();
        AbortAction(); // what the reading anew would set right waits for a machine that takes it
    }
    if (state.Next == NextStep::LeaveFrontPage)
        GoOnFromPage();
    if (state.Next == NextStep::LoadData)
        LoadData();
    if (state.Next == NextStep::StartAgain)
        StartAgain();
    if (state.Next == NextStep::Leave || state.Next == NextStep::LeaveFiltered) {
        ShutDown(state.Next == NextStep::LeaveFiltered);
        state.Next = NextStep::Left;
    }
    inside = false;
}

int IdleStep() {
    return DrawAbout();
}

Hint HintAt(Window where, int x, int y) {
    return state.Next == NextStep::Left ? Hint{} : HintOf(where, x, y);
}

int CanDragEdge(Window where, int x, int y) {
    return state.Next != NextStep::Left && EdgeUnder(where, x, y) != 0;
}

void RestStep() {
    if (state.Next != NextStep::Left)
        static_cast<void>(SyncFiles()); // when it fails, the journal stays and the next action tries again
}
