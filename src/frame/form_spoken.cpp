#include "frame/form_spoken.h"
#include "frame/form.h"

namespace {

struct ItemWords {
    int Item;
    SpotKind Kind;
    const char16_t *Name;     // the part's own text goes before it
    uint32_t State::*Word;    // what a tap flips, null for none
    const char16_t *Off, *On; // said of the word; null: it is a check
};
// clang-format off
constexpr ItemWords Items[] = {
    // item            kind              name                       word                    at 0       at 1
    {FlagItem,         SpotKind::Choice, u"Flag",                   nullptr,                nullptr,   nullptr},
    {FirstSignItem,    SpotKind::Choice, u"Sign",                   &State::FirstSign,      u"minus",  u"plus"},
    {SecondSignItem,   SpotKind::Choice, u"Sign",                   &State::SecondSign,     u"minus",  u"plus"},
    {ClearedItem,      SpotKind::Check,  u"Reconciled",             &State::FormCleared,    nullptr,   nullptr},
    {FreeItem,         SpotKind::Check,  u"Gratis",                 &State::FormNoCash,     nullptr,   nullptr},
    {DuplicateItem,    SpotKind::Check,  u"Duplicate",              &State::DuplicateOn,    nullptr,   nullptr},
    {ViewItem,         SpotKind::Check,  u"Advanced view",          &State::ViewIsAdvanced, nullptr,   nullptr},
    {DirectionItem,    SpotKind::Check,  u"Reversed direction",     &State::Reversed,       nullptr,   nullptr},
    {UpItem,           SpotKind::Button, u"Entry before",           nullptr,                nullptr,   nullptr},
    {DownItem,         SpotKind::Button, u"Entry after",            nullptr,                nullptr,   nullptr},
    {DefaultItem,      SpotKind::Choice, u"First: used next",       nullptr,                nullptr,   nullptr},
    {NextItem,         SpotKind::Choice, u"Then: used from then on", nullptr,               nullptr,   nullptr},
    {FirstChoiceItem,  SpotKind::Choice, u"",                       nullptr,                nullptr,   nullptr},
    {SecondChoiceItem, SpotKind::Choice, u"",                       nullptr,                nullptr,   nullptr},
    {ThirdChoiceItem,  SpotKind::Choice, u"",                       nullptr,                nullptr,   nullptr},
};
// clang-format on

const ItemWords *WordsOf(int item) {
    for (const ItemWords &words : Items)
        if (words.Item == item)
            return &words;
    return nullptr;
}

const char16_t *FlagWord() {
    static constexpr const char16_t *Flags[] = {u"none", u"red", u"blue", u"yellow"};
    return Flags[state.FormFlag & 3];
}

// The name of the real control right of a mark; "" for none.
const char16_t *NameBeside(const Rect &box) {
    const FormTemplate &form = *state.OpenedForm->Controls;
    const int middle = (box.Top + box.Bottom) / 2;
    const FormControl *nearest = nullptr;
    for (int i = 0; i < form.Count; ++i) {
        const FormControl &control = form.Controls[i];
        if (control.X >= box.Left && middle >= control.Y && middle < control.Y + control.Height &&
            (!nearest || control.X < nearest->X))
            nearest = &control;
    }
    return nearest ? nearest->Name : u"";
}

// One of several that exclude each other: which is chosen.
void ShowChosen(Spot *spot, int item) {
    spot->Selectable = true;
    if (item == DefaultItem || item == NextItem)
        spot->Selected = (item == NextItem) == (state.BlockIndex == 1);
    else if (item >= FirstChoiceItem && item <= ThirdChoiceItem)
        spot->Selected = state.DateOption == item - FirstChoiceItem + 1;
    else
        spot->Selectable = false;
}

void ListItem(SpotList *list, const ItemWords &words, const FormPart &part, const Rect &box) {
    Spot &spot = AddSpot(list, words.Kind, DialogWindow, box, part.Text ? part.Text : words.Name);
    const bool on = words.Word && state.*(words.Word);
    spot.On = on && words.Kind == SpotKind::Check;
    if (words.Item == FirstSignItem || words.Item == SecondSignItem) {
        SayWords(&spot, u" of ");
        SayWords(&spot, NameBeside(box));
    }
    if (words.Item == FlagItem)
        SayMore(&spot, FlagWord());
    else if (words.On)
        SayMore(&spot, on ? words.On : words.Off);
    ShowChosen(&spot, words.Item);
}

void ListCount(SpotList *list, const Rect &box, const char16_t *before, int64_t number) {
    SayCount(&AddSpot(list, SpotKind::Text, DialogWindow, box, before), number);
}

// An arrow beside a box, which has its name by itself.
bool IsPicture(const char16_t *label) {
    return label[0] >= u'\u2190';
}

void ListPart(SpotList *list, const FormPart &part) {
    const bool painted = part.Box.Right > part.Box.Left, answers = part.Hit.Right > part.Hit.Left;
    const Rect &box = answers ? part.Hit : part.Box;
    if (const ItemWords *words = WordsOf(part.Item))
        ListItem(list, *words, part, box);
    else if (part.Item == SelectedCountItem)
        ListCount(list, box, u"Entry ", state.SelectedPos[state.CurrentScreen]);
    else if (part.Item == TotalItem)
        ListCount(list, box, u"of ", state.EntryCount[state.CurrentScreen]);
    else if (part.Text && part.Text[0] && !IsPicture(part.Text))
        AddSpot(list, painted ? SpotKind::Text : SpotKind::Button, DialogWindow, box, part.Text);
}

// A mark whose place is made of two boxes is one thing.
bool IsRepeated(const FormPart &part) {
    for (const FormPart &before : state.OpenedForm->Parts)
        if (&before == &part)
            return false;
        else if (before.Item == part.Item && WordsOf(part.Item) && (!before.Present || before.Present()))
            return true;
    return false;
}

} // namespace

void ListFormSpots(SpotList *list) {
    for (const FormPart &part : state.OpenedForm->Parts)
        if ((!part.Present || part.Present()) && !IsRepeated(part))
            ListPart(list, part);
    if (state.OpenedForm->Spoken)
        state.OpenedForm->Spoken(list);
}
