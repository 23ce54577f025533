#include "exchange/scan.h"

int ScanNumber(Scan *scan, int32_t *number) {
    while (*scan->At == ' ' || (*scan->At >= '\t' && *scan->At <= '\r'))
        ++scan->At;
    const char *at = scan->At;
    const bool negative = *at == '-';
    if (*at == '-' || *at == '+')
        ++at;
    if (*at < '0' || *at > '9')
        return 0;
    int64_t value = 0;
    for (; *at >= '0' && *at <= '9'; ++at) {
        value = value * 10 + (*at - '0');
        value = value > INT32_MAX ? INT32_MAX : value;
    }
    *number = static_cast<int32_t>(negative ? -value : value);
    scan->At = at;
    return 1;
}

int ScanUnit(Scan *scan, char *unit) {
    if (!*scan->At)
        return 0;
    *unit = *scan->At++;
    return 1;
}

int ScanLiteral(Scan *scan, char literal) {
    if (*scan->At != literal)
        return 0;
    ++scan->At;
    return 1;
}

int ScanUntil(Scan *scan, char end, char *to, int room) {
    if (!*scan->At || *scan->At == end)
        return 0;
    int length = 0;
    for (; *scan->At && *scan->At != end; ++scan->At)
        if (length < room - 1)
            to[length++] = *scan->At;
    to[length] = 0;
    return 1;
}

int ScanDate(Scan *scan, ScannedDate *date) {
    if (!ScanNumber(scan, &date->First))
        return 0;
    if (!ScanUnit(scan, &date->FirstMark))
        return 1;
    if (!ScanNumber(scan, &date->Second))
        return 2;
    if (!ScanUnit(scan, &date->SecondMark))
        return 3;
    return ScanNumber(scan, &date->Third) ? 5 : 4;
}

DateOrder OrderToldBy(Scan *scan) {
    constexpr int LastMonth = 12;
    ScannedDate date;
    if (ScanDate(scan, &date) < 3)
        return DateOrder::Unknown;
    return date.First > LastMonth    ? DateOrder::DayFirst
           : date.Second > LastMonth ? DateOrder::MonthFirst
                                     : DateOrder::Unknown;
}
