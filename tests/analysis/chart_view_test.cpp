// The pictures of the segments, and what an owner does with them.
#include "chart_account.h"

using namespace testhost;

namespace {

TEST_F(Charts, AccountsOfAnyLengthAreShownAndEveryRowIsTheOneTapped) {
    for (const int entries : {0, 1, 2, 100, 101}) {
        SCOPED_TRACE(entries);
        std::vector<Entry> rows;
        for (int n = 0; n < entries; ++n)
            rows.push_back({"Name " + std::to_string(n), -5000}); // equal values
        Write(rows);
        for (const int icon : {PieIconX, BarIconX}) {
            Show(icon);
            EXPECT_EQ(state.EntryCount[GraphList], entries);
            if (entries == 0) {
                EXPECT_EQ(Heading(), "");
                TapList(78, 110);
                EXPECT_EQ(Line(1), "X denotes: no segments to display");
                EXPECT_NE(ImageAt(ListWindow, 78, 115), 0);
                continue;
            }
            for (int row = 1; row <= std::min(entries, TableRows()); ++row) {
                const std::string title = TextAt(ListWindow, {TableLeft, TableTop(row), TableRight, TableTop(row + 1)});
                ASSERT_NE(title, "") << row;
                TapList(190, TableTop(row));
                EXPECT_EQ(Heading(), title + " | 1");
                TapList(190, TableTop(row + 1) - 1);
                EXPECT_EQ(Heading(), title + " | 1");
            }
            EXPECT_TRUE(Remains(ListWindow).empty());
        }
        ShowScreen(AccountList);
    }
}

TEST_F(Charts, APieIsTappedWhereItsSegmentsAre) {
    Write({{"a", -1000}, {"b", 1000}, {"c", -1000}, {"d", 1000}, {"none", 0}});
    Show(PieIconX);
    Pick(OrderList, FromAToZ);
    const Rect box = PieBox();
    const int x = (box.Left + box.Right) / 2, y = (box.Top + box.Bottom) / 2;
    struct {
        int X, Y;
        const char *Title;
    } const taps[] = {{x - 30, y - 20, "a"}, {x + 30, y - 20, "b"}, {x + 30, y + 20, "c"}, {x - 30, y + 20, "d"}};
    for (const auto &tap : taps) {
        const GRec segment = Segments()[static_cast<size_t>(tap.Title[0] - 'a')];
        TapList(tap.X, tap.Y);
        EXPECT_EQ(Heading(), std::string(tap.Title) + " | 1");
        EXPECT_EQ(Line(0), "You've selected a pie segment");
        EXPECT_EQ(segment.Percent, 25.0f);
    }
    TapList(box.Left + 2, box.Top + 2); // a corner of the box is no pie
    EXPECT_EQ(Heading(), "d | 1");
    EXPECT_EQ(Line(1), "A segment is selected by tapping");
    Pick(OrderList, DebitsOnly); // d is not seen in it
    TapList(x - 30, y + 20);
    EXPECT_EQ(Heading(), "a | 1");
    Write({{"b", 1000}});
    Pick(GroupList, ByName - 1);
    Pick(OrderList, DebitsOnly); // nothing but credits: an empty pie
    EXPECT_NE(ImageAt(ListWindow, x, y), 0);
    TapList(x, y - 20);
    EXPECT_EQ(Line(1), "X denotes: no segments to display");
}

TEST_F(Charts, ListsHeadingStrokesAndKeysWorkAsTheHelpSays) {
    std::vector<Entry> rows;
    for (int n = 0; n < 30; ++n)
        rows.push_back({"N" + std::to_string(100 + n), -1000 * (n + 1) - 500});
    rows.push_back({"Wages", 60000});
    Write(rows);
    Show(BarIconX);
    EXPECT_TRUE(machine.Scroll.Shown);
    EXPECT_EQ(machine.Scroll.High, 31 - 12 + 1);
    EXPECT_EQ(Heading(), "Wages | 1");
    EXPECT_EQ(TextAt(ListWindow, LowerHeading), "11.1% | 60.00");
    EXPECT_EQ(TextAt(ListWindow, {0, TableTop(2), ColumnLimit, TableTop(3)}), "30");

    // Tapping the heading explains it and chooses the labels.
    struct {
        int X, Y;
        const char *Line;
        uint32_t Percent;
    } const heads[] = {{20, 8, "The title of", 0},
                       {20, 25, "% of the chart represented by", 1},
                       {100, 8, "The number of entries included in", 1},
                       {100, 25, "The total value of", 0}};
    for (const auto &head : heads) {
        TapList(head.X, head.Y);
        EXPECT_EQ(Line(1), head.Line);
        EXPECT_EQ(Line(2), "the currently selected bar instance");
        EXPECT_EQ(state.ShowPercent, head.Percent);
    }

    // Lists: what is chosen, the order it brings, and a tap beside that only closes.
    TapBox(GroupField);
    EXPECT_EQ(Line(0), "Bars can be constructed");
    TapList(60, 150);
    EXPECT_EQ(state.AnalysisGroup, static_cast<int>(ByName));
    EXPECT_EQ(state.DroppedList, static_cast<int>(NoDropList));
    constexpr struct {
        int Group, Order, Scrolls;
    } groups[] = {
        {BySign, HighestFirst, 0}, {ByMonth, FromAToZ, 1}, {ByFlag, LargestFirst, 1}, {ByName, LargestFirst, 1}};
    for (const auto &group : groups) {
        Pick(GroupList, group.Group - 1);
        EXPECT_EQ(state.AnalysisGroup, group.Group);
        EXPECT_EQ(state.AnalysisOrder, group.Order);
        EXPECT_EQ(machine.Scroll.Shown, group.Scrolls == 1);
        EXPECT_EQ(Line(1), "In this view, a bar is formed from");
        EXPECT_TRUE(Remains(ListWindow).empty()) << group.Group;
    }
    Pick(OrderList, SmallestFirst);
    EXPECT_EQ(Line(2), "smallest to largest (by magnitude)");
    EXPECT_EQ(Heading(), "N100 | 1");

    // The table goes with the stylus; both ends hold.
    Drag(190, ListY + TableTop(6) + 5, 190, ListY + TableTop(3) + 5);
    EXPECT_EQ(state.TopPos[GraphList], 4);
    Drag(190, ListY + TableTop(2) + 5, 190, ListY + TableTop(4) + 4); // 25 pixels are a tap
    EXPECT_EQ(state.TopPos[GraphList], 4);
    Drag(190, ListY + TableTop(2) + 5, 190, ListY + TableTop(9) + 5);
    EXPECT_EQ(state.TopPos[GraphList], 1);
    EXPECT_TRUE(Scroll(ScrollCode::Bottom));
    EXPECT_EQ(state.TopPos[GraphList], 20);
    EXPECT_TRUE(Scroll(ScrollCode::LineDown));
    EXPECT_EQ(state.TopPos[GraphList], 20);
    EXPECT_TRUE(Scroll(ScrollCode::ThumbTrack, 2));
    EXPECT_EQ(TextAt(ListWindow, {TableLeft, TableTop(1), TableRight, TableTop(2)}), "N101");

    // A stroke to the left stretches the bars by 3 up to 243, to the right back to 1.
    constexpr int Wanted[] = {3, 9, 27, 81, 243, 243};
    for (const int zoom : Wanted) {
        Drag(100, ListY + 100, 70, ListY + 100);
        EXPECT_EQ(state.BarZoom, zoom);
    }
    EXPECT_EQ(BarLeft(1500), 10);
    EXPECT_TRUE(BarIsCut(1500));
    for (int n = 0; n < 7; ++n)
        Drag(70, ListY + 100, 100, ListY + 100);
    EXPECT_EQ(state.BarZoom, 1);
    Drag(100, ListY + 100, 71, ListY + 100);
    EXPECT_EQ(state.BarZoom, 1);
    EXPECT_EQ(BarLeft(60000), 10);
    EXPECT_EQ(BarLeft(30000), 153 - 71);
    EXPECT_EQ(BarLeft(0), 153);

    SendKey(Key::RowUp);
    EXPECT_EQ(state.BarZoom, 3);
    SendKey(Key::RowDown);
    SendKey(Key::Stroke);
    EXPECT_EQ(state.ShowPercent, 1u);
    TapList(190, TableTop(1));
    SendKey(Key::Down);
    EXPECT_EQ(Heading(), "N102 | 1");
    SendKey(Key::Up);
    SendKey(Key::Up);
    EXPECT_EQ(state.TopPos[GraphList], 1);
    EXPECT_EQ(Heading(), "N100 | 1");
    SendKey(Key::Enter);
    SendKey(Key::Down);
    EXPECT_EQ(state.AnalysisGroup, static_cast<int>(ByCategory));
    SendKey(Key::Enter);
    SendKey(Key::Right);
    EXPECT_EQ(state.AnalysisOrder, static_cast<int>(SmallestFirst));
    SendKey(Key::Escape);
    EXPECT_EQ(state.DroppedList, static_cast<int>(NoDropList));
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(Charts, ASegmentIsFilteredByWhatItsEntriesShare) {
    const std::vector<Entry> entries = {{"a", -4000, 2025, 1, "x", 1, 0},
                                        {"b", 3000, 2026, 2, "", 2, 0},
                                        {"a", -2000, 2026, 1, "", 0, 0},
                                        {"c", 1000, 2024, 3, "x", 0, 0}};
    for (int group = ByName; group <= GroupCount; ++group) {
        if (group == ByCategory)
            continue; // all of these have none
        SCOPED_TRACE(group);
        Write(entries);
        Show(PieIconX);
        Pick(GroupList, group - 1);
        Pick(OrderList, FromAToZ);
        SendKey(Key::Down); // the second segment
        const std::vector<GRec> before = Segments();
        EXPECT_TRUE(SendCommand(ExcludeEntry));
        const std::vector<GRec> after = Segments();
        ASSERT_EQ(after.size(), group == BySign ? 2 : before.size() - 1);
        int32_t left = 0;
        for (const GRec &segment : after)
            left += segment.Entries;
        EXPECT_EQ(left, 4 - before[1].Entries);
        SendCommand(CommandFilterOff);
        EXPECT_EQ(Segments().size(), before.size());
        state.SelectedPos[GraphList] = 2;
        EXPECT_TRUE(SendCommand(ShowEntry));
        EXPECT_EQ(Segments()[group == BySign ? 1 : 0].Value, before[1].Value);
        SendCommand(CommandFilterOff);
        ShowScreen(AccountList);
    }
}

TEST_F(Charts, DebitsStandAgainstCredits) {
    Write({{"a", -30000}, {"b", -10000}, {"c", 10000}});
    Show(BarIconX);
    Pick(GroupList, BySign - 1);
    const auto column = [](int n) { return Rect{PairLeft[n], 36, PairLeft[n] + PairWidth, PairBase()}; };
    EXPECT_EQ(TextAt(ListWindow, column(0)), "10.00");
    EXPECT_EQ(TextAt(ListWindow, column(1)), "40.00");
    EXPECT_EQ(TextAt(ListWindow, {0, PairBase(), ScreenWidth, PairBase() + 20}), "20.0% | 30.00 | 80.0%");
    TapList(PairLeft[1] + 30, 150);
    EXPECT_EQ(Heading(), "- | 2");
    Pick(OrderList, LowestFirst); // the order chooses the side
    EXPECT_EQ(TextAt(ListWindow, column(0)), "40.00");
    SendKey(Key::Help);
    EXPECT_EQ(TextAt(ListWindow, column(1)), "10.00");
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(Charts, OtherAccountsAndViewsAreReadAnew) {
    Write({{"a", -1000, 2026, 3, "", 0, 0, 1}, {"b", 2000}});
    Show(PieIconX);
    EXPECT_EQ(Told(), "b 2000 x1, a -1000 x1");
    testhost::Tap(200, IconY); // the Balance title: the reconciled one
    EXPECT_EQ(Told(), "a -1000 x1, b 0 x1");
    testhost::Tap(200, IconY);
    SendKey(Key::Down);
    state.BarZoom = 9;
    SendKey(Key::Right);
    EXPECT_EQ(state.SelectedPos[GraphList], 1);
    EXPECT_EQ(state.BarZoom, 1);
    EXPECT_NE(Told(), "b 2000 x1, a -1000 x1");
    SendKey(Key::Left);
    testhost::Tap(120, 33); // the archive
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(Heading(), "");
    testhost::Tap(120, 33);
    EXPECT_EQ(Told(), "b 2000 x1, a -1000 x1");
    SendKey(Key::Help);
    EXPECT_EQ(TableRows(), 6);
    EXPECT_LE(TableBottom(), state.RowCount * RowHeight + 1);
    TapList(190, TableTop(2) + 3);
    EXPECT_EQ(Heading(), "a | 1");
    EXPECT_TRUE(Remains(ListWindow).empty());
}

} // namespace
