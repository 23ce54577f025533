// spoken.h: what stands on the screen, read from where the painters and the stylus find it.
#include "platform/spoken.h"
#include "analysis/graph_value.h"
#include "drawing/cells.h"
#include "drawing/geometry.h"
#include "drawing/saying.h"
#include "forms/palette_spoken.h"
#include "forms/pass_code_spoken.h"
#include "frame/form_spoken.h"
#include "frame/message_window.h"
#include "frame/tabs.h"
#include "platform/text.h"
#include "resources/version.h"
#include "screens/front_page.h"
#include "screens/graph_spoken.h"
#include "screens/hub_spoken.h"
#include "screens/list_screen.h"
#include "screens/movie.h"

namespace {

// --- The front page

void ListPage(SpotList *list) {
    AddSpot(list, SpotKind::Heading, HostWindow, NameBox, u"Zentrik");
    Spot &version = AddSpot(list, SpotKind::Text, HostWindow, VersionBox, u"Version ");
    AppendAscii(version.Name, SpotNameRoom, ProgramVersion);
    Spot &tracker = AddSpot(list, SpotKind::Slider, HostWindow, TrackerBox, u"Speed of the movie");
    tracker.Value = state.MovieSpeed;
    tracker.Most = FastestMovie;
    tracker.Step = MovieSpeedStep;
    tracker.Focused = true;
}

// --- A list

// ORDER LIST: names of the tabs, and what a marked row of the list is
struct ListWords {
    const char16_t *Tab, *Marked;
};
constexpr ListWords Words[ScreenCount + 1] = {
    {u"", u""},           {u"Accounts", u"total"},    {u"Transactions", u"reconciled"},
    {u"Graph", u""},      {u"Recurring", u"expired"}, {u"Templates", u"reconciled"},
    {u"Bin", u"expired"}, {u"Categories", u"marked"}, {u"Conversions", u"marked"},
};

void ListHeader(SpotList *list, int screen) {
    AddSpot(list, SpotKind::Heading, TopWindow, TitleBox, state.HeaderShown);
    SayCount(&AddSpot(list, SpotKind::Text, TopWindow, LeftCountBox, u"Selected "), state.SelectedPos[screen]);
    Spot &count = AddSpot(list, SpotKind::Text, TopWindow, RightCountBox, u"");
    SayCount(&count, state.EntryCount[screen]);
    SayWords(&count, screen == GraphList && ChartShown() ? u" segments" : u" entries");
    AddSpot(list, SpotKind::Button, TopWindow, UpArrowBox, u"Account before");
    AddSpot(list, SpotKind::Button, TopWindow, DownArrowBox, u"Account after");
    if (screen == GraphList)
        ListGraphIcons(list);
    for (int from = 0; from < ScreenWidth;) { // by place, whatever order they were painted in
        const TitleWords *next = nullptr;
        for (const TitleWords &title : state.TitlesShown)
            if (title.Right > title.Left && title.Left >= from && (!next || title.Left < next->Left))
                next = &title;
        if (!next)
            break;
        if (next->Text[0])
            AddSpot(list, SpotKind::ColumnTitle, TopWindow, {next->Left, HeaderBottom, next->Right, TitlesBottom},
                    next->Text);
        from = next->Right;
    }
}

void ListRow(SpotList *list, const ListScreen &screen, int position) {
    const int row = RowOfPosition(position);
    Spot &spot = AddSpot(list, SpotKind::Row, ListWindow, {0, RowTop(row), RightEdge, RowTop(row) + RowHeight}, u"");
    spot.Selectable = true;
    spot.Selected = spot.Focused = position == state.HighlightPos;
    if (!InList(position)) {
        CopyText(spot.Name, SpotNameRoom, u"blank row");
        return;
    }
    StartListening(spot.Name, SpotNameRoom);
    screen.PaintRow(NoWindow, position, PlainRow);
    StopListening();
    if (screen.Marked(position))
        SayMore(&spot, Words[screen.List].Marked);
}

void ListRows(SpotList *list, const ListScreen &screen) {
    const int top = state.TopPos[screen.List];
    for (int position = top; position < top + state.RowCount; ++position)
        ListRow(list, screen, position);
}

void ListTabs(SpotList *list, int screen) {
    constexpr int TabWidth = 37, TabHeight = 26, PageLeft = 226;
    const int top = TabTop(state.RowCount);
    for (int slot = 1; slot <= SlotCount; ++slot) {
        const int tab = TabInSlot(slot), left = (slot - 1) * TabPitch + 2;
        if (tab == 0)
            continue;
        Spot &spot =
            AddSpot(list, SpotKind::Tab, ListWindow, {left, top, left + TabWidth, top + TabHeight}, Words[tab].Tab);
        spot.Selectable = true;
        spot.Selected = tab == screen;
    }
    AddSpot(list, SpotKind::Button, ListWindow, {PageLeft, top, ScreenWidth, top + TabHeight},
            state.TabPage ? u"Main tabs" : u"Other tabs");
}

void ListScreenSpots(SpotList *list) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || !state.FrontPageDone)
        return;
    ListHeader(list, screen->List);
    if (screen->List == GraphList)
        ListGraphSpots(list);
    else
        ListRows(list, *screen);
    if (!state.HubPicking) // then no tab shows
        ListTabs(list, screen->List);
}

// The calculator covers the whole screen, the view of the conversions a form.
void ListWhatTheHubLeaves(SpotList *list) {
    if (state.ActiveDialog == PaletteDialog)
        ListPaletteSpots(list);
    else if (state.ActiveDialog == PassCodeDialog)
        ListPassCodeSpots(list);
    else if (state.OpenedForm && !state.HubPicking)
        ListFormSpots(list);
    else if (state.ActiveDialog == NoDialog || state.HubPicking)
        ListScreenSpots(list);
}

} // namespace

int ListSpots(Spot *to, int room) {
    SpotList list = {to, room};
    if (state.PageShown != Page::None)
        ListPage(&list);
    else if (state.HubState != LargeHub)
        ListWhatTheHubLeaves(&list);
    ListHubSpots(&list);
    return list.Count + ListMessages(to + list.Count, room - list.Count);
}
