// Amounts as banks and other programs write them, brought into the one form that Str_int64 reads.
#pragma once

inline constexpr int AmountRoom = 64;

// Which mark stands before the decimals when an amount holds only one kind.
enum class DecimalMark : char {
    Point = '.', // commas stand between thousands: 1,234.56
    Comma = ',', // points stand between thousands: 1.234,56; a lone point is a decimal one all the same
};

// Writes the amount as sign, digits, point and decimals, such as "-12.0": a point is added where there is none, so that
// a whole negative amount keeps its sign. Blanks, apostrophes between thousands, marks and names of currencies around
// the number go; a minus behind it and brackets around it make it negative. An empty text is "0.0". 0, and `to` left
// alone, when the text is no amount, when its marks stand in the wrong order or in groups that can't be thousands (one
// comma before one or two last digits is a decimal one), or when it has more than 15 whole digits: better no amount
// than a wrong one.
[[nodiscard]] int FormAmount(const char *text, DecimalMark mark, char (&to)[AmountRoom]);
