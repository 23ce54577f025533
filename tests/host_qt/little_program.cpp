#include "host_qt/little_program.h"
#include "hosts/qt/start.h"
#include "program/door.h"
#include <QApplication>
#include <sstream>

namespace little {

std::function<void(const Event &)> OnEvent;
int IdleStepsWanted, IdleStepsDone;
static std::string told;

static const char *const WindowNames[] = {"None", "Top", "List", "Host", "Hub", "Dialog"};
static const char *const ScrollNames[] = {"LineUp", "LineDown", "PageUp", "PageDown", "ThumbTrack", "Top", "Bottom"};
static const char *const ChangeNames[] = {"Focus",         "Choice",   "Dropped", "Text", "Pressed",
                                          "DoublePressed", "Calendar", "Minus",   "Plus"};

static std::string KeyWord(Key key) {
    static constexpr struct {
        Key First;
        const char *Words; // of the keys from that one on
    } Runs[] = {{Key::None, "None Up Down Left Right Enter Backspace Clear Digit0 Digit1 Digit2 Digit3 Digit4 Digit5 "
                            "Digit6 Digit7 Digit8 Digit9 Tab1 Tab2 Tab3 Tab4 Tab5 Tab6 Tab7 Tab8 Stroke Escape Help "
                            "Delete New Modify Tick"},
                {Key::TickAndNext, "TickAndNext Find Undo Redo"}};
    for (const auto &run : Runs) {
        std::istringstream words(run.Words);
        std::string word;
        for (int code = static_cast<int>(run.First); words >> word; ++code)
            if (code == static_cast<int>(key))
                return word;
    }
    return "?";
}

static std::string Words(const Event &event) {
    static const char *const Pointer[] = {"down", "move", "up", "double"};
    const size_t code = static_cast<size_t>(event.Code);
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::PointerMove:
    case EventKind::PointerUp:
    case EventKind::DoubleTap:
        return std::string(Pointer[static_cast<size_t>(event.Kind)]) + " " + WindowNames[event.Where] + " " +
               std::to_string(event.X) + "," + std::to_string(event.Y);
    case EventKind::Key:
        if (event.Code >= static_cast<int>(Key::HubKeys))
            return "hub " + std::to_string(event.Code - static_cast<int>(Key::HubKeys));
        return "key " + KeyWord(static_cast<Key>(event.Code));
    case EventKind::Character:
        return std::string("character ") + static_cast<char>(event.Code);
    case EventKind::Command:
        return "command " + std::to_string(event.Code);
    case EventKind::Control:
        return "control " + std::to_string(event.Control) + " " + ChangeNames[static_cast<size_t>(event.Change)];
    case EventKind::Scroll:
        return std::string("scroll ") + ScrollNames[code] +
               (event.Code == static_cast<int>(ScrollCode::ThumbTrack) ? " " + std::to_string(event.Position) : "");
    case EventKind::Paint:
        return "paint";
    case EventKind::Close:
        return "close";
    }
    return "?";
}

std::string Told() {
    Settle();
    return std::exchange(told, "");
}

void Begin(double scale) {
    OnEvent = nullptr;
    IdleStepsWanted = IdleStepsDone = 0;
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    CloseForm();
    ShowCommandBar(nullptr, 0);
    ShowScrollBar(0);
    for (const Window window : {HostWindow, HubWindow, DialogWindow})
        ShowWindow(window, 0);
    host.Frame->resize(qRound(ScreenWidth * scale), qRound(ScreenHeight * scale));
    host.Frame->activateWindow();
    Settle();
    ASSERT_DOUBLE_EQ(host.Scale, scale);
    for (ProgramWindow *window : host.Windows)
        if (window)
            window->PersistentImage()->fill(Qt::white);
    Told();
}

} // namespace little

int WinMain() {
    return CreateWindows() ? 1 : 0;
}

void HandleEvent(const Event &event) {
    if (!little::told.empty())
        little::told += "; ";
    little::told += little::Words(event);
    if (little::OnEvent)
        little::OnEvent(event);
}

Hint HintAt(Window where, int x, int) {
    return where == ListWindow && x < 100 ? Hint{u"Transactions", Key::Tab2} : Hint{};
}

int CanDragEdge(Window where, int x, int) {
    return where == TopWindow && x >= 100 && x < 110;
}

void RestStep() {}

int IdleStep() {
    if (little::IdleStepsWanted == 0)
        return 0;
    ++little::IdleStepsDone;
    return --little::IdleStepsWanted > 0;
}

int main(int count, char **words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, words);
    testing::InitGoogleTest(&count, words);
    PrepareHost(1);
    if (WinMain() != 1)
        return 1;
    ShowDevice();
    return RUN_ALL_TESTS();
}
