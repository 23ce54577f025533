// Where a tap lands, and what it says.
#include "device.h"
#include "input/press.h"
#include "screens/list_screen.h"

namespace {

TEST_F(Device, TablesOfTheScreensHoldTogether) {
    for (int n = 1; n <= 8; ++n) {
        const ListScreen *screen = ScreenOf(n);
        ASSERT_NE(screen, nullptr);
        const int32_t *edge = state.ColumnEdge[n];
        for (int i = 0; i < screen->SpotCount; ++i) {
            const TitleSpot &spot = screen->Spots[i];
            EXPECT_GE(edge[spot.FromEdge] + spot.From, 0) << n << ": " << i;
            EXPECT_LT(edge[spot.ToEdge] + spot.To, 240) << n << ": " << i;
            EXPECT_LT(edge[spot.FromEdge] + spot.From, edge[spot.ToEdge] + spot.To) << n << ": " << i;
        }
    }
    EXPECT_EQ(ScreenOf(0), nullptr);
    EXPECT_EQ(ScreenOf(9), nullptr);
}

TEST_F(Device, PointsOfTheListMeetTheirRowsAndTabs) {
    static constexpr struct {
        int Page, X, Y, Place;
    } cases[] = {
        {0, 10, 0, 1},     {0, 10, 16, 1},     {0, 10, 17, 2},     {0, 10, 203, 12},  {0, 10, 204, 0},
        {0, 3, 205, -1},   {0, 0, 205, -1},    {0, 39, 222, -1},   {0, 40, 222, -2},  {0, 200, 205, -6},
        {0, 224, 210, -6}, {0, 225, 210, -13}, {0, 239, 210, -13}, {0, 40, 223, 0},   {1, 3, 205, -7},
        {1, 40, 205, -8},  {1, 77, 205, 0},    {1, 151, 205, 0},   {1, 188, 205, -6}, {1, 230, 205, -13},
        {0, -1, 5, 0},     {0, 240, 5, 0},     {0, 10, -1, 0},
    };
    for (const auto &row : cases) {
        state.TabPage = row.Page;
        EXPECT_EQ(LinePos(ListWindow, row.X, row.Y), row.Place) << row.Page << ": " << row.X << ',' << row.Y;
    }
    EXPECT_EQ(LinePos(TopWindow, 10, 5), 0);
}

// Before a tap: what the view is. Bits.
enum View : int { Live = 0, Archived = 1, OnlyReconciled = 2, References = 4, Untidy = 8 };
void SetView(int view) {
    state.ArchiveView = (view & Archived) != 0;
    state.ReconciledView = (view & OnlyReconciled) != 0;
    state.RefColumn = (view & References) != 0;
    state.RecurringInOrder = !(view & Untidy);
}

// Taps on header and titles: device coordinates, edges at their defaults, each on a screen freshly entered.
TEST_F(Device, EveryPlaceOfHeaderAndTitlesExplainsItself) {
    static constexpr char Silent[] = "-", Title[] = "0,464,0,80,0,0", Edge[] = "0,0,90,91,0,0",
                          Arrows[] = "71,72,73,0,75,76", Archive[] = "77,78,79,89,0,80", Selected[] = "0,207,0,0,0,0",
                          Count[] = "0,208,0,0,0,0", Balances[] = "64,65,66,67,56,209", Amounts[] = "0,227,0,0,0,0";
    // Header; accounts, edge 150; transactions, edges 44, 134, 180; recurring and bin, edges 38, 120, 175; templates,
    // edge 150; categories, edge 44; conversions, edges 94 and 129; graph. Screens 4 to 8 know the counts alone.
    static const struct {
        int Screen;
        const char *Lines;
        std::vector<Point> Taps;
        int Before = Live;
    } cases[] = {
        {1, Selected, {{0, 26}, {29, 41}}},
        {1, Arrows, {{30, 30}, {179, 30}, {210, 30}}},
        {1, Archive, {{60, 30}}},
        {1, Count, {{211, 30}}},
        {1, Silent, {{0, 50}, {145, 60}, {155, 60}}},
        {1, Title, {{1, 50}, {126, 50}, {127, 60}, {144, 60}}},
        {1, Edge, {{127, 50}, {146, 50}, {154, 50}, {172, 50}}},
        {1, Balances, {{156, 60}, {173, 50}, {239, 50}}},
        {2, Arrows, {{59, 30}}},
        {2, Archive, {{178, 30}}},
        {2, "0,90,91,0,0,0", {{35, 50}}},
        {2, Silent, {{35, 42}, {36, 50}, {50, 50}, {172, 42}, {188, 50}}},
        {2, Edge, {{41, 50}, {138, 50}, {184, 50}}},
        {2, Title, {{52, 50}, {126, 50}}},
        {2, Amounts, {{142, 50}, {172, 43}}},
        {2, "64,65,66,67,56,0", {{189, 50}}},
        {3, Archive, {{100, 30}}},
        {3, Silent, {{3, 50}}},
        {3, "0,255,0,256,257,0", {{4, 50}}},
        {3, "258,0,259,260,261,262", {{24, 50}}},
        {3, "263,0,264,265,0,271", {{63, 50}}},
        {3, "253,0,326,331,0,0", {{64, 50}}},
        {3, "324,0,326,330,0,0", {{103, 50}}},
        {3, "0,266,0,0,0,0", {{104, 50}}},
        {3, Amounts, {{124, 50}}},
        {3, "64,65,66,67,56,0", {{173, 50}}},
        {4, Silent, {{100, 30}}},
        {4, Title, {{46, 50}, {112, 50}}},
        {4, Edge, {{10, 50}, {120, 50}}},
        {5, Selected, {{29, 30}}},
        {5, Title, {{144, 50}}},
        {5, Edge, {{200, 50}}},
        {6, Title, {{43, 50}}},
        {6, Edge, {{116, 50}}},
        {7, Silent, {{40, 30}}},
        {7, Edge, {{49, 50}}},
        {7, Title, {{50, 50}}},
        {8, Count, {{239, 30}}},
        {8, Edge, {{134, 50}}},
        {8, Title, {{135, 50}}},
        {1, "71,72,74,0,75,76", {{30, 30}}, Archived},
        {1, "0,0,81,80,0,0", {{60, 30}}, Archived},
        {1, "0,465,0,80,0,0", {{144, 60}}, References},
        {1, "68,69,70,56,0,209", {{156, 60}}, OnlyReconciled},
        {1, "64,65,66,67,56,0", {{156, 60}}, Archived},
        {2, "0,68,69,70,56,0", {{189, 50}}, OnlyReconciled},
        {3, "0,228,0,0,0,0", {{124, 50}}, OnlyReconciled},
        {3, "68,69,70,56,0,0", {{173, 50}}, OnlyReconciled},
    };
    for (const auto &row : cases)
        for (const Point &tap : row.Taps) {
            SetView(row.Before);
            state.GraphMode = 0;
            state.BalanceView = 1;
            if (state.CurrentScreen != row.Screen)
                ShowScreen(row.Screen);
            ASSERT_EQ(state.CurrentScreen, row.Screen);
            state.MessageLine[0] = 1;
            const std::string old = Ids();
            Tap(tap.X, tap.Y);
            EXPECT_EQ(Ids() == old ? Silent : Ids(), row.Lines) << row.Screen << ": " << tap.X << ',' << tap.Y;
        }
}

TEST_F(Device, TabsAndPageButtonExplainThemselves) {
    static constexpr struct {
        int Page, Slot, Screen;
        const char *Lines;
        int Before = Live;
    } cases[] = {
        {0, 2, 2, "0,8,9,10,0,0"},
        {0, 2, 2, "0,8,9,10,0,0"},
        {0, 3, 3, "11,12,0,250,252,0"},
        {0, 4, 4, "13,14,15,0,16,17"},
        {0, 5, 5, "18,19,20,21,22,23"},
        {0, 6, 6, "0,24,25,26,27,0"},
        {1, 4, 6, "0,0,391,0,392,0"},
        {1, 1, 7, "351,352,0,353,354,355"},
        {1, 2, 8, "343,344,0,345,346,347"},
        {1, 6, 6, "0,24,25,26,27,0"},
        {0, 1, 1, "6,7,0,42,239,0"},
        {0, 2, 2, "0,8,9,84,0,0", Archived},
        {0, 3, 3, "11,12,0,251,252,0", Archived},
        {0, 1, 1, "6,82,0,42,239,0", Archived},
        {0, 4, 4, "13,14,15,16,17,205", Untidy},
    };
    for (const auto &row : cases) {
        SetView(row.Before);
        if (state.TabPage != row.Page)
            TapSlot(7);
        ASSERT_EQ(state.TabPage, row.Page);
        TapSlot(row.Slot);
        EXPECT_EQ(state.CurrentScreen, row.Screen) << row.Slot;
        EXPECT_EQ(Ids(), row.Lines) << row.Page << ' ' << row.Slot;
        EXPECT_TRUE(Remains(ListWindow).empty()) << row.Screen;
    }
}

TEST_F(Device, EveryRowExplainsItself) {
    static constexpr struct {
        int Screen, Row;
        const char *Lines;
        int Before = Live;
    } cases[] = {
        {1, 1, "29,0,40,32,33,5"},
        {1, 4, "34,0,35,36,37,0"},
        {2, 1, "38,0,40,41,42,43"},
        {2, 4, "0,39,0,46,0,0"},
        {2, 9, "34,0,35,47,37,0"},
        {4, 1, "110,120,0,40,41,0"},
        {5, 1, "113,0,40,41,42,43"},
        {5, 2, "113,0,40,41,42,44"},
        {6, 1, "34,0,86,0,0,0"},
        {7, 1, "356,0,40,41,0,357"},
        {8, 2, "341,0,40,41,42,342"},
        {8, 9, "34,0,35,47,37,0"},
        {1, 1, "85,0,40,32,87,5", Archived},
        {1, 4, "0,0,34,0,0,0", Archived},
        {2, 9, "34,0,35,47,0,0", Archived},
    };
    for (const auto &row : cases) {
        SetView(row.Before);
        if (state.CurrentScreen != row.Screen)
            ShowScreen(row.Screen);
        TapRow(row.Row);
        EXPECT_EQ(Ids(), row.Lines) << row.Screen << ' ' << row.Row;
        EXPECT_EQ(state.SelectedPos[row.Screen], state.TopPos[row.Screen] + row.Row - 1);
    }
}

} // namespace
