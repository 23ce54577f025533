// Fixed colours, and the brushes and pens by the numbers that the row painters pass.
#pragma once

#include "platform/surface.h"
#include "records/records.h"

inline constexpr Colour Black = Rgb(0, 0, 0), White = Rgb(255, 255, 255), AlertRed = Rgb(255, 0, 0),
                        MutedGrey = Rgb(180, 180, 180), Green = Rgb(0, 128, 0), PaleBlue = Rgb(150, 200, 255),
                        SeparatorGrey = Rgb(174, 174, 174), DropLineRed = Rgb(255, 24, 44), DarkGold = Rgb(174, 104, 0);

// ORDER BRUSH: Brushes
enum Brush : int {
    NoFill = 0,
    GoldBrush = 1,
    SilverBrush = 2,
    LavenderBrush = 4,
    GreenBrush = 5,
    WhiteBrush = 6,
    ReconciledBrush = 7,
    ExpiredBrush = 8,
    FlaggedBrush = 9,
    MarkerBrush = 10,
    RedBrush = 13,
    HeaderBrush = 14,
    CurveRibbon = 21,
    JeopardyBrush = 30,
    TitleBrush = 43,
    AxisRibbon = 44,
    PressedGold = 49,
    PressedSilver = 50,
    PressedLavender = 52,
    PressedGreen = 53,
    PressedWhite = 54,
    AquaBrush = 58,
    PressedAqua = 61,
    CategoryBrush = 62,
    ConversionBrush = 64,
    PressedConversion = 67,
    BinCategoryBrush = 72,
};
// CategoryBrush and BinCategoryBrush have the colour set last by SetCategoryBrush. A number without a brush is magenta,
// which no list uses: a wrong number shows at once.
Colour BrushColour(int brush);
void SetCategoryBrush(Colour colour);

struct Bevel {
    Colour Light, Dark;
};
// The bevel pens of a list's rows (AccountList to ConversionList).
Bevel BevelOfList(int list);

// The pen between the columns of a list: red on accounts and transactions in the archive view.
Colour SeparatorColour(int list);

// An ink that is read on a fill, with at least 4.5 to 1 of light between them: the ink itself, or as little darker or
// lighter as the fill asks.
Colour InkOn(Colour fill, Colour ink);

// Ink of a row's flag stripe, for flags 1 to 3; black for others.
Colour FlagColour(int64_t flag);
