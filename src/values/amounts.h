// Money: a signed 64-bit count of thousandths of a currency unit. Never a float; cut, never rounded.
#pragma once

#include <cstdint>

using FixedAmount = int64_t; // 1.000 is 1000

inline constexpr FixedAmount Thousand = 1000;
// Whole units above which a row shows stars instead of digits.
inline constexpr int64_t LargestShown = 100000000;
inline constexpr char16_t OverflowText[] = u"*** ! ***";

// Whole units, cut toward zero.
constexpr int64_t WholePart(FixedAmount value) {
    return value / Thousand;
}
// 0 to 999, the magnitude of the thousandths.
constexpr int FractionPart(FixedAmount value) {
    const int rest = static_cast<int>(value % Thousand);
    return rest < 0 ? -rest : rest;
}
// |whole units|, also for the smallest 64-bit value.
constexpr uint64_t WholeMagnitude(FixedAmount value) {
    const int64_t whole = WholePart(value);
    return whole < 0 ? static_cast<uint64_t>(-whole) : static_cast<uint64_t>(whole);
}
// Sums and products wrap at 64 bits: hostile numbers must not be undefined behaviour.
constexpr FixedAmount AddAmounts(FixedAmount a, FixedAmount b) {
    return static_cast<FixedAmount>(static_cast<uint64_t>(a) + static_cast<uint64_t>(b));
}
constexpr FixedAmount SubtractAmounts(FixedAmount a, FixedAmount b) {
    return static_cast<FixedAmount>(static_cast<uint64_t>(a) - static_cast<uint64_t>(b));
}
constexpr FixedAmount NegateAmount(FixedAmount a) {
    return SubtractAmounts(0, a);
}
// A line's value: a whole multiplier times an amount.
constexpr FixedAmount TimesUnits(int64_t units, FixedAmount value) {
    return static_cast<FixedAmount>(static_cast<uint64_t>(units) * static_cast<uint64_t>(value));
}
constexpr int32_t AddUnits(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

// The fraction box of a form to thousandths, 0 to 999: "5" and "50" are 500, "05" is 50, "125" is 125, "" is 0.
int ParseFractionField(const char16_t *text);
// The whole box of a form: at most 8 digits, 0 when it can't be read; the sign is dropped.
int64_t ParseWholeField(const char16_t *text);

// An amount in the 8-bit text of an exchange file, in thousandths; 0 when nothing is found. A negative whole number
// without a fraction ("-12") comes out positive (12000): this asymmetry is deliberate.
FixedAmount Str_int64(const char *text);
// The whole number at the start of such a text, 0 when there is none.
int32_t Str_int(const char *text);
// Replaces every comma by `replacement`, or removes it when that is 0. In place.
void replaceComas(char *text, char replacement);

// The magnitude as a row shows it: two decimals, or three for a share price; stars above LargestShown. The sign is
// shown by colour alone. Room of at least 24.
void WriteAmount(char16_t *to, int room, FixedAmount value, int decimals = 2);
