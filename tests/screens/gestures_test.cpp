// Strokes, drags and drops: each as a short story on the sample's rows.
#include "device.h"
#include "drawing/colours.h"
#include "store/configuration.h"
#include "store/index.h"

namespace {

TEST_F(Device, StrokeAcrossAnEntryMarksItReconciledAndBalancesFollow) {
    OpenRow(1);
    ASSERT_EQ(state.CurrentScreen, TransactionList);
    StrokeRow(2, 25); // a tap
    EXPECT_EQ(Rows()[1].Cleared, 0U);
    StrokeRow(2, 26);
    EXPECT_EQ(Rows()[1].Cleared, 1U);
    EXPECT_EQ(Ids(), "48,49,50,53,54,56");
    EXPECT_EQ(Accounts()[0].ClearedBalance, -200000);
    EXPECT_EQ(ColourAt(ListWindow, 36, 27), BrushColour(ReconciledBrush));
    EXPECT_EQ(state.SelectedPos[TransactionList], 2);
    SendKey(Key::Stroke);
    EXPECT_EQ(Rows()[1].Cleared, 0U);
    EXPECT_EQ(Ids(), "48,51,52,53,54,56");

    StrokeRow(4);
    EXPECT_EQ(Ids(), "108,49,0,0,0,0");
    EXPECT_EQ(Rows()[3].Cleared, 0U);
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(Device, StrokeUnderAFilterOnlyLiftsIt) {
    OpenRow(1);
    TapRow(2);
    SendCommand(ShowName);
    ASSERT_EQ(state.EntryCount[TransactionList], 2); // ATM and the marker
    EXPECT_EQ(ColourAt(TopWindow, 8, 30), AlertRed);
    StrokeRow(1);
    EXPECT_EQ(state.FilterShown, 0U);
    EXPECT_EQ(state.EntryCount[TransactionList], 5);
    for (const TRec &row : Rows())
        EXPECT_EQ(row.Cleared, 0U);
    EXPECT_EQ(ColourAt(TopWindow, 8, 30), BrushColour(TitleBrush));

    // So does a drop on the bin.
    TapRow(2);
    SendCommand(ExcludeFlag);
    ASSERT_EQ(state.FilterShown, 1U);
    DragToSlot(1, 6);
    EXPECT_EQ(Ids(), "0,456,457,0,0,0");
    EXPECT_EQ(state.EntryCount[TransactionList], 5);
    EXPECT_EQ(state.EntryCount[BinList], 0);
}

TEST_F(Device, StrokesOnTheAccountListMakeAndRemoveTotals) {
    StrokeRow(3);
    EXPECT_EQ(AccountNames(), "Current account,Savings account,Total,Work expenses");
    EXPECT_EQ(Ids(), "240,241,0,242,0,243");
    EXPECT_EQ(TextAt(ListWindow, Row(3)), "Total | 6549.21");
    StrokeRow(9); // past the end
    EXPECT_EQ(AccountNames(), "Current account,Savings account,Total,Work expenses,Total");
    StrokeRow(3);
    EXPECT_EQ(AccountNames(), "Current account,Savings account,Work expenses,Total");
    EXPECT_EQ(Ids(), "0,244,0,245,0,0");
    EXPECT_EQ(state.EntryCount[BinList], 0);
    TapRow(4);
    EXPECT_EQ(Ids(), "0,246,241,0,242,0");
    SendKey(Key::Right); // does nothing on a total
    EXPECT_EQ(state.CurrentScreen, AccountList);
}

TEST_F(Device, WhatTheDiskRefusesIsNotAnnounced) {
    disk.Switches.Full = true;
    StrokeRow(3);
    EXPECT_EQ(Ids(), "0,128,133,0,0,0"); // the refusal alone is told
    EXPECT_EQ(state.EntryCount[AccountList], 3);
    disk.Switches.Full = false;
    OpenRow(1);
    TapRow(3);
    disk.Switches.FailAt = disk.WriteCalls + 1;
    StrokeRow(3);
    EXPECT_EQ(Ids(), "0,128,133,0,0,0");
    EXPECT_EQ(Rows()[2].Cleared, 0U);
    EXPECT_EQ(ColourAt(ListWindow, 36, 44), BrushColour(SilverBrush));
    TapRow(2);
    disk.Switches.Unwritable = true;
    machine.Beeps = 0;
    ASSERT_TRUE(SendCommand(ShowName));
    EXPECT_GT(machine.Beeps, 0);
    EXPECT_EQ(Ids(), "0,128,133,0,0,0");
    EXPECT_EQ(state.FilterShown, 0U);
    EXPECT_EQ(state.EntryCount[TransactionList], 5);
}

TEST_F(Device, StrokesFlagTemplatesAndTurnConversions) {
    ShowScreen(TemplateList);
    StrokeRow(1);
    EXPECT_EQ(Read<FRec>("E1_05FAV")[0].Cleared, 1U);
    EXPECT_EQ(Ids(), "113,0,40,41,42,44");
    ShowScreen(ConversionList);
    EXPECT_EQ(TextAt(ListWindow, Row(5)), "kg | 2.22 | lb");
    StrokeRow(5);
    EXPECT_EQ(TextAt(ListWindow, Row(5)), "lb | 0.45 | kg");
    EXPECT_EQ(Read<CurRec>("E1_08CUR")[4].DirectionState, 1U);
    ShowScreen(CategoryList);
    StrokeRow(1);
    EXPECT_EQ(Ids(), "0,0,233,0,0,0");
    EXPECT_EQ(state.EntryCount[CategoryList], 3);
}

// Rows of each list that an owner may order, dragged from row to row.
TEST_F(Device, RowsAreDraggedToANewPlace) {
    static constexpr struct {
        int Screen, From, To;
        const char *Names;
    } cases[] = {
        {1, 1, 3, "Savings account,Current account,Work expenses"},
        {1, 3, 1, "Work expenses,Savings account,Current account"},
        {1, 1, 2, "Work expenses,Savings account,Current account"}, // right below: nothing
        {1, 1, 9, "Savings account,Current account,Work expenses"}, // behind the last
        {5, 6, 1, "Dividend,Gas,ATM,Bus (single),Bus (return),Train"},
        {7, 1, 3, "Cat 2 - Corporate,Cat 1 - Credit cards,Cat 3 - Outgoings"},
    };
    for (const auto &row : cases) {
        if (state.CurrentScreen != row.Screen)
            ShowScreen(row.Screen);
        Drag(RowMiddle(row.From).X, RowMiddle(row.From).Y, RowMiddle(row.To).X, RowMiddle(row.To).Y);
        const std::string names = row.Screen == 1   ? AccountNames()
                                  : row.Screen == 5 ? Names<FRec>("E1_05FAV")
                                                    : Names<CatRec>("E1_07CAT");
        EXPECT_EQ(names, row.Names) << row.Screen << ": " << row.From << " to " << row.To;
        EXPECT_FALSE(ColourIn(ListWindow, {0, 0, 226, 205}, DropLineRed));
        EXPECT_TRUE(Remains(ListWindow).empty());
    }
}

TEST_F(Device, InsertionLineShowsWhereARowWouldLand) {
    const struct {
        Point To;
        int LineAt; // y, 0 none
        int Tab;
    } moves[] = {{{94, RowMiddle(1).Y + 2}, 0, 0},
                 {RowMiddle(2), 0, 0}, // beside the source
                 {RowMiddle(3), 34, 0},
                 {RowMiddle(5), 68, 0},
                 {TabMiddle(6), 0, BinList},
                 {RowMiddle(1), 0, 0}};
    Press(RowMiddle(1).X, RowMiddle(1).Y);
    for (const auto &move : moves) {
        Move(move.To.X, move.To.Y);
        for (const int y : {34, 68})
            EXPECT_EQ(ColourIn(ListWindow, {0, y - 2, 226, y + 2}, DropLineRed), y == move.LineAt) << move.To.Y;
        EXPECT_EQ(ColourIn(ListWindow, {0, 0, 226, 205}, DropLineRed), move.LineAt > 0) << move.To.Y;
        EXPECT_EQ(state.DragOverTab, move.Tab);
    }
    Release(RowMiddle(1).X, RowMiddle(1).Y);
    EXPECT_EQ(AccountNames(), "Current account,Savings account,Work expenses");

    // Transactions have their dates' order: no line.
    OpenRow(1);
    Press(RowMiddle(1).X, RowMiddle(1).Y);
    Move(RowMiddle(3).X, RowMiddle(3).Y);
    EXPECT_FALSE(ColourIn(ListWindow, {0, 0, 226, 205}, DropLineRed));
    Release(RowMiddle(3).X, RowMiddle(3).Y);
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Visa payment");
}

TEST_F(Device, AnEntryBecomesATemplateOrACategory) {
    OpenRow(1);
    DragToSlot(3, 5);
    EXPECT_EQ(Fields(Read<FRec>("E1_05FAV")[0], "Name Value"), "Rent, -248000");
    EXPECT_GT(Read<FRec>("E1_05FAV")[0].CatID, 10000);
    EXPECT_EQ(state.CurrentScreen, TransactionList);
    DragToSlot(4, 5); // a marker is refused, and its tab stays cool
    EXPECT_EQ(Names<FRec>("E1_05FAV"), "Rent,Gas,ATM,Bus (single),Bus (return),Train,Dividend");

    TapSlot(7);
    DragToSlot(2, 1);
    EXPECT_EQ(Names<CatRec>("E1_07CAT"), "ATM,Cat 1 - Credit cards,Cat 2 - Corporate,Cat 3 - Outgoings");
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Visa payment");
}

// A row of each list goes to the bin and comes back by its own tab alone.
TEST_F(Device, RowsGoToTheBinAndComeBack) {
    static constexpr struct {
        int Screen, Page;
        const char *File;
        int RecordBytes;
    } cases[] = {
        {1, 0, "E1_01IND", 728}, {2, 0, "E1_02A2", 608},  {4, 0, "E1_04DD", 728},
        {5, 0, "E1_05FAV", 536}, {7, 1, "E1_07CAT", 520}, {8, 1, "E1_08CUR", 584},
    };
    TapRow(2); // the account of the second case
    for (const auto &row : cases) {
        ShowScreen(row.Screen);
        const size_t size = ReadBytes(root.DataFile(row.File)).size();
        DragToSlot(1, 6);
        EXPECT_EQ(Ids(), "0,0,233,0,0,0");
        ASSERT_EQ(ReadBytes(root.DataFile(row.File)).size(), size - static_cast<size_t>(row.RecordBytes)) << row.File;
        ShowScreen(BinList);
        ASSERT_EQ(state.EntryCount[BinList], 1);
        if (state.TabPage != row.Page)
            TapSlot(7);
        const int slot = row.Screen > 6 ? row.Screen - 6 : row.Screen;
        DragToSlot(1, slot == 1 ? 2 : 1); // another tab leaves it in the bin
        EXPECT_EQ(state.EntryCount[BinList], 1) << row.File;
        DragToSlot(1, slot);
        EXPECT_EQ(state.EntryCount[BinList], 0) << row.File;
        EXPECT_EQ(ReadBytes(root.DataFile(row.File)).size(), size) << row.File;
        EXPECT_EQ(state.CurrentScreen, BinList);
    }
    EXPECT_EQ(Accounts()[0].Balance, 6033210);

    // The bin never shows more than two blank rows for what has left it.
    ShowScreen(TemplateList);
    for (int i = 0; i < 6; ++i) {
        TapRow(1);
        SendKey(Key::Delete);
    }
    SendKey(Key::Help);
    ShowScreen(BinList);
    Scroll(ScrollCode::Bottom);
    ASSERT_EQ(state.TopPos[BinList], 2); // 6 rows in a window of 7
    ASSERT_EQ(state.TabPage, 0);
    DragToSlot(1, 5);
    EXPECT_EQ(state.EntryCount[BinList], 5);
    EXPECT_EQ(state.TopPos[BinList], 1);
    SendKey(Key::Help);
    SendCommand(CommandEmptyBin);
    SendCommand(CommandEmptyBin);

    // Out of the bin for good.
    ShowScreen(TemplateList);
    SendKey(Key::Delete);
    ShowScreen(BinList);
    DragToSlot(1, 6);
    EXPECT_EQ(state.EntryCount[BinList], 0);
    EXPECT_TRUE(ReadBytes(root.DataFile("E1_06BIN")).empty());
}

TEST_F(Device, ATransactionOfALostAccountStaysInTheBin) {
    OpenRow(2);
    DragToSlot(1, 6);
    ShowScreen(AccountList);
    DragToSlot(2, 6);
    ShowScreen(BinList);
    ASSERT_EQ(state.EntryCount[BinList], 2);
    EXPECT_EQ(TextAt(ListWindow, Row(1, 120, 175)), "*** ! ***");
    TapRow(1);
    EXPECT_EQ(Ids(), "31,112,119,118,0,226");
    DragToSlot(1, 2);
    EXPECT_EQ(state.EntryCount[BinList], 2);
    DragToSlot(2, 1); // the account first
    DragToSlot(1, 2);
    EXPECT_EQ(state.EntryCount[BinList], 0);
    EXPECT_EQ(AccountNames(), "Current account,Work expenses,Savings account");
}

TEST_F(Device, ColumnEdgesKeepTheirDistance) {
    static constexpr struct {
        int Screen, Edge, From, To, Lands;
    } cases[] = {
        {1, 1, 150, 100, 100}, {1, 1, 100, 5, 30},  {1, 1, 30, 239, 196},  {2, 2, 134, 60, 74}, {2, 3, 180, 170, 169},
        {4, 1, 38, 60, 60},    {5, 1, 150, 77, 77}, {6, 3, 175, 239, 196}, {7, 1, 44, 20, 40},  {8, 2, 129, 160, 160},
    };
    for (const auto &row : cases) {
        if (state.CurrentScreen != row.Screen)
            ShowScreen(row.Screen);
        Drag(row.From, 50, row.To, 50);
        EXPECT_EQ(state.ColumnEdge[row.Screen][row.Edge], row.Lands) << row.Screen << ": " << row.From;
        EXPECT_EQ(state.ColumnDragScreen, 0);
        EXPECT_TRUE(Remains(TopWindow).empty());
    }
}

TEST_F(Device, RowsOfAListAccountAreDraggedByTheOwner) {
    MakeAccount("Shopping", ListRow);
    for (const char *name : {"Milk", "Bread", "Eggs"}) {
        New(TransactionList);
        Fill({{TitleField, name}, {WholeField, "1"}});
        Tick();
    }
    ASSERT_EQ(Entries(4), "Opening balance,Milk,Bread,Eggs");
    Drag(60, RowMiddle(4).Y, 60, RowMiddle(2).Y);
    EXPECT_EQ(Entries(4), "Opening balance,Eggs,Milk,Bread");
    EXPECT_EQ(WholeMagnitude(Rows(4)[3].RunTotal), 3U);
    EXPECT_EQ(state.SelectedPos[TransactionList], 2);
    Drag(134, 50, 110, 50);
    const ARec account = Accounts()[3];
    EXPECT_EQ(account.ColumnPos[1], normalise(45)); // the hidden edge stays
    EXPECT_EQ(denormalise(account.ColumnPos[2]), 109);
}

TEST_F(Device, ARowHeldIsLetGoWhenAScreenOrAFormOpens) {
    const std::string accounts = AccountNames(), entries = Entries();
    Press(RowMiddle(1).X, RowMiddle(1).Y);
    ShowScreen(TransactionList);
    Release(TabMiddle(6).X, TabMiddle(6).Y);
    Press(RowMiddle(1).X, RowMiddle(1).Y);
    SendCommand(CommandNew);
    Cross();
    Release(TabMiddle(6).X, TabMiddle(6).Y);
    EXPECT_EQ(AccountNames(), accounts);
    EXPECT_EQ(Entries(), entries);
}

TEST_F(Device, AnItemHearsThatItsAccountHasGone) {
    ShowScreen(AccountList);
    const uint32_t account = Read<DDRec>("E1_04DD")[0].Block[0].Account;
    state.SelectedPos[AccountList] = IDtoRec(account);
    SendKey(Key::Delete);
    EXPECT_EQ(Read<DDRec>("E1_04DD")[0].ItemStatus, 2U);
}

} // namespace
