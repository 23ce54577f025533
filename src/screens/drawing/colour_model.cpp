#include "screens/drawing/colour_model.h"
#include <algorithm>

// The hue wheel of 255 has six sextants of 42, with the thirds at 85 and 170. All arithmetic is on whole numbers over a
// common divisor, cut once at the end, so that a colour is the same on every machine.

namespace {

constexpr int Full = 255, Sextant = 42, Third = 85, TwoThirds = 170, HalfWheel = 127;

int Channel(int value) {
    return std::clamp(value, 0, Full);
}

// v of one channel times Full * Sextant; p and q are times Full.
int HueRamp(int q, int p, int hue) {
    if (hue < Sextant)
        return q * Sextant + (p - q) * hue + 21 * Full;
    if (hue < HalfWheel)
        return p * Sextant;
    if (hue < TwoThirds)
        return q * Sextant + (p - q) * (TwoThirds - hue) + 21 * Full;
    return q * Sextant;
}

int RampChannel(int q, int p, int hue) {
    if (hue < 0)
        hue += Full;
    if (hue > Full)
        hue -= Full;
    return Channel((HueRamp(q, p, hue) + HalfWheel * Sextant) / (Full * Sextant));
}

} // namespace

Hls RgbToHls(int red, int green, int blue) {
    red = Channel(red);
    green = Channel(green);
    blue = Channel(blue);
    const int most = std::max({red, green, blue}), least = std::min({red, green, blue});
    const int sum = most + least, contrast = most - least, divisor = contrast + 1;

    Hls colour = {0, sum / 2, 0, contrast};
    if (contrast == Full)
        colour.S = Full; // a pure hue; the formulas below would stop half a step short of it
    else if (colour.L < 128)
        colour.S = (contrast * 2 * Full + sum) / (2 * (sum + 1));
    else
        colour.S = std::max(0, (contrast * 2 * Full - sum) / (2 * (2 * Full + 1 - sum)));

    int hue; // times divisor
    if (red == most)
        hue = (green - blue) * Sextant;
    else if (green == most)
        hue = Third * divisor + (blue - red) * Sextant;
    else
        hue = TwoThirds * divisor + (red - green) * Sextant;
    if (hue < 0)
        hue += Full * divisor;
    if (hue > Full * divisor)
        hue -= Full * divisor;
    colour.H = hue / divisor;
    return colour;
}

Colour HlsToRgb(int hue, int luminosity, int saturation) {
    const int l = Channel(luminosity), s = Channel(saturation);
    if (s == 0)
        return Rgb(l, l, l);
    const int p = l < 128 ? l * (s + Full) + 127 : (l + s) * Full - (l * s + 128);
    const int q = 2 * l * Full - p;
    return Rgb(RampChannel(q, p, hue + Third), RampChannel(q, p, hue), RampChannel(q, p, hue - Third));
}

int Brightness(Colour colour) {
    const int red = static_cast<int>(colour >> 16 & 255), green = static_cast<int>(colour >> 8 & 255),
              blue = static_cast<int>(colour & 255);
    return (3 * green + blue + 2 * red) / 6;
}
