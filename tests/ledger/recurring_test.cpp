// Standing orders are paid once each, on their day, whole.
#include "ledger/ledger_test.h"

namespace {

std::string Dates(const std::vector<TRec> &rows) {
    std::string dates;
    for (const TRec &row : rows)
        dates += std::to_string(row.Date.Year) + "-" + std::to_string(row.Date.Month) + "-" +
                 std::to_string(row.Date.Day) + " ";
    return dates;
}

DDRec ItemOn(uint32_t year, int month, int day, uint32_t account, const char *unit, int32_t period, int32_t total) {
    DDRec item = ItemOf("Rent", 0, account, -5000, unit, period, total);
    item.NextDate = {year, static_cast<int8_t>(month), static_cast<int8_t>(day), {}, 0};
    InsertAbs(&item.NextDate);
    item.DayWanted = static_cast<uint8_t>(day);
    return item;
}

} // namespace

TEST_F(Ledger, AnItemFiresOnItsDaysAndNoOther) {
    const struct {
        uint32_t Year;
        int Month, Day; // next date
        const char *Unit;
        int32_t Period, Total;
        const char *Fired;
        int32_t Remaining, NextDay; // from 2 March 2026
    } cases[] = {
        {2026, 3, 9, "Day(s)", 1, 5, "2026-3-9 ", 4, 8}, // the last day of the look-ahead of 7
        {2026, 3, 10, "Day(s)", 1, 5, "", 5, 8},
        {2026, 3, 1, "Day(s)", 3, 2, "2026-3-1 2026-3-4 ", 0, 2}, // the last date stands
        {2026, 2, 20, "Week(s)", 1, ForEver, "2026-2-20 2026-2-27 2026-3-6 ", ForEver, 11},
        {2026, 1, 31, "Month(s)", 1, ForEver, "2026-1-31 2026-2-28 ", ForEver, 29},
        {2023, 11, 30, "Month(s)", 15, ForEver, "2023-11-30 2025-2-28 ", ForEver, 89},
        {2024, 2, 29, "Year(s)", 1, 9, "2024-2-29 2025-2-28 2026-2-28 ", 6, 363},
        {2026, 3, 1, "Month(s)", 0, 5, "", 5, -1},
        {2026, 3, 1, "Month(s)", 1, 0, "", 0, -1},
        {2026, 3, 2, "Fortnight(s)", 1, 5, "2026-3-2 ", 0, 0}, // no such period: once, and ended
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(testing::Message() << test.Year << "-" << test.Month << "-" << test.Day << " " << test.Unit);
        const uint32_t bank = NewAccount(BankAccount);
        PutItem(ItemOn(test.Year, test.Month, test.Day, bank, test.Unit, test.Period, test.Total));
        state.CurrentScreen = RecurringList;
        CheckDDs();
        CheckDDs(); // nothing is paid twice
        EXPECT_EQ(state.CurrentScreen, +RecurringList);
        EXPECT_EQ(Dates(Rows(bank)), test.Fired);
        EXPECT_EQ(Items()[0].Remaining, test.Remaining);
        EXPECT_EQ(Items()[0].NextDate.DayNumber, Today + static_cast<uint32_t>(test.NextDay));
        EXPECT_EQ(Items()[0].ItemStatus, 0U);
        EXPECT_EQ(Items()[0].FirstDone, *test.Fired ? 1 : 0);
        EXPECT_EQ(Rows(bank).empty() ? 0 : Rows(bank).back().RunTotal, -5000 * static_cast<int>(Rows(bank).size()));
        WriteBytes(Root.DataFile("E1_04DD"), {});
    }
}

TEST_F(Ledger, The29thFallsInto2100Too) {
    const uint32_t bank = NewAccount(BankAccount);
    PutItem(ItemOn(2100, 1, 29, bank, "Month(s)", 1, ForEver));
    SetClock(2100, 3, 22);
    CheckDDs();
    EXPECT_EQ(Dates(Rows(bank)), "2100-1-29 2100-2-29 2100-3-29 ");
    EXPECT_EQ(Rows(bank)[1].Date.DayNumber - Rows(bank)[0].Date.DayNumber, 31U);
}

TEST_F(Ledger, ALongForgottenItemCatchesUpInSteps) {
    const uint32_t bank = NewAccount(BankAccount);
    PutItem(ItemOf("Bread", -60, bank, -100, "Day(s)", 1, ForEver));
    PutItem(ItemOf("Exactly", -17, bank, -100, "Day(s)", 1, ForEver));
    CheckDDs();
    EXPECT_EQ(Rows(bank).size(), 25U + 25U);
    for (int n = 0; n < 2; ++n) { // which a look at the items does not take away
        EXPECT_EQ(DDFileCheck(), 0);
        EXPECT_EQ(Items()[0].ItemStatus, +GeneratesMany);
        EXPECT_EQ(Items()[1].ItemStatus, 0U);
    }
    CheckDDs();
    CheckDDs();
    EXPECT_EQ(Rows(bank).size(), 68U + 25U);
    EXPECT_EQ(Items()[0].ItemStatus + Items()[1].ItemStatus, 0U);
    EXPECT_EQ(machine.Exclamations, 3);
}

TEST_F(Ledger, APassOfManyEntriesShowsHowFarItHasCome) {
    const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
    for (const size_t items : {size_t{39}, size_t{40}}) {
        while (Items().size() < items)
            PutItem(ItemOf("Bread", -60, Items().size() % 2 ? a : b, -100, "Day(s)", 1, ForEver));
        machine.ShownNow = 0;
        CheckDDs();
        EXPECT_EQ(machine.ShownNow, items < 40 ? 0 : 1 + 2) << "opened, and each account";
        EXPECT_EQ(form.Resource + state.ActiveDialog, 0);
    }
}

TEST_F(Ledger, TheFirstOccurrenceHasItsOwnAmountAndAccount) {
    const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
    DDRec item = ItemOf("Credit", 0, a, 2000000, "Day(s)", 7, 3);
    item.Block[1].Value = 2500000;
    item.Block[1].Account = b;
    item.Block[1].Flag = 2;
    item.Block[1].CatID = 20000;
    CopyText(item.Block[1].Memo, TextRoom, u"later");
    PutItem(item);
    CheckDDs();
    EXPECT_EQ(Names(a), "Credit 2000");
    EXPECT_EQ(Names(b), "Credit 2500");
    EXPECT_EQ(Fields(Rows(b)[0], "Flag CatID Memo"), "2, 20000, later");
    EXPECT_EQ(Items()[0].Remaining, 1);
}

// It takes from one account what it gives to the other, whatever the two are.
TEST_F(Ledger, ATransferReachesBothAccountsOfAnyKind) {
    const struct {
        uint32_t From, To, Cash;
        int64_t FromBalance, ToBalance;
        const char *Counter;
    } cases[] = {
        {BankAccount, BankAccount, 0, -30000, 30000, "10000, 3, 0, 0"},
        {BankAccount, ListAccount, 1, -10000, 10000, "10000, 1, 0, 0"},
        {BankAccount, ShareValue, 0, -30000, 30000, "30000, 1, 0"},
        {ShareValue, BankAccount, 1, -10000, 10000, "10000, 1, 0, 0"},
        {ShareValue, ListAccount, 0, 0, 30000, "10000, 3, 0, 0"},
        {ShareValue, ShareTotal, 1, -10000, 10000, "10000, 1, 0"},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(testing::Message() << test.From << " to " << test.To << " cash " << test.Cash);
        const uint32_t from = NewAccount(test.From), to = NewAccount(test.To);
        DDRec item = ItemOf("Save", 0, from, -10000, "Year(s)", 1, 1);
        item.Block[0].Units = 3;
        item.Block[0].Cash = test.Cash;
        item.Block[0].Transfer = to;
        PutItem(item);
        CheckDDs();
        ASSERT_EQ(Rows(from).size(), 1U);
        ASSERT_EQ(Rows(to).size(), 1U);
        EXPECT_EQ(Account(from).Balance, test.FromBalance);
        EXPECT_EQ(Account(to).Balance, test.ToBalance);
        EXPECT_EQ(Rows(from)[0].TransferID, to);
        const TRec counter = Rows(to)[0]; // a cash row's Value is the price
        EXPECT_EQ(Fields(counter, counter.Cash ? "CashAmount Cash TransferID" : "Value Units Cash TransferID"),
                  test.Counter);
    }
}

TEST_F(Ledger, ItemsWithoutAnAccountWaitAndSaySo) {
    const uint32_t bank = NewAccount(BankAccount);
    PutItem(ItemOf("Gone", -3, 99, -1, "Day(s)", 1, 5));
    DDRec half = ItemOf("Half", -2, bank, -1000, "Day(s)", 1, 2);
    half.Block[0].Transfer = 77; // pays, though the other end has gone
    half.Block[1].Account = 88;  // and then has no account any more
    PutItem(half);
    CheckDDs();
    EXPECT_EQ(Names(bank), "Half -1");
    EXPECT_EQ(Rows(bank)[0].TransferID, 0U);
    EXPECT_EQ(Items()[0].Remaining, 5);
    EXPECT_EQ(DDFileCheck(), 0);
    EXPECT_EQ(Items()[0].ItemStatus, +MissingAccount);
    EXPECT_EQ(Items()[1].ItemStatus, +MissingAccount);
    WriteBytes(Root.DataFile("E1_04DD"), {});

    PutItem(ItemOf("Fine", 9, bank, 100000999, "Day(s)", 1, 5));
    EXPECT_EQ(DDFileCheck(), 1);
    DDRec large = ItemOf("Large", 9, bank, -1000010, "Day(s)", 1, 5);
    large.Block[0].Units = 100000;
    PutItem(large);
    EXPECT_EQ(DDFileCheck(), 0);
    EXPECT_EQ(state.RecurringInOrder, 0U);
    EXPECT_EQ(Items()[0].ItemStatus + Items()[1].ItemStatus, 0U);
    large.Block[0].Units = INT32_MIN;
    large.Block[0].Value = INT64_MIN;
    large.NextDate = DateFromDayNumber(Today);
    PutItem(large);
    CheckDDs(); // a product beyond 64 bits wraps
}

TEST_F(Ledger, ItemsStandInDateOrderAfterAPass) {
    const uint32_t bank = NewAccount(BankAccount);
    for (int i = 0; i < 40; ++i)
        PutItem(ItemOf(("item" + std::to_string(i)).c_str(), i % 8, bank, 1, i % 3 ? "Month(s)" : "Day(s)", i % 5 + 4,
                       ForEver));
    PutItem(ItemOf("later", 20, bank, 1, "Day(s)", 1, ForEver));
    std::map<std::string, size_t> place; // before the pass
    for (const DDRec &item : Items())
        place.emplace(Utf8(item.Name), place.size());
    CheckDDs();
    const std::vector<DDRec> items = Items();
    ASSERT_EQ(items.size(), 41U);
    for (size_t i = 1; i < items.size(); ++i) { // those of one day keep their order
        const DDRec &one = items[i - 1], &next = items[i];
        EXPECT_LE(one.NextDate.DayNumber, next.NextDate.DayNumber);
        EXPECT_TRUE(one.NextDate.DayNumber < next.NextDate.DayNumber ||
                    place.at(Utf8(one.Name)) < place.at(Utf8(next.Name)));
    }
}

// The owner stays where he was: screen, account, row and view.
TEST_F(Ledger, APassLeavesTheOwnerWhereHeWas) {
    const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
    Fill(b, {{-9, "x", 1000}, {-8, "y", 2000}, {-7, "x", 4000}});
    FilterCriteria criteria;
    CriteriaFromRow(Rows(b)[1], EntriesShown(), 2, state.AccountKind, &criteria);
    ASSERT_EQ(FilterAccount(b, 0, FilterBy::Name, criteria, 0), 1);
    GoTo(b);
    state.SelectedPos[TransactionList] = 2;
    static int painted;
    painted = 0;
    state.Paint[TransactionList] = [](Window, int mask) { painted = mask; };
    PutItem(ItemOf("quiet", 30, a, 1, "Day(s)", 1, 1));
    CheckDDs();
    EXPECT_EQ(painted, 0);
    EXPECT_EQ(state.FilterView, 1U);
    PutItem(ItemOf("due", 0, a, 7000, "Day(s)", 1, 1));
    CheckDDs();
    EXPECT_EQ(painted, 1023);
    EXPECT_EQ(state.CurrentScreen, +TransactionList);
    EXPECT_EQ(state.CurAccount.ID, b);
    EXPECT_EQ(state.SelectedPos[AccountList], 2);
    EXPECT_EQ(state.SelectedPos[TransactionList], 3); // the same row, now among all
    EXPECT_EQ(state.FilterView, 0U);
    EXPECT_EQ(state.EntryCount[TransactionList], 3);
    EXPECT_EQ(Account(b).Balance, 7000);
    EXPECT_EQ(Account(a).Balance, 7000);

    state.ArchiveView = 1;
    state.CurrentScreen = AccountList;
    PutItem(ItemOf("again", 0, a, 7000, "Day(s)", 1, 1));
    CheckDDs();
    EXPECT_EQ(state.ArchiveView, 1U);
    EXPECT_EQ(state.CurrentScreen, +AccountList);
    EXPECT_EQ(Rows(a).size(), 2U);
    EXPECT_TRUE(Rows(a, true).empty());
}

// Whichever write fails, an occurrence is paid in both accounts or in none, and only once.
TEST_F(Ledger, AFailingDiskPaysNoHalfTransfer) {
    for (int n = 1, failed = 1; failed; ++n) {
        SCOPED_TRACE(n);
        const uint32_t a = NewAccount(BankAccount), b = NewAccount(BankAccount);
        DDRec item = ItemOf("Save", 0, a, -10000, "Day(s)", 30, 3);
        item.Block[0].Transfer = b;
        PutItem(item);
        GoTo(a);
        int posted = 0;
        failed = WithFailingAction({.FailAt = n}, &posted, [] { return PostDueItems(); });
        EXPECT_EQ(state.CurAccount.ID, a); // what the owner deletes next is of the account he sees
        EXPECT_EQ(Rows(a).size(), Rows(b).size());
        CheckDDs();
        EXPECT_EQ(Rows(a).size(), 1U); // paid once, however often it took
        EXPECT_EQ(Rows(b).size(), 1U);
        WriteBytes(Root.DataFile("E1_04DD"), {});
    }
}
