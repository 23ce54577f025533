// What every screen stands in: the tab strip, header and titles, the list's scroll bar, the command bar and its eyes.
#include "drawing/colours.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "frame/tabs.h"
#include "host/test_host.h"
#include "resources/art.h"
#include "state/state.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

std::vector<StandingImage> ImagesOf(Window window, int id) {
    std::vector<StandingImage> all = ImagesOn(window);
    std::erase_if(all, [id](const StandingImage &image) { return image.Id != id; });
    return all;
}

// The image that starts at this x.
StandingImage ImageFrom(int id, int left) {
    for (const StandingImage &image : ImagesOf(ListWindow, id))
        if (image.To.Left == left)
            return image;
    ADD_FAILURE() << "no image " << id << " at " << left;
    return {};
}

std::pair<int, int> EyeCells() {
    return {machine.Bar.at(7).Cell, machine.Bar.at(8).Cell};
}

TEST(Tabs, StandWhereATapLooksForThem) {
    constexpr struct {
        int Page, Screen, Rows, Slot, Tab;
        bool Tall;
    } cases[] = {
        {0, 1, 12, 1, 1, true},  {0, 1, 12, 2, 2, false}, {0, 4, 12, 4, 4, true}, {0, 1, 7, 6, 6, false},
        {1, 1, 12, 1, 7, false}, {1, 8, 12, 2, 8, true},  {1, 6, 7, 6, 6, true},  {0, 6, 12, 6, 6, true},
    };
    for (const auto &row : cases) {
        TestRoot root;
        state.TabPage = row.Page;
        state.CurrentScreen = row.Screen;
        state.RowCount = row.Rows;
        DrawTabs();
        const int top = row.Rows * 17 + 1;
        const StandingImage shape = ImageFrom(TabShapes, row.Slot * 37 - 35);
        EXPECT_EQ(shape.Part.Left, (row.Tab - 1) * 38);
        EXPECT_EQ(shape.Part.Bottom, 26);
        EXPECT_EQ(shape.To.Right - shape.To.Left, 37);
        EXPECT_EQ(shape.To.Top, top);
        EXPECT_EQ(shape.To.Bottom, top + (row.Tall ? 26 : 22));
        const StandingImage icon = ImageFrom(TabIcons, row.Slot * 37 - 25);
        EXPECT_EQ(icon.Part.Left, (row.Tab - 1) * 18);
        EXPECT_EQ(icon.To.Top, top + (row.Tall ? 3 : 0));
        EXPECT_EQ(ImageFrom(PageButton, 229).Part.Left, row.Page == 0 ? 8 : 0);
        EXPECT_EQ(ImagesOf(ListWindow, TabShapes).size(), row.Page == 0 ? 6u : 3u);
    }
}

TEST(Tabs, IconsWarnOfRecurringItemsAndOfAFullBin) {
    constexpr struct {
        uint32_t InOrder;
        int InBin;
        bool RecurringAlert, BinAlert;
    } cases[] = {{1, 5050, false, false}, {0, 5051, true, true}, {1, 5250, false, true}, {1, 5251, false, false}};
    for (const auto &row : cases) {
        TestRoot root;
        state.RecurringInOrder = row.InOrder;
        state.EntryCount[BinList] = row.InBin;
        DrawTabs();
        EXPECT_EQ(ImageFrom(TabIcons, 4 * 37 - 25).Part.Top, row.RecurringAlert ? 19 : 0) << row.InBin;
        EXPECT_EQ(ImageFrom(TabIcons, 6 * 37 - 25).Part.Top, row.BinAlert ? 19 : 0) << row.InBin;
    }
}

TEST(Tabs, AHotTabAloneIsRepaintedAndUnknownOnesAreNot) {
    TestRoot root;
    DrawTabText(6, HotTab);
    EXPECT_EQ(ImageFrom(TabShapes, 6 * 37 - 35).Part.Left, 304);
    EXPECT_EQ(ImageFrom(TabShapes, 6 * 37 - 35).Part.Top, 4);
    DrawTabText(AccountList, HotTab);
    EXPECT_EQ(ImageFrom(TabShapes, 2).Part.Top, 0) << "the tab of the screen shown stays tall";
    const int images = painted[ListWindow].Images;
    for (int tab : {0, 9, -6, 12, CategoryList + 0})
        DrawTabText(tab, NormalTab);
    EXPECT_EQ(painted[ListWindow].Images, images);
    EXPECT_EQ(machine.Beeps, 0);
    DrawTabText(2, 4);
    EXPECT_EQ(painted[ListWindow].Images, images);
    EXPECT_EQ(machine.Beeps, 1);

    state.ColumnDragScreen = AccountList;
    const int fills = painted[ListWindow].Fills;
    DrawTabs();
    EXPECT_EQ(painted[ListWindow].Images, images + 6) << "icons alone while an edge is dragged";
    EXPECT_EQ(painted[ListWindow].Fills, fills);
}

TEST(Header, TellsSelectionCountAndArchive) {
    constexpr struct {
        int Screen;
        uint32_t Archive;
        int Selected, Count;
        bool Red;
    } cases[] = {{1, 0, 0, 0, false}, {2, 1, 3, 12, true}, {3, 1, 1, 1, true}, {4, 1, 100000, 100001, false}};
    for (const auto &row : cases) {
        TestRoot root;
        state.CurrentScreen = row.Screen;
        state.ArchiveView = row.Archive;
        state.SelectedPos[row.Screen] = row.Selected;
        state.EntryCount[row.Screen] = row.Count;
        DrawHeaderTitle(u"Groceries");
        UpdateCounts();
        DrawHeaderArrows();
        EXPECT_EQ(TextAt(TopWindow, {0, 0, 30, 15}), std::to_string(row.Selected));
        EXPECT_EQ(TextAt(TopWindow, {47, 0, 193, 15}), "Groceries");
        EXPECT_EQ(TextAt(TopWindow, {210, 0, 240, 15}), std::to_string(row.Count));
        for (const StandingText &text : TextsOn(TopWindow)) {
            EXPECT_EQ(IsRed(text.InkColour), row.Red);
            EXPECT_FALSE(text.Cut) << text.Words;
        }
        EXPECT_EQ(ImageAt(TopWindow, 38, 7), GoldUp);
        EXPECT_EQ(ImageAt(TopWindow, 200, 7), GoldDown);
        EXPECT_EQ(ColourAt(TopWindow, 2, 14), Rgb(0, 39, 159));
    }
}

TEST(Titles, GripsShowWhereThereIsRoomForThem) {
    constexpr struct {
        int Left, Right;
        size_t Grips;
    } cases[] = {{0, 37, 0}, {0, 38, 2}, {0, 45, 2}, {0, 46, 4}, {0, 150, 10}, {150, 226, 10}};
    for (const auto &row : cases) {
        TestRoot root;
        DrawColumnTitle(row.Left, row.Right, u"Name", TitleBrush);
        EXPECT_EQ(ImagesOf(TopWindow, GripBar).size(), row.Grips) << row.Right;
        for (const StandingImage &grip : ImagesOf(TopWindow, GripBar)) {
            EXPECT_GE(grip.To.Left, row.Left + 5);
            EXPECT_LE(grip.To.Left, row.Right - 7);
        }
        state.CurrentScreen = TemplateList;
        DrawColumnTitle(row.Left, row.Right, u"Name", TitleBrush);
        EXPECT_TRUE(ImagesOf(TopWindow, GripBar).empty());
    }
}

TEST(Titles, ConversionsShowTheirSigns) {
    constexpr struct {
        const char16_t *Title;
        uint32_t RefColumn;
        const char *Words;
        size_t Crosses;
    } cases[] = {{u"A =", 0, "A | =", 0},
                 {u"A =", 1, "A | =", 0},
                 {u"X B", 0, "B", 1},
                 {u"X B", 1, "Ref", 0},
                 {u"Balance", 0, "Balance", 0}};
    for (const auto &row : cases) {
        TestRoot root;
        state.CurrentScreen = ConversionList;
        state.RefColumn = row.RefColumn;
        DrawColumnTitle(130, 226, row.Title, TitleBrush);
        EXPECT_EQ(TextAt(TopWindow, {130, 15, 226, 36}), row.Words);
        EXPECT_EQ(ImagesOf(TopWindow, TimesSign).size(), row.Crosses);
        EXPECT_EQ(ColourAt(TopWindow, 140, 25), Rgb(255, 213, 80));
        for (const StandingText &text : TextsOn(TopWindow))
            EXPECT_EQ(text.InkColour, Black);
    }
}

TEST(ScrollBar, ReachesTwoRowsPastTheEnd) {
    constexpr struct {
        int Screen;
        uint32_t Messages;
        int Count, High, Bottom;
    } cases[] = {
        {1, 0, 100, 91, 205}, {1, 1, 100, 96, 120}, {2, 0, 0, 1, 205},
        {2, 0, 10, 1, 205},   {2, 0, 11, 2, 205},   {3, 1, 98, 95, 120},
    };
    for (const auto &row : cases) {
        TestRoot root;
        state.CurrentScreen = row.Screen;
        state.MessageWindowOn = row.Messages;
        state.RowCount = row.Messages ? RowsAboveMessages : MostRows;
        PlaceListScrollBar();
        SetScrollBarThumb(1, row.Count + 2);
        EXPECT_EQ(machine.Scroll.Low, 1);
        EXPECT_EQ(machine.Scroll.High, row.High) << row.Screen << ' ' << row.Count;
        EXPECT_EQ(machine.Scroll.Box.Left, 226);
        EXPECT_EQ(machine.Scroll.Box.Right, 240);
        EXPECT_EQ(machine.Scroll.Box.Bottom, row.Bottom);
    }
}

TEST(CommandBar, StandsWithShutEyesAlsoWhenSettingsCannotBeRead) {
    TestRoot root;
    root.MakeDataDirectory();
    SetMenuBar();
    EXPECT_EQ(machine.Beeps, 1) << "no configuration record can be opened";
    ASSERT_EQ(machine.Bar.size(), 10u);
    EXPECT_EQ(EyeCells(), std::pair(9, 9));
    EXPECT_FALSE(CommandEnabled(CommandExport)) << "greyed for the screen shown, the accounts";
    EXPECT_TRUE(CommandEnabled(CommandBackup));
}

TEST(Eyes, LookAtTheTapInHelpModeAndSleepOtherwise) {
    constexpr struct {
        Window Where;
        int X, Y, Left, Right;
    } cases[] = {
        {ListWindow, 0, 100, 2, 2},    {ListWindow, 60, 50, 3, 3},    {ListWindow, 150, 100, 4, 4},
        {ListWindow, 139, 230, 3, 1},  {ListWindow, 161, 200, 6, 4},  {ListWindow, 170, 230, 8, 7},
        {ListWindow, 239, 234, 8, 8},  {ListWindow, 10, 240, 1, 1},   {ListWindow, 239, 261, 8, 8},
        {TopWindow, 120, 8, 4, 4},     {TopWindow, 161, 200, 5, 4},   {HostWindow, 139, 230, 4, 3},
        {HostWindow, 170, 230, 6, 5},  {ListWindow, -10, 10, 10, 10}, {ListWindow, -3, -5, 3, 5},
        {ListWindow, -99, 99, 10, 10},
    };
    TestRoot root;
    EXPECT_EQ(UpdateEyes(ListWindow, 10, 10), 0) << "the front page is still up";
    state.FrontPageDone = 1;
    for (const auto &row : cases) {
        state.HelpMode = 1;
        EXPECT_EQ(UpdateEyes(row.Where, row.X, row.Y), 1);
        EXPECT_EQ(EyeCells(), std::pair(row.Left, row.Right)) << row.X << ' ' << row.Y;
        state.HelpMode = 0;
        UpdateEyes(row.Where, row.X, row.Y);
        EXPECT_EQ(EyeCells(), std::pair(9, 9));
    }
    const int built = machine.BarsBuilt;
    UpdateEyes(ListWindow, 5, 5);
    EXPECT_EQ(machine.BarsBuilt, built) << "nothing changed, so nothing flickers";
    EXPECT_EQ(UpdateEyes(DialogWindow, 5, 5), 0);
    EXPECT_EQ(machine.Beeps, 1);
}

} // namespace
