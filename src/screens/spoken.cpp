// spoken.h: what stands on the screen, read from where the painters and the stylus find it.
#include "platform/spoken.h"
#include "drawing/cells.h"
#include "drawing/geometry.h"
#include "drawing/saying.h"
#include "frame/form.h"
#include "frame/message_window.h"
#include "frame/tabs.h"
#include "platform/text.h"
#include "resources/version.h"
#include "screens/front_page.h"
#include "screens/list_screen.h"

namespace {

struct SpotList {
    Spot *To;
    int Room, Count = 0;
};

// The spot after the last, nameless; null when there is no room.
Spot *Add(SpotList *list, SpotKind kind, Window where, const Rect &box, const char16_t *name) {
    if (list->Count == list->Room)
        return nullptr;
    Spot *spot = &list->To[list->Count++];
    *spot = {.Kind = kind, .Where = where, .Box = box};
    CopyText(spot->Name, SpotNameRoom, name);
    return spot;
}

void AddNumber(SpotList *list, Window where, const Rect &box, const char16_t *before, int64_t number,
               const char16_t *after) {
    if (Spot *spot = Add(list, SpotKind::Text, where, box, before)) {
        AppendNumber(spot->Name, SpotNameRoom, number);
        AppendText(spot->Name, SpotNameRoom, after);
    }
}

void Join(char16_t *name, const char16_t *more) {
    if (name[0])
        AppendAscii(name, SpotNameRoom, ", ");
    AppendText(name, SpotNameRoom, more);
}

// --- The front page

void ListPage(SpotList *list) {
    char16_t version[32] = u"Version ";
    AppendAscii(version, 32, ProgramVersion);
    Add(list, SpotKind::Heading, HostWindow, NameBox, u"Zentrik");
    Add(list, SpotKind::Text, HostWindow, VersionBox, version);
    if (Spot *spot = Add(list, SpotKind::Slider, HostWindow, TrackerBox, u"Speed of the movie, "))
        AppendNumber(spot->Name, SpotNameRoom, state.MovieSpeed);
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
    Add(list, SpotKind::Heading, TopWindow, TitleBox, state.HeaderShown);
    AddNumber(list, TopWindow, LeftCountBox, u"Selected ", state.SelectedPos[screen], u"");
    AddNumber(list, TopWindow, RightCountBox, u"", state.EntryCount[screen], u" entries");
    Add(list, SpotKind::Button, TopWindow, UpArrowBox, u"Account before");
    Add(list, SpotKind::Button, TopWindow, DownArrowBox, u"Account after");
    for (int from = 0; from < ScreenWidth;) { // by place, whatever order they were painted in
        const TitleWords *next = nullptr;
        for (const TitleWords &title : state.TitlesShown)
            if (title.Right > title.Left && title.Left >= from && (!next || title.Left < next->Left))
                next = &title;
        if (!next)
            break;
        if (next->Text[0])
            Add(list, SpotKind::ColumnTitle, TopWindow, {next->Left, HeaderBottom, next->Right, TitlesBottom},
                next->Text);
        from = next->Right;
    }
}

void ListRow(SpotList *list, const ListScreen &screen, int position) {
    const int row = RowOfPosition(position);
    Spot *spot = Add(list, SpotKind::Row, ListWindow, {0, RowTop(row), RightEdge, RowTop(row) + RowHeight}, u"");
    if (!spot)
        return;
    spot->Selectable = true;
    spot->Selected = position == state.HighlightPos;
    if (!InList(position)) {
        CopyText(spot->Name, SpotNameRoom, u"blank row");
        return;
    }
    StartListening(spot->Name, SpotNameRoom);
    screen.PaintRow(NoWindow, position, PlainRow);
    StopListening();
    if (screen.Marked(position))
        Join(spot->Name, Words[screen.List].Marked);
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
        Spot *spot =
            Add(list, SpotKind::Tab, ListWindow, {left, top, left + TabWidth, top + TabHeight}, Words[tab].Tab);
        if (!spot)
            return;
        spot->Selectable = true;
        spot->Selected = tab == screen;
    }
    Add(list, SpotKind::Button, ListWindow, {PageLeft, top, ScreenWidth, top + TabHeight},
        state.TabPage ? u"Main tabs" : u"Other tabs");
}

void ListScreenSpots(SpotList *list) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (!screen || !state.FrontPageDone)
        return;
    ListHeader(list, screen->List);
    if (screen->PaintRow && !screen->PressPlot)
        ListRows(list, *screen);
    else
        Add(list, SpotKind::Graphic, ListWindow, {0, 0, RightEdge, state.RowCount * RowHeight},
            Words[screen->List].Tab);
    ListTabs(list, screen->List);
}

// --- The marks of a form

struct ItemWords {
    int Item;
    SpotKind Kind;
    const char16_t *Name;
    uint32_t State::*Word;    // what a tap flips, null for none
    const char16_t *Off, *On; // said of the word; null: it is a check
};
// clang-format off
constexpr ItemWords Items[] = {
    // item           kind              name                    word                    at 0       at 1
    {FlagItem,        SpotKind::Choice, u"Flag",                nullptr,                nullptr,   nullptr},
    {FirstSignItem,   SpotKind::Choice, u"Sign",                &State::FirstSign,      u"minus",  u"plus"},
    {SecondSignItem,  SpotKind::Choice, u"Sign",                &State::SecondSign,     u"minus",  u"plus"},
    {ClearedItem,     SpotKind::Check,  u"Reconciled",          &State::FormCleared,    nullptr,   nullptr},
    {FreeItem,        SpotKind::Check,  u"Gratis",              &State::FormNoCash,     nullptr,   nullptr},
    {DuplicateItem,   SpotKind::Check,  u"Duplicate",           &State::DuplicateOn,    nullptr,   nullptr},
    {ViewItem,        SpotKind::Check,  u"Advanced view",       &State::ViewIsAdvanced, nullptr,   nullptr},
    {DirectionItem,   SpotKind::Check,  u"Reversed direction",  &State::Reversed,       nullptr,   nullptr},
    {UpItem,          SpotKind::Button, u"Entry before",        nullptr,                nullptr,   nullptr},
    {DownItem,        SpotKind::Button, u"Entry after",         nullptr,                nullptr,   nullptr},
    {NextItem,        SpotKind::Choice, u"Next amount",         nullptr,                nullptr,   nullptr},
    {DefaultItem,     SpotKind::Choice, u"Default amount",      nullptr,                nullptr,   nullptr},
};
// clang-format on

const char16_t *FlagWord() {
    static constexpr const char16_t *Flags[] = {u"none", u"red", u"blue", u"yellow"};
    return Flags[state.FormFlag & 3];
}

// The name of the real control right of a mark; "" for none.
const char16_t *NameBeside(const Rect &box) {
    const FormTemplate &form = *state.OpenedForm->Controls;
    const int middle = (box.Top + box.Bottom) / 2;
    const FormControl *nearest = nullptr;
    for (int i = 0; i < form.Count; ++i) {
        const FormControl &control = form.Controls[i];
        if (control.X >= box.Left && middle >= control.Y && middle < control.Y + control.Height &&
            (!nearest || control.X < nearest->X))
            nearest = &control;
    }
    return nearest ? nearest->Name : u"";
}

void ListItem(SpotList *list, const ItemWords &words, const Rect &box) {
    Spot *spot = Add(list, words.Kind, DialogWindow, box, words.Name);
    if (!spot)
        return;
    const bool on = words.Word && state.*(words.Word);
    spot->On = on && words.Kind == SpotKind::Check;
    if (words.Item == FirstSignItem || words.Item == SecondSignItem) {
        AppendAscii(spot->Name, SpotNameRoom, " of ");
        AppendText(spot->Name, SpotNameRoom, NameBeside(box));
    }
    if (words.Item == FlagItem)
        Join(spot->Name, FlagWord());
    else if (words.On)
        Join(spot->Name, on ? words.On : words.Off);
    if (words.Item == NextItem || words.Item == DefaultItem) {
        spot->Selectable = true;
        spot->Selected = (words.Item == DefaultItem) == (state.BlockIndex == 1);
    }
}

void ListPart(SpotList *list, const FormPart &part) {
    const bool painted = part.Box.Right > part.Box.Left;
    const Rect &box = part.Hit.Right > part.Hit.Left ? part.Hit : part.Box;
    for (const ItemWords &words : Items)
        if (words.Item == part.Item) {
            ListItem(list, words, box);
            return;
        }
    if (part.Item == SelectedCountItem)
        AddNumber(list, DialogWindow, box, u"Entry ", state.SelectedPos[state.CurrentScreen], u"");
    else if (part.Item == TotalItem)
        AddNumber(list, DialogWindow, box, u"of ", state.EntryCount[state.CurrentScreen], u"");
    else if (painted && part.Text && part.Text[0])
        Add(list, SpotKind::Text, DialogWindow, box, part.Text);
}

void ListForm(SpotList *list) {
    for (const FormPart &part : state.OpenedForm->Parts)
        if (!part.Present || part.Present())
            ListPart(list, part);
}

} // namespace

int ListSpots(Spot *to, int room) {
    SpotList list = {to, room};
    if (state.PageShown != Page::None) {
        ListPage(&list);
        return list.Count;
    }
    if (state.OpenedForm)
        ListForm(&list);
    else if (state.ActiveDialog == NoDialog)
        ListScreenSpots(&list);
    return list.Count + ListMessages(to + list.Count, room - list.Count);
}
