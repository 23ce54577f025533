#include "frame/form_parts.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "frame/form.h"
#include "platform/painting.h"
#include "platform/text.h"
#include "resources/art.h"
#include "state/messages.h"

namespace {

constexpr int FlagCount = 4;
constexpr Rect SignPart = {0, 0, 12, 12}, FlagPart = {0, 0, 20, 26}, PagePart = {0, 0, 19, 20},
               ArrowPart = {0, 0, 20, 18};
constexpr int ViewPitch = 20;

Point CornerOf(const FormPart &part) {
    return {part.Box.Left, part.Box.Top};
}

void PaintLabel(const FormPart &part) {
    PaintText(DialogWindow, part.Text, part.Box, part.Side, Font::Bold, Black);
}
void PaintFlagPicture(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), FlagNone + state.FormFlag, FlagPart);
}
void PaintFirstSign(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), state.FirstSign ? PlusSign : MinusSign, SignPart);
}
void PaintSecondSign(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), state.SecondSign ? PlusSign : MinusSign, SignPart);
}
void PaintTimes(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), TimesSign, SignPart);
}
void PaintArrowUp(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), EntryUp, ArrowPart);
}
void PaintArrowDown(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), EntryDown, ArrowPart);
}
void PaintNumber(const FormPart &part, int32_t number) {
    char16_t text[16] = {};
    AppendNumber(text, 16, number);
    PaintText(DialogWindow, text, part.Box, part.Side, Font::Bold, Black, 1);
}
void PaintSelected(const FormPart &part) {
    PaintNumber(part, state.SelectedPos[state.CurrentScreen]);
}
void PaintTotal(const FormPart &part) {
    PaintNumber(part, state.EntryCount[state.CurrentScreen]);
}
void PaintDuplicate(const FormPart &part) {
    CopyImage(DialogWindow, CornerOf(part), state.DuplicateOn ? TwoPages : OnePage, PagePart);
}
void PaintView(const FormPart &part) {
    const int left = state.ViewIsAdvanced ? ViewPitch : 0;
    CopyImage(DialogWindow, CornerOf(part), ViewPictures, {left, 0, left + ViewPitch, ViewPitch});
}

// A box with a frame: dark as a reconciled row and ticked when on, silver when off.
void PaintCleared(const FormPart &part) {
    const Rect &box = part.Box;
    FillRect(DialogWindow, box, Black);
    FillRect(DialogWindow, {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1},
             BrushColour(state.FormCleared ? ReconciledBrush : SilverBrush));
    if (!state.FormCleared)
        return;
    const Point tick[] = {{box.Left + 3, box.Top + 7}, {box.Left + 6, box.Top + 11}, {box.Right - 4, box.Top + 4}};
    DrawPolyline(DialogWindow, tick, 3, Black, 2);
}
void PaintFree(const FormPart &part) {
    const Rect &box = part.Box;
    const Colour ink = state.FormNoCash ? Black : MutedGrey;
    FillRect(DialogWindow, box, ink);
    FillRect(DialogWindow, {box.Left + 1, box.Top + 1, box.Right - 1, box.Bottom - 1},
             state.FormNoCash ? FlagColour(3) : White);
    PaintText(DialogWindow, u"Gratis", {box.Left + 2, box.Top, box.Right - 2, box.Bottom}, Align::Centre, Font::Bold,
              ink, 1);
}

// What an item is on all forms: its bit, the state word that a tap flips, its help lines with the word at 0 and at 1,
// and its picture. ORDER FORMITEM
struct ItemKind {
    int Item;
    int Decor;
    uint32_t State::*Word;
    Help OffLines, OnLines; // None: none of its own
    void (*Paint)(const FormPart &part);
};

// clang-format off
constexpr ItemKind ItemKinds[] = {
    // item             bit               word                    lines when off           lines when on
    {LabelItem,         DecorLabels,      nullptr,                Help::None,               Help::None,               PaintLabel},
    {FirstSignItem,     DecorFirstSign,   &State::FirstSign,      Help::Sign,               Help::Sign,               PaintFirstSign},
    {TimesItem,         DecorSecondSign,  nullptr,                Help::MultiplierSign,     Help::None,               PaintTimes},
    {DownItem,          DecorCounters,    nullptr,                Help::EntryArrow,         Help::None,               PaintArrowDown},
    {UpItem,            DecorCounters,    nullptr,                Help::EntryArrow,         Help::None,               PaintArrowUp},
    {DirectionItem,     DecorAll,         &State::Reversed,       Help::Direction,          Help::Direction,          nullptr},
    {FlagItem,          DecorFlag,        nullptr,                Help::Flag,               Help::None,               PaintFlagPicture},
    {TitleItem,         DecorLabels,      nullptr,                Help::None,               Help::None,               PaintLabel},
    {RefItem,           DecorLabels,      nullptr,                Help::None,               Help::None,               PaintLabel},
    {SecondSignItem,    DecorSecondSign,  &State::SecondSign,     Help::MultiplierSign,     Help::MultiplierSign,     PaintSecondSign},
    {CategoryItem,      DecorLabels,      nullptr,                Help::None,               Help::None,               PaintLabel},
    {FreeItem,          DecorFree,        &State::FormNoCash,     Help::Gratis,             Help::Gratis,             PaintFree},
    {ClearedItem,       DecorCleared,     &State::FormCleared,    Help::Cleared,            Help::Cleared,            PaintCleared},
    {DefaultItem,       DecorSelector,    nullptr,                Help::None,               Help::None,               nullptr},
    {NextItem,          DecorSelector,    nullptr,                Help::None,               Help::None,               nullptr},
    {SelectedCountItem, DecorCounters,    nullptr,                Help::SelectedNumber,     Help::None,               PaintSelected},
    {TotalItem,         DecorCounters,    nullptr,                Help::EntryCount,         Help::None,               PaintTotal},
    {DuplicateItem,     DecorDuplicate,   &State::DuplicateOn,    Help::DuplicateDropped,   Help::DuplicateMade,      PaintDuplicate},
    {ViewItem,          DecorView,        &State::ViewIsAdvanced, Help::BasicView,          Help::AdvancedView,       PaintView},
    {TypeItem,          DecorLabels,      nullptr,                Help::None,               Help::None,               PaintLabel},
};
// clang-format on

const ItemKind *KindOf(int item) {
    for (const ItemKind &kind : ItemKinds)
        if (kind.Item == item)
            return &kind;
    return nullptr;
}

bool Empty(const Rect &box) {
    return box.Left >= box.Right || box.Top >= box.Bottom;
}

bool PartPresent(const FormPart &part) {
    return !part.Present || part.Present();
}

const FieldHelp *HelpOf(int id) {
    for (const FieldHelp &row : state.OpenedForm->FieldHelps)
        if (row.Id == id)
            return &row;
    return nullptr;
}

void ShowTapHelp(const FormPart &part, const ItemKind *kind) {
    if (const FieldHelp *row = HelpOf(part.Item != LabelItem && HelpOf(part.Item) ? part.Item : part.Field))
        ShowHelp(row->Lines);
    else if (part.Item == ViewItem)
        ForceHelp(state.ViewIsAdvanced ? kind->OnLines : kind->OffLines); // the form was built anew
    else if (kind && kind->OffLines != Help::None)
        ShowHelp(kind->Word && state.*(kind->Word) ? kind->OnLines : kind->OffLines);
}

void Tap(const FormPart &part) {
    const ItemKind *kind = KindOf(part.Item);
    if (part.Item == FlagItem)
        state.FormFlag = (state.FormFlag + 1) % FlagCount;
    else if (part.Item == TimesItem)
        state.SecondSign = 1;
    else if (kind && kind->Word)
        state.*(kind->Word) ^= 1U;
    if (state.OpenedForm->Tapped)
        state.OpenedForm->Tapped(part.Item);
    if (!state.OpenedForm)
        return;
    ShowTapHelp(part, kind);
    if (kind)
        DrawDialogDecor(kind->Decor);
}

} // namespace

const FormPart *PartAt(int x, int y) {
    if (!state.OpenedForm)
        return nullptr;
    for (const FormPart &part : state.OpenedForm->Parts)
        if (Inside(part.Hit, x, y) && PartPresent(part))
            return &part;
    return nullptr;
}

bool ShowsItem(int item) {
    for (const FormPart &part : state.OpenedForm->Parts)
        if (part.Item == item && PartPresent(part))
            return true;
    return false;
}

int TapPart(int x, int y) {
    const FormPart *part = PartAt(x, y);
    if (!part)
        return 0;
    Tap(*part);
    return 1;
}

int TapItem(int item) {
    for (const FormPart &part : state.OpenedForm->Parts)
        if (part.Item == item && PartPresent(part)) {
            Tap(part);
            return 1;
        }
    return 0;
}

void ShowItemHelp(int id) {
    if (const FieldHelp *row = HelpOf(id))
        ShowHelp(row->Lines);
}

int DialogItemAtPos(int x, int y) {
    const FormPart *part = PartAt(x, y);
    return part && part->Item != LabelItem ? part->Item : NoItem;
}

void DrawDialogDecor(int mask) {
    if (!state.OpenedForm)
        return;
    const Painting painting;
    const bool whole = (mask & DecorGround) != 0;
    if (whole) {
        const Rect ground = {0, 0, ScreenWidth, state.MessageWindowOn ? MessageTopInForm : VisibleBottom};
        CopyImage(DialogWindow, {0, 0}, FormGround, ground);
    }
    for (const FormPart &part : state.OpenedForm->Parts) {
        const ItemKind *kind = KindOf(part.Item);
        if (!kind || !(kind->Decor & mask) || Empty(part.Box) || !PartPresent(part))
            continue;
        if (!whole)
            CopyImage(DialogWindow, CornerOf(part), FormGround, part.Box);
        if (kind->Paint)
            kind->Paint(part);
    }
    if (state.OpenedForm->Decor)
        state.OpenedForm->Decor(mask);
    if (whole && state.MessageWindowOn && state.Paint[0])
        state.Paint[0](DialogWindow, DecorAll);
}
