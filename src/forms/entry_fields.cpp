#include "forms/entry_fields.h"
#include "frame/form.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/messages.h"
#include "store/catalogue.h"
#include "store/windows.h"

namespace {

void AddNumbers(int field, int last, int digits) {
    for (int number = 0; number <= last; ++number) {
        char16_t text[NumberRoom] = {};
        AppendNumber(text, NumberRoom, number, digits);
        AddControlItem(field, text);
    }
}

// A walk over the records of a list's file, held open for as long as a list is filled.
union AnyRecord {
    ARecFile Account;
    FRecFile Template;
    CatRecFile Category;
};

int OpenWalkedFile(FileKind kind) {
    const int handle = OpenDataFile(kind, OpenOrCreate);
    if (handle < 0)
        ReportError(FormFunction(), kind == FileKind::Accounts ? Trouble::AcreateFail : Trouble::FcreateFail);
    return handle;
}

void AddName(int field, const char16_t *name) {
    char16_t text[TextRoom];
    CopyText(text, TextRoom, name);
    AddControlItem(field, text);
}

// Position of the template that the open form changes, 0 for none.
int32_t TemplateShown() {
    const int32_t selected = state.SelectedPos[TemplateList];
    return state.ActiveDialog == TemplateDialog && selected <= state.EntryCount[TemplateList] ? selected : 0;
}

// The template behind an item of the title list. 0 when there is none.
int FetchListed(int item, FRec *row) {
    const int32_t position = item + 1, shown = TemplateShown();
    return item >= 0 && FetchFav(shown > 0 && position >= shown ? position + 1 : position, row);
}

// The accounts that entries can go to, one after the other; Total markers are none.
struct AccountWalk {
    int Handle;
    int32_t Position, Count;
    ARecFile Row;
};
void BeginAccounts(AccountWalk *walk) {
    walk->Handle = OpenWalkedFile(FileKind::Accounts);
    walk->Position = 0;
    walk->Count = walk->Handle < 0 ? 0 : CountRecords(walk->Handle, FileKind::Accounts);
}
int NextAccount(AccountWalk *walk) {
    while (++walk->Position <= walk->Count)
        if (ReadRecord(walk->Handle, FileKind::Accounts, walk->Position, &walk->Row) &&
            walk->Row.Rec.RowKind != HeadingRow)
            return 1;
    CloseFile(walk->Handle);
    return 0;
}

void AddAccountNames(int field) {
    AccountWalk walk;
    for (BeginAccounts(&walk); NextAccount(&walk);)
        AddName(field, walk.Row.Rec.Name);
}

uint64_t UnitsMagnitude(int32_t units) {
    return units < 0 ? static_cast<uint64_t>(-static_cast<int64_t>(units)) : static_cast<uint64_t>(units);
}

} // namespace

void ListWholeNumbers(int field) {
    AddNumbers(field, 100, 1);
}

void ListFractions(int field) {
    AddNumbers(field, 99, 2);
}

void ListMultipliers(int field) {
    if (CashOffered())
        AddControlItem(field, CashText);
    AddNumbers(field, 100, 1);
}

void ListTemplates(int field) {
    const int handle = OpenWalkedFile(FileKind::Templates);
    if (handle < 0)
        return;
    AnyRecord record;
    const int32_t count = CountRecords(handle, FileKind::Templates);
    for (int32_t position = 1; position <= count && ControlItemCount(field) < MostListed; ++position)
        if (position != TemplateShown() && ReadRecord(handle, FileKind::Templates, position, &record))
            AddName(field, record.Template.Rec.Name);
    CloseFile(handle);
}

void ListCategories(int field) {
    AddControlItem(field, NoneText);
    state.ListedCategories = 0;
    const int handle = OpenWalkedFile(FileKind::Categories);
    if (handle < 0)
        return;
    AnyRecord record;
    const int32_t count = CountRecords(handle, FileKind::Categories);
    while (state.ListedCategories < count && state.ListedCategories < MostListed &&
           ReadRecord(handle, FileKind::Categories, state.ListedCategories + 1, &record)) {
        AddName(field, record.Category.Rec.Name);
        ++state.ListedCategories;
    }
    CloseFile(handle);
}

void ListTransfers(int field) {
    AddControlItem(field, NoneText);
    AddAccountNames(field);
}

void ListAccounts(int field) {
    AddAccountNames(field);
}

In FormFunction() {
    switch (state.ActiveDialog) {
    case TemplateDialog:
        return In::DiaProcFav;
    case RecurringDialog:
        return In::DiaProcDD;
    default:
        return In::DiaProcTran;
    }
}

bool CashOffered() {
    return state.ActiveDialog != TransactionDialog || IsShare(state.AccountKind);
}

void FillAmount(FixedAmount value, int threeDecimals) {
    state.FirstSign = value >= 0;
    char16_t whole[NumberRoom] = {}, fraction[NumberRoom] = {};
    AppendNumber(whole, NumberRoom, static_cast<int64_t>(WholeMagnitude(value)));
    const int thousandths = FractionPart(value);
    if (threeDecimals || thousandths % 10 != 0)
        AppendNumber(fraction, NumberRoom, thousandths, 3);
    else
        AppendNumber(fraction, NumberRoom, thousandths / 10, 2);
    SetFieldText(WholeField, whole);
    SetFieldText(FractionField, fraction);
}

FixedAmount ReadAmount(FixedAmount shown) {
    char16_t text[ShownRoom];
    int64_t whole = static_cast<int64_t>(WholeMagnitude(shown));
    if (FieldTouched(WholeField)) {
        GetControlText(WholeField, text, ShownRoom);
        whole = ParseWholeField(text);
    }
    int fraction = FractionPart(shown);
    if (FieldTouched(FractionField)) {
        GetControlText(FractionField, text, ShownRoom);
        fraction = ParseFractionField(text);
    }
    const FixedAmount magnitude = AddAmounts(TimesUnits(Thousand, whole), fraction);
    return state.FirstSign ? magnitude : NegateAmount(magnitude);
}

void FillUnits(int32_t units, uint32_t cash) {
    state.SecondSign = units >= 0;
    if (cash && CashOffered()) {
        SetFieldText(MultiplierField, CashText);
        return;
    }
    char16_t text[NumberRoom] = {};
    AppendNumber(text, NumberRoom, static_cast<int64_t>(UnitsMagnitude(units)));
    SetFieldText(MultiplierField, text);
}

bool MultiplierIsCash() {
    char16_t text[ShownRoom];
    GetControlText(MultiplierField, text, ShownRoom);
    return SameText(text, CashText);
}

int32_t ReadUnits(int32_t shown) {
    int64_t magnitude = static_cast<int64_t>(UnitsMagnitude(shown));
    if (MultiplierIsCash()) {
        magnitude = CashOffered();
    } else if (FieldTouched(MultiplierField)) {
        char16_t text[ShownRoom];
        GetControlText(MultiplierField, text, ShownRoom);
        magnitude = ParseWholeField(text);
    }
    // The smallest 32-bit number has no positive counterpart; the cast then wraps back to it.
    return static_cast<int32_t>(state.SecondSign ? magnitude : -magnitude);
}

void FillCategory(int64_t catID) {
    if (!FieldPresent(CategoryField))
        return;
    if (ControlItemCount(CategoryField) > state.ListedCategories + 1) { // what stood for another entry's ID
        ClearControlList(CategoryField);
        ListCategories(CategoryField);
    }
    if (catID == 0) {
        SelectControlItem(CategoryField, 0);
        return;
    }
    const int32_t position = CatIDToPosition(catID);
    if (position >= 1 && position <= state.ListedCategories) {
        SelectControlItem(CategoryField, position);
        return;
    }
    // A row past the listed ones stands for the ID that the entry has.
    CatRec row;
    AddName(CategoryField, position >= 1 && FetchCat(position, &row) ? row.Name : DeletedCategoryText);
    SelectControlItem(CategoryField, state.ListedCategories + 1);
}

int64_t ReadCategory(int64_t shown, int keepDeleted) {
    const int index = SelectedControlItem(CategoryField);
    if (index == 0)
        return 0;
    if (index >= 1 && index <= state.ListedCategories)
        return CatPositionToID(index);
    return keepDeleted || CatIDToPosition(shown) > 0 ? shown : 0;
}

void FillAccount(int field, uint32_t accountID, int noneFirst) {
    if (!FieldPresent(field))
        return;
    if (accountID == 0) {
        if (noneFirst)
            SelectFieldItem(field, 0);
        else
            SetFieldText(field, u"");
        return;
    }
    int index = noneFirst;
    AccountWalk walk;
    BeginAccounts(&walk);
    int found = 0;
    for (; NextAccount(&walk); index += !found)
        found |= walk.Row.Rec.ID == accountID;
    if (found)
        SelectFieldItem(field, index);
    else
        SetFieldText(field, OverflowText);
}

uint32_t ReadAccountField(int field, uint32_t shown, int noneFirst) {
    const int index = SelectedControlItem(field);
    if (index < 0 && !FieldTouched(field))
        return shown;
    char16_t name[ShownRoom];
    GetControlText(field, name, ShownRoom);
    // By its row where one was chosen, since two accounts may have one name; otherwise the first of the name typed.
    int row = noneFirst;
    uint32_t accountID = 0;
    AccountWalk walk;
    for (BeginAccounts(&walk); NextAccount(&walk); ++row)
        if (accountID == 0 && (index < 0 ? SameText(name, walk.Row.Rec.Name, TextRoom) : row == index))
            accountID = walk.Row.Rec.ID;
    return accountID;
}

void FillEntryFields(const DDBlock &block, int threeDecimals) {
    state.FormFlag = block.Flag % 4;
    state.FormCleared = block.Cleared != 0;
    state.FormNoCash = block.NoCash != 0;
    FillAmount(block.Value, threeDecimals);
    FillUnits(block.Units, block.Cash);
    SetFieldText(TextField, block.Memo);
    FillCategory(block.CatID);
    FillAccount(AccountField, block.Account, 0);
    FillAccount(TransferField, block.Transfer, 1);
}

void ReadEntryFields(DDBlock *block, int keepDeletedCategory) {
    block->Flag = static_cast<uint8_t>(state.FormFlag);
    block->Cleared = state.FormCleared;
    block->NoCash = state.FormNoCash;
    block->Value = ReadAmount(block->Value);
    if (FieldPresent(MultiplierField)) {
        // Outside a share account a cash row can only arrive from elsewhere, and stays one while its multiplier is 1.
        const int32_t units = ReadUnits(block->Units);
        block->Cash = CashOffered() ? MultiplierIsCash() : block->Cash && UnitsMagnitude(units) == 1;
        block->Units = units;
    }
    if (FieldPresent(TextField) && FieldTouched(TextField))
        GetControlText(TextField, block->Memo, TextRoom);
    if (FieldPresent(CategoryField))
        block->CatID = ReadCategory(block->CatID, keepDeletedCategory);
    if (FieldPresent(AccountField))
        block->Account = ReadAccountField(AccountField, block->Account, 0);
    if (FieldPresent(TransferField))
        block->Transfer = ReadAccountField(TransferField, block->Transfer, 1);
}

void HearEntryChoice(const Event &event, void (*take)(const FRec &picked)) {
    if (event.Change != ControlChange::Choice)
        return;
    const int index = SelectedControlItem(TitleField);
    FRec picked;
    if (event.Control == MultiplierField && MultiplierIsCash()) {
        ShowHelp(Help::CashMultiplier);
    } else if (event.Control == TitleField && FetchListed(index, &picked)) {
        take(picked);
        SelectControlItem(TitleField, index);
        DrawDialogDecor(DecorAll);
    }
}
