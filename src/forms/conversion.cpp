// The form of a conversion: one unit of the first currency is so many of the second.
#include "drawing/colours.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "platform/text.h"
#include "resources/art.h"
#include "resources/currencies.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

constexpr FixedAmount OneByOne = Thousand * Thousand; // 1.000 / rate, both in thousandths

CurRec &Working() {
    return state.FormRow.Conversion;
}
bool IsNew() {
    return state.SelectedPos[ConversionList] > state.EntryCount[ConversionList];
}

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text    side           field
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 20, 26},         nullptr},
    {LabelItem,          {105, 5, 135, 25},      {100, 0, 140, 39},      u"1",   Align::Centre},
    {FirstSignItem,      {33, 88, 45, 100},      {34, 89, 46, 101},      nullptr},
    {DirectionItem,      {196, 75, 228, 113},    {197, 76, 229, 114},    nullptr},
    {RefItem,            {0, 152, 35, 172},      {0, 152, 36, 172},      u"Ref", Align::Right,  TextField},
};
constexpr FieldHelp FieldHelps[] = {
    {LabelItem,      Help::ConversionLabel},
    {FromField,      Help::FromField},
    {ToField,        Help::ToField},
    {WholeField,     Help::WholeField},
    {FractionField,  Help::FractionField},
    {TextField,      Help::TextField},
    {DirectionItem,  Help::Direction},
};
// clang-format on

void ListCurrencies(int field) {
    for (const char16_t *name : Currencies)
        AddControlItem(field, name);
}
constexpr FieldList Lists[] = {{FromField, ListCurrencies},
                               {ToField, ListCurrencies},
                               {WholeField, ListWholeNumbers},
                               {FractionField, ListFractions}};

void Fill(int initialise);
int SaveConversion();
void Tapped(int item);
void Decor(int mask);

constexpr Form ConversionForm = {.Dialog = ConversionDialog,
                                 .WithPanel = 1,
                                 .Controls = &ConversionTemplate,
                                 .Parts = Parts,
                                 .FieldHelps = FieldHelps,
                                 .Lists = Lists,
                                 .Fill = Fill,
                                 .Tick = SaveConversion,
                                 .Cross = nullptr,
                                 .Changed = nullptr,
                                 .Tapped = Tapped,
                                 .Decor = Decor,
                                 .Title = [] { return IsNew() ? u"New conversion" : u"Conversion"; }};

void Decor(int mask) {
    if (mask & DecorEquals) {
        PaintText(DialogWindow, u"=", {105, 62, 135, 82}, Align::Centre, Font::LargeBold, Black);
        CopyImage(DialogWindow, {114, 26}, TimesSign, {0, 0, 12, 12});
        CopyImage(DialogWindow, {114, 112}, TimesSign, {0, 0, 12, 12});
        FillRect(DialogWindow, {133, 99, 137, 103}, Black); // the point between whole part and fraction
        const int left = state.Reversed ? 32 : 0;
        CopyImage(DialogWindow, {196, 75}, DirectionArrows, {left, 0, left + 32, 38});
    }
}

// What the fields show of the row, by the direction.
FixedAmount RateShown(const CurRec &row) {
    return state.Reversed ? row.InverseRate : row.Rate;
}
FixedAmount Reciprocal(FixedAmount rate) {
    return rate == 0 ? 0 : OneByOne / rate;
}

void Fill(int) {
    const CurRec &row = Working();
    SetFieldText(FromField, state.Reversed ? row.ToName : row.FromName);
    SetFieldText(ToField, state.Reversed ? row.FromName : row.ToName);
    FillAmount(RateShown(row), 0);
    state.FirstSign = row.Rate >= 0 && row.InverseRate >= 0;
    SetFieldText(TextField, row.Note);
    state.FormFlag = static_cast<int32_t>(row.ColourFlag % 4);
}

void ReadText(int field, char16_t *to) {
    if (FieldTouched(field))
        GetControlText(field, to, TextRoom);
}

// The fields into the working copy. A rate that nobody changed keeps both its sides as they are.
void ReadFields() {
    CurRec &row = Working();
    ReadText(FromField, state.Reversed ? row.ToName : row.FromName);
    ReadText(ToField, state.Reversed ? row.FromName : row.ToName);
    ReadText(TextField, row.Note);
    const FixedAmount shown = RateShown(row), rate = ReadAmount(shown);
    if (rate == shown)
        return;
    if (rate == NegateAmount(shown)) {
        row.Rate = NegateAmount(row.Rate);
        row.InverseRate = NegateAmount(row.InverseRate);
        return;
    }
    row.Rate = state.Reversed ? Reciprocal(rate) : rate;
    row.InverseRate = state.Reversed ? rate : Reciprocal(rate);
}

void Tapped(int item) {
    if (item != DirectionItem)
        return;
    const uint32_t now = state.Reversed;
    state.Reversed = !now; // the fields still show the direction before the tap
    ReadFields();
    state.Reversed = now;
    const int32_t flag = state.FormFlag;
    Fill(0);
    state.FormFlag = flag;
}

int SaveConversion() {
    ReadFields();
    CurRec &row = Working();
    row.Version = RecordVersion;
    row.RowKind = 0;
    row.DirectionState = state.Reversed;
    row.ColourFlag = static_cast<uint32_t>(state.FormFlag);
    if (!IsNew())
        return ModRecFile(0, state.SelectedPos[ConversionList], &row);
    const int32_t position = state.EntryCount[ConversionList] + 1;
    if (!AddRecFile(0, position, &row, 0))
        return 0;
    state.SelectedPos[ConversionList] = position;
    return 1;
}

} // namespace

int OpenConversionForm() {
    if (state.OpenedForm || state.SelectedPos[ConversionList] < 1)
        return 0;
    if (!FetchCur(state.SelectedPos[ConversionList], &Working()))
        InitCurRec(&Working());
    state.Reversed = Working().DirectionState != 0;
    if (!Dialog_Init(&ConversionForm))
        return 0;
    ShowHelp(Help::CategoryOrConversion);
    return 1;
}
