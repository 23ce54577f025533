#include "frame/message_window.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "frame/command_bar.h"
#include "frame/form.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "platform/painting.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "resources/menus.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/windows.h"

namespace {

constexpr int TextLeft = 2, ListLead = 3; // above the first line when no form is open
constexpr int CountRight = 35, ReportLeft = 37;

// ORDER REPORTLINE: of state.ImportCount; the last row is the summary
enum ReportRow : int { WellFormed, BadlyFormed, AsRequested, Unreadable, TooBig, Summary };
struct ReportLine {
    const char16_t *Text;
    Colour WhenAny, WhenNone; // ink by the count; the first row's by whether the import succeeded
};
// clang-format off
constexpr ReportLine Report[MessageLines] = {
    {u"entries imported (well formed)",  Green,     MutedGrey},
    {u"entries imported (badly formed)", AlertRed,  Black},
    {u"entries skipped (as requested)",  MutedGrey, Black},
    {u"entries skipped (unreadable)",    AlertRed,  Black},
    {u"entries skipped (file too big)",  AlertRed,  Black},
    {u"Summary:      Imported ",         Black,     Black},
};
// clang-format on

Window MessageTarget() {
    switch (state.ActiveDialog) {
    case ClosingDialog:
    case NoDialog:
        return ListWindow;
    case PassCodeDialog:
        return state.StrongMode ? DialogWindow : HostWindow;
    case PaletteDialog:
        return HostWindow;
    default:
        return DialogWindow;
    }
}

bool HasExclamation(const char16_t *text) {
    for (; *text; ++text)
        if (*text == u'!')
            return true;
    return false;
}

void PaintReportLine(Window window, int row, int top) {
    const ReportLine &line = Report[row];
    const int32_t *count = state.ImportCount;
    const Rect textBox = {ReportLeft, top, ScreenWidth, top + MessageLineHeight};
    if (row == Summary) {
        char16_t text[80] = u"";
        AppendText(text, 80, line.Text);
        AppendNumber(text, 80, int64_t{count[WellFormed]} + count[BadlyFormed]);
        AppendAscii(text, 80, " of ");
        AppendNumber(text, 80, count[Summary]);
        PaintText(window, text, textBox, Align::Left, Font::Bold, Black, 1);
        return;
    }
    const bool any = row == WellFormed ? state.ImportSucceeded != 0 : count[row] != 0;
    const Colour wanted = any ? line.WhenAny : line.WhenNone;
    char16_t number[16] = u"";
    AppendNumber(number, 16, count[row]);
    const Colour ink = wanted == AlertRed ? InkOn(White, wanted) : wanted;
    PaintText(window, number, {TextLeft, top, CountRight, textBox.Bottom}, Align::Right, Font::Bold, ink, 1);
    PaintText(window, line.Text, textBox, Align::Left, Font::Bold, ink, 1);
}

void PaintLine(Window window, int id, int top) {
    if (id < 0 && id >= -MessageLines) {
        PaintReportLine(window, -id - 1, top);
        return;
    }
    const char16_t *text = MessageText(id);
    if (!*text)
        return;
    PaintText(window, text, {TextLeft, top, ScreenWidth, top + MessageLineHeight},
              state.MessageAlign ? Align::Centre : Align::Left, Font::Bold,
              HasExclamation(text) ? InkOn(White, AlertRed) : Black, 1);
}

void PaintCurrentScreen(int mask) {
    const int screen = state.CurrentScreen;
    if (screen >= AccountList && screen <= ConversionList && state.Paint[screen])
        state.Paint[screen](ListWindow, mask);
}

// The list in its new height.
void RelayList(int reload, int mask) {
    const int screen = state.CurrentScreen;
    if (screen == GraphList)
        ReloadList(screen, state.TopPos[screen]);
    else if (reload && state.EntryCount[screen] > 0)
        ReloadList(screen, SetRecPosition(state.SelectedPos[screen], state.EntryCount[screen]));
    PaintCurrentScreen(screen == GraphList ? PaintAll : mask);
}

void OpenMessages(int reload, int keepDialog) {
    const bool listShrinks = state.RowCount != RowsAboveMessages; // an open hub has made the room already
    state.MessageWindowOn = 1;
    state.RowCount = RowsAboveMessages;
    if (!keepDialog)
        LowerPanel();
    if (state.ActiveDialog != PassCodeDialog) {
        if (state.ActiveDialog == NoDialog && state.HubState != LargeHub)
            PlaceListScrollBar();
        RelayList(reload, PaintAll);
    }
    if (state.ActiveDialog == NoDialog && listShrinks)
        PassOverRepaint();
    if (state.ActiveDialog == NewAccountDialog)
        ForceHelp(Help::HelpModeInNewAccount);
    else
        ForceHelp(Help::HelpMode);
    if (!state.HelpMode)
        PaintMessages(ListWindow, PaintAll); // opened for a report: nobody else paints the window
    ShowEyes(OpenEye);
}

void CloseMessages(int reload, int keepDialog) {
    state.MessageWindowOn = 0;
    state.RowCount = MostRows;
    if (state.ActiveDialog == PassCodeDialog) {
        LowerPanel();
        return;
    }
    if (state.ActiveDialog != NoDialog && !keepDialog)
        RaisePanel();
    PlaceListScrollBar();
    RelayList(reload, PaintRows | PaintTabs);
    if (state.OpenedForm)
        DrawDialogDecor(DecorAll); // where the lines stood
}

} // namespace

void PaintMessages(Window, int) {
    const Painting painting;
    if (state.HubState != 0 || !state.MessageWindowOn)
        return;
    const Window window = MessageTarget();
    const int top = window == ListWindow ? MessageTop : MessageTopInForm;
    FillRect(window, {0, top, ScreenWidth, WindowBoxes[TopWindow].Bottom}, White);
    int lineTop = window == ListWindow ? top + ListLead : top;
    for (int i = 0; i < MessageLines; ++i, lineTop += MessageLineHeight)
        PaintLine(window, state.MessageLine[i], lineTop);
}

void ToggleHelpMode(int reload, int keepDialog) {
    if (state.MessageWindowOn)
        CloseMessages(reload, keepDialog);
    else
        OpenMessages(reload, keepDialog);
}

void LeaveHelpOrHub(int button) {
    if (button == CommandHub && state.HubState != HubClosed) {
        ShowWindow(state.HubState == LargeHub ? HostWindow : HubWindow, 0);
        state.HubState = HubClosed;
        if (!state.HelpMode && state.MessageWindowOn)
            ToggleHelpMode(1, 0); // the room was the hub's
        else if (!state.HelpMode)
            PaintCurrentScreen(PaintAll);
        RepeatHelp();
    } else if (state.HelpMode) {
        state.HelpMode = 0;
        if (state.HubState == HubClosed) { // an open hub stays, and with it the room that it stands in
            state.MessageWindowOn = 1;
            ToggleHelpMode(1, 0);
        }
        ShowEyes(ShutEye);
    }
}

void ToggleEyes() {
    if (!state.FrontPageDone)
        return;
    if (state.HelpMode) {
        LeaveHelpOrHub(CommandLeftEye);
        return;
    }
    state.HelpMode = 1;
    if (state.MessageWindowOn)
        state.MessageWindowOn = 0; // open already, for a report: it opens anew with help mode's own lines
    ToggleHelpMode(1, 0);
}

int ListMessages(Spot *to, int room) {
    if (state.HubState != 0 || !state.MessageWindowOn)
        return 0;
    const Window window = MessageTarget();
    const int first = window == ListWindow ? MessageTop + ListLead : MessageTopInForm;
    int count = 0;
    for (int i = 0; i < MessageLines && count < room; ++i) {
        const int id = state.MessageLine[i], top = first + i * MessageLineHeight;
        Spot spot = {.Kind = SpotKind::Message, .Where = window, .Box = {0, top, ScreenWidth, top + MessageLineHeight}};
        if (id < 0 && id >= -MessageLines) {
            const int row = -id - 1;
            const int64_t imported = int64_t{state.ImportCount[WellFormed]} + state.ImportCount[BadlyFormed];
            AppendNumber(spot.Name, SpotNameRoom, row == Summary ? imported : state.ImportCount[row]);
            AppendAscii(spot.Name, SpotNameRoom, " ");
            AppendText(spot.Name, SpotNameRoom, row == Summary ? u"entries imported in all" : Report[row].Text);
        } else {
            AppendText(spot.Name, SpotNameRoom, MessageText(id));
        }
        if (spot.Name[0])
            to[count++] = spot;
    }
    return count;
}
