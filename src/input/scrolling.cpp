#include "input/scrolling.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "screens/list_screen.h"
#include "state/messages.h"

namespace {

// The last top: two blank rows show behind the last entry.
int32_t LowestTop() {
    const int32_t top = state.EntryCount[state.CurrentScreen] - state.RowCount + 3;
    return top < 1 ? 1 : top;
}

int32_t TopAfter(ScrollCode code, int position) {
    const int32_t top = state.TopPos[state.CurrentScreen], limit = LowestTop(), page = state.RowCount - 1;
    switch (code) {
    case ScrollCode::LineUp:
        return top - 1;
    case ScrollCode::LineDown:
        return top < limit ? top + 1 : top;
    case ScrollCode::PageUp:
        return top - page;
    case ScrollCode::PageDown:
        return top + page < limit ? top + page : top > limit ? top : limit;
    case ScrollCode::ThumbTrack:
        return position < limit ? position : limit;
    case ScrollCode::Top:
        return 1;
    case ScrollCode::Bottom:
        return limit;
    }
    return top;
}

} // namespace

void DoScroll(ScrollCode code, int position) {
    const int screen = state.CurrentScreen;
    if (state.ActiveDialog != NoDialog || screen == GraphList)
        return;
    ShowHelp(Help::ScrollBar);
    ShowEyes(OpenEye);
    int32_t top = TopAfter(code, position);
    if (top < 1)
        top = 1;
    if (top == state.TopPos[screen])
        return;
    LoadShownRows(top);
    state.Paint[screen](ListWindow, PaintRows);
}
