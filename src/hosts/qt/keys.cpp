// The key table: what each key of a keyboard is to the program. While a form is open, keys belong to the control that
// has the focus, but for the rows that say otherwise.
#include "hosts/qt/keys.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "platform/controls.h"
#include "platform/shell.h"
#include "resources/hub_keys.h"
#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTreeWidget>

namespace {

enum class Does : uint8_t { SendKey, SendScroll, OpenMenu, FillScreen, ListKeys };
enum Where : uint8_t { OnScreens = 1, InForms = 2, Anywhere = 3 };

struct KeyRow {
    int QtKey;
    Qt::KeyboardModifiers Modifiers;
    Does What;
    int Code;
    Where Place;
    bool Repeats;      // while it is held
    const char *Words; // in the list of keys; null: another row tells it
};

constexpr KeyRow Press(int qtKey, Key key, const char *words, Where place = OnScreens) {
    return {qtKey, Qt::NoModifier, Does::SendKey, static_cast<int>(key), place, false, words};
}
constexpr KeyRow Held(int qtKey, Key key, const char *words, Where place = OnScreens) {
    return {qtKey, Qt::NoModifier, Does::SendKey, static_cast<int>(key), place, true, words};
}
constexpr KeyRow Control(int qtKey, Key key, const char *words, Where place = OnScreens) {
    return {qtKey, Qt::ControlModifier, Does::SendKey, static_cast<int>(key), place, false, words};
}
constexpr KeyRow WithAlt(int qtKey, Key key, const char *words) {
    return {qtKey, Qt::AltModifier, Does::SendKey, static_cast<int>(key), OnScreens, false, words};
}
constexpr Key KeyOfHub(HubKeyNumber key) {
    return static_cast<Key>(static_cast<int>(Key::HubKeys) + key);
}
constexpr KeyRow WithShift(int qtKey, Key key, const char *words) {
    return {qtKey, Qt::ShiftModifier, Does::SendKey, static_cast<int>(key), InForms, false, words};
}
constexpr KeyRow Scroll(int qtKey, ScrollCode code, const char *words) {
    return {qtKey, Qt::NoModifier, Does::SendScroll, static_cast<int>(code), OnScreens, true, words};
}
constexpr KeyRow OfHost(int qtKey, Does what, const char *words) {
    return {qtKey, Qt::NoModifier, what, 0, Anywhere, false, words};
}

// clang-format off
constexpr KeyRow Keys[] = {
    Held(Qt::Key_Up, Key::Up, "the row above", Anywhere),
    Held(Qt::Key_Down, Key::Down, "the row below", Anywhere),
    Held(Qt::Key_Left, Key::Left, "the account before"),
    Held(Qt::Key_Right, Key::Right, "the account after"),
    Press(Qt::Key_Return, Key::Enter, "opens the selected row"),
    Press(Qt::Key_Enter, Key::Enter, nullptr),
    Scroll(Qt::Key_PageUp, ScrollCode::PageUp, "a page up"),
    Scroll(Qt::Key_PageDown, ScrollCode::PageDown, "a page down"),
    Scroll(Qt::Key_Home, ScrollCode::Top, "the first rows"),
    Scroll(Qt::Key_End, ScrollCode::Bottom, "the last rows"),
    Control(Qt::Key_1, Key::Tab1, "accounts"),
    Control(Qt::Key_2, Key::Tab2, "transactions"),
    Control(Qt::Key_3, Key::Tab3, "graphs"),
    Control(Qt::Key_4, Key::Tab4, "recurring items"),
    Control(Qt::Key_5, Key::Tab5, "templates"),
    Control(Qt::Key_6, Key::Tab6, "bin"),
    Control(Qt::Key_7, Key::Tab7, "categories"),
    Control(Qt::Key_8, Key::Tab8, "conversions"),
    Control(Qt::Key_N, Key::New, "a new entry"),
    Control(Qt::Key_M, Key::Modify, "changes the selected row"),
    Press(Qt::Key_Space, Key::Stroke, "the stroke: reconciled, or not"),
    Press(Qt::Key_Delete, Key::Delete, "the selected row to the bin"),
    Control(Qt::Key_F, Key::Find, "search: type, Enter the next"),
    Control(Qt::Key_Z, Key::Undo, "takes back the last change"),
    {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier, Does::SendKey, static_cast<int>(Key::Redo), OnScreens, false,
     "does it again"},
    Control(Qt::Key_Up, Key::RowUp, "moves the row up", Anywhere),
    Control(Qt::Key_Down, Key::RowDown, "moves the row down", Anywhere),
    WithAlt(Qt::Key_1, Key::Drop1, "the row from the bin to accounts"),
    WithAlt(Qt::Key_2, Key::Drop2, "... to transactions"),
    WithAlt(Qt::Key_3, Key::Drop3, nullptr),
    WithAlt(Qt::Key_4, Key::Drop4, "... to recurring items"),
    WithAlt(Qt::Key_5, Key::Drop5, "the row to the templates"),
    WithAlt(Qt::Key_6, Key::Drop6, "the row to the bin"),
    WithAlt(Qt::Key_7, Key::Drop7, "the row to the categories"),
    WithAlt(Qt::Key_8, Key::Drop8, "the row from the bin to conversions"),
    Press(Qt::Key_F2, Key::Title1, "taps the first column's title"),
    Press(Qt::Key_F3, Key::Title2, "... the second"),
    Press(Qt::Key_F4, Key::Title3, "... the third"),
    Press(Qt::Key_F5, Key::Title4, "... the fourth"),
    Press(Qt::Key_F6, Key::Header, "account view or archive view"),
    Press(Qt::Key_F1, Key::Help, "the eyes: help mode", Anywhere),
    OfHost(Qt::Key_F10, Does::OpenMenu, "the menu"),
    OfHost(Qt::Key_F11, Does::FillScreen, "the whole screen"),
    OfHost(Qt::Key_F12, Does::ListKeys, "this list"),
    // The tick is the default of a form.
    Press(Qt::Key_Return, Key::Tick, "in a form: the tick", InForms),
    Press(Qt::Key_Enter, Key::Tick, nullptr, InForms),
    Control(Qt::Key_Return, Key::Tick, "the tick, in a text too", Anywhere),
    Control(Qt::Key_Enter, Key::Tick, nullptr, Anywhere),
    WithShift(Qt::Key_Return, Key::TickAndNext, "the tick, then the next new entry"),
    WithShift(Qt::Key_Enter, Key::TickAndNext, nullptr),
    Press(Qt::Key_Escape, Key::Escape, "the cross of a form; leaves help", Anywhere),
    Press(Qt::Key_F2, Key::FlagPart, "in a form: the flag", InForms),
    Press(Qt::Key_F3, Key::FirstSignPart, "... the sign; - and + too", InForms),
    Press(Qt::Key_F4, Key::SecondSignPart, "... the multiplier's sign", InForms),
    Press(Qt::Key_F5, Key::ClearedPart, "... reconciled", InForms),
    Press(Qt::Key_F6, Key::FreePart, "... gratis", InForms),
    Press(Qt::Key_F7, Key::DuplicatePart, "... duplicate", InForms),
    Press(Qt::Key_F8, Key::ViewPart, "... Basic or Advanced", InForms),
    Press(Qt::Key_F9, Key::OtherSidePart, "... First or Then, the direction", InForms),
    Held(Qt::Key_Backspace, Key::Backspace, nullptr), Press(Qt::Key_Clear, Key::Clear, nullptr),
    Press(Qt::Key_0, Key::Digit0, nullptr), Press(Qt::Key_1, Key::Digit1, nullptr),
    Press(Qt::Key_2, Key::Digit2, nullptr), Press(Qt::Key_3, Key::Digit3, nullptr),
    Press(Qt::Key_4, Key::Digit4, nullptr), Press(Qt::Key_5, Key::Digit5, nullptr),
    Press(Qt::Key_6, Key::Digit6, nullptr), Press(Qt::Key_7, Key::Digit7, nullptr),
    Press(Qt::Key_8, Key::Digit8, nullptr), Press(Qt::Key_9, Key::Digit9, nullptr),
    Control(Qt::Key_H, Key::HubButton, "the hub, the calculator", Anywhere),
    Control(Qt::Key_K, KeyOfHub(ConeKey), "the hub's cone: calculator and back", Anywhere),
    Press(Qt::Key_F8, KeyOfHub(ReadKey), "the hub reads the selected row"),
    Press(Qt::Key_F9, KeyOfHub(WriteKey), "the hub writes to the row"),
};
// clang-format on

QString NameOf(const KeyRow &row) {
    return QKeySequence(QKeyCombination(row.Modifiers, static_cast<Qt::Key>(row.QtKey)))
        .toString(QKeySequence::NativeText);
}

// Return in a text of several lines begins a new one, in a list it opens the row; Up and Down mean something to every
// control but a text of one line.
bool IsTheControls(int key, const QWidget *focus) {
    if (key == Qt::Key_Up || key == Qt::Key_Down)
        return !qobject_cast<const QLineEdit *>(focus) || focus->property(OpensByArrow).toBool();
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

// What is typed on a screen and no key of the table: words to search for, keys of the hub.
bool TakeCharacter(const QKeyEvent &event) {
    const QString typed = event.text();
    if (typed.isEmpty() || !typed[0].isPrint() ||
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    for (const QChar unit : typed)
        Deliver({.Kind = EventKind::Character, .Code = unit.unicode()});
    return true;
}

bool Take(const QKeyEvent &event) {
    const bool inForm = OpenFormNumber() && !host.Windows[DialogWindow]->isHidden(); // else the calculator covers it
    const Where place = inForm ? InForms : OnScreens;
    const KeyRow *const row = RowOf(event, place);
    if (!row)
        return !inForm && TakeCharacter(event);
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
    case Does::FillScreen:
        host.Frame->FillScreen(!host.Frame->FillsScreen());
        break;
    case Does::ListKeys:
        ShowKeyList();
        break;
    }
    return true;
}

class KeyList : public QTreeWidget {
public:
    using QTreeWidget::QTreeWidget;

protected:
    void keyPressEvent(QKeyEvent *event) override {
        if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_F12)
            close();
        else
            QTreeWidget::keyPressEvent(event);
    }
};

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

QString NameOfKey(Key key, bool inForm) {
    const Where place = inForm ? InForms : OnScreens;
    for (const KeyRow &row : Keys)
        if (row.What == Does::SendKey && row.Code == static_cast<int>(key) && (row.Place & place))
            return NameOf(row);
    return {};
}

QString WithKey(const QString &words, const QString &key) {
    return key.isEmpty() ? words : words + QStringLiteral(" (%1)").arg(key);
}

QString NameOfMenuKey() {
    for (const KeyRow &row : Keys)
        if (row.What == Does::OpenMenu)
            return NameOf(row);
    return {};
}

void ShowKeyList() {
    QTreeWidget *const list = new KeyList(host.Frame);
    list->setWindowFlag(Qt::Popup);
    list->setAttribute(Qt::WA_DeleteOnClose);
    list->setAccessibleName(QStringLiteral("Keys"));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setHeaderHidden(true);
    list->setRootIsDecorated(false);
    list->setColumnCount(2);
    for (const KeyRow &row : Keys)
        if (row.Words)
            list->addTopLevelItem(new QTreeWidgetItem({NameOf(row), QString::fromUtf8(row.Words)}));
    list->resizeColumnToContents(0);
    list->setCurrentItem(list->topLevelItem(0));
    list->resize(host.Frame->Stage->size());
    list->move(host.Frame->Stage->mapToGlobal(QPoint(0, 0)));
    list->show();
    list->setFocus(Qt::PopupFocusReason);
}

void WatchKeys() {
    qApp->installEventFilter(new KeyFilter(qApp));
}
