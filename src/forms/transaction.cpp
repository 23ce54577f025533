// The form of a transaction: entering, changing, and the statement balance of a Reconcile entry.
#include "drawing/colours.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "frame/refusal.h"
#include "frame/shown.h"
#include "ledger/entries.h"
#include "ledger/order.h"
#include "ledger/reconcile.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "resources/deeds.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

constexpr char16_t ReconcileName[] = u"Reconcile";

TRec &Working() {
    return state.FormRow.Tran;
}
bool IsNew() {
    return state.SelectedPos[TransactionList] > state.EntryCount[TransactionList];
}
bool IsExisting() {
    return !IsNew();
}
bool IsShareAccount() {
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

void ForgetPartner() {
    state.FormTransfer = 0;
}
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
            .FieldHelps = EntryHelps,
            .Lists = Lists,
            .Fill = TranDialogFill,
            .Tick = TranDialogSave,
            .Cross = ForgetPartner,
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

// An entry's fields as a block, and back, with the partner that the form has picked.
DDBlock BlockOf(const TRec &row) {
    DDBlock block = {};
    CopyEntryValues(row, &block);
    block.Transfer = state.FormTransfer;
    return block;
}
void TakeBlock(const DDBlock &block, TRec *row) {
    CopyEntryValues(block, row);
    state.FormTransfer = block.Transfer;
}

void LoadWorkingCopy() {
    TRec &row = Working();
    state.FormTransfer = 0;
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

void TakeTemplate(const FRec &picked) {
    ReadFields();
    TRec &row = Working();
    CopyText(row.Name, TextRoom, picked.Name);
    DDBlock block = BlockOf(row);
    CopyEntryValues(picked, &block);
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
    }
}

void DiaProcTran(const Event &event) {
    HearEntryChoice(event, TakeTemplate);
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

bool WillBeNew() {
    return IsNew() || state.DuplicateOn;
}

// Takes the fields. True when there is something to write.
bool EntryChanged() {
    ReadFields();
    TRec kept;
    return WillBeNew() || (FetchTran(state.SelectedPos[TransactionList], &kept) && Differs(Working(), kept));
}

// The row, with its counter-entry for a new transfer, and balances; then the form's list follows. A List account is in
// its owner's order: a new row goes under the one selected.
int WriteEntry(bool isNew) {
    const Place place = EntriesShown();
    const int32_t selected = std::min(state.SelectedPos[TransactionList], state.EntryCount[TransactionList]);
    int32_t position;
    if (isNew) {
        TRec row = FreshRow();
        row.TransferID = row.RowKind == EntryRow ? state.FormTransfer : 0;
        position = EnterEntry(place, state.AccountKind == ListAccount ? selected + 1 : 0, &row);
    } else {
        Working().Rank = RankOf(Working().RowKind, In::DiaProcTran);
        position = ChangeEntry(place, selected, Working());
    }
    if (position == 0)
        return 0;
    RefreshAccounts();
    state.SelectedPos[TransactionList] = position;
    return 1;
}

// Writes what the fields hold. A filtered view can't be changed: the filter gives way first.
int SaveEntry() {
    const bool isNew = WillBeNew();
    if (state.FilterView)
        ClearFilters();
    NameDeed(isNew ? Deed::Added : Deed::Changed);
    if (WriteEntry(isNew))
        return FinishAction();
    TellUnwritten();
    return 0;
}

int TranDialogSave() {
    const bool changed = EntryChanged(), isNew = WillBeNew();
    const bool toReconcile = Working().RowKind == ReconcileEntry;
    const FixedAmount target = Working().Value;
    if (state.FilterView)
        ClearFilters();
    if (changed && !WriteEntry(isNew))
        return 0; // what could not be written stays in the form
    if (toReconcile)
        RunReconcile(EntriesShown(), target);
    return 1;
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
    // What was changed is kept before another entry takes its place in the form; a filter then gives way.
    if (EntryChanged() && !SaveEntry())
        return;
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
        ShowHelp(Help::ReconcileTarget);
    else
        ShowHelp(Help::EnterTransaction);
    return 1;
}
