// The clock of the tests: it stands where a test has set it.
#include "platform/clock.h"
#include "test_host.h"
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iterator>

namespace testhost {

TestClock testClock;

void SetClock(int year, int month, int day, int hour, int minute, int second) {
    testClock.Year = year;
    testClock.Month = month;
    testClock.Day = day;
    testClock.Hour = hour;
    testClock.Minute = minute;
    testClock.Second = second;
}

bool SetClock(const std::string &dateTime) {
    int year = 0, month = 0, day = 0, hour = 9, minute = 30, second = 0;
    int ends[3] = {-1, -1, -1}; // where a date, a time, a time with seconds ended
    sscanf(dateTime.c_str(), "%4d-%2d-%2d%nT%2d:%2d%n:%2d%n", &year, &month, &day, &ends[0], &hour, &minute, &ends[1],
           &second, &ends[2]);
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    const bool whole = std::count(std::begin(ends), std::end(ends), static_cast<int>(dateTime.size())) > 0;
    if (!whole || !date.ok() || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59)
        return false;
    SetClock(year, month, day, hour, minute, second);
    return true;
}

static std::chrono::sys_days Today() {
    return std::chrono::year_month_day(std::chrono::year(testClock.Year),
                                       std::chrono::month(static_cast<unsigned>(testClock.Month)),
                                       std::chrono::day(static_cast<unsigned>(testClock.Day)));
}

} // namespace testhost

using namespace testhost;

void ReadClock(ClockTime *now) {
    const int weekday = static_cast<int>(std::chrono::weekday(Today()).c_encoding());
    *now = {testClock.Year, testClock.Month,  testClock.Day,   weekday,
            testClock.Hour, testClock.Minute, testClock.Second};
}

int64_t ClockTicks() {
    using namespace std::chrono;
    const int64_t days = (Today() - sys_days(year(1601) / 1 / 1)).count();
    const int64_t seconds = days * 86400 + testClock.Hour * 3600 + testClock.Minute * 60 + testClock.Second;
    return seconds * 100 + testClock.TicksGiven++;
}

const char16_t *WeekdayName(int weekday) {
    static const char16_t *const names[] = {u"Sunday",   u"Monday", u"Tuesday", u"Wednesday",
                                            u"Thursday", u"Friday", u"Saturday"};
    return weekday >= 0 && weekday < 7 ? names[weekday] : u"";
}

const char16_t *MonthName(int month) {
    static const char16_t *const names[] = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                            u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};
    return month >= 1 && month <= 12 ? names[month - 1] : u"";
}

int DayComesFirst() {
    return testClock.DayFirst;
}

void WriteShortDate(char *to, int room, const ClockTime *time) {
    const int first = testClock.DayFirst ? time->Day : time->Month,
              second = testClock.DayFirst ? time->Month : time->Day;
    snprintf(to, static_cast<size_t>(room), "%02d/%02d/%04d", first, second, time->Year);
}

void WriteShortTime(char *to, int room, const ClockTime *time) {
    snprintf(to, static_cast<size_t>(room), "%02d:%02d", time->Hour, time->Minute);
}
