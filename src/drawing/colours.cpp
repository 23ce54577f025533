#include "drawing/colours.h"
#include "drawing/colour_model.h"
#include "state/state.h"
#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int InkSteps = 32;

struct BrushRow {
    int Id;
    Colour Fill;
};

// clang-format off
constexpr BrushRow Brushes[] = { // ORDER BRUSH
    {GoldBrush,         Rgb(255, 213,  80)},
    {SilverBrush,       Rgb(200, 200, 200)},
    {LavenderBrush,     Rgb(235, 185, 255)},
    {GreenBrush,        Rgb(155, 253, 134)},
    {WhiteBrush,        Rgb(255, 255, 255)},
    {ReconciledBrush,   Rgb(150, 150, 150)},
    {ExpiredBrush,      Rgb(202,  61, 249)},
    {FlaggedBrush,      Rgb( 25, 200,   0)},
    {MarkerBrush,       Rgb(255, 255, 255)},
    {RedBrush,          Rgb(255,   0,   0)},
    {HeaderBrush,       Rgb(  0,  39, 159)},
    {CurveRibbon,       Rgb(150, 200, 255)},
    {JeopardyBrush,     Rgb(162,   0,   0)},
    {TitleBrush,        Rgb(255, 213,  80)},
    {AxisRibbon,        Rgb(190, 190, 198)},
    {PressedGold,       Rgb(255, 158,  13)},
    {PressedSilver,     Rgb( 47, 226, 202)},
    {PressedLavender,   Rgb( 47, 226, 202)},
    {PressedGreen,      Rgb(100, 234, 217)},
    {PressedWhite,      Rgb( 47, 226, 202)},
    {AquaBrush,         Rgb(176, 255, 246)},
    {PressedAqua,       Rgb( 47, 226, 202)},
    {ConversionBrush,   Rgb( 43, 211, 159)},
    {PressedConversion, Rgb( 47, 226, 202)},
};

constexpr Bevel Bevels[ListCount] = {
    {},
    {Rgb(255, 224, 179), Rgb(174, 104,   0)}, // accounts
    {Rgb(240, 240, 240), Rgb(150, 150, 150)}, // transactions
    {Rgb(240, 240, 240), Rgb(150, 150, 150)}, // the graph shows transactions
    {Rgb(250, 255, 255), Rgb(191,  23, 255)}, // recurring
    {Rgb(200, 255, 185), Rgb( 25, 200,   0)}, // templates
    {Rgb(210, 210, 210), Rgb(100, 100, 100)}, // bin
    {Rgb(218, 250, 247), Rgb( 69, 233, 221)}, // categories
    {},                                       // conversions: derived from their brush
};

constexpr Colour Flags[] = {Black, Rgb(255, 0, 0), Rgb(0, 39, 159), Rgb(255, 255, 0)};
// clang-format on

// The light that a colour gives, 0 to 1, as eyes weigh its parts.
double LightOf(Colour colour) {
    const auto part = [colour](int shift) {
        const double level = (colour >> shift & 0xFF) / 255.0;
        return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(16) + 0.7152 * part(8) + 0.0722 * part(0);
}

bool Readable(double fillLight, Colour ink) {
    constexpr double Least = 4.5, Glare = 0.05;
    const double inkLight = LightOf(ink);
    return (std::max(fillLight, inkLight) + Glare) / (std::min(fillLight, inkLight) + Glare) >= Least;
}

// A part of a colour the way to black or to white, of InkSteps.
Colour Toward(Colour ink, int end, int step) {
    const auto part = [=](int shift) {
        const int level = static_cast<int>(ink >> shift & 0xFF);
        return level + (end - level) * step / InkSteps;
    };
    return Rgb(part(16), part(8), part(0));
}

constexpr Colour Magenta = Rgb(255, 0, 255);
constexpr int ConversionLighter = 66, ConversionDarker = 44; // in luminosity

} // namespace

Colour BrushColour(int brush) {
    if (brush == CategoryBrush || brush == BinCategoryBrush)
        return state.CategoryColour;
    for (const BrushRow &row : Brushes)
        if (row.Id == brush)
            return row.Fill;
    return Magenta;
}

void SetCategoryBrush(Colour colour) {
    state.CategoryColour = colour;
}

Bevel BevelOfList(int list) {
    if (list == ConversionList) {
        const Hls ground = HlsOfColour(BrushColour(ConversionBrush));
        return {HlsToRgb(ground.H, ground.L + ConversionLighter, ground.S),
                HlsToRgb(ground.H, ground.L - ConversionDarker, ground.S)};
    }
    return list > NoList && list < ListCount ? Bevels[list] : Bevel{};
}

Colour SeparatorColour(int list) {
    const bool archives = state.ArchiveView && (list == AccountList || list == TransactionList);
    return archives ? AlertRed : SeparatorGrey;
}

Colour InkOn(Colour fill, Colour ink) {
    constexpr double HalfLight = 0.18; // on darker fills white is read better than black
    const double light = LightOf(fill);
    const int end = light < HalfLight ? 255 : 0;
    int step = 0;
    while (step < InkSteps && !Readable(light, Toward(ink, end, step)))
        ++step;
    return Toward(ink, end, step);
}

Colour FlagColour(int64_t flag) {
    return flag > 0 && flag < static_cast<int64_t>(std::size(Flags)) ? Flags[flag] : Black;
}
