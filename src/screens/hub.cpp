#include "screens/hub.h"
#include "analysis/calculator.h"
#include "forms/entry_fields.h"
#include "frame/form.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "platform/controls.h"
#include "platform/shell.h"
#include "screens/hub_face.h"
#include "screens/hub_values.h"
#include "screens/list_screen.h"
#include "screens/screens.h"
#include "state/greys.h"
#include "state/messages.h"
#include "store/windows.h"

namespace {

constexpr int HeldMilliseconds = 100;
constexpr int BackspaceCode = 8;

// --- Windows

bool FormOpen() {
    return state.OpenedForm != nullptr;
}

// The pages that live in the window which the calculator takes.
bool PageUnderCalculator() {
    return state.ActiveDialog == PassCodeDialog || state.ActiveDialog == PaletteDialog;
}

// The form goes out of sight, so that nothing typed lands in it unseen.
void CoverForm() {
    if (!FormOpen() || !WindowShown(DialogWindow))
        return;
    state.CoveredFocus = FocusedControl();
    ShowWindow(DialogWindow, 0);
}

void UncoverForm() {
    if (!FormOpen() || WindowShown(DialogWindow))
        return;
    ShowWindow(DialogWindow, 1);
    if (state.CoveredFocus != 0)
        FocusControl(state.CoveredFocus);
}

void ShowPanel() {
    state.HubState = SmallHub;
    ShowWindow(HostWindow, 0);
    if (PageUnderCalculator())
        ShowWindow(HostWindow, 1); // and a paint request that brings the page back
    PlaceWindow(HubWindow, HubPlace);
    ShowWindow(HubWindow, 1);
    if (!state.HubPicking)
        UncoverForm();
    DrawHub();
}

void ShowCalculator() {
    state.HubState = LargeHub;
    ShowWindow(HubWindow, 0);
    CoverForm();
    ShowWindow(HostWindow, 1);
    DrawHub();
}

// --- Opening

void ExplainHub() {
    if (state.ActiveDialog != NoDialog && !state.HubPicking)
        ShowHelp(Help::HubOverForm);
    else
        ShowHelp(Help::Hub);
}

// The panel takes the room of the message window, so that the tabs stay in sight.
void OpenHub() {
    if (!state.DataUsable || !state.FrontPageDone) {
        Beep();
        return;
    }
    state.HubState = SmallHub;
    if (!state.MessageWindowOn)
        ToggleHelpMode(1, 0);
    ShowPanel();
    SetGreys(state.CurrentScreen);
    ExplainHub();
}

// --- The conversion view

void ShowConversions() {
    state.CurrentScreen = ConversionList;
    int32_t *selected = &state.SelectedPos[ConversionList];
    LoadShownRows(0);
    if (*selected == 0)
        *selected = state.EntryCount[ConversionList];
    LoadShownRows(SetRecPosition(*selected, state.EntryCount[ConversionList]));
    PlaceListScrollBar();
    doCons(ListWindow, PaintAll);
}

void BeginPicking() {
    if (!state.FrontPageDone || PageUnderCalculator()) {
        Beep();
        return;
    }
    state.HubPicking = 1;
    state.PickScreen = state.CurrentScreen;
    state.PickSelected = state.SelectedPos[ConversionList];
    state.PickTop = state.TopPos[ConversionList];
    CoverForm();
    ShowConversions();
    ShowPanel();
    ShowHelp(Help::ConversionLabel);
}

// The screen as it was. A form may be open for a conversion: its row stays the selected one.
void LeaveConversions() {
    state.HubPicking = 0;
    if (state.PickScreen != ConversionList || FormOpen()) {
        state.SelectedPos[ConversionList] = state.PickSelected;
        state.TopPos[ConversionList] = state.PickTop;
    }
    state.CurrentScreen = state.PickScreen;
    if (state.CurrentScreen == ConversionList)
        LoadShownRows(state.TopPos[ConversionList]);
    state.Paint[state.CurrentScreen](ListWindow, PaintAll);
}

// --- Keys

// Under a form the pad is its keyboard. A whole number knows no point: there it leads on to the fraction.
bool TypeIntoForm(int key) {
    if (!FormOpen() || state.HubState != SmallHub || state.HubPicking)
        return false;
    if (key >= 0 && key <= 9)
        SendControlKey('0' + key);
    else if (key == BackKey)
        SendControlKey(BackspaceCode);
    else if (key == PointKey && FocusedControl() == WholeField && FieldPresent(FractionField))
        FocusControl(FractionField);
    else if (key == PointKey)
        SendControlKey('.');
    else
        return false;
    return true;
}

void ReadArrow() {
    FixedAmount value;
    if (!HubRead(&value)) {
        Beep();
        return;
    }
    *ActiveLine() = value;
    state.EntryState = NewNumber;
}

void WriteArrow() {
    state.EntryState = NewNumber;
    if (state.CalcError || !HubWrite(*ActiveLine()))
        Beep();
}

void TurnCone() {
    state.EntryState = NewNumber;
    if (state.HubPicking)
        LeaveConversions();
    if (state.HubState == SmallHub)
        ShowCalculator();
    else
        ShowPanel();
}

} // namespace

void TurnHub() {
    if (state.HubState == HubClosed)
        OpenHub();
    else if (state.HubState == LargeHub)
        CloseHub();
    else
        TurnCone();
}

void CloseHub() {
    if (state.HubState == HubClosed)
        return;
    if (state.HubPicking)
        LeaveConversions();
    const bool pageBelow = state.HubState == LargeHub && PageUnderCalculator();
    LeaveHelpOrHub(CommandHub);
    if (pageBelow)
        ShowWindow(HostWindow, 1);
    UncoverForm();
    SetGreys(state.CurrentScreen);
}

void HubKey(int key) {
    if (state.HubState == HubClosed || TypeIntoForm(key))
        return;
    switch (key) {
    case ReadKey:
        ReadArrow();
        break;
    case WriteKey:
        WriteArrow();
        break;
    case ConeKey:
        TurnCone();
        return;
    case ConversionsKey:
        if (!state.HubPicking)
            BeginPicking();
        return;
    default:
        CalculatorKey(key);
    }
    DrawHubDisplay();
    if (key == DecimalsKey)
        DrawHubKey(key, false);
}

int PressHub(int x, int y) {
    const int key = HubHit(x, y);
    if (key < 0)
        return key;
    ExplainHub();
    HubKey(key);
    if (key < FirstHeldKey) {
        DrawHubKey(key, true);
        Sleep(HeldMilliseconds);
        DrawHubKey(key, false);
    }
    return key;
}

void SettleHub() {
    FixedAmount value;
    if (state.HubState != SmallHub)
        return;
    const uint32_t reads = HubRead(&value), takes = HubTakesValue();
    if (reads == state.HubReads && takes == state.HubTakes)
        return;
    state.HubReads = reads;
    state.HubTakes = takes;
    DrawHubArrows();
}

bool HubCoversForm() {
    return FormOpen() && (state.HubState == LargeHub || state.HubPicking);
}

void EndPicking() {
    if (!state.HubPicking)
        return;
    LeaveConversions();
    ShowCalculator();
}

int PickRate() {
    FixedAmount rate;
    if (!state.HubPicking || !HubRead(&rate))
        return 0;
    *ActiveLine() = rate;
    state.EntryState = NewNumber;
    EndPicking();
    return 1;
}
