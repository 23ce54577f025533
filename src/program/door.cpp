#include "program/door.h"
#include "frame/refusal.h"
#include "input/press.h"
#include "input/wndproc.h"
#include "platform/action.h"
#include "platform/files.h"
#include "platform/painting.h"
#include "program/invariants.h"
#include "program/start_up.h"
#include "screens/hub.h"
#include "screens/movie.h"
#include "state/state.h"
#include <cstdio>
#include <cstdlib>

namespace {

bool inside; // an event brought another one with it, which belongs to the same action

void Repaint(const Event &event) {
    const Painting painting;
    WndProc(event);
}

void AssertInvariants() {
#ifndef NDEBUG
    if (const char *broken = state.Next == NextStep::Left ? nullptr : BrokenInvariant()) {
        std::fprintf(stderr, "Not always true: %s\n", broken);
        std::abort();
    }
#endif
}

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
    if (event.Kind == EventKind::Paint)
        Repaint(event);
    else
        WndProc(event);
    if (!CommitAction()) {
        GiveEventUp();
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
    if (state.Next != NextStep::Left)
        static_cast<void>(TellBrokenRecord());
    const bool moves = event.Kind == EventKind::PointerMove || event.Kind == EventKind::Paint;
    if (!moves && state.Next != NextStep::Left)
        SettleHub();
    AssertInvariants();
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
