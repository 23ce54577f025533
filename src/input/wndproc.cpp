#include "input/wndproc.h"
#include "forms/palette.h"
#include "forms/pass_code.h"
#include "frame/form.h"
#include "frame/header.h"
#include "input/asking.h"
#include "input/commands.h"
#include "input/drag.h"
#include "input/hub_input.h"
#include "input/keys.h"
#include "input/press.h"
#include "input/scrolling.h"
#include "input/search.h"
#include "platform/surface.h"
#include "resources/menus.h"
#include "screens/front_page.h"
#include "screens/hub.h"
#include "screens/list_screen.h"
#include "state/messages.h"

namespace {

// A paint request: some handlers paint themselves what a request would follow upon, and ask to have it passed over.
void DoPaint() {
    if (state.RepaintSkip > 0) {
        --state.RepaintSkip;
        return;
    }
    const int screen = state.CurrentScreen;
    if ((state.ActiveDialog == NoDialog || state.HubPicking) && state.Paint[screen]) {
        state.Paint[screen](ListWindow, PaintAll);
        if (screen == AccountList || screen == RecurringList)
            RecHLon(state.SelectedPos[screen], 1);
    }
    RepeatHelp();
}

} // namespace

void WndProc(const Event &event) {
    if (HandlePageEvent(event))
        return;
    HearAnswer(event);
    if (HearSearch(event) || HubHears(event) || (state.HubState != LargeHub && HandlePaletteEvent(event)))
        return;
    if (state.ActiveDialog == PassCodeDialog && HandlePassCodeEvent(event))
        return;
    const bool forForm = !HubCoversForm() || event.Kind == EventKind::Control;
    if (state.OpenedForm && forForm && HandleFormEvent(event))
        return;
    switch (event.Kind) {
    case EventKind::PointerDown:
        DoButtonDown(event.Where, event.X, event.Y);
        return;
    case EventKind::PointerMove:
        DoMouseMove(event.Where, event.X, event.Y);
        return;
    case EventKind::PointerUp:
        DoButtonUp(event.Where, event.X, event.Y);
        return;
    case EventKind::DoubleTap:
        DoDoubleTap(event.Where, event.X, event.Y);
        return;
    case EventKind::Key:
        DoKeyDown(static_cast<Key>(event.Code));
        return;
    case EventKind::Command:
        DoCommand(event.Code);
        return;
    case EventKind::Control:
    case EventKind::Character:
        return;
    case EventKind::Scroll:
        DoScroll(static_cast<ScrollCode>(event.Code), event.Position);
        return;
    case EventKind::Paint:
        DoPaint();
        return;
    case EventKind::Close:
        DoCommand(CommandClose);
        return;
    }
}
