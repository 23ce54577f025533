#include "hosts/qt/drop_list.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "platform/shell.h"
#include <QAbstractItemView>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QWheelEvent>

namespace {

constexpr int RowsDropped = 8;

// Gives a key to a line by `type`, and says so when the line refuses it.
template <typename Type> void TypeOrBeep(QLineEdit *line, const QKeyEvent &event, const Type &type) {
    const QString before = line->text();
    const int cursor = line->cursorPosition();
    const bool selected = line->hasSelectedText();
    type();
    const bool typed = !event.text().isEmpty() && event.text()[0].isPrint() &&
                       !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (typed && line->text() == before && line->cursorPosition() == cursor && line->hasSelectedText() == selected)
        Beep();
}

} // namespace

DropList::DropList(QWidget *parent, int id, Holds what) : QComboBox(parent), Id(id), What(what) {
    setMaxVisibleItems(RowsDropped);
}

void DropList::LetType() {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    // What is typed is meant: neither completed, nor taken for the choice of an item that reads the same.
    setCompleter(nullptr);
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    if (What == Holds::AnyText)
        return;
    Number = new NumberText(lineEdit(), this, Id, What, lineEdit()->maxLength());
    lineEdit()->setValidator(Number);
    lineEdit()->setInputMethodHints(Qt::ImhPreferNumbers);
}

// A narrow box still shows its rows whole.
int DropList::WidthOfRows() const {
    const int bar = count() > maxVisibleItems() ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    return view()->sizeHintForColumn(0) + bar + 2 * view()->frameWidth();
}

// The row that stands in the box or begins so; the first of a list of which nothing stands there; -1 for none.
int DropList::RowMeant() const {
    const QString text = currentText();
    if (text.isEmpty())
        return 0;
    if (const int row = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive); row >= 0)
        return currentIndex() >= 0 && itemText(currentIndex()) == text ? currentIndex() : row;
    return What == Holds::AnyText ? findText(text, Qt::MatchStartsWith) : -1;
}

void DropList::showPopup() {
    const QRect screen = host.Frame->screen()->geometry();
    view()->setMinimumWidth(std::min(WidthOfRows(), screen.width()));
    QComboBox::showPopup();
    QWidget *const popup = view()->window();
    if (popup->frameGeometry().right() > screen.right())
        popup->move(screen.right() + 1 - popup->frameGeometry().width(), popup->y());
    // What is lit is what Return takes.
    const QModelIndex meant = model()->index(RowMeant(), modelColumn(), rootModelIndex());
    view()->setCurrentIndex(meant);
    if (meant.isValid())
        view()->scrollTo(meant, QAbstractItemView::EnsureVisible);
    DeliverFromForm({.Kind = EventKind::Control, .Control = Id, .Change = ControlChange::Dropped});
}

void DropList::keyPressEvent(QKeyEvent *event) {
    switch (event->key()) {
    case Qt::Key_Down:
        showPopup();
        return;
    case Qt::Key_Up:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        return;
    case Qt::Key_Home:
    case Qt::Key_End:
        if (!isEditable())
            return;
        break;
    default:
        break;
    }
    if (!Number)
        QComboBox::keyPressEvent(event);
    else if (!Number->TakeKey(*event))
        TypeOrBeep(lineEdit(), *event, [&] { QComboBox::keyPressEvent(event); });
}

void DropList::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void DropList::focusOutEvent(QFocusEvent *event) {
    QComboBox::focusOutEvent(event);
    if (Number)
        Number->Leave();
}

NumberLine::NumberLine(QWidget *parent, int id) : QLineEdit(parent) {
    Number = new NumberText(this, nullptr, id, Holds::Count, maxLength());
    setValidator(Number);
    setInputMethodHints(Qt::ImhPreferNumbers);
}

void NumberLine::keyPressEvent(QKeyEvent *event) {
    if (!Number->TakeKey(*event))
        TypeOrBeep(this, *event, [&] { QLineEdit::keyPressEvent(event); });
}
