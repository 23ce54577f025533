// clock.h from the C library and the LC_TIME of whoever runs the program. The locale is an object of its own, so that
// nothing here depends on, or changes, the locale of the process.
#include "platform/clock.h"
#include "platform/text.h"
#include <clocale>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <langinfo.h>
#include <locale.h>

namespace {

constexpr int64_t SecondsFrom1601To1970 = 11644473600;
constexpr int NameRoom = 32;

locale_t UserLocale() {
    static const locale_t user = [] {
        const locale_t wanted = newlocale(LC_TIME_MASK | LC_CTYPE_MASK, "", nullptr);
        return wanted ? wanted : newlocale(LC_ALL_MASK, "C", nullptr);
    }();
    return user;
}

struct Names {
    char16_t Day[7][NameRoom], Month[12][NameRoom];
};

const Names &UserNames() {
    static const Names names = [] {
        static_assert(DAY_7 - DAY_1 == 6 && ABMON_12 - ABMON_1 == 11);
        Names made;
        for (int day = 0; day < 7; ++day)
            WidenText(made.Day[day], NameRoom, nl_langinfo_l(DAY_1 + day, UserLocale()));
        for (int month = 0; month < 12; ++month)
            WidenText(made.Month[month], NameRoom, nl_langinfo_l(ABMON_1 + month, UserLocale()));
        return made;
    }();
    return names;
}

tm LocalNow(timespec *exact) {
    clock_gettime(CLOCK_REALTIME, exact);
    tm local{};
    localtime_r(&exact->tv_sec, &local);
    return local;
}

void WriteTime(char *to, int room, const char *format, const ClockTime *time) {
    tm parts{};
    parts.tm_year = time->Year - 1900;
    parts.tm_mon = time->Month - 1;
    parts.tm_mday = time->Day;
    parts.tm_wday = time->Weekday;
    parts.tm_hour = time->Hour;
    parts.tm_min = time->Minute;
    parts.tm_sec = time->Second;
    if (room > 0 && strftime_l(to, static_cast<size_t>(room), format, &parts, UserLocale()) == 0)
        to[0] = 0;
}

} // namespace

void ReadClock(ClockTime *now) {
    timespec exact;
    const tm local = LocalNow(&exact);
    *now = {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_wday,
            local.tm_hour,        local.tm_min,     local.tm_sec};
}

int64_t ClockTicks() {
    timespec exact;
    tm local = LocalNow(&exact);
    return (timegm(&local) + SecondsFrom1601To1970) * 100 + exact.tv_nsec / 10'000'000;
}

const char16_t *WeekdayName(int weekday) {
    return weekday >= 0 && weekday < 7 ? UserNames().Day[weekday] : u"";
}
const char16_t *MonthName(int month) {
    return month >= 1 && month <= 12 ? UserNames().Month[month - 1] : u"";
}

int DayComesFirst() {
    for (const char *at = nl_langinfo_l(D_FMT, UserLocale()); *at; ++at)
        if (*at == '%' && at[1]) {
            ++at;
            while (*at && strchr("-_0^#EO", *at)) // flags of a conversion
                ++at;
            if (!strchr("aAuw", *at)) // a weekday says nothing about the order
                return *at == 'd' || *at == 'e';
        }
    return 0;
}

void WriteShortDate(char *to, int room, const ClockTime *time) {
    WriteTime(to, room, "%x", time);
}

void WriteShortTime(char *to, int room, const ClockTime *time) {
    const char *format = nl_langinfo_l(T_FMT, UserLocale());
    const bool halfDays = strstr(format, "%I") || strstr(format, "%r") || strstr(format, "%l");
    WriteTime(to, room, halfDays ? "%I:%M %p" : "%H:%M", time);
}
