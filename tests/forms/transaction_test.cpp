// What the form of a transaction writes, and what it must never lose.
#include "frame/changes.h"
#include "host/device.h"
#include "ledger/filter.h"
#include "platform/text.h"
#include "store/index.h"
#include <filesystem>

using namespace testhost;

namespace {

class TransactionForm : public Device {
protected:
    const std::vector<std::pair<int, std::string>> Standing = {
        {TitleField, "Standing"}, {WholeField, "5"}, {TransferField, "Savings"}};
    uint32_t purse = MakeAccount("Purse", BankRow);

    TRec Row(const std::string &name) { return RowOf(purse, name); }
    TRec RowOf(uint32_t account, const std::string &name) {
        for (const TRec &row : Rows(account))
            if (Utf8(row.Name) == name)
                return row;
        ADD_FAILURE() << "no row " << name;
        return {};
    }
    int PositionOf(const std::string &name) { return Find<TRec>("E1_02A" + std::to_string(state.CurAccount.ID), name); }
    void ModifyEntry(const std::string &name) { Modify(TransactionList, PositionOf(name)); }
    void Delete(const std::string &name) {
        state.SelectedPos[TransactionList] = PositionOf(name);
        SendCommand(CommandDeleteOne);
    }
    void ShowAccount(uint32_t id) {
        ShowScreen(AccountList);
        state.SelectedPos[AccountList] = IDtoRec(id);
        ShowScreen(TransactionList);
    }
    void NewAdvanced() {
        New(TransactionList);
        if (!state.ViewIsAdvanced)
            TapPart(ViewItem);
    }
    // An entry through the form in its Advanced view. `units` "" leaves the proposal.
    void MakeEntry(const std::string &name, const std::string &whole, bool plus, const std::string &units = "",
                   const std::string &partner = "") {
        NewAdvanced();
        Fill({{TitleField, name}, {WholeField, whole}});
        if ((state.FirstSign != 0) != plus)
            TapPart(FirstSignItem);
        if (!units.empty())
            SetText(MultiplierField, units);
        if (!partner.empty()) {
            ASSERT_TRUE(Choose(TransferField, partner));
        }
        Tick();
        ASSERT_EQ(form.Resource, 0);
    }
    void MakeTemplate(const std::vector<std::pair<int, std::string>> &texts, int tapped = NoItem) {
        New(TemplateList);
        Fill(texts);
        if (tapped != NoItem)
            TapPart(tapped);
        Tick();
        ShowAccount(purse);
    }
    // Writes a row as no form could make it, an import's for instance.
    void PutRow(int position, const TRec &row) {
        const std::string file = root.DataFile("E1_02A" + std::to_string(purse));
        std::vector<uint8_t> bytes = ReadBytes(file);
        std::memcpy(bytes.data() + static_cast<size_t>(position - 1) * sizeof(TRecFile), &row, sizeof row);
        WriteBytes(file, bytes);
        ShowAccount(purse);
    }
};

TEST_F(TransactionForm, AnEntryStandsInItsDateOrderWithEveryBalanceRight) {
    New(TransactionList);
    EXPECT_EQ(form.Resource, 111);
    Fill({{TitleField, "Groceries"}, {WholeField, "12"}, {FractionField, "5"}});
    TapPart(ClearedItem);
    TapPart(FlagItem);
    Tick();
    New(TransactionList);
    SetDate(DateField, 2026, 2, 1);
    Fill({{TitleField, "Wage"}, {WholeField, "-100"}}); // the sign is tapped, not typed
    TapPart(FirstSignItem);
    Tick();
    ASSERT_EQ(Entries(purse), "Wage,Opening balance,Groceries,Monday");
    EXPECT_EQ(Fields(Row("Groceries"), "Value Units Cleared Flag Rank RunTotal RunCleared"),
              "-12500, 1, 1, 1, 3, 87500, -12500");
    EXPECT_EQ(Fields(Accounts().back(), "Balance ClearedBalance"), "87500, -12500");
    EXPECT_EQ(state.SelectedPos[TransactionList], 1);
    EXPECT_NE(TextAt(ListWindow, testhost::Row(1)).find("Wage"), std::string::npos);
    EXPECT_EQ(Lines(), "/This view/displays the transactions in/the selected account//");
}

TEST_F(TransactionForm, TextsAreCutToWhatTheyHoldAndDatesToTheCalendar) {
    constexpr struct {
        int Year, Month, Day;
        uint32_t DayNumber;
    } cases[] = {{1699, 12, 31, 36159}, {1600, 1, 1, 36159}, {9999, 12, 31, 3067671}, {2024, 2, 29, 154557}};
    for (const auto &row : cases) {
        NewAdvanced();
        Fill({{TitleField, std::string(1000, 'T')}, {TextField, std::string(1000, 'm')}});
        SetDate(DateField, row.Year, row.Month, row.Day);
        Tick();
        const TRec made = Row(std::string(24, 'T'));
        EXPECT_EQ(Utf8(made.Memo), std::string(31, 'm'));
        EXPECT_EQ(made.Date.DayNumber, row.DayNumber) << row.Year;
        Delete(std::string(24, 'T'));
    }
}

TEST_F(TransactionForm, ATickWithoutAChangeWritesNothing) {
    MakeEntry("One", "5", false);
    MakeEntry("Two", "5", false);
    TRec odd = Row("One");
    CopyText(odd.Name, TextRoom, u"A name of thirty-one units long");
    CopyText(odd.Memo, TextRoom, u"a memo");
    odd.Value = -123456789012345;
    odd.Units = -1234567890;
    odd.CatID = 4711;           // of no category
    odd.Date.DayNumber = 30000; // before the calendar begins
    odd.Cleared = 1;
    PutRow(2, odd);
    for (const bool basic : {false, true}) {
        const auto before = Snapshot(root.Path());
        Modify(TransactionList, 2);
        EXPECT_EQ(form.Resource, 133);
        EXPECT_EQ(ControlText(CategoryField), "category deleted");
        if (basic)
            TapPart(ViewItem);
        Tick();
        EXPECT_EQ(Snapshot(root.Path()), before);
    }
    // One change leaves all the rest as it was.
    Modify(TransactionList, 2);
    SetText(TextField, "another");
    Tick();
    const TRec now = Row("A name of thirty-one units long");
    EXPECT_EQ(Fields(now, "Memo Value Units CatID Cleared"), "another, -123456789012345, -1234567890, 4711, 1");
    EXPECT_EQ(now.Date.DayNumber, 30000u);
}

TEST_F(TransactionForm, WhatBasicHidesSurvivesASave) {
    New(TransactionList);
    TapPart(ViewItem);
    EXPECT_EQ(form.Resource, 144);
    Fill({{TitleField, "Hotel"},
          {WholeField, "319"},
          {FractionField, "99"},
          {TextField, "nine nights"},
          {MultiplierField, "9"}});
    Choose(CategoryField, 1);
    TapPart(SecondSignItem);
    TapPart(ViewItem); // the view changes, the values stay
    EXPECT_EQ(form.Resource, 111);
    EXPECT_EQ(Shown({WholeField, TitleField}), "319, Hotel");
    Tick();
    const TRec made = Row("Hotel");
    EXPECT_EQ(Fields(made, "Value Units Memo RunTotal"), "-319990, -9, nine nights, 2879910");
    EXPECT_GT(made.CatID, 10000);
    ModifyEntry("Hotel");
    TapPart(ViewItem);
    EXPECT_EQ(form.Resource, 111);
    SetText(TitleField, "Hostel");
    Tick();
    EXPECT_EQ(Fields(Row("Hostel"), "Value Units Memo"), "-319990, -9, nine nights");
    EXPECT_EQ(Row("Hostel").CatID, made.CatID);
}

TEST_F(TransactionForm, AChangedDateMovesTheEntryBehindItsEquals) {
    for (const char *name : {"a", "b", "c"})
        MakeEntry(name, "1", true);
    constexpr struct {
        int Month, Day;
        const char *Entries;
        int Selected;
    } cases[] = {{1, 5, "c,Opening balance,a,b,Monday", 1}, {3, 2, "Opening balance,a,b,c,Monday", 4}};
    for (const auto &row : cases) {
        ModifyEntry("c");
        SetDate(DateField, 2026, row.Month, row.Day);
        Tick();
        EXPECT_EQ(Entries(purse), row.Entries);
        EXPECT_EQ(state.SelectedPos[TransactionList], row.Selected);
    }
    EXPECT_EQ(Row("c").RunTotal, 3000);
}

TEST_F(TransactionForm, ATransferReachesTheOtherAccountInItsShape) {
    const uint32_t savings = MakeAccount("Savings", BankRow), shares = MakeAccount("Shares", ShareRow);
    // What both rows hold (a cash row carries the price in Value), and the balances of the two accounts.
    const struct {
        uint32_t From, To;
        const char *Partner, *Units;
        bool Plus;
        const char *Here, *There, *Balances;
    } cases[] = {
        {purse, savings, "Savings", "3", false, "3, 0, -10000", "3, 0, 10000", "-30000 30000"},
        {purse, shares, "Shares", "3", false, "3, 0, -10000", "1, 1, 30000", "-60000 30000"},
        {shares, savings, "Savings", "Cash", false, "1, 1, -10000", "1, 0, 10000", "20000 40000"},
        {shares, savings, "Savings", "2", true, "2, 0, 10000", "2, 0, -10000", "20000 20000"},
    };
    const auto balance = [&](uint32_t id) { return Fields(Accounts().at(size_t(IDtoRec(id)) - 1), "Balance"); };
    int n = 0;
    for (const auto &row : cases) {
        const std::string name = "Move " + std::to_string(++n);
        ShowAccount(row.From);
        MakeEntry(name, "10", row.Plus, row.Units, row.Partner);
        const TRec here = RowOf(row.From, name), there = RowOf(row.To, name);
        EXPECT_EQ(here.TransferID, row.To) << name;
        EXPECT_EQ(there.TransferID, 0u) << name;
        EXPECT_EQ(state.CurAccount.ID, row.From);
        EXPECT_EQ(Fields(here, here.Cash ? "Units Cash CashAmount" : "Units Cash Value"), row.Here) << name;
        EXPECT_EQ(Fields(there, there.Cash ? "Units Cash CashAmount" : "Units Cash Value"), row.There) << name;
        EXPECT_EQ(balance(row.From) + " " + balance(row.To), row.Balances) << name;
    }
}

TEST_F(TransactionForm, ATransferReachesThePartnersLiveRowsWhateverIsShown) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    FilterCriteria criteria;
    CriteriaFromRow(Rows(savings)[0], EntriesShown(), 1, state.AccountKind, &criteria);
    ShowAccount(purse);
    ASSERT_EQ(FilterAccount(savings, 1, FilterBy::Name, criteria, 0), 1);
    MakeEntry("Move", "10", false, "", "Savings");
    EXPECT_EQ(Fields(RowOf(savings, "Move"), "Value RunTotal"), "10000, 10000");
    // An account without a file, after an incomplete restore, is given one.
    ClearFilters();
    ASSERT_TRUE(std::filesystem::remove(root.DataFile("E1_02A" + std::to_string(savings))));
    MakeEntry("Again", "20", false, "", "Savings");
    EXPECT_EQ(Entries(savings), "Again");
    SendKey(Key::Header); // the archive
    ASSERT_EQ(state.ArchiveView, 1u);
    MakeEntry("Third", "30", false, "", "Savings");
    EXPECT_EQ(state.ArchiveView, 1u);
    EXPECT_EQ(state.EntryCount[TransactionList], 1);
    EXPECT_EQ(Fields(RowOf(savings, "Third"), "Value RunTotal"), "30000, 50000");
}

TEST_F(TransactionForm, AnEntryChangedKeepsItsPartnerAndMakesNoCounterEntry) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    ShowAccount(purse);
    MakeEntry("Move", "10", false, "", "Savings");
    const auto note = [&](const char *memo, uint32_t partner, size_t there) {
        ModifyEntry("Move");
        if (memo)
            SetText(TextField, memo);
        Tick();
        EXPECT_EQ(Row("Move").TransferID, partner) << there;
        EXPECT_EQ(Rows(savings).size(), there);
    };
    note("noted", savings, 3);
    // A partner that was picked is that entry's alone, and so is one that a template brought.
    MakeEntry("Again", "20", false, "", "Savings");
    note("noted again", savings, 4);
    MakeTemplate(Standing);
    TRec imported = Row("Move");
    CopyText(imported.FITID, TextRoom, u"bank 77");
    PutRow(PositionOf("Move"), imported);
    New(TransactionList);
    ASSERT_TRUE(Choose(TitleField, "Standing"));
    Tick();
    note(nullptr, savings, 5); // nothing differs
    New(TransactionList);
    ASSERT_TRUE(Choose(TitleField, "Standing"));
    Cross();
    EXPECT_EQ(state.FormTransfer, 0U);
    note("noted once more", savings, 5);
    for (const TRec &row : Rows(savings))
        EXPECT_EQ(Fields(row, "FITID"), "") << "the bank's identity is the row's own";
    EXPECT_EQ(Fields(Row("Move"), "FITID"), "bank 77");
    EXPECT_EQ(Accounts().back().Balance, 25000); // 10 and 20 came, 5 went, each once
}

TEST_F(TransactionForm, APickedPartnerEndsWithTheEntryItWasPickedFor) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    MakeTemplate(Standing);
    MakeEntry("a", "1", true);
    ModifyEntry("a");
    ASSERT_TRUE(Choose(TitleField, "Standing"));
    TapPart(DownItem);
    TapPart(DuplicateItem);
    Tick();
    SendCommand(CommandInsertReconcile);
    ASSERT_EQ(form.Resource, 149);
    state.FormTransfer = savings; // a statement's balance has none
    Tick();
    EXPECT_EQ(Entries(savings), "Opening balance,Monday");
}

TEST_F(TransactionForm, CashStaysCash) {
    const uint32_t shares = MakeAccount("Shares", ShareRow);
    New(TransactionList);
    TapPart(ViewItem);
    EXPECT_EQ(ControlItems(MultiplierField)[0], "Cash");
    EXPECT_EQ(state.FirstSign, 1u);
    Fill({{TitleField, "Fund"}, {WholeField, "500"}});
    ASSERT_TRUE(Choose(MultiplierField, "Cash"));
    EXPECT_EQ(Lines(), "/For share accounts, 'Cash'/will not increase the share count///");
    Tick();
    EXPECT_EQ(Accounts().back().Balance, 500000);
    ModifyEntry("Fund");
    EXPECT_EQ(Shown({MultiplierField, WholeField, FractionField}), "Cash, 500, 000");
    SetText(WholeField, "600");
    Tick();
    EXPECT_EQ(RowOf(shares, "Fund").CashAmount, 600000);
    // In a money account a cash row can only arrive, and stays one while its multiplier is 1.
    ShowAccount(purse);
    MakeEntry("Paid in", "40", true);
    TRec row = Row("Paid in");
    row.Cash = 1;
    row.CashAmount = 40000;
    PutRow(2, row);
    constexpr struct {
        const char *Units, *CashAndUnits;
    } cases[] = {{"1", "1, 1"}, {"2", "0, 2"}, {"1", "0, 1"}, {"Cash", "0, 0"}};
    for (const auto &one : cases) {
        Modify(TransactionList, 2);
        Fill({{MultiplierField, one.Units}, {TextField, one.Units}});
        Tick();
        EXPECT_EQ(Fields(Row("Paid in"), "Cash Units"), one.CashAndUnits) << one.Units;
    }
}

TEST_F(TransactionForm, ATemplateFillsTheFormAndLeadsToTheViewThatShowsIt) {
    MakeTemplate({{TitleField, "Rent"}, {WholeField, "750"}}, FirstSignItem);
    MakeTemplate({{TitleField, "Papers"}, {WholeField, "2"}, {MultiplierField, "7"}, {TextField, "a week's"}},
                 ClearedItem);
    New(TransactionList);
    SetDate(DateField, 2026, 3, 1);
    ASSERT_TRUE(Choose(TitleField, "Rent"));
    EXPECT_EQ(form.Resource, 111);
    EXPECT_EQ(ControlText(WholeField), "750");
    ASSERT_TRUE(Choose(TitleField, "Papers"));
    EXPECT_EQ(form.Resource, 144);
    EXPECT_EQ(Shown({TitleField, TextField}), "Papers, a week's");
    Tick();
    EXPECT_EQ(Fields(Row("Papers"), "Date Value Units Cleared RunTotal"), "2026-03-01, 2000, 7, 1, 14000");
}

TEST_F(TransactionForm, ADuplicateIsANewEntryOfTodayWithoutTheBanksIdentity) {
    MakeEntry("Bill", "30", false);
    TRec row = Row("Bill");
    CopyText(row.FITID, TextRoom, u"bank 77");
    row.Date = DateFromDayNumber(row.Date.DayNumber - 9);
    PutRow(2, row);
    Modify(TransactionList, 2);
    TapPart(DuplicateItem);
    EXPECT_EQ(form.Controls[DateField].Date.Day, 2);
    SetText(WholeField, "31");
    TapPart(DuplicateItem);
    EXPECT_EQ(form.Controls[DateField].Date.Day, 21);
    EXPECT_EQ(ControlText(WholeField), "30");
    EXPECT_EQ(Lines(), "/You've discarded the duplicate entry//Repeat, to create a duplicate//");
    TapPart(DuplicateItem);
    Tick();
    ASSERT_EQ(Entries(purse), "Opening balance,Bill,Bill,Monday");
    EXPECT_EQ(Fields(Rows(purse)[1], "Date Value FITID RunTotal"), "2026-02-21, -30000, bank 77, -30000");
    EXPECT_EQ(Fields(Rows(purse)[2], "Date Value FITID RunTotal"), "2026-03-02, -30000, , -60000");
}

TEST_F(TransactionForm, TheArrowsSaveAndGoRoundTheEntriesAlone) {
    MakeEntry("a", "1", true);
    MakeEntry("b", "2", true);
    Modify(TransactionList, 3);
    SetText(WholeField, "5");
    TapPart(DownItem); // past the Day marker to the first
    EXPECT_EQ(ControlText(TitleField), "Opening balance");
    EXPECT_EQ(TextAt(DialogWindow, {22, 0, 88, 18}), "1");
    EXPECT_EQ(TextAt(DialogWindow, {153, 0, 218, 18}), "4");
    for (const char *name : {"b", "a"}) {
        TapPart(UpItem);
        EXPECT_EQ(ControlText(TitleField), name);
    }
    SetText(WholeField, "9");
    Cross();
    EXPECT_EQ(Fields(Row("a"), "Value RunTotal"), "1000, 1000");
    EXPECT_EQ(Fields(Row("b"), "Value RunTotal"), "5000, 6000");
    EXPECT_TRUE(Remains(ListWindow).empty());
}

TEST_F(TransactionForm, AListKeepsItsOwnersOrder) {
    const uint32_t list = MakeAccount("Shopping", ListRow);
    MakeEntry("a", "1", true);
    MakeEntry("b", "2", true);
    EXPECT_EQ(Entries(list), "Opening balance,a,b");
    Modify(TransactionList, 2);
    SetDate(DateField, 2026, 12, 24);
    Tick();
    EXPECT_EQ(Entries(list), "Opening balance,a,b");
    Modify(TransactionList, 1);
    TapPart(DuplicateItem);
    SetText(TitleField, "copy");
    Tick();
    EXPECT_EQ(Entries(list), "Opening balance,copy,a,b");
}

TEST_F(TransactionForm, ADeletedCategoryGoesWithATemplateThatHasOne) {
    New(TemplateList);
    Fill({{TitleField, "Bread"}, {TextField, "daily"}});
    Choose(CategoryField, 1);
    Tick();
    ShowAccount(purse);
    MakeEntry("a", "1", true);
    TRec row = Row("a");
    row.CatID = 77777;
    PutRow(PositionOf("a"), row);
    ModifyEntry("a");
    ASSERT_EQ(ControlText(CategoryField), "category deleted");
    const size_t items = ControlItems(CategoryField).size();
    ASSERT_TRUE(Choose(TitleField, "Bread"));
    EXPECT_EQ(ControlItems(CategoryField).size(), items - 1);
}

TEST_F(TransactionForm, ATickOrAnArrowOverAFilterLiftsItAndSavesTheEntry) {
    MakeEntry("a", "1", true);
    ASSERT_TRUE(SendCommand(ShowName));
    New(TransactionList);
    SetText(TitleField, "kept");
    Tick();
    EXPECT_EQ(form.Resource, 0);
    EXPECT_EQ(state.FilterView, 0u);
    EXPECT_EQ(Entries(purse), "Opening balance,a,kept,Monday");
    // A changed row of the filter is changed where it really stands.
    state.SelectedPos[TransactionList] = PositionOf("kept");
    ASSERT_TRUE(SendCommand(ShowName));
    ASSERT_EQ(state.EntryCount[TransactionList], 2); // with the marker
    Modify(TransactionList, 1);
    SetText(TextField, "note");
    Tick();
    EXPECT_EQ(Fields(Row("kept"), "Memo"), "note");
    EXPECT_EQ(Entries(purse), "Opening balance,a,kept,Monday");
    state.SelectedPos[TransactionList] = PositionOf("a");
    ASSERT_TRUE(SendCommand(ExcludeName));
    Modify(TransactionList, 2);
    SetText(WholeField, "7");
    TapPart(UpItem);
    EXPECT_EQ(state.FilterShown, 0U);
    EXPECT_EQ(ControlText(TitleField), "a");
    Cross();
    EXPECT_EQ(Fields(Row("a"), "Value RunTotal"), "1000, 1000");
    EXPECT_EQ(Fields(Row("kept"), "Value RunTotal"), "7000, 8000");
}

TEST_F(TransactionForm, AStatementsBalanceIsKeptAndSearchedFor) {
    MakeEntry("a", "3", false);
    MakeEntry("b", "8", false);
    ASSERT_TRUE(SendCommand(CommandInsertReconcile));
    EXPECT_EQ(form.Resource, 149);
    EXPECT_EQ(Line(4), "entries to support the new balance");
    SetText(WholeField, "8");
    TapPart(FirstSignItem);
    Tick();
    EXPECT_EQ(Fields(Row("Reconcile"), "RowKind Value RunTotal"), "8, -8000, -11000");
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Solved);
    EXPECT_EQ(state.SelectedCount, 1);
    ModifyEntry("Reconcile");
    EXPECT_EQ(form.Resource, 149);
    SetText(WholeField, "2");
    Tick();
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Impossible);
    EXPECT_EQ(Row("Reconcile").Value, -2000);
    ModifyEntry("Monday"); // a marker opens nothing
    EXPECT_EQ(form.Resource, 0);
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
        Fill({{TitleField, name}, {WholeField, "1"}});
        ASSERT_TRUE(Choose(TransferField, "Savings"));
        ResetDisk();
        disk.Switches.FailAt = n;
        Tick();
        failed = disk.WriteCalls >= n;
        ResetDisk();
        const auto stands = [&](uint32_t account) { return Find<TRec>("E1_02A" + std::to_string(account), name) != 0; };
        EXPECT_EQ(stands(purse), stands(savings));
        EXPECT_EQ(stands(purse), form.Resource == 0);
        if (form.Resource != 0) { // again, on a disk that is well
            EXPECT_EQ(ControlText(TitleField), name);
            Tick();
            EXPECT_EQ(form.Resource, 0);
            EXPECT_TRUE(stands(purse) && stands(savings));
        }
        EXPECT_EQ(Rows(purse).size(), Rows(savings).size());
        EXPECT_EQ(Rows(purse).size(), static_cast<size_t>(n) + 2);
    }
}

TEST_F(TransactionForm, AnAccountsNameMayBeTypedAndATotalMarkersIsNone) {
    const uint32_t savings = MakeAccount("Savings", BankRow);
    ShowScreen(AccountList);
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
        Fill({{TitleField, "Typed"}, {TransferField, row.Typed}});
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
    TapPart(ViewItem);
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
