// Where a tap lands, and what it says.
#include "device.h"
#include "input/press.h"
#include "screens/list_screen.h"

namespace {

TEST_F(Device, TablesOfTheScreensHoldTogether) {
    for (int n = 1; n <= 8; ++n) {
        const ListScreen *screen = ScreenOf(n);
        ASSERT_NE(screen, nullptr);
        EXPECT_EQ(screen->List, n);
        EXPECT_EQ(state.Paint[n], screen->Paint);
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
    static constexpr struct {
        int Screen, X, Y;
        const char *Lines;
        int Before = Live;
    } cases[] = {{1, 0, 26, Selected},
                 {1, 29, 41, Selected},
                 {5, 29, 30, Selected},
                 {1, 30, 30, Arrows},
                 {2, 59, 30, Arrows},
                 {1, 60, 30, Archive},
                 {2, 178, 30, Archive},
                 {3, 100, 30, Archive},
                 {1, 179, 30, Arrows},
                 {1, 210, 30, Arrows},
                 {1, 211, 30, Count},
                 {8, 239, 30, Count},
                 {4, 100, 30, Silent},
                 {7, 40, 30, Silent},
                 {1, 0, 50, Silent},
                 {1, 1, 50, Title},
                 {1, 126, 50, Title},
                 {1, 127, 50, Edge}, // the grips
                 {1, 127, 60, Title},
                 {1, 144, 60, Title},
                 {1, 145, 60, Silent},
                 {1, 146, 50, Edge},
                 {1, 154, 50, Edge},
                 {1, 155, 60, Silent},
                 {1, 156, 60, Balances},
                 {1, 172, 50, Edge},
                 {1, 173, 50, Balances},
                 {1, 239, 50, Balances},
                 {2, 35, 50, "0,90,91,0,0,0"},
                 {2, 35, 42, Silent},
                 {2, 36, 50, Silent},
                 {2, 41, 50, Edge},
                 {2, 50, 50, Silent},
                 {2, 52, 50, Title},
                 {2, 126, 50, Title},
                 {2, 138, 50, Edge},
                 {2, 142, 50, Amounts},
                 {2, 172, 42, Silent},
                 {2, 172, 43, Amounts},
                 {2, 184, 50, Edge},
                 {2, 188, 50, Silent},
                 {2, 189, 50, "64,65,66,67,56,0"},
                 {4, 46, 50, Title},
                 {4, 112, 50, Title},
                 {4, 10, 50, Edge},
                 {4, 120, 50, Edge},
                 {6, 43, 50, Title},
                 {6, 116, 50, Edge},
                 {5, 144, 50, Title},
                 {5, 200, 50, Edge},
                 {7, 49, 50, Edge},
                 {7, 50, 50, Title},
                 {8, 134, 50, Edge},
                 {8, 135, 50, Title},
                 {3, 3, 50, Silent},
                 {3, 4, 50, "0,255,0,256,257,0"},
                 {3, 24, 50, "258,0,259,260,261,262"},
                 {3, 63, 50, "263,0,264,265,0,271"},
                 {3, 64, 50, "253,0,326,331,0,0"},
                 {3, 103, 50, "324,0,326,330,0,0"},
                 {3, 104, 50, "0,266,0,0,0,0"},
                 {3, 124, 50, Amounts},
                 {3, 173, 50, "64,65,66,67,56,0"},
                 {1, 30, 30, "71,72,74,0,75,76", Archived},
                 {1, 60, 30, "0,0,81,80,0,0", Archived},
                 {1, 144, 60, "0,465,0,80,0,0", References},
                 {1, 156, 60, "68,69,70,56,0,209", OnlyReconciled},
                 {1, 156, 60, "64,65,66,67,56,0", Archived},
                 {2, 189, 50, "0,68,69,70,56,0", OnlyReconciled},
                 {3, 124, 50, "0,228,0,0,0,0", OnlyReconciled},
                 {3, 173, 50, "68,69,70,56,0,0", OnlyReconciled}};
    for (const auto &row : cases) {
        SetView(row.Before);
        state.GraphMode = 0;
        state.BalanceView = 1;
        if (state.CurrentScreen != row.Screen)
            ShowScreen(row.Screen);
        ASSERT_EQ(state.CurrentScreen, row.Screen);
        state.MessageLine[0] = 1;
        const std::string old = Ids();
        Tap(row.X, row.Y);
        EXPECT_EQ(Ids() == old ? Silent : Ids(), row.Lines) << row.Screen << ": " << row.X << ',' << row.Y;
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
