// What the form of a transaction writes, and what it must never lose.
#include "device.h"
#include "ledger/values/dates.h"
#include "store/windows.h"

using namespace testhost;

namespace {

class TransactionForm : public Device {
protected:
    uint32_t purse = 0;

    void SetUp() override {
        Device::SetUp();
        purse = MakeAccount("Purse", BankRow);
    }
    TRec Row(const std::string &name) { return RowOf(purse, name); }
    TRec RowOf(uint32_t account, const std::string &name) {
        for (const TRec &row : Rows(account))
            if (Utf8(row.Name) == name)
                return row;
        ADD_FAILURE() << "no row " << name;
        return {};
    }
    int PositionOf(const std::string &name) {
        int position = 0;
        for (const TRec &row : Rows(state.CurAccount.ID)) {
            ++position;
            if (Utf8(row.Name) == name)
                return position;
        }
        return 0;
    }
    std::string Names(uint32_t account) {
        std::string all;
        for (const TRec &row : Rows(account))
            all += Utf8(row.Name) + " ";
        return all;
    }
    // Writes a row as no form could make it, an import's for instance.
    void PutRow(uint32_t account, int position, const TRec &row) {
        const std::string file = root.DataFile("E1_02A" + std::to_string(account));
        std::vector<uint8_t> bytes = ReadBytes(file);
        std::memcpy(bytes.data() + static_cast<size_t>(position - 1) * sizeof(TRecFile), &row, sizeof row);
        WriteBytes(file, bytes);
        ShowAccount(account);
    }
};

TEST_F(TransactionForm, AnEntryStandsInItsDateOrderWithEveryBalanceRight) {
    New(TransactionList);
    EXPECT_EQ(form.Resource, 111);
    EXPECT_EQ(Lines(), "This view allows you to enter new/details for a transaction/Tap an item on the screen/for "
                       "information on that item/Tap 'tick' or 'cross' below to exit/");
    SetText(TitleField, "Groceries");
    SetText(WholeField, "12");
    SetText(FractionField, "5");
    TapPartOf(ClearedItem);
    TapPartOf(FlagItem);
    Tick();
    EXPECT_EQ(form.Resource, 0);
    New(TransactionList);
    SetDate(DateField, 2026, 2, 1);
    SetText(TitleField, "Wage");
    SetText(WholeField, "100");
    TapPartOf(FirstSignItem);
    Tick();
    ASSERT_EQ(Names(purse), "Wage Opening balance Groceries Monday ");
    const TRec row = Row("Groceries");
    EXPECT_EQ(row.Value, -12500);
    EXPECT_EQ(row.Units, 1);
    EXPECT_EQ(row.Cleared, 1u);
    EXPECT_EQ(row.Flag, 1);
    EXPECT_EQ(row.Rank, EntryRank);
    EXPECT_EQ(row.RunTotal, 87500);
    EXPECT_EQ(row.RunCleared, -12500);
    EXPECT_EQ(Accounts().back().Balance, 87500);
    EXPECT_EQ(Accounts().back().ClearedBalance, -12500);
    EXPECT_EQ(state.SelectedPos[TransactionList], 1);
    EXPECT_NE(TextAt(ListWindow, testhost::Row(1)).find("Wage"), std::string::npos);
    EXPECT_EQ(state.RowCount, 12);
    EXPECT_EQ(Lines(), "/This view/displays the transactions in/the selected account//");
}

TEST_F(TransactionForm, WhatCanNotBeReadCountsAsNothingAndTheRestIsExact) {
    constexpr struct {
        const char *Whole, *Fraction;
        FixedAmount Value;
    } cases[] = {
        {"12", "5", 12500}, {"12", "05", 12050}, {"0", "005", 5},  {"", "", 0},
        {"abc", "xyz", 0},  {"--5", "--5", 0},   {"-5", "", 5000}, {"123456789", "999", 12345678999},
        {"7.25", "", 7000}, {"1,000", "", 1000}, {"٣", "", 0},     {" 8", "", 8000},
    };
    for (const auto &row : cases) {
        New(TransactionList);
        SetText(TitleField, "Try");
        SetText(WholeField, row.Whole);
        SetText(FractionField, row.Fraction);
        TapPartOf(FirstSignItem);
        Tick();
        const int position = PositionOf("Try");
        EXPECT_EQ(Row("Try").Value, row.Value) << row.Whole << ' ' << row.Fraction;
        state.SelectedPos[TransactionList] = position;
        SendCommand(CommandDeleteOne);
    }
}

TEST_F(TransactionForm, TextsAreCutToWhatTheyHoldAndDatesToTheCalendar) {
    constexpr struct {
        int Year, Month, Day;
        uint32_t DayNumber;
    } cases[] = {{1699, 12, 31, 36159}, {1600, 1, 1, 36159}, {9999, 12, 31, 3067671}, {2024, 2, 29, 154557}};
    for (const auto &row : cases) {
        NewAdvanced();
        SetText(TitleField, std::string(1000, 'T'));
        SetText(TextField, std::string(1000, 'm'));
        SetDate(DateField, row.Year, row.Month, row.Day);
        Tick();
        const TRec made = Row(std::string(24, 'T'));
        EXPECT_EQ(Utf8(made.Memo), std::string(31, 'm'));
        EXPECT_EQ(made.Date.DayNumber, row.DayNumber) << row.Year;
        state.SelectedPos[TransactionList] = PositionOf(std::string(24, 'T'));
        SendCommand(CommandDeleteOne);
    }
}

TEST_F(TransactionForm, ATickWithoutAChangeWritesNothing) {
    MakeEntry("One", "5", false);
    MakeEntry("Two", "5", false);
    TRec odd = Row("One");
    CopyUnits(odd.Name, u"A name of thirty-one units long");
    CopyUnits(odd.Memo, u"a memo");
    odd.Value = -123456789012345;
    odd.Units = -1234567890;
    odd.CatID = 4711;           // of no category
    odd.Date.DayNumber = 30000; // before the calendar begins
    odd.Cleared = 1;
    PutRow(purse, 2, odd);
    for (const bool basic : {false, true}) {
        const auto before = Snapshot(root.Path());
        Modify(TransactionList, 2);
        EXPECT_EQ(form.Resource, 133);
        EXPECT_EQ(Utf16(ControlText(CategoryField)), u"category deleted");
        if (basic)
            TapPartOf(ViewItem);
        Tick();
        EXPECT_EQ(Snapshot(root.Path()), before);
    }
    // One change leaves all the rest as it was.
    Modify(TransactionList, 2);
    SetText(TextField, "another");
    Tick();
    const TRec now = Row("A name of thirty-one units long");
    EXPECT_EQ(Utf8(now.Memo), "another");
    EXPECT_EQ(now.Value, -123456789012345);
    EXPECT_EQ(now.Units, -1234567890);
    EXPECT_EQ(now.CatID, 4711);
    EXPECT_EQ(now.Date.DayNumber, 30000u);
    EXPECT_EQ(now.Cleared, 1u);
}

TEST_F(TransactionForm, WhatBasicHidesSurvivesASave) {
    New(TransactionList);
    TapPartOf(ViewItem);
    EXPECT_EQ(form.Resource, 144);
    SetText(TitleField, "Hotel");
    SetText(WholeField, "319");
    SetText(FractionField, "99");
    SetText(TextField, "nine nights");
    SetText(MultiplierField, "9");
    Choose(CategoryField, 1);
    TapPartOf(SecondSignItem);
    TapPartOf(ViewItem); // the view changes, the values stay
    EXPECT_EQ(form.Resource, 111);
    EXPECT_EQ(ControlText(WholeField), "319");
    EXPECT_EQ(ControlText(TitleField), "Hotel");
    Tick();
    const TRec made = Row("Hotel");
    EXPECT_EQ(made.Value, -319990);
    EXPECT_EQ(made.Units, -9);
    EXPECT_EQ(Utf8(made.Memo), "nine nights");
    EXPECT_GT(made.CatID, 10000);
    EXPECT_EQ(made.RunTotal, 2879910);
    Modify(TransactionList, PositionOf("Hotel"));
    TapPartOf(ViewItem);
    EXPECT_EQ(form.Resource, 111);
    SetText(TitleField, "Hostel");
    Tick();
    const TRec now = Row("Hostel");
    EXPECT_EQ(now.Units, -9);
    EXPECT_EQ(Utf8(now.Memo), "nine nights");
    EXPECT_EQ(now.CatID, made.CatID);
    EXPECT_EQ(now.Value, -319990);
}

TEST_F(TransactionForm, AChangedDateMovesTheEntryBehindItsEquals) {
    for (const char *name : {"a", "b", "c"})
        MakeEntry(name, "1", true);
    Modify(TransactionList, PositionOf("c"));
    SetDate(DateField, 2026, 1, 5);
    Tick();
    EXPECT_EQ(Names(purse), "c Opening balance a b Monday ");
    EXPECT_EQ(state.SelectedPos[TransactionList], 1);
    Modify(TransactionList, 1);
    SetDate(DateField, 2026, 3, 2);
    Tick();
    EXPECT_EQ(Names(purse), "Opening balance a b c Monday ");
    EXPECT_EQ(Row("c").RunTotal, 3000);
    EXPECT_EQ(state.SelectedPos[TransactionList], 4);
}

TEST_F(TransactionForm, ATransferReachesTheOtherAccountInItsShape) {
    const uint32_t savings = MakeAccount("Savings", BankRow), shares = MakeAccount("Shares", ShareRow);
    struct Expected {
        FixedAmount Value;
        int32_t Units;
        uint32_t Cash;
        FixedAmount CashAmount, Balance;
    };
    const struct {
        uint32_t From, To;
        const char *Partner, *Units;
        bool Plus;
        Expected Here, There;
    } cases[] = {
        {purse, savings, "Savings", "3", false, {-10000, 3, 0, 0, -30000}, {10000, 3, 0, 0, 30000}},
        {purse, shares, "Shares", "3", false, {-10000, 3, 0, 0, -60000}, {0, 1, 1, 30000, 30000}},
        {shares, savings, "Savings", "Cash", false, {0, 1, 1, -10000, 20000}, {10000, 1, 0, -10000, 40000}},
        {shares, savings, "Savings", "2", true, {10000, 2, 0, 0, 30000}, {-10000, 2, 0, 0, 20000}},
    };
    int n = 0;
    for (const auto &row : cases) {
        const std::string name = "Move " + std::to_string(++n);
        ShowAccount(row.From);
        MakeEntry(name, "10", row.Plus, row.Units, row.Partner);
        const TRec here = RowOf(row.From, name), there = RowOf(row.To, name);
        EXPECT_EQ(here.TransferID, row.To) << name;
        EXPECT_EQ(there.TransferID, 0u) << name;
        EXPECT_EQ(state.CurAccount.ID, row.From);
        for (const auto &[got, wanted] : {std::pair{here, row.Here}, std::pair{there, row.There}}) {
            // A cash row carries the price in Value.
            EXPECT_EQ(got.Cash ? got.CashAmount : got.Value, wanted.Cash ? wanted.CashAmount : wanted.Value) << name;
            EXPECT_EQ(got.Units, wanted.Units) << name;
            EXPECT_EQ(got.Cash, wanted.Cash) << name;
        }
        for (const ARec &account : Accounts()) {
            EXPECT_TRUE(account.ID != row.From || account.Balance == row.Here.Balance) << name << account.Balance;
            EXPECT_TRUE(account.ID != row.To || account.Balance == row.There.Balance) << name << account.Balance;
        }
    }
}

TEST_F(TransactionForm, AnEntryChangedDropsItsPartnerButForATemplatesWhichMakesACounterEntry) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    ShowAccount(purse);
    MakeEntry("Move", "10", false, "", "Savings");
    // The form that opens next is a new entry's, which forgets the partner.
    New(TransactionList);
    Cross();
    Modify(TransactionList, PositionOf("Move"));
    SetText(TextField, "noted");
    Tick();
    EXPECT_EQ(Row("Move").TransferID, 0u);
    EXPECT_EQ(Rows(savings).size(), 3u);
    // A partner that was picked is that entry's alone.
    MakeEntry("Again", "20", false, "", "Savings");
    EXPECT_EQ(Rows(savings).size(), 4u);
    Modify(TransactionList, PositionOf("Move"));
    SetText(TextField, "noted again");
    Tick();
    EXPECT_EQ(Row("Move").TransferID, 0u);
    EXPECT_EQ(Rows(savings).size(), 4u);
    // One that a template brought is what the next form of an existing entry uses: deliberate.
    Show(TemplateList);
    New(TemplateList);
    SetText(TitleField, "Standing");
    SetText(WholeField, "5");
    ASSERT_TRUE(Choose(TransferField, "Savings"));
    Tick();
    ShowAccount(purse);
    New(TransactionList);
    ASSERT_TRUE(Choose(TitleField, "Standing"));
    Tick();
    EXPECT_EQ(Rows(savings).size(), 5u);
    Modify(TransactionList, PositionOf("Move"));
    Tick(); // nothing differs
    EXPECT_EQ(Rows(savings).size(), 5u);
    Modify(TransactionList, PositionOf("Move"));
    SetText(TextField, "noted once more");
    Tick();
    EXPECT_EQ(Row("Move").TransferID, savings);
    EXPECT_EQ(Rows(savings).size(), 6u);
    EXPECT_EQ(Accounts().back().Balance, 35000);
}

TEST_F(TransactionForm, CashStaysCash) {
    const uint32_t shares = MakeAccount("Shares", ShareRow);
    New(TransactionList);
    TapPartOf(ViewItem);
    EXPECT_EQ(ControlItems(MultiplierField)[0], "Cash");
    EXPECT_EQ(state.FirstSign, 1u);
    SetText(TitleField, "Fund");
    SetText(WholeField, "500");
    ASSERT_TRUE(Choose(MultiplierField, "Cash"));
    EXPECT_EQ(Lines(), "/For share accounts, 'Cash'/will not increase the share count///");
    Tick();
    EXPECT_EQ(RowOf(shares, "Fund").CashAmount, 500000);
    EXPECT_EQ(Accounts().back().Balance, 500000);
    Modify(TransactionList, PositionOf("Fund"));
    EXPECT_EQ(ControlText(MultiplierField), "Cash");
    EXPECT_EQ(ControlText(WholeField), "500");
    EXPECT_EQ(ControlText(FractionField), "000");
    SetText(WholeField, "600");
    Tick();
    EXPECT_EQ(RowOf(shares, "Fund").CashAmount, 600000);
    // In a money account a cash row can only arrive, and stays one while its multiplier is 1.
    ShowAccount(purse);
    MakeEntry("Paid in", "40", true);
    TRec row = Row("Paid in");
    row.Cash = 1;
    row.CashAmount = 40000;
    PutRow(purse, 2, row);
    constexpr struct {
        const char *Units;
        uint32_t Cash;
        int32_t Stored;
    } cases[] = {{"1", 1, 1}, {"2", 0, 2}, {"1", 0, 1}, {"Cash", 0, 0}};
    for (const auto &one : cases) {
        Modify(TransactionList, 2);
        SetText(MultiplierField, one.Units);
        SetText(TextField, one.Units);
        Tick();
        EXPECT_EQ(Row("Paid in").Cash, one.Cash) << one.Units;
        EXPECT_EQ(Row("Paid in").Units, one.Stored) << one.Units;
    }
}

TEST_F(TransactionForm, ATemplateFillsTheFormAndLeadsToTheViewThatShowsIt) {
    Show(TemplateList);
    New(TemplateList);
    SetText(TitleField, "Rent");
    SetText(WholeField, "750");
    TapPartOf(FirstSignItem);
    Tick();
    New(TemplateList);
    SetText(TitleField, "Papers");
    SetText(WholeField, "2");
    SetText(MultiplierField, "7");
    SetText(TextField, "a week's");
    TapPartOf(ClearedItem);
    Tick();
    ShowAccount(purse);
    New(TransactionList);
    SetDate(DateField, 2026, 3, 1);
    ASSERT_TRUE(Choose(TitleField, "Rent"));
    EXPECT_EQ(form.Resource, 111);
    EXPECT_EQ(ControlText(WholeField), "750");
    ASSERT_TRUE(Choose(TitleField, "Papers"));
    EXPECT_EQ(form.Resource, 144);
    EXPECT_EQ(ControlText(TitleField), "Papers");
    EXPECT_EQ(ControlText(TextField), "a week's");
    Tick();
    const TRec row = Row("Papers");
    EXPECT_EQ(row.Value, 2000);
    EXPECT_EQ(row.Units, 7);
    EXPECT_EQ(row.Cleared, 1u);
    EXPECT_EQ(row.Date.Day, 1);
    EXPECT_EQ(row.RunTotal, 14000);
}

TEST_F(TransactionForm, ADuplicateIsANewEntryOfTodayWithoutTheBanksIdentity) {
    MakeEntry("Bill", "30", false);
    TRec row = Row("Bill");
    CopyUnits(row.FITID, u"bank 77");
    row.Date = DateFromDayNumber(row.Date.DayNumber - 9);
    PutRow(purse, 2, row);
    Modify(TransactionList, 2);
    TapPartOf(DuplicateItem);
    EXPECT_EQ(form.Controls[DateField].Date.Day, 2);
    SetText(WholeField, "31");
    TapPartOf(DuplicateItem);
    EXPECT_EQ(form.Controls[DateField].Date.Day, 21);
    EXPECT_EQ(ControlText(WholeField), "30");
    EXPECT_EQ(Lines(), "/You've discarded the duplicate entry//Repeat, to create a duplicate//");
    TapPartOf(DuplicateItem);
    Tick();
    ASSERT_EQ(Names(purse), "Opening balance Bill Bill Monday ");
    EXPECT_EQ(Rows(purse)[1].Value, -30000);
    EXPECT_EQ(Utf8(Rows(purse)[1].FITID), "bank 77");
    EXPECT_EQ(Rows(purse)[1].Date.Day, 21);
    EXPECT_EQ(Utf8(Rows(purse)[2].FITID), "");
    EXPECT_EQ(Rows(purse)[2].RunTotal, -60000);
}

TEST_F(TransactionForm, TheArrowsSaveAndGoRoundTheEntriesAlone) {
    MakeEntry("a", "1", true);
    MakeEntry("b", "2", true);
    Modify(TransactionList, 3);
    SetText(WholeField, "5");
    TapPartOf(DownItem); // past the Day marker to the first
    EXPECT_EQ(ControlText(TitleField), "Opening balance");
    EXPECT_EQ(Lines(),
              "/Tap the down or up arrows/to move the view to the next/or previous transaction respectively//");
    EXPECT_EQ(TextAt(DialogWindow, {22, 0, 88, 18}), "1");
    EXPECT_EQ(TextAt(DialogWindow, {153, 0, 218, 18}), "4");
    TapPartOf(UpItem);
    EXPECT_EQ(ControlText(TitleField), "b");
    TapPartOf(UpItem);
    EXPECT_EQ(ControlText(TitleField), "a");
    SetText(WholeField, "9");
    Cross();
    EXPECT_EQ(Row("b").Value, 5000);
    EXPECT_EQ(Row("a").Value, 1000);
    EXPECT_EQ(Row("b").RunTotal, 6000);
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(TransactionForm, AListKeepsItsOwnersOrder) {
    const uint32_t list = MakeAccount("Shopping", ListRow);
    MakeEntry("a", "1", true);
    MakeEntry("b", "2", true);
    EXPECT_EQ(Names(list), "Opening balance a b ");
    Modify(TransactionList, 2);
    SetDate(DateField, 2026, 12, 24);
    Tick();
    EXPECT_EQ(Names(list), "Opening balance a b ");
    Modify(TransactionList, 1);
    TapPartOf(DuplicateItem);
    SetText(TitleField, "copy");
    Tick();
    EXPECT_EQ(Names(list), "Opening balance copy a b ");
}

TEST_F(TransactionForm, ATickOverAFilterLiftsItAndChangesNothing) {
    MakeEntry("a", "1", true);
    MakeEntry("b", "2", true);
    Modify(TransactionList, 2);
    Cross();
    ASSERT_TRUE(SendCommand(ShowName));
    ASSERT_EQ(Rows(purse).size(), 4u);
    New(TransactionList);
    SetText(TitleField, "lost");
    Tick();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(state.FilterView, 0u);
    EXPECT_EQ(Names(purse), "Opening balance a b Monday ");
    EXPECT_EQ(state.EntryCount[TransactionList], 4);
}

TEST_F(TransactionForm, AStatementsBalanceIsKeptAndSearchedFor) {
    MakeEntry("a", "3", false);
    MakeEntry("b", "8", false);
    ASSERT_TRUE(SendCommand(CommandInsertReconcile));
    EXPECT_EQ(form.Resource, 149);
    EXPECT_EQ(Line(4), "entries to support the new balance");
    SetText(WholeField, "8");
    TapPartOf(FirstSignItem);
    Tick();
    const TRec row = Row("Reconcile");
    EXPECT_EQ(row.RowKind, ReconcileEntry);
    EXPECT_EQ(row.Value, -8000);
    EXPECT_EQ(row.RunTotal, -11000);
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Solved);
    EXPECT_EQ(state.SelectedCount, 1);
    Modify(TransactionList, PositionOf("Reconcile"));
    EXPECT_EQ(form.Resource, 149);
    SetText(WholeField, "2");
    Tick();
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Impossible);
    EXPECT_EQ(Row("Reconcile").Value, -2000);
    // Markers open nothing.
    Show(TransactionList);
    state.SelectedPos[TransactionList] = PositionOf("Monday");
    SendCommand(CommandModify);
    EXPECT_EQ(form.Resource, 0);
}

TEST_F(TransactionForm, WhatAFullDiskRefusesStaysInTheForm) {
    MakeEntry("a", "1", true);
    New(TransactionList);
    SetText(TitleField, "b");
    SetText(WholeField, "2");
    disk.Switches.Full = true;
    Tick();
    EXPECT_EQ(form.Resource, 144);
    EXPECT_EQ(ControlText(TitleField), "b");
    EXPECT_EQ(Rows(purse).size(), 3u);
    disk.Switches.Full = false;
    Tick();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(Names(purse), "Opening balance a b Monday ");
    EXPECT_EQ(Row("b").RunTotal, 1000 - 2000);
}

TEST_F(TransactionForm, ATransferIsOnBothSidesOrOnNoneWhateverWriteFails) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    ShowAccount(purse);
    bool failed = true;
    for (int n = 1; failed; ++n) {
        SCOPED_TRACE(n);
        ASSERT_LT(n, 200);
        const std::string name = "Move " + std::to_string(n);
        NewAdvanced();
        SetText(TitleField, name);
        SetText(WholeField, "1");
        ASSERT_TRUE(Choose(TransferField, "Savings"));
        ResetDisk();
        disk.Switches.FailAt = n;
        Tick();
        failed = disk.WriteCalls >= n;
        ResetDisk();
        const auto times = [&](uint32_t account) {
            return (" " + Names(account)).find(" " + name + " ") != std::string::npos;
        };
        EXPECT_EQ(times(purse), times(savings));
        EXPECT_EQ(times(purse), form.Resource == 0);
        if (form.Resource != 0) { // again, on a disk that is well
            Tick();
            EXPECT_EQ(form.Resource, 0);
            EXPECT_TRUE(times(purse) && times(savings));
        }
        EXPECT_EQ(Rows(purse).size(), Rows(savings).size());
        EXPECT_EQ(Rows(purse).size(), static_cast<size_t>(n) + 2);
    }
}

TEST_F(TransactionForm, AnAccountsNameMayBeTypedAndATotalMarkersIsNone) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    Show(AccountList);
    state.SelectedPos[AccountList] = 1;
    ASSERT_TRUE(SendCommand(CommandInsertTotal));
    ShowAccount(purse);
    constexpr struct {
        const char *Typed;
        bool Found;
    } cases[] = {{"Savings", true}, {"savings", false}, {"Total", false}, {"<none>", false}, {"", false}};
    size_t moved = Rows(savings).size();
    for (const auto &row : cases) {
        NewAdvanced();
        SetText(TitleField, "Typed");
        SetText(TransferField, row.Typed);
        Tick();
        moved += row.Found;
        EXPECT_EQ(Rows(savings).size(), moved) << row.Typed;
        EXPECT_EQ(Rows(purse)[state.SelectedPos[TransactionList] - 1].TransferID, row.Found ? savings : 0) << row.Typed;
    }
}

TEST_F(TransactionForm, TheCrossKeepsNothingAndTheViewLeftIsTheNextOnes) {
    const auto before = Snapshot(root.Path());
    New(TransactionList);
    SetText(TitleField, "never");
    TapPartOf(ViewItem);
    Cross();
    EXPECT_EQ(Snapshot(root.Path()), before);
    New(TransactionList);
    EXPECT_EQ(form.Resource, 144);
    SendKey(Key::Escape);
    EXPECT_EQ(form.Resource, 0);
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    ShowAccount(purse);
    New(TransactionList);
    EXPECT_EQ(form.Resource, 111);
}

} // namespace
