// What a row is made of, pixel by pixel where it matters.
#include "drawing/cells.h"
#include "drawing/geometry.h"
#include "host/test_host.h"
#include "platform/clock.h"
#include "state/state.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

constexpr Bevel Lines = {Rgb(1, 1, 1), Rgb(2, 2, 2)};

// L and D the bevel's pens, f the fill, . nothing.
std::string Pixels(int width, int height, Colour fill) {
    std::string map;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const Colour colour = ColourAt(ListWindow, x, y);
            map += colour == Lines.Light ? 'L' : colour == Lines.Dark ? 'D' : colour == fill ? 'f' : '.';
        }
        map += '\n';
    }
    return map;
}

std::vector<Colour> AllPixels() {
    std::vector<Colour> all;
    for (int y = 0; y < 262; ++y)
        for (int x = 0; x < 240; ++x)
            all.push_back(ColourAt(ListWindow, x, y));
    return all;
}

TEST(Cells, RaisedIsLitOnTopAndRightPressedOnLeftAndBottom) {
    constexpr struct {
        int Style, Depth;
        const char *Map;
    } cases[] = {
        {RaisedCell, 3,
         "........\n"
         ".LLLLLL.\n"
         "DfffffL.\n"
         "DfffffL.\n"
         "DfffffL.\n"
         "DDDDDDD.\n"
         "........\n"},
        {PressedCell, 3,
         "LDDDDDD.\n"
         "LfffffD.\n"
         "LfffffD.\n"
         "LfffffD.\n"
         "LfffffD.\n"
         "LfffffD.\n"
         "LLLLLLD.\n"},
        {RaisedCell, 0,
         "........\n"
         "........\n"
         ".fffff..\n"
         ".fffff..\n"
         ".fffff..\n"
         "........\n"
         "........\n"},
    };
    for (const auto &row : cases) {
        TestRoot root;
        state.DrawDepth = row.Depth;
        DrawCell(ListWindow, 0, 5, 0, 7, Lines, GoldBrush, row.Style);
        EXPECT_EQ(Pixels(8, 7, BrushColour(GoldBrush)), row.Map) << row.Style << ' ' << row.Depth;
    }
}

void PaintRow(int row, int mode) {
    const RowPlace place = StartRow(ListWindow, row, mode, GoldBrush, AccountList);
    RowCell(ListWindow, place, 1, 147, BevelOfList(AccountList), NoFill, PressedGold);
    RowCell(ListWindow, place, 151, 225, BevelOfList(AccountList), GoldBrush, PressedGold);
    PaintFlag(ListWindow, 1, 150, place.Top);
}

TEST(Rows, SelectingOneLeavesItsNeighboursAlone) {
    for (int depth : {3, 0}) {
        TestRoot root;
        state.DrawDepth = depth;
        for (int row = 1; row <= MostRows; ++row)
            PaintRow(row, PlainRow);
        const std::vector<Colour> before = AllPixels();
        for (int row : {1, 6, 12}) {
            PaintRow(row, SelectedRow);
            EXPECT_NE(AllPixels(), before);
            if (depth == 3) {
                EXPECT_EQ(ColourAt(ListWindow, 80, RowTop(row) + 9), BrushColour(PressedGold));
            } else {
                EXPECT_EQ(ColourAt(ListWindow, 80, RowTop(row) + RowHeight), Black) << "the flat frame";
            }
            PaintRow(row, PlainRow);
            EXPECT_EQ(AllPixels(), before) << "row " << row << " depth " << depth;
        }
        EXPECT_EQ(ColourAt(ListWindow, 80, 12 * 17 + 1), NothingPainted) << "the strip's place is not the rows'";
    }
}

TEST(Rows, FlagsAreStripesAndOtherValuesPaintNothing) {
    constexpr struct {
        int64_t Flag;
        Colour Ink;
    } cases[] = {{1, Rgb(255, 0, 0)}, {2, Rgb(0, 39, 159)}, {3, Rgb(255, 255, 0)}, {0, White},
                 {4, White},          {-1, White},          {0xFFFFFFFF, White}};
    for (const auto &row : cases) {
        TestRoot root;
        FillRect(ListWindow, {0, 0, 240, 40}, White);
        PaintFlag(ListWindow, row.Flag, 100, 17);
        EXPECT_EQ(ColourAt(ListWindow, 98, 25), row.Ink) << row.Flag;
        EXPECT_EQ(ColourAt(ListWindow, 99, 19), row.Ink) << row.Flag;
        for (const Point around : {Point{97, 25}, {99, 18}, {99, 34}, {100, 25}})
            EXPECT_EQ(ColourAt(ListWindow, around.X, around.Y), White) << row.Flag;
    }
}

TEST(Amounts, SignIsColourAndNoDigitIsEverCut) {
    constexpr struct {
        FixedAmount Value;
        int Decimals, Width;
        const char *Words;
        bool Red;
    } cases[] = {
        {0, 2, 80, "0.00", false},
        {-1234, 3, 80, "1.234", true},
        {INT64_MIN, 2, 80, "*** ! ***", true},
        {-12345678900, 2, 30, "12345678.90", true},
    };
    for (const auto &row : cases) {
        TestRoot root;
        const Rect box = RowTextBox(0, 100, 100 + row.Width);
        PaintAmount(ListWindow, row.Value, box, row.Decimals);
        const std::vector<StandingText> texts = TextsOn(ListWindow);
        ASSERT_EQ(texts.size(), 1u);
        EXPECT_EQ(texts[0].Words, row.Words);
        EXPECT_EQ(IsRed(texts[0].InkColour), row.Red) << row.Words;
        EXPECT_EQ(texts[0].Ink.Right, box.Right);
        EXPECT_FALSE(texts[0].Cut);
        EXPECT_EQ(texts[0].Fitted, row.Width < 60);
    }
}

TEST(Dates, StandInTheirTwoColumnsAlsoWhenTheRecordIsDamaged) {
    constexpr struct {
        RecDate Date;
        const char *Words;
    } cases[] = {
        {{2026, 3, 2, {}, 0}, "02 Mar | 26"},    {{2009, 12, 31, {}, 0}, "31 Dec | 09"},
        {{1700, 1, 1, {}, 0}, "01 Jan | 00"},    {{0xFFFFFFFF, 127, -128, {}, 0}, "-128 Dec | 95"},
        {{2026, -128, 0, {}, 0}, "00 Jan | 26"},
    };
    for (const auto &row : cases) {
        TestRoot root;
        for (int month = 1; month <= 12; ++month)
            state.MonthNames[month] = MonthName(month);
        MeasureYearColumn();
        PaintDate(ListWindow, row.Date, 17, 70, Black, Font::Normal);
        EXPECT_EQ(TextAt(ListWindow, Row(2)), row.Words);
        for (const StandingText &text : TextsOn(ListWindow))
            EXPECT_TRUE(text.Ink.Left == 2 || text.Ink.Left == state.YearColumn) << text.Words;
    }
}

} // namespace
