#include "exchange/amount_form.h"
#include <cstring>

namespace {

constexpr int MostWholeDigits = 15; // thousandths of it still fit into 64 bits
constexpr int CurrencyLetters = 3;  // as in USD; two might say debit or credit

bool IsDigit(char unit) {
    return unit >= '0' && unit <= '9';
}
bool IsBlank(char unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}
bool IsMark(char unit) {
    return unit == '.' || unit == ',';
}

// The number alone: digits and marks.
struct Number {
    char Units[AmountRoom];
    int Length = 0;
    bool Negative = false;
};

// Beyond the first 128 characters: what stands between digits or is a minus; anything else is a currency's sign.
struct Sign {
    const char *Units;
    char Means;
};
constexpr Sign Signs[] = {{"\xC2\xA0", ' '}, {"\xE2\x80\xAF", ' '}, {"\xE2\x80\x99", '\''}, {"\xE2\x88\x92", '-'}};

// The unit at `text`, and how many bytes it takes.
char Next(const char *text, int *bytes) {
    *bytes = 1;
    if (static_cast<unsigned char>(*text) < 0x80)
        return *text;
    for (const Sign &sign : Signs)
        if (std::strncmp(text, sign.Units, std::strlen(sign.Units)) == 0) {
            *bytes = static_cast<int>(std::strlen(sign.Units));
            return sign.Means;
        }
    return '$';
}

bool GroupFollows(const char *text) {
    return IsDigit(text[0]) && IsDigit(text[1]) && IsDigit(text[2]) && !IsDigit(text[3]);
}

// Letters and signs of a currency may stand around the number, never inside it.
int TakeNumber(const char *text, Number *number) {
    bool ended = false, any = false;
    int letters = 0, bytes;
    for (; *text; text += bytes) {
        const char unit = Next(text, &bytes);
        if (IsDigit(unit) || IsMark(unit)) {
            if (ended || number->Length == AmountRoom - 1)
                return 0;
            number->Units[number->Length++] = unit;
            any |= IsDigit(unit);
        } else if (unit == '-' || unit == '(') {
            if (number->Negative)
                return 0;
            number->Negative = true;
            ended = number->Length > 0;
        } else if (IsBlank(unit) || unit == '\'') {
            if (number->Length > 0 && IsDigit(text[bytes]) && !GroupFollows(text + bytes))
                return 0;
        } else if (unit == '$' || (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z')) {
            ended = number->Length > 0;
            letters += unit != '$';
        } else if (unit != '+' && unit != ')') {
            return 0;
        }
    }
    number->Units[number->Length] = 0;
    return any && (letters == 0 || letters == CurrencyLetters);
}

// Whether every group behind a mark, up to `end`, has three digits.
bool InThousands(const char *units, const char *end, char mark) {
    const char *at = std::strchr(units, mark);
    if (!at || at == units)
        return at == nullptr;
    while (at < end && *at == mark) {
        int digits = 0;
        for (++at; at < end && IsDigit(*at); ++at)
            ++digits;
        if (digits != 3)
            return false;
    }
    return at == end;
}

int Count(const char *units, char mark) {
    int count = 0;
    for (; *units; ++units)
        count += *units == mark;
    return count;
}

// Where the decimals begin: at their mark, or at the end of the number. Null when the marks can't be told apart.
const char *DecimalsOf(const Number &number, DecimalMark mark) {
    const char *units = number.Units, *end = units + number.Length;
    const char decimal = static_cast<char>(mark), other = mark == DecimalMark::Point ? ',' : '.';
    const char *at = std::strchr(units, decimal);
    if (at) { // whatever stands before it are thousands
        const bool grouped = std::strchr(units, other) != nullptr;
        if (Count(units, decimal) > 1 || std::strchr(at, other))
            return nullptr;
        return grouped && !InThousands(units, at, other) ? nullptr : at;
    }
    at = std::strchr(units, other);
    if (!at)
        return end;
    const bool alone = Count(units, other) == 1;
    const auto behind = end - at - 1;
    if (mark == DecimalMark::Comma) // only points: one is a decimal one
        return alone ? at : InThousands(units, end, other) ? end : nullptr;
    if (alone && behind == 0)
        return end;
    if (InThousands(units, end, other))
        return end;
    return alone && behind <= 2 ? at : nullptr;
}

} // namespace

int FormAmount(const char *text, DecimalMark mark, char (&to)[AmountRoom]) {
    while (IsBlank(*text))
        ++text;
    if (!*text) {
        std::strcpy(to, "0.0");
        return 1;
    }
    Number number;
    if (!TakeNumber(text, &number))
        return 0;
    const char *decimals = DecimalsOf(number, mark);
    if (!decimals)
        return 0;
    char whole[MostWholeDigits + 1];
    int digits = 0;
    for (const char *at = number.Units; at < decimals; ++at) {
        if (!IsDigit(*at) || (*at == '0' && digits == 0))
            continue;
        if (digits == MostWholeDigits)
            return 0;
        whole[digits++] = *at;
    }
    int length = 0;
    if (number.Negative)
        to[length++] = '-';
    if (digits == 0)
        to[length++] = '0';
    std::memcpy(to + length, whole, static_cast<size_t>(digits));
    length += digits;
    to[length++] = '.';
    const int before = length;
    for (const char *at = decimals; *at; ++at)
        if (IsDigit(*at) && length < AmountRoom - 1)
            to[length++] = *at;
    if (length == before)
        to[length++] = '0';
    to[length] = 0;
    return 1;
}
