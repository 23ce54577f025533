// The road: a first start, an entry on a real screen, kept for good.
#include "day.h"
#include "state/state.h"

using namespace stories;

class Road : public testing::Test {
protected:
    Road() { SetClock(2026, 3, 2); }
    TestRoot root;
};

TEST_F(Road, AFirstStartShowsThreeAccountsWithBalancesAsOfToday) {
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.CurrentScreen, AccountList);
    EXPECT_EQ(
        RowsShown(state.RowCount),
        (std::vector<std::string>{"Current account | 516.00", "Savings account | 6033.21", "Work expenses | 162.03"}));
    const auto balance = [](int row) { return TextsIn(ListWindow, Row(row, 150)).at(0).InkColour; };
    EXPECT_EQ(balance(1), Rgb(0, 0, 0));
    EXPECT_TRUE(IsRed(balance(3))) << "a negative balance is told by its colour alone";
    EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")),
              (std::vector<std::string>{"2026-02-12 Opening balance 964000", "2026-02-21 ATM -200000",
                                        "2026-02-23 Rent -248000", "2026-03-02 Monday 0",
                                        "2026-03-09 Visa payment -344980"}));
    EXPECT_EQ(state.RowCount, 7);
    EXPECT_EQ(Lines(), "/Tap an item on the screen/for information on that item///");
    EXPECT_EQ(TextAt(TopWindow, {0, 15, 240, 36}), "Name | Balance");
    for (const char *name : {"E1_03CON", "E1_04DD", "E1_05FAV", "E1_07CAT", "E1_08CUR", "E1_09SST"})
        EXPECT_FALSE(ReadBytes(root.DataFile(name)).empty()) << name;
    QuitProgram();
    // The next start finds accounts: no message window, the same rows.
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.EntryCount[AccountList], 3);
    EXPECT_EQ(state.RowCount, 12);
    EXPECT_EQ(state.HelpMode, 0u);
}

TEST_F(Road, ABackDatedEntryStandsInItsPlaceForGood) {
    ASSERT_TRUE(StartProgram());
    OpenRow(1);
    ASSERT_EQ(state.CurrentScreen, TransactionList);
    OpenRow(6); // the blank one
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    FillEntry({2026, 2, 22, "Groceries", "45", "5"});
    Tick();

    EXPECT_EQ(state.ActiveDialog, NoDialog);
    const std::vector<std::string> rows = {"12 Feb | Opening balance | 964.00 | 964.00",
                                           "21 Feb | ATM | 200.00 | 764.00",
                                           "22 Feb | Groceries | 45.50 | 718.50",
                                           "23 Feb | Rent | 248.00 | 470.50",
                                           "02 Mar | Monday | 470.50",
                                           "09 Mar | Visa payment | 344.98 | 125.52"};
    EXPECT_EQ(RowsShown(state.RowCount), rows);
    EXPECT_TRUE(IsRed(TextsIn(ListWindow, Row(3, 135, 180)).at(0).InkColour));
    std::vector<int64_t> totals;
    for (const TRec &entry : RecordsIn<TRec>(root.DataFile("E1_02A1")))
        totals.push_back(entry.RunTotal);
    EXPECT_EQ(totals, (std::vector<int64_t>{964000, 764000, 718500, 470500, 470500, 125520}));

    TapSlot(1);
    EXPECT_EQ(RowsShown(1), std::vector<std::string>{"Current account | 470.50"});
    EXPECT_EQ(RecordsIn<ARec>(root.DataFile("E1_01IND")).at(0).Balance, 470500);

    const auto files = Snapshot(root.Path());
    QuitProgram();
    EXPECT_FALSE(ProgramRuns());
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(RowsShown(1), std::vector<std::string>{"Current account | 470.50"});
    OpenRow(1);
    EXPECT_EQ(RowsShown(state.RowCount), rows);
    EXPECT_EQ(Snapshot(root.Path()), files) << "a restart on the same day changes no byte";
    EXPECT_EQ(disk.OpenHandles, 0);
}
