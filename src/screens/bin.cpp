// Screen 6: the bin. Its rows look as they did where they came from.
#include "ledger/bin.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/windows.h"
#include "values/amounts.h"
#include <algorithm>

namespace {

// --- Rows

const BinRec &RowAt(int position) {
    return state.BinRows[RowOfPosition(position)];
}

bool Expired(const BinRec &row) {
    return row.SourceList == RecurringList && row.Remaining < 1;
}

bool Marked(int position) {
    return RowShows(RowOfPosition(position)) && Expired(RowAt(position));
}

bool InSecondBlock(const BinRec &row) {
    return row.SourceList == RecurringList && row.FirstDone != 0;
}

bool BelongsToAccount(const BinRec &row) {
    return row.SourceList == TransactionList || row.SourceList == RecurringList;
}

// The first units of the overflow text tell a lost account from any name.
bool AccountIsLost(const char16_t *name) {
    return SameText(name, OverflowText, 6);
}

// What an entry does to the money.
FixedAmount TransactionValue(const BinRec &row) {
    if (row.Cash == 1)
        return row.Carries ? row.CashAmount : static_cast<int32_t>(row.CashAmountLow);
    const FixedAmount value = TimesUnits(row.Units, row.Value);
    if (!IsShare(row.OwnerType))
        return value;
    return row.NoCash == 1 ? 0 : NegateAmount(value);
}

FixedAmount ShownValue(const BinRec &row) {
    switch (row.SourceList) {
    case AccountList:
        return row.Totals[state.ArchiveView ? 1 : 0];
    case TransactionList:
        return TransactionValue(row);
    case RecurringList:
        return InSecondBlock(row) ? TimesUnits(row.Units2, row.Value2) : TimesUnits(row.Units, row.Value);
    case TemplateList:
        return row.Cash == 1 ? row.Value : TimesUnits(row.Units, row.Value);
    case ConversionList:
        return row.Cleared == 1 ? row.Value2 : row.Value;
    default:
        return 0;
    }
}

const char16_t *ShownTitle(const BinRec &row) {
    switch (row.SourceList) {
    case AccountList:
        return state.RefColumn ? AccountTypeName(row.OwnerType) : row.Name;
    case ConversionList:
        return state.RefColumn ? row.Memo : row.Cleared == 1 ? row.ToName : row.FromName;
    default:
        if (!state.RefColumn)
            return row.Name;
        return InSecondBlock(row) ? row.Memo2 : row.Memo;
    }
}

// Also says what a row of an unknown kind is: silver, with its name.
int BrushOf(const BinRec &row) {
    switch (row.SourceList) {
    case AccountList:
        return GoldBrush;
    case TransactionList:
        return row.Cleared == 1 ? ReconciledBrush : SilverBrush;
    case RecurringList:
        return Expired(row) ? ExpiredBrush : LavenderBrush;
    case TemplateList:
        return row.Cleared == 1 ? FlaggedBrush : GreenBrush;
    case CategoryList:
        SetCategoryBrush(Rgb(row.CashAmountLow & 0xFF, row.RunUnits & 0xFF, static_cast<int>(row.RunTotal & 0xFF)));
        return BinCategoryBrush;
    case ConversionList:
        return ConversionBrush;
    default:
        ReportError(In::UpdateBinRec, Trouble::CaseError);
        return NoFill;
    }
}

void Explain(int position) {
    const BinRec &row = RowAt(position);
    // A lost account shows the overflow text, so that is what the second line is about.
    if (BelongsToAccount(row) && AccountIsLost(state.BinOwnerNames[RowOfPosition(position)])) {
        ShowHelp(Help::BinEntryOfLostAccount);
        return;
    }
    ShowHelp(Help::BinEntry,
             WholeMagnitude(ShownValue(row)) > LargestShown ? AddedLine::ValueTooBig : AddedLine::CannotBeModified);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(u"Bin");
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {
        {u"Date", u"Date"}, {u"Name", u"Ref"}, {u"Account", u"Account"}, {u"Value", u"Value"}};
    PaintTitles(Titles, 4, TitleBrush, TitleBrush);
}

// --- Drops

template <int List> bool CameFrom(int position) {
    return InList(position) && RowShows(RowOfPosition(position)) && RowAt(position).SourceList == List;
}

void Restore(int position) {
    ClearFilters(); // the row goes into the real file
    Place where;
    const int32_t restored = MoveBin(position, &where);
    if (restored == 0)
        return;
    state.EntryCount[BinList] = CountOf(Place{BinList});
    RepairTop(BinList);
    state.SelectedPos[BinList] = std::min(position, state.EntryCount[BinList]);
    if (where.List == TransactionList) { // where it is found again
        state.ArchiveView = static_cast<uint32_t>(where.Of);
        state.SelectedPos[AccountList] = IDtoRec(where.Account);
        state.TranFileShown = 0;
    }
    ReloadList(AccountList, state.TopPos[AccountList]);
    LoadCurrentAccount();
    if (where.List == TransactionList)
        state.SelectedPos[TransactionList] = restored;
    DDFileCheck();
    LoadShownRows(state.TopPos[BinList]);
    doBin(ListWindow, PaintCounts | PaintRows | PaintTabs);
}

bool SoonTrimmed() {
    return state.EntryCount[BinList] > BinKeep;
}

constexpr TitleSpot Spots[] = {{1, 5, 2, -5, 16, ToggleRefColumn}};
// clang-format off
constexpr TabDrop Drops[] = {
    {AccountList,     CameFrom<AccountList>,     Restore},
    {TransactionList, CameFrom<TransactionList>, Restore},
    {RecurringList,   CameFrom<RecurringList>,   Restore},
    {TemplateList,    CameFrom<TemplateList>,    Restore},
    {CategoryList,    CameFrom<CategoryList>,    Restore},
    {ConversionList,  CameFrom<ConversionList>,  Restore},
    {BinList,         AcceptInBin,               BinRow},
};
// clang-format on

} // namespace

void UpdateBinRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, WhiteBrush))
        return;
    const BinRec &row = state.BinRows[strip.Index];
    const int32_t *e = state.ColumnEdge[BinList];
    const int brush = strip.Past ? WhiteBrush : BrushOf(row);
    KeepingCell(strip, 1, e[1] - 3, brush);
    KeepingCell(strip, e[1] + 1, e[2] - 1, brush);
    TurningCell(strip, e[2], e[3] - 1, WhiteBrush, PressedWhite);
    TurningCell(strip, e[3], 225, WhiteBrush, PressedWhite);
    if (strip.Past)
        return;
    if (row.SourceList < BinList || row.SourceList == ConversionList)
        PaintFlag(window, InSecondBlock(row) ? row.Flag2 : row.Flag, e[1], strip.Place.Top);
    RowText(strip, e[1] + 3, e[2] - 2, ShownTitle(row));
    if (BelongsToAccount(row)) {
        const char16_t *account = state.BinOwnerNames[RowOfPosition(position)];
        PaintDate(window, row.Date, strip.Place.Top, e[1] - 4, Black, Font::Normal);
        RowText(strip, e[2] + 2, e[3] - 2, account, AccountIsLost(account) ? Align::Centre : Align::Left);
    }
    if (row.SourceList != CategoryList)
        RowAmount(strip, e[3] + 1, RightEdge - 2, ShownValue(row));
}

void doBin(Window window, int mask) {
    PaintListScreen(BinScreen, window, mask | PaintCounts);
}

// clang-format off
const ListScreen BinScreen = {
    .List = BinList,
    .Paint = doBin,
    .TabHelp = {Help::BinTab, Help::FullBinTab, SoonTrimmed},
    .Arrives = Arrival::ShowEnd,
    .Selection = RowChosen::Last,
    .NeedsAccount = true,
    .PostsDues = false,
    .ChecksTotals = false,
    .PaintRow = UpdateBinRec,
    .Marked = Marked,
    .BlankHelp = {Help::BlankBinEntry},
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
    .Changed = nullptr,
    .Drops = Drops,
    .DropCount = 7,
};
// clang-format on
