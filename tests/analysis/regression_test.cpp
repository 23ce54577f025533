// The line of best fit and what it foretells, in worked values.
#include "plot.h"

namespace {

TEST_F(Plot, TheLineRunsWhereTheValuesHaveIt) {
    static const struct {
        std::vector<int64_t> Balances;
        bool Messages;
        int Left, Right, First;
    } cases[] = {
        {{100, 200}, false, 95, 20, 100},
        {{100, -50, 300}, false, 141, 55, 15},
        {{100, -50, 300}, true, 81, 31, 18},
        {{70, 70, 70, 70}, false, 20, 20, 70},
        {{-100, -300, -200}, false, 95, 145, -150},
        {{0, 0}, false, 170, 170, 0},
        {{1000000000, 2000000000}, false, 95, 20, 999999936}, // what single precision can hold
    };
    for (const auto &row : cases) {
        Load(row.Balances, Regression, row.Messages);
        ASSERT_TRUE(CalcRegression());
        ASSERT_TRUE(SetLineEnds());
        EXPECT_EQ(state.LineEnds[0].Y, row.Left) << row.First;
        EXPECT_EQ(state.LineEnds[1].Y, row.Right) << row.First;
        EXPECT_EQ(state.LineEnds[1].X, 223);
        EXPECT_EQ(state.FirstValue, row.First);
    }
    for (const std::vector<int64_t> &few : {std::vector<int64_t>{}, {5}}) {
        Load(few, Regression);
        state.RegSlope = 42;
        EXPECT_FALSE(CalcRegression());
        EXPECT_FALSE(SetLineEnds());
        EXPECT_EQ(state.RegSlope, 42);
    }
}

TEST_F(Plot, TheLineShowsWhereItStandsAboveTheCurve) {
    const Point valley[] = {{0, 10}, {10, 30}, {20, 10}};
    const Point level[] = {{0, 20}, {20, 20}};
    Stretch found[3];
    ASSERT_EQ(LineAboveCurve(0, 20, valley, 3, level, found), 1);
    EXPECT_EQ(found[0].From.X, 5);
    EXPECT_EQ(found[0].From.Y, 20);
    EXPECT_EQ(found[0].To.X, 15);
    EXPECT_EQ(found[0].To.Y, 21); // one row lower
    const Point hill[] = {{0, 30}, {10, 10}, {20, 30}};
    ASSERT_EQ(LineAboveCurve(0, 20, hill, 3, level, found), 1); // a stretch begins where a vertex lies below the line
    EXPECT_EQ(found[0].From.X, 15);
    EXPECT_EQ(found[0].To.X, 20); // open to the line's end
    EXPECT_EQ(found[0].To.Y, 20);
    const Point low[] = {{0, 30}, {10, 40}, {20, 30}};
    ASSERT_EQ(LineAboveCurve(0, 20, low, 3, level, found), 1);
    EXPECT_EQ(found[0].From.X, 0); // from the line's start
    const Point high[] = {{0, 1}, {10, 2}, {20, 1}};
    EXPECT_EQ(LineAboveCurve(0, 20, high, 3, level, found), 0);
}

// 100 on 1 January and 200 on 11 January: 10 a day.
class Foretold : public Plot {
protected:
    static constexpr uint32_t First = 155229; // 1 January 2026, 60 days before today
    Foretold() {
        std::vector<TRec> rows = Balances({100, 200}, First);
        rows[1].Date = DateFromDayNumber(First + 10);
        Begin(rows);
    }
    void Begin(const std::vector<TRec> &rows) {
        state.GraphMode = Extrapolation;
        Write(rows);
        LoadGraphData(Shown);
        RebuildExtrapolation();
        ScaleExtrapolation();
    }
    static std::string Target() {
        const RecDate &date = state.TargetDate;
        return std::to_string(date.Year) + '-' + std::to_string(date.Month) + '-' + std::to_string(date.Day);
    }
};

TEST_F(Foretold, ADateGivesAValue) {
    EXPECT_EQ(Target(), "2026-1-11");
    EXPECT_EQ(state.ExtrapValue, 200);
    EXPECT_EQ(state.DaySpan, 10);
    EXPECT_EQ(state.RowsPerDay, 19);
    static constexpr struct {
        int Day, Straight, Up, Down; // from the first day; bent by 50 and -50 per cent around today
    } cases[] = {{0, 100, -200, 400},     {10, 200, -50, 450}, {60, 700, 700, 700},
                 {365, 3750, 5275, 2225}, {-10, 0, -350, 350}, {-100, -900, -1700, -100}};
    for (const auto &row : cases) {
        for (const auto &[percent, value] : {std::pair(0, row.Straight), {50, row.Up}, {-50, row.Down}}) {
            state.ExtrapPercent = percent;
            EXPECT_EQ(PredictValue(First + row.Day), value) << row.Day << " with " << percent;
        }
        state.GraphMode = Regression; // knows no percentage
        EXPECT_EQ(PredictValue(First + row.Day), row.Straight);
        state.GraphMode = Extrapolation;
    }
    state.ExtrapPercent = 0;
    EXPECT_EQ(PredictValue(LastDayNumber), 10000000);
    EXPECT_EQ(PredictValue(int64_t{First} - 2000000), -10000000);
}

TEST_F(Foretold, AValueGivesADate) {
    static constexpr struct {
        int Value, Straight, After,
            Before; // days from the first; the last two with 50 per cent, the target on that side
    } cases[] = {{100, 0, -19, 20}, {200, 10, -6, 26},         {205, 10, -6, 27},
                 {0, -10, -33, 13}, {-5000, -510, -700, -320}, {9999999, 999989, 666679, 1333299}};
    for (const auto &row : cases) {
        state.ExtrapPercent = 0;
        EXPECT_EQ(PredictDate(First + 10, row.Value), First + static_cast<uint32_t>(row.Straight)) << row.Value;
        state.ExtrapPercent = 50;
        EXPECT_EQ(PredictDate(First + 365, row.Value), First + static_cast<uint32_t>(row.After)) << row.Value;
        EXPECT_EQ(PredictDate(First + 10, row.Value), First + static_cast<uint32_t>(row.Before)) << row.Value;
    }
    state.ExtrapPercent = 0;
    EXPECT_EQ(PredictDate(First, -3000000), FirstDayNumber);
    state.UnitsPerRow = 1.0e-4F; // so flat that it takes longer than there are dates
    EXPECT_EQ(PredictDate(First, 10000000), LastDayNumber);
}

TEST_F(Foretold, AFlatLineHasNoAnswer) {
    Begin(Balances({70, 70, 70}));
    EXPECT_EQ(PredictValue(First + 5000), 70);
    EXPECT_EQ(PredictDate(First, 71), LastDayNumber);
    Begin(Balances({0, 0}));
    EXPECT_EQ(PredictValue(First + 5000), 0);
    EXPECT_EQ(PredictDate(First, -1), LastDayNumber);
}

TEST_F(Foretold, FewEntriesOneDayAndTheEndsOfTheRangeAreSafe) {
    for (const std::vector<int64_t> &few : {std::vector<int64_t>{}, {5}}) {
        state.ExtrapReload = 1;
        Begin(Balances(few, Today));
        EXPECT_EQ(state.ExtrapValue, 0);
        EXPECT_EQ(Target(), "2026-3-2"); // without an entry today as well
        EXPECT_EQ(PredictValue(First), 0) << "of no earlier account";
    }
    std::vector<TRec> rows = Balances({100, 200}, Today);
    rows[1].Date = rows[0].Date;
    Begin(rows);
    EXPECT_EQ(state.DaySpan, 1);
    EXPECT_EQ(state.RowsPerDay, 190);
    EXPECT_EQ(state.LeftDate.DayNumber, Today - 1); // the plot keeps the width of a day
    for (const uint32_t end : {FirstDayNumber, LastDayNumber}) {
        rows[0].Date = rows[1].Date = DateFromDayNumber(end);
        Begin(rows);
        EXPECT_EQ(state.TargetDate.DayNumber, end);
        EXPECT_EQ(state.LeftDate.DayNumber, end - 1);
    }
    rows[0].Date.DayNumber = 0;
    rows[1].Date.DayNumber = UINT32_MAX;
    Begin(rows); // as a damaged file may have it
    PredictDate(state.TargetDate.DayNumber, 1);
    Begin(Balances({-9000000000000000, 9000000000000000}));
    EXPECT_EQ(state.ExtrapValue, 10000000);
}

TEST_F(Foretold, TheLeftEndStaysAtTheFirstSampleUnlessTheTargetPassesIt) {
    static constexpr struct { int Target, Left; } cases[] = {{100, 0}, {0, -1}, {-5, -6}, {1, 0}, {20, 0}};
    for (const auto &row : cases) {
        state.TargetDate = DateFromDayNumber(First + static_cast<uint32_t>(row.Target));
        ScaleExtrapolation();
        EXPECT_EQ(static_cast<int>(state.LeftDate.DayNumber - First), row.Left) << row.Target;
    }
    EXPECT_EQ(state.LeftValue, 100000);
    EXPECT_EQ(state.TargetValue, 300000);
    EXPECT_EQ(state.SampleMin, 0);
    SetLineEnds();
    EXPECT_EQ(state.LineEnds[0].Y, 125);
    EXPECT_EQ(state.LineEnds[1].Y, 38);
}

// Boxes by what a tap at x means, and what follows from a step.
TEST_F(Foretold, EveryColumnOfTheBoxRowHasOneMeaning) {
    static constexpr struct {
        int From, To, Kind, Index;
    } cases[] = {{0, 20, ZeroBox, 1},          {21, 33, ValueBox, 8},     {34, 43, ValueBox, 7},
                 {44, 56, ValueBox, 6},        {57, 66, ValueBox, 5},     {67, 76, ValueBox, 4},
                 {77, 89, ValueBox, 3},        {90, 99, ValueBox, 2},     {100, 109, ValueBox, 1},
                 {110, 120, NoBox, LinkValue}, {121, 139, PercentBox, 1}, {140, 156, NoBox, LinkDate},
                 {157, 175, DateBox, 1},       {176, 204, DateBox, 2},    {205, 239, DateBox, 3}};
    int x = 0;
    for (const auto &row : cases) {
        EXPECT_EQ(x, row.From);
        for (; x <= row.To; ++x) {
            EXPECT_EQ(BoxAt(x).Kind, row.Kind) << x;
            EXPECT_EQ(BoxAt(x).Index, row.Index) << x;
        }
    }
}

TEST_F(Foretold, TheOtherSideFollowsAStep) {
    static constexpr struct {
        int Kind, Index, Up, Link;
        const char *Target;
        int Value, Percent;
    } steps[] = {
        {DateBox, DayPart, 1, LinkValue, "2026-1-12", 210, 0},
        {DateBox, MonthPart, 1, LinkValue, "2026-2-12", 520, 0},
        {DateBox, YearPart, 0, LinkValue, "2025-2-12", -3130, 0},
        {DateBox, YearPart, 1, LinkValue, "2026-2-12", 520, 0},
        {ValueBox, 2, 1, LinkValue, "2026-2-13", 530, 0},
        {ValueBox, 1, 0, LinkValue, "2026-2-12", 529, 0},
        {PercentBox, 1, 1, LinkValue, "2026-2-12", 519, 1},
        {PercentBox, 1, 0, LinkValue, "2026-2-12", 520, 0},
        {PercentBox, 1, 0, LinkDate, "2026-2-11", 520, -1},
        {ValueBox, 8, 1, LinkValue, "4736-3-24", 10000000, -1},
    };
    for (const auto &step : steps) {
        state.BoxSelection = step.Kind;
        state.BoxIndex = step.Index;
        state.PercentLink = step.Link;
        EXPECT_TRUE(StepBox(step.Up));
        const auto at = &step - steps;
        EXPECT_EQ(Target(), step.Target) << at;
        EXPECT_EQ(state.ExtrapValue, step.Value) << at;
        EXPECT_EQ(state.ExtrapPercent, step.Percent) << at;
    }
    state.BoxSelection = PercentBox;
    state.ExtrapPercent = 50;
    EXPECT_FALSE(StepBox(1));
    state.ExtrapPercent = -50;
    EXPECT_FALSE(StepBox(0));
    EXPECT_EQ(state.ExtrapPercent, -50);
    ZeroSelected(PercentBox);
    EXPECT_EQ(state.ExtrapPercent, 0);
    ZeroSelected(DateBox);
    EXPECT_EQ(Target(), "2026-3-2");
    EXPECT_EQ(state.ExtrapValue, 700);
    ZeroSelected(ValueBox);
    EXPECT_EQ(Target(), "2025-12-22");
    state.BoxSelection = ZeroBox;
    state.ExtrapValue = 5;
    EXPECT_TRUE(StepBoxByKey(1));
    EXPECT_EQ(state.ExtrapValue, 0);
}

TEST_F(Foretold, ArrowsWalkTheRowAndStopAtItsEnds) {
    const auto walk = [](int right) {
        WalkBoxes(right);
        return state.BoxSelection * 10 + state.BoxIndex;
    };
    state.BoxSelection = ValueBox;
    state.BoxIndex = 2;
    for (const int box : {21, 41, 11, 12, 13, 13})
        EXPECT_EQ(walk(1), box);
    for (const int box : {12, 11, 41, 21, 22, 23, 24, 25, 26, 27, 28, 31, 31})
        EXPECT_EQ(walk(0), box);
    EXPECT_EQ(walk(1), 28);
}

TEST_F(Foretold, ATapOnTheLineMapsADateToAnAmount) {
    SetLineEnds(); // 33,103 to 223,38
    static constexpr struct {
        int X, Y, Changed, On, PointerX, PointerY, Day;
    } steps[] = {
        {33, 103, 0, 0, 0, 0, 0}, // exactly at the left end
        {128, 89, 1, 1, 128, 70, 5},  {128, 89, 0, 1, 128, 70, 5}, {128, 91, 1, 0, 128, 70, 5},
        {239, 38, 1, 1, 223, 38, 10}, {5, 200, 1, 0, 223, 38, 10}, {5, 200, 0, 0, 223, 38, 10},
    };
    for (const auto &step : steps) {
        EXPECT_EQ(PointAtLine(step.X, step.Y), step.Changed) << &step - steps;
        EXPECT_EQ(static_cast<int>(state.PointerOn), step.On) << &step - steps;
        if (!step.PointerX)
            continue;
        EXPECT_EQ(state.PointerX, step.PointerX);
        EXPECT_EQ(state.PointerY, step.PointerY);
        EXPECT_EQ(state.PointerDate.DayNumber, First + static_cast<uint32_t>(step.Day));
    }
}

} // namespace
