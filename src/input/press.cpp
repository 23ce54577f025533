#include "input/press.h"
#include "drawing/geometry.h"
#include "frame/command_bar.h"
#include "frame/form_hints.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "frame/tabs.h"
#include "screens/list_screen.h"
#include "screens/opening.h"
#include "screens/screens.h"
#include "screens/switching.h"
#include "state/error_log.h"
#include "state/greys.h"

namespace {

// --- The tab strip

constexpr int StripReach = 19; // pixels of the strip that answer a tap
constexpr int SlotLeft = 3;
constexpr int PageButtonPlace = -13;

void TurnTabPage() {
    state.TabPage = !state.TabPage;
    ShowHelp(state.TabPage ? Help::SecondaryTabs : Help::MainTabs);
    DrawTabs();
}

// --- The header

void ExplainSelectedNumber() {
    ShowHelp(Help::SelectedNumber);
}

void ExplainEntryCount() {
    ShowHelp(Help::EntryCount);
}

void StepByArrow(int forward) {
    static constexpr HelpChoice Arrows = {Help::AccountArrows, Help::ArchiveArrows, InArchiveView};
    if (state.CurrentScreen == AccountList) {
        StepAccount(forward);
        doAccounts(ListWindow, PaintCounts | PaintArrows | PaintTitle | PaintRows);
    } else if (forward) {
        DoRightArrow();
    } else {
        DoLeftArrow();
    }
    ShowChoice(Arrows);
}

void StepBack() {
    StepByArrow(0);
}

void StepForward() {
    StepByArrow(1);
}

void SwitchArchiveView() {
    state.ArchiveView = !state.ArchiveView;
    ShowHelp(state.ArchiveView ? Help::ArchiveView : Help::AccountView);
    const int screen = state.CurrentScreen;
    state.ReconcileState = ReconcileStep::Idle;
    LoadCurrentAccount();
    if (state.CurAccount.RowKind != HeadingRow && state.CurAccount.ID > 0) {
        LoadTranFile(state.SelectedPos[AccountList], 0);
        state.SelectedPos[TransactionList] = state.EntryCount[TransactionList];
        if (screen == AccountList) // the marker of a new day may have moved, and brought its totals
            ReloadList(AccountList, state.TopPos[AccountList]);
    } else {
        state.TranFileShown = 0; // the rows in memory are of the other view
    }
    SetGreys(screen);
    state.Paint[screen](ListWindow, PaintCounts | PaintArrows | PaintTitle | PaintRows);
}

struct HeaderSpot {
    int Left, Right; // x, both included
    bool EveryList;  // also on the screens that belong to no account
    void (*Tap)();
    Hint Says;
};
// clang-format off
constexpr HeaderSpot HeaderSpots[] = {
    {  0,  29, true,  ExplainSelectedNumber, {u"The selected row", Key::None}},
    { 30,  59, false, StepBack,              {u"The account before", Key::Left}},
    { 60, 178, false, SwitchArchiveView,     {u"Account view or archive view", Key::Header}},
    {179, 210, false, StepForward,           {u"The account after", Key::Right}},
    {211, 239, true,  ExplainEntryCount,     {u"The number of rows", Key::None}},
};
// clang-format on

bool ScreenBelongsToAccount(int screen) {
    return screen >= AccountList && screen <= GraphList;
}

const HeaderSpot *HeaderSpotAt(int x) {
    for (const HeaderSpot &spot : HeaderSpots)
        if (x >= spot.Left && x <= spot.Right && (spot.EveryList || ScreenBelongsToAccount(state.CurrentScreen)))
            return &spot;
    return nullptr;
}

void TapHeader(int x) {
    if (const HeaderSpot *spot = HeaderSpotAt(x))
        spot->Tap();
}

// --- The column titles

constexpr int GrabReach = 4; // pixels on each side of an edge that grab it

// The edge under x, 0 for none. An edge at 0 belongs to a column that is not there.
int EdgeAt(const ListScreen &screen, int x) {
    for (int edge = 1; edge <= screen.Grabs; ++edge) {
        const int at = state.ColumnEdge[screen.List][edge];
        if (at > 0 && x >= at - GrabReach && x <= at + GrabReach)
            return edge;
    }
    return 0;
}

// The edge whose grips are painted at a point, 0 for none.
int GripAt(const ListScreen &screen, int x, int y) {
    const int32_t *edge = state.ColumnEdge[screen.List];
    for (int i = 1; i <= screen.Grabs && y >= GripTop && y < GripTop + GripHeight; ++i) {
        const int next = i == screen.Grabs ? ScreenWidth : edge[i + 1];
        if (x >= edge[i] - GripReach(edge[i - 1], edge[i]) && x < edge[i] + GripReach(edge[i], next))
            return i;
    }
    return 0;
}

const TitleSpot *TitleSpotAt(const ListScreen &screen, int x, int y) {
    const int32_t *edge = state.ColumnEdge[screen.List];
    for (int i = 0; i < screen.SpotCount; ++i) {
        const TitleSpot &spot = screen.Spots[i];
        if (x >= edge[spot.FromEdge] + spot.From && x <= edge[spot.ToEdge] + spot.To && y >= spot.Top)
            return &spot;
    }
    return nullptr;
}

// What a press on the titles grabs: grips go before what stands under them.
int EdgeToGrab(const ListScreen &screen, int x, int y) {
    if (const int grip = GripAt(screen, x, y))
        return grip;
    return TitleSpotAt(screen, x, y) ? 0 : EdgeAt(screen, x);
}

void GrabEdge(int screen, int edge) {
    state.ColumnGrab = edge;
    state.ColumnDragScreen = screen;
    state.ColumnRepaintGate = 1;
    ShowHelp(Help::Columns);
}

void TapTitles(const ListScreen &screen, int x, int y) {
    if (const int grabbed = EdgeToGrab(screen, x, y))
        GrabEdge(screen.List, grabbed);
    else if (const TitleSpot *spot = TitleSpotAt(screen, x, y))
        spot->Tap(x);
    else if (screen.ColumnsExplained)
        ShowHelp(Help::Columns);
}

void PressTop(const ListScreen &screen, int x, int y) {
    state.DragSource = 0;
    state.DropLineRow = 0;
    if (y < HeaderBottom + 1)
        TapHeader(x);
    else if (y < TitlesBottom)
        TapTitles(screen, x, y);
}

// --- The rows

void PressRow(const ListScreen &screen, int row) {
    const int position = state.TopPos[screen.List] + row - 1;
    SelectRow(position);
    state.DragSource = position;
    if (InList(position))
        screen.ExplainRow(position);
    else
        ShowChoice(screen.BlankHelp);
}

void TurnEyes(Window window, int x, int y) {
    if (state.MessageWindowOn)
        UpdateEyes(window, x, y);
    else
        ShowEyes(ShutEye);
}

} // namespace

int EdgeUnder(Window where, int x, int y) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    const bool titles = where == TopWindow && y > HeaderBottom && y < TitlesBottom;
    return titles && screen && state.FrontPageDone && state.ActiveDialog == NoDialog ? EdgeToGrab(*screen, x, y) : 0;
}

Hint HintOf(Window where, int x, int y) {
    // clang-format off
    static constexpr Hint Tabs[] = { // ORDER LIST
        {}, {u"Accounts", Key::Tab1}, {u"Transactions", Key::Tab2}, {u"Graphs", Key::Tab3},
        {u"Recurring items", Key::Tab4}, {u"Templates", Key::Tab5}, {u"Bin", Key::Tab6}, {u"Categories", Key::Tab7},
        {u"Conversions", Key::Tab8},
    };
    // clang-format on
    if (where == DialogWindow)
        return HintOfForm(x, y);
    if (state.ActiveDialog != NoDialog || !state.FrontPageDone)
        return {};
    if (where == TopWindow) {
        const HeaderSpot *spot = y <= HeaderBottom ? HeaderSpotAt(x) : nullptr;
        return spot ? spot->Says : EdgeUnder(where, x, y) ? Hint{u"Drag the column's edge"} : Hint{};
    }
    const int place = LinePos(where, x, y);
    if (place == PageButtonPlace)
        return {u"The other tabs"};
    return place < 0 ? Tabs[-place] : Hint{};
}

int LinePos(Window window, int x, int y) {
    if (window != ListWindow || x < 0 || x >= ScreenWidth || y < 0)
        return 0;
    const int strip = state.RowCount * RowHeight;
    if (state.HubPicking && y >= strip)
        return 0; // no tab shows
    if (y < strip)
        return state.CurrentScreen == GraphList ? 0 : y / RowHeight + 1;
    if (y <= strip || y >= strip + StripReach)
        return 0;
    const int slot = (x - SlotLeft) / TabPitch + 1;
    return slot <= SlotCount ? -TabInSlot(slot) : PageButtonPlace;
}

void ShowTabPageOf(int tab) {
    if (SlotOfTab(tab) != 0)
        return;
    state.TabPage = !state.TabPage;
    DrawTabs();
}

void TapTab(int tab) {
    const ListScreen *screen = ScreenOf(tab);
    if (!screen)
        return;
    ShowChoice(screen->TabHelp);
    EnterScreen(tab);
}

void DoButtonDown(Window window, int x, int y) {
    state.PressX = x;
    state.PressY = y;
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen) {
        ReportError(In::DoButtonDown, Trouble::CaseError);
        return;
    }
    if (state.ActiveDialog != NoDialog && !state.HubPicking)
        return;
    TurnEyes(window, x, y);
    state.DragSource = 0;
    state.PlotHeld = 0;
    if (window == TopWindow) {
        if (state.FrontPageDone)
            PressTop(*screen, x, y);
        return;
    }
    const int place = LinePos(window, x, y);
    if (place > 0)
        PressRow(*screen, place);
    else if (place == PageButtonPlace)
        TurnTabPage();
    else if (place < 0)
        TapTab(-place);
    else if (screen->PressPlot && window == ListWindow && y < state.RowCount * RowHeight) {
        state.PlotHeld = 1;
        screen->PressPlot(x, y);
    }
}

void DoDoubleTap(Window window, int x, int y) {
    if (!state.DataUsable || !state.FrontPageDone || (state.ActiveDialog != NoDialog && !state.HubPicking))
        return;
    const int place = window == TopWindow ? 0 : LinePos(ListWindow, state.PressX, state.PressY);
    // Only a row knows a double tap; anywhere else it is a second press.
    if (place < 1 || state.CurrentScreen == GraphList) {
        DoButtonDown(window, x, y);
        return;
    }
    state.DragSource = 0;
    if (state.CurrentScreen == AccountList && InList(state.SelectedPos[AccountList])) {
        ShowEnteredAccount();
        return;
    }
    DoButtonDblclk(window, EntryRow);
}
