#include "drawing/colour_model.h"
#include <algorithm>

// The hue wheel of 255 has six sextants of 42, with the thirds at 85 and 170. All arithmetic is on whole numbers, so
// that a colour is the same on every machine; hue, luminosity and saturation are cut once, at the end.

namespace {

constexpr int Full = 255, Sextant = 42, Third = 85, TwoThirds = 170, HalfWheel = 127;

int Channel(int value) {
    return std::clamp(value, 0, Full);
}

int HueRamp(int q, int p, int hue) {
    if (hue < 0)
        hue += Full;
    if (hue > Full)
        hue -= Full;
    if (hue < Sextant)
        return Channel(q + ((p - q) * hue + Sextant / 2) / Sextant);
    if (hue < HalfWheel)
        return Channel(p);
    if (hue < TwoThirds)
        return Channel(q + ((p - q) * (TwoThirds - hue) + Sextant / 2) / Sextant);
    return Channel(q);
}

} // namespace

Hls RgbToHls(int red, int green, int blue) {
    red = Channel(red);
    green = Channel(green);
    blue = Channel(blue);
    const int most = std::max({red, green, blue}), least = std::min({red, green, blue});
    const int sum = most + least, contrast = most - least;

    Hls colour = {0, sum / 2, 0, contrast};
    if (contrast == Full)
        colour.S = Full; // a pure hue; the formulas below would stop half a step short of it
    else if (colour.L < 128)
        colour.S = (contrast * 2 * Full + sum) / (2 * (sum + 1));
    else
        colour.S = std::max(0, (contrast * 2 * Full - sum) / (2 * (2 * Full + 1 - sum)));

    // Around the wheel from the greatest channel's third, by how far the two others lie apart, as one fraction.
    const int parts = contrast + 1;
    int hue;
    if (red == most)
        hue = (green - blue) * Sextant;
    else if (green == most)
        hue = Third * parts + (blue - red) * Sextant;
    else
        hue = TwoThirds * parts + (red - green) * Sextant;
    colour.H = (hue < 0 ? hue + Full * parts : hue) / parts;
    return colour;
}

Colour HlsToRgb(int hue, int luminosity, int saturation) {
    const int l = Channel(luminosity), s = Channel(saturation);
    if (s == 0)
        return Rgb(l, l, l);
    const int p = l < 128 ? (l * (s + Full) + 127) / Full : l + s - (l * s + 128) / Full;
    const int q = 2 * l - p;
    return Rgb(HueRamp(q, p, hue + Third), HueRamp(q, p, hue), HueRamp(q, p, hue - Third));
}

int Brightness(Colour colour) {
    const int red = static_cast<int>(colour >> 16 & 255), green = static_cast<int>(colour >> 8 & 255),
              blue = static_cast<int>(colour & 255);
    return (3 * green + blue + 2 * red) / 6;
}
