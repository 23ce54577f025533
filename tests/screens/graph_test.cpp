// The plots of the blue tab as an owner sees and works them, on the sample's Current account: 964 on 12 February, 764
// on the 21st, 516 on the 23rd, 171.02 on 9 March.
#include "analysis/extrapolation.h"
#include "analysis/graph_value.h"
#include "device.h"
#include "drawing/colours.h"
#include "resources/art.h"

namespace {

constexpr int ModeX[] = {0, 10, 30, 50, 70, 90}, CountX = 110, IconY = 50, ListY = 62;
constexpr Rect PlotBox = {0, 0, 240, 204};

class Graph : public Device {
protected:
    Graph() { ShowScreen(GraphList); }
    void Choose(int mode) { Tap(ModeX[mode], IconY); }
    static void TapPlot(int x, int y) { Tap(x, ListY + y); }
    static std::string Shown() { return TextAt(ListWindow, PlotBox); }
    // What the boxes show: value, percentage, date.
    static std::string Boxes() { return TextAt(ListWindow, {20, 0, 240, 20}); }
    // Places and words of the labels, so that a pixel's difference shows.
    static std::string Placed() {
        std::string all;
        for (const StandingText &text : TextsIn(ListWindow, PlotBox))
            all += text.Words + " " + std::to_string(text.Ink.Left) + "," + std::to_string(text.Ink.Top) + "; ";
        return all;
    }
};

TEST_F(Graph, ShowsTheBalanceWithAxesAndLabels) {
    EXPECT_EQ(state.GraphMode, PlainGraph);
    EXPECT_EQ(Placed(), "964 10,15; 0 23,164; 12 Feb 33,181; 9 Mar 201,181; 2026 37,191; 2026 202,191; ");
    for (const Point &on :
         {Point{33, 60}, {29, 170}, {223, 170}, {31, 22}, {35, 22}, {33, 174}, {221, 168}, {223, 144}})
        EXPECT_EQ(ColourAt(ListWindow, on.X, on.Y), Black) << on.X << ',' << on.Y;
    EXPECT_EQ(ColourAt(ListWindow, 35, 100), BrushColour(AxisRibbon));
    EXPECT_EQ(ColourAt(ListWindow, 35, 20), BrushColour(CurveRibbon)); // behind the first point
    const Colour grid = ColourAt(ListWindow, 60, 20);
    for (const Point &on : {Point{25, 95}, {51, 150}, {213, 150}, {213, 178}, {51, 13}})
        EXPECT_EQ(ColourAt(ListWindow, on.X, on.Y), grid) << on.X << ',' << on.Y;
    for (const Point &off : {Point{60, 5}, {60, 180}, {231, 50}})
        EXPECT_EQ(ColourAt(ListWindow, off.X, off.Y), White) << off.X << ',' << off.Y;
    EXPECT_EQ(ImageAt(ListWindow, 223, 144), PointMark); // the newest entry is selected
    EXPECT_EQ(TextAt(TopWindow, {0, 0, 240, 15}), "5 | 5 | Current account");
    EXPECT_FALSE(machine.Scroll.Shown);
}

TEST_F(Graph, ATapSelectsTheNearestPointAndTellsAboutIt) {
    TapPlot(96, 60);
    EXPECT_EQ(Ids(), "38,0,272,41,0,0");
    EXPECT_EQ(Shown(), "964 | ATM | 764 | 0 | 12 Feb | 21 Feb | 9 Mar | 2026 | 2026 | 2026");
    EXPECT_EQ(TextAt(TopWindow, {0, 0, 30, 15}), "2");
    EXPECT_EQ(ColourAt(ListWindow, 50, 52), ColourAt(ListWindow, 96, 176)); // the pointer, across and down
    EXPECT_EQ(state.PointerOn, 1U);

    // A label that the pointer's would cut is left out.
    TapPlot(36, 22);
    EXPECT_EQ(Shown(), "Opening balance | 964 | 0 | 12 Feb | 9 Mar | 2026 | 2026");
    TapPlot(100, 120); // 20 pixels or more from all
    EXPECT_EQ(Ids(), "2,3,0,0,0,0");
    EXPECT_EQ(state.PointerOn, 0U);
    EXPECT_EQ(state.SelectedEntry, 1) << "the selection stays";

    Press(96, ListY + 52); // a drag finds the points it passes
    Move(159, ListY + 90);
    EXPECT_EQ(state.SelectedEntry, 3);
    Release(159, ListY + 90);
    Press(10, 50);
    Move(96, ListY + 52); // but not one that began elsewhere
    Release(96, ListY + 52);
    EXPECT_EQ(state.SelectedEntry, 3);
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(Graph, KeysGoFromPointToPointAndOpenTheEntry) {
    for (const auto &[key, entry] : {std::pair(Key::Up, 3), {Key::Up, 2}, {Key::Up, 1}, {Key::Up, 1}, {Key::Down, 2}}) {
        SendKey(key);
        EXPECT_EQ(state.SelectedEntry, entry);
    }
    for (const Key key : {Key::Enter, Key::Modify}) {
        SendKey(key);
        ASSERT_EQ(state.ActiveDialog, TransactionDialog);
        EXPECT_EQ(ControlText(TitleField), "ATM");
        SetText(WholeField, key == Key::Enter ? "300" : "200");
        Tick();
        ASSERT_EQ(state.CurrentScreen, GraphList);
        EXPECT_EQ(state.SelectedEntry, 2);
        EXPECT_EQ(Shown().find("764") == std::string::npos, key == Key::Enter);
    }
    DoubleTap(159, ListY + 90); // nothing but a second press
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(state.SelectedEntry, 3);
    SendKey(Key::Right);
    EXPECT_EQ(Shown().substr(0, 4), "9.0k");
    EXPECT_EQ(state.PointerOn, 0U);
    ShowScreen(TransactionList);
    ShowScreen(GraphList);
    EXPECT_EQ(TextAt(TopWindow, {47, 0, 193, 15}), "Savings account");
}

TEST_F(Graph, CommandsWorkOnTheSelectedPointAlone) {
    TapPlot(96, 52);
    ASSERT_TRUE(SendCommand(CommandDeleteOne));
    EXPECT_EQ(Entries(), "Opening balance,Rent,Monday,Visa payment");
    EXPECT_EQ(state.CurrentScreen, GraphList);
    EXPECT_EQ(Accounts()[0].Balance, 716000);
    EXPECT_EQ(TextAt(TopWindow, {210, 0, 240, 15}), "4");

    SendKey(Key::Up);
    ASSERT_TRUE(SendCommand(ShowName));
    EXPECT_EQ(state.FilterShown, 1U);
    EXPECT_EQ(TextAt(TopWindow, {210, 0, 240, 15}), "2"); // the opening and the marker
    EXPECT_FALSE(SendCommand(CommandDeleteOne));          // greyed; a key is refused as well
    SendKey(Key::Delete);
    EXPECT_EQ(state.EntryCount[BinList], 1);
    ASSERT_TRUE(SendCommand(CommandFilterOff));

    // Without points there is nothing to work on.
    for (const int mode : {Extrapolation, BarChart}) {
        Choose(mode);
        machine.Beeps = 0;
        SendKey(Key::Delete);
        SendKey(Key::Modify);
        EXPECT_EQ(machine.Beeps, 2);
        EXPECT_EQ(state.ActiveDialog, NoDialog);
    }
    EXPECT_EQ(Entries(), "Opening balance,Rent,Monday,Visa payment");

    Choose(PlainGraph);
    TapPlot(33, 20);
    SendKey(Key::Down);
    ASSERT_TRUE(SendCommand(CommandArchive));
    EXPECT_EQ(state.CurrentScreen, GraphList);
    EXPECT_EQ(Names<TRec>("E1_02R1"), "Opening balance,Rent");
}

TEST_F(Graph, NoOtherEntryGoesWhenMidnightMovedTheRows) {
    EXPECT_EQ(state.SelectedEntry, 5); // the Visa payment, behind the Day marker
    SetClock(2026, 3, 12);             // the marker now belongs behind it
    machine.Beeps = 0;
    SendKey(Key::Delete);
    EXPECT_EQ(machine.Beeps, 1);
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Visa payment,Thursday");
    EXPECT_EQ(state.SelectedEntry, 4);
    SendKey(Key::Delete);
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Thursday");
}

TEST_F(Graph, TheLineOfBestFitStandsBehindTheCurveAndAboveItAgain) {
    Choose(Regression);
    EXPECT_EQ(state.LineEnds[0].Y, 15);
    EXPECT_EQ(state.LineEnds[1].Y, 138);
    // Its ribbon is whole again where the curve, whose ribbon would cover it, lies below.
    for (const int x : {200, 210, 219})
        EXPECT_TRUE(ColourIn(ListWindow, {x, 110, x + 1, 137}, BrushColour(HeaderBrush))) << x;
    EXPECT_EQ(Placed(), "964 10,15; 0 23,164; 12 Feb 33,181; 9 Mar 201,181; 2026 37,191; 2026 202,191; ");
}

TEST_F(Graph, TheExtrapolationAnswersBothWays) {
    Choose(Extrapolation);
    EXPECT_EQ(Boxes(), "2 | 0 | 6 | 0 | % | 9 | Mar | 2026");
    EXPECT_EQ(Placed().substr(Placed().find("996")),
              "996 10,33; 0 23,162; 12 Feb 33,179; 9 Mar 201,179; 2026 37,189; 2026 202,189; ");
    static constexpr struct {
        int X, Y;
        const char *Boxes, *Lines;
    } taps[] = {
        {165, 10, "1 | 7 | 4 | 0 | % | 10 | Mar | 2026", "0,276,0,277,0,0"}, // a day on
        {93, 3, "1 | 8 | 4 | 0 | % | 9 | Mar | 2026", "0,274,0,275,0,0"},    // 10 more
        {130, 19, "2 | 0 | 8 | 1 | % | 9 | Mar | 2026", "278,0,279,281,0,0"},
        {148, 10, "2 | 0 | 8 | 1 | % | 9 | Mar | 2026", "279,280,0,282,0,0"},
        {130, 10, "2 | 0 | 8 | 2 | % | 9 | Mar | 2026", "278,0,279,280,0,0"},
        {10, 10, "2 | 0 | 8 | 0 | % | 8 | Mar | 2026", "0,283,0,284,0,0"}, // the percentage was selected
        {115, 10, "2 | 0 | 8 | 0 | % | 8 | Mar | 2026", "279,281,0,282,0,0"},
    };
    for (const auto &tap : taps) {
        TapPlot(tap.X, tap.Y);
        EXPECT_EQ(Boxes(), tap.Boxes) << &tap - taps;
        EXPECT_EQ(Ids(), tap.Lines) << &tap - taps;
    }
    TapPlot(100, 2); // above what the boxes hear
    EXPECT_EQ(state.BoxSelection, NoBox);
    TapPlot(128, 90);
    EXPECT_EQ(Ids(), "273,0,264,265,0,0");
    EXPECT_EQ(state.PointerOn, 1U);
    EXPECT_TRUE(Remains(ListWindow).empty());

    Tap(CountX, IconY);
    EXPECT_EQ(Ids(), "0,269,0,270,0,0");
    TapPlot(220, 10);
    EXPECT_EQ(state.TargetDate.Year, 2025U);
    EXPECT_EQ(state.PointerOn, 0U);
    EXPECT_EQ(ColourAt(ListWindow, 205, 8), BrushColour(PressedGold)); // selected
    for (int n = 0; n < 60; ++n)
        TapPlot(130, 10);
    EXPECT_EQ(state.ExtrapPercent, -50);
    EXPECT_EQ(TextsIn(ListWindow, {121, 0, 140, 20}).at(0).InkColour, AlertRed);
}

TEST_F(Graph, ArrowKeysWorkTheBoxesAndWithoutOneTheAccounts) {
    Choose(Extrapolation);
    TapPlot(104, 10); // the units
    const int32_t value = state.ExtrapValue;
    SendKey(Key::Left);
    SendKey(Key::Up);
    EXPECT_EQ(state.ExtrapValue, value + 10);
    SendKey(Key::Down);
    SendKey(Key::Down);
    EXPECT_EQ(state.ExtrapValue, value - 10);
    EXPECT_EQ(state.SelectedPos[AccountList], 1);
    TapPlot(128, 90); // a tap on the line gives the boxes up
    SendKey(Key::Right);
    EXPECT_EQ(state.SelectedPos[AccountList], 2);
    EXPECT_EQ(state.GraphMode, Extrapolation);
    SendKey(Key::Up); // no box: nothing
    const uint32_t list = MakeAccount("Things", ListRow);
    ASSERT_EQ(state.CurAccount.ID, list);
    ShowScreen(GraphList);
    EXPECT_EQ(state.GraphMode, Regression) << "a List account has no dates to foretell";
    machine.Beeps = 0;
    Choose(Extrapolation);
    EXPECT_EQ(machine.Beeps, 1);
    EXPECT_EQ(Ids(), "0,263,0,287,0,0");
}

TEST_F(Graph, EveryTitleAndBoxIsWithinReachOfKeys) {
    for (const int mode : {Regression, Extrapolation}) {
        SendKey(Key::Title1);
        EXPECT_EQ(state.GraphMode, mode);
    }
    SendKey(Key::Enter);
    SendKey(Key::Up);
    EXPECT_EQ(Boxes(), "1 | 7 | 4 | 0 | % | 10 | Mar | 2026");
    SendKey(Key::Enter); // given up: the arrows go to the accounts again
    SendKey(Key::Right);
    EXPECT_EQ(state.SelectedPos[AccountList], 2);
    SendKey(Key::Title2);
    EXPECT_EQ(state.IncrementMode, 0U);
    SendKey(Key::Title4);
    EXPECT_EQ(state.ReconciledView, 1U);
    SendKey(Key::Title3);
    EXPECT_EQ(state.BalanceView, 0U);
    for (const int mode : {BarChart, PieChart, PlainGraph, Regression}) {
        SendKey(Key::Title1);
        EXPECT_EQ(state.GraphMode, mode);
    }
    MakeAccount("Things", ListRow);
    ShowScreen(GraphList);
    ASSERT_EQ(state.GraphMode, Regression);
    SendKey(Key::Title1);
    EXPECT_EQ(state.GraphMode, BarChart);
}

TEST_F(Graph, TheBoxesLastUntilTheAccountChanges) {
    Choose(Extrapolation);
    TapPlot(220, 10); // a year on
    Choose(Regression);
    ShowScreen(AccountList);
    ShowScreen(GraphList);
    Choose(Extrapolation);
    EXPECT_EQ(state.TargetDate.Year, 2027U);
    static constexpr struct {
        const char *What;
        void (*Do)();
    } changes[] = {
        {"another measure", [] { Tap(140, IconY); }},
        {"its balance", [] { Tap(200, IconY); }},
        {"the archive view and back", [] { Tap(120, 30), Tap(120, 30); }},
        {"another account and back", [] { SendKey(Key::Right), SendKey(Key::Left); }},
        {"an entry", [] { ShowScreen(TransactionList), StrokeRow(2), ShowScreen(GraphList); }},
    };
    for (const auto &change : changes) {
        change.Do();
        EXPECT_EQ(state.TargetDate.Year, 2026U) << change.What;
        TapPlot(220, 10);
        EXPECT_EQ(state.TargetDate.Year, 2027U) << change.What;
        SendKey(Key::Help); // keeps them
        SendKey(Key::Help);
        EXPECT_EQ(state.TargetDate.Year, 2027U) << change.What;
        TapPlot(128, 90); // no box selected for the arrow keys
    }
}

TEST_F(Graph, TheLinkOfThePercentageSurvivesARestart) {
    Choose(Extrapolation);
    TapPlot(148, 10);
    ASSERT_EQ(state.PercentLink, LinkDate);
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.PercentLink, LinkDate);
}

TEST_F(Graph, StarsStandForWhatTheBoxesCannotShow) {
    Choose(Extrapolation);
    TapPlot(25, 10); // ten millions
    EXPECT_EQ(Boxes().substr(0, 29), "* | * | * | * | * | * | * | *");
    state.TargetDate = DateFromDayNumber(LastDayNumber);
    state.Paint[GraphList](ListWindow, 1023);
    EXPECT_EQ(TextAt(ListWindow, {157, 0, 240, 20}), "** | *** | ****");
    EXPECT_EQ(TextAt(ListWindow, {193, 175, 240, 204}), "1 Jan | 10000"); // the axis tells it
}

TEST_F(Graph, AccountsOfFewEntriesShowWhatTheyHave) {
    MakeAccount("Empty", BankRow);
    while (!Rows(state.CurAccount.ID).empty())
        ASSERT_TRUE(SendCommand(CommandDeletePreceding) || SendCommand(CommandDeleteOne));
    for (const int mode : {PlainGraph, Regression, Extrapolation}) {
        ShowScreen(GraphList);
        Choose(mode);
        EXPECT_EQ(TextAt(ListWindow, {0, 20, 240, 204}), "0") << mode;
        TapPlot(100, 100);
        SendKey(Key::Up);
        SendKey(Key::Enter);
        EXPECT_EQ(state.ActiveDialog, NoDialog);
        EXPECT_EQ(state.PointerOn, 0U);
    }
    EXPECT_EQ(ColourAt(ListWindow, 33, 100), Black); // the axis
}

TEST_F(Graph, DebitsAreToldInRed) {
    Tap(140, IconY); // the value column
    EXPECT_EQ(Ids(), "0,227,0,0,0,0");
    // 964, -200, -248, -344.98
    EXPECT_EQ(Placed(), "964 10,15; 0 23,124; 344 10,164; 12 Feb 33,181; 9 Mar 201,181; 2026 37,191; 2026 202,191; ");
    EXPECT_EQ(TextsIn(ListWindow, {1, 160, 30, 180}).at(0).InkColour, AlertRed);
    EXPECT_EQ(ColourAt(ListWindow, 31, 168), Black); // the lower arrow
}

TEST_F(Graph, AboveTheMessageWindowTheSamePlotIsLower) {
    TapPlot(96, 52);
    SendKey(Key::Help);
    EXPECT_EQ(state.SamplePt[2].Y, 30);
    EXPECT_EQ(TextAt(ListWindow, {0, 0, 240, 119}), "964 | ATM | 764 | 0 | 12 Feb | 21 Feb | 9 Mar");
    TapPlot(159, 52);
    EXPECT_EQ(state.SelectedEntry, 3);
    EXPECT_TRUE(Remains(ListWindow).empty());
    EXPECT_NE(state.LeftEye, 9); // the eyes look at the point
}

TEST_F(Graph, TheStripBesideTheIconsHasTheFlagOfTheEntry) {
    TapPlot(96, 52);
    EXPECT_EQ(ColourAt(TopWindow, 1, 25), FlagColour(1));
    SendKey(Key::Modify);
    SendKey(Key::FlagPart);
    Tick();
    EXPECT_EQ(ColourAt(TopWindow, 1, 25), FlagColour(2));
    SendKey(Key::Down);
    EXPECT_EQ(ColourAt(TopWindow, 1, 25), BrushColour(TitleBrush));
    Choose(Extrapolation); // no entry is told there
    EXPECT_EQ(ColourAt(TopWindow, 1, 25), BrushColour(TitleBrush));
}

} // namespace
