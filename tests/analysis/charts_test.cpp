// Where the money goes: entries merged into segments, their shares and their order.
#include "chart_account.h"
#include "drawing/colour_model.h"
#include "drawing/palette.h"
#include "host/fuzz.h"
#include <cstdio>

using namespace testhost;

namespace {

TEST_F(Charts, EntriesMeetInTheSegmentOfTheirGroup) {
    CatRec category;
    InitCatRec(&category);
    Utf16("Sport").copy(category.Name, 31);
    category.Red = 1;
    category.Green = 2;
    category.Blue = 3;
    category.CatID = 77;
    WriteRecords<CatRec>(root.DataFile("E1_07CAT"), {category});
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
    Show(PieIconX);
    struct {
        std::vector<Entry> Entries;
        std::vector<float> Debit, Credit, All;
        FixedAmount LargestDebit, LargestCredit;
    } const cases[] = {
        {{{"a", -3000}, {"b", -1000}, {"c", 12000}},

         {75, 25, 0},
         {0, 0, 100},
         {18.75f, 6.25f, 75},
         3000,
         12000},
        {{{"a", 0}, {"b", 0}}, {0, 0}, {0, 0}, {0, 0}, 0, 0},
        {{{"a", 1}, {"b", 2}}, {0, 0}, {33.3333321f, 66.6666641f}, {33.3333321f, 66.6666641f}, 0, 2},
        {{{"a", INT64_MIN}, {"b", INT64_MAX}}, {100, 0}, {0, 100}, {50, 50}, INT64_MAX, INT64_MAX},
        {{{"a", INT64_MIN}, {"b", INT64_MAX}, {"c", INT64_MAX}},

         {100, 0, 0},
         {0, 50, 50},
         {50, 50, 50},
         INT64_MAX,
         INT64_MAX},
    };
    for (const auto &row : cases) {
        Write(row.Entries);
        Build(ByName, FromAToZ);
        doGraph(ListWindow, EveryBand); // however the shares add up, none is painted past the whole circle
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

TEST_F(Charts, TotalsCountAsWhatEachEntryAddsAndOfPricesTheLastOneStands) {
    std::vector<TRec> rows = {RowOf({"IBM", 2000}), RowOf({"IBM", 3000}), RowOf({"IBM", 0})};
    rows[0].Units = 5;
    rows[1].Units = -2;
    rows[2].Cash = 1;
    rows[2].CashAmount = 44;
    rows[2].RunTotal = 12345;
    Write(rows);
    Show(PieIconX);
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
        state.GraphMode = seed % 2 ? PieChart : BarChart;
        ReloadList(GraphList, 1);
        doGraph(ListWindow, EveryBand);
        size_t entriesIn = 0;
        for (const GRec &segment : Segments())
            entriesIn += static_cast<size_t>(segment.Entries);
        ASSERT_LE(entriesIn, bytes.size() / sizeof(TRecFile));
        TapList(60, 110);
    }
}

} // namespace
