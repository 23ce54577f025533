// Money to the thousandth and dates to the day, whatever is typed, imported or damaged.
#include "host/test_host.h"
#include "values/amounts.h"
#include "values/dates.h"
#include <cstring>
#include <gtest/gtest.h>

using testhost::Utf8;

TEST(Amounts, BoxesOfAFormAreReadToTheThousandth) {
    static const struct {
        const char16_t *Text;
        int Thousandths;
    } fractions[] = {
        {u"", 0},      {u"5", 500}, {u"50", 500}, {u"05", 50}, {u"005", 5},  {u"125", 125},
        {u"7", 700},   {u"0", 0},   {u"000", 0},  {u"ab", 0},  {u"99", 990}, {u"-5", 50}, // the sign takes a place
        {u"1234", 12},
    };
    for (const auto &c : fractions)
        EXPECT_EQ(ParseFractionField(c.Text), c.Thousandths) << Utf8(c.Text);
    static const struct {
        const char16_t *Text;
        int64_t Whole;
    } wholes[] = {
        // clang-format off
        {u"", 0}, {u"12", 12}, {u"-12", 12}, {u"+12", 12}, {u"abc", 0}, {u"--3", 0}, {u"12345678", 12345678},
        {u"123456789", 12345678}, {u"-123456789", 12345678}, {u" 4", 4}, {u"4 4", 4},
        {u"--5", 0}, {u"7.25", 7}, {u"1,000", 1}, {u"٣", 0},
        // clang-format on
    };
    for (const auto &c : wholes)
        EXPECT_EQ(ParseWholeField(c.Text), c.Whole) << Utf8(c.Text);
}

TEST(Amounts, ExchangeFilesAreReadToTheThousandth) {
    static const struct {
        const char *Text;
        FixedAmount Amount;
        int32_t Whole;
    } cases[] = {
        // clang-format off
        {"1,234.5", 1234500, 1}, {"-1,234.56", -1234560, -1}, {"-12", 12000, -12}, {".5", 0, 0}, {"12", 12000, 12},
        {"+7.25", 7250, 7}, {"-0.50", -500, 0}, {"-.5", -500, 0}, {"1.2345", 1234, 1}, {"1.x", 1000, 1},
        {"12.", 12000, 12}, {"-12.", 12000, -12}, {"", 0, 0}, {"abc", 0, 0}, {"-", 0, 0}, {"  3.1", 3100, 3},
        {"1,000,000", 1000000000, 1}, {",5", 5000, 0}, {"0000000000000000000000000000000001.5", 1500, 1},
        {"99999999999", 99999999999000, INT32_MAX}, {"-99999999999.0", -99999999999000, INT32_MIN},
        // clang-format on
        {"9223372036854775807", -1000, INT32_MAX}, // wraps: no such amount exists
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Str_int64(c.Text), c.Amount) << c.Text;
        EXPECT_EQ(Str_int(c.Text), c.Whole) << c.Text;
    }
    char text[] = ",1,234,,5,";
    replaceComas(text, '.');
    EXPECT_STREQ(text, ".1.234..5.");
    char other[] = ",1,234,,5,";
    replaceComas(other, 0);
    EXPECT_STREQ(other, "12345");
}

TEST(Amounts, RowsShowTheMagnitudeCutNotRounded) {
    static const struct {
        FixedAmount Amount;
        int Decimals;
        const char *Shown;
    } cases[] = {
        // clang-format off
        {0, 2, "0.00"}, {-5, 2, "0.00"}, {1999, 2, "1.99"}, {-344980, 2, "344.98"}, {1005, 3, "1.005"},
        {-240, 3, "0.240"}, {100000000999, 2, "100000000.99"}, {100000001000, 2, "*** ! ***"},
        {-100000001000, 3, "*** ! ***"}, {INT64_MIN, 2, "*** ! ***"},
        // clang-format on
    };
    for (const auto &c : cases) {
        char16_t text[24];
        WriteAmount(text, 24, c.Amount, c.Decimals);
        EXPECT_EQ(Utf8(text), c.Shown);
    }
    EXPECT_EQ(AddAmounts(INT64_MAX, 1), INT64_MIN);
    EXPECT_EQ(TimesUnits(INT64_MIN, -1), INT64_MIN);
    EXPECT_EQ(NegateAmount(INT64_MIN), INT64_MIN);
    EXPECT_EQ(FractionPart(INT64_MIN), 808);
}

namespace {

std::string Shown(const RecDate &date) {
    char text[64];
    snprintf(text, sizeof text, "%u-%d-%d #%u", date.Year, date.Month, date.Day, date.DayNumber);
    return text;
}

RecDate Fields(uint32_t year, int month, int day) {
    RecDate date = {};
    date.Year = year;
    date.Month = static_cast<int8_t>(month);
    date.Day = static_cast<int8_t>(day);
    return date;
}

} // namespace

TEST(Dates, EveryDayHasItsNumberAndEveryNumberItsDay) {
    static const struct {
        uint32_t Year;
        int Month, Day;
        uint32_t Number;
        int Weekday;
    } cases[] = {
        {1601, 1, 1, 1, 1},        {1601, 12, 31, 365, 1},     {1604, 12, 31, 1461, 5},   {1700, 12, 31, 36524, 5},
        {1699, 12, 31, 36159, 4},  {2000, 12, 31, 146097, 0},  {2000, 2, 29, 145791, 2},  {2001, 1, 1, 146098, 1},
        {2026, 11, 22, 155554, 0}, {9999, 12, 31, 3067671, 5}, {10000, 1, 1, 3067672, 6},
    };
    for (const auto &c : cases) {
        RecDate date = Fields(c.Year, c.Month, c.Day);
        InsertAbs(&date);
        EXPECT_EQ(date.DayNumber, c.Number) << Shown(date);
        EXPECT_EQ(WeekdayOf(date), c.Weekday) << Shown(date);
        const RecDate back = DateFromDayNumber(c.Number);
        EXPECT_EQ(std::memcmp(&back, &date, sizeof date), 0) << Shown(back) << " for " << Shown(date);
    }
    // Day by day over four centuries, by counting on the calendar.
    RecDate walked = Fields(1601, 1, 1);
    for (uint32_t number = 1; number <= 146098; ++number) {
        const RecDate date = DateFromDayNumber(number);
        ASSERT_TRUE(date.Year == walked.Year && date.Month == walked.Month && date.Day == walked.Day) << Shown(date);
        if (++walked.Day > DaysInMonth(walked.Year, walked.Month)) {
            walked.Day = 1;
            if (++walked.Month > 12)
                walked.Month = 1, ++walked.Year;
        }
    }
}

TEST(Dates, DamagedDatesAreBroughtIntoTheCalendar) {
    RecDate date = Fields(0, 0, 0);
    InsertAbs(&date);
    EXPECT_EQ(Shown(date), "1601-1-1 #1");
    date = Fields(0xFFFFFFFF, 120, 127);
    InsertAbs(&date);
    EXPECT_EQ(Shown(date), "10000-12-31 #3068037");
    date = Fields(2026, -128, -128);
    InsertAbs(&date);
    EXPECT_EQ(date.Month, 1);
    EXPECT_EQ(Shown(DateFromDayNumber(0)), "1601-1-1 #1");
    EXPECT_EQ(Shown(DateFromDayNumber(0xFFFFFFFF)), "10000-1-1 #3067672");
    EXPECT_EQ(DaysInMonth(2026, 0), 31);
    EXPECT_EQ(DaysInMonth(2026, 200), 31);
}

TEST(Dates, StepsStayOnTheCalendarAndInTheRange) {
    static const struct {
        uint32_t Year;
        int Month, Day, Forward;
        DateUnit Unit;
        const char *Expected;
    } cases[] = {
        // clang-format off
        {2026, 1, 31, 1, StepMonth, "2026-2-28 #155287"}, {2024, 1, 31, 1, StepMonth, "2024-2-29 #154557"},
        {2026, 12, 5, 1, StepMonth, "2027-1-5 #155598"}, {2026, 1, 5, 0, StepMonth, "2025-12-5 #155202"},
        {2004, 2, 29, 1, StepYear, "2005-2-28 #147617"}, {1999, 2, 28, 1, StepYear, "2000-2-28 #145790"},
        {2004, 2, 29, 0, StepYear, "2003-2-28 #146886"}, {2026, 2, 28, 1, StepDay, "2026-3-1 #155288"},
        {2026, 1, 1, 0, StepDay, "2025-12-31 #155228"},
        // clang-format on
        {2001, 2, 29, 0, StepYear, "2000-2-28 #145790"}, // its own leap test: none in 2000 ...
        {1899, 2, 29, 1, StepYear, "1900-2-29 #109267"}, // ... but one in 1900
        // clang-format off
        {1699, 12, 31, 0, StepDay, "1699-12-31 #36159"}, {1699, 12, 31, 0, StepMonth, "1699-12-31 #36159"},
        {1700, 2, 1, 0, StepYear, "1699-12-31 #36159"}, {10000, 1, 1, 1, StepDay, "10000-1-1 #3067672"},
        {9999, 12, 31, 1, StepMonth, "10000-1-1 #3067672"}, {9999, 12, 31, 1, StepYear, "10000-1-1 #3067672"},
        // clang-format on
    };
    for (const auto &c : cases) {
        RecDate date = Fields(c.Year, c.Month, c.Day);
        InsertAbs(&date);
        StepDate(c.Forward, c.Unit, &date);
        EXPECT_EQ(Shown(date), c.Expected) << c.Year << "-" << c.Month << "-" << c.Day;
    }
    RecDate nothing = {};
    StepDate(0, StepDay, &nothing);
    EXPECT_EQ(Shown(nothing), "1699-12-31 #36159");
}
