// Screen 4: the recurring items of all accounts.
#include "ledger/recurring.h"
#include "frame/header.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "store/index.h"

namespace {

// --- Rows

const DDRec &RowAt(int position) {
    return state.DDRows[RowOfPosition(position)];
}

FixedAmount ShownValue(const DDBlock &block) {
    return TimesUnits(block.Units, block.Value);
}

bool Expired(const DDRec &row) {
    return row.Remaining < 1;
}

bool Marked(int position) {
    return RowShows(RowOfPosition(position)) && Expired(RowAt(position));
}

void Explain(int position) {
    const DDRec &row = RowAt(position);
    const FixedAmount value = ShownValue(row.Block[BlockInForce(row)]);
    AddedLine alert = AddedLine::None;
    if (WholeMagnitude(value) > LargestShown)
        alert = AddedLine::ValueTooBig;
    else if (row.ItemStatus & GeneratesMany)
        alert = AddedLine::ManyEntries;
    else if (row.ItemStatus & MissingAccount)
        alert = AddedLine::AccountMissing;
    ShowHelp(Expired(row) ? Help::ExpiredItem : Help::RecurringItem, alert);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(u"Recurring Items");
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {
        {u"Date", u"Date"}, {u"Name", u"Ref"}, {u"Account", u"Account"}, {u"Value", u"Value"}};
    PaintTitles(Titles, 4, TitleBrush, TitleBrush);
}

// --- Drops

void Changed() {
    DDFileCheck();
}

bool NotInOrder() {
    return !state.RecurringInOrder;
}

constexpr TitleSpot Spots[] = {{1, 8, 2, -8, 16, ToggleRefColumn}};
constexpr TabDrop Drops[] = {{BinList, AcceptInBin, BinRow}};

} // namespace

void UpdateDDRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, LavenderBrush))
        return;
    const DDRec &row = state.DDRows[strip.Index];
    const int32_t *e = state.ColumnEdge[RecurringList];
    const int mark = IsMarked(mode) ? ExpiredBrush : LavenderBrush;
    KeepingCell(strip, 1, e[1] - 3, mark);
    KeepingCell(strip, e[1] + 1, e[2] - 1, mark);
    TurningCell(strip, e[2], e[3] - 1, LavenderBrush, PressedLavender);
    TurningCell(strip, e[3], 225, LavenderBrush, PressedLavender);
    if (strip.Past)
        return;
    const DDBlock &block = row.Block[BlockInForce(row)];
    PaintFlag(window, block.Flag, e[1], strip.Place.Top);
    const bool many = row.ItemStatus & GeneratesMany, lost = row.ItemStatus & MissingAccount;
    PaintDate(window, row.NextDate, strip.Place.Top, e[1] - 4, many ? AlertRed : Black,
              many ? Font::Bold : Font::Normal);
    RowText(strip, e[1] + 3, e[2] - 2, state.RefColumn ? block.Memo : row.Name);
    RowText(strip, e[2] + 2, e[3] - 2, state.DDAccountNames[strip.Index], Align::Left, lost ? Font::Bold : Font::Normal,
            lost ? AlertRed : Black);
    RowAmount(strip, e[3] + 1, RightEdge - 2, ShownValue(block));
}

void doDDs(Window window, int mask) {
    PaintListScreen(RecurringScreen, window, mask);
}

// clang-format off
const ListScreen RecurringScreen = {
    .List = RecurringList,
    .Paint = doDDs,
    .TabHelp = {Help::RecurringTab, Help::UntidyRecurringTab, NotInOrder},
    .Arrives = Arrival::KeepTop,
    .Selection = RowChosen::FirstWhenNone,
    .NeedsAccount = true,
    .PostsDues = true,
    .ChecksTotals = false,
    .PaintRow = UpdateDDRec,
    .Marked = Marked,
    .BlankHelp = {Help::BlankEntry},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 1,
    .Grabs = 3,
    .GrabFloor = 30,
    .ColumnsExplained = true,
    .PressPlot = nullptr,
    .Stroke = nullptr,
    .CanReorder = nullptr,
    .Changed = Changed,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
