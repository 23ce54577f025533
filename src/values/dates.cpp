#include "values/dates.h"
#include "platform/clock.h"

namespace {

constexpr uint32_t DaysIn400Years = 146097, DaysIn100Years = 36524, DaysIn4Years = 1461, DaysInYear = 365;
constexpr uint32_t FirstYear = 1601, LastYear = 10000;

// Days before each month, from month 1; the last stands for the whole year.
constexpr uint16_t DaysBefore[2][13] = {
    {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365},
    {0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366},
};

template <typename Number> Number Clamped(Number value, Number low, Number high) {
    return value < low ? low : value > high ? high : value;
}

int LastDayOf(int leap, int month) {
    month = Clamped(month, 1, 12);
    return DaysBefore[leap][month] - DaysBefore[leap][month - 1];
}

void ClampFields(RecDate *date) {
    date->Year = Clamped(date->Year, FirstYear, LastYear);
    date->Month = Clamped<int8_t>(date->Month, 1, 12);
    date->Day = Clamped<int8_t>(date->Day, 1, 31);
}

void ClampDayTo(int lastDay, RecDate *date) {
    if (date->Day > lastDay)
        date->Day = static_cast<int8_t>(lastDay);
}

} // namespace

int IsLeapYear(uint32_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInMonth(uint32_t year, int month) {
    return LastDayOf(IsLeapYear(year), month);
}

void InsertAbs(RecDate *date) {
    ClampFields(date);
    const uint32_t years = date->Year - FirstYear;
    date->DayNumber = years * DaysInYear + years / 4 - years / 100 + years / 400 +
                      DaysBefore[IsLeapYear(date->Year)][date->Month - 1] + static_cast<uint32_t>(date->Day);
}

void InsertDate(RecDate *date) {
    date->DayNumber = Clamped(date->DayNumber, 1u, LastDayNumber);
    const auto least = [](uint32_t a, uint32_t b) { return a < b ? a : b; };
    const uint32_t q400 = (date->DayNumber - 1) / DaysIn400Years;
    uint32_t rest = date->DayNumber - q400 * DaysIn400Years;
    const uint32_t q100 = least(rest / DaysIn100Years, 3);
    rest -= q100 * DaysIn100Years;
    const uint32_t q4 = least(rest / DaysIn4Years, 24);
    rest -= q4 * DaysIn4Years;
    const uint32_t q1 = least(rest / DaysInYear, 3);
    rest -= q1 * DaysInYear;
    date->Year = FirstYear + 400 * q400 + 100 * q100 + 4 * q4 + q1;
    if (rest == 0) { // the divisions run one day ahead at the end of a year
        --date->Year;
        date->Month = 12;
        date->Day = 31;
        return;
    }
    const uint16_t *before = DaysBefore[IsLeapYear(date->Year)];
    int month = 1;
    while (before[month] < rest)
        ++month;
    date->Month = static_cast<int8_t>(month);
    date->Day = static_cast<int8_t>(rest - before[month - 1]);
}

void LoadTodaysDate(RecDate *date) {
    ClockTime now;
    ReadClock(&now);
    *date = {};
    date->Year = static_cast<uint32_t>(now.Year);
    date->Month = static_cast<int8_t>(now.Month);
    date->Day = static_cast<int8_t>(now.Day);
    InsertAbs(date);
}

RecDate DateFromDayNumber(uint32_t dayNumber) {
    RecDate date = {};
    date.DayNumber = dayNumber;
    InsertDate(&date);
    return date;
}

int WeekdayOf(const RecDate &date) {
    return static_cast<int>(date.DayNumber % 7);
} // day 1 was a Monday

void StepDate(int forward, DateUnit unit, RecDate *date) {
    const int step = forward ? 1 : -1;
    if (unit == StepDay) {
        const int64_t number = static_cast<int64_t>(date->DayNumber) + step;
        date->DayNumber = static_cast<uint32_t>(Clamped<int64_t>(number, FirstDayNumber, LastDayNumber));
        InsertDate(date);
        return;
    }
    ClampFields(date);
    int month = date->Month;
    int year = static_cast<int>(date->Year);
    if (unit == StepMonth) {
        month += step;
        year += month > 12 ? 1 : month < 1 ? -1 : 0;
        month = month > 12 ? 1 : month < 1 ? 12 : month;
    } else {
        year += step;
    }
    date->Year = static_cast<uint32_t>(year);
    date->Month = static_cast<int8_t>(month);
    // Deliberate: a step by year knows a leap year by a test of its own.
    const int leap = unit == StepMonth ? IsLeapYear(date->Year) : year % 4 == 0 && year % 400 != 0;
    ClampDayTo(LastDayOf(leap, month), date);
    InsertAbs(date);
    if (date->DayNumber < FirstDayNumber || date->DayNumber > LastDayNumber)
        *date = DateFromDayNumber(Clamped(date->DayNumber, FirstDayNumber, LastDayNumber));
}

int UKSysDateFormatSet() {
    return DayComesFirst();
}
