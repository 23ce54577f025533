// The search by what is typed: each letter narrows the selection to the next row that holds all the words. It reads the
// list as it is shown, and writes nothing.
#include "input/search.h"
#include "drawing/geometry.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "screens/list_screen.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/lists.h"
#include "store/windows.h"
#include "values/amounts.h"
#include <algorithm>

namespace {

constexpr int TitleRoom = 64, AmountRoom = 32;
constexpr char16_t FindWord[] = u"Find: ", NoneWord[] = u"  (none)";

// What of a row is searched. A text that a list does not have is empty.
struct RowWords {
    const char16_t *Title, *Reference;
    FixedAmount Amounts[2];
    int AmountCount;
};

// The row that the words are read from, as long as the words are.
union AnyRow {
    ARec Account;
    TRec Transaction;
    DDRec Recurring;
    FRec Template;
    BinRec Bin;
    CatRec Category;
    CurRec Conversion;
};

RowWords WordsOf(int list, const RecordBuffer &record, AnyRow *row) {
    switch (list) {
    case AccountList:
        UnpackRow(record, &row->Account);
        return {row->Account.Name, u"", {row->Account.Balance, row->Account.ArcBalance}, 2};
    case TransactionList: {
        TRec &entry = row->Transaction;
        UnpackRow(record, &entry);
        const FixedAmount value = entry.Cash == 1 ? entry.CashAmount : entry.Value;
        return {entry.Name, entry.Memo, {value, TimesUnits(entry.Units, value)}, 2};
    }
    case RecurringList: {
        UnpackRow(record, &row->Recurring);
        const DDBlock &block = row->Recurring.Block[row->Recurring.FirstDone ? 1 : 0];
        return {row->Recurring.Name, block.Memo, {block.Value, TimesUnits(block.Units, block.Value)}, 2};
    }
    case TemplateList: {
        FRec &made = row->Template;
        UnpackRow(record, &made);
        return {made.Name, made.Memo, {made.Value, TimesUnits(made.Units, made.Value)}, 2};
    }
    case BinList: {
        BinRec &binned = row->Bin;
        UnpackRow(record, &binned);
        return {binned.Name, binned.Memo, {binned.Value, TimesUnits(binned.Units, binned.Value)}, 2};
    }
    case CategoryList:
        UnpackRow(record, &row->Category);
        return {row->Category.Name, row->Category.Description, {}, 0};
    case ConversionList: {
        CurRec &rates = row->Conversion;
        UnpackRow(record, &rates);
        return {rates.FromName, rates.ToName, {rates.Rate, rates.InverseRate}, 2};
    }
    default:
        return {u"", u"", {}, 0};
    }
}

// Small and capital letters of Latin, Greek and Cyrillic are one.
char16_t Folded(char16_t unit) {
    if ((unit >= u'A' && unit <= u'Z') || (unit >= 0xC0 && unit <= 0xDE && unit != 0xD7) ||
        (unit >= 0x391 && unit <= 0x3A9) || (unit >= 0x410 && unit <= 0x42F))
        return static_cast<char16_t>(unit + 32);
    if (unit >= 0x400 && unit <= 0x40F)
        return static_cast<char16_t>(unit + 80);
    if (unit >= 0x100 && unit <= 0x17F && unit != 0x131 && unit != 0x138) {
        const bool oddIsSmall = (unit < 0x139 || unit > 0x148) && unit < 0x179;
        return static_cast<char16_t>(oddIsSmall ? unit | 1 : unit + (unit & 1));
    }
    return unit;
}

bool Holds(const char16_t *text, int room, const char16_t *word, int length) {
    const char16_t *const end = std::find(text, text + room, u'\0');
    return std::search(text, end, word, word + length, [](char16_t a, char16_t b) { return Folded(a) == Folded(b); }) !=
           end;
}

bool HoldsWord(const RowWords &row, const char16_t *word, int length) {
    if (Holds(row.Title, TextLength(row.Title), word, length) ||
        Holds(row.Reference, TextLength(row.Reference), word, length))
        return true;
    for (int i = 0; i < row.AmountCount; ++i) {
        char16_t amount[AmountRoom];
        WriteAmount(amount, AmountRoom, row.Amounts[i], FractionPart(row.Amounts[i]) % 10 ? 3 : 2);
        if (Holds(amount, TextLength(amount), word, length))
            return true;
    }
    return false;
}

// Every word, in any order and anywhere in the row.
bool HoldsAllWords(const RowWords &row) {
    for (const char16_t *at = state.SearchText; *at;) {
        const char16_t *end = at;
        while (*end && *end != u' ')
            ++end;
        if (end > at && !HoldsWord(row, at, static_cast<int>(end - at)))
            return false;
        at = *end ? end + 1 : end;
    }
    return true;
}

// The first row from a position on, round the end, that holds the words; 0 for none.
int32_t FindRow(int32_t from) {
    const Place place = PlaceShown();
    const int list = state.CurrentScreen; // never the graph
    const FileKind kind = FactsOfList(list)->Kind;
    const int32_t count = state.EntryCount[list];
    const int file = OpenPlace(place, OpenExisting);
    int32_t found = 0;
    for (int32_t looked = 0; file >= 0 && looked < count && !found; ++looked) {
        const int32_t position = (from - 1 + looked) % count + 1;
        RecordBuffer record;
        AnyRow row = {};
        if (ReadRecord(file, kind, position, record.Bytes) && HoldsAllWords(WordsOf(list, record, &row)))
            found = position;
    }
    CloseFile(file);
    return found;
}

void ShowWords(bool found) {
    char16_t title[TitleRoom] = u"";
    AppendText(title, TitleRoom, FindWord);
    AppendText(title, TitleRoom, state.SearchText);
    if (!found)
        AppendText(title, TitleRoom, NoneWord);
    TitleDevice(title);
}

void ShowFound(int32_t position) {
    const int screen = state.CurrentScreen;
    if (position == state.SelectedPos[screen] && RowShows(RowOfPosition(position)))
        return;
    SelectRow(position);
    if (RowShows(RowOfPosition(position)))
        return;
    LoadShownRows(SetRecPosition(position, state.EntryCount[screen]));
    state.Paint[screen](ListWindow, PaintCounts | PaintRows);
}

void Search(int32_t from) {
    const int32_t count = state.EntryCount[state.CurrentScreen];
    const int32_t found = state.SearchText[0] ? FindRow(from < 1 || from > count ? 1 : from) : 0;
    if (found)
        ShowFound(found);
    else if (state.SearchText[0])
        Beep();
    ShowWords(found || !state.SearchText[0]);
}

void EndSearch() {
    state.SearchOn = 0;
    TitleDevice(nullptr);
}

// To the row that was selected when the search began.
void GoBack() {
    const int screen = state.CurrentScreen;
    EndSearch();
    SelectRow(state.SearchStart);
    LoadShownRows(state.SearchTop);
    state.Paint[screen](ListWindow, PaintCounts | PaintRows);
}

void AddCharacter(char16_t unit) {
    const int length = TextLength(state.SearchText);
    if (length + 1 >= SearchRoom) {
        Beep();
        return;
    }
    state.SearchText[length] = unit;
    state.SearchText[length + 1] = 0;
    Search(state.SearchStart);
}

void EraseCharacter() {
    if (const int length = TextLength(state.SearchText); length > 0)
        state.SearchText[length - 1] = 0;
    Search(state.SearchStart);
}

// 1 when the key belongs to the search.
int HearKey(Key key) {
    if (key >= Key::Digit0 && key <= Key::Digit9) {
        AddCharacter(static_cast<char16_t>(u'0' + static_cast<int>(key) - static_cast<int>(Key::Digit0)));
        return 1;
    }
    switch (key) {
    case Key::Stroke:
        AddCharacter(u' ');
        return 1;
    case Key::Backspace:
        EraseCharacter();
        return 1;
    case Key::Clear:
        state.SearchText[0] = 0;
        Search(state.SearchStart);
        return 1;
    case Key::Enter:
    case Key::Find:
        Search(state.SelectedPos[state.CurrentScreen] + 1);
        return 1;
    case Key::Escape:
        GoBack();
        return 1;
    default:
        EndSearch();
        return 0;
    }
}

} // namespace

void BeginSearch() {
    const int screen = state.CurrentScreen;
    if (screen == GraphList || state.ActiveDialog != NoDialog || !state.FrontPageDone || !state.DataUsable ||
        state.EntryCount[screen] < 1) {
        Beep();
        return;
    }
    state.SearchOn = 1;
    state.SearchText[0] = 0;
    state.SearchStart = state.SelectedPos[screen];
    state.SearchTop = state.TopPos[screen];
    ShowWords(true);
}

int HearSearch(const Event &event) {
    if (!state.SearchOn)
        return 0;
    switch (event.Kind) {
    case EventKind::Character:
        AddCharacter(static_cast<char16_t>(event.Code));
        return 1;
    case EventKind::Key:
        return HearKey(static_cast<Key>(event.Code));
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
    case EventKind::Command:
    case EventKind::Close:
        EndSearch();
        return 0;
    default:
        return 0;
    }
}
