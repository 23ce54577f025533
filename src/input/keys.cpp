#include "input/keys.h"
#include "drawing/geometry.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "input/press.h"
#include "input/search.h"
#include "input/undo.h"
#include "input/wndproc.h"
#include "platform/shell.h"
#include "resources/menus.h"
#include "screens/graph_frame.h"
#include "screens/graph_gestures.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/opening.h"
#include "screens/switching.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

// --- Up and Down on a list

void ShowListHelp() {
    ShowHelp(Help::UpAndDownKeys);
}

bool SelectionShows() {
    return RowShows(RowOfPosition(state.SelectedPos[state.CurrentScreen]));
}

void ShowWindowFrom(int32_t top) {
    LoadShownRows(top);
    state.Paint[state.CurrentScreen](ListWindow, PaintCounts | PaintRows);
}

void CentreOnSelection() {
    const int screen = state.CurrentScreen;
    ShowWindowFrom(SetRecPosition(state.SelectedPos[screen], state.EntryCount[screen]));
}

void SelectAbove() {
    const int screen = state.CurrentScreen;
    const int32_t selected = state.SelectedPos[screen];
    ShowListHelp();
    if (selected < 2)
        return;
    if (!SelectionShows()) {
        CentreOnSelection();
        return;
    }
    if (RowOfPosition(selected) > 1) {
        SelectRow(selected - 1);
        return;
    }
    SelectRow(selected - 1);
    CentreOnSelection();
}

void SelectBelow() {
    const int screen = state.CurrentScreen;
    const int32_t count = state.EntryCount[screen];
    const int32_t limit = count + 1; // the row of a new entry
    int32_t *selected = &state.SelectedPos[screen];
    ShowListHelp();
    if (*selected >= limit)
        return;
    if (*selected == 0) {
        const bool first = screen != AccountList && screen != TransactionList && screen != CategoryList;
        *selected = first || count < 1 ? 1 : count;
        ShowWindowFrom(first ? 1 : 0);
        return;
    }
    if (!SelectionShows()) {
        CentreOnSelection();
        return;
    }
    const bool lastRow = RowOfPosition(*selected) == state.RowCount;
    SelectRow(*selected + 1);
    if (lastRow)
        ShowWindowFrom(state.TopPos[screen] + 1);
}

void MoveSelection(Key key) {
    if (state.CurrentScreen == GraphList)
        return;
    if (key == Key::Up)
        SelectAbove();
    else
        SelectBelow();
}

// --- The other keys

void StepByKey(Key key) {
    static constexpr HelpChoice Steps = {Help::AccountKeys, Help::ArchiveKeys, InArchiveView};
    if (key == Key::Right)
        DoRightArrow();
    else
        DoLeftArrow();
    if (state.CurrentScreen <= GraphList)
        ShowChoice(Steps);
}

void OpenSelected(Key) {
    if (state.CurrentScreen == AccountList && InList(state.SelectedPos[AccountList]))
        ShowEnteredAccount();
    else if (state.CurrentScreen != GraphList)
        DoButtonDblclk(ListWindow, EntryRow);
}

void ShowTab(Key key) {
    const int tab = static_cast<int>(key) - static_cast<int>(Key::Tab1) + 1;
    ShowTabPageOf(tab);
    TapTab(tab);
}

// As if the stylus went across the selected row.
void StrokeSelected(Key) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    const int32_t selected = state.SelectedPos[state.CurrentScreen];
    if (!screen || !screen->Stroke || selected < 1)
        return;
    if (!SelectionShows()) // nobody acts on what he does not see: it comes into view, and the next press acts
        CentreOnSelection();
    else
        screen->Stroke(selected);
}

void FindByTyping(Key) {
    BeginSearch();
}

void DeleteSelected(Key) {
    const int screen = state.CurrentScreen;
    if (screen != GraphList && InList(state.SelectedPos[screen]) && !SelectionShows())
        CentreOnSelection();
    else
        WndProc({.Kind = EventKind::Command, .Code = CommandDeleteOne});
}

// As if the stylus dragged the selected row to a tab, or over the row before or behind it.
void DropSelected(Key key) {
    const int tab = static_cast<int>(key) - static_cast<int>(Key::Drop1) + 1;
    if (tab == BinList && state.CurrentScreen == BinList)
        DeleteSelected(key); // for good
    else
        DropRow(tab, state.SelectedPos[state.CurrentScreen]);
}

void MoveSelected(Key key) {
    const int32_t selected = state.SelectedPos[state.CurrentScreen];
    MoveRow(selected, key == Key::RowUp ? selected - 1 : selected + 2);
}

// As if the stylus tapped the middle of a column's title. A column without a width is not there.
void TapTitle(Key key) {
    constexpr int TitleY = (HeaderBottom + TitlesBottom) / 2;
    const int column = static_cast<int>(key) - static_cast<int>(Key::Title1) + 1;
    const int32_t *edge = state.ColumnEdge[state.CurrentScreen];
    if (state.CurrentScreen == GraphList)
        DoButtonDown(TopWindow, TitleKeyX(column), TitleY);
    else if (edge[column] > edge[column - 1])
        DoButtonDown(TopWindow, (edge[column - 1] + edge[column]) / 2, TitleY);
}

void TapHeaderByKey(Key) {
    DoButtonDown(TopWindow, (TitleBox.Left + TitleBox.Right) / 2, HeaderBottom / 2);
}

// The cross quits when there is nothing left to close; the key never does. (A form hears the key itself.)
void LeaveByKey(Key) {
    if (state.HubState != 0 || state.HelpMode)
        WndProc({.Kind = EventKind::Command, .Code = CommandCross});
}

void TakeBack(Key key) {
    TakeActionBack(key == Key::Redo);
}

struct KeyAction {
    Key First, Last;
    void (*Do)(Key key);
    int Command; // when there is no action of its own
};
// clang-format off
constexpr KeyAction KeyActions[] = {
    {Key::Up,     Key::Down,    MoveSelection,  0},
    {Key::Left,   Key::Right,   StepByKey,      0},
    {Key::Enter,  Key::Enter,   OpenSelected,   0},
    {Key::Tab1,   Key::Tab8,    ShowTab,        0},
    {Key::Stroke, Key::Stroke,  StrokeSelected, 0},
    {Key::Drop1,  Key::Drop8,   DropSelected,   0},
    {Key::RowUp,  Key::RowDown, MoveSelected,   0},
    {Key::Title1, Key::Title4,  TapTitle,       0},
    {Key::Header, Key::Header,  TapHeaderByKey, 0},
    {Key::Escape, Key::Escape,  LeaveByKey,     0},
    {Key::Help,   Key::Help,    nullptr,        CommandLeftEye},
    {Key::Delete, Key::Delete,  DeleteSelected, 0},
    {Key::Find,   Key::Find,    FindByTyping,   0},
    {Key::New,    Key::New,     nullptr,        CommandNew},
    {Key::Modify, Key::Modify,  nullptr,        CommandModify},
    {Key::Tick,   Key::Tick,    nullptr,        CommandTick},
    {Key::HubButton, Key::HubButton, nullptr,   CommandHub},
    {Key::Undo,   Key::Redo,    TakeBack,       0},
    {Key::TickAndNext, Key::TickAndNext, nullptr, CommandTick},
};
// clang-format on

} // namespace

void DoKeyDown(Key key) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (state.ActiveDialog == NoDialog && screen && screen->PlotKey && screen->PlotKey(key))
        return;
    for (const KeyAction &row : KeyActions) {
        if (key < row.First || key > row.Last)
            continue;
        if (row.Do)
            row.Do(key);
        else
            WndProc({.Kind = EventKind::Command, .Code = row.Command});
        return;
    }
}
