// Colours as hue, luminosity, saturation and contrast, all 0 to 255; and the palette that categories take theirs from.
#pragma once

#include "core/state.h"
#include "platform/surface.h"

struct Hls {
    int H, L, S, C;
};
Hls RgbToHls(int red, int green, int blue);
Colour HlsToRgb(int hue, int luminosity, int saturation);
// 0 to 255; a colour at 128 or more takes black text.
int Brightness(Colour colour);

// Palette entries count from 1; 1 to 60 are the owner's, entry i + 60 is i moved in hue by 11.
void SetPaletteEntry(int entry, int red, int green, int blue);
void DefaultPalette();
// Reads the palette file, DefaultPalette when there is none. A record of another version ends the use of the data.
void LoadPalette();
// Writes all 60 records. 0 on failure, reported.
int SavePalette();
// The entry that a name falls on, 1 to 119.
int PaletteHash(const char16_t *name);
