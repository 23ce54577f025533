// 20-byte records, never enciphered.
#include "drawing/palette.h"
#include "drawing/colour_model.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/windows.h"
#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

constexpr int HueShift = 11, HueWrap = 256; // of the companion entries

struct PaletteRecord {
    int32_t Version; // 1
    int32_t Red, Green, Blue;
    int32_t Reserved; // zero
};
static_assert(sizeof(PaletteRecord) == 20);

constexpr Colour UnsetColour = Rgb(255, 0, 0), UnreadableColour = Rgb(100, 100, 100);

void PalettePath(char *to) {
    std::snprintf(to, PathRoom, "%s\\COL", DataDirectory);
}

} // namespace

void SetPaletteEntry(int entry, int red, int green, int blue) {
    if (entry < 1 || entry > OwnerEntries)
        return;
    const Colour colour = Rgb(std::clamp(red, 0, 255), std::clamp(green, 0, 255), std::clamp(blue, 0, 255));
    const Hls hls = HlsOfColour(colour);
    state.Palette[entry] = colour;
    state.Palette[entry + OwnerEntries] = HlsToRgb((hls.H + HueShift) % HueWrap, hls.L, hls.S);
}

void DefaultPalette() {
    constexpr int Hues = 12, Shades = 5;
    for (int shade = 0; shade < Shades; ++shade)
        for (int i = 0; i < Hues; ++i) {
            const Colour colour = HlsToRgb(i * 64 / 3, 190 - 30 * shade, ((shade + 1) * 384 + 630) / 10);
            SetPaletteEntry(Shades * i + shade + 1, static_cast<int>(colour >> 16 & 255),
                            static_cast<int>(colour >> 8 & 255), static_cast<int>(colour & 255));
        }
}

void LoadPalette() {
    char path[PathRoom];
    PalettePath(path);
    DefaultPalette();
    if (!state.DataUsable || !FileThere(path))
        return;
    const int file = OpenFile(path, OpenExisting);
    std::fill(std::begin(state.Palette), std::end(state.Palette), file < 0 ? UnreadableColour : UnsetColour);
    if (file < 0) {
        ReportError(In::LoadCatFile, Trouble::FcreateFail);
        return;
    }
    PaletteRecord records[OwnerEntries];
    const int64_t bytes = ReadFileAt(file, 0, records, sizeof records);
    CloseFile(file);
    const int count = static_cast<int>(bytes / static_cast<int64_t>(sizeof(PaletteRecord)));
    for (int i = 0; i < count; ++i) {
        const PaletteRecord &record = records[i];
        // The whole word must be 1, not its lowest byte alone.
        if (!AcceptVersion(record.Version == RecordVersion ? RecordVersion : 0, In::LoadCatFile))
            return;
        SetPaletteEntry(i + 1, record.Red, record.Green, record.Blue);
    }
}

int SavePalette() {
    if (!state.DataUsable)
        return 0;
    PaletteRecord records[OwnerEntries] = {};
    for (int i = 0; i < OwnerEntries; ++i) {
        const Colour colour = state.Palette[i + 1];
        records[i] = {RecordVersion, static_cast<int32_t>(colour >> 16 & 255), static_cast<int32_t>(colour >> 8 & 255),
                      static_cast<int32_t>(colour & 255), 0};
    }
    char path[PathRoom];
    PalettePath(path);
    const int file = OpenFile(path, OpenOrCreate);
    if (file < 0) {
        ReportError(In::LoadCatFile, Trouble::FcreateFail);
        return 0;
    }
    const int64_t length = FileLength(file);
    const int written = WriteFileAt(file, 0, records, sizeof records);
    CloseFile(file);
    if (written)
        return 1;
    ReportError(In::LoadCatFile, Trouble::CwriteFail);
    if (length == 0)
        (void)DeleteFileAt(path); // or the next start would take its missing entries for red
    return 0;
}

int PaletteHash(const char16_t *name) {
    constexpr int MostUnits = 29, HashEntries = 119;
    uint32_t sum = 0;
    for (uint32_t place = 1; place <= MostUnits && name[place - 1]; ++place)
        sum += name[place - 1] * (place == 2 ? 3 : place);
    return static_cast<int>(sum % HashEntries) + 1;
}
