// The form of a recurring item. It shows one of the item's two blocks at a time: what is used next, and what is used
// from then on.
#include "ledger/recurring.h"
#include "drawing/colours.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "ledger/order.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/index.h"
#include "store/windows.h"
#include <cstring>

namespace {

constexpr char16_t ForEverText[] = u"For ever";
constexpr const char16_t *UnitNames[] = {u"Day(s)", u"Week(s)", u"Month(s)", u"Year(s)"};
constexpr int UnitCount = 4, MonthRow = 2;
constexpr int UnitRoom = 10;

DDRec &Working() {
    return state.FormRow.Recurring;
}
DDBlock &Block() {
    return Working().Block[state.BlockIndex];
}
bool IsNew() {
    return state.SelectedPos[RecurringList] > state.EntryCount[RecurringList];
}

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text      side          field
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 20, 26},         nullptr},
    {LabelItem,          {21, 6, 37, 26},        {20, 6, 38, 26},        u"→",     Align::Right, DateField},
    {ClearedItem,        {216, 8, 232, 24},      {217, 9, 240, 25},      nullptr},
    {TitleItem,          {0, 30, 35, 50},        {0, 31, 35, 51},        u"Name",  Align::Right, TitleField},
    {FirstSignItem,      {23, 54, 35, 66},       {24, 55, 36, 67},       nullptr},
    {FreeItem,           {197, 52, 233, 68},     {198, 53, 240, 69},     nullptr},
    {RefItem,            {0, 73, 35, 93},        {0, 74, 35, 94},        u"Ref",   Align::Right, TextField},
    {TimesItem,          {9, 98, 21, 110},       {0, 99, 24, 111},       nullptr},
    {SecondSignItem,     {23, 98, 35, 110},      {24, 99, 36, 111},      nullptr},
    {DefaultItem,        {83, 119, 97, 127},     {84, 117, 98, 131},     nullptr},
    {NextItem,           {97, 119, 139, 127},    {98, 117, 141, 131},    nullptr},
    {DefaultItem,        {36, 116, 80, 131},     {40, 117, 84, 131},     nullptr},
    {NextItem,           {142, 116, 190, 131},   {141, 117, 190, 131},   nullptr},
    {LabelItem,          {1, 131, 15, 150},      {0, 131, 15, 150},      u"→",     Align::Centre, AccountField},
    {LabelItem,          {119, 131, 134, 150},   {119, 131, 134, 150},   u"⇄",     Align::Centre, TransferField},
    {LabelItem,          {0, 150, 35, 169},      {0, 150, 36, 169},      u"Cat",   Align::Right, CategoryField},
    {LabelItem,          {0, 169, 37, 188},      {0, 169, 38, 188},      u"Every", Align::Right, CountField},
    {LabelItem,          {148, 169, 169, 188},   {148, 169, 170, 188},   u"For",   Align::Right, RemainingField},
};
// clang-format on

void ListUnits(int field) {
    for (const char16_t *name : UnitNames)
        AddControlItem(field, name);
}
void ListRemaining(int field) {
    AddControlItem(field, ForEverText);
    ListWholeNumbers(field);
}

// clang-format off
constexpr FieldList Lists[] = {
    {TitleField, ListTemplates}, {WholeField, ListWholeNumbers}, {FractionField, ListFractions},
    {MultiplierField, ListMultipliers}, {AccountField, ListAccounts}, {TransferField, ListTransfers},
    {CategoryField, ListCategories}, {CountField, ListWholeNumbers}, {UnitField, ListUnits},
    {RemainingField, ListRemaining},
};
// clang-format on

void Fill(int initialise);
int DiaProcDD();
void TellChange(const Event &event);
void Tapped(int item);
void Decor(int mask);

constexpr Form RecurringForm = {.Dialog = RecurringDialog,
                                .WithPanel = 1,
                                .Controls = &RecurringTemplate,
                                .Parts = Parts,
                                .FieldHelps = EntryHelps,
                                .Lists = Lists,
                                .Fill = Fill,
                                .Tick = DiaProcDD,
                                .Cross = nullptr,
                                .Changed = TellChange,
                                .Tapped = Tapped,
                                .Decor = Decor,
                                .Title = [] { return IsNew() ? u"New recurring item" : u"Recurring item"; }};

// One bar for what is used next, three for what is used thereafter; the block in view is dark and its name bold.
void Decor(int mask) {
    PaintPoint<51>(mask);
    if (!(mask & DecorSelector))
        return;
    constexpr int Bars = 4, BarPitch = 14, BarLeft = 83, BarTop = 119, BarBottom = 127;
    for (int bar = 0; bar < Bars; ++bar) {
        const bool inView = (bar == 0) == (state.BlockIndex == 0);
        const int left = BarLeft + bar * BarPitch;
        FillRect(DialogWindow, {left, BarTop, left + BarPitch - 1, BarBottom}, Black);
        FillRect(DialogWindow, {left + 1, BarTop + 1, left + BarPitch - 2, BarBottom - 1},
                 inView ? BrushColour(HeaderBrush) : White);
    }
    const bool first = state.BlockIndex == 0;
    PaintText(DialogWindow, u"First", {36, 116, 80, 131}, Align::Right, first ? Font::Bold : Font::Normal, Black);
    PaintText(DialogWindow, u"Then", {142, 116, 190, 131}, Align::Left, first ? Font::Normal : Font::Bold, Black);
}

void FillNumber(int field, int32_t number) {
    char16_t text[NumberRoom] = {};
    AppendNumber(text, NumberRoom, number);
    SetFieldText(field, text);
}

int32_t ReadFieldNumber(int field, int32_t shown) {
    if (!FieldTouched(field))
        return shown;
    char16_t text[ShownRoom];
    GetControlText(field, text, ShownRoom);
    return static_cast<int32_t>(ParseWholeField(text));
}

int UnitRow(char16_t letter) {
    for (int row = 0; row < UnitCount; ++row)
        if (UnitNames[row][0] == letter)
            return row;
    return -1;
}

void FillBlock() {
    FillEntryFields(Block(), 0);
}

void Fill(int) {
    const DDRec &item = Working();
    SetFieldDate(DateField, item.NextDate);
    SetFieldText(TitleField, item.Name);
    FillBlock();
    FillNumber(CountField, item.PeriodCount);
    SelectControlItem(UnitField, UnitRow(item.PeriodUnit[0]));
    if (item.TotalCount == ForEver)
        SetFieldText(RemainingField, ForEverText);
    else
        FillNumber(RemainingField, item.Remaining);
}

// The second block is the first one's until its owner changes it.
void ReadBlock() {
    DDBlock *blocks = Working().Block;
    const DDBlock before = Block();
    ReadEntryFields(&Block(), 0);
    if (state.BlockIndex == 1 && std::memcmp(&before, &Block(), sizeof before) != 0)
        state.BlockFollows = 0;
    if (state.BlockIndex == 0 && state.BlockFollows)
        blocks[1] = blocks[0];
}

void FlipBlock() {
    ReadBlock();
    const uint32_t sign = state.FirstSign;
    state.BlockIndex = 1 - state.BlockIndex;
    FillBlock();
    if (Block().Value == 0)
        state.FirstSign = sign; // nothing has none of its own
    DrawDialogDecor(DecorAll);
    if (state.BlockIndex == 0)
        ShowHelp(Help::NextBlock);
    else
        ShowHelp(Help::FurtherBlock);
}

void Tapped(int item) {
    if (item == DefaultItem || item == NextItem)
        FlipBlock();
}

void TakeTemplate(const FRec &picked) {
    ReadBlock();
    CopyText(Working().Name, TextRoom, picked.Name);
    SetFieldText(TitleField, picked.Name);
    CopyEntryValues(picked, &Block());
    if (state.BlockIndex == 1)
        state.BlockFollows = 0;
    FillBlock();
}

void TellChange(const Event &event) {
    HearEntryChoice(event, TakeTemplate);
}

void ReadPeriod(DDRec *item) {
    item->PeriodCount = ReadFieldNumber(CountField, item->PeriodCount);
    const int unit = SelectedControlItem(UnitField);
    if (unit >= 0 && unit < UnitCount)
        CopyText(item->PeriodUnit, UnitRoom, UnitNames[unit]);
    char16_t text[ShownRoom];
    GetControlText(RemainingField, text, ShownRoom);
    const bool forEver = SameText(text, ForEverText);
    // An edit restarts the count.
    item->Remaining = forEver ? ForEver : ReadFieldNumber(RemainingField, item->Remaining);
    item->TotalCount = item->Remaining;
}

// An account that one block has and the other lacks serves both.
void TieAccounts(DDRec *item) {
    DDBlock &inView = item->Block[state.BlockIndex], &other = item->Block[1 - state.BlockIndex];
    if (other.Account == 0)
        other.Account = inView.Account;
}

// True when a block that will be used has an account.
bool HasAccounts(const DDRec &item) {
    const bool usesFirst = !item.FirstDone, usesSecond = item.FirstDone || item.Remaining > 1;
    return (!usesFirst || item.Block[0].Account != 0) && (!usesSecond || item.Block[1].Account != 0);
}

int DiaProcDD() {
    ReadBlock();
    DDRec item = Working();
    item.Version = RecordVersion;
    item.RowKind = EntryRow;
    item.CatSlot = 0;
    item.ItemStatus = 0;
    item.Rank = EntryRank;
    const uint32_t before = item.NextDate.DayNumber;
    GetFieldDate(DateField, &item.NextDate);
    // A day that the month's length has moved is still wanted as long as nobody picks another.
    if (IsNew() || item.NextDate.DayNumber != before)
        item.DayWanted = static_cast<uint8_t>(item.NextDate.Day);
    if (FieldTouched(TitleField))
        GetControlText(TitleField, item.Name, TextRoom);
    TieAccounts(&item);
    ReadPeriod(&item);
    if (!HasAccounts(item)) {
        RefuseTick(Help::ItemNeedsAccount);
        return TickRefused;
    }
    const bool isNew = IsNew();
    const int32_t position = CpDates(item.NextDate, item.Rank);
    const int written =
        isNew ? AddRecFile(0, position, &item, 0) : MoveRecFile(0, state.SelectedPos[RecurringList], position, &item);
    if (!written)
        return 0;
    if (isNew)
        state.SelectedPos[RecurringList] = position;
    DDFileCheck();
    return 1;
}

void ProposeItem(DDRec *item) {
    InitDDRec(item);
    LoadTodaysDate(&item->NextDate);
    for (DDBlock &block : item->Block) {
        block.Units = 1;
        block.Account = AccountThere(state.CurAccount.ID) ? state.CurAccount.ID : 0;
    }
    item->PeriodCount = 1;
    item->TotalCount = item->Remaining = ForEver;
    CopyText(item->PeriodUnit, UnitRoom, UnitNames[MonthRow]);
}

} // namespace

int OpenRecurringForm() {
    if (state.OpenedForm || state.SelectedPos[RecurringList] < 1)
        return 0;
    const int isNew = !FetchDD(state.SelectedPos[RecurringList], &Working());
    if (isNew)
        ProposeItem(&Working());
    state.BlockIndex = BlockInForce(Working());
    state.BlockFollows = std::memcmp(&Working().Block[0], &Working().Block[1], sizeof(DDBlock)) == 0;
    if (!Dialog_Init(&RecurringForm))
        return 0;
    if (isNew) { // most often a debit
        state.FirstSign = 0;
        DrawDialogDecor(DecorFirstSign);
    }
    ShowHelp(isNew ? Help::NewRecurring : Help::ChangeRecurring);
    return 1;
}
