// How a form opens, hears events and ends.
#include "frame/form.h"
#include "drawing/geometry.h"
#include "frame/command_bar.h"
#include "frame/form_parts.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/refusal.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "state/error_log.h"
#include "state/greys.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

constexpr int RaiseMode = 0, LowerMode = 2, InputFormMode = 4;

// The lines at the end of a form, by screen and view.
// ORDER LIST
// clang-format off
constexpr Help EndLines[ScreenCount + 1][2] = {
    {Help::None,               Help::None},
    {Help::BackToAccounts,     Help::BackToArchivedAccounts},
    {Help::BackToTransactions, Help::BackToArchivedTransactions},
    {Help::BackToGraph,        Help::BackToArchivedGraph},
    {Help::BackToRecurring,    Help::BackToRecurring},
    {Help::BackToTemplates,    Help::BackToTemplates},
    {Help::BackToBin,          Help::BackToBin},
    {Help::BackToCategories,   Help::BackToCategories},
    {Help::BackToConversions,  Help::BackToConversions},
};
// clang-format on

void ShowEndLines() {
    const int screen = state.CurrentScreen;
    if (screen < AccountList || screen > ConversionList) {
        ReportError(In::Dialog_End, Trouble::CaseError);
        return;
    }
    ShowHelp(EndLines[screen][state.ArchiveView != 0]);
}

// The list as the form left it: where it stood as long as the selected row shows there.
void ShowListAgain() {
    const int list = state.CurrentScreen;
    if (list < AccountList || list > ConversionList)
        return;
    const int selected = state.SelectedPos[list];
    const bool stays = selected < 1 || list == GraphList || RowShows(RowOfPosition(selected));
    ReloadList(list, stays ? state.TopPos[list] : SetRecPosition(selected, state.EntryCount[list]));
    if (state.Paint[list])
        state.Paint[list](ListWindow, PaintAll);
}

void FillLists() {
    for (const FieldList &list : state.OpenedForm->Lists) {
        ClearControlList(list.Field);
        list.Fill(list.Field);
    }
}

void ShowTitle() {
    TitleDevice(state.OpenedForm && state.OpenedForm->Title ? state.OpenedForm->Title() : nullptr);
}

// A date that can't be read is told and stays to be put right.
int RefuseDate() {
    if (!FieldPresent(DateField) || ControlDateReads(DateField))
        return 0;
    FocusControl(DateField);
    RefuseTick(Help::NoDate);
    return 1;
}

// What the tick of the open form will have done.
Deed DeedOfTick() {
    switch (state.ActiveDialog) {
    case ConfigurationDialog:
        return Deed::Configured;
    case NotepadDialog:
        return Deed::Noted;
    case NewAccountDialog:
        return Deed::Added;
    case ImportDialog:
        return Deed::Imported;
    default:
        break;
    }
    const int screen = state.CurrentScreen;
    const bool isNew = state.DuplicateOn || state.SelectedPos[screen] > state.EntryCount[screen];
    return isNew ? Deed::Added : Deed::Changed;
}

void TickForm() {
    if (!state.OpenedForm->Tick || RefuseDate())
        return;
    const Deed deed = DeedOfTick();
    const int result = state.OpenedForm->Tick();
    NameDeed(deed);
    if (result == TickUnwritten)
        GiveActionUp();
    else if (result == TickDone && FinishAction())
        Dialog_End();
}

void CrossForm() {
    if (!state.OpenedForm->Tick)
        return; // a form without a tick ends by itself
    if (state.OpenedForm->Cross)
        state.OpenedForm->Cross();
    Dialog_End();
}

// The tick, and a new form of the kind once the work is done.
void TickAndGoOn() {
    void (*const again)() = state.OpenedForm->Again;
    TickForm();
    if (again && !state.OpenedForm)
        again();
}

int HandleCommand(int command) {
    if (command == CommandTick)
        TickForm();
    else if (command == CommandCross)
        CrossForm();
    else
        return 0;
    return 1;
}

// The keys that stand for taps on parts; of several parts, the one that the form has.
struct PartKey {
    Key Pressed;
    int Items[3]; // FormItem, NoItem from the last one on
};
// clang-format off
constexpr PartKey PartKeys[] = {
    {Key::RowUp,            {UpItem,         NoItem,           NoItem}},
    {Key::RowDown,          {DownItem,       NoItem,           NoItem}},
    {Key::FlagPart,         {FlagItem,       FirstChoiceItem,  ColourItem}},
    {Key::FirstSignPart,    {FirstSignItem,  SecondChoiceItem, NoItem}},
    {Key::SecondSignPart,   {SecondSignItem, ThirdChoiceItem,  NoItem}},
    {Key::ClearedPart,      {ClearedItem,    NoItem,           NoItem}},
    {Key::FreePart,         {FreeItem,       NoItem,           NoItem}},
    {Key::DuplicatePart,    {DuplicateItem,  NoItem,           NoItem}},
    {Key::ViewPart,         {ViewItem,       NoItem,           NoItem}},
    {Key::OtherSidePart,    {NextItem,       DirectionItem,    NoItem}},
};
// clang-format on

void TapByKey(Key key) {
    for (const PartKey &row : PartKeys)
        if (row.Pressed == key)
            for (const int item : row.Items)
                if (TapItem(item))
                    break;
}

// No key reaches the list under a form; the eyes and the hub alone stay the screens' own.
int HandleKey(Key key) {
    if (key == Key::Help || key >= Key::HubButton)
        return 0;
    if (key == Key::Tick || key == Key::Enter)
        TickForm();
    else if (key == Key::TickAndNext)
        TickAndGoOn();
    else if (key == Key::Escape)
        CrossForm();
    else if (state.OpenedForm->KeysStep && (key == Key::Up || key == Key::Down))
        TapItem(key == Key::Up ? UpItem : DownItem);
    else
        TapByKey(key);
    return 1;
}

// The sign that stands before a number.
struct FieldSign {
    int16_t Field;
    int Item; // FormItem
    uint32_t State::*Word;
    int Decor;
};
// clang-format off
constexpr FieldSign Signs[] = {
    {WholeField,      FirstSignItem,  &State::FirstSign,  DecorFirstSign},
    {FractionField,   FirstSignItem,  &State::FirstSign,  DecorFirstSign},
    {MultiplierField, SecondSignItem, &State::SecondSign, DecorSecondSign},
    {MaxField,        FirstSignItem,  &State::FirstSign,  DecorFirstSign},
    {MinField,        SecondSignItem, &State::SecondSign, DecorSecondSign},
};
// clang-format on

void SetSign(int field, int plus) {
    for (const FieldSign &sign : Signs)
        if (sign.Field == field && ShowsItem(sign.Item)) {
            state.*(sign.Word) = static_cast<uint32_t>(plus);
            DrawDialogDecor(sign.Decor);
            return;
        }
    Beep(); // a number that has none
}

void HandleControl(const Event &event) {
    if (event.Change == ControlChange::Minus || event.Change == ControlChange::Plus) {
        SetSign(event.Control, event.Change == ControlChange::Plus);
        return;
    }
    const bool told = event.Change == ControlChange::Focus || event.Change == ControlChange::Dropped ||
                      event.Change == ControlChange::Pressed || event.Change == ControlChange::Calendar;
    if (event.Change == ControlChange::Text || event.Change == ControlChange::Choice)
        MarkEdited(event.Control);
    if (told)
        ShowItemHelp(event.Control);
    if (state.OpenedForm->Changed)
        state.OpenedForm->Changed(event);
}

} // namespace

int Dialog_Init(const Form *form) {
    if (state.OpenedForm || state.ActiveDialog != NoDialog || !state.DataUsable)
        return 0;
    state.ActiveDialog = form->Dialog;
    state.OpenedForm = form;
    state.DuplicateOn = 0;
    state.DragSource = 0; // what was held is let go
    OpenForm(form->Controls);
    if (state.CurrentScreen != GraphList) {
        state.RowCount = RowsAboveMessages;
        PlaceListScrollBar();
    }
    if (form->WithPanel) {
        if (state.HubState == SmallHub) {
            SipControl(LowerMode);
            SipControl(InputFormMode);
        } else {
            SipControl(InputFormMode);
            SipControl(RaiseMode);
        }
        ShowEyes(OpenEye);
    }
    SetGreys(NoList);
    FillLists();
    if (form->Fill)
        form->Fill(1);
    DrawDialogDecor(DecorAll);
    ShowTitle();
    return 1;
}

void RebuildForm(const Form *form, int initialise) {
    state.ActiveDialog = form->Dialog;
    state.OpenedForm = form;
    const int focused = FocusedControl();
    OpenForm(form->Controls);
    FillLists();
    form->Fill(initialise);
    if (FieldPresent(focused))
        FocusControl(focused);
    DrawDialogDecor(DecorAll);
    ShowTitle();
}

void Dialog_End() {
    const int ended = state.ActiveDialog;
    state.ActiveDialog = ClosingDialog;
    SipControl(LowerMode);
    CloseForm();
    state.OpenedForm = nullptr;
    ShowTitle();
    state.ActiveDialog = NoDialog;
    state.RowCount = state.MessageWindowOn ? RowsAboveMessages : MostRows;
    if (state.CurrentScreen != GraphList) {
        PlaceListScrollBar();
        // The list is painted below; the request that the windows bring has nothing left to do.
        if (state.HubState == 0 && !state.HelpMode && ended != PassCodeDialog)
            PassOverRepaint();
    }
    if (state.BackToGraph) {
        state.BackToGraph = 0;
        state.CurrentScreen = GraphList;
    }
    SetGreys(state.CurrentScreen);
    ShowListAgain();
    ShowEndLines();
}

int HandleFormEvent(const Event &event) {
    if (!state.OpenedForm)
        return 0;
    switch (event.Kind) {
    case EventKind::Control:
        HandleControl(event);
        return 1;
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        if (event.Where != DialogWindow)
            return 0;
        if (!TapPart(event.X, event.Y))
            SipControl(InputFormMode); // a tap on the ground does not dismiss the keyboard
        return 1;
    case EventKind::PointerMove:
    case EventKind::PointerUp:
        return event.Where == DialogWindow;
    case EventKind::Command:
        return HandleCommand(event.Code);
    case EventKind::Key:
        return HandleKey(static_cast<Key>(event.Code));
    case EventKind::Paint:
        DrawDialogDecor(DecorAll);
        return 1;
    default:
        return 0;
    }
}

int SipControl(int mode) {
    if (mode == RaiseMode) {
        if (PanelUp())
            return 0;
        RaisePanel();
        return 1;
    }
    if (mode == LowerMode) {
        if (!PanelUp())
            return 0;
        LowerPanel();
        return 1;
    }
    PreferPanel(mode);
    return 0;
}

void RefuseTick(Help help) {
    if (!state.HelpMode)
        ToggleEyes();
    Beep();
    ForceHelp(help);
}

void TellUnwritten() {
    GiveActionUp();
}
