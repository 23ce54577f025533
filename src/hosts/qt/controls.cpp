// controls.h with the toolkit's own controls, children of the form's window. What the owner does is told after the
// control has done its own work; what the program does tells nothing.
#include "platform/controls.h"
#include "hosts/qt/accessible.h"
#include "hosts/qt/controls.h"
#include "hosts/qt/date_box.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/drop_list.h"
#include "hosts/qt/number_text.h"
#include "platform/shell.h"
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QTextBlock>
#include <QTimer>

namespace {

constexpr int HoldMilliseconds = 600;
constexpr int NoLimit = 32767;

struct Widget {
    int Id;
    ControlKind Kind;
    Rect Box;
    QWidget *Real;
};

QList<Widget> widgets;
int formNumber, formsOpened;

Widget *Find(int id) {
    for (Widget &one : widgets)
        if (one.Id == id)
            return &one;
    return nullptr;
}

// The control as `Kind`, or null when the open form has none such under this id.
template <typename Kind> Kind *Find(int id) {
    Widget *const one = Find(id);
    return one ? qobject_cast<Kind *>(one->Real) : nullptr;
}

DateBox *DateOf(int id) {
    Widget *const one = Find(id);
    return one && one->Kind == ControlKind::Date ? static_cast<DateBox *>(one->Real) : nullptr;
}

void Tell(int id, ControlChange change) {
    DeliverFromForm({.Kind = EventKind::Control, .Control = id, .Change = change});
}

// Sees what a control itself does not tell: the focus coming by tap or Tab, the calendar opening, a press that is held.
class ControlFilter : public QObject {
public:
    ControlFilter() {
        Hold.setSingleShot(true);
        Hold.setInterval(HoldMilliseconds);
        connect(&Hold, &QTimer::timeout, this, &ControlFilter::OpenContextMenu);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        QWidget *const part = static_cast<QWidget *>(watched);
        const Widget *const one = ControlOf(part);
        if (!one)
            return false;
        switch (event->type()) {
        case QEvent::FocusIn: {
            const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
            Entered = reason == Qt::MouseFocusReason ? one->Real : nullptr;
            if (part == one->Real && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason))
                Tell(one->Id, ControlChange::Focus);
            break;
        }
        case QEvent::MouseButtonPress: {
            const QMouseEvent *const mouse = static_cast<QMouseEvent *>(event);
            if (mouse->button() != Qt::LeftButton)
                break;
            Tell(one->Id, ControlChange::Focus);
            Held = part;
            HeldAt = mouse->position().toPoint();
            Hold.start();
            break;
        }
        case QEvent::MouseMove:
            if ((static_cast<QMouseEvent *>(event)->position().toPoint() - HeldAt).manhattanLength() >=
                QApplication::startDragDistance())
                Hold.stop();
            break;
        case QEvent::MouseButtonRelease:
            Hold.stop();
            SelectTapped(one->Real, part);
            break;
        case QEvent::Hide:
            Hold.stop();
            break;
        case QEvent::Wheel: // turns what scrolls, and changes nothing
            return one->Kind != ControlKind::MultiLine && one->Kind != ControlKind::ListBox;
        default:
            break;
        }
        return false;
    }

private:
    QTimer Hold;
    QPointer<QWidget> Held;
    QWidget *Entered = nullptr; // the control whose focus came with the present tap
    QPoint HeldAt;

    static const Widget *ControlOf(const QWidget *part) {
        for (const Widget &one : widgets)
            for (const QWidget *at = part; at; at = at->parentWidget())
                if (at == one.Real)
                    return &one;
        return nullptr;
    }

    // What is typed after a tap into a box replaces what stood there, as after Tab; a second tap places the cursor. A
    // date is replaced whole until it is being typed.
    void SelectTapped(QWidget *control, QWidget *part) {
        auto *edit = qobject_cast<QLineEdit *>(part);
        if (!edit || edit->hasSelectedText())
            return;
        const DateBox *const date = DateOf(ControlOf(part)->Id);
        if (Entered == control || (date && !date->isModified()))
            QTimer::singleShot(0, edit, &QLineEdit::selectAll);
        Entered = nullptr;
    }

    void OpenContextMenu() {
        if (!Held || !(qobject_cast<QLineEdit *>(Held) || qobject_cast<QPlainTextEdit *>(Held->parentWidget())))
            return;
        QContextMenuEvent menu(QContextMenuEvent::Mouse, HeldAt, Held->mapToGlobal(HeldAt));
        QApplication::sendEvent(Held, &menu);
    }
};

void Watch(QWidget *part) {
    static ControlFilter *const filter = new ControlFilter;
    part->installEventFilter(filter);
}

void TellTexts(QLineEdit *edit, int id) {
    Watch(edit);
    QObject::connect(edit, &QLineEdit::textEdited, [id] { Tell(id, ControlChange::Text); });
}

// Takes what was typed past the limit out again, at the place where it was typed.
void KeepLimit(QPlainTextEdit *edit) {
    const int limit = edit->property("limit").toInt();
    const int over = static_cast<int>(edit->toPlainText().size()) - limit;
    if (limit <= 0 || over <= 0)
        return;
    const QSignalBlocker quiet(edit);
    QTextCursor cursor = edit->textCursor();
    const int end = std::max(cursor.position(), over);
    cursor.setPosition(end - over);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    edit->setTextCursor(cursor);
}

// The number that a control's line holds, null for a line of text.
NumberText *NumberOf(QWidget *real) {
    auto *const combo = qobject_cast<QComboBox *>(real);
    QLineEdit *const line = combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(real);
    return line ? static_cast<NumberText *>(const_cast<QValidator *>(line->validator())) : nullptr;
}

QWidget *MakeCombo(QWidget *parent, const FormControl &control) {
    DropList *const combo = new DropList(parent, control.Id, control.What);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    if (control.Kind == ControlKind::Combo) {
        combo->LetType();
        TellTexts(combo->lineEdit(), control.Id);
    }
    QObject::connect(combo, &QComboBox::activated, [id = control.Id] { Tell(id, ControlChange::Choice); });
    return combo;
}

QWidget *MakeListBox(QWidget *parent, const FormControl &control) {
    QListWidget *const list = new QListWidget(parent);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Watch(list->viewport());
    QObject::connect(list, &QListWidget::currentRowChanged, [id = control.Id] { Tell(id, ControlChange::Choice); });
    QObject::connect(list, &QListWidget::itemPressed, [id = control.Id] { Tell(id, ControlChange::Pressed); });
    QObject::connect(list, &QListWidget::itemActivated, [id = control.Id] { Tell(id, ControlChange::DoublePressed); });
    return list;
}

QWidget *MakeText(QWidget *parent, const FormControl &control) {
    QPlainTextEdit *const text = new QPlainTextEdit(parent);
    text->setTabChangesFocus(true);
    Watch(text->viewport());
    QObject::connect(text, &QPlainTextEdit::textChanged, [text, id = control.Id, last = QString()]() mutable {
        KeepLimit(text);
        if (const QString now = text->toPlainText(); now != last) { // its layout alone may have changed
            last = now;
            Tell(id, ControlChange::Text);
        }
    });
    return text;
}

QWidget *Make(QWidget *parent, const FormControl &control) {
    switch (control.Kind) {
    case ControlKind::Edit:
    case ControlKind::Secret:
    case ControlKind::Number: {
        QLineEdit *const edit =
            control.Kind == ControlKind::Number ? new NumberLine(parent, control.Id) : new QLineEdit(parent);
        TellTexts(edit, control.Id);
        edit->setProperty(ReadToNobody, control.Kind == ControlKind::Secret);
        return edit;
    }
    case ControlKind::MultiLine:
        return MakeText(parent, control);
    case ControlKind::Combo:
    case ControlKind::List:
        return MakeCombo(parent, control);
    case ControlKind::Date:
        return new DateBox(parent, control.Id);
    case ControlKind::Check: {
        QCheckBox *const check = new QCheckBox(parent);
        QObject::connect(check, &QCheckBox::clicked, [id = control.Id] { Tell(id, ControlChange::Pressed); });
        return check;
    }
    case ControlKind::ListBox:
        return MakeListBox(parent, control);
    case ControlKind::Progress: {
        QProgressBar *const bar = new QProgressBar(parent);
        bar->setTextVisible(false);
        bar->setOrientation(control.Height > control.Width ? Qt::Vertical : Qt::Horizontal);
        bar->setRange(0, 100);
        bar->setFocusPolicy(Qt::NoFocus);
        return bar;
    }
    }
    return nullptr;
}

// Text as records may hold it: one line without control characters, no half of a surrogate pair.
QString Cleaned(QString text, bool oneLine) {
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        const bool control =
            oneLine ? unit < u' ' || unit == QChar::LineSeparator || unit == QChar::ParagraphSeparator : unit.isNull();
        if (control)
            text[i] = u' ';
        else if (unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        else if (unit.isSurrogate())
            text.remove(i--, 1);
    }
    return text;
}

// The beginning of a long text that the program set is seen; where the keys go, what is typed replaces it.
void ShowBeginning(QLineEdit *edit) {
    edit->setCursorPosition(0);
    const QWidget *const focus = host.Frame->focusWidget();
    if (focus == edit || (focus && focus == edit->focusProxy()))
        edit->selectAll();
}

QString TextOf(const Widget &one) {
    if (const auto *edit = qobject_cast<QLineEdit *>(one.Real))
        return Cleaned(edit->text(), true);
    if (const auto *text = qobject_cast<QPlainTextEdit *>(one.Real))
        return Cleaned(text->toPlainText(), false);
    if (const auto *combo = qobject_cast<QComboBox *>(one.Real))
        return Cleaned(combo->currentText(), true);
    if (const auto *check = qobject_cast<QCheckBox *>(one.Real))
        return check->text();
    if (const auto *list = qobject_cast<QListWidget *>(one.Real))
        return list->currentItem() ? list->currentItem()->text() : QString();
    return {};
}

} // namespace

int OpenFormNumber() {
    return formNumber;
}

void RescaleForm() {
    for (const Widget &one : widgets)
        one.Real->setGeometry(WidgetBox(one.Box));
}

void OpenForm(const FormTemplate *form) {
    CloseForm();
    QWidget *const parent = host.Windows[DialogWindow];
    if (!parent)
        return;
    formNumber = ++formsOpened;
    QWidget *first = nullptr;
    NumberText *whole = nullptr; // of the amount whose fraction comes next
    for (int i = 0; i < form->Count; ++i) {
        const FormControl &control = form->Controls[i];
        QWidget *const real = Make(parent, control);
        const Rect box = {control.X, control.Y, control.X + control.Width, control.Y + control.Height};
        widgets.append({control.Id, control.Kind, box, real});
        real->setAccessibleName(QString::fromUtf16(control.Name));
        for (QLineEdit *line : real->findChildren<QLineEdit *>()) // within a box that has more to it
            line->setAccessibleName(real->accessibleName());
        SetControlLimit(control.Id, control.Limit);
        if (control.What == Holds::Whole)
            whole = NumberOf(real);
        else if (control.What == Holds::Fraction && whole)
            NumberText::Join(whole, NumberOf(real));
        if (control.Kind != ControlKind::Progress) { // which only shows
            Watch(real);
            first = first ? first : real;
        }
        real->show();
    }
    RescaleForm();
    ShowWindow(DialogWindow, 1);
    if (first)
        first->setFocus(Qt::OtherFocusReason);
}

void CloseForm() {
    if (!formNumber)
        return;
    formNumber = 0;
    if (QWidget *const popup = QApplication::activePopupWidget())
        popup->close();
    host.Frame->setFocus(Qt::OtherFocusReason);
    for (const Widget &one : widgets) {
        one.Real->hide();
        one.Real->disconnect();
        one.Real->deleteLater(); // one of them may be on the way back from what it told
    }
    widgets.clear();
    ShowWindow(DialogWindow, 0);
}

void SetControlText(int id, const char16_t *text) {
    Widget *const one = Find(id);
    if (!one)
        return;
    const QString line = QString::fromUtf16(text);
    const QSignalBlocker quiet(one->Real);
    if (auto *edit = qobject_cast<QLineEdit *>(one->Real)) {
        edit->setText(line);
        ShowBeginning(edit);
    } else if (auto *multi = qobject_cast<QPlainTextEdit *>(one->Real)) {
        multi->setPlainText(line);
        KeepLimit(multi);
    } else if (auto *combo = qobject_cast<QComboBox *>(one->Real)) {
        combo->setCurrentIndex(combo->findText(line, Qt::MatchExactly | Qt::MatchCaseSensitive));
        if (combo->isEditable()) {
            combo->setEditText(line);
            ShowBeginning(combo->lineEdit());
        }
    } else if (auto *check = qobject_cast<QCheckBox *>(one->Real)) {
        check->setText(line);
    }
}

int GetControlText(int id, char16_t *to, int room) {
    if (room < 1)
        return 0;
    const Widget *const one = Find(id);
    QString text = one ? TextOf(*one) : QString();
    text.truncate(room - 1);
    text = Cleaned(text, false);
    std::copy(text.utf16(), text.utf16() + text.size(), to);
    to[text.size()] = 0;
    return static_cast<int>(text.size());
}

void ClearControlList(int id) {
    Widget *const one = Find(id);
    if (!one)
        return;
    const QSignalBlocker quiet(one->Real);
    if (auto *combo = qobject_cast<QComboBox *>(one->Real)) {
        const QString typed = combo->isEditable() ? combo->currentText() : QString();
        combo->clear();
        if (combo->isEditable())
            combo->setEditText(typed);
    } else if (auto *list = qobject_cast<QListWidget *>(one->Real)) {
        list->clear();
    }
}

void AddControlItem(int id, const char16_t *text) {
    Widget *const one = Find(id);
    if (!one)
        return;
    const QSignalBlocker quiet(one->Real);
    if (auto *combo = qobject_cast<QComboBox *>(one->Real)) {
        const bool firstItem = combo->count() == 0;
        const QString typed = combo->isEditable() ? combo->currentText() : QString();
        combo->addItem(QString::fromUtf16(text));
        if (firstItem) { // which the toolkit chooses by itself
            combo->setCurrentIndex(-1);
            if (combo->isEditable())
                combo->setEditText(typed);
        }
    } else if (auto *list = qobject_cast<QListWidget *>(one->Real)) {
        list->addItem(QString::fromUtf16(text));
    }
}

int ControlItemCount(int id) {
    if (const auto *combo = Find<QComboBox>(id))
        return combo->count();
    if (const auto *list = Find<QListWidget>(id))
        return list->count();
    return 0;
}

void SelectControlItem(int id, int index) {
    Widget *const one = Find(id);
    if (!one)
        return;
    const QSignalBlocker quiet(one->Real);
    if (auto *combo = qobject_cast<QComboBox *>(one->Real)) {
        combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
        if (combo->isEditable()) {
            combo->setEditText(combo->itemText(combo->currentIndex()));
            ShowBeginning(combo->lineEdit());
        }
    } else if (auto *list = qobject_cast<QListWidget *>(one->Real)) {
        list->setCurrentRow(index);
    }
}

int SelectedControlItem(int id) {
    if (const auto *combo = Find<QComboBox>(id)) {
        const int index = combo->currentIndex();
        if (!combo->isEditable())
            return index;
        const QString fitting = combo->itemText(index).left(combo->lineEdit()->maxLength());
        return combo->currentText() == fitting ? index : -1;
    }
    if (const auto *list = Find<QListWidget>(id))
        return list->currentRow();
    return -1;
}

void SetControlCheck(int id, int on) {
    if (auto *check = Find<QCheckBox>(id))
        check->setChecked(on);
}

int ControlChecked(int id) {
    const auto *check = Find<QCheckBox>(id);
    return check && check->isChecked();
}

void SetControlDate(int id, const ControlDate &date) {
    if (DateBox *box = DateOf(id))
        box->SetDate(QDate(date.Year, date.Month, date.Day));
}

ControlDate GetControlDate(int id) {
    const DateBox *box = DateOf(id);
    if (!box)
        return {};
    const QDate date = box->Date();
    return {date.year(), date.month(), date.day()};
}

int ControlDateReads(int id) {
    const DateBox *box = DateOf(id);
    return !box || box->Reads();
}

void SetControlProgress(int id, int percent) {
    if (auto *bar = Find<QProgressBar>(id))
        bar->setValue(std::clamp(percent, 0, 100));
}

void SetControlLimit(int id, int units) {
    const int limit = units > 0 ? units : NoLimit;
    Widget *const one = Find(id);
    if (NumberText *number = one ? NumberOf(one->Real) : nullptr)
        number->Limit(limit); // the box itself would cut what is pasted
    else if (auto *edit = Find<QLineEdit>(id))
        edit->setMaxLength(limit);
    else if (auto *combo = Find<QComboBox>(id); combo && combo->isEditable())
        combo->lineEdit()->setMaxLength(limit);
    else if (auto *text = Find<QPlainTextEdit>(id))
        text->setProperty("limit", units);
}

void EnableControl(int id, int on) {
    if (Widget *one = Find(id))
        one->Real->setEnabled(on);
}

void ShowControl(int id, int on) {
    if (Widget *one = Find(id))
        one->Real->setVisible(on);
}

void FocusControl(int id) {
    Widget *const one = Find(id);
    if (!one)
        return;
    one->Real->setFocus(Qt::OtherFocusReason);
    auto *const combo = qobject_cast<QComboBox *>(one->Real);
    if (QLineEdit *const edit = combo ? combo->lineEdit() : qobject_cast<QLineEdit *>(one->Real))
        edit->selectAll();
}

int FocusedControl() {
    const QWidget *const focus = host.Frame ? host.Frame->focusWidget() : nullptr;
    for (const Widget &one : widgets)
        if (one.Real == focus || (focus && one.Real->isAncestorOf(focus)))
            return one.Id;
    return 0;
}

void SendControlKey(int code) {
    QWidget *const focus = FocusedControl() ? host.Frame->focusWidget() : nullptr;
    if (!focus)
        return;
    const bool backspace = code == 8;
    const int key = backspace ? static_cast<int>(Qt::Key_Backspace) : QChar::toUpper(static_cast<uint>(code));
    const QString typed = backspace ? QString() : QString(QChar(code));
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, typed);
        QApplication::sendEvent(focus, &event);
    }
}
