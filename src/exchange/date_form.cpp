#include "exchange/date_form.h"
#include "exchange/scan.h"
#include "exchange/text_lines.h"
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

bool IsDigit(char unit) {
    return unit >= '0' && unit <= '9';
}
char Lower(char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

constexpr const char *MonthWords[] = {"jan", "feb", "mar", "apr", "may", "jun",
                                      "jul", "aug", "sep", "oct", "nov", "dec"};

// 1 when the first three letters are the word's.
int BeginsAs(const char *text, const char *word) {
    return Lower(text[0]) == word[0] && Lower(text[1]) == word[1] && Lower(text[2]) == word[2];
}

// The month whose name the letters begin, 0 for none; behind them in `end`.
int32_t MonthNamed(const char *text, const char **end) {
    const char *at = text;
    while ((*at >= 'a' && *at <= 'z') || (*at >= 'A' && *at <= 'Z'))
        ++at;
    *end = at;
    for (size_t i = 0; i < std::size(MonthWords); ++i)
        if (at - text >= 3 && BeginsAs(text, MonthWords[i]))
            return static_cast<int32_t>(i) + 1;
    return 0;
}

// Digits alone, without a sign. Their count.
int TakeDigits(Scan *scan, int32_t *number) {
    const char *from = scan->At;
    return IsDigit(*from) && ScanNumber(scan, number) ? static_cast<int>(scan->At - from) : 0;
}

void PassMarks(Scan *scan) {
    while (*scan->At && std::strchr(" ,.-/'", *scan->At))
        ++scan->At;
}

struct PlainDate {
    int32_t Year, Month, Day;
};

// 2012-03-31, 2012/03/31, 20120331. 0 for any other.
int YearFirstDate(const char *text, PlainDate *date) {
    Scan scan = {text};
    int32_t number;
    const int digits = TakeDigits(&scan, &number);
    if (digits == 8 && !IsDigit(*scan.At) && number / 10000 >= 1900 && number / 10000 < 2100) {
        *date = {number / 10000, number / 100 % 100, number % 100};
        return 1;
    }
    char mark, secondMark;
    if (digits != 4 || !ScanUnit(&scan, &mark) || !std::strchr("-/.", mark))
        return 0;
    date->Year = number;
    return TakeDigits(&scan, &date->Month) && ScanUnit(&scan, &secondMark) && secondMark == mark &&
           TakeDigits(&scan, &date->Day);
}

// 31 Mar 2012, 31-Mar-12, Mar 31, 2012. 0 for any other.
int NamedMonthDate(const char *text, PlainDate *date) {
    Scan scan = {text};
    const int dayFirst = TakeDigits(&scan, &date->Day);
    PassMarks(&scan);
    const char *end;
    date->Month = MonthNamed(scan.At, &end);
    if (date->Month == 0)
        return 0;
    scan.At = end;
    PassMarks(&scan);
    if (!dayFirst) {
        if (!TakeDigits(&scan, &date->Day))
            return 0;
        PassMarks(&scan);
    }
    const int digits = TakeDigits(&scan, &date->Year);
    if (digits == 2)
        date->Year += 2000;
    return digits == 2 || digits == 4;
}

} // namespace

int FormDate(DateOrder order, char *text, int room) {
    PlainDate date;
    const char *begin = Trimmed(text);
    if (YearFirstDate(begin, &date) || NamedMonthDate(begin, &date)) {
        if (order == DateOrder::Unknown)
            return 0;
        const bool dayFirst = order == DateOrder::DayFirst;
        std::snprintf(text, static_cast<size_t>(room), "%d/%d/%d", dayFirst ? date.Day : date.Month,
                      dayFirst ? date.Month : date.Day, date.Year);
        return 1;
    }
    char *to = text;
    for (const char *at = begin; *at; ++at) {
        if (*at != ' ' && *at != '\t') {
            *to++ = *at;
            continue;
        }
        Scan scan = {at};
        int32_t hour;
        if (ScanNumber(&scan, &hour) && *scan.At == ':')
            break;
    }
    *to = 0;
    return 1;
}
