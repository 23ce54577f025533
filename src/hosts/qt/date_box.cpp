#include "hosts/qt/date_box.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/keys.h"
#include "hosts/qt/style.h"
#include "hosts/qt/typed.h"
#include "platform/clock.h"
#include "platform/controls.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QLocale>
#include <QPainter>
#include <QScreen>
#include <QStyleOptionComboBox>
#include <QTextCharFormat>
#include <QVBoxLayout>
#include <QWheelEvent>

static DateOrder Order() {
    return DayComesFirst() ? DateOrder::DayFirst : DateOrder::MonthFirst;
}

static void Tell(int id, ControlChange change) {
    DeliverFromForm({.Kind = EventKind::Control, .Control = id, .Change = change});
}

DateBox::DateBox(QWidget *parent, int id) : QLineEdit(parent), Id(id) {
    setProperty(OpensByArrow, true);
    connect(this, &QLineEdit::textEdited, this, &DateBox::ReadTyped);
    SetDate(QDate::currentDate());
}

void DateBox::SetDate(const QDate &date) {
    Shown = Base = std::clamp(date, FirstDate, LastDate);
    setText(WriteDate(Shown, Order()));
    setPalette({});
    if (hasFocus())
        selectAll();
}

bool DateBox::Reads() const {
    QDate date;
    return ReadTypedDate(text(), Order(), Base, &date);
}

// Each key counts at once; a text that is no date yet leaves the date before.
void DateBox::ReadTyped() {
    setPalette({});
    QDate date;
    if (!ReadTypedDate(text(), Order(), Base, &date) || date == Shown)
        return;
    Shown = date;
    Tell(Id, ControlChange::Choice);
}

void DateBox::Take(const QDate &date) {
    const bool other = date != Shown;
    SetDate(date);
    setFocus(Qt::OtherFocusReason);
    selectAll();
    if (other)
        Tell(Id, ControlChange::Choice);
}

void DateBox::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Down || event->key() == Qt::Key_F4)
        OpenCalendar();
    else if (event->key() != Qt::Key_Up)
        QLineEdit::keyPressEvent(event);
}

// A date is changed by typing and in the calendar, never in passing.
void DateBox::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void DateBox::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && DropBox().contains(event->position().toPoint()))
        OpenCalendar();
    else
        QLineEdit::mousePressEvent(event);
}

void DateBox::mouseMoveEvent(QMouseEvent *event) {
    setCursor(DropBox().contains(event->position().toPoint()) ? Qt::ArrowCursor : Qt::IBeamCursor);
    QLineEdit::mouseMoveEvent(event);
}

// What was typed is written out in full; what is no date stays as it is, in red.
void DateBox::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason)
        return;
    if (Reads()) {
        SetDate(Shown);
        setCursorPosition(0);
    } else {
        QPalette alarm = palette();
        alarm.setColor(QPalette::Text, QColor(style::Alarm));
        setPalette(alarm);
    }
}

QRect DateBox::DropBox() const {
    QStyleOptionComboBox option;
    option.initFrom(this);
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
}

void DateBox::resizeEvent(QResizeEvent *event) {
    QLineEdit::resizeEvent(event);
    setTextMargins(0, 0, DropBox().width(), 0);
}

void DateBox::paintEvent(QPaintEvent *event) {
    QLineEdit::paintEvent(event);
    QStyleOptionComboBox option;
    option.initFrom(this);
    QPainter painter(this);
    painter.setClipRect(DropBox());
    style()->drawComplexControl(QStyle::CC_ComboBox, &option, &painter, this);
}

void DateBox::OpenCalendar() {
    if (!Popup) {
        Popup = new QFrame(this, Qt::Popup);
        Calendar = new QCalendarWidget(Popup);
        Calendar->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
        Calendar->setFirstDayOfWeek(QLocale::system().firstDayOfWeek());
        Calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
        Calendar->setDateRange(FirstDate, LastDate);
        QTextCharFormat weekend;
        weekend.setForeground(QColor(style::Alarm));
        Calendar->setWeekdayTextFormat(Qt::Saturday, weekend);
        Calendar->setWeekdayTextFormat(Qt::Sunday, weekend);
        QVBoxLayout *const layout = new QVBoxLayout(Popup);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(Calendar);
        for (const auto chosen : {&QCalendarWidget::clicked, &QCalendarWidget::activated})
            connect(Calendar, chosen, this, [this](const QDate &date) {
                Popup->close();
                Take(date);
            });
    }
    Calendar->setSelectedDate(Shown);
    Popup->adjustSize();
    const QRect screen = host.Frame->screen()->geometry();
    const QPoint below = mapToGlobal(QPoint(0, height())), above = mapToGlobal(QPoint(0, -Popup->height()));
    const int top = below.y() + Popup->height() <= screen.bottom() + 1 ? below.y() : above.y();
    Popup->move(std::clamp(below.x(), screen.left(), std::max(screen.left(), screen.right() + 1 - Popup->width())),
                std::clamp(top, screen.top(), std::max(screen.top(), screen.bottom() + 1 - Popup->height())));
    Popup->show();
    Calendar->setFocus(Qt::PopupFocusReason);
    Tell(Id, ControlChange::Calendar);
}
