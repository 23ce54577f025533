// The form of an account: its name, kind, watch limits and flag.
#include "drawing/colours.h"
#include "forms/forms.h"
#include "frame/form.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

constexpr int NumberRoom = 24;
constexpr int32_t ProposedMin = 0, ProposedMax = 50000;
constexpr int LimitMessage = 299;

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
constexpr HelpRow Help[] = {
    {TextField,      {0, 115, 0, 117, 0, 0}},
    {MinField,       {0, 306, 0, 145, 0, 0}},
    {MaxField,       {0, 306, 0, 145, 0, 0}},
    {TypeField,      {92, 0, 93, 96, 318, 0}},
    {TypeItem,       {0, 394, 296, 10, 0, 0}},
    {FirstSignItem,  {0, 145, 0, LimitMessage, 0, 0}},
    {SecondSignItem, {0, 145, 0, LimitMessage, 0, 0}},
};
// A Total marker has no type.
constexpr HelpRow HeadingHelp[] = {
    {TextField,      {0, 115, 0, 117, 0, 0}},
    {MinField,       {0, 306, 0, 145, 0, 0}},
    {MaxField,       {0, 306, 0, 145, 0, 0}},
    {TypeField,      {0, 92, 97, 0, 0, 0}},
    {TypeItem,       {0, 394, 296, 10, 0, 0}},
    {FirstSignItem,  {0, 145, 0, LimitMessage, 0, 0}},
    {SecondSignItem, {0, 145, 0, LimitMessage, 0, 0}},
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

constexpr Form FormOf(int dialog, std::span<const HelpRow> help) {
    return {.Dialog = dialog,
            .WithPanel = 1,
            .Controls = &AccountTemplate,
            .Parts = Parts,
            .Help = help,
            .Lists = Lists,
            .Fill = Fill,
            .Tick = DiaProcRename,
            .Cross = nullptr,
            .Changed = TellCheck,
            .Tapped = nullptr,
            .Decor = PaintID,
.Title = Title};
}
constexpr Form NewForm = FormOf(NewAccountDialog, Help), ChangeForm = FormOf(AccountDialog, Help),
               HeadingForm = FormOf(AccountDialog, HeadingHelp);

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
        ControlChecked(MinCheck) ? ShowHelp(0, 300, 0, 301) : ShowHelp(0, 302);
    if (event.Control == MaxCheck)
        ControlChecked(MaxCheck) ? ShowHelp(0, 303, 0, 304) : ShowHelp(0, 305);
}

// A new account's file: today's Day marker, and above it an opening balance of nothing.
void AddFirstRows(const ARec &account) {
    const uint32_t view = state.ArchiveView;
    state.ArchiveView = 0;
    state.CurrentScreen = TransactionList;
    MakeAccountCurrent(account.ID);
    RecDate today;
    LoadTodaysDate(&today);
    TRec row;
    if (account.AccType != ListAccount) {
        InitTRec(&row);
        FillDayMarker(&row, today);
        AddRecFile(account.ID, 1, &row, 1);
    }
    InitTRec(&row);
    row.Date = today;
    row.Rank = EntryRank;
    row.Units = 1;
    CopyText(row.Name, TextRoom, u"Opening balance");
    AddRecFile(account.ID, 1, &row, 1);
    CalcBalance(account.ID);
    state.ArchiveView = view;
    state.CurrentScreen = AccountList;
    CheckT1totals(0);
}

int AddAccount(ARec *row) {
    const int32_t position = state.EntryCount[AccountList] + 1;
    row->ID = GetNextID();
    if (!AddRecFile(0, position, row, 0))
        return 0;
    state.SelectedPos[AccountList] = position;
    AddFirstRows(*row);
    return 1;
}

int ChangeAccount(const ARec &row) {
    if (!ModRecFile(0, state.SelectedPos[AccountList], &row))
        return 0;
    if (row.RowKind != HeadingRow)
        CalcBalance(row.ID);
    state.CurrentScreen = AccountList;
    CheckT1totals(0);
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
        RefuseTick(LimitMessage);
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
        ShowHelp(0, 115, 0, 117);
    else
        ShowHelp(0, 2, 3, 0, 117);
    return 1;
}
