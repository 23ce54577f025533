// Colours that an owner mixes and keeps: the model's corners, and the palette in its file.
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "drawing/palette.h"
#include "host/test_host.h"
#include "state/state.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

struct PaletteFile : testing::Test {
    TestRoot root;
    PaletteFile() {
        root.MakeDataDirectory();
        DefaultPalette();
    }
    std::vector<uint8_t> Bytes() const { return ReadBytes(root.DataFile("COL")); }
    void Load(const std::vector<uint8_t> &bytes) const {
        WriteBytes(root.DataFile("COL"), bytes);
        LoadPalette();
    }
};

TEST(ColourModel, HuesAndGreysComeOutAsTheHelpSays) {
    constexpr struct {
        int Red, Green, Blue;
        int H, L, S, C;
    } cases[] = {
        // clang-format off
        {255,   0,   0,   0, 127, 255, 255}, {  0, 255,   0,  85, 127, 255, 255}, {  0,   0, 255, 170, 127, 255, 255},
        {255, 255,   0,  41, 127, 255, 255}, {  0, 255, 255, 126, 127, 255, 255}, {255,   0, 255, 213, 127, 255, 255},
        {  0,   0,   0,   0,   0,   0,   0}, {255, 255, 255,   0, 255,   0,   0}, {100, 100, 100,   0, 100,   0,   0},
        {200, 200, 200,   0, 200,   0,   0}, { 43, 211, 159, 113, 127, 168, 168}, {100,   0,   0,   0,  50, 252, 100},
        {255, 205, 205,   0, 230, 245,  50}, {300,  -5,   0,   0, 127, 255, 255},
        // clang-format on
    };
    for (const auto &row : cases) {
        const Hls got = RgbToHls(row.Red, row.Green, row.Blue);
        EXPECT_TRUE(got.H == row.H && got.L == row.L && got.S == row.S && got.C == row.C)
            << row.Red << ' ' << row.Green << ' ' << row.Blue << " gave " << got.H << ' ' << got.L << ' ' << got.S
            << ' ' << got.C;
    }
}

TEST(ColourModel, MixedColoursAreTheOnesAskedFor) {
    constexpr struct {
        int H, L, S;
        Colour Wanted;
    } cases[] = {
        {0, 127, 255, Rgb(254, 0, 0)},     {255, 127, 255, Rgb(254, 0, 0)},  {85, 127, 255, Rgb(0, 254, 0)},
        {170, 127, 255, Rgb(0, 0, 254)},   {42, 127, 255, Rgb(255, 254, 0)}, {90, 200, 0, Rgb(200, 200, 200)},
        {0, 255, 255, Rgb(255, 255, 255)}, {0, 0, 255, Rgb(0, 0, 0)},        {114, 193, 168, Rgb(152, 234, 209)},
        {114, 83, 168, Rgb(28, 138, 104)}, {0, 400, -3, Rgb(255, 255, 255)},
    };
    for (const auto &row : cases)
        EXPECT_EQ(HlsToRgb(row.H, row.L, row.S), row.Wanted) << row.H << ' ' << row.L << ' ' << row.S;
    EXPECT_EQ(BevelOfList(ConversionList).Light, Rgb(152, 234, 207));
    EXPECT_EQ(BevelOfList(ConversionList).Dark, Rgb(28, 138, 101));
}

TEST(ColourModel, TextOnAColourStaysReadable) {
    constexpr struct {
        Colour Ground;
        int Brightness;
    } cases[] = {
        {Rgb(255, 255, 255), 255}, {Rgb(0, 0, 0), 0},       {Rgb(255, 0, 0), 85},      {Rgb(0, 255, 0), 127},
        {Rgb(0, 0, 255), 42},      {Rgb(255, 255, 0), 212}, {Rgb(128, 128, 128), 128},
    };
    for (const auto &row : cases)
        EXPECT_EQ(Brightness(row.Ground), row.Brightness) << row.Ground;
}

TEST_F(PaletteFile, DefaultIsTwelveHuesInFiveShadesWithCompanions) {
    EXPECT_EQ(state.Palette[1], Rgb(216, 164, 164));
    EXPECT_EQ(state.Palette[5], Rgb(140, 0, 0));
    EXPECT_EQ(state.Palette[60], Rgb(140, 0, 70));
    SetPaletteEntry(60, 255, 0, 0);
    EXPECT_EQ(state.Palette[120], Rgb(254, 67, 0));
}

TEST(Palette, ANameAlwaysFallsOnTheSameEntry) {
    const std::u16string longName(29, u'a');
    EXPECT_EQ(PaletteHash(u""), 1);
    EXPECT_EQ(PaletteHash(u"A"), 66);
    EXPECT_EQ(PaletteHash(u"AB"), 26);
    EXPECT_EQ(PaletteHash(longName.c_str()), 48);
    EXPECT_EQ(PaletteHash((longName + u"z").c_str()), 48);
    EXPECT_EQ(PaletteHash(std::u16string(40, u'\xFFFF').c_str()), 52);
}

TEST_F(PaletteFile, MixedColoursAreThereAfterARestart) {
    LoadPalette();
    EXPECT_TRUE(Bytes().empty()) << "loading alone makes no file";
    SetPaletteEntry(7, 1, 254, 3);
    ASSERT_EQ(SavePalette(), 1);
    const std::vector<uint8_t> file = Bytes();
    ASSERT_EQ(file.size(), 60u * 20);
    EXPECT_EQ(std::vector<uint8_t>(file.begin() + 6 * 20, file.begin() + 7 * 20),
              (std::vector<uint8_t>{1, 0, 0, 0, 1, 0, 0, 0, 254, 0, 0, 0, 3, 0, 0, 0, 0, 0, 0, 0}));
    const Colour companion = state.Palette[67], last = state.Palette[60];
    ResetState();
    LoadPalette();
    EXPECT_EQ(state.Palette[7], Rgb(1, 254, 3));
    EXPECT_EQ(state.Palette[67], companion);
    EXPECT_EQ(state.Palette[60], last);
    std::vector<uint8_t> damaged = file;
    std::fill(damaged.begin() + 6 * 20 + 4, damaged.begin() + 6 * 20 + 12, 0xFF);
    damaged[6 * 20 + 11] = 0x7F; // -1 and the largest
    Load(damaged);
    EXPECT_EQ(state.Palette[7], Rgb(0, 255, 3));
    EXPECT_LE(state.Palette[67], 0xFFFFFFU);
}

TEST_F(PaletteFile, CutOrOverlongFilesGiveTheRecordsTheyHold) {
    for (int i = 1; i <= 60; ++i)
        SetPaletteEntry(i, i, 0, 0);
    ASSERT_EQ(SavePalette(), 1);
    std::vector<uint8_t> whole = Bytes();
    whole.resize(65 * 20, 0xEE); // more than 60: not even their version is looked at
    for (size_t length = 0; length <= whole.size(); length += 13) {
        Load({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
        for (int i = 1; i <= 60; ++i)
            ASSERT_EQ(state.Palette[i], i <= static_cast<int>(length) / 20 ? Rgb(i, 0, 0) : Rgb(255, 0, 0))
                << length << ": " << i;
    }
    EXPECT_EQ(state.DataUsable, 1u);
}

TEST_F(PaletteFile, AnotherVersionEndsTheUseOfTheDataAndIsKept) {
    ASSERT_EQ(SavePalette(), 1);
    for (const std::vector<uint8_t> &version : std::vector<std::vector<uint8_t>>{{2, 0}, {1, 1}, {0, 0}}) {
        std::vector<uint8_t> file = Bytes();
        std::copy(version.begin(), version.end(), file.begin() + 2 * 20);
        state.DataUsable = 1;
        Load(file);
        EXPECT_EQ(state.DataUsable, 0u);
        EXPECT_EQ(SavePalette(), 0);
        EXPECT_EQ(Bytes(), file);
    }
}

TEST_F(PaletteFile, AFullDiskLeavesNoHalfPalette) {
    const Colour first = state.Palette[1];
    WithFailingDisk({.Full = true}, [] { EXPECT_EQ(SavePalette(), 0); });
    EXPECT_GT(machine.Beeps, 0);
    LoadPalette();
    EXPECT_EQ(state.Palette[1], first);
}

} // namespace
