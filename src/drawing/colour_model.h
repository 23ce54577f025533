// Colours as hue, luminosity, saturation and contrast, all 0 to 255.
#pragma once

#include "platform/surface.h"

struct Hls {
    int H, L, S, C;
};
// Channels outside 0 to 255 are taken as the nearest.
Hls RgbToHls(int red, int green, int blue);
inline Hls HlsOfColour(Colour colour) {
    return RgbToHls(static_cast<int>(colour >> 16 & 255), static_cast<int>(colour >> 8 & 255),
                    static_cast<int>(colour & 255));
}
// Hue 255 is red again, as 0 is.
Colour HlsToRgb(int hue, int luminosity, int saturation);
// 0 to 255; a colour at 128 or more takes black text.
int Brightness(Colour colour);
