// The recording surface itself: every test of a screen believes what it says.
#include "host/test_host.h"
#include <gtest/gtest.h>

using namespace testhost;

static constexpr Colour Red = Rgb(255, 0, 0), Silver = Rgb(200, 200, 200), Black = 0;

static void PaintRow(int n, const char16_t *name, const char16_t *amount) {
    const int top = (n - 1) * 17;
    FillRect(ListWindow, {0, top, 226, top + 18}, Silver);
    PaintText(ListWindow, name, {2, top, 150, top + 17}, Align::Left, Font::Normal, Black);
    PaintText(ListWindow, amount, {150, top, 224, top + 17}, Align::Right, Font::Normal, Red);
}

TEST(Surface, ShowsWhatStandsAndForgetsWhatWasPaintedOver) {
    ResetHost();
    PaintRow(1, u"Rent", u"450.00");
    PaintRow(2, u"Bread", u"1.20");
    EXPECT_EQ(TextAt(ListWindow, {0, 0, 226, 17}), "Rent | 450.00");
    EXPECT_EQ(TextAt(ListWindow, {150, 17, 226, 34}), "1.20");
    EXPECT_EQ(TextsIn(ListWindow, {150, 17, 226, 34}).at(0).InkColour, Red);
    EXPECT_EQ(ColourAt(ListWindow, 100, 20), Silver);
    EXPECT_EQ(ColourAt(ListWindow, 100, 200), NothingPainted);

    PaintRow(1, u"Wages", u"9.00");
    EXPECT_EQ(TextAt(ListWindow, {0, 0, 226, 17}), "Wages | 9.00");
    FillRect(ListWindow, {150, 0, 226, 34}, Silver);
    EXPECT_EQ(TextAt(ListWindow, {0, 0, 226, 34}), "Wages | Bread");
    EXPECT_TRUE(Remains(ListWindow).empty());
    FillRect(ListWindow, {0, 0, 20, 17}, Silver);
    ASSERT_EQ(Remains(ListWindow).size(), 1u);
    EXPECT_EQ(Remains(ListWindow)[0].Words, "Wages");
    CopyImage(ListWindow, {0, 0}, 335, {0, 0, 240, 34});
    EXPECT_TRUE(TextsOn(ListWindow).empty());
    EXPECT_EQ(ImageAt(ListWindow, 5, 5), 335);
    FillRect(ListWindow, {0, 0, 240, 34}, Silver);
    EXPECT_EQ(ImageAt(ListWindow, 5, 5), 0);
}

TEST(Surface, TellsATextThatDoesNotFitFromOneThatWasNarrowed) {
    ResetHost();
    PaintText(TopWindow, u"123456789.00", {0, 0, 30, 17}, Align::Right, Font::Normal, Black);
    PaintText(TopWindow, u"123456789.00", {0, 20, 30, 37}, Align::Right, Font::Normal, Black, 1);
    PaintText(TopWindow, u"1.00", {0, 40, 30, 57}, Align::Right, Font::Normal, Black, 1);
    const std::vector<StandingText> texts = TextsOn(TopWindow);
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_TRUE(texts[0].Cut && !texts[0].Fitted);
    EXPECT_TRUE(!texts[1].Cut && texts[1].Fitted);
    EXPECT_TRUE(!texts[2].Cut && !texts[2].Fitted);
    EXPECT_EQ(texts[2].Ink.Right, 30);
}

TEST(Surface, LinesCoverWholePixelsAndWidenToTheRightAndDown) {
    ResetHost();
    const Point corner[] = {{10, 10}, {20, 10}, {20, 15}};
    DrawPolyline(ListWindow, corner, 3, Red, 2);
    for (const Point &on : {Point{10, 10}, {15, 11}, {21, 13}, {20, 16}})
        EXPECT_EQ(ColourAt(ListWindow, on.X, on.Y), Red) << on.X << ", " << on.Y;
    for (const Point &off : {Point{9, 10}, {15, 12}, {22, 13}, {20, 17}})
        EXPECT_NE(ColourAt(ListWindow, off.X, off.Y), Red) << off.X << ", " << off.Y;
}
