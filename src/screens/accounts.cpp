// Screen 1: the accounts, or their archives.
#include "drawing/saying.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "ledger/markers.h"
#include "ledger/recurring.h"
#include "resources/art.h"
#include "resources/deeds.h"
#include "resources/geometry.h"
#include "screens/inserting.h"
#include "screens/list_screen.h"
#include "screens/moving.h"
#include "screens/rows.h"
#include "screens/screens.h"

namespace {

// --- Rows

bool IsHeading(const ARec &row) {
    return row.RowKind == HeadingRow;
}

const ARec &RowAt(int position) {
    return state.AccRows[RowOfPosition(position)];
}

FixedAmount ShownBalance(const ARec &row) {
    if (state.ArchiveView)
        return state.ReconciledView ? row.ArcClearedBalance : row.ArcBalance;
    return state.ReconciledView ? row.ClearedBalance : row.Balance;
}

bool InJeopardy(const ARec &row) {
    if (state.ArchiveView)
        return false;
    return (state.ReconciledView ? row.ClearedInJeopardy : row.BalanceInJeopardy) == 1;
}

bool Marked(int position) {
    return RowShows(RowOfPosition(position)) && IsHeading(RowAt(position));
}

void Explain(int position) {
    const ARec &row = RowAt(position);
    if (IsHeading(row)) {
        ShowHelp(Help::TotalMarker);
        return;
    }
    const AddedLine alert = WholeMagnitude(ShownBalance(row)) > LargestShown ? AddedLine::ValueTooBig
                            : InJeopardy(row)                                ? AddedLine::InJeopardy
                                                                             : AddedLine::None;
    ShowHelp(InArchiveView() ? Help::ArchivedAccount : Help::Account, alert);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(nullptr);
    NoteHeader(state.ArchiveView ? u"Archives" : u"Accounts");
    CopyImage(TopWindow, {85, 0}, state.ArchiveView ? ArchivesLogo : AccountsLogo, {0, 0, 69, 13});
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u"Name", u"Type"}, {u"Balance", u"Balance"}};
    PaintTitles(Titles, 2, TitleBrush, state.ReconciledView ? ReconciledBrush : TitleBrush);
}

void ToggleReconciledView(int) {
    state.ReconciledView = !state.ReconciledView;
    ShowHelp(state.ReconciledView ? Help::BalanceOfReconciled : Help::BalanceOfAll,
             state.ArchiveView ? AddedLine::None : AddedLine::TotalsOfToday);
    doAccounts(ListWindow, PaintColumns | PaintRows);
}

// --- Strokes and drops

void Stroke(int position) {
    NameDeed(Deed::Marked);
    if (InList(position) && Marked(position)) {
        if (DeleteRecMem(position))
            ShowHelp(Help::TotalMarkerDeleted);
    } else {
        InsertTotalMarker();
    }
    ReloadAndPaint(PaintCounts | PaintRows);
    LoadCurrentAccount();
}

void Changed() {
    LoadCurrentAccount();
    DDFileCheck(); // an item may have lost its account
}

constexpr TitleSpot Spots[] = {
    {1, 6, 0, ScreenWidth - 1, 16, ToggleReconciledView},
    {0, 1, 1, -6, 16, ToggleRefColumn},
};
constexpr TabDrop Drops[] = {{BinList, AcceptInBin, BinRow}};

} // namespace

void UpdateARec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, GoldBrush))
        return;
    const ARec &row = state.AccRows[strip.Index];
    const int edge = state.ColumnEdge[AccountList][1];
    const bool jeopardy = !strip.Past && InJeopardy(row);
    const int mark = jeopardy ? JeopardyBrush : IsMarked(mode) ? MarkerBrush : NoFill;
    KeepingCell(strip, 1, edge - 3, mark, PressedGold);
    if (!strip.Past && state.AccFiltered[strip.Index]) // the rows behind this balance are hidden in part
        KeepingCell(strip, edge + 1, 225, RedBrush);
    else
        TurningCell(strip, edge + 1, 225, mark == MarkerBrush ? MarkerBrush : GoldBrush, PressedGold);
    if (strip.Past || (row.ID < 1 && !IsHeading(row)))
        return;
    PaintFlag(window, row.Flag, edge, strip.Place.Top);
    if (IsHeading(row))
        RowText(strip, 3, edge - 4, row.Name, Align::Centre);
    else
        RowText(strip, 3, edge - 4, state.RefColumn ? AccountTypeName(row.AccType) : row.Name, Align::Left,
                Font::Normal, jeopardy ? White : Black);
    RowAmount(strip, edge + 2, 224, ShownBalance(row));
}

void doAccounts(Window window, int mask) {
    PaintListScreen(AccountScreen, window, mask);
}

// clang-format off
const ListScreen AccountScreen = {
    .List = AccountList,
    .Paint = doAccounts,
    .TabHelp = {Help::AccountTab, Help::ArchivedAccountTab, InArchiveView},
    .Arrives = Arrival::CentreSelection,
    .Selection = RowChosen::Keep,
    .NeedsAccount = false,
    .PostsDues = true,
    .ChecksTotals = true,
    .PaintRow = UpdateARec,
    .Marked = Marked,
    .BlankHelp = {Help::BlankAccount, Help::BlankArchive, InArchiveView},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 2,
    .Grabs = 1,
    .GrabFloor = 30,
    .ColumnsExplained = false,
    .PressPlot = nullptr,
    .Stroke = Stroke,
    .CanReorder = AlwaysReorders,
    .Changed = Changed,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
