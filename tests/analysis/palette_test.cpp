// Colours an owner mixes: seven linked parameters, the cone, the palette that is kept, the category that gets one.
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "drawing/mixing.h"
#include "drawing/palette.h"
#include "host/device.h"
#include <algorithm>
#include <cstdlib>

using namespace testhost;

namespace {

std::string Told(const ColourState &colour) {
    std::string told;
    for (const int32_t value :
         {colour.ColR, colour.ColG, colour.ColB, colour.ColH, colour.ColL, colour.ColS, colour.ColC})
        told += (told.empty() ? "" : " ") + std::to_string(value);
    return told;
}

int Apart(Colour a, Colour b) {
    int most = 0;
    for (const int shift : {0, 8, 16})
        most = std::max(most, std::abs(static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255)));
    return most;
}

TEST(Mixing, AColourComesBackFromHueLuminosityAndSaturation) {
    // Over all 16.7 million colours cutting the three costs at most 8 of 255 in a channel; here every third value.
    for (int red = 0; red <= 255; red += 3)
        for (int green = 0; green <= 255; green += 3)
            for (int blue = 0; blue <= 255; blue += 3) {
                const Hls hls = RgbToHls(red, green, blue);
                ASSERT_LE(Apart(HlsToRgb(hls.H, hls.L, hls.S), Rgb(red, green, blue)), 8)
                    << red << ' ' << green << ' ' << blue;
                ASSERT_TRUE(hls.H >= 0 && hls.H <= 255 && hls.S >= 0 && hls.S <= 255);
            }
}

TEST(Mixing, EachParameterMovesTheOthers) {
    struct {
        int Red, Green, Blue;
        int32_t Link;
        int Value;
        const char *Told; // R G B H L S C
    } const cases[] = {
        {10, 20, 30, LinkRed, 300, "255 20 30 253 137 253 235"},
        {10, 20, 30, LinkBlue, -5, "10 20 0 65 10 243 20"},
        {200, 100, 50, LinkContrast, 50, "150 100 100 0 125 51 50"},
        {200, 100, 50, LinkContrast, 0, "125 125 125 0 125 0 0"},
        {200, 100, 50, LinkContrast, 255, "255 100 0 16 127 255 255"},
        {250, 250, 240, LinkContrast, 100, "255 250 155 39 205 250 100"},
        {90, 90, 90, LinkContrast, 40, "110 90 70 20 90 56 40"},
        {255, 0, 0, LinkHue, 85, "0 254 0 85 127 255 254"},
        {255, 0, 0, LinkLuminosity, 255, "255 255 255 0 255 255 0"},
        {255, 0, 0, LinkSaturation, 0, "127 127 127 0 127 0 0"},
    };
    for (const auto &row : cases) {
        ResetState();
        LinkColourParameter(row.Link);
        SetCurrentColour(row.Red, row.Green, row.Blue);
        SetColourParameter(row.Link, row.Value);
        EXPECT_EQ(Told(state.Mixed), row.Told) << row.Link << " = " << row.Value;
    }
    // Contrast goes to 0 and comes back: it is taken from the colour that it was linked to.
    SetCurrentColour(200, 100, 50);
    LinkColourParameter(LinkContrast);
    SetColourParameter(LinkContrast, 0);
    SetColourParameter(LinkContrast, 150);
    EXPECT_EQ(ColourOf(state.Mixed), Rgb(200, 100, 50));
    SetColourParameter(LinkContrast, 0);
    LinkColourParameter(LinkContrast); // now it is taken from the grey
    SetColourParameter(LinkContrast, 150);
    EXPECT_EQ(ColourOf(state.Mixed), Rgb(200, 125, 50));
}

TEST(Mixing, TheConeGivesTheColourThatStandsThere) {
    constexpr struct {
        int X, Y, Hue, Saturation;
    } places[] = {
        {128, 128, 233, 0}, {1, 128, 233, 254}, {128, 1, 170, 254}, {255, 128, 106, 254}, {128, 255, 42, 254},
    };
    for (const auto &place : places) {
        int hue, saturation;
        ConeColour(place.X, place.Y, &hue, &saturation);
        EXPECT_EQ(hue, place.Hue) << place.X << ' ' << place.Y;
        EXPECT_EQ(saturation, place.Saturation) << place.X << ' ' << place.Y;
    }
    for (int hue = 0; hue <= 255; ++hue)
        for (int saturation = 60; saturation <= 250; saturation += 10) {
            const Point mark = ConePlace(hue, saturation);
            int foundHue, foundSaturation;
            ConeColour(mark.X, mark.Y, &foundHue, &foundSaturation);
            const int apart = std::abs(foundHue - hue);
            EXPECT_LE(std::min(apart, 255 - apart), 4) << hue << ' ' << saturation;
            EXPECT_LE(std::abs(foundSaturation - saturation), 6) << hue << ' ' << saturation;
        }
    SetCurrentColour(100, 150, 200);
    const int luminosity = state.Mixed.ColL;
    EXPECT_EQ(SetColourFromCone(255, 255), 0); // too far out
    EXPECT_EQ(ColourOf(state.Mixed), Rgb(100, 150, 200));
    EXPECT_EQ(SetColourFromCone(20, 20), 1); // outside the rim: the rim's
    EXPECT_EQ(state.Mixed.ColS, 255);
    EXPECT_EQ(state.Mixed.ColL, luminosity);
}

struct PaletteScreen : Device {
    static void TapAt(int x, int y) { testhost::Tap(x, 26 + y); }
    static void TapSquare(int entry) { TapAt(4 + (entry - 1) % 5 * 15 + 7, 4 + (entry - 1) / 5 * 15 + 7); }
    static void TapCategory() { TapAt(160, 169); }
    // R G B C H L S
    static void TapParameter(int n) { TapAt(84 + n % 4 * 39 + 18, 119 + n / 4 * 21); }
    CatRec Row() const { return Read<CatRec>("E1_07CAT")[0]; }
    void Open() {
        ShowScreen(CategoryList);
        if (state.EntryCount[CategoryList] == 0) {
            SendCommand(CommandNew);
            Tick();
        }
        state.SelectedPos[CategoryList] = 1;
        SendCommand(CommandModify);
        ASSERT_EQ(state.ActiveDialog, static_cast<int>(CategoryDialog));
    }
    void OpenPaletteByTap() {
        Open();
        ASSERT_TRUE(TapPart(ColourItem));
        ASSERT_EQ(state.ActiveDialog, static_cast<int>(PaletteDialog));
        ASSERT_TRUE(machine.Shown[HostWindow]);
    }
};

TEST_F(PaletteScreen, AMixedColourReachesTheCategoryAndItsRow) {
    Open();
    SetText(TextField, "Hobby");
    ASSERT_TRUE(TapPart(ColourItem));
    EXPECT_EQ(Line(0), "To modify the palette");
    EXPECT_EQ(TextAt(HostWindow, {84, 154, 238, 184}), "Hobby");
    constexpr struct {
        int Parameter;
        const char *Digits, *Help;
    } typed[] = {{0, "12", "R - red element of the current colour"},
                 {1, "256", "G - green element of the current colour"}, // the 6 is too much
                 {2, "200", "B - blue element of the current colour"}};
    for (const auto &row : typed) {
        TapParameter(row.Parameter);
        EXPECT_EQ(Line(1), row.Help);
        for (const char *digit = row.Digits; *digit; ++digit)
            SendKey(KeyByName(std::string(1, *digit)));
    }
    EXPECT_EQ(ColourOf(state.Mixed), Rgb(12, 25, 200));
    SendKey(Key::Backspace);
    EXPECT_EQ(state.Mixed.ColB, 20);
    SendKey(Key::Digit7);
    EXPECT_EQ(state.Mixed.ColB, 207);
    EXPECT_EQ(ColourAt(HostWindow, 90, 158), Rgb(12, 25, 207));
    EXPECT_EQ(TextAt(HostWindow, {162, 110, 199, 128}), "B | 207");

    TapCategory();
    EXPECT_EQ(Line(1), "Tap the selected colour again");
    TapAt(150, 155 + 90); // anything else cancels
    TapCategory();
    EXPECT_EQ(Line(1), "Tap the selected colour again");
    TapCategory();
    EXPECT_EQ(Line(1), "The colour has been applied");
    Tick();
    EXPECT_EQ(state.ActiveDialog, static_cast<int>(CategoryDialog));
    EXPECT_FALSE(machine.Shown[HostWindow]);
    EXPECT_EQ(ControlText(TextField), "Hobby") << "what was typed before is still there";
    Tick();
    EXPECT_EQ(Fields(Row(), "Name Red Green Blue"), "Hobby, 12, 25, 207");
    EXPECT_EQ(ColourAt(ListWindow, 20, 8), Rgb(12, 25, 207));

    // Without the second tap, or with the form's cross, the category keeps its colour.
    OpenPaletteByTap();
    TapSquare(3);
    SendKey(Key::Escape);
    Tick();
    OpenPaletteByTap();
    TapSquare(3);
    TapCategory();
    TapCategory();
    Tick();
    Cross();
    EXPECT_EQ(Fields(Row(), "Red Green Blue"), "12, 25, 207");
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(PaletteScreen, ASquareTappedTwiceKeepsTheColourOverARestart) {
    OpenPaletteByTap();
    TapSquare(7);
    EXPECT_EQ(Line(1), "1 You've now selected a palette colour");
    EXPECT_EQ(ColourOf(state.Mixed), state.Palette[7]);
    EXPECT_TRUE(ReadBytes(root.DataFile("COL")).empty());
    TapParameter(0);
    SendKey(Key::Digit9);
    const Colour mixed = ColourOf(state.Mixed);
    EXPECT_NE(mixed, state.Palette[7]);
    disk.Switches.FailAt = disk.WriteCalls + 1;
    const Colour before = state.Palette[7];
    TapSquare(7);
    EXPECT_EQ(state.Palette[7], before) << "what the file refused is not shown as kept";
    EXPECT_EQ(Line(1), "Warning!");
    ResetDisk();
    TapSquare(7);
    EXPECT_EQ(Line(1), "The colour has been applied");
    EXPECT_EQ(ColourAt(HostWindow, 4 + 15 + 6, 4 + 15 + 6), mixed);
    ASSERT_EQ(ReadBytes(root.DataFile("COL")).size(), 60u * 20);
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.Palette[7], mixed);
}

TEST_F(PaletteScreen, SliderConeAndKeysMoveTheLinkedParameter) {
    OpenPaletteByTap();
    TapSquare(13);
    TapParameter(4); // hue
    EXPECT_EQ(state.Mixed.ColLink, static_cast<int>(LinkHue));
    constexpr struct { int Row, Value; } rows[] = {{0, 255}, {50, 128}, {100, 0}};
    for (const auto &row : rows) {
        TapAt(210, 4 + row.Row);
        EXPECT_EQ(state.Mixed.ColH, row.Value) << row.Row;
        EXPECT_EQ(Line(0), "Use the slider, colour cone or keyboard");
    }
    SendKey(Key::Down);
    EXPECT_EQ(state.Mixed.ColH, 255) << "the hue is a wheel";
    SendKey(Key::Up);
    EXPECT_EQ(state.Mixed.ColH, 0);
    SendKey(Key::Left); // luminosity stands behind hue, contrast before it
    EXPECT_EQ(state.Mixed.ColLink, static_cast<int>(LinkContrast));
    EXPECT_EQ(Line(1), "C - contrast of the current colour");
    TapParameter(0);
    SendKey(Key::Left);
    EXPECT_EQ(state.Mixed.ColLink, static_cast<int>(LinkSaturation));
    SendKey(Key::Right);
    EXPECT_EQ(state.Mixed.ColLink, static_cast<int>(LinkRed));
    // The slider follows the stylus beyond its ends, and nothing follows once it is up.
    Press(210, 26 + 50);
    Move(210, 26 + 200);
    EXPECT_EQ(state.Mixed.ColR, 0);
    SendKey(Key::Down);
    EXPECT_EQ(state.Mixed.ColR, 0);
    Release(210, 26 + 200);
    SendEvent({.Kind = EventKind::PointerMove, .Where = HostWindow, .X = 210, .Y = 4});
    EXPECT_EQ(state.Mixed.ColR, 0);

    // Where the mark was, the cone is whole again.
    TapAt(140, 60);
    TapAt(120, 40);
    EXPECT_FALSE(ColourIn(HostWindow, {136, 56, 145, 65}, White) || ColourIn(HostWindow, {136, 56, 145, 65}, Black));
    EXPECT_TRUE(ColourIn(HostWindow, {115, 35, 125, 45}, White));
    TapAt(136 - 30, 54);
    EXPECT_EQ(state.Mixed.ColH, 233);
    EXPECT_GT(state.Mixed.ColS, 140);
    EXPECT_EQ(ColourAt(HostWindow, 170, 80), HlsToRgb(79, 127, 220)) << "what stands there is what a tap gives";

    SendKey(Key::Help);
    EXPECT_EQ(TextAt(HostWindow, {0, 189, 240, 202}), "This is Help mode");
    TapSquare(60);
    EXPECT_EQ(TextAt(HostWindow, {0, 202, 240, 215}), "1 You've now selected a palette colour");
    EXPECT_TRUE(Remains(HostWindow).empty());
    SendKey(Key::Help);
    EXPECT_EQ(TextAt(HostWindow, {0, 189, 240, 268}), "");
    EXPECT_NE(ImageAt(HostWindow, 100, 220), 0);
    // Lists and menus are out of reach.
    SendKey(Key::Tab1);
    SendCommand(CommandNew);
    EXPECT_EQ(state.ActiveDialog, static_cast<int>(PaletteDialog));
    EXPECT_EQ(state.CurrentScreen, static_cast<int>(CategoryList));
    SendKey(Key::Escape);
    SendKey(Key::FlagPart); // the key that leads here
    EXPECT_EQ(state.ActiveDialog, static_cast<int>(PaletteDialog));
    SendKey(Key::RowUp);
    EXPECT_EQ(state.PaletteSquare, 60);
    SendKey(Key::Title1);
    SendKey(Key::Title1);
    SendKey(Key::Enter);
    Tick();
    EXPECT_EQ(Rgb(static_cast<int>(Row().Red), static_cast<int>(Row().Green), static_cast<int>(Row().Blue)),
              state.Palette[60]);
}

} // namespace
