// 16-bit text: the form in which every text stands in records, controls and on the screen; and its way to and from
// the 8-bit text of exchange files. All functions are bounded by the room they are given and always terminate.
#pragma once

#include <cstdint>

// Units before the terminator.
int TextLength(const char16_t *text);

// Copies at most `room` - 1 units and zeroes the rest of the room, so that no earlier text stays behind the
// terminator. A surrogate pair is never cut in half.
void CopyText(char16_t *to, int room, const char16_t *from);

// Appends as much as fits. Returns the new length.
int AppendText(char16_t *to, int room, const char16_t *from);

// Appends 7-bit text, for fixed English words and formats. Returns the new length.
int AppendAscii(char16_t *to, int room, const char *from);

// Appends a decimal number with at least `digits` digits, zero-filled; a negative number gets a minus sign.
int AppendNumber(char16_t *to, int room, int64_t value, int digits = 1);

// 1 when the first `limit` units, or all up to the terminator, are equal.
int SameText(const char16_t *a, const char16_t *b, int limit = 1 << 20);

// -1, 0 or 1 by unit value.
int CompareText(const char16_t *a, const char16_t *b);

// The first whole number in the text after blanks, with an optional sign, reading at most `width` units of it.
// 1 and the value, or 0 and the value left alone when there is no digit. A value past 64 bits stops at the limit.
[[nodiscard]] int ReadNumber(const char16_t *text, int width, int64_t *value);

// 16-bit to UTF-8. Returns the bytes written without the terminator; a character that does not fit whole is left
// out. A lone surrogate becomes U+FFFD.
int NarrowText(char *to, int room, const char16_t *from);

// UTF-8 to 16-bit; text that is not valid UTF-8 is read as Windows-1252. `bytes` -1: up to the terminator.
// Returns the units written without the terminator.
int WidenText(char16_t *to, int room, const char *from, int bytes = -1);
