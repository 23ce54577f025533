// Dates: calendar fields for display and one day number for order and arithmetic, kept together.
#pragma once

#include <cstdint>

// As it stands in records, 12 bytes.
struct RecDate {
    uint32_t Year;      // 2026
    int8_t Month;       // 1 to 12
    int8_t Day;         // 1 to 31
    uint8_t Padding[2]; // zero
    uint32_t DayNumber; // 1 January 1601 is 1; 0 in a row that holds nothing
};
static_assert(sizeof(RecDate) == 12);

// Valid dates, both ends included: 31 December 1699 and the day after 31 December 9999.
inline constexpr uint32_t FirstDayNumber = 36159, LastDayNumber = 3067672;
inline constexpr uint32_t LastYear = 9999;

enum DateUnit : int { StepDay = 1, StepMonth = 2, StepYear = 3 };

// The Gregorian rule.
int IsLeapYear(uint32_t year);
// 28 to 31; month 1 to 12. A month outside is taken as the nearest.
int DaysInMonth(uint32_t year, int month);
// Calendar fields to day number. Fields as a damaged record may hold them are first brought to year 1601 to 10000,
// month 1 to 12, day 1 to 31; a day past its month's end counts on into the next month and stays as it is.
void InsertAbs(RecDate *date);
// Day number to calendar fields. A number outside 1 to LastDayNumber is first brought to the nearest.
void InsertDate(RecDate *date);
// Today by the device's clock, both forms.
void LoadTodaysDate(RecDate *date);
RecDate DateFromDayNumber(uint32_t dayNumber);
// 0 Sunday to 6 Saturday.
int WeekdayOf(const RecDate &date);

// One day, month or year on or back, then clamped to the valid dates. A step by year uses a leap test of its own,
// deliberately unlike IsLeapYear: divisible by 4 and not by 400, so 29 February becomes 28 in 2000 and stands in 1900.
void StepDate(int forward, DateUnit unit, RecDate *date);

// 1 where the device's short date starts with the day.
int UKSysDateFormatSet();
