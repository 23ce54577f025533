#include "hosts/qt/accessible.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/pointer.h"
#include "platform/shell.h"
#include "platform/spoken.h"
#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>

void (*SendSpeech)(QAccessibleEvent *event) = QAccessible::updateAccessibility;

namespace {

Spot spots[MostSpots];
int spotCount;
bool stale = true; // something may have changed since they were read
bool listening;    // somebody wants to be told

void ReadSpots() {
    spotCount = ListSpots(spots, MostSpots);
    stale = false;
}

void Refresh() {
    if (stale)
        ReadSpots();
}

class ListenerWatch : public QAccessible::ActivationObserver {
public:
    void accessibilityActiveChanged(bool active) override { listening = active; }
};

// ORDER SPOTKIND
constexpr QAccessible::Role Roles[] = {
    QAccessible::Heading, QAccessible::StaticText,  QAccessible::ColumnHeader, QAccessible::ListItem,
    QAccessible::PageTab, QAccessible::PushButton,  QAccessible::CheckBox,     QAccessible::PushButton,
    QAccessible::Slider,  QAccessible::ProgressBar, QAccessible::Graphic,      QAccessible::StaticText,
};
static_assert(std::size(Roles) == static_cast<size_t>(SpotKind::Message) + 1);

bool HasValue(SpotKind kind) {
    return kind == SpotKind::Slider || kind == SpotKind::Progress;
}
bool Tappable(SpotKind kind) {
    return kind != SpotKind::Text && kind != SpotKind::Message && !HasValue(kind);
}

// A tap on the middle of a spot, or a key for it, after the helper's call has ended.
void SendTap(const QPoint &middle) {
    QTimer::singleShot(0, host.Frame, [middle] {
        SendPointer(EventKind::PointerDown, middle);
        SendPointer(EventKind::PointerUp, middle);
    });
}
void SendSteps(int steps) {
    const Key key = steps > 0 ? Key::Up : Key::Down;
    QTimer::singleShot(0, host.Frame, [key, left = std::abs(steps)] {
        for (int i = 0; i < left; ++i)
            Deliver({.Kind = EventKind::Key, .Code = static_cast<int>(key)});
    });
}

QRect OnScreen(const Spot &spot) {
    const ProgramWindow *const window = host.Windows[spot.Where];
    return WidgetBox(spot.Box).translated(window->mapToGlobal(QPoint(0, 0)));
}

// --- A spot: the n-th of those that stand in one window. It reads the present list whenever it is asked.

class SpotObject : public QAccessibleInterface, public QAccessibleActionInterface, public QAccessibleValueInterface {
public:
    SpotObject(Window where, int index) : Where(where), Index(index) {}

    const Spot *Now() const {
        Refresh();
        int left = Index;
        for (int i = 0; i < spotCount; ++i)
            if (spots[i].Where == Where && left-- == 0)
                return &spots[i];
        return nullptr;
    }

    bool isValid() const override { return Now() && host.Windows[Where]; }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return host.Frame->windowHandle(); }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(host.Windows[Where]); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QRect rect() const override { return isValid() ? OnScreen(*Now()) : QRect(); }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text which) const override {
        const Spot *const spot = Now();
        return spot && which == QAccessible::Name ? QString::fromUtf16(spot->Name) : QString();
    }
    QAccessible::Role role() const override {
        const Spot *const spot = Now();
        return spot ? Roles[static_cast<int>(spot->Kind)] : QAccessible::NoRole;
    }
    QAccessible::State state() const override {
        QAccessible::State now;
        const Spot *const spot = Now();
        now.invalid = !spot;
        if (!spot || !host.Windows[Where])
            return now;
        now.invisible = host.Windows[Where]->isHidden();
        now.selectable = spot->Selectable;
        now.focusable = spot->Selectable || spot->Focused;
        now.selected = spot->Selected;
        now.focused = spot->Focused && host.Frame->isActiveWindow();
        now.disabled = spot->Disabled;
        now.checkable = spot->Kind == SpotKind::Check;
        now.checked = spot->On;
        now.readOnly = spot->Kind == SpotKind::Text || spot->Kind == SpotKind::Message;
        return now;
    }

    void *interface_cast(QAccessible::InterfaceType type) override {
        const Spot *const spot = Now();
        if (type == QAccessible::ValueInterface && spot && HasValue(spot->Kind))
            return static_cast<QAccessibleValueInterface *>(this);
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
    }
    QStringList actionNames() const override {
        const Spot *const spot = Now();
        if (spot && spot->Kind == SpotKind::Slider)
            return {increaseAction(), decreaseAction()};
        return spot && Tappable(spot->Kind) && !spot->Disabled ? QStringList{pressAction()} : QStringList();
    }
    QStringList keyBindingsForAction(const QString &) const override { return {}; }
    void doAction(const QString &action) override {
        const Spot *const spot = Now();
        if (!spot || !actionNames().contains(action))
            return;
        if (spot->Kind == SpotKind::Slider)
            SendSteps(action == increaseAction() ? 1 : -1);
        else
            SendTap(OnScreen(*spot).center());
    }

    // Of a slider and of progress.
    QVariant currentValue() const override { return Now() ? Now()->Value : 0; }
    QVariant minimumValue() const override { return Now() ? Now()->Least : 0; }
    QVariant maximumValue() const override { return Now() ? Now()->Most : 0; }
    QVariant minimumStepSize() const override { return Now() ? Now()->Step : 1; }
    void setCurrentValue(const QVariant &value) override {
        const Spot *const spot = Now();
        if (spot && spot->Kind == SpotKind::Slider)
            SendSteps((std::clamp(value.toInt(), spot->Least, spot->Most) - spot->Value) / spot->Step);
    }

private:
    Window Where;
    int Index;
};

// Made when first asked for and kept: the desktop knows them by number.
SpotObject *objects[WindowCount][MostSpots];

SpotObject *ObjectOf(Window where, int index) {
    if (index < 0 || index >= MostSpots)
        return nullptr;
    SpotObject *&object = objects[where][index];
    if (!object) {
        object = new SpotObject(where, index);
        QAccessible::registerAccessibleInterface(object);
    }
    return object;
}

int CountIn(Window where) {
    Refresh();
    return static_cast<int>(
        std::count_if(spots, spots + spotCount, [where](const Spot &spot) { return spot.Where == where; }));
}

int IndexInWindow(int spot) {
    return static_cast<int>(
        std::count_if(spots, spots + spot, [spot](const Spot &one) { return one.Where == spots[spot].Where; }));
}

// The one that the arrow keys act on; -1 for none.
int FocusedSpot() {
    Refresh();
    for (int i = 0; i < spotCount; ++i)
        if (spots[i].Focused)
            return i;
    return -1;
}

// --- A window: its spots in reading order, then the real controls in it.

class WindowObject : public QAccessibleWidget {
public:
    explicit WindowObject(ProgramWindow *window) : QAccessibleWidget(window, QAccessible::Pane), Which(window->Which) {}

    QAccessible::Role role() const override {
        return Which == ListWindow ? QAccessible::List : Which == DialogWindow ? QAccessible::Form : QAccessible::Pane;
    }
    int childCount() const override { return CountIn(Which) + QAccessibleWidget::childCount(); }
    QAccessibleInterface *child(int index) const override {
        const int painted = CountIn(Which);
        return index < painted ? ObjectOf(Which, index) : QAccessibleWidget::child(index - painted);
    }
    int indexOfChild(const QAccessibleInterface *child) const override {
        for (int i = 0; i < CountIn(Which); ++i)
            if (objects[Which][i] == child)
                return i;
        const int real = QAccessibleWidget::indexOfChild(child);
        return real < 0 ? -1 : CountIn(Which) + real;
    }
    QAccessibleInterface *childAt(int x, int y) const override {
        if (QAccessibleInterface *real = QAccessibleWidget::childAt(x, y); real && real->object() != object())
            return real;
        for (int i = 0; i < CountIn(Which); ++i)
            if (ObjectOf(Which, i)->rect().contains(x, y))
                return ObjectOf(Which, i);
        return nullptr;
    }
    QAccessibleInterface *focusChild() const override {
        const int spot = FocusedSpot();
        return spot >= 0 && spots[spot].Where == Which ? ObjectOf(Which, IndexInWindow(spot))
                                                       : QAccessibleWidget::focusChild();
    }

private:
    Window Which;
};

// --- Real controls whose own objects call them by what stands in them.

class ComboObject : public QAccessibleWidget {
public:
    explicit ComboObject(QComboBox *box) : QAccessibleWidget(box, QAccessible::ComboBox), Box(box) {}

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? Box->currentText() : QAccessibleWidget::text(which);
    }
    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString &action) override {
        if (action != showMenuAction() && action != pressAction())
            return;
        if (Box->view()->isVisible())
            Box->hidePopup();
        else
            Box->showPopup();
    }

private:
    QComboBox *Box;
};

// A box for a secret: that it is there, and nothing of what is typed.
class SecretObject : public QAccessibleWidget {
public:
    explicit SecretObject(QWidget *widget) : QAccessibleWidget(widget, QAccessible::EditableText) {}
    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Value ? QString() : QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override {
        QAccessible::State now = QAccessibleWidget::state();
        now.passwordEdit = now.editable = true;
        return now;
    }
};

// A line that only parts two groups of buttons is nothing to be told of.
class NothingObject : public QAccessibleWidget {
public:
    explicit NothingObject(QWidget *widget) : QAccessibleWidget(widget, QAccessible::Separator) {}
    QString text(QAccessible::Text) const override { return {}; }
    QStringList actionNames() const override { return {}; }
    QAccessible::State state() const override {
        QAccessible::State now = QAccessibleWidget::state();
        now.invisible = true;
        now.focusable = false;
        return now;
    }
};

QAccessibleInterface *MakeObject(const QString &, QObject *object) {
    if (!object->isWidgetType() || !host.Frame)
        return nullptr;
    QWidget *const widget = static_cast<QWidget *>(object);
    if (widget->parentWidget() == host.Frame->Stage) // where nothing else stands
        return new WindowObject(static_cast<ProgramWindow *>(widget));
    if (widget->property(ReadToNobody).toBool())
        return new SecretObject(widget);
    if (auto *combo = qobject_cast<QComboBox *>(widget))
        return new ComboObject(combo);
    if (widget->parentWidget() == host.Frame->Bar && widget->accessibleName().isEmpty())
        return new NothingObject(widget);
    return nullptr;
}

// --- What has changed

void Tell(QAccessible::Event what, int spot) {
    QAccessibleEvent event(ObjectOf(spots[spot].Where, IndexInWindow(spot)), what);
    SendSpeech(&event);
}

bool SameName(const Spot &a, const Spot &b) {
    return std::equal(a.Name, a.Name + SpotNameRoom, b.Name);
}

bool SamePlaces(const Spot *before, int count) {
    return count == spotCount && std::equal(before, before + count, spots, [](const Spot &a, const Spot &b) {
               return a.Kind == b.Kind && a.Where == b.Where;
           });
}

void TellOther(const Spot &before, int spot) {
    const Spot &now = spots[spot];
    if (!SameName(before, now))
        Tell(now.Kind == SpotKind::Message ? QAccessible::Alert : QAccessible::NameChanged, spot);
    if (HasValue(now.Kind) && before.Value != now.Value) {
        QAccessibleValueChangeEvent event(ObjectOf(now.Where, IndexInWindow(spot)), now.Value);
        SendSpeech(&event);
    }
    if (before.On != now.On || before.Selected != now.Selected || before.Disabled != now.Disabled) {
        QAccessible::State changed;
        changed.checked = before.On != now.On;
        changed.selected = before.Selected != now.Selected;
        changed.disabled = before.Disabled != now.Disabled;
        QAccessibleStateChangeEvent event(ObjectOf(now.Where, IndexInWindow(spot)), changed);
        SendSpeech(&event);
    }
}

// Another set of spots: the windows have other children, and the message is told anew.
void TellAnew() {
    for (ProgramWindow *window : host.Windows) {
        if (!window || window->isHidden())
            continue;
        QAccessibleEvent event(window, QAccessible::ObjectReorder);
        SendSpeech(&event);
    }
    for (int i = 0; i < spotCount; ++i)
        if (spots[i].Kind == SpotKind::Message)
            Tell(QAccessible::Alert, i);
}

} // namespace

void OfferSpeech() {
    static ListenerWatch watch;
    QAccessible::installFactory(MakeObject);
    QAccessible::installActivationObserver(&watch);
    listening = QAccessible::isActive();
}

void TellChanges() {
    static Spot before[MostSpots];
    if (!listening || !host.Frame) {
        stale = true;
        return;
    }
    const int count = spotCount, focusBefore = FocusedSpot();
    std::copy(spots, spots + count, before);
    ReadSpots();
    const bool same = SamePlaces(before, count);
    for (int i = 0; same && i < spotCount; ++i)
        TellOther(before[i], i);
    if (!same)
        TellAnew();
    const int focus = FocusedSpot();
    if (focus < 0 || (same && focus == focusBefore && SameName(before[focus], spots[focus])))
        return;
    if (spots[focus].Selected)
        Tell(QAccessible::Selection, focus);
    Tell(QAccessible::Focus, focus);
}
