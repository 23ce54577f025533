#include "values/amounts.h"
#include "platform/text.h"
#include <cstring>

namespace {

bool IsBlank(char unit) {
    return unit == ' ' || (unit >= '\t' && unit <= '\r');
}
bool IsDigit(char unit) {
    return unit >= '0' && unit <= '9';
}

// The signed whole number between two marks, 0 when there is none. Stops at the 64-bit limit.
int64_t ReadWhole(const char *text, const char *end, bool ignoreCommas) {
    const auto isComma = [=](char unit) { return unit == ',' && ignoreCommas; };
    while (text < end && (IsBlank(*text) || isComma(*text)))
        ++text;
    const bool negative = text < end && *text == '-';
    if (negative || (text < end && *text == '+'))
        ++text;
    constexpr uint64_t Limit = INT64_MAX;
    uint64_t magnitude = 0;
    for (; text < end && (IsDigit(*text) || isComma(*text)); ++text) {
        if (*text == ',')
            continue;
        magnitude = magnitude > Limit / 10 ? Limit : magnitude * 10 + static_cast<uint64_t>(*text - '0');
        magnitude = magnitude > Limit ? Limit : magnitude;
    }
    return negative ? -static_cast<int64_t>(magnitude) : static_cast<int64_t>(magnitude);
}

uint64_t Magnitude(int64_t value) {
    return value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
}

} // namespace

int ParseFractionField(const char16_t *text) {
    int64_t value = 0;
    if (!ReadNumber(text, 3, &value))
        return 0;
    uint64_t thousandths = Magnitude(value) * 1000;
    for (; *text && thousandths; ++text)
        thousandths /= 10;
    return static_cast<int>(thousandths);
}

int64_t ParseWholeField(const char16_t *text) {
    static constexpr int MostDigits = 8;
    while (*text == ' ')
        ++text;
    const bool sign = *text == '-' || *text == '+';
    int64_t value = 0;
    if (!ReadNumber(text, MostDigits + sign, &value))
        return 0;
    return value < 0 ? -value : value;
}

FixedAmount Str_int64(const char *text) {
    while (IsBlank(*text))
        ++text;
    const bool negative = *text == '-';
    const char *point = std::strchr(text, '.');
    if (point == text)
        return 0; // nothing before the point: the text does not split
    const char *end = point ? point : text + std::strlen(text);
    const int64_t whole = ReadWhole(text, end, true);
    if (!point || !IsDigit(point[1]))
        return TimesUnits(whole, negative ? -Thousand : Thousand);

    int fraction = 0;
    const char *digit = point + 1;
    for (int place = 100; place > 0; place /= 10)
        if (IsDigit(*digit))
            fraction += (*digit++ - '0') * place;
    const auto magnitude = AddAmounts(TimesUnits(static_cast<int64_t>(Magnitude(whole)), Thousand), fraction);
    return negative ? NegateAmount(magnitude) : magnitude;
}

int32_t Str_int(const char *text) {
    const int64_t value = ReadWhole(text, text + std::strlen(text), false);
    return value > INT32_MAX ? INT32_MAX : value < INT32_MIN ? INT32_MIN : static_cast<int32_t>(value);
}

void replaceComas(char *text, char replacement) {
    char *to = text;
    for (; *text; ++text)
        if (*text != ',')
            *to++ = *text;
        else if (replacement)
            *to++ = replacement;
    *to = 0;
}

void WriteAmount(char16_t *to, int room, FixedAmount value, int decimals) {
    const uint64_t whole = WholeMagnitude(value);
    if (whole > static_cast<uint64_t>(LargestShown)) {
        CopyText(to, room, OverflowText);
        return;
    }
    CopyText(to, room, u"");
    AppendNumber(to, room, static_cast<int64_t>(whole));
    AppendAscii(to, room, ".");
    AppendNumber(to, room, decimals == 3 ? FractionPart(value) : FractionPart(value) / 10, decimals);
}
