#include "input/drag.h"
#include "drawing/geometry.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "frame/tabs.h"
#include "input/press.h"
#include "platform/action.h"
#include "platform/shell.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "store/configuration.h"
#include "store/windows.h"
#include <cstring>

namespace {

constexpr int StrokeTravel = 25; // pixels; a stroke travels further

// --- Column edges

constexpr int LeastColumn = 30;

void DragEdge(int x) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    int32_t *edge = state.ColumnEdge[state.CurrentScreen];
    const int grabbed = state.ColumnGrab;
    const int low = edge[grabbed - 1] + screen->GrabFloor, high = edge[grabbed + 1] - LeastColumn;
    edge[grabbed] = x < low ? low : x > high ? high : x;
    // Pushing on against a limit repaints nothing.
    if (state.ColumnRepaintGate)
        screen->Paint(ListWindow, PaintColumns | PaintRows);
    state.ColumnRepaintGate = edge[grabbed] != low && edge[grabbed] != high;
}

// Writes the dragged edges into the account. An edge whose stored form already gives its pixel is left as it stands, so
// that columns do not creep.
void KeepAccountEdges() {
    int32_t edge[5];
    std::memcpy(edge, state.ColumnEdge[TransactionList], sizeof edge);
    if (!LoadCurrentAccount())
        return;
    ARec account = state.CurAccount;
    for (int i = 0; i < 5; ++i) {
        const bool hidden = i == 1 && account.AccType == ListAccount;
        if (!hidden && denormalise(account.ColumnPos[i]) != edge[i])
            account.ColumnPos[i] = normalise(edge[i]);
    }
    if (ModRecFile(0, state.SelectedPos[AccountList], &account))
        LoadCurrentAccount();
}

void ReleaseEdge() {
    const int screen = state.ColumnDragScreen;
    state.ColumnDragScreen = 0;
    state.ColumnGrab = 0;
    state.ColumnRepaintGate = 1;
    if (screen == TransactionList && state.CurrentScreen == TransactionList)
        KeepAccountEdges();
    else if (screen == state.CurrentScreen)
        StoreConfFile(); // at once: nobody knows how the program will end
    ScreenOf(state.CurrentScreen)->Paint(ListWindow, PaintColumns | PaintRows | PaintTabs);
}

// --- The insertion line

bool BesideSource(int row) {
    const int position = state.TopPos[state.CurrentScreen] + row - 1;
    return position == state.DragSource || position == state.DragSource + 1;
}

void DrawLine(int oldRow, int newRow) {
    if (!InList(state.DragSource) || oldRow == newRow)
        return;
    if (state.DropLineShown) {
        // The line lies on both sides of the edge.
        PaintRowAsItIs(state.TopPos[state.CurrentScreen] + oldRow - 2);
        PaintRowAsItIs(state.TopPos[state.CurrentScreen] + oldRow - 1);
        state.DropLineShown = 0;
    }
    if (newRow >= 1 && !BesideSource(newRow)) {
        const int y = newRow == 1 ? 0 : (newRow - 1) * RowHeight - 1;
        const Point line[] = {{0, y}, {RightEdge - 1, y}};
        DrawPolyline(ListWindow, line, 2, DropLineRed, 2);
        state.DropLineShown = 1;
    }
}

void MoveLine(int place) {
    const int row = place > 0 ? place : 0;
    const bool away = state.TopPos[state.CurrentScreen] + row - 1 != state.DragSource;
    if (!state.DropLineShown && !away)
        return;
    DrawLine(state.DropLineRow, row);
    state.DropLineRow = row;
}

// --- Tabs

void CoolTab() {
    if (state.DragOverTab == 0)
        return;
    state.DragOverTab = 0;
    DrawTabs();
}

void HeatTab(const ListScreen &screen, int tab) {
    const int hot = tab > 0 && DropFor(screen, tab, state.DragSource) ? tab : 0;
    if (hot == state.DragOverTab)
        return;
    CoolTab();
    if (hot == 0)
        return;
    state.DragOverTab = hot;
    DrawTabs();
}

// --- Rows

void ReleaseOnRow(const ListScreen &screen, int row, int x) {
    const int source = state.DragSource;
    const int travel = x > state.PressX ? x - state.PressX : state.PressX - x;
    state.DropTarget = state.TopPos[screen.List] + row - 1;
    if (state.DropTarget != source)
        MoveRow(source, state.DropTarget);
    else if (travel > StrokeTravel && screen.Stroke)
        screen.Stroke(source);
}

void ReleaseRow(const ListScreen &screen, int place, int x) {
    if (place > 0)
        ReleaseOnRow(screen, place, x);
    else if (place < 0)
        DropRow(-place, state.DragSource);
}

} // namespace

void DoMouseMove(Window window, int x, int y) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || (state.ActiveDialog != NoDialog && !state.HubPicking))
        return;
    if (state.ColumnDragScreen == screen->List && state.ColumnGrab > 0) {
        if (window == TopWindow)
            DragEdge(x);
        return;
    }
    if (state.PlotHeld && screen->MovePlot) {
        if (window == ListWindow)
            screen->MovePlot(x, y);
        return;
    }
    if (state.DragSource < 1)
        return;
    const int place = LinePos(window, x, y);
    if (screen->CanReorder && screen->CanReorder())
        MoveLine(place);
    HeatTab(*screen, place < 0 ? -place : 0);
}

void DoButtonUp(Window window, int x, int y) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || (state.ActiveDialog != NoDialog && !state.HubPicking))
        return;
    CoolTab();
    if (state.PlotHeld && screen->ReleasePlot)
        screen->ReleasePlot(x, y);
    state.PlotHeld = 0;
    if (state.ColumnDragScreen != 0)
        ReleaseEdge();
    if (state.DropLineShown)
        DrawLine(state.DropLineRow, 0);
    state.DropLineRow = 0;
    if (state.DragSource > 0)
        ReleaseRow(*screen, LinePos(window, x, y), x);
    state.DragSource = 0;
}
