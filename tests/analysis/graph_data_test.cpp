// Which entries are plotted, what they are worth, and on which pixels they stand.
#include "plot.h"

namespace {

TEST_F(Plot, PutsEveryValueOnItsPixel) {
    static const struct {
        std::vector<int64_t> Balances;
        int Mode;
        bool Messages;
        int64_t Zero;
        const char *Points;
    } cases[] = {
        {{}, PlainGraph, false, 165, ""},
        {{40}, PlainGraph, false, 165, "33,20"},
        {{100, 200}, PlainGraph, false, 165, "33,95 223,20"},
        {{100, 200}, Extrapolation, false, 143, "33,103 223,38"},
        {{100, -50, 300}, Regression, false, 143, "33,106 128,169 223,20"},
        {{100, -50, 300}, Regression, true, 143, "33,61 128,98 223,11"},
        {{70, 70, 70, 70}, PlainGraph, false, 165, "33,20 96,20 159,20 223,20"},
        {{-100, -300, -200}, PlainGraph, false, 15, "33,70 128,170 223,120"},
        {{-100, -300, -200}, PlainGraph, true, 15, "33,40 128,99 223,70"},
        {{0, 0}, PlainGraph, false, 165, "33,170 223,170"},
        {{1000000000, 2000000000}, PlainGraph, false, 165, "33,95 223,20"},
        {{-9000000000000000, 9000000000000000}, PlainGraph, false, 89, "33,168 223,20"}, // cut to what can be plotted
    };
    for (const auto &row : cases) {
        Load(row.Balances, row.Mode, row.Messages);
        EXPECT_EQ(Points(), row.Points);
        EXPECT_EQ(state.PlotZero, row.Zero) << row.Points;
    }
}

TEST_F(Plot, TheLastSampleStandsAtTheRightEdgeForEveryCount) {
    for (size_t count = 2; count <= 100; ++count) {
        Load(std::vector<int64_t>(count, 1));
        EXPECT_EQ(state.SamplePt[1].X, 33);
        EXPECT_EQ(state.SamplePt[count].X, 223) << count;
    }
}

TEST_F(Plot, TakesTheNewestHundredAndLeavesDayMarkersOut) {
    std::vector<int64_t> balances;
    for (int n = 1; n <= 130; ++n)
        balances.push_back(n % 2 ? n : -n);
    std::vector<TRec> rows = Balances(balances);
    for (const size_t marker : {129U, 120U, 119U, 118U, 117U, 60U})
        rows[marker].RowKind = DayMarker;
    rows[100].RowKind = ArchiveMarker; // all other kinds are plotted
    Write(rows);
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleTotal, 130);
    EXPECT_EQ(state.SampleCount, 100);
    EXPECT_EQ(state.SamplePos[100], 129);
    EXPECT_EQ(state.SamplePos[92], 117);
    EXPECT_EQ(state.SamplePos[1], 25);
    EXPECT_EQ(state.SampleMax, 129000);
    EXPECT_EQ(state.MaxIndex, 100);
    EXPECT_EQ(state.SampleMin, -128000);
    EXPECT_EQ(state.MinIndex, 99);

    for (const size_t count : {100U, 101U}) {
        Load(std::vector<int64_t>(balances.begin(), balances.begin() + static_cast<long>(count)));
        EXPECT_EQ(state.SampleCount, 100);
        EXPECT_EQ(state.SamplePos[1], static_cast<int>(count) - 99);
    }
}

TEST_F(Plot, TheNewestOfEqualExtremesKeepsTheIndex) {
    Load({5, -5, 5, -5, 0});
    EXPECT_EQ(state.MaxIndex, 3);
    EXPECT_EQ(state.MinIndex, 4);
}

TEST_F(Plot, AFileThatCannotBeReadGivesAnEmptyPlotAndIsReported) {
    Shown = LiveRows(0);
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount, 0);
    Shown = LiveRows(5);
    disk.Switches.Unwritable = true; // nor can the file be made
    const size_t told = machine.Terminal.size();
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount + state.SampleTotal, 0);
    ASSERT_GT(machine.Terminal.size(), told);
    EXPECT_NE(machine.Terminal.back().find("LoadTranFile TcreateFail"), std::string::npos) << machine.Terminal.back();

    ResetDisk();
    std::vector<TRec> rows = Balances({1, 2, 3});
    rows[0].Version = 2;
    Write(rows);
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount, 0);
    EXPECT_EQ(state.DataUsable, 0U);
}

TEST_F(Plot, ReadsTheFileOfTheViewAndOfTheFilter) {
    Write(Balances({1, 2, 3}));
    Write(Balances({1, 2}), "E1_02R5");
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount, 3);
    state.ExtrapReload = 0;
    LoadGraphData(Shown);
    EXPECT_EQ(state.ExtrapReload, 0U);
    state.SelectedEntry = 1;
    Shown = RowsOf(5, View::Archive);
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount, 2);
    EXPECT_EQ(state.SelectedEntry, 2) << "other entries: the last one is selected";
    EXPECT_EQ(state.ExtrapReload, 1U);
    Shown = LiveRows(5);
    LoadGraphData(Shown);
    state.ExtrapReload = 0;
    Write(Balances({1}), "E1_02AF5");
    LoadGraphData(Shown);
    EXPECT_EQ(state.SampleCount, 1);
    EXPECT_EQ(state.ExtrapReload, 1U);
}

TEST_F(Plot, AnEntryIsWorthWhatTheColumnShows) {
    TRec row;
    InitTRec(&row);
    row.Units = 7;
    row.Value = 1100;
    row.ClearedValue = 1300;
    row.CashAmount = 50;
    row.RunUnits = 20;
    row.RunClearedUnits = 10;
    row.RunTotal = 9000;
    row.RunCleared = 8000;
    enum { None = 0, Cleared = 1, Cash = 2, NoCash = 4 };
    static constexpr struct {
        int Kind;
        bool Balance, Reconciled, Chart;
        int Flags;
        FixedAmount Value;
    } cases[] = {
        {BankAccount, true, false, false, None, 9000},
        {ListAccount, true, true, false, None, 8000},
        {ShareNumber, true, false, false, None, 31000},
        {ShareCash, true, true, false, None, 21000},
        {BankAccount, true, false, true, None, 7700},
        {BankAccount, false, false, false, None, 7700},
        {BankAccount, false, true, false, None, 0},
        {BankAccount, false, false, true, Cash, 7700},
        {ListAccount, false, false, false, None, 7700},
        {ListAccount, false, true, false, Cleared, 7700},
        {ShareNumber, false, false, false, Cash, 7000},
        {ShareNumber, false, false, true, Cash, 0},
        {ShareNumber, false, false, false, NoCash, 7000},
        {ShareNumber, false, true, false, None, 0},
        {ShareNumber, false, true, true, Cleared, 7000},
        {SharePrice, false, false, false, Cash, 1100},
        {SharePrice, false, true, false, None, 1300},
        {SharePrice, false, true, true, Cash, 0},
        {ShareTotal, false, false, false, None, 20000},
        {ShareTotal, false, true, false, None, 10000},
        {ShareTotal, false, false, true, Cash, 0},
        {ShareTotal, false, false, false, NoCash, 20000},
        {ShareValue, false, false, false, None, 7700},
        {ShareValue, false, false, false, Cash, 50},
        {ShareValue, false, false, false, NoCash, 0},
        {ShareValue, false, true, false, Cash, 0},
        {ShareValue, false, true, false, Cash | Cleared, 50},
        {ShareCash, false, false, false, None, 9000},
        {ShareCash, false, true, false, None, 8000},
        {ShareCash, false, false, true, Cash, 9000},
        {CashPart, false, false, true, Cash, 50},
        {CashPart, false, false, true, None, 0},
        {CashPart, false, true, true, Cash, 0},
        {CashPart, false, false, false, NoCash, 0},
        {99, false, false, false, None, 0},
    };
    for (const auto &one : cases) {
        state.AccountKind = one.Kind;
        state.BalanceView = one.Balance;
        state.ReconciledView = one.Reconciled;
        row.Cleared = (one.Flags & Cleared) != 0;
        row.Cash = (one.Flags & Cash) != 0;
        row.NoCash = (one.Flags & NoCash) != 0;
        EXPECT_EQ(GetGraphValue(row, one.Chart ? CountedIn::Segment : CountedIn::Plot), one.Value) << &one - cases;
    }
    state.AccountKind = ShareNumber;
    state.BalanceView = state.ReconciledView = 0;
    state.GraphMode = PlainGraph;
    row.Units = 2147483;
    EXPECT_EQ(GetGraphValue(row), 2147483000);
    row.Units = 2147484; // wraps at 32 bits, deliberately
    EXPECT_EQ(GetGraphValue(row), -2147483296);
}

TEST_F(Plot, AxisAmountsAreShort) {
    static constexpr struct {
        FixedAmount Value;
        const char *Text;
    } cases[] = {
        {0, "0"},
        {99, "0"},
        {100, "0.10"},
        {101, "0.20"},
        {-2300, "2.30"},
        {9999, "10.00"},
        {10000, "10.0"},
        {45099, "45.1"},
        {99999, "100.0"},
        {100000, "100"},
        {999999, "999"},
        {1000000, "1.0k"},
        {1001000, "1.1k"},
        {9999999, "10.0k"},
        {10000000, "10k"},
        {99999000, "100k"},
        {989999999, "990k"},
        {990000000, "1.0M"},
        {9899999000, "9.9M"},
        {9900000000, "10M"},
        {100000999999, "101M"},
        {100001000000, "* ! *"},
        {INT64_MIN, "* ! *"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(Utf8(Ystr(row.Value)), row.Text) << row.Value;
}

TEST_F(Plot, TheNearestPointIsTakenWithinTwentyPixels) {
    Load({100, -50, 300}); // 33,106 128,169 223,20
    static constexpr struct {
        int X, Y, Sample;
    } cases[] = {{33, 106, 1}, {52, 125, 1}, {53, 106, 0}, {33, 86, 0}, {120, 150, 2}, {239, 39, 3}, {239, 40, 0}};
    for (const auto &row : cases)
        EXPECT_EQ(SampleNear(row.X, row.Y), row.Sample) << row.X << ',' << row.Y;
    state.SamplePt[2] = {43, 106};
    EXPECT_EQ(SampleNear(38, 106), 1) << "the earlier of two as near";
    EXPECT_EQ(SampleOfEntry(0), 1);
    EXPECT_EQ(SampleOfEntry(2), 2);
    EXPECT_EQ(SampleOfEntry(9), 3);
}

} // namespace
