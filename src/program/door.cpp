#include "program/door.h"
#include "input/input.h"
#include "platform/files.h"
#include "program/start_up.h"
#include "state/state.h"

int WinMain() {
    return StartUp();
}

void HandleEvent(const Event &event) {
    if (state.Next == NextStep::Left)
        return;
    WndProc(event);
    if (state.Next != NextStep::Leave && state.Next != NextStep::LeaveFiltered)
        return;
    ShutDown(state.Next == NextStep::LeaveFiltered);
    state.Next = NextStep::Left;
}

int IdleStep() {
    SyncFiles();
    return 0;
}

Hint HintAt(Window where, int x, int y) {
    return state.Next == NextStep::Left ? Hint{} : HintOf(where, x, y);
}

int CanDragEdge(Window where, int x, int y) {
    return state.Next != NextStep::Left && EdgeUnder(where, x, y) != 0;
}
