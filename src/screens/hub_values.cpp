#include "screens/hub_values.h"
#include "analysis/charts.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_value.h"
#include "drawing/geometry.h"
#include "forms/entry_fields.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "ledger/reconcile.h"
#include "ledger/recurring.h"
#include "platform/text.h"
#include "resources/deeds.h"
#include "screens/list_screen.h"
#include "screens/screens.h"
#include "screens/transactions.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/windows.h"
#include <cmath>

namespace {

constexpr FixedAmount OneByOne = Thousand * Thousand; // 1.000 / rate, both in thousandths

int32_t Selected() {
    return state.SelectedPos[state.CurrentScreen];
}

bool SelectionInList() {
    return InList(Selected());
}

// --- Accounts

bool ReadAccountBalance(FixedAmount *value) {
    ARec row;
    if (!FetchAccount(Selected(), &row) || row.RowKind == HeadingRow)
        return false;
    const bool cleared = state.ReconciledView == 1;
    *value = state.ArchiveView ? (cleared ? row.ArcClearedBalance : row.ArcBalance)
                               : (cleared ? row.ClearedBalance : row.Balance);
    return true;
}

// --- Transactions

// Of the graph the entry of the selected point; what else it shows is no entry.
int32_t SelectedTran() {
    const bool points = state.GraphMode == PlainGraph || state.GraphMode == Regression;
    return state.CurrentScreen != GraphList ? Selected() : points ? state.SelectedEntry : 0;
}

bool FetchSelectedTran(TRec *row) {
    return SelectedTran() > 0 && FetchTran(SelectedTran(), row);
}

bool ColumnOfMoney() {
    return !IsShare(state.AccountKind);
}

// What the value column of a money account means by a row.
FixedAmount MoneyOf(const TRec &row) {
    if (row.RowKind == ReconcileEntry)
        return row.Value; // it stands for no units
    if (row.Cash == 1)
        return row.CashAmount;
    const bool totals = row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker;
    if (totals && state.ReconciledView)
        return TimesUnits(row.ClearedUnits, row.ClearedValue);
    return TimesUnits(row.Units, row.Value);
}

bool ReadEntry(FixedAmount *value) {
    TRec row;
    if (!FetchSelectedTran(&row) || row.RowKind == DayMarker)
        return false;
    if (row.RowKind == ReconcileEntry && state.AccountKind != BankAccount)
        return false;
    *value = ColumnOfMoney() ? MoneyOf(row) : ColumnValue(row, CountedIn::Plot);
    return true;
}

// The columns that hold an entry's own fields.
bool EntryTakesValue() {
    TRec row;
    return state.AccountKind <= static_cast<int>(SharePrice) && FetchSelectedTran(&row) && row.RowKind != DayMarker;
}

bool PutIntoEntry(TRec *row, FixedAmount value) {
    if (ColumnOfMoney()) {
        row->Units = 1;
        row->Value = value;
    } else if (state.AccountKind == SharePrice) {
        row->Value = value;
    } else {
        const int64_t shares = WholePart(value);
        if ((row->RowKind != EntryRow && row->RowKind != ArchiveMarker) || shares != static_cast<int32_t>(shares))
            return false;
        row->Units = static_cast<int32_t>(shares);
    }
    return true;
}

bool WriteEntry(FixedAmount value) {
    const int32_t position = SelectedTran();
    if (state.CurrentScreen != GraphList && FilterGivesWay())
        return true;
    TRec row;
    if (!EntryTakesValue() || !FetchSelectedTran(&row) || !PutIntoEntry(&row, value) ||
        !ModRecFile(state.CurAccount.ID, position, &row))
        return false;
    state.SelectedPos[TransactionList] = position;
    RecomputeBalances();
    // The search comes last: whatever changes a list ends the state it leaves.
    if (row.RowKind == ReconcileEntry && state.AccountKind == BankAccount)
        RunReconcile(EntriesShown(), value);
    return true;
}

// --- The graph

// A segment as the chart labels it.
bool ReadSegment(FixedAmount *value) {
    GRec segment;
    if (!LoadGRec(Selected(), &segment))
        return false;
    *value = state.ShowPercent ? std::llround(PercentOf(segment) * static_cast<float>(Thousand)) : ValueOf(segment);
    return true;
}

bool ReadGraph(FixedAmount *value) {
    if (ChartShown())
        return ReadSegment(value);
    if (state.GraphMode == Extrapolation) {
        *value = state.PointerOn ? PredictValue(state.PointerDate.DayNumber) * Thousand : 0;
        return true;
    }
    TRec row;
    if (!FetchSelectedTran(&row))
        return false;
    *value = GetGraphValue(row);
    return true;
}

// --- Recurring items

bool FetchSelectedItem(DDRec *row) {
    return SelectionInList() && FetchDD(Selected(), row);
}

bool PostsShares(const DDBlock &block) {
    ARec account;
    return FindAccount(block.Account, &account, nullptr) && IsShare(account.AccType);
}

// An item that posts shares stands for their price, any other for what it posts.
bool ReadItem(FixedAmount *value) {
    DDRec row;
    if (!FetchSelectedItem(&row))
        return false;
    const DDBlock &block = row.Block[BlockInForce(row)];
    *value = PostsShares(block) ? block.Value : TimesUnits(block.Units, block.Value);
    return true;
}

bool WriteItem(FixedAmount value) {
    DDRec row;
    if (!FetchSelectedItem(&row))
        return false;
    DDBlock &block = row.Block[BlockInForce(row)];
    if (!PostsShares(block))
        block.Units = 1;
    block.Value = value;
    if (!ModRecFile(0, Selected(), &row))
        return false;
    DDFileCheck();
    state.CurrentScreen = RecurringList;
    return true;
}

// --- Templates

bool FetchSelectedTemplate(FRec *row) {
    return SelectionInList() && FetchFav(Selected(), row);
}

bool ReadTemplate(FixedAmount *value) {
    FRec row;
    if (!FetchSelectedTemplate(&row))
        return false;
    *value = row.Cash == 1 ? row.Value : TimesUnits(row.Units, row.Value);
    return true;
}

bool WriteTemplate(FixedAmount value) {
    FRec row;
    if (!FetchSelectedTemplate(&row))
        return false;
    row.Units = 1;
    row.Value = value;
    return ModRecFile(0, Selected(), &row);
}

// --- The bin

bool ReadBinned(FixedAmount *value) {
    BinRec row;
    if (!SelectionInList() || !FetchBin(Selected(), &row) || row.SourceList == CategoryList)
        return false;
    *value = BinnedValue(row);
    return true;
}

// --- Conversions

bool FetchSelectedRate(CurRec *row) {
    return SelectionInList() && FetchCur(Selected(), row);
}

bool ReadRate(FixedAmount *value) {
    CurRec row;
    if (!FetchSelectedRate(&row))
        return false;
    *value = row.DirectionState == 1 ? row.InverseRate : row.Rate;
    return true;
}

bool WriteRate(FixedAmount value) {
    CurRec row;
    if (!FetchSelectedRate(&row))
        return false;
    const FixedAmount inverse = value == 0 ? 0 : OneByOne / value;
    row.Rate = row.DirectionState == 1 ? inverse : value;
    row.InverseRate = row.DirectionState == 1 ? value : inverse;
    return ModRecFile(0, Selected(), &row);
}

// --- Every list

struct HubSource {
    bool (*Read)(FixedAmount *value); // null: there is nothing to read
    bool (*Takes)();                  // null: nothing is written
    bool (*Write)(FixedAmount value);
};
// clang-format off
constexpr HubSource Sources[ListCount] = { // ORDER LIST
    {nullptr,            nullptr,         nullptr},
    {ReadAccountBalance, nullptr,         nullptr},
    {ReadEntry,          EntryTakesValue, WriteEntry},
    {ReadGraph,          EntryTakesValue, WriteEntry},
    {ReadItem,           SelectionInList, WriteItem},
    {ReadTemplate,       SelectionInList, WriteTemplate},
    {ReadBinned,         nullptr,         nullptr},
    {nullptr,            nullptr,         nullptr},
    {ReadRate,           SelectionInList, WriteRate},
};
// clang-format on

const HubSource &SourceShown() {
    const int screen = state.CurrentScreen;
    return Sources[screen >= AccountList && screen < ListCount ? screen : NoList];
}

// The list with the row that was written in sight.
void ShowWritten() {
    const int screen = state.CurrentScreen;
    if (screen == GraphList) {
        doGraph(ListWindow, PaintCounts | PaintRows);
        return;
    }
    if (!RowShows(RowOfPosition(Selected())))
        state.TopPos[screen] = SetRecPosition(Selected(), state.EntryCount[screen]);
    ReloadAndPaint(PaintCounts | PaintRows);
}

// --- The open form

constexpr FixedAmount MostInForm = 100000000 * Thousand; // the box takes eight digits

bool FormHasAmount() {
    return FieldPresent(WholeField) && FieldPresent(FractionField);
}

FixedAmount AmountInForm() {
    char16_t whole[ShownRoom], fraction[ShownRoom];
    GetControlText(WholeField, whole, ShownRoom);
    GetControlText(FractionField, fraction, ShownRoom);
    const FixedAmount magnitude = ParseWholeField(whole) * Thousand + ParseFractionField(fraction);
    return state.FirstSign ? magnitude : -magnitude;
}

// As if the owner had typed it, so that the form knows its fields as touched.
bool PutIntoForm(FixedAmount value) {
    if (value <= -MostInForm || value >= MostInForm)
        return false;
    char16_t text[ShownRoom] = u"";
    AppendNumber(text, ShownRoom, static_cast<int64_t>(WholeMagnitude(value)));
    SetControlText(WholeField, text);
    const int fraction = FractionPart(value);
    text[0] = 0;
    AppendNumber(text, ShownRoom, fraction % 10 ? fraction : fraction / 10, fraction % 10 ? 3 : 2);
    SetControlText(FractionField, text);
    state.FirstSign = value >= 0;
    DrawDialogDecor(DecorFirstSign);
    return true;
}

} // namespace

bool HubRead(FixedAmount *value) {
    if (state.OpenedForm && !state.HubPicking) {
        if (!FormHasAmount())
            return false;
        *value = AmountInForm();
        return true;
    }
    const HubSource &source = SourceShown();
    return source.Read && source.Read(value);
}

bool HubTakesValue() {
    if (state.OpenedForm && !state.HubPicking)
        return FormHasAmount();
    const HubSource &source = SourceShown();
    return source.Takes && source.Takes();
}

bool HubWrite(FixedAmount value) {
    if (state.OpenedForm && !state.HubPicking)
        return FormHasAmount() && PutIntoForm(value);
    const HubSource &source = SourceShown();
    NameDeed(Deed::Changed); // or the end of a filter, when there is one
    const bool written = source.Write && source.Write(value);
    if (written)
        ShowWritten();
    return written;
}

int AddReconcileEntry() {
    static constexpr char16_t Name[] = u"Reconcile";
    if (state.AccountKind != BankAccount || state.FilterShown || state.ArchiveView || !LoadCurrentAccount() ||
        state.CurAccount.RowKind == HeadingRow)
        return 0;
    if (state.ReconcileState == ReconcileStep::Solved && !ApplyReconcile(EntriesShown()))
        return 0;
    TRec row;
    InitTRec(&row);
    LoadTodaysDate(&row.Date);
    row.RowKind = ReconcileEntry;
    row.Rank = EntryRank;
    row.Units = 1;
    CopyText(row.Name, TextRoom, Name);
    const int32_t position = CpDates(row.Date, row.Rank);
    if (!AddRecFile(state.CurAccount.ID, position, &row, 0))
        return 0;
    NameDeed(Deed::Added);
    state.SelectedPos[TransactionList] = position;
    RecomputeBalances();
    LoadShownRows(SetRecPosition(position, state.EntryCount[TransactionList]));
    doTransactions(ListWindow, PaintAll);
    return 1;
}
