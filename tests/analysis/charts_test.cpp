// Where the money goes: entries merged into segments, their shares and their order, and the pictures an owner works.
#include "analysis/charts.h"
#include "analysis/graph_value.h"
#include "drawing/colour_model.h"
#include "drawing/colours.h"
#include "host/device.h"
#include "host/fuzz.h"
#include "screens/chart_layout.h"
#include "screens/screens.h"
#include "store/windows.h"
#include <cstdio>

using namespace testhost;

namespace {

struct Entry {
    std::string Name;
    FixedAmount Value;
    uint32_t Year = 2026;
    int Month = 3;
    std::string Ref = "";
    uint8_t Flag = 0;
    int64_t CatID = 0;
    uint32_t Cleared = 0;
    uint8_t Kind = EntryRow;
};

TRec RowOf(const Entry &entry) {
    TRec row;
    InitTRec(&row);
    Utf16(entry.Name).copy(row.Name, 31);
    Utf16(entry.Ref).copy(row.Memo, 31);
    row.Date = {entry.Year, static_cast<int8_t>(entry.Month), 5, {}, 0};
    InsertAbs(&row.Date);
    row.Value = entry.Value;
    row.Flag = entry.Flag;
    row.CatID = entry.CatID;
    row.Cleared = entry.Cleared;
    row.RowKind = entry.Kind;
    return row;
}

constexpr int BarIconX = 73, PieIconX = 93, IconY = 52, ListY = 62;

struct Charts : Device {
    void Write(const std::vector<TRec> &rows) const {
        std::vector<uint8_t> bytes(rows.size() * sizeof(TRecFile));
        for (size_t n = 0; n < rows.size(); ++n)
            std::memcpy(bytes.data() + n * sizeof(TRecFile), &rows[n], sizeof(TRec));
        WriteBytes(root.DataFile("E1_02A1"), bytes);
    }
    void Write(const std::vector<Entry> &entries) const {
        std::vector<TRec> rows;
        for (const Entry &entry : entries)
            rows.push_back(RowOf(entry));
        Write(rows);
    }
    std::vector<GRec> Segments() const {
        const std::vector<uint8_t> bytes = ReadBytes(root.DataFile("CHART"));
        EXPECT_EQ(bytes.size() % sizeof(GRec), 0u);
        std::vector<GRec> segments(bytes.size() / sizeof(GRec));
        if (!segments.empty())
            std::memcpy(segments.data(), bytes.data(), segments.size() * sizeof(GRec));
        return segments;
    }
    // "Rent -5 x1, Food 3 x2": titles, thousandths, entries.
    std::string Told() const {
        std::string told;
        for (const GRec &segment : Segments())
            told += (told.empty() ? "" : ", ") + Utf8(segment.Title) + " " + std::to_string(segment.Value) + " x" +
                    std::to_string(segment.Entries);
        return told;
    }
    std::string Titles() const {
        std::string titles;
        for (const GRec &segment : Segments())
            titles += (titles.empty() ? "" : ",") + Utf8(segment.Title);
        return titles;
    }
    void Show(int iconX) {
        ShowScreen(GraphList);
        testhost::Tap(iconX, IconY);
    }
    void Build(int group, int order) {
        state.AnalysisGroup = group;
        state.AnalysisOrder = order;
        state.EntryCount[GraphList] = ConvertRecToGRec(1);
    }
    static void TapList(int x, int y) { testhost::Tap(x, ListY + y); }
    static void TapBox(const Rect &box) { TapList((box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2); }
    static void Pick(int list, int entry) {
        TapBox(list == GroupList ? GroupField : OrderField);
        TapBox(DropRow(list, entry));
    }
    static std::string Heading() { return TextAt(ListWindow, UpperHeading); }
};

TEST_F(Charts, EntriesMeetInTheSegmentOfTheirGroup) {
    CatRec category;
    InitCatRec(&category);
    Utf16("Sport").copy(category.Name, 31);
    category.Red = 1;
    category.Green = 2;
    category.Blue = 3;
    category.CatID = 77;
    std::vector<uint8_t> bytes(sizeof(CatRecFile));
    std::memcpy(bytes.data(), &category, sizeof category);
    WriteBytes(root.DataFile("E1_07CAT"), bytes);
    Write({{"Food", -3000, 2025, 1, "card", 1, 77},
           {"Rent", -9000, 2026, 1, "", 0, 0},
           {"Day", 1, 2026, 1, "", 0, 0, 0, DayMarker},
           {"Food", -1000, 2026, 2, "card", 7, 77},
           {"Archive", 5, 2026, 1, "", 0, 0, 0, ArchiveMarker},
           {"food", 0, 2026, 2, "cash", 1, 99},
           {"", 4000, 2025, 12, "", 3, 98}});
    Show(PieIconX);
    struct {
        int Group;
        const char *Told; // in the order that the group begins with; of equal magnitudes the later comes first
        std::vector<int32_t> PieColours, BarColours; // empty: not told here
    } const cases[] = {
        {ByName, "Rent -9000 x1,  4000 x1, Food -4000 x2, food 0 x1", {}, {-1, -1, -1, -1}},
        {ByCategory,
         "<none> -9000 x1, category deleted 4000 x1, Sport -4000 x2, category deleted 0 x1",
         {0xFFFFFF, 0xA4A4D8, 0x030201, 0xA4A4D8},
         {0xFFFFFF, -1, 0x030201, -1}},
        {ByRef, " -5000 x2, card -4000 x2, cash 0 x1", {}, {-1, -1, -1}},
        {ByMonth, "01:  Jan -12000 x2, 02:  Feb -1000 x2, 12:  Dec 4000 x1", {}, {}},
        {ByYear, "2026 -10000 x3, 2025 1000 x2", {}, {-1, -1}},
        {ByFlag,
         " -9000 x1,  4000 x1,  -3000 x2,  -1000 x1",
         {0xFFFFFF, 0x00FFFF, 0x0000FF, 0xA4A4D8},
         {0xFFFFFF, 0x00FFFF, 0x0000FF, -1}},
        {BySign, "+ 4000 x2, - -13000 x3", {0, 255}, {0, 255}},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.Group);
        Build(row.Group, FirstOrderOf(row.Group));
        EXPECT_EQ(Told(), row.Told);
        const std::vector<GRec> segments = Segments();
        for (size_t n = 0; n < segments.size(); ++n) {
            EXPECT_EQ(segments[n].Link, 0);
            if (n < row.PieColours.size()) {
                EXPECT_EQ(segments[n].PieColour, row.PieColours[n]) << n;
            }
            if (n < row.BarColours.size()) {
                EXPECT_EQ(segments[n].BarColour, row.BarColours[n]) << n;
            }
        }
    }
    Build(BySign, LowestFirst);
    EXPECT_EQ(Told(), "- -13000 x3, + 4000 x2");
    // A name has its place on the palette; a category's colour follows the category.
    Build(ByName, FromAToZ);
    const Colour colour = state.Palette[PaletteHash(u"Rent")];
    EXPECT_EQ(Segments()[3].PieColour, ChartColour(colour >> 16 & 255, colour >> 8 & 255, colour & 255));
}

TEST_F(Charts, SegmentsStandInTheOrderAskedFor) {
    Write({{"banana", 5000}, {"Apple", -7000}, {"cherry", 5000}, {"apple", 0}, {"Éclair", -1000}, {"éclairs", 3000}});
    Show(BarIconX);
    struct {
        int Order;
        const char *Titles;
    } const cases[] = {
        {LargestFirst, "Apple,cherry,banana,éclairs,Éclair,apple"},
        {SmallestFirst, "apple,Éclair,éclairs,banana,cherry,Apple"},
        {LowestFirst, "Apple,Éclair,apple,éclairs,banana,cherry"},
        {HighestFirst, "cherry,banana,éclairs,apple,Éclair,Apple"},
        {DebitsOnly, "Apple,Éclair,éclairs,apple,cherry,banana"},
        {CreditsOnly, "cherry,banana,éclairs,Éclair,apple,Apple"},
        {FromAToZ, "Apple,apple,banana,cherry,Éclair,éclairs"},
        {FromZToA, "éclairs,Éclair,cherry,banana,apple,Apple"},
    };
    for (const auto &row : cases) {
        Build(ByName, row.Order);
        EXPECT_EQ(Titles(), row.Titles) << row.Order;
    }
    // Numbers of more than 16 digits sort as the texts they are.
    Write({{"long", 20000000000000000},
           {"longer", 100000000000000000},
           {"short", 9999999999999999},
           {"least", INT64_MIN}});
    Build(ByName, SmallestFirst);
    EXPECT_EQ(Titles(), "longer,long,least,short");
}

TEST_F(Charts, SharesAreOfDebitsCreditsAndAll) {
    Write({{"a", -3000}, {"b", -1000}, {"c", 12000}});
    Show(PieIconX);
    struct {
        std::vector<Entry> Entries;
        int Order;
        std::vector<float> Debit, Credit, All;
        FixedAmount LargestDebit, LargestCredit;
    } const cases[] = {
        {{{"a", -3000}, {"b", -1000}, {"c", 12000}},
         FromAToZ,
         {75, 25, 0},
         {0, 0, 100},
         {18.75f, 6.25f, 75},
         3000,
         12000},
        {{{"a", 0}, {"b", 0}}, FromAToZ, {0, 0}, {0, 0}, {0, 0}, 0, 0},
        {{{"a", 1}, {"b", 2}}, FromAToZ, {0, 0}, {33.3333321f, 66.6666641f}, {33.3333321f, 66.6666641f}, 0, 2},
        {{{"a", INT64_MIN}, {"b", INT64_MAX}}, FromAToZ, {100, 0}, {0, 100}, {50, 50}, INT64_MAX, INT64_MAX},
    };
    for (const auto &row : cases) {
        Write(row.Entries);
        Build(ByName, row.Order);
        const std::vector<GRec> segments = Segments();
        ASSERT_EQ(segments.size(), row.All.size());
        for (size_t n = 0; n < segments.size(); ++n) {
            EXPECT_FLOAT_EQ(segments[n].DebitPercent, row.Debit[n]) << n;
            EXPECT_FLOAT_EQ(segments[n].CreditPercent, row.Credit[n]) << n;
            EXPECT_FLOAT_EQ(segments[n].Percent, row.All[n]) << n;
        }
        EXPECT_EQ(state.LargestDebit, row.LargestDebit);
        EXPECT_EQ(state.LargestCredit, row.LargestCredit);
    }
}

TEST_F(Charts, AnEntryCountsByTheMeasureAndTheView) {
    TRec row;
    InitTRec(&row);
    row.Units = 3;
    row.Value = 2000;
    row.ClearedValue = 1500;
    row.CashAmount = 70;
    row.RunUnits = 10;
    row.RunClearedUnits = 4;
    row.RunTotal = 900;
    row.RunCleared = 500;
    struct {
        int Kind;
        FixedAmount Balance, BalanceCleared, Plain, PlainCleared, Unclear, Cash, CashInAnalysis, Free;
    } const cases[] = {
        // kind        balance, cleared; value, cleared, not cleared under the view; Cash, in an analysis; NoCash
        {BankAccount, 900, 500, 6000, 6000, 0, 6000, 6000, 6000},
        {ListAccount, 900, 500, 6000, 6000, 0, 6000, 6000, 6000},
        {ShareNumber, 20900, 6500, 3000, 3000, 0, 3000, 0, 3000},
        {SharePrice, 20900, 6500, 2000, 1500, 1500, 2000, 0, 2000},
        {ShareTotal, 20900, 6500, 10000, 4000, 4000, 10000, 0, 10000},
        {ShareValue, 20900, 6500, 6000, 6000, 0, 70, 70, 0},
        {ShareCash, 20900, 6500, 900, 500, 500, 900, 900, 900},
        {CashPart, 20900, 6500, 0, 0, 0, 70, 70, 0},
    };
    for (const auto &wanted : cases) {
        SCOPED_TRACE(wanted.Kind);
        state.CurrentScreen = GraphList;
        state.AccountKind = wanted.Kind;
        const auto value = [&](uint32_t balance, uint32_t reconciled, int mode, uint32_t cleared, uint32_t cash,
                               uint32_t noCash) {
            state.BalanceView = balance;
            state.ReconciledView = reconciled;
            state.GraphMode = mode;
            TRec seen = row;
            seen.Cleared = cleared;
            seen.Cash = cash;
            seen.NoCash = noCash;
            return GetGraphValue(seen);
        };
        EXPECT_EQ(value(1, 0, 1, 0, 0, 0), wanted.Balance);
        EXPECT_EQ(value(1, 1, 1, 0, 0, 0), wanted.BalanceCleared);
        EXPECT_EQ(value(0, 0, 1, 0, 0, 0), wanted.Plain);
        EXPECT_EQ(value(1, 0, 5, 0, 0, 0), wanted.Plain) << "charts are of the value column";
        EXPECT_EQ(value(0, 1, 1, 1, 0, 0), wanted.PlainCleared);
        EXPECT_EQ(value(0, 1, 1, 0, 0, 0), wanted.Unclear);
        EXPECT_EQ(value(0, 0, 1, 0, 1, 0), wanted.Cash);
        EXPECT_EQ(value(0, 0, 4, 0, 1, 0), wanted.CashInAnalysis);
        EXPECT_EQ(value(0, 0, 1, 0, 0, 1), wanted.Free);
    }
    state.AccountKind = ShareNumber;
    row.Units = 2147484; // wraps
    EXPECT_EQ(GetGraphValue(row), -2147483296);

    // Totals count as what each entry adds; of prices the last one stands.
    std::vector<TRec> rows = {RowOf({"IBM", 2000}), RowOf({"IBM", 3000}), RowOf({"IBM", 0})};
    rows[0].Units = 5;
    rows[1].Units = -2;
    rows[2].Cash = 1;
    rows[2].CashAmount = 44;
    rows[2].RunTotal = 12345;
    Write(rows);
    state.GraphMode = PieMode;
    state.ReconciledView = 0;
    constexpr struct {
        int Kind;
        const char *Told;
    } kinds[] = {{ShareNumber, "IBM 3000 x3"}, {ShareTotal, "IBM 3000 x3"}, {SharePrice, "IBM 0 x3"},
                 {ShareValue, "IBM 4044 x3"},  {ShareCash, "IBM 44 x3"},    {99, "IBM 4000 x3"}};
    for (const auto &kind : kinds) {
        state.AccountKind = kind.Kind;
        Build(ByName, LargestFirst);
        EXPECT_EQ(Told(), kind.Told) << kind.Kind;
        EXPECT_EQ(state.AccountKind, kind.Kind);
    }
}

TEST_F(Charts, ManySegmentsAreMergedAndSortedWithinBoundedMemory) {
    Show(PieIconX);
    const int32_t inMemory = RunBytes / static_cast<int32_t>(sizeof(GRec)) / 3 * 3;
    for (const int32_t names : {inMemory - 1, inMemory, inMemory + 1, 2 * inMemory + 1, 5000}) {
        SCOPED_TRACE(names);
        std::vector<TRec> rows;
        for (int32_t n = 0; n < names + 700; ++n) {
            char name[16];
            std::snprintf(name, sizeof name, "%06d", static_cast<int>(int64_t{n % names} * 7919 % 1000003));
            rows.push_back(RowOf({name, n % 13 - 6}));
        }
        Write(rows);
        for (const int order : {FromAToZ, FromZToA, LargestFirst, LowestFirst}) {
            Build(ByName, order);
            const std::vector<GRec> segments = Segments();
            ASSERT_EQ(segments.size(), static_cast<size_t>(names));
            int32_t entries = 0;
            for (size_t n = 0; n < segments.size(); ++n) {
                entries += segments[n].Entries;
                if (n == 0)
                    continue;
                const GRec &a = segments[n - 1], &b = segments[n];
                const bool right = order == FromAToZ       ? Utf8(a.Title) < Utf8(b.Title)
                                   : order == FromZToA     ? Utf8(a.Title) > Utf8(b.Title)
                                   : order == LargestFirst ? std::abs(a.Value) >= std::abs(b.Value)
                                                           : a.Value <= b.Value;
                ASSERT_TRUE(right) << order << ": " << n;
            }
            EXPECT_EQ(entries, names + 700);
        }
    }
}

TEST_F(Charts, TheWorkFileOfACrashIsMadeAnewAndGoesWithTheChart) {
    Write({{"a", -3000}, {"b", -1000}});
    WriteBytes(root.DataFile("CHART"), std::vector<uint8_t>(1000, 0xA5));
    Show(PieIconX);
    EXPECT_EQ(Told(), "a -3000 x1, b -1000 x1");
    for (const int screen : {TransactionList, AccountList, BinList}) {
        ShowScreen(screen);
        EXPECT_TRUE(ReadBytes(root.DataFile("CHART")).empty()) << screen;
        ShowScreen(GraphList);
        EXPECT_EQ(Segments().size(), 2u);
    }
    QuitProgram();
    EXPECT_EQ(Snapshot(root.HostPath("\\Program Files\\Zentrik\\E1_Data")).count("CHART"), 0u);
}

TEST_F(Charts, ADiskThatFailsNeverHurtsTheAccount) {
    std::vector<Entry> entries;
    for (int n = 0; n < 40; ++n)
        entries.push_back({std::string(1, static_cast<char>('a' + n % 20)), n % 7 - 3});
    Write(entries);
    Show(PieIconX);
    const std::string right = Told();
    const std::vector<uint8_t> account = ReadBytes(root.DataFile("E1_02A1"));
    for (int call = 1; WithFailingDisk({.FailAt = call}, [&] { Build(ByName, LargestFirst); }); ++call)
        ASSERT_EQ(ReadBytes(root.DataFile("E1_02A1")), account) << call;
    machine.Beeps = 0;
    WithFailingDisk({.Full = true}, [&] { Build(ByName, LargestFirst); });
    EXPECT_GT(machine.Beeps, 0);
    EXPECT_LT(machine.Beeps, 5) << "one report for a run, not one for each entry";
    Build(ByName, LargestFirst);
    EXPECT_EQ(Told(), right);
    // Rows of another version are not read.
    TRec row = RowOf({"a", 1});
    row.Version = 2;
    Write(std::vector<TRec>{row});
    Build(ByName, LargestFirst);
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(state.DataUsable, 0u);
}

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

TEST_F(Charts, DamagedAccountsAreChartedAsFarAsTheyCanBeRead) {
    std::vector<Entry> entries;
    for (int n = 0; n < 30; ++n)
        entries.push_back({"Name " + std::to_string(n % 7), n * 100 - 900, 2026, n % 12 + 1, "ref", 2, n % 3});
    Write(entries);
    Show(PieIconX);
    const std::vector<uint8_t> good = ReadBytes(root.DataFile("E1_02A1"));
    for (const uint64_t seed : FuzzSeeds(60)) {
        SCOPED_TRACE(seed);
        std::vector<uint8_t> bytes = DamagedBytes(seed, good);
        if (!bytes.empty())
            bytes[0] = 1; // of this version, or nothing would be read
        WriteBytes(root.DataFile("E1_02A1"), bytes);
        state.AnalysisGroup = static_cast<int>(seed % GroupCount) + 1;
        state.AnalysisOrder = static_cast<int>(seed % OrderCount);
        state.GraphMode = seed % 2 ? PieMode : BarMode;
        doGraph(ListWindow, EveryBand);
        size_t entriesIn = 0;
        for (const GRec &segment : Segments())
            entriesIn += static_cast<size_t>(segment.Entries);
        ASSERT_LE(entriesIn, bytes.size() / sizeof(TRecFile));
        TapList(60, 110);
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
    state.ReconciledView = 1;
    doGraph(ListWindow, EveryBand);
    EXPECT_EQ(Told(), "a -1000 x1, b 0 x1");
    state.ReconciledView = 0;
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
