// Text taken apart by the rules of the C library's scans, so that a line gives as many fields here as it gives there,
// and the same ones.
#pragma once

#include "exchange/date_form.h"
#include <cstdint>

struct Scan {
    const char *At;
};

// "%d": blanks, a sign, digits. 0, and nothing taken but blanks, when there is no digit. A number past 32 bits stops at
// the limit.
[[nodiscard]] int ScanNumber(Scan *scan, int32_t *number);
// "%c": any one unit. 0 at the end.
[[nodiscard]] int ScanUnit(Scan *scan, char *unit);
// A literal of the format. 0, and nothing taken, when something else stands there.
[[nodiscard]] int ScanLiteral(Scan *scan, char literal);
// "%[^x]": everything up to the unit x, at least one. What does not fit into `room` is taken and left out.
[[nodiscard]] int ScanUntil(Scan *scan, char end, char *to, int room);

struct ScannedDate {
    int32_t First, Second, Third;
    char FirstMark, SecondMark;
};
// "%d%c%d%c%d": the number of fields, 0 to 5.
int ScanDate(Scan *scan, ScannedDate *date);
// The order of day and month that the date at a scan can only have; Unknown when it has both, or is none.
DateOrder OrderToldBy(Scan *scan);
