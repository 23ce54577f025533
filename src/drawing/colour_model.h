// Colours as hue, luminosity, saturation and contrast, all 0 to 255; and the palette that categories take theirs from.
#pragma once

#include "platform/surface.h"
#include "state/state.h"

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

inline constexpr int OwnerEntries = 60; // of the palette, those in its file

// Palette entries count from 1; 1 to 60 are the owner's, entry i + 60 is i moved in hue by 11. Any other entry is
// ignored.
void SetPaletteEntry(int entry, int red, int green, int blue);
// 12 hues in 5 shades.
void DefaultPalette();
// Reads the palette file, DefaultPalette when there is none. Entries that a short file lacks are red; all are grey when
// the file can't be opened, reported as FcreateFail. A record of another version ends the use of the data.
void LoadPalette();
// Writes all 60 records. 0 on failure, reported; a file that could not be begun is taken away again.
int SavePalette();
// The entry that a name falls on, 1 to 119. Its first 29 units count.
int PaletteHash(const char16_t *name);
