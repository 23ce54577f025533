// A text file written through one bounded buffer. It is written beside its place and takes it whole at the end, so that
// a full disk leaves an earlier file of that name as it was.
#pragma once

#include "platform/files.h"
#include "values/amounts.h"
#include <cstdint>

inline constexpr int ExportTextBytes = 40; // of a record's text, at most; a character whole or not at all

struct LineWriter {
    int Handle = -1;
    int Failed;
    int Count;  // bytes in Ready
    int64_t At; // bytes in the file
    char Path[PathRoom], Beside[PathRoom];
    char Ready[1 << 16];
};

// 0 when the file can't be made.
[[nodiscard]] int BeginFile(LineWriter *writer, const char *path);
// Closes the file and puts it in its place. 0 when anything could not be written: there is then no new file.
[[nodiscard]] int EndFile(LineWriter *writer);
// Closes the file and lets it go.
void DropFile(LineWriter *writer);

void WriteAscii(LineWriter *writer, const char *text);
// A whole number with at least `digits` digits.
void WriteWhole(LineWriter *writer, int64_t value, int digits = 1);
// Whole part, point and 2 or 3 decimals, cut; a minus before a negative amount, also when its whole part is 0.
void WriteDecimal(LineWriter *writer, FixedAmount value, int decimals = 3);
// A record's text as UTF-8. A comma becomes `forComma`; what would end a line or a column becomes a blank. Filled up
// with blanks to `width` bytes.
void WriteText(LineWriter *writer, const char16_t *text, char forComma = ',', int width = 0);
