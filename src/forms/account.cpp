// The form of an account: its name, kind, watch limits and flag.
#include "drawing/colours.h"
#include "forms/forms.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "frame/shown.h"
#include "ledger/balance.h"
#include "ledger/entries.h"
#include "ledger/markers.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/index.h"
#include "store/windows.h"

namespace {

constexpr int32_t ProposedMin = 0, ProposedMax = 50000;

// The rows of the type list, and what each stores. A share account begins with the value as its measure.
constexpr const char16_t *TypeNames[] = {u"Bank", u"Share", u"List"};
constexpr uint32_t TypeStored[] = {BankAccount, ShareValue, ListAccount};

ARec &Working() {
    return state.FormRow.Account;
}
bool IsHeading() {
    return state.ActiveDialog == AccountDialog && Working().RowKind == HeadingRow;
}

void Fill(int initialise);
int DiaProcRename();
void TellCheck(const Event &event);
void PaintID(int mask);

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text             side          field
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 20, 26},         nullptr},
    {LabelItem,          {0, 41, 35, 61},        {0, 41, 36, 61},        u"Name",         Align::Right, TextField},
    {TypeItem,           {2, 90, 58, 110},       {0, 93, 55, 109},       u"Jeopardy",     Align::Left},
    {LabelItem,          {80, 80, 125, 100},     {80, 80, 126, 100},     u"Max",          Align::Left,  MaxField},
    {FirstSignItem,      {128, 84, 140, 96},     {126, 83, 142, 98},     nullptr},
    {LabelItem,          {80, 103, 125, 123},    {80, 103, 126, 123},    u"Min",          Align::Left,  MinField},
    {SecondSignItem,     {128, 107, 140, 119},   {126, 106, 142, 121},   nullptr},
    {LabelItem,          {5, 142, 90, 162},      {0, 142, 90, 162},      u"Account type", Align::Left,  TypeField},
};
constexpr FieldHelp FieldHelps[] = {
    {TextField,      Help::NewAccount},
    {MinField,       Help::LimitField},
    {MaxField,       Help::LimitField},
    {TypeField,      Help::AccountTypeField},
    {TypeItem,       Help::Jeopardy},
    {FirstSignItem,  Help::LimitSign},
    {SecondSignItem, Help::LimitSign},
};
// A Total marker has no type.
constexpr FieldHelp HeadingHelps[] = {
    {TextField,      Help::NewAccount},
    {MinField,       Help::LimitField},
    {MaxField,       Help::LimitField},
    {TypeField,      Help::NoAccountType},
    {TypeItem,       Help::Jeopardy},
    {FirstSignItem,  Help::LimitSign},
    {SecondSignItem, Help::LimitSign},
};
// clang-format on

void ListTypes(int field) {
    if (IsHeading())
        AddControlItem(field, u" ");
    else
        for (const char16_t *name : TypeNames)
            AddControlItem(field, name);
}
constexpr FieldList Lists[] = {{TypeField, ListTypes}};

const char16_t *Title() {
    return IsHeading() ? u"Total" : state.ActiveDialog == NewAccountDialog ? u"New account" : u"Account";
}

constexpr Form FormOf(int dialog, std::span<const FieldHelp> helps) {
    return {.Dialog = dialog,
            .WithPanel = 1,
            .Controls = &AccountTemplate,
            .Parts = Parts,
            .FieldHelps = helps,
            .Lists = Lists,
            .Fill = Fill,
            .Tick = DiaProcRename,
            .Cross = nullptr,
            .Changed = TellCheck,
            .Tapped = nullptr,
            .Decor = PaintID,
            .Title = Title};
}
constexpr Form NewForm = FormOf(NewAccountDialog, FieldHelps), ChangeForm = FormOf(AccountDialog, FieldHelps),
               HeadingForm = FormOf(AccountDialog, HeadingHelps);

// A new account has no ID until it is saved.
void PaintID(int mask) {
    if (!(mask & DecorLabels) || state.ActiveDialog != AccountDialog)
        return;
    char16_t text[NumberRoom] = {};
    AppendAscii(text, NumberRoom, "ID: ");
    AppendNumber(text, NumberRoom, Working().ID);
    PaintText(DialogWindow, text, {120, 167, 226, 185}, Align::Right, Font::Bold, MutedGrey);
}

void FillLimit(int field, uint32_t *sign, int32_t limit) {
    *sign = limit >= 0;
    char16_t text[NumberRoom] = {};
    AppendNumber(text, NumberRoom, limit < 0 ? -static_cast<int64_t>(limit) : limit);
    SetFieldText(field, text);
}

int32_t ReadLimit(int field, uint32_t sign, int32_t shown) {
    int64_t magnitude = shown < 0 ? -static_cast<int64_t>(shown) : shown;
    if (FieldTouched(field)) {
        char16_t text[ShownRoom];
        GetControlText(field, text, ShownRoom);
        magnitude = ParseWholeField(text);
    }
    return static_cast<int32_t>(sign ? magnitude : -magnitude);
}

void ProposeAccount(ARec *row) {
    InitARec(row);
    row->MinLimit = ProposedMin;
    row->MaxLimit = ProposedMax;
    AppendAscii(row->Name, TextRoom, "Account ");
    AppendNumber(row->Name, TextRoom, state.EntryCount[AccountList] + 1);
}

int TypeRow(uint32_t type) {
    return type == BankAccount ? 0 : type == ListAccount ? 2 : 1;
}

void Fill(int) {
    const ARec &row = Working();
    state.FormFlag = static_cast<int32_t>(row.Flag % 4);
    SetFieldText(TextField, row.Name);
    SetControlCheck(MinCheck, row.LowWatch != 0);
    SetControlCheck(MaxCheck, row.HighWatch != 0);
    FillLimit(MaxField, &state.FirstSign, row.MaxLimit);
    FillLimit(MinField, &state.SecondSign, row.MinLimit);
    SelectControlItem(TypeField, IsHeading() ? 0 : TypeRow(row.AccType));
}

void TellCheck(const Event &event) {
    if (event.Change != ControlChange::Pressed && event.Change != ControlChange::Focus)
        return;
    if (event.Control == MinCheck)
        ControlChecked(MinCheck) ? ShowHelp(Help::MinEnabled) : ShowHelp(Help::MinDisabled);
    if (event.Control == MaxCheck)
        ControlChecked(MaxCheck) ? ShowHelp(Help::MaxEnabled) : ShowHelp(Help::MaxDisabled);
}

int AddAccount(ARec *row) {
    const int32_t position = state.EntryCount[AccountList] + 1;
    row->ID = GetNextID();
    if (row->ID == 0 || !AddRecFile(0, position, row, 0) || !AddFirstRows(row->ID, row->AccType))
        return 0;
    state.SelectedPos[AccountList] = position;
    LoadCurrentAccount();
    CheckT1totals();
    return 1;
}

int ChangeAccount(const ARec &row) {
    if (!ModRecFile(0, state.SelectedPos[AccountList], &row))
        return 0;
    if (row.RowKind != HeadingRow) {
        // By its kind every row is counted anew, and the live ones watched, whatever is shown.
        CalcTotals(RowsOf(row.ID, View::Archive, Rows::All));
        CalcOneView(LiveRows(row.ID, Rows::All));
        CalcBalance(row.ID);
    }
    CheckT1totals();
    return 1;
}

int DiaProcRename() {
    ARec row = Working();
    row.Flag = static_cast<uint32_t>(state.FormFlag);
    if (FieldTouched(TextField))
        GetControlText(TextField, row.Name, TextRoom);
    row.LowWatch = ControlChecked(MinCheck) != 0;
    row.HighWatch = ControlChecked(MaxCheck) != 0;
    row.MinLimit = ReadLimit(MinField, state.SecondSign, row.MinLimit);
    row.MaxLimit = ReadLimit(MaxField, state.FirstSign, row.MaxLimit);
    const int type = SelectedControlItem(TypeField);
    if (!IsHeading() && type >= 0 && type < 3)
        row.AccType = TypeStored[type];
    if (row.MinLimit > row.MaxLimit) {
        RefuseTick(Help::MinAboveMax);
        return TickRefused;
    }
    return state.ActiveDialog == NewAccountDialog ? AddAccount(&row) : ChangeAccount(row);
}

} // namespace

int OpenAccountForm(int create) {
    if (state.OpenedForm)
        return 0;
    ARec row;
    if (create)
        ProposeAccount(&row);
    else if (!FetchAccount(state.SelectedPos[AccountList], &row))
        return 0;
    Working() = row;
    if (!Dialog_Init(create ? &NewForm : row.RowKind == HeadingRow ? &HeadingForm : &ChangeForm))
        return 0;
    if (create)
        ShowHelp(Help::NewAccount);
    else
        ShowHelp(Help::ChangeAccount);
    return 1;
}
