// Screen 2: the transactions of the current account, live or archived.
#include "screens/transactions.h"
#include "drawing/palette.h"
#include "drawing/saying.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "ledger/balance.h"
#include "ledger/jeopardy.h"
#include "ledger/reconcile.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "records/entry_values.h"
#include "resources/deeds.h"
#include "resources/geometry.h"
#include "screens/list_screen.h"
#include "screens/measure.h"
#include "screens/moving.h"
#include "screens/opening.h"
#include "screens/rows.h"
#include "screens/screens.h"
#include "state/error_log.h"
#include "state/greys.h"
#include "store/index.h"
#include "store/windows.h"

namespace {

const int32_t *Dividers() {
    return state.ColumnEdge[TransactionList];
}

bool KindIsList() {
    return state.AccountKind == ListAccount;
}

// The line that a filter adds to what a title says.
AddedLine FilterLine() {
    return state.FilterShown ? AddedLine::Filtered : AddedLine::None;
}

// --- Rows

const TRec &RowAt(int position) {
    return state.TranRows[RowOfPosition(position)].Rec;
}

FixedAmount ShownBalance(const TRec &row) {
    if (!MeasureIsKnown()) {
        ReportError(In::UpdateTRec, Trouble::CaseError);
        return 0;
    }
    return RowBalance(row, state.AccountKind, static_cast<int>(state.ReconciledView));
}

bool InJeopardy(const TRec &row, FixedAmount balance) {
    if (KindIsList() && row.RowKind != EntryRow)
        return false;
    return BreaksLimit(state.CurAccount, balance);
}

bool Marked(int position) {
    return RowShows(RowOfPosition(position)) && RowAt(position).Cleared == 1;
}

bool IsMarker(const TRec &row) {
    return row.RowKind == DayMarker || row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker ||
           row.RowKind == ReconcileEntry;
}

// Markers that show their title centred in bold, in the view that is their own.
bool TitleIsCentred(const TRec &row) {
    switch (row.RowKind) {
    case DayMarker:
        return true;
    case ArchiveMarker:
    case ReconcileEntry:
        return !state.ArchiveView;
    case DeletedMarker:
        return state.ArchiveView == 1;
    default:
        return false;
    }
}

// ORDER RECONCILESTEP: idle, impossible, solved, computing
constexpr int ReconcileBrush[] = {GoldBrush, RedBrush, FlaggedBrush, GoldBrush};

struct RowBrushes {
    int Date, Title, Rest;
};

// True for a row of the solution, which has then been in view.
bool SeeCandidate(int position) {
    if (!IsReconcileCandidate(position))
        return false;
    for (Candidate &candidate : state.Candidates)
        if (candidate.Position == position)
            candidate.Seen = 1;
    return true;
}

RowBrushes BrushesOf(const TRec &row, int position, int mode, bool jeopardy) {
    const int title = jeopardy ? JeopardyBrush : IsMarked(mode) ? ReconciledBrush : NoFill;
    if (row.RowKind == DayMarker)
        return {MarkerBrush, MarkerBrush, MarkerBrush};
    if (row.RowKind == ReconcileEntry)
        return {SilverBrush, ReconcileBrush[static_cast<int>(state.ReconcileState) & 3], SilverBrush};
    if (SeeCandidate(position))
        return {FlaggedBrush, title, SilverBrush};
    return {row.Cleared == 1 ? ReconciledBrush : SilverBrush, title, SilverBrush};
}

void PaintCells(const RowStrip &strip, const RowBrushes &brush) {
    const int32_t *e = Dividers();
    if (KindIsList()) {
        KeepingCell(strip, 1, e[2] - 2, brush.Title);
        TurningCell(strip, e[2] + 2, e[3] - 1, SilverBrush, PressedSilver);
        TurningCell(strip, e[3], 225, SilverBrush, PressedSilver);
        return;
    }
    KeepingCell(strip, 1, e[1] - 3, brush.Date);
    KeepingCell(strip, e[1] + 1, e[2] - 1, brush.Title);
    TurningCell(strip, e[2], e[3] - 1, brush.Rest, PressedSilver);
    TurningCell(strip, e[3], 225, brush.Rest, PressedSilver);
}

void ExplainReconcile() {
    // ORDER RECONCILESTEP
    static constexpr Help ByStep[] = {Help::ReconcileEntry, Help::ReconcileImpossible, Help::ReconcileSolved,
                                      Help::ReconcileEntry};
    ShowHelp(ByStep[static_cast<int>(state.ReconcileState) & 3]);
}

void Explain(int position) {
    const TRec &row = RowAt(position);
    const FixedAmount balance = ShownBalance(row);
    const AddedLine alert = WholeMagnitude(balance) > LargestShown ? AddedLine::BalanceTooBig
                            : InJeopardy(row, balance)             ? AddedLine::InJeopardy
                                                                   : AddedLine::None;
    switch (row.RowKind) {
    case DayMarker:
        // Deliberately the line of a value, whatever is wrong.
        ShowHelp(Help::DayMarker, alert != AddedLine::None ? AddedLine::ValueTooBig : alert);
        return;
    case ArchiveMarker:
        ShowHelp(Help::ArchiveMarker, alert);
        return;
    case DeletedMarker:
        ShowHelp(Help::DeletedMarker, alert);
        return;
    case ReconcileEntry:
        ExplainReconcile();
        return;
    default:
        ShowHelp(row.Cleared == 1 ? Help::ReconciledTransaction : Help::Transaction, alert);
    }
}

// --- Titles

void DrawTitle() {
    DrawHeaderTitle(state.CurAccount.Name);
}

const char16_t *NameTitle() {
    if (state.RefColumn)
        return u"Ref";
    return state.AccountKind == BankAccount ? u"Name" : KindIsList() ? u"List" : u"Share";
}

void DrawColumns() {
    static constexpr ColumnTitle Titles[] = {{u"Date", u"Date"}, {u"", u""}, {u"", u""}, {u"Balance", u"Balance"}};
    PaintTitles(Titles, 4, state.FilterShown ? RedBrush : TitleBrush,
                state.ReconciledView ? ReconciledBrush : TitleBrush);
    const int32_t *e = Dividers();
    NoteMoreOfTitle(e[1], NameTitle());
    PaintText(TopWindow, NameTitle(), {e[1] + 2, HeaderBottom + 1, e[2] - 2, TitlesBottom - 1}, Align::Centre,
              Font::Bold, Black);
    DrawMeasureTitle(e[2], e[3], Black);
}

void ToggleReconciledView(int) {
    state.ReconciledView = !state.ReconciledView;
    ShowHelp(state.ReconciledView         ? Help::BalanceOfReconciled
             : IsShare(state.AccountKind) ? Help::BalanceOfShares
                                          : Help::BalanceOfAllEntries);
    doTransactions(ListWindow, PaintColumns | PaintRows);
}

void ExplainColumns(int) {
    ShowHelp(Help::ColumnsOfEntries, FilterLine());
}

// --- Strokes and drops

// Opens the form of a new Reconcile entry, where one makes sense.
void StrokeBlankRow() {
    if (state.EntryCount[AccountList] < 1 || state.AccountKind != BankAccount || state.FilterShown || state.ArchiveView)
        return;
    state.SelectedPos[TransactionList] = state.EntryCount[TransactionList] + 1;
    DoButtonDblclk(ListWindow, ReconcileEntry);
}

// The first row of the solution that has not been in view, 0 for none.
int32_t UnseenCandidate() {
    for (int i = 0; i < state.CandidateCount; ++i)
        if (state.Candidates[i].Selected && !state.Candidates[i].Seen)
            return state.Candidates[i].Position;
    return 0;
}

// The solution is seen before it is applied; with its rows the statement's balance has done its work.
void StrokeSolved(int position) {
    if (const int32_t unseen = UnseenCandidate()) {
        LoadShownRows(SetRecPosition(unseen, state.EntryCount[TransactionList]));
        doTransactions(ListWindow, PaintCounts | PaintRows);
        ExplainReconcile();
        return;
    }
    if (!ApplyReconcile(EntriesShown()) || !DeleteRecFile(state.CurAccount.ID, position))
        return;
    NameDeed(Deed::Reconciled);
    RepairTop(TransactionList);
    RecomputeBalances();
    ReloadAndPaint(PaintCounts | PaintRows);
}

void StrokeReconcileEntry(int position, const TRec &row) {
    if (state.ReconcileState == ReconcileStep::Solved) {
        StrokeSolved(position);
        return;
    }
    // The search comes last: whatever changes a list ends the state it leaves.
    RecomputeBalances();
    LoadShownRows(state.TopPos[TransactionList]);
    RunReconcile(EntriesShown(), row.Value);
    doTransactions(ListWindow, PaintCounts | PaintRows);
}

void StrokeEntry(int position, TRec *row) {
    if (FilterGivesWay())
        return;
    row->Cleared = row->Cleared == 1 ? 0 : 1;
    if (!ModRecFile(state.CurAccount.ID, position, row))
        return;
    NameDeed(Deed::Stroked);
    ShowHelp(row->Cleared ? Help::MarkedReconciled : Help::MarkedUnreconciled);
    state.SelectedPos[TransactionList] = position;
    RecomputeBalances();
    ReloadAndPaint(PaintCounts | PaintRows);
}

void Stroke(int position) {
    TRec row;
    if (!InList(position)) {
        StrokeBlankRow();
        return;
    }
    if (!FetchTran(position, &row))
        return;
    if (row.RowKind == DayMarker || row.RowKind == ArchiveMarker)
        ShowHelp(Help::MarkerCannotBeSet);
    else if (row.RowKind != ReconcileEntry)
        StrokeEntry(position, &row);
    else if (!FilterGivesWay())
        StrokeReconcileEntry(position, row);
}

void Changed() {
    RecomputeBalances();
}

bool AcceptEntry(int position) {
    return InList(position) && RowShows(RowOfPosition(position)) && RowAt(position).RowKind == EntryRow;
}

void MakeTemplate(int position) {
    TRec row;
    FRec made;
    if (!FetchTran(position, &row))
        return;
    InitFRec(&made);
    CopyText(made.Name, TextRoom, row.Name);
    CopyEntryValues(row, &made);
    made.Cleared = made.Transfer = 0;
    state.SelectedPos[TransactionList] = position;
    if (AddRecFile(0, 1, &made, 0))
        doTransactions(ListWindow, PaintTabs);
}

// The name of the entry's category, or its title when it has none.
void CategoryText(const TRec &row, char16_t *to) {
    CatRec category;
    const int32_t position = row.CatID ? CatIDToPosition(row.CatID) : -1;
    CopyText(to, TextRoom, position > 0 && FetchCat(position, &category) ? category.Name : row.Name);
}

void MakeCategory(int position) {
    TRec row;
    CatRec made;
    if (!FetchTran(position, &row))
        return;
    InitCatRec(&made);
    CategoryText(row, made.Name);
    made.CatID = NewCatID();
    const Colour colour = state.Palette[PaletteHash(made.Name)];
    made.Red = colour >> 16 & 0xFF;
    made.Green = colour >> 8 & 0xFF;
    made.Blue = colour & 0xFF;
    if (AddRecFile(0, 1, &made, 0))
        doTransactions(ListWindow, PaintTabs);
}

// clang-format off
constexpr TitleSpot Spots[] = {
    {3, 9, 0, ScreenWidth - 1, 16, ToggleReconciledView},
    {1, 8, 2, -8,              16, ToggleRefColumn},
    {2, 8, 3, -8,              17, StepMeasure},
    {0, 0, 1, -9,              17, ExplainColumns},
};
// clang-format on
constexpr TabDrop Drops[] = {
    {TemplateList, AcceptEntry, MakeTemplate},
    {CategoryList, AcceptEntry, MakeCategory},
    {BinList, AcceptInBin, BinRow},
};

} // namespace

bool FilterGivesWay() {
    if (state.CurrentScreen != TransactionList || !state.FilterShown)
        return 0;
    ClearFiltersAndRecompute();
    ShowHelp(Help::FilterOff);
    doTransactions(ListWindow, PaintAll);
    return 1;
}

void UpdateTRec(Window window, int position, int mode) {
    RowStrip strip;
    if (!BeginRow(&strip, window, position, mode, SilverBrush))
        return;
    const int32_t *e = Dividers();
    if (strip.Past) {
        PaintCells(strip, {SilverBrush, NoFill, SilverBrush});
        return;
    }
    const TRec &row = state.TranRows[strip.Index].Rec;
    const FixedAmount balance = ShownBalance(row);
    const bool jeopardy = InJeopardy(row, balance);
    PaintCells(strip, BrushesOf(row, position, mode, jeopardy));
    PaintFlag(window, row.Flag, KindIsList() ? e[2] : e[1], strip.Place.Top);
    if (!KindIsList())
        PaintDate(window, row.Date, strip.Place.Top, e[1] - 4, Black, Font::Normal);
    const int titleRight = KindIsList() ? e[2] - 3 : e[2] - 2;
    if (TitleIsCentred(row))
        RowText(strip, e[1] + 3, titleRight, row.Name, Align::Centre, Font::Bold);
    else
        RowText(strip, e[1] + 3, titleRight, state.RefColumn ? row.Memo : row.Name, Align::Left, Font::Normal,
                jeopardy && !IsMarker(row) ? White : Black);
    PaintMeasure(strip, e[2] + 1, e[3] - 2, row);
    RowAmount(strip, e[3] + 1, RightEdge - 2, row.RowKind == ReconcileEntry ? row.Value : balance);
}

void doTransactions(Window window, int mask) {
    PaintListScreen(TransactionScreen, window, mask);
    SetGreys(TransactionList);
    if (state.ArchiveView)
        GreyMenuItem(CommandInsertDay);
}

// clang-format off
const ListScreen TransactionScreen = {
    .List = TransactionList,
    .Paint = doTransactions,
    .TabHelp = {Help::TransactionTab, Help::ArchivedTransactionTab, InArchiveView},
    .Arrives = Arrival::Own,
    .Selection = RowChosen::Keep,
    .NeedsAccount = true,
    .PostsDues = true,
    .ChecksTotals = false,
    .PaintRow = UpdateTRec,
    .Marked = Marked,
    .BlankHelp = {Help::BlankEntry, Help::BlankArchivedEntry, InArchiveView},
    .ExplainRow = Explain,
    .DrawTitle = DrawTitle,
    .DrawColumns = DrawColumns,
    .Spots = Spots,
    .SpotCount = 4,
    .Grabs = 3,
    .GrabFloor = 30,
    .ColumnsExplained = false,
    .PressPlot = nullptr,
    .Stroke = Stroke,
    .CanReorder = KindIsList,
    .Changed = Changed,
    .Drops = Drops,
    .DropCount = 3,
};
// clang-format on
