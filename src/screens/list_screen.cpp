// What all screens do alike, each by its row of data: paint, load, select.
#include "screens/list_screen.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "frame/tabs.h"
#include "platform/painting.h"
#include "resources/geometry.h"
#include "screens/hub_face.h"
#include "screens/rows.h"
#include "store/windows.h"

namespace {

// ORDER LIST
// clang-format off
constexpr const ListScreen *Screens[] = {
    nullptr,
    &AccountScreen,
    &TransactionScreen,
    &GraphScreen,
    &RecurringScreen,
    &TemplateScreen,
    &BinScreen,
    &CategoryScreen,
    &ConversionScreen,
};
// clang-format on
static_assert(sizeof(Screens) / sizeof(Screens[0]) == ScreenCount + 1);

// Lines between the columns, in the flat mode.
void PaintSeparators(Window window) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    DrawSeparators(window, &state.ColumnEdge[screen->List][1], screen->Grabs, screen->List);
}

void PaintListRows(const ListScreen &screen, Window window) {
    const int top = state.TopPos[screen.List];
    for (int position = top; position < top + state.RowCount; ++position)
        screen.PaintRow(window, position, InList(position) && screen.Marked(position) ? MarkedRow : PlainRow);
    state.HighlightPos = 0;
}

// No tab can be tapped while a rate is picked.
void PaintTabStrip(Window window) {
    if (state.HubPicking)
        FillRect(window, {0, TabTop(state.RowCount), ScreenWidth, TabTop(state.RowCount) + TabBand}, White);
    else
        DrawTabs();
}

} // namespace

const ListScreen *ScreenOf(int screen) {
    return screen >= AccountList && screen < ListCount ? Screens[screen] : nullptr;
}

void SetPaintProcedures() {
    state.Paint[0] = PaintMessages;
    for (const ListScreen *screen : Screens)
        if (screen)
            state.Paint[screen->List] = screen->Paint;
}

void ShowChoice(const HelpChoice &choice) {
    ShowHelp(choice.OtherHolds && choice.OtherHolds() ? choice.Other : choice.Usual);
}

bool InArchiveView() {
    return state.ArchiveView == 1;
}

void PaintListScreen(const ListScreen &screen, Window window, int mask) {
    const Painting painting;
    ShowListScrollBar(1);
    if (mask & PaintTitle)
        screen.DrawTitle();
    if (mask & PaintArrows)
        DrawHeaderArrows();
    if (mask & PaintColumns)
        screen.DrawColumns();
    if (mask & PaintRows)
        PaintListRows(screen, window);
    if (state.SelectedPos[screen.List] > 0) {
        RecHLoff();
        RecHLon(state.SelectedPos[screen.List], mask & PaintCounts);
    } else if (mask & PaintCounts) {
        UpdateCounts();
    }
    PaintSeparators(window);
    if (mask & PaintTabs)
        PaintTabStrip(window);
    SetScrollBarThumb(state.TopPos[screen.List], state.EntryCount[screen.List] + 2);
}

void RecHLon(int position, int refreshCounts) {
    const Painting painting;
    state.HighlightPos = position;
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (screen && screen->PaintRow) {
        const bool marked = InList(position) && screen->Marked(position);
        screen->PaintRow(ListWindow, position, marked ? SelectedMarkedRow : SelectedRow);
        PaintSeparators(ListWindow);
    }
    if (refreshCounts)
        UpdateCounts();
    DrawHubArrows();
}

void RecHLoff() {
    const int position = state.HighlightPos;
    if (position < 1 || (state.CurrentScreen == AccountList && state.ColumnDragScreen == AccountList))
        return;
    state.HighlightPos = 0;
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || !screen->PaintRow)
        return;
    if (state.DrawDepth != 3)
        screen->PaintRow(ListWindow, position, ErasedRow);
    screen->PaintRow(ListWindow, position, InList(position) && screen->Marked(position) ? MarkedRow : PlainRow);
}

void PaintRowAsItIs(int position) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || !screen->PaintRow)
        return;
    const bool selected = position == state.HighlightPos;
    const bool marked = InList(position) && screen->Marked(position);
    screen->PaintRow(ListWindow, position,
                     selected ? (marked ? SelectedMarkedRow : SelectedRow) : (marked ? MarkedRow : PlainRow));
}

void LoadShownRows(int32_t top) {
    ReloadList(state.CurrentScreen, top);
}

void ReloadAndPaint(int mask) {
    LoadShownRows(state.TopPos[state.CurrentScreen]);
    if (state.Paint[state.CurrentScreen])
        state.Paint[state.CurrentScreen](ListWindow, mask);
}

void SelectRow(int position) {
    const int screen = state.CurrentScreen;
    const bool other = position != state.SelectedPos[screen];
    RecHLoff();
    state.SelectedPos[screen] = position;
    RecHLon(position, 1);
    if (screen != AccountList)
        return;
    LoadCurrentAccount();
    if (other)
        state.BarZoom = 1;
}

void PaintTitles(const ColumnTitle *titles, int count, int brush, int lastBrush) {
    const int32_t *edge = state.ColumnEdge[state.CurrentScreen];
    for (int i = 0; i < count; ++i) {
        const bool last = i == count - 1;
        const int right = last ? ScreenWidth : edge[i + 1];
        if (right > edge[i])
            DrawColumnTitle(edge[i], right, state.RefColumn ? titles[i].RefText : titles[i].Text,
                            last ? lastBrush : brush);
    }
}

void ToggleRefColumn(int) {
    state.RefColumn = !state.RefColumn;
    const bool filtered = state.CurrentScreen == TransactionList && state.FilterShown;
    ShowHelp(state.RefColumn ? Help::ReferencesShown : Help::TitlesShown,
             filtered ? AddedLine::Filtered : AddedLine::None);
    state.Paint[state.CurrentScreen](ListWindow, PaintColumns | PaintRows);
}
