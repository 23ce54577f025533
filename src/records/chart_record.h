// A row of the chart work file CHART: one segment of a pie, or one bar. The file is never enciphered and lives no
// longer than the chart is shown.
#pragma once

#include "records/records.h"

struct GRec {
    char16_t Title[32];
    FixedAmount Value;
    int32_t Entries; // merged into this segment
    int32_t Link;    // while the file is made: the segment before in the same chain, its place before sorting; then 0
    int64_t CatID;   // by category
    int32_t Year;    // by year
    int8_t Month;    // by month, 1 to 12
    uint8_t Reserved[11];
    int32_t Flag;                               // by flag
    int32_t IsCredit, IsDebit;                  // by sign: 1 in the "+" and in the "-" record
    float DebitPercent, CreditPercent, Percent; // of all debits, credits and magnitudes
    int32_t BarColour, PieColour;               // ChartColour, -1 for none
};
static_assert(sizeof(GRec) == 136 && std::is_trivially_copyable_v<GRec>);
// clang-format off
#define AT(field, offset) static_assert(offsetof(GRec, field) == (offset))
AT(Value, 64); AT(Entries, 72); AT(Link, 76); AT(CatID, 80); AT(Year, 88); AT(Month, 92); AT(Reserved, 93);
AT(Flag, 104); AT(IsCredit, 108); AT(IsDebit, 112); AT(DebitPercent, 116); AT(CreditPercent, 120); AT(Percent, 124);
AT(BarColour, 128); AT(PieColour, 132);
#undef AT
// clang-format on

inline constexpr int32_t NoChartColour = -1;
// A colour as it stands in the file: red + 256 x green + 65536 x blue.
constexpr int32_t ChartColour(int red, int green, int blue) {
    return red | green << 8 | blue << 16;
}
