// What a box that holds a number takes: digits, an amount pasted in any usual way, and the keys that lead from the
// whole units to the fraction or set the sign.
#pragma once

#include "platform/controls.h"
#include <QPointer>
#include <QValidator>

class QComboBox;
class QKeyEvent;
class QLineEdit;

class NumberText final : public QValidator {
public:
    // For the line of a control, `list` its combo box or null; `limit` the most digits.
    NumberText(QLineEdit *line, QComboBox *list, int id, Holds what, int limit);

    // Makes a fraction that of a whole number.
    static void Join(NumberText *whole, NumberText *fraction);
    // A key before the line gets it. True when it is done with.
    bool TakeKey(const QKeyEvent &event);
    // The keys go elsewhere: what is typed next does not belong to what was typed before.
    void Leave();
    void Limit(int digits) { MostDigits = digits; }

    State validate(QString &text, int &cursor) const override;

private:
    QLineEdit *Line;
    QComboBox *List;
    int Id, MostDigits;
    Holds What;
    QPointer<NumberText> Other; // the fraction of a whole number, the whole number of a fraction
    QChar CameBy;               // the mark that led from the whole number here; null for none
    bool Grouping = false;      // the last marks were those of thousands: three more digits are a group too

    bool TakeMark(QChar mark);
    bool TakeGroup(const QString &digits);
    bool IsRow(const QString &text) const;
    bool Spread(QString &text, int &cursor) const;
};
