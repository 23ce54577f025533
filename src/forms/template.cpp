// The form of a template: an entry without date and account, kept in the order made.
#include "drawing/colours.h"
#include "forms/entry_fields.h"
#include "forms/forms.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

FRec &Working() {
    return state.FormRow.Template;
}
bool IsNew() {
    return state.SelectedPos[TemplateList] > state.EntryCount[TemplateList];
}

// clang-format off
constexpr FormPart Parts[] = {
    // item              box                     hit                     text     side          field
    {FlagItem,           {0, 0, 20, 26},         {0, 0, 35, 25},         nullptr},
    {TitleItem,          {0, 26, 35, 42},        {0, 25, 35, 38},        u"Name", Align::Right, TitleField},
    {FirstSignItem,      {23, 54, 35, 66},       {23, 55, 36, 67},       nullptr},
    {ClearedItem,        {188, 52, 204, 68},     {189, 53, 205, 69},     nullptr},
    {RefItem,            {0, 80, 35, 100},       {0, 84, 35, 98},        u"Ref",  Align::Right, TextField},
    {TimesItem,          {9, 114, 21, 126},      {0, 114, 23, 128},      nullptr},
    {SecondSignItem,     {23, 114, 35, 126},     {23, 114, 36, 128},     nullptr},
    {FreeItem,           {188, 110, 224, 126},   {189, 111, 225, 128},   nullptr},
    {LabelItem,          {5, 134, 35, 154},      {0, 129, 35, 141},      u"⇄",    Align::Right, TransferField},
    {CategoryItem,       {0, 158, 35, 178},      {0, 141, 35, 189},      u"Cat",  Align::Right, CategoryField},
};

constexpr FieldList Lists[] = {
    {TitleField, ListTemplates}, {WholeField, ListWholeNumbers}, {FractionField, ListFractions},
    {MultiplierField, ListMultipliers}, {TransferField, ListTransfers}, {CategoryField, ListCategories},
};
// clang-format on

void Fill(int initialise);
int DiaProcFav();
void TellChange(const Event &event);

const char16_t *Title() {
    const bool isNew = state.SelectedPos[TemplateList] > state.EntryCount[TemplateList];
    return isNew ? u"New template" : u"Template";
}

constexpr Form TemplateForm = {.Dialog = TemplateDialog,
                               .WithPanel = 1,
                               .Controls = &TemplateTemplate,
                               .Parts = Parts,
                               .FieldHelps = EntryHelps,
                               .Lists = Lists,
                               .Fill = Fill,
                               .Tick = DiaProcFav,
                               .Cross = nullptr,
                               .Changed = TellChange,
                               .Tapped = nullptr,
                               .Decor = PaintPoint<51>,
                               .Title = Title};

DDBlock BlockOf(const FRec &row) {
    DDBlock block = {};
    CopyEntryValues(row, &block);
    return block;
}

void Fill(int) {
    SetFieldText(TitleField, Working().Name);
    FillEntryFields(BlockOf(Working()), 0);
}

void TakeTemplate(const FRec &picked) {
    Working() = picked;
    Fill(0);
}

void TellChange(const Event &event) {
    HearEntryChoice(event, TakeTemplate);
}

int DiaProcFav() {
    FRec row = Working();
    if (FieldTouched(TitleField))
        GetControlText(TitleField, row.Name, TextRoom);
    DDBlock block = BlockOf(row);
    ReadEntryFields(&block, 1);
    CopyEntryValues(block, &row);
    if (!IsNew())
        return ModRecFile(0, state.SelectedPos[TemplateList], &row);
    const int32_t position = state.EntryCount[TemplateList] + 1;
    if (!AddRecFile(0, position, &row, 0))
        return 0;
    state.SelectedPos[TemplateList] = position;
    return 1;
}

} // namespace

int OpenTemplateForm() {
    if (state.OpenedForm || state.SelectedPos[TemplateList] < 1)
        return 0;
    const int isNew = !FetchFav(state.SelectedPos[TemplateList], &Working());
    if (isNew) {
        InitFRec(&Working());
        Working().Units = 1;
    }
    if (!Dialog_Init(&TemplateForm))
        return 0;
    ShowHelp(isNew ? Help::NewTemplate : Help::ChangeTemplate);
    return 1;
}
