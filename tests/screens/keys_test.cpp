// Keys, scrolling, and the commands of the menus.
#include "device.h"
#include "drawing/colours.h"
#include "state/greys.h"

namespace {

TEST_F(Device, UpAndDownStayWithinTheListAndTheRowOfANewEntry) {
    SendKey(Key::Up);
    EXPECT_EQ(state.SelectedPos[AccountList], 1);
    EXPECT_EQ(Ids(), "75,58,59,0,57,61");
    for (int i = 0; i < 20; ++i)
        SendKey(Key::Down);
    EXPECT_EQ(state.SelectedPos[AccountList], 4);
    EXPECT_EQ(state.TopPos[AccountList], 1);

    ShowScreen(TemplateList);
    SendKey(Key::Help); // seven rows
    for (int i = 0; i < 20; ++i)
        SendKey(Key::Down);
    EXPECT_EQ(state.SelectedPos[TemplateList], 7);
    EXPECT_EQ(state.TopPos[TemplateList], 2); // two blank rows show behind the last entry
    for (int i = 0; i < 20; ++i)
        SendKey(Key::Up);
    EXPECT_EQ(state.SelectedPos[TemplateList], 1);
    EXPECT_EQ(state.TopPos[TemplateList], 1);
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(Device, ScrollingStopsTwoRowsBehindTheLast) {
    static constexpr struct {
        ScrollCode Code;
        int Position, Top;
    } cases[] = {
        {ScrollCode::LineUp, 0, 1},      {ScrollCode::LineDown, 0, 2}, {ScrollCode::LineDown, 0, 2},
        {ScrollCode::PageUp, 0, 1},      {ScrollCode::PageDown, 0, 2}, {ScrollCode::ThumbTrack, 0, 1},
        {ScrollCode::ThumbTrack, 99, 2}, {ScrollCode::Top, 0, 1},      {ScrollCode::Bottom, 0, 2},
    };
    ShowScreen(TemplateList); // six entries
    SendKey(Key::Help);
    Scroll(ScrollCode::Top);
    for (const auto &row : cases) {
        Scroll(row.Code, row.Position);
        EXPECT_EQ(state.TopPos[TemplateList], row.Top) << static_cast<int>(row.Code) << ' ' << row.Position;
        EXPECT_EQ(machine.Scroll.Position, row.Top);
    }
    EXPECT_EQ(Ids(), "57,58,59,0,75,61");
    EXPECT_EQ(state.LeftEye, 10);
}

TEST_F(Device, KeysReachEveryScreenAndNeverQuit) {
    for (int screen = 8; screen >= 1; --screen) {
        ShowScreen(screen);
        EXPECT_EQ(state.CurrentScreen, screen);
        EXPECT_EQ(state.TabPage, screen > 6 ? 1 : screen == 6 ? 1 : 0) << screen;
    }
    SendKey(Key::Escape);
    EXPECT_TRUE(ProgramRuns());
    SendKey(Key::Help);
    EXPECT_EQ(Ids(), "1,2,3,0,4,0");
    SendKey(Key::Escape);
    EXPECT_EQ(state.HelpMode, 0U);
    SendKey(Key::New);
    EXPECT_EQ(state.ActiveDialog, NewAccountDialog);
    SendKey(Key::Tab4); // a form keeps its screen
    EXPECT_EQ(state.CurrentScreen, AccountList);
    SendKey(Key::Escape);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    SendKey(Key::Modify);
    EXPECT_EQ(machine.Beeps, 1); // the blank row that New selected
    EXPECT_EQ(Ids(), "0,308,0,0,0,0");
    SendKey(Key::Up);
    SendKey(Key::Modify);
    EXPECT_EQ(state.ActiveDialog, AccountDialog);
    SendKey(Key::Tick);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(AccountNames(), "Current account,Savings account,Work expenses");
}

TEST_F(Device, ArrowsStepThroughAccountsAndSkipTotals) {
    StrokeRow(2); // Current, Total, Savings, Work
    TapRow(1);
    SendKey(Key::Right);
    EXPECT_EQ(state.CurrentScreen, TransactionList);
    EXPECT_EQ(Utf8(state.CurAccount.Name), "Current account");
    EXPECT_EQ(state.SelectedPos[TransactionList], 5);
    static constexpr struct {
        Key Code;
        const char *Name;
    } steps[] = {{Key::Right, "Savings account"}, {Key::Right, "Work expenses"},  {Key::Right, "Current account"},
                 {Key::Left, "Work expenses"},    {Key::Left, "Savings account"}, {Key::Left, "Current account"}};
    for (const auto &step : steps) {
        SendKey(step.Code);
        EXPECT_EQ(Utf8(state.CurAccount.Name), step.Name);
        EXPECT_EQ(TextAt(TopWindow, {47, 0, 193, 15}), step.Name);
    }
    EXPECT_EQ(Ids(), "125,72,73,0,126,76");
    ShowScreen(GraphList);
    SendKey(Key::Right);
    EXPECT_EQ(TextAt(TopWindow, {47, 0, 193, 15}), "Savings account");
    ShowScreen(TransactionList);
    EXPECT_EQ(Utf8(state.CurAccount.Name), "Savings account");
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "12 Feb | Opening balance | 9000.00 | 9000.00");
}

TEST_F(Device, ArchiveAndUnarchiveKeepEveryBalance) {
    OpenRow(1);
    TapRow(2);
    ASSERT_TRUE(SendCommand(CommandArchive));
    EXPECT_EQ(Entries(), "Archived,Rent,Monday,Visa payment");
    EXPECT_EQ(Names<TRec>("E1_02R1"), "Opening balance,ATM");
    EXPECT_EQ(TextAt(ListWindow, Row(1, 45, 226)), "Archived | 764.00 | 764.00");
    Tap(100, 30);
    EXPECT_EQ(Ids(), "77,78,79,89,0,80");
    EXPECT_EQ(state.EntryCount[TransactionList], 2);
    const std::vector<StandingText> title = TextsIn(TopWindow, {47, 0, 193, 15});
    ASSERT_EQ(title.size(), 1U);
    EXPECT_TRUE(IsRed(title[0].InkColour));
    EXPECT_FALSE(SendCommand(CommandArchive));
    // A deletion in the archive leaves a marker that keeps the balance.
    TapRow(1);
    SendCommand(CommandDeletePreceding);
    EXPECT_EQ(Names<TRec>("E1_02R1"), "Deleted,ATM");
    TapRow(1);
    EXPECT_EQ(Ids(), "0,220,221,0,0,0");
    ASSERT_TRUE(SendCommand(CommandUnarchive));
    EXPECT_TRUE(ReadBytes(root.DataFile("E1_02R1")).empty());
    EXPECT_EQ(Entries(), "Deleted,ATM,Rent,Monday,Visa payment");
    Tap(100, 30);
    EXPECT_EQ(Ids(), "0,0,81,80,0,0");
    EXPECT_EQ(Accounts()[0].Balance, 516000);
}

TEST_F(Device, WhatIsStillToComeIsNotArchivedAndTheOwnerHearsIt) {
    SetClock(2026, 1, 2);
    OpenRow(1);
    TapRow(2);
    machine.Beeps = 0;
    ASSERT_TRUE(SendCommand(CommandArchive));
    EXPECT_GT(machine.Beeps, 0);
    EXPECT_EQ(Ids(), "0,542,543,0,0,0");
    EXPECT_EQ(Names<TRec>("E1_02R1"), "");
}

TEST_F(Device, ABigArchiveShowsItsProgressAndClosesItself) {
    OpenRow(1);
    for (int i = 0; i < 12; ++i)
        SendCommand(CommandInsertDay);
    ASSERT_EQ(state.EntryCount[TransactionList], 17);
    SendKey(Key::Up);
    const int shown = machine.ShownNow;
    SendCommand(CommandArchive);
    EXPECT_GT(machine.ShownNow, shown);
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(Names<TRec>("E1_02R1"), "Opening balance,ATM,Rent");
    EXPECT_EQ(state.RowCount, 12);
    EXPECT_EQ(Utf8(state.TranRows[1].Rec.Name), "Archived");
}

TEST_F(Device, RangesAreDeletedInTwoStepsOrUpToARow) {
    OpenRow(1);
    TapRow(2);
    SendCommand(CommandDeleteStart);
    EXPECT_EQ(Ids(), "0,230,0,231,0,0");
    TapRow(3);
    SendCommand(CommandDeleteFinish);
    EXPECT_EQ(Entries(), "Opening balance,Monday,Visa payment");
    EXPECT_EQ(Accounts()[0].Balance, 964000);
    EXPECT_EQ(state.EntryCount[BinList], 2);
    EXPECT_TRUE(Remains(ListWindow).empty());

    ShowScreen(TemplateList);
    TapRow(5);
    SendCommand(CommandDeletePreceding);
    EXPECT_EQ(Names<FRec>("E1_05FAV"), "Dividend");
    EXPECT_EQ(state.EntryCount[BinList], 7);
}

TEST_F(Device, JeopardyShowsWhatBreaksALimit) {
    TapRow(3); // Work expenses, -162.03
    SendCommand(CommandJeopardyOn);
    EXPECT_EQ(Ids(), "293,10,0,295,296,10");
    EXPECT_EQ(Accounts()[2].BalanceInJeopardy, 1U);
    EXPECT_EQ(ColourAt(ListWindow, 140, 42), BrushColour(JeopardyBrush));
    TapRow(3);
    EXPECT_EQ(Ids(), "29,291,40,32,33,5");
    OpenRow(3);
    TapRow(1);
    EXPECT_EQ(Ids(), "38,291,40,41,42,43");
    const std::vector<StandingText> title = TextsIn(ListWindow, Row(1, 45, 135));
    ASSERT_EQ(title.size(), 1U);
    EXPECT_EQ(title[0].InkColour, White);
    SendCommand(CommandJeopardyOff);
    EXPECT_EQ(Ids(), "0,292,10,0,0,0");
    EXPECT_EQ(ColourAt(ListWindow, 100, 10), BrushColour(SilverBrush));
}

TEST_F(Device, AlignedColumnsReachAllAccountsOfTheKind) {
    MakeAccount("Shopping", ListRow);
    ShowScreen(AccountList);
    OpenRow(1);
    Drag(180, 50, 165, 50);
    SendCommand(CommandAlign);
    EXPECT_EQ(Ids(), "0,289,290,0,0,0");
    const std::vector<ARec> rows = Accounts();
    EXPECT_EQ(rows[2].ColumnPos[3], rows[0].ColumnPos[3]);
    EXPECT_NE(rows[3].ColumnPos[3], rows[0].ColumnPos[3]);
    EXPECT_EQ(state.CurAccount.ID, rows[0].ID);
}

TEST_F(Device, ReconcileEntryFindsMarksAndGoes) {
    OpenRow(1);
    StrokeRow(1); // the opening balance stands on the statement
    SendCommand(CommandInsertReconcile);
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    SetText(WholeField, "764"); // after the ATM
    SendCommand(CommandTick);
    ASSERT_EQ(state.ReconcileState, ReconcileStep::Solved);
    EXPECT_EQ(ColourAt(ListWindow, 36, 27), BrushColour(FlaggedBrush));
    const int row = state.SelectedPos[TransactionList];
    TapRow(row);
    EXPECT_EQ(Ids(), "428,0,42,429,430,0");
    EXPECT_EQ(TextAt(ListWindow, Row(row, 134, 226)), "1 | 764.00");
    StrokeRow(row);
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Visa payment");
    EXPECT_EQ(Rows()[1].Cleared, 1U);
    EXPECT_EQ(Accounts()[0].ClearedBalance, 764000);
}

TEST_F(Device, AFormOpenedFromTheGraphLeadsBackToIt) {
    ShowScreen(GraphList);
    Tap(10, 50); // the mode of the plain graph
    SendKey(Key::New);
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    SendKey(Key::Escape);
    EXPECT_EQ(state.CurrentScreen, GraphList);
    EXPECT_EQ(Ids(), "122,12,0,250,252,0");
    EXPECT_EQ(machine.Scroll.Box.Bottom, 205); // as high as the twelve rows again
    EXPECT_FALSE(machine.Scroll.Shown);
    EXPECT_EQ(state.RepaintSkip, 0) << "a later paint request would leave the screen blank";
}

TEST_F(Device, RefusedCommandsBeepOrKeepStill) {
    SendCommand(CommandNew);
    ASSERT_EQ(state.ActiveDialog, NewAccountDialog);
    static constexpr struct {
        int Id, Beeps;
    } cases[] = {{CommandArchive, 1},   {CommandUnarchive, 1},  {CommandImport, 1}, {CommandExport, 1},
                 {CommandModify, 1},    {CommandJeopardyOn, 1}, {CommandNew, 0},    {CommandDeleteOne, 0},
                 {CommandFilterOff, 0}, {CommandInsertDay, 0},  {CommandAbout, 0},  {CommandExit, 0}};
    for (const auto &row : cases) {
        machine.Beeps = 0;
        SendEvent({.Kind = EventKind::Command, .Code = row.Id});
        EXPECT_EQ(machine.Beeps, row.Beeps) << row.Id;
        EXPECT_EQ(state.ActiveDialog, NewAccountDialog);
    }
    const std::string accounts = AccountNames();
    TapRow(2); // nor does a list under a form answer
    EXPECT_EQ(AccountNames(), accounts);
    SendCommand(CommandCross);
    ASSERT_EQ(state.ActiveDialog, NoDialog);
}

TEST_F(Device, PaintRequestsAreSwallowedAsOftenAsAsked) {
    state.RepaintSkip = 2;
    for (int round = 0; round < 3; ++round) {
        painted[ListWindow] = {};
        SendEvent({.Kind = EventKind::Paint});
        EXPECT_EQ(painted[ListWindow].Fills > 0, round == 2);
    }
}

TEST_F(Device, ASolutionIsSeenBeforeItIsApplied) {
    OpenRow(1);
    for (int n = 0; n < 12; ++n) {
        New(TransactionList);
        SetDate(DateField, 2026, 2, 26);
        Tick();
    }
    SendCommand(CommandInsertReconcile);
    Fill({{WholeField, std::to_string((Accounts()[0].ClearedBalance + 964000) / 1000)}});
    Tick();
    ASSERT_EQ(state.ReconcileState, ReconcileStep::Solved);
    ASSERT_GT(state.TopPos[TransactionList], 1);
    SendKey(Key::Stroke);
    EXPECT_EQ(state.TopPos[TransactionList], 1);
    EXPECT_EQ(Rows()[0].Cleared, 0U);
    state.SelectedPos[TransactionList] = Find<TRec>("E1_02A1", "Reconcile");
    SendKey(Key::Stroke); // brings the row into view
    SendKey(Key::Stroke);
    EXPECT_EQ(Rows()[0].Cleared, 1U);
    EXPECT_EQ(Find<TRec>("E1_02A1", "Reconcile"), 0);
}

TEST_F(Device, GreysFollowTheAccountOfAGraphAndALiftedFilter) {
    MakeAccount("Shopping", ListRow);
    ShowScreen(GraphList);
    EXPECT_FALSE(CommandEnabled(ShowDate));
    Tap(45, 33); // the account before
    EXPECT_TRUE(CommandEnabled(ShowDate));
    ShowScreen(AccountList);
    OpenRow(1);
    TapRow(2);
    ASSERT_TRUE(SendCommand(ShowName));
    ShowScreen(BinList);
    EXPECT_TRUE(CommandEnabled(CommandFilterOff));
    SendCommand(CommandEmptyBin); // asks
    SendCommand(CommandEmptyBin);
    EXPECT_FALSE(CommandEnabled(CommandFilterOff));
}

} // namespace
