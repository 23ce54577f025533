// What people type, read: amounts and dates in the ways they are written, without asking for a form of their own.
#pragma once

#include <QDate>
#include <QString>

struct TypedAmount {
    int Sign = 0;            // -1 or 1 when one was typed, 0 for none
    QString Whole, Fraction; // digits alone; Fraction at most three
    bool HasPoint = false;   // a decimal point or comma was typed
};
// "12.50", "1,234.5", "1.234,50", "-12", "(12)", "£ 1'234": signs, currency signs, blanks and marks between thousands
// are understood. Of "1,234" alone the comma groups thousands only when `grouping` is a comma. 1, or 0 for anything
// else, more than three decimals included.
[[nodiscard]] int ReadTypedAmount(const QString &text, QChar grouping, TypedAmount *to);

// The order in which day and month are written: the locale's.
enum class DateOrder { DayFirst, MonthFirst };
// "15 Apr 2027", "apr 15, 27", "15/04/2027", "15.4.", "2027-04-15" or "15"; what is not said is that of `shown`. A
// number that can be no month is the day, whatever the order; between points the day comes first. 1, or 0 when the text
// is no day between FirstDate and LastDate.
[[nodiscard]] int ReadTypedDate(const QString &text, DateOrder order, const QDate &shown, QDate *to);
// "15 Apr 2027 (Thu)" or "Apr 15 2027 (Thu)".
QString WriteDate(const QDate &date, DateOrder order);

// The dates that records can hold.
inline const QDate FirstDate(1699, 12, 31), LastDate(9999, 12, 31);
