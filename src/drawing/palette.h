// The palette that categories take their colours from, kept in state.Palette, and its file.
#pragma once

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
