// The form of a category. It shows the category between its neighbours, each in its colour.
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "drawing/palette.h"
#include "forms/forms.h"
#include "forms/palette.h"
#include "frame/changes.h"
#include "frame/form.h"
#include "frame/refusal.h"
#include "platform/text.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

CatRec &Working() {
    return state.FormRow.Category;
}

// Items of this form alone: the categories beside the central one, which is the ColourItem.
enum BarItem : int { UpperBar = 100, LowerBar = 102 };

// clang-format off
constexpr Rect UpperBox = {25, 28, 215, 50}, CentreBox = {5, 53, 235, 91}, LowerBox = {25, 94, 215, 116};
constexpr FormPart Parts[] = {
    // item              box                     hit                     text     side          field
    {SelectedCountItem,  {22, 0, 118, 18},       {0, 0, 120, 18},        nullptr, Align::Right},
    {UpItem,             {120, 0, 140, 18},      {120, 0, 141, 20},      nullptr},
    {DownItem,           {165, 0, 185, 18},      {165, 0, 186, 20},      nullptr},
    {TotalItem,          {188, 0, 218, 18},      {186, 0, 220, 18},      nullptr, Align::Left},
    {DuplicateItem,      {221, 0, 240, 20},      {220, 0, 240, 26},      nullptr},
    {UpperBar,           {},                     UpperBox,               u"Category before"},
    {ColourItem,         {},                     CentreBox,              u"Colour of the category"},
    {LowerBar,           {},                     LowerBox,               u"Category after"},
    {LabelItem,          {94, 126, 128, 146},    {90, 126, 130, 146},    u"Name", Align::Right, TextField},
    {LabelItem,          {0, 154, 35, 174},      {0, 154, 36, 174},      u"Ref",  Align::Right, DescriptionField},
};
constexpr FieldHelp FieldHelps[] = {
    {TextField,        Help::CategoryNameField},
    {DescriptionField, Help::DescriptionField},
    {UpItem,           Help::CategoryArrow},
    {DownItem,         Help::CategoryArrow},
    {UpperBar,         Help::CategoryBeside},
    {LowerBar,         Help::CategoryBeside},
};
// clang-format on

void Fill(int initialise);
int SaveCategory();
void Tapped(int item);
void Decor(int mask);

constexpr Form CategoryForm = {.Dialog = CategoryDialog,
                               .WithPanel = 1,
                               .Controls = &CategoryTemplate,
                               .Parts = Parts,
                               .FieldHelps = FieldHelps,
                               .Lists = {},
                               .Fill = Fill,
                               .Tick = SaveCategory,
                               .Cross = nullptr,
                               .Changed = nullptr,
                               .Tapped = Tapped,
                               .Decor = Decor,
                               .KeysStep = 1,
                               .Title = [] { return u"Category"; }};

// The position so many places on, wrapping at the ends.
int32_t Neighbour(int step) {
    const int32_t count = state.EntryCount[CategoryList];
    const int32_t position = state.SelectedPos[CategoryList] + step;
    return position > count ? 1 : position < 1 ? count : position;
}

Colour ColourOf(const CatRec &row) {
    return Rgb(row.Red & 255, row.Green & 255, row.Blue & 255);
}

void PaintBar(const CatRec &row, const Rect &box) {
    const Colour colour = ColourOf(row);
    FillRect(DialogWindow, box, Black);
    FillRect(DialogWindow, {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1}, colour);
    PaintText(DialogWindow, row.Name, {box.Left + 4, box.Top, box.Right - 4, box.Bottom}, Align::Centre, Font::Bold,
              Brightness(colour) >= 128 ? Black : White, 1);
}

void Decor(int mask) {
    if (!(mask & DecorPreview))
        return;
    PaintBar(Working(), CentreBox);
    if (state.EntryCount[CategoryList] < 2)
        return;
    PaintBar(state.CategoriesBeside[0], UpperBox);
    PaintBar(state.CategoriesBeside[1], LowerBox);
}

void Fill(int initialise) {
    if (initialise) {
        (void)FetchCat(state.SelectedPos[CategoryList], &Working());
        (void)FetchCat(Neighbour(-1), &state.CategoriesBeside[0]);
        (void)FetchCat(Neighbour(1), &state.CategoriesBeside[1]);
    }
    SetFieldText(TextField, Working().Name);
    SetFieldText(DescriptionField, Working().Description);
}

void TakeTyped(CatRec *row) {
    if (FieldTouched(TextField))
        GetControlText(TextField, row->Name, TextRoom);
    if (FieldTouched(DescriptionField))
        GetControlText(DescriptionField, row->Description, TextRoom);
}

int SaveCategory() {
    CatRec row = Working();
    TakeTyped(&row);
    if (!state.DuplicateOn)
        return ModRecFile(0, state.SelectedPos[CategoryList], &row);
    row.CatID = NewCatID();
    const int32_t position = state.EntryCount[CategoryList] + 1;
    if (!AddRecFile(0, position, &row, 0))
        return 0;
    state.SelectedPos[CategoryList] = position;
    return 1;
}

// Another category comes to the middle; what was typed is kept.
void Step(int step) {
    if (!SaveCategory()) {
        TellUnwritten();
        return;
    }
    if (!FinishAction())
        return;
    state.DuplicateOn = 0;
    state.SelectedPos[CategoryList] = Neighbour(step);
    Fill(1);
    DrawDialogDecor(DecorAll);
}

void Tapped(int item) {
    if (item == UpItem || item == UpperBar)
        Step(-1);
    else if (item == DownItem || item == LowerBar)
        Step(1);
    else if (item == DuplicateItem && !state.DuplicateOn)
        Fill(1);
    else if (item == ColourItem) {
        TakeTyped(&Working());
        OpenPalette();
    }
}

// A new category, at the end of the list: it stays there whatever becomes of the form.
int AddCategory() {
    CatRec row;
    InitCatRec(&row);
    const int32_t position = state.EntryCount[CategoryList] + 1;
    CopyText(row.Name, TextRoom, u"Cat ");
    AppendNumber(row.Name, TextRoom, position);
    AppendAscii(row.Name, TextRoom, " - ");
    row.CatID = NewCatID();
    const Colour colour = state.Palette[PaletteHash(row.Name)];
    row.Red = colour >> 16 & 255;
    row.Green = colour >> 8 & 255;
    row.Blue = colour & 255;
    if (!AddRecFile(0, position, &row, 0))
        return 0;
    state.SelectedPos[CategoryList] = position;
    return 1;
}

} // namespace

int OpenCategoryForm() {
    if (state.OpenedForm || !state.DataUsable || state.SelectedPos[CategoryList] < 1)
        return 0;
    const int isNew = !FetchCat(state.SelectedPos[CategoryList], &Working());
    if (isNew && !AddCategory())
        return 0;
    if (!Dialog_Init(&CategoryForm))
        return 0;
    ShowHelp(Help::CategoryOrConversion);
    return 1;
}
