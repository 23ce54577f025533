#include "hosts/qt/number_text.h"
#include "hosts/qt/delivery.h"
#include "hosts/qt/device.h"
#include "hosts/qt/typed.h"
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <algorithm>

namespace {

constexpr int GroupDigits = 3;

bool AreDigits(const QString &text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QChar GroupingMark() {
    const QString mark = QLocale::system().groupSeparator();
    return mark.isEmpty() ? QChar() : mark[0];
}

void Tell(int id, ControlChange change) {
    DeliverFromForm({.Kind = EventKind::Control, .Control = id, .Change = change});
}

} // namespace

NumberText::NumberText(QLineEdit *line, QComboBox *list, int id, Holds what, int limit)
    : QValidator(line), Line(line), List(list), Id(id), MostDigits(limit), What(what) {}

void NumberText::Join(NumberText *whole, NumberText *fraction) {
    whole->Other = fraction;
    fraction->Other = whole;
}

bool NumberText::TakeKey(const QKeyEvent &event) {
    const QString typed = event.text();
    if (typed.size() != 1 || event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return false;
    const QChar c = typed[0];
    if (c == u'-' || c == QChar(0x2212) || c == u'+') {
        Tell(Id, c == u'+' ? ControlChange::Plus : ControlChange::Minus);
        return true;
    }
    if (c == u'.' || c == u',')
        return TakeMark(c);
    if (Grouping && c.isDigit() && !Line->hasSelectedText() && Line->text().size() == GroupDigits - 1)
        return TakeGroup(Line->text() + c);
    return false;
}

// A decimal point or comma, until what follows shows that it stood between thousands.
bool NumberText::TakeMark(QChar mark) {
    if (!Other)
        return false;
    if (What == Holds::Whole) {
        if (Line->hasSelectedText())
            Line->del();
        if (Line->cursorPosition() < Line->text().size())
            return false; // parts a number that stands there: as if the whole were pasted
        QWidget *const box = Other->List ? static_cast<QWidget *>(Other->List) : Other->Line;
        box->setFocus(Qt::OtherFocusReason);
        Other->Line->selectAll();
        Other->CameBy = mark;
        return true;
    }
    if (CameBy.isNull() || Line->hasSelectedText())
        return false;
    if (!Line->text().isEmpty()) {
        if (!TakeGroup(Line->text()))
            return false;
        Grouping = mark == CameBy;
    } else if (!Grouping) {
        return false;
    } else {
        Grouping = mark == CameBy;
    }
    CameBy = mark;
    return true;
}

// The digits typed here are three more of the whole number.
bool NumberText::TakeGroup(const QString &digits) {
    const QString whole = Other->Line->text() + digits;
    if (digits.size() != GroupDigits || Other->Line->text().isEmpty() || whole.size() > Other->MostDigits)
        return false;
    Other->Line->setText(whole);
    Line->clear();
    Tell(Other->Id, ControlChange::Text);
    return true;
}

void NumberText::Leave() {
    CameBy = {};
    Grouping = false;
}

// A row of the list, or the beginning of one that is typed.
bool NumberText::IsRow(const QString &text) const {
    return List && List->findText(text, Qt::MatchStartsWith) >= 0;
}

// An amount that came at once, into the boxes that it fills.
bool NumberText::Spread(QString &text, int &cursor) const {
    TypedAmount amount;
    if (!ReadTypedAmount(text, GroupingMark(), &amount) || amount.Whole.size() > MostDigits)
        return false;
    if (What == Holds::Whole && Other) {
        if (!amount.Fraction.isEmpty())
            Other->Line->setText(amount.Fraction);
        else if (amount.Whole.isEmpty())
            return false;
    } else if (amount.Fraction.count(u'0') != amount.Fraction.size() || amount.Whole.isEmpty()) {
        return false; // it has decimals, and there is no place for them
    }
    if (amount.Sign != 0)
        Tell(Id, amount.Sign < 0 ? ControlChange::Minus : ControlChange::Plus);
    text = amount.Whole;
    cursor = static_cast<int>(text.size());
    return true;
}

QValidator::State NumberText::validate(QString &text, int &cursor) const {
    if (AreDigits(text))
        return text.size() <= MostDigits ? Acceptable : Invalid;
    if (What == Holds::Count && IsRow(text))
        return Acceptable;
    return What != Holds::Fraction && Spread(text, cursor) ? Acceptable : Invalid;
}
