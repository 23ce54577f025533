// The device's clock and its user's locale.
#pragma once

#include <cstdint>

struct ClockTime {
    int Year, Month, Day; // 2026, 1 to 12, 1 to 31
    int Weekday;          // 0 Sunday to 6 Saturday
    int Hour, Minute, Second;
};

// Local time now.
void ReadClock(ClockTime *now);

// Local time in 10 ms ticks since 1 January 1601: what category ids are drawn from.
int64_t ClockTicks();

// Names in the user's language, valid until exit. Weekday 0 Sunday to 6 Saturday, in full; month 1 to 12, short.
const char16_t *WeekdayName(int weekday);
const char16_t *MonthName(int month);

// 1 where the short date begins with the day, 0 where it begins with month or year.
int DayComesFirst();

// The user's short date and hours and minutes, 8-bit, for the error log.
void WriteShortDate(char *to, int room, const ClockTime *time);
void WriteShortTime(char *to, int room, const ClockTime *time);
