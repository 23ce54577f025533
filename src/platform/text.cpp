#include "platform/text.h"
#include <cstring>

namespace {

constexpr char16_t Replacement = 0xFFFD;

// What Windows-1252 has in place of the control characters 0x80 to 0x9F.
constexpr char16_t UpperPunctuation[32] = {
    0x20AC, Replacement, 0x201A,      0x0192, 0x201E,      0x2026,      0x2020, 0x2021,      0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152,      Replacement, 0x017D, Replacement, Replacement, 0x2018, 0x2019,      0x201C, 0x201D, 0x2022,
    0x2013, 0x2014,      0x02DC,      0x2122, 0x0161,      0x203A,      0x0153, Replacement, 0x017E, 0x0178,
};

bool IsHighSurrogate(uint32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(uint32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Units of `from` that fit into `room` units without the terminator, a pair whole or not at all.
int UnitsThatFit(int room, const char16_t *from) {
    int units = 0;
    while (units < room && from[units])
        ++units;
    if (units > 0 && units == room && IsHighSurrogate(from[units - 1]) && IsLowSurrogate(from[units]))
        --units;
    return units;
}

// One character of UTF-8. Returns its bytes, or 0 when it is malformed, over-long, a surrogate or past the last
// character.
int DecodeNarrow(const unsigned char *from, int bytes, uint32_t *character) {
    static constexpr uint32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned char lead = from[0];
    const int length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF8 ? 4 : 0;
    if (length == 0 || length > bytes)
        return 0;
    if (length == 1) {
        *character = lead;
        return 1;
    }
    uint32_t value = lead & (0x7Fu >> length);
    for (int i = 1; i < length; ++i) {
        if ((from[i] & 0xC0) != 0x80)
            return 0;
        value = value << 6 | (from[i] & 0x3Fu);
    }
    if (value < Smallest[length] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return 0;
    *character = value;
    return length;
}

bool IsWholeNarrow(const unsigned char *from, int bytes) {
    uint32_t character;
    for (int at = 0; at < bytes;) {
        const int length = DecodeNarrow(from + at, bytes - at, &character);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

bool IsBlank(char16_t unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}

} // namespace

int TextLength(const char16_t *text) {
    int length = 0;
    while (text[length])
        ++length;
    return length;
}

void CopyText(char16_t *to, int room, const char16_t *from) {
    if (room < 1)
        return;
    const int units = UnitsThatFit(room - 1, from);
    std::memmove(to, from, static_cast<size_t>(units) * sizeof *to);
    std::memset(to + units, 0, static_cast<size_t>(room - units) * sizeof *to);
}

int AppendText(char16_t *to, int room, const char16_t *from) {
    const int length = TextLength(to);
    if (length >= room)
        return length;
    const int units = UnitsThatFit(room - length - 1, from);
    std::memmove(to + length, from, static_cast<size_t>(units) * sizeof *to);
    to[length + units] = 0;
    return length + units;
}

int AppendAscii(char16_t *to, int room, const char *from) {
    int length = TextLength(to);
    while (*from && length < room - 1)
        to[length++] = static_cast<unsigned char>(*from++);
    if (length < room)
        to[length] = 0;
    return length;
}

int AppendNumber(char16_t *to, int room, int64_t value, int digits) {
    char text[48];
    int at = sizeof text;
    text[--at] = 0;
    uint64_t magnitude = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
    for (int written = 0; (magnitude || written < digits) && at > 1; ++written, magnitude /= 10)
        text[--at] = static_cast<char>('0' + magnitude % 10);
    if (value < 0)
        text[--at] = '-';
    return AppendAscii(to, room, text + at);
}

int SameText(const char16_t *a, const char16_t *b, int limit) {
    for (int i = 0; i < limit; ++i) {
        if (a[i] != b[i])
            return 0;
        if (a[i] == 0)
            break;
    }
    return 1;
}

int CompareText(const char16_t *a, const char16_t *b) {
    while (*a && *a == *b)
        ++a, ++b;
    return *a < *b ? -1 : *a > *b ? 1 : 0;
}

int ReadNumber(const char16_t *text, int width, int64_t *value) {
    while (IsBlank(*text))
        ++text;
    const bool negative = *text == '-';
    if (width > 0 && (*text == '-' || *text == '+'))
        ++text, --width;
    // Counted down, since the smallest value has no positive counterpart.
    int64_t number = 0;
    bool found = false;
    for (; width > 0 && *text >= '0' && *text <= '9'; ++text, --width) {
        const int digit = *text - '0';
        found = true;
        if (number < (INT64_MIN + digit) / 10)
            number = INT64_MIN;
        else
            number = number * 10 - digit;
    }
    if (!found)
        return 0;
    *value = negative ? number : number == INT64_MIN ? INT64_MAX : -number;
    return 1;
}

int NarrowText(char *to, int room, const char16_t *from) {
    int written = 0;
    while (*from) {
        uint32_t character = *from++;
        if (IsHighSurrogate(character) && IsLowSurrogate(*from))
            character = 0x10000 + ((character - 0xD800) << 10) + (*from++ - 0xDC00u);
        else if (IsHighSurrogate(character) || IsLowSurrogate(character))
            character = Replacement;
        const int length = character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
        if (length >= room - written)
            break;
        static constexpr unsigned Lead[] = {0, 0, 0xC0, 0xE0, 0xF0};
        for (int i = length - 1; i > 0; --i, character >>= 6)
            to[written + i] = static_cast<char>(0x80 | (character & 0x3F));
        to[written] = static_cast<char>(Lead[length] | character);
        written += length;
    }
    if (room > 0)
        to[written] = 0;
    return written;
}

int WidenText(char16_t *to, int room, const char *from, int bytes) {
    if (room < 1)
        return 0;
    const auto *source = reinterpret_cast<const unsigned char *>(from);
    // A terminator ends the text also when more bytes are told: nothing behind it could ever be shown.
    int length = 0;
    while ((bytes < 0 || length < bytes) && source[length])
        ++length;
    const bool whole = IsWholeNarrow(source, length);
    int written = 0;
    for (int at = 0; at < length;) {
        uint32_t character = source[at];
        if (whole)
            at += DecodeNarrow(source + at, length - at, &character);
        else if (++at; character >= 0x80 && character < 0xA0)
            character = UpperPunctuation[character - 0x80];
        const int units = character >= 0x10000 ? 2 : 1;
        if (units >= room - written)
            break;
        if (units == 2) {
            to[written++] = static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
            character = 0xDC00 + ((character - 0x10000) & 0x3FF);
        }
        to[written++] = static_cast<char16_t>(character);
    }
    to[written] = 0;
    return written;
}
