// A question before what leaves the bin for good: the command is told in the message window, and done when it comes
// again. Anything else that the owner does meanwhile is a no.
#include "input/asking.h"
#include "frame/header.h"
#include "frame/message_window.h"
#include "platform/shell.h"
#include "resources/menus.h"
#include "screens/list_screen.h"
#include "state/messages.h"
#include "state/state.h"

namespace {

constexpr int OnlyTold = -1; // in place of a command: something was said, and nothing is asked

struct Question {
    int Command;
    Help Lines;
};
// clang-format off
constexpr Question Questions[] = { // the first is asked of every other command
    {CommandDeleteOne,       Help::AskDeleteOne},
    {CommandDeletePreceding, Help::AskDeleteSeveral},
    {CommandDeleteStart,     Help::AskDeleteSeveral},
    {CommandDeleteFinish,    Help::AskDeleteSeveral},
    {CommandEmptyBin,        Help::AskEmptyBin},
};
// clang-format on

const Question &QuestionOf(int command) {
    for (const Question &question : Questions)
        if (question.Command == command)
            return question;
    return Questions[0];
}

} // namespace

int Confirmed(int command) {
    const int screen = state.CurrentScreen;
    const bool again = state.AskedCommand == command && state.AskedScreen == screen &&
                       state.AskedPosition == state.SelectedPos[screen];
    ForgetQuestion();
    if (again)
        return 1;
    const bool opens = !state.HelpMode;
    if (opens)
        ToggleEyes();
    state.AskedCommand = command;
    state.AskedScreen = screen;
    state.AskedPosition = state.SelectedPos[screen];
    state.AskOpenedHelp = opens;
    Beep();
    ForceHelp(QuestionOf(command).Lines);
    return 0;
}

void Tell(Help help, AddedLine added) {
    if (state.AskedCommand != OnlyTold) {
        ForgetQuestion();
        const bool opens = !state.HelpMode;
        if (opens)
            ToggleEyes();
        state.AskedCommand = OnlyTold;
        state.AskOpenedHelp = opens;
    }
    ShowHelp(help, added);
}

void ForgetQuestion() {
    if (!state.AskedCommand)
        return;
    state.AskedCommand = 0;
    if (state.AskOpenedHelp && state.HelpMode)
        ToggleEyes();
    state.AskOpenedHelp = 0;
}

namespace {

// The list in its full height begins with the same row: the one under the stylus is the one that was seen there.
void ForgetUnderStylus() {
    const int screen = state.CurrentScreen;
    const int32_t top = state.TopPos[screen];
    ForgetQuestion();
    if (screen == GraphList || state.ActiveDialog != NoDialog || state.TopPos[screen] == top)
        return;
    LoadShownRows(top);
    state.Paint[screen](ListWindow, PaintCounts | PaintRows);
}

} // namespace

void HearAnswer(const Event &event) {
    const Key key = event.Kind == EventKind::Key ? static_cast<Key>(event.Code) : Key::None;
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        ForgetUnderStylus();
        return;
    case EventKind::Character:
        ForgetQuestion();
        return;
    case EventKind::Key: // the same key again comes as the same command
        if (state.AskedCommand == OnlyTold && (key == Key::Undo || key == Key::Redo))
            return; // it tells something new
        if (key != Key::Help && (state.AskedCommand == OnlyTold || (key != Key::Delete && key != Key::Drop6)))
            ForgetQuestion();
        else if (key == Key::Help)
            state.AskedCommand = 0; // the owner closes the help himself
        return;
    case EventKind::Command:
        if (event.Code == CommandLeftEye || event.Code == CommandRightEye)
            state.AskedCommand = 0;
        else if (event.Code != state.AskedCommand)
            ForgetQuestion();
        return;
    default:
        return;
    }
}
