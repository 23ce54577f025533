// Every stored total is the sum an owner would work out by hand.
#include "input/commands.h"
#include "ledger/jeopardy.h"
#include "ledger/ledger_test.h"
#include "ledger/markers.h"
#include "ledger/shares.h"
#include "program/sample_data.h"
#include "resources/menus.h"
#include "screens/inserting.h"

TEST_F(Ledger, TheFirstRunShowsThreeAccountsWithBalancesAsOfToday) {
    for (const FileKind kind :
         {FileKind::Accounts, FileKind::Recurring, FileKind::Templates, FileKind::Conversions, FileKind::Check})
        CreateSampleData(kind);
    EXPECT_EQ(Names(1), "Opening balance 964, ATM 764, Rent 516, Monday 516, Visa payment 171");
    EXPECT_EQ(Names(2), "Opening balance 9000, Car deposit 6000, Interest 6033, Monday 6033");
    EXPECT_EQ(Names(3), "Train -49, Mileage to station -52, Hotel -162, Monday -162");
    EXPECT_EQ(Balances(2), "6033210, -2966790");
    EXPECT_EQ(Account(3).Balance, -162030);
    EXPECT_EQ(Rows(1)[4].CatID, Read<CatRec>("E1_07CAT")[0].CatID);
    EXPECT_EQ(Utf8(Read<CatRec>("E1_07CAT")[1].Name), "Cat 2 - Corporate");
    EXPECT_EQ(Fields(Items().at(0), "NextDate"), "2026-04-01");
    EXPECT_EQ(Items().at(0).Block[1].Account, 2U);
    EXPECT_EQ(Read<FRec>("E1_05FAV").size(), 6U);
    EXPECT_EQ(Read<CurRec>("E1_08CUR").at(4).InverseRate, 450);
    EXPECT_EQ(Utf8(Read<ConfRec>("E1_09SST").at(0).PassCheck), ".v.Q .5.-;.}>k~[");
    EXPECT_EQ(machine.Beeps, 0);
}

TEST_F(Ledger, MoneyRowsAddUpByTheirKind) {
    const uint32_t bank = NewAccount(BankAccount, {{-9, "Archived", 100000, 1, 1, ArchiveMarker},
                                                   {-8, "Deleted", 5000, 7, 1, DeletedMarker},
                                                   {-3, "Three nights", -10000, 3},
                                                   {-3, "Cash row", -2000, 9, 1, EntryRow, 1},
                                                   {-2, "Reconcile", 777000, 1, 0, ReconcileEntry},
                                                   {0, "Monday", 999, 1, 0, DayMarker},
                                                   {0, "Back", -4000, -2, 1},
                                                   {1, "Tomorrow", 1000}});
    EXPECT_EQ(Names(bank), "Archived 100, Deleted 105, Three nights 75, Cash row 73, Reconcile 73, Monday 73, Back 81, "
                           "Tomorrow 82");
    const std::vector<TRec> rows = Rows(bank);
    EXPECT_EQ(rows[5].Units, 0);
    EXPECT_EQ(rows[4].Units, 0);
    EXPECT_EQ(rows[7].RunCleared, 5000 - 2000 + 8000);
    EXPECT_EQ(Balances(bank), "81000, 11000");

    // The first row in the future: nothing as of today, but the check of all accounts takes the first row's totals.
    const uint32_t later = NewAccount(ListAccount, {{5, "Soon", 3000}, {6, "Later", 4000}});
    EXPECT_EQ(Account(later).Balance, 0);
    CheckT1totals();
    EXPECT_EQ(Account(later).Balance, 3000);
    EXPECT_EQ(Account(bank).Balance, 81000);
    EXPECT_EQ(CalcBalance(NewAccount(BankAccount)), 0);
}

TEST_F(Ledger, ShareRowsKeepSharesPriceAndCash) {
    const uint32_t shares = NewAccount(ShareValue, {{-9, "in", 1000000, 1, 1, EntryRow, 1},
                                                    {-8, "buy", 2500, 100, 1},
                                                    {-7, "free", 3000, 10, 0, EntryRow, 0, 1},
                                                    {-6, "sell", 4000, -50},
                                                    {-5, "fee", -1500, 1, 0, EntryRow, 1},
                                                    {-4, "day", 0, 5, 0, DayMarker}});
    const std::vector<TRec> rows = Rows(shares);
    constexpr const char *expected[] = {
        "1, 0, 0, 1000000, 1000000, 0, 0",          "100, 100, 100, 750000, 750000, 2500, 2500",
        "10, 110, 100, 750000, 750000, 3000, 2500", "-50, 60, 100, 950000, 750000, 4000, 2500",
        "1, 60, 100, 948500, 750000, 4000, 2500",   "0, 60, 100, 948500, 750000, 4000, 2500",
    };
    for (size_t n = 0; n < 6; ++n)
        EXPECT_EQ(Fields(rows.at(n), "Units RunUnits RunClearedUnits RunTotal RunCleared Value ClearedValue"),
                  expected[n]);
    EXPECT_EQ(Balances(shares), "1188500, 1000000"); // 60 * 4 + 948.5 and 100 * 2.5 + 750
    EXPECT_EQ(RowBalance(rows[5], ShareValue, 0), 1188500);

    EXPECT_EQ(UpdateShareMode(shares, ShareCash), 1);
    EXPECT_EQ(Account(shares).AccType, +ShareCash);
    std::string order = "2";
    for (uint32_t mode = NextShareMode(2); mode != 2; mode = NextShareMode(mode))
        order += std::to_string(mode);
    EXPECT_EQ(order, "24356");
}

TEST_F(Ledger, AnEntryFindsItsPlaceInTheDay) {
    const uint32_t bank = NewAccount(BankAccount);
    for (const Entry &entry : std::vector<Entry>{{0, "Marker", 0, 0, 0, DayMarker},
                                                 {0, "b", 1},
                                                 {0, "c", 1},
                                                 {-5, "a", 1},
                                                 {0, "Archived", 0, 0, 0, ArchiveMarker},
                                                 {0, "Deleted", 0, 0, 0, DeletedMarker},
                                                 {0, "Second", 0, 0, 0, DayMarker},
                                                 {3, "d", 1}})
        Put(bank, entry);
    EXPECT_EQ(Names(bank), "a 0, Deleted 0, Archived 0, b 0, c 0, Marker 0, Second 0, d 0");
    // An item goes before its equals.
    PutItem(ItemOf("first", 3, bank, 1, "Day(s)", 1, 1));
    const struct {
        int Screen;
        uint32_t Day;
        int32_t Place;
    } cases[] = {{TransactionList, Today, 6},
                 {TransactionList, FirstDayNumber, 1},
                 {RecurringList, Today + 3, 1},
                 {RecurringList, Today + 4, 2},
                 {BinList, Today, 1}};
    for (const auto &test : cases) {
        state.CurrentScreen = test.Screen;
        EXPECT_EQ(CpDates(DateFromDayNumber(test.Day), EntryRank), test.Place) << test.Screen << ": " << test.Day;
    }
    EXPECT_NE(machine.Terminal.back().find("CpDates caseError"), std::string::npos);
}

TEST_F(Ledger, AMovedEntryStandsOnceAndIsSelected) {
    const uint32_t bank = NewAccount(BankAccount);
    const struct {
        int32_t From, To, Selected;
        const char *Names;
    } cases[] = {
        {1, 4, 3, "b 2, c 5, X 105, d 109"},   {4, 1, 1, "X 100, a 101, b 103, c 106"},
        {2, 2, 2, "a 1, X 101, c 104, d 108"}, {2, 3, 2, "a 1, X 101, c 104, d 108"},
        {1, 5, 4, "b 2, c 5, d 9, X 109"},
    };
    for (const auto &test : cases)
        for (int failAt = 0; failAt < 6; ++failAt) {
            SCOPED_TRACE(testing::Message() << test.From << " to " << test.To << ", write " << failAt << " fails");
            Fill(bank, {{0, "a", 1000}, {0, "b", 2000}, {0, "c", 3000}, {0, "d", 4000}});
            const TRec moved = RowOf({0, "X", 100000});
            int done = 0;
            WithFailingAction({.FailAt = failAt}, &done, [&] { return MoveRecFile(bank, test.From, test.To, &moved); });
            EXPECT_TRUE(failAt > 0 || (done && state.SelectedPos[TransactionList] == test.Selected));
            CalcBalance(bank);
            EXPECT_EQ(Names(bank), done ? test.Names : "a 1, b 3, c 6, d 10");
        }
    state.CurrentScreen = CategoryList;
    CatRec category = {};
    EXPECT_EQ(MoveRecFile(0, 1, 2, &category), 0);
}

TEST_F(Ledger, TheDayMarkerInTheWindowFollowsTheCalendar) {
    const uint32_t bank = NewAccount(
        BankAccount,
        {{-3, "a", 1000}, {-2, "Saturday", 0, 0, 1, DayMarker}, {-1, "b", 2000}, {0, "c", 3000}, {4, "d", 4000}});
    EXPECT_EQ(Names(bank), "a 1, b 3, c 6, Monday 6, d 10");
    EXPECT_EQ(Fields(Rows(bank)[3], "Date Cleared"), "2026-03-02, 0");
    EXPECT_EQ(state.EntryCount[TransactionList], 5);

    // Out of the window, or in the archive, it stays.
    std::vector<Entry> many(20, Entry{-4, "x", 0});
    many.insert(many.begin(), {-9, "Old", 0, 0, 0, DayMarker});
    Fill(bank, many);
    EXPECT_EQ(Rows(bank)[0].Date.DayNumber, Today - 9);
    LoadTranFile(1, 1);
    EXPECT_EQ(Utf8(Rows(bank)[20].Name), "Monday");
    state.CurrentScreen = TransactionList;
    EXPECT_EQ(InsertDayMarker(), 1);
    EXPECT_EQ(Rows(bank).size(), 22U);
    EXPECT_EQ(state.SelectedPos[TransactionList], 22);
    state.FilterView = 1;
    EXPECT_EQ(InsertDayMarker(), 0);
}

TEST_F(Ledger, ATotalMarkerHasNoRowsAndNoFile) {
    Put(NewAccount(BankAccount), {-1, "x", 1000});
    state.CurrentScreen = AccountList;
    state.SelectedPos[AccountList] = 2;
    EXPECT_EQ(InsertTotalMarker(), 1);
    const ARec marker = Read<ARec>("E1_01IND").at(1);
    EXPECT_EQ(Fields(marker, "Name Balance MaxLimit"), "Total, 1000, 50000");
    LoadTranFile(2, 0);
    EXPECT_EQ(state.EntryCount[TransactionList], 0);
    EXPECT_EQ(CalcBalance(marker.ID), 0);
    EXPECT_TRUE(File(marker.ID).empty());
}

TEST_F(Ledger, AWatchedLimitWarnsInTime) {
    const struct {
        const char *What;
        std::vector<Entry> Rows;
        uint32_t Flag;
    } cases[] = {
        {"equal to the limit", {{-1, "", 50000}}, 0},
        {"a thousandth below one, cut to whole units", {{-1, "", 50999}, {0, "", -1000}}, 1},
        {"a past breach that stands", {{-1, "", 10000}}, 1},
        {"a past breach mended by today", {{-2, "", 10000}, {0, "", 90000}}, 0},
        {"mended only tomorrow", {{-2, "", 10000}, {1, "", 90000}}, 1},
        {"a breach to come, mended after it", {{-2, "", 90000}, {3, "", -80000}, {4, "", 90000}}, 1},
        {"above the other limit, not watched", {{-2, "", 60000000}}, 0},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.What);
        const uint32_t bank = NewAccount(BankAccount);
        ARec account = Account(bank);
        account.LowWatch = 1;
        state.CurrentScreen = AccountList;
        ASSERT_EQ(ModRecFile(0, IDtoRec(bank), &account), 1);
        Fill(bank, test.Rows);
        EXPECT_EQ(Account(bank).BalanceInJeopardy, test.Flag);
        // Nothing is reconciled: that balance is 0 all along, and its breach stands.
        EXPECT_EQ(Account(bank).ClearedInJeopardy, 1U);
        CheckT1totals();
        EXPECT_EQ(Account(bank).BalanceInJeopardy, test.Flag);
    }
    state.CurrentScreen = TransactionList;
    DoCommand(CommandJeopardyOn);
    EXPECT_EQ(Account(7).BalanceInJeopardy, 1U); // 60,000 is above 50,000
    state.ArchiveView = 1;
    DoCommand(CommandJeopardyOff);
    EXPECT_EQ(Account(7).LowWatch + Account(7).HighWatch + Account(7).BalanceInJeopardy, 0U);
    state.ActiveDialog = AccountDialog;
    DoCommand(CommandJeopardyOn);
    EXPECT_EQ(Line(1), "First select a valid entry to modify!");
}
