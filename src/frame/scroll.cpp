#include "frame/scroll.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "platform/shell.h"
#include "state/state.h"
#include <algorithm>

namespace {

Rect PlaceOfBar() {
    return {RightEdge, 0, ScreenWidth, state.RowCount * RowHeight + 1};
}

} // namespace

void ShowListScrollBar(int on) {
    if (state.ScrollBarShown == on)
        return;
    state.ScrollBarShown = on;
    if (on) // nothing of a plot stays under it
        FillRect(ListWindow, PlaceOfBar(), White);
    ShowScrollBar(on);
}

void PlaceListScrollBar() {
    PlaceScrollBar(PlaceOfBar());
}

void PassOverRepaint() {
    state.RepaintSkip = std::max(state.RepaintSkip, 1);
}

void SetScrollBarThumb(int top, int count) {
    const bool graphAboveMessages = state.CurrentScreen == GraphList && state.MessageWindowOn;
    const int rows = state.RowCount - (graphAboveMessages ? 1 : 0);
    SetScrollBar(1, std::max(1, count - rows + 1), rows, top);
}
