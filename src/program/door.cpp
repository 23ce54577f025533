#include "program/door.h"
#include "input/wndproc.h"
#include "platform/files.h"
#include "program/start_up.h"
#include "screens/movie.h"
#include "state/state.h"

int WinMain() {
    return StartUp();
}

void HandleEvent(const Event &event) {
    if (state.Next == NextStep::Left)
        return;
    WndProc(event);
    if (state.Next == NextStep::LeaveFrontPage)
        GoOnFromPage();
    if (state.Next != NextStep::Leave && state.Next != NextStep::LeaveFiltered)
        return;
    ShutDown(state.Next == NextStep::LeaveFiltered);
    state.Next = NextStep::Left;
}

int IdleStep() {
    SyncFiles();
    return DrawAbout();
}
