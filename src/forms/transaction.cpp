// The form of a transaction: entering, changing, and the statement balance of a Reconcile entry.
#include "drawing/colours.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/form.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/filter.h"
#include "ledger/moves.h"
#include "ledger/order.h"
#include "ledger/reconcile.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

constexpr char16_t ReconcileName[] = u"Reconcile";

TRec &Working() {
    return state.FormRow.Tran;
}
int IsNew() {
    return state.SelectedPos[TransactionList] > state.EntryCount[TransactionList];
}
int IsExisting() {
    return !IsNew();
}
int IsShareAccount() {
    return IsShare(state.AccountKind);
}

// clang-format off
constexpr FormPart ReconcileParts[] = {
    // item              box                     hit                     text   side          field            present
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 20, 26},         nullptr},
    {FirstSignItem,      {23, 68, 35, 80},       {24, 69, 36, 81},       nullptr},
};
constexpr FormPart EntryParts[] = {
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 20, 26},         nullptr},
    {SelectedCountItem,  {22, 0, 88, 18},        {20, 0, 91, 18},        nullptr, Align::Right},
    {UpItem,             {90, 0, 110, 18},       {91, 0, 111, 20},       nullptr, Align::Left, 0, IsExisting},
    {DownItem,           {130, 0, 150, 18},      {131, 0, 151, 20},      nullptr, Align::Left, 0, IsExisting},
    {TotalItem,          {153, 0, 218, 18},      {151, 0, 220, 18},      nullptr, Align::Left},
    {DuplicateItem,      {221, 0, 240, 20},      {220, 0, 240, 26},      nullptr, Align::Left, 0, IsExisting},
    {TitleItem,          {0, 42, 35, 62},        {0, 43, 35, 63},        u"Name", Align::Right, TitleField},
    {FirstSignItem,      {23, 68, 35, 80},       {24, 69, 36, 81},       nullptr},
    {ClearedItem,        {209, 66, 225, 82},     {210, 67, 240, 83},     nullptr},
    {ViewItem,           {205, 162, 225, 182},   {205, 163, 226, 183},   nullptr},
    // From here on the Advanced view alone.
    {RefItem,            {0, 93, 35, 113},       {0, 94, 35, 114},       u"Ref",  Align::Right, TextField},
    {TimesItem,          {9, 119, 21, 131},      {0, 120, 24, 132},      nullptr},
    {SecondSignItem,     {23, 119, 35, 131},     {24, 120, 36, 132},     nullptr},
    {FreeItem,           {189, 117, 225, 133},   {190, 118, 226, 134},   nullptr, Align::Left, 0, IsShareAccount},
    {LabelItem,          {0, 136, 35, 158},      {0, 137, 35, 158},      u"Cat",  Align::Right, CategoryField},
    {LabelItem,          {5, 162, 35, 182},      {0, 162, 35, 182},      u"⇄",    Align::Right, TransferField, IsNew},
};

constexpr FieldList Lists[] = {
    {TitleField, ListTemplates}, {WholeField, ListWholeNumbers}, {FractionField, ListFractions},
    {MultiplierField, ListMultipliers}, {CategoryField, ListCategories}, {TransferField, ListTransfers},
};
// clang-format on
constexpr std::span<const FormPart> BasicParts = std::span(EntryParts).first<10>();
static_assert(BasicParts.back().Item == ViewItem && EntryParts[BasicParts.size()].Item == RefItem);

void TranDialogFill(int initialise);
int TranDialogSave();
void DiaProcTran(const Event &event);
void TapTran(int item);
void Decor(int mask);
const char16_t *Title();
void EnterNext();

// ORDER LAYOUT
enum Layout : int { Basic, AdvancedNew, AdvancedExisting, Reconcile };

constexpr Form FormOf(const FormTemplate *controls, std::span<const FormPart> parts) {
    return {.Dialog = TransactionDialog,
            .WithPanel = 1,
            .Controls = controls,
            .Parts = parts,
            .Help = EntryHelp,
            .Lists = Lists,
            .Fill = TranDialogFill,
            .Tick = TranDialogSave,
            .Cross = nullptr,
            .Changed = DiaProcTran,
            .Tapped = TapTran,
            .Decor = Decor,
            .Title = Title,
            .Again = EnterNext};
}
constexpr Form Forms[] = {
    // ORDER LAYOUT
    FormOf(&BasicTemplate, BasicParts),
    FormOf(&AdvancedTemplate, EntryParts),
    FormOf(&ExistingTemplate, EntryParts),
    FormOf(&ReconcileTemplate, ReconcileParts),
};

const Form *CurrentLayout() {
    if (Working().RowKind == ReconcileEntry)
        return &Forms[Reconcile];
    if (!state.ViewIsAdvanced)
        return &Forms[Basic];
    return &Forms[IsNew() ? AdvancedNew : AdvancedExisting];
}

const char16_t *Title() {
    if (Working().RowKind == ReconcileEntry)
        return u"Reconcile";
    return IsNew() ? u"New transaction" : u"Transaction";
}

// The amount of a Reconcile entry is what the bank says.
void Decor(int mask) {
    PaintPoint<65>(mask);
    if (mask & DecorLabels && Working().RowKind == ReconcileEntry)
        PaintText(DialogWindow, u"Statement balance", {40, 87, 194, 103}, Align::Left, Font::Bold, Black);
}

// An entry's fields as a block, and back. A cash row of an account shows and keeps CashAmount.
DDBlock BlockOf(const TRec &row) {
    DDBlock block = {};
    block.Cleared = row.Cleared;
    block.Cash = row.Cash;
    block.NoCash = row.NoCash;
    block.Flag = row.Flag;
    block.Units = row.Units;
    block.Value = row.Cash ? row.CashAmount : row.Value;
    block.Transfer = state.FormTransfer;
    block.CatID = row.CatID;
    CopyText(block.Memo, TextRoom, row.Memo);
    return block;
}
void TakeBlock(const DDBlock &block, TRec *row) {
    row->Cleared = block.Cleared;
    row->Cash = block.Cash;
    row->NoCash = block.NoCash;
    row->Flag = block.Flag;
    row->Units = block.Units;
    row->Value = block.Value;
    if (block.Cash)
        row->CashAmount = block.Value;
    row->CatID = block.CatID;
    CopyText(row->Memo, TextRoom, block.Memo);
    state.FormTransfer = block.Transfer;
}

void LoadWorkingCopy() {
    TRec &row = Working();
    if (IsExisting()) {
        const int fetched = FetchTran(state.SelectedPos[TransactionList], &row);
        (void)fetched; // on a short read the row's defaults show
        return;
    }
    const uint8_t wanted = row.RowKind;
    InitTRec(&row);
    LoadTodaysDate(&row.Date);
    row.RowKind = wanted;
    row.Units = 1;
    if (wanted == ReconcileEntry)
        CopyText(row.Name, TextRoom, ReconcileName);
    state.FormTransfer = 0;
}

// The fields of the layout shown into the working copy; what it does not show stays as it is.
void ReadFields() {
    TRec &row = Working();
    GetFieldDate(DateField, &row.Date);
    if (FieldPresent(TitleField) && FieldTouched(TitleField))
        GetControlText(TitleField, row.Name, TextRoom);
    DDBlock block = BlockOf(row);
    ReadEntryFields(&block, 1);
    TakeBlock(block, &row);
}

void TranDialogFill(int initialise) {
    if (initialise)
        LoadWorkingCopy();
    const TRec &row = Working();
    SetFieldDate(DateField, row.Date);
    SetFieldText(TitleField, row.Name);
    FillEntryFields(BlockOf(row), IsShareAccount());
    // A new entry is most often a debit; a share's price and a statement's balance are not.
    if (initialise && IsNew())
        state.FirstSign = IsShareAccount() || row.RowKind == ReconcileEntry;
}

// Every value stays as it is, the signs of amounts of 0 too.
void TranDialogSwitchView() {
    const uint32_t firstSign = state.FirstSign, secondSign = state.SecondSign;
    RebuildForm(CurrentLayout(), 0);
    state.FirstSign = firstSign;
    state.SecondSign = secondSign;
    DrawDialogDecor(DecorFirstSign | DecorSecondSign);
}

// What the Basic view cannot show of a template.
bool NeedsAdvanced(const FRec &row) {
    return row.Units != 1 || row.Cleared || row.Memo[0] || row.Transfer ||
           (IsShareAccount() && (row.Cash || row.NoCash));
}

void LoadTemplate(int index) {
    FRec picked;
    if (!PickedTemplate(index, &picked))
        return;
    ReadFields();
    TRec &row = Working();
    CopyText(row.Name, TextRoom, picked.Name);
    DDBlock block = BlockOf(row);
    TemplateToBlock(picked, &block);
    if (block.Cash && !IsShareAccount()) {
        block.Cash = 0;
        block.Units = 1;
    }
    TakeBlock(block, &row);
    if (!state.ViewIsAdvanced && NeedsAdvanced(picked)) {
        state.ViewIsAdvanced = 1;
        RebuildForm(CurrentLayout(), 0);
    } else {
        TranDialogFill(0);
        DrawDialogDecor(DecorAll);
    }
    SelectControlItem(TitleField, index);
}

void DiaProcTran(const Event &event) {
    if (event.Change != ControlChange::Choice)
        return;
    if (event.Control == TitleField)
        LoadTemplate(SelectedControlItem(TitleField));
    else if (event.Control == MultiplierField && MultiplierIsCash())
        ShowHelp(0, 222, 223);
}

// The next row, forward or back, that is an entry; wraps at the ends. 0 when there is none.
int32_t NextEntry(int32_t position, int forward) {
    const int32_t count = state.EntryCount[TransactionList];
    TRec row;
    for (int32_t looked = 0; looked < count; ++looked) {
        position += forward ? 1 : -1;
        if (position > count)
            position = 1;
        if (position < 1)
            position = count;
        if (FetchTran(position, &row) && row.RowKind == EntryRow)
            return position;
    }
    return 0;
}

void StepEntry(int forward) {
    if (!state.FilterView && !TranDialogSave()) {
        TellUnwritten();
        return;
    }
    const int32_t next = NextEntry(state.SelectedPos[TransactionList], forward);
    if (next == 0)
        return;
    state.SelectedPos[TransactionList] = next;
    state.DuplicateOn = 0;
    TranDialogFill(1);
    DrawDialogDecor(DecorAll);
}

void ToggleDuplicate() {
    if (state.DuplicateOn) {
        ReadFields();
        state.DuplicateDate = Working().Date;
        RecDate today;
        LoadTodaysDate(&today);
        Working().Date = today;
        SetFieldDate(DateField, today);
        return;
    }
    TranDialogFill(1);
    Working().Date = state.DuplicateDate;
    SetFieldDate(DateField, state.DuplicateDate);
    DrawDialogDecor(DecorAll);
}

void TapTran(int item) {
    switch (item) {
    case DuplicateItem:
        ToggleDuplicate();
        break;
    case ViewItem:
        ReadFields();
        if (IsNew())
            state.NewUserFields = state.ViewIsAdvanced; // the next new entry opens as this one was left
        TranDialogSwitchView();
        break;
    case UpItem:
    case DownItem:
        StepEntry(item == DownItem);
        break;
    default:
        break;
    }
}

bool Differs(const TRec &row, const TRec &kept) {
    return row.Date.DayNumber != kept.Date.DayNumber || row.Flag != kept.Flag || row.NoCash != kept.NoCash ||
           row.Cash != kept.Cash || row.Cleared != kept.Cleared || row.Units != kept.Units || row.CatID != kept.CatID ||
           !SameText(row.Name, kept.Name, TextRoom) || !SameText(row.Memo, kept.Memo, TextRoom) ||
           (row.Cash ? row.CashAmount != kept.CashAmount : row.Value != kept.Value);
}

// A new row with what the form holds, and nothing of a row that it may be a duplicate of: its bank identity and running
// totals stay behind.
TRec FreshRow() {
    const TRec &row = Working();
    TRec fresh;
    InitTRec(&fresh);
    fresh.RowKind = row.RowKind;
    fresh.Date = row.Date;
    fresh.Rank = EntryRank;
    CopyText(fresh.Name, TextRoom, row.Name);
    TakeBlock(BlockOf(row), &fresh);
    return fresh;
}

int AddEntry(TRec *row) {
    const uint32_t accountID = state.CurAccount.ID;
    // A List account is in its owner's order: the new row goes under the one selected.
    const int32_t selected = state.SelectedPos[TransactionList], count = state.EntryCount[TransactionList];
    const int32_t position =
        state.AccountKind == ListAccount ? (selected < count ? selected : count) + 1 : CpDates(row->Date, row->Rank);
    if (!AddRecFile(accountID, position, row, 0))
        return 0;
    CalcBalance(accountID);
    return 1;
}

int ChangeEntry(TRec *row) {
    row->Rank = RankOf(row->RowKind, In::DiaProcTran);
    const int32_t from = state.SelectedPos[TransactionList];
    const int32_t to = state.AccountKind == ListAccount ? from : CpDates(row->Date, row->Rank);
    return MoveRecFile(state.CurAccount.ID, from, to, row);
}

// The other side of a transfer, in the partner's file. 0 when it could not be written; a partner that has gone needs
// none.
int AddCounterEntry(const TRec &row, uint32_t partnerID) {
    const uint32_t accountID = state.CurAccount.ID;
    const int32_t fromType = state.AccountKind, selected = state.SelectedPos[TransactionList];
    int written = 1;
    if (MakeAccountCurrent(partnerID)) {
        TRec counter = row;
        CopyText(counter.FITID, TextRoom, u""); // the bank's identity is the row's own
        MakeCounterEntry(&counter, fromType, state.AccountKind);
        // Into the live account, since nothing of it may be archived yet, and there into the real file: what stands in
        // the partner's filter file alone goes with the filter.
        const uint32_t view = state.ArchiveView;
        state.ArchiveView = 0;
        ReleaseFile(OpenTransactions(TransactionFile::Live, partnerID, OpenOrCreate));
        state.IgnoreFilter = 1;
        written = AddRecFile(partnerID, CpDates(counter.Date, counter.Rank), &counter, 0);
        if (written)
            CalcBalance(partnerID);
        state.IgnoreFilter = 0;
        state.ArchiveView = view;
    }
    MakeAccountCurrent(accountID);
    CountTransactions();
    state.SelectedPos[TransactionList] = selected;
    return written;
}

// Writes the row and, for a transfer, its counter-entry. 0 when the entry could not be written; a new one whose
// counter-entry could not be written is taken back, so that no money appears or goes.
int SaveEntry(TRec *row, int isNew) {
    const int32_t selected = state.SelectedPos[TransactionList];
    const uint32_t partner = row->TransferID;
    if (!(isNew ? AddEntry(row) : ChangeEntry(row)))
        return 0;
    if (!partner || AddCounterEntry(*row, partner) || !isNew)
        return 1;
    DeleteRecFile(state.CurAccount.ID, state.SelectedPos[TransactionList]);
    CalcBalance(state.CurAccount.ID);
    state.SelectedPos[TransactionList] = selected;
    return 0;
}

// The next entry of a pile: a new one of the same day.
void EnterNext() {
    const RecDate date = Working().Date;
    if (state.CurrentScreen != TransactionList || Working().RowKind != EntryRow)
        return;
    state.SelectedPos[TransactionList] = state.EntryCount[TransactionList] + 1;
    if (!OpenTransactionForm(EntryRow))
        return;
    Working().Date = date;
    SetFieldDate(DateField, date);
}

int TranDialogSave() {
    if (state.FilterView) { // a filtered view can't be changed: the tick lifts the filter, and the entry is lost
        ClearFilters();
        return 1;
    }
    const int isNew = IsNew() || state.DuplicateOn;
    // The account picked is this entry's alone; only a template or a switch of views leaves it for the next form.
    const uint32_t left = state.FormTransfer;
    ReadFields();
    const uint32_t partner = state.FormTransfer;
    if (FieldPresent(TransferField))
        state.FormTransfer = left;
    TRec kept = {};
    if (!isNew && !FetchTran(state.SelectedPos[TransactionList], &kept))
        return 1;
    const TRec row = Working();
    const uint8_t kind = row.RowKind;
    const FixedAmount target = row.Value;
    if (isNew || Differs(row, kept)) {
        TRec saved = isNew ? FreshRow() : row;
        saved.TransferID = partner;
        if (!SaveEntry(&saved, isNew))
            return 0; // what could not be written stays in the form
    }
    if (kind == ReconcileEntry) {
        LoadCurrentAccount();
        RunReconcile(target);
    }
    return 1;
}

} // namespace

int OpenTransactionForm(int rowKind) {
    const int32_t position = state.SelectedPos[TransactionList];
    if (position < 1 || state.OpenedForm || !LoadCurrentAccount() || state.CurAccount.RowKind == HeadingRow)
        return 0;
    TRec row = {};
    row.RowKind = static_cast<uint8_t>(rowKind);
    if (position <= state.EntryCount[TransactionList] && !FetchTran(position, &row))
        return 0;
    if (row.RowKind != EntryRow && (row.RowKind != ReconcileEntry || state.AccountKind != BankAccount))
        return 0;
    Working() = row;
    state.ViewIsAdvanced = IsExisting() || state.NewUserFields;
    if (!Dialog_Init(CurrentLayout()))
        return 0;
    if (row.RowKind == ReconcileEntry)
        ShowHelp(431, 442, 0, 447, 448, 0);
    else
        ShowHelp(132, 130, 2, 3, 117, 0);
    return 1;
}
