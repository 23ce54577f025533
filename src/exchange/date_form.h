// Dates as banks and other programs write them, brought into the form that the readers scan with "%d%c%d%c%d".
#pragma once

#include <cstdint>

// The order of day and month in a file.
enum class DateOrder : uint8_t { Unknown, DayFirst, MonthFirst };

// In place: blanks go, and a time of day behind a blank. A date that begins with the year (2012-03-31, 20120331) or
// names the month (31 Mar 2012, Mar 31, 2012) is turned into the order of the others; with Unknown it can't be: 0.
[[nodiscard]] int FormDate(DateOrder order, char *text, int room);
