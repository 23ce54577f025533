// The key table: what each key of a keyboard is to the program. While a form is open, keys belong to the control that
// has the focus, but for the rows that say otherwise.
#include "hosts/qt/keys.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "platform/controls.h"
#include "platform/shell.h"
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace {

enum class Does : uint8_t { SendKey, SendScroll, OpenMenu };
enum Where : uint8_t { OnScreens = 1, InForms = 2, Anywhere = 3 };

struct KeyRow {
    int QtKey;
    Qt::KeyboardModifiers Modifiers;
    Does What;
    int Code;
    Where Place = OnScreens;
    bool Repeats = false; // while it is held
};

constexpr KeyRow Press(int qtKey, Key key, Where place = OnScreens) {
    return {qtKey, Qt::NoModifier, Does::SendKey, static_cast<int>(key), place};
}
constexpr KeyRow Held(int qtKey, Key key, Where place = OnScreens) {
    return {qtKey, Qt::NoModifier, Does::SendKey, static_cast<int>(key), place, true};
}
constexpr KeyRow Control(int qtKey, Key key, Where place = OnScreens) {
    return {qtKey, Qt::ControlModifier, Does::SendKey, static_cast<int>(key), place};
}
constexpr KeyRow WithAlt(int qtKey, Key key) {
    return {qtKey, Qt::AltModifier, Does::SendKey, static_cast<int>(key)};
}
constexpr KeyRow Scroll(int qtKey, ScrollCode code) {
    return {qtKey, Qt::NoModifier, Does::SendScroll, static_cast<int>(code), OnScreens, true};
}

// clang-format off
constexpr KeyRow Keys[] = {
    Held(Qt::Key_Up, Key::Up, Anywhere),    Held(Qt::Key_Down, Key::Down, Anywhere),
    Held(Qt::Key_Left, Key::Left),          Held(Qt::Key_Right, Key::Right),
    Press(Qt::Key_Return, Key::Enter),      Press(Qt::Key_Enter, Key::Enter),
    Held(Qt::Key_Backspace, Key::Backspace), Press(Qt::Key_Clear, Key::Clear),
    Press(Qt::Key_0, Key::Digit0),          Press(Qt::Key_1, Key::Digit1),
    Press(Qt::Key_2, Key::Digit2),          Press(Qt::Key_3, Key::Digit3),
    Press(Qt::Key_4, Key::Digit4),          Press(Qt::Key_5, Key::Digit5),
    Press(Qt::Key_6, Key::Digit6),          Press(Qt::Key_7, Key::Digit7),
    Press(Qt::Key_8, Key::Digit8),          Press(Qt::Key_9, Key::Digit9),
    Control(Qt::Key_1, Key::Tab1),          Control(Qt::Key_2, Key::Tab2),
    Control(Qt::Key_3, Key::Tab3),          Control(Qt::Key_4, Key::Tab4),
    Control(Qt::Key_5, Key::Tab5),          Control(Qt::Key_6, Key::Tab6),
    Control(Qt::Key_7, Key::Tab7),          Control(Qt::Key_8, Key::Tab8),
    Press(Qt::Key_Space, Key::Stroke),      Press(Qt::Key_Delete, Key::Delete),
    Control(Qt::Key_N, Key::New),           Control(Qt::Key_M, Key::Modify),
    WithAlt(Qt::Key_1, Key::Drop1),         WithAlt(Qt::Key_2, Key::Drop2),
    WithAlt(Qt::Key_3, Key::Drop3),         WithAlt(Qt::Key_4, Key::Drop4),
    WithAlt(Qt::Key_5, Key::Drop5),         WithAlt(Qt::Key_6, Key::Drop6),
    WithAlt(Qt::Key_7, Key::Drop7),         WithAlt(Qt::Key_8, Key::Drop8),
    Control(Qt::Key_Up, Key::RowUp, Anywhere), Control(Qt::Key_Down, Key::RowDown, Anywhere),
    Press(Qt::Key_F2, Key::Title1),         Press(Qt::Key_F3, Key::Title2),
    Press(Qt::Key_F4, Key::Title3),         Press(Qt::Key_F5, Key::Title4),
    Press(Qt::Key_F6, Key::Header),
    Press(Qt::Key_F2, Key::FlagPart, InForms), Press(Qt::Key_F3, Key::FirstSignPart, InForms),
    Press(Qt::Key_F4, Key::SecondSignPart, InForms), Press(Qt::Key_F5, Key::ClearedPart, InForms),
    Press(Qt::Key_F6, Key::FreePart, InForms), Press(Qt::Key_F7, Key::DuplicatePart, InForms),
    Press(Qt::Key_F8, Key::ViewPart, InForms), Press(Qt::Key_F9, Key::OtherSidePart, InForms),
    Scroll(Qt::Key_PageUp, ScrollCode::PageUp), Scroll(Qt::Key_PageDown, ScrollCode::PageDown),
    Scroll(Qt::Key_Home, ScrollCode::Top),  Scroll(Qt::Key_End, ScrollCode::Bottom),
    Press(Qt::Key_F1, Key::Help, Anywhere), Press(Qt::Key_Escape, Key::Escape, Anywhere),
    Control(Qt::Key_Return, Key::Tick, Anywhere), Control(Qt::Key_Enter, Key::Tick, Anywhere),
    // The tick is the default of a form.
    Press(Qt::Key_Return, Key::Tick, InForms), Press(Qt::Key_Enter, Key::Tick, InForms),
    {Qt::Key_F10, Qt::NoModifier, Does::OpenMenu, 0, Anywhere},
};
// clang-format on

// Return in a text of several lines begins a new one, in a list it opens the row; Up and Down mean something to every
// control but a text of one line.
bool IsTheControls(int key, const QWidget *focus) {
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        return !qobject_cast<const QLineEdit *>(focus);
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    return isReturn && (qobject_cast<const QPlainTextEdit *>(focus) || qobject_cast<const QListWidget *>(focus));
}

const KeyRow *RowOf(const QKeyEvent &event, Where place) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
    for (const KeyRow &row : Keys)
        if (row.QtKey == event.key() && row.Modifiers == modifiers && (row.Place & place))
            return &row;
    return nullptr;
}

bool Take(const QKeyEvent &event) {
    const Where place = OpenFormNumber() ? InForms : OnScreens;
    const KeyRow *const row = RowOf(event, place);
    if (!row)
        return false;
    if (place == InForms && row->Modifiers == Qt::NoModifier && IsTheControls(event.key(), host.Frame->focusWidget()))
        return false;
    if (event.isAutoRepeat() && !row->Repeats)
        return true;
    switch (row->What) {
    case Does::SendKey:
        Deliver({.Kind = EventKind::Key, .Code = row->Code});
        break;
    case Does::SendScroll:
        if (host.ListBar && !host.ListBar->isHidden())
            Deliver({.Kind = EventKind::Scroll, .Code = row->Code});
        break;
    case Does::OpenMenu:
        OpenBarMenu();
        break;
    }
    return true;
}

class KeyFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return Ours(watched) && FilterKey(*static_cast<QKeyEvent *>(event));
        case QEvent::MouseButtonPress:
        case QEvent::WindowDeactivate:
            AltAlone = false;
            return false;
        default:
            return false;
        }
    }

private:
    bool AltAlone = false; // Alt is down and nothing else has happened since

    static bool Ours(const QObject *watched) {
        return watched->isWidgetType() && host.Frame && !QApplication::activePopupWidget() &&
               static_cast<const QWidget *>(watched)->window() == host.Frame;
    }

    bool FilterKey(const QKeyEvent &event) {
        if (event.type() == QEvent::KeyRelease) {
            if (event.key() != Qt::Key_Alt || !AltAlone)
                return false;
            AltAlone = false;
            OpenBarMenu();
            return true;
        }
        AltAlone = event.key() == Qt::Key_Alt && !event.isAutoRepeat();
        return Take(event);
    }
};

} // namespace

void WatchKeys() {
    qApp->installEventFilter(new KeyFilter(qApp));
}
