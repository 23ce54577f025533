// Screen 1: the accounts, or their archives.
#include "frame/header.h"
#include "ledger/account_window.h"
#include "ledger/markers.h"
#include "ledger/moves.h"
#include "resources/art.h"
#include "screens/list_screen.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "store/configuration.h"

namespace {

// --- Rows

int IsHeading(const ARec &row) {
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

int InJeopardy(const ARec &row) {
    if (state.ArchiveView)
        return 0;
    return (state.ReconciledView ? row.ClearedInJeopardy : row.BalanceInJeopardy) == 1;
}

int Marked(int position) {
    return RowShows(RowOfPosition(position)) && IsHeading(RowAt(position));
}

void Explain(int position) {
    static constexpr HelpLines Heading = {{0, 246, 241, 0, 242, 0}};
    static constexpr HelpChoice Account = {
        {{29, AlertLine, 40, 32, 33, 5}}, {{85, AlertLine, 40, 32, 87, 5}}, InArchiveView};
    const ARec &row = RowAt(position);
    if (IsHeading(row)) {
        ShowLines(Heading);
        return;
    }
    const int alert = WholeMagnitude(ShownBalance(row)) > LargestShown ? 112 : InJeopardy(row) ? 291 : 0;
    ShowLines(InArchiveView() ? Account.Other : Account.Usual, alert);
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(nullptr);
    CopyImage(TopWindow, {85, 0}, state.ArchiveView ? ArchivesLogo : AccountsLogo, {0, 0, 69, 13});
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u"Name", u"Type"}, {u"Balance", u"Balance"}};
    PaintTitles(Titles, 2, TitleBrush, state.ReconciledView ? ReconciledBrush : TitleBrush);
}

void ToggleReconciledView(int) {
    static constexpr HelpLines Reconciled = {{64, 65, 66, 67, 56, AlertLine}}, All = {{68, 69, 70, 56, 0, AlertLine}};
    state.ReconciledView = !state.ReconciledView;
    ShowLines(state.ReconciledView ? Reconciled : All, state.ArchiveView ? 0 : 209);
    doAccounts(ListWindow, PaintColumns | PaintRows);
}

// --- Strokes and drops

void Stroke(int position) {
    if (InList(position) && Marked(position)) {
        if (DeleteRecMem(position))
            ShowHelp(0, 244, 0, 245);
    } else {
        InsertTotalMarker();
    }
    ReloadAndPaint(PaintCounts | PaintRows);
    LoadCurrentAccount();
}

int CanReorder() {
    return 1;
}

void Changed() {
    LoadCurrentAccount();
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
    const int jeopardy = !strip.Past && InJeopardy(row);
    const int mark = jeopardy ? JeopardyBrush : IsMarked(mode) ? MarkerBrush : NoFill;
    KeepingCell(strip, 1, edge - 3, mark, PressedGold);
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
    PaintScreen(AccountScreen, window, mask);
}

// clang-format off
const ListScreen AccountScreen = {
    .List = AccountList,
    .Paint = doAccounts,
    .TabHelp = {{{6, 7, 0, 42, 239, 0}}, {{6, 82, 0, 42, 239, 0}}, InArchiveView},
    .Arrives = Arrival::CentreSelection,
    .Selection = RowChosen::Keep,
    .NeedsAccount = false,
    .PostsDues = true,
    .ChecksTotals = true,
    .PaintRow = UpdateARec,
    .Marked = Marked,
    .BlankHelp = {{{34, 0, 35, 36, 37, 0}}, {{0, 0, 34, 0, 0, 0}}, InArchiveView},
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
    .CanReorder = CanReorder,
    .Changed = Changed,
    .Drops = Drops,
    .DropCount = 1,
};
// clang-format on
