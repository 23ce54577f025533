#include "frame/form_hints.h"
#include "drawing/geometry.h"
#include "frame/form.h"
#include "frame/form_parts.h"

namespace {

struct MarkWords {
    int Item; // FormItem
    Key Pressed;
    uint32_t State::*Word; // chooses the words; null: always those when off
    const char16_t *Off, *On;
};
// clang-format off
constexpr MarkWords Marks[] = {
    {FlagItem,          Key::FlagPart,       nullptr,                u"Flag",                               nullptr},
    {FirstSignItem,     Key::FirstSignPart,  &State::FirstSign,      u"Minus: money goes",                  u"Plus: money comes"},
    {TimesItem,         Key::None,           nullptr,                u"Times: the multiplier",              nullptr},
    {SecondSignItem,    Key::SecondSignPart, &State::SecondSign,     u"Minus",                              u"Plus"},
    {UpItem,            Key::RowUp,          nullptr,                u"The entry before",                   nullptr},
    {DownItem,          Key::RowDown,        nullptr,                u"The entry after",                    nullptr},
    {ClearedItem,       Key::ClearedPart,    &State::FormCleared,    u"Not reconciled",                     u"Reconciled"},
    {FreeItem,          Key::FreePart,       &State::FormNoCash,     u"Gratis: no",                         u"Gratis: yes"},
    {DuplicateItem,     Key::DuplicatePart,  &State::DuplicateOn,    u"Duplicate: no",                      u"Saves as a duplicate"},
    {ViewItem,          Key::ViewPart,       &State::ViewIsAdvanced, u"Basic view",                         u"Advanced view"},
    {DefaultItem,       Key::OtherSidePart,  nullptr,                u"First: used next",                   nullptr},
    {NextItem,          Key::OtherSidePart,  nullptr,                u"Then: used from then on",            nullptr},
    {DirectionItem,     Key::OtherSidePart,  nullptr,                u"The other direction",                nullptr},
    {SelectedCountItem, Key::None,           nullptr,                u"The number of this row",             nullptr},
    {TotalItem,         Key::None,           nullptr,                u"The number of rows",                 nullptr},
};
// clang-format on

// A sign in an account's form is that of a limit.
const char16_t *SignWords(const MarkWords &mark, bool on) {
    const bool limit = state.ActiveDialog == NewAccountDialog || state.ActiveDialog == AccountDialog;
    return limit && mark.Item == FirstSignItem ? (on ? u"Plus" : u"Minus") : on ? mark.On : mark.Off;
}

} // namespace

Hint HintOfForm(int x, int y) {
    const FormPart *part = PartAt(x, y);
    if (!part)
        return {};
    for (const MarkWords &mark : Marks)
        if (mark.Item == part->Item)
            return {part->Text ? part->Text : SignWords(mark, mark.Word && state.*(mark.Word)), mark.Pressed};
    const char16_t *field = FieldName(part->Field);
    return {field ? field : part->Text};
}
