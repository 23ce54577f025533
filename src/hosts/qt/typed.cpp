#include "hosts/qt/typed.h"
#include <QList>
#include <QLocale>
#include <algorithm>

namespace {

constexpr int MostDecimals = 3, GroupDigits = 3;

bool IsSign(QChar c) {
    return c == u'-' || c == u'+' || c == QChar(0x2212);
}

// Between the digits of one number, or before and behind it.
bool IsIgnored(QChar c) {
    return c.isSpace() || c == u'\'' || c == QChar(0x2019) || c.category() == QChar::Symbol_Currency;
}

// Digits between marks of thousands: every group but the first has three.
bool GroupsWell(const QString &text, QChar mark) {
    const QStringList groups = text.split(mark);
    for (qsizetype i = 0; i < groups.size(); ++i)
        if (groups[i].isEmpty() || groups[i].size() > GroupDigits || (i > 0 && groups[i].size() != GroupDigits))
            return false;
    return true;
}

// The place of the decimal point in a text of digits, points and commas: -1 when it has none, -2 when it makes no
// sense.
qsizetype PointOf(const QString &text, QChar grouping) {
    const qsizetype points = text.count(u'.'), commas = text.count(u',');
    if (points == 0 && commas == 0)
        return -1;
    if (points > 0 && commas > 0) {
        const qsizetype point = std::max(text.lastIndexOf(u'.'), text.lastIndexOf(u','));
        const QChar decimal = text[point], mark = decimal == u'.' ? u',' : u'.';
        return text.count(decimal) == 1 && GroupsWell(text.left(point), mark) ? point : -2;
    }
    const QChar mark = points > 0 ? u'.' : u',';
    const bool groups = GroupsWell(text, mark);
    if (points + commas > 1)
        return groups ? -1 : -2;
    return groups && mark == grouping && text[0] != u'0' ? -1 : text.indexOf(mark);
}

// --- Dates

struct Words {
    QList<int> Numbers; // in their order
    QList<qsizetype> Digits;
    int Month = 0; // named by a word
    bool Points = false;
};

const char *const MonthNames[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
const char *const DayNames[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

// The 1-based row whose beginning the word is, with at least three letters; 0 for none.
template <size_t Count> int RowOf(const char *const (&names)[Count], const QString &word) {
    constexpr int LeastLetters = 3;
    for (size_t i = 0; i < Count; ++i)
        if (word.size() >= LeastLetters && QString::fromLatin1(names[i]).startsWith(word, Qt::CaseInsensitive))
            return static_cast<int>(i) + 1;
    return 0;
}

bool TakeWord(const QString &word, Words *to) {
    static constexpr const char *Endings[] = {"st", "nd", "rd", "th"}; // 15th
    if (const int month = RowOf(MonthNames, word); month && to->Month == 0) {
        to->Month = month;
        return true;
    }
    if (word.compare(QLatin1String("sept"), Qt::CaseInsensitive) == 0 && to->Month == 0) {
        to->Month = 9;
        return true;
    }
    return RowOf(DayNames, word) || std::any_of(std::begin(Endings), std::end(Endings), [&](const char *ending) {
               return word.compare(QLatin1String(ending), Qt::CaseInsensitive) == 0;
           });
}

bool Split(const QString &text, Words *to) {
    constexpr qsizetype MostDigits = 4;
    for (qsizetype i = 0; i < text.size();) {
        qsizetype end = i + 1;
        if (text[i] >= u'0' && text[i] <= u'9') {
            while (end < text.size() && text[end] >= u'0' && text[end] <= u'9')
                ++end;
            if (end - i > MostDigits)
                return false;
            to->Numbers.append(text.mid(i, end - i).toInt());
            to->Digits.append(end - i);
        } else if (text[i].isLetter()) {
            while (end < text.size() && text[end].isLetter())
                ++end;
            if (!TakeWord(text.mid(i, end - i), to))
                return false;
        } else if (text[i] == u'.') {
            to->Points = true;
        } else if (!text[i].isSpace() && !QStringLiteral("/-,()").contains(text[i])) {
            return false;
        }
        i = end;
    }
    return true;
}

int WholeYear(int year, qsizetype digits) {
    constexpr int FirstOfLastCentury = 80;
    return digits > 2 ? year : year >= FirstOfLastCentury ? 1900 + year : 2000 + year;
}

} // namespace

int ReadTypedAmount(const QString &text, QChar grouping, TypedAmount *to) {
    TypedAmount read;
    QString number;
    bool opened = false, closed = false;
    for (const QChar c : text) {
        if (IsIgnored(c))
            continue;
        if (IsSign(c)) {
            if (read.Sign != 0)
                return 0;
            read.Sign = c == u'+' ? 1 : -1;
        } else if (c == u'(' && number.isEmpty() && !opened) {
            opened = true;
        } else if (c == u')' && opened && !closed) {
            closed = true;
        } else if (((c >= u'0' && c <= u'9') || c == u'.' || c == u',') && !closed) {
            number += c;
        } else {
            return 0;
        }
    }
    if (opened != closed || (opened && read.Sign != 0))
        return 0;
    if (opened)
        read.Sign = -1;
    const qsizetype point = PointOf(number, grouping);
    if (point < -1)
        return 0;
    read.HasPoint = point >= 0;
    read.Whole = number.left(point >= 0 ? point : number.size()).remove(u'.').remove(u',');
    read.Fraction = point >= 0 ? number.mid(point + 1) : QString();
    while (read.Fraction.size() > MostDecimals && read.Fraction.endsWith(u'0'))
        read.Fraction.chop(1);
    if (read.Fraction.size() > MostDecimals)
        return 0;
    *to = read;
    return 1;
}

int ReadTypedDate(const QString &text, DateOrder order, const QDate &shown, QDate *to) {
    Words words;
    if (!Split(text, &words))
        return 0;
    const QList<int> &number = words.Numbers;
    const qsizetype count = number.size();
    int day = shown.day(), month = words.Month ? words.Month : shown.month(), year = shown.year();
    const auto isYear = [&](qsizetype i) { return words.Digits[i] > 2; };
    const auto takeYear = [&](qsizetype i) { year = WholeYear(number[i], words.Digits[i]); };
    if (words.Month != 0) { // the year is the long one, or the last
        if (count < 1 || count > 2)
            return 0;
        const qsizetype yearAt = isYear(0) ? 0 : count == 2 ? 1 : -1;
        if (yearAt >= 0)
            takeYear(yearAt);
        if (count == 2 || yearAt < 0)
            day = number[count == 2 ? 1 - yearAt : 0];
    } else if (count == 3 && isYear(0)) {
        takeYear(0);
        month = number[1];
        day = number[2];
    } else if (count == 2 || count == 3) {
        const bool dayFirst = words.Points || order == DateOrder::DayFirst;
        day = number[dayFirst ? 0 : 1];
        month = number[dayFirst ? 1 : 0];
        if (month > 12)
            std::swap(day, month);
        if (count == 3)
            takeYear(2);
    } else if (count == 1) {
        day = number[0];
    } else {
        return 0;
    }
    const QDate date(year, month, day);
    if (!date.isValid() || date < FirstDate || date > LastDate)
        return 0;
    *to = date;
    return 1;
}

QString WriteDate(const QDate &date, DateOrder order) {
    const QString format =
        order == DateOrder::DayFirst ? QStringLiteral("dd MMM yyyy (ddd)") : QStringLiteral("MMM dd yyyy (ddd)");
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(date, format);
}
