// What the form of an account makes, changes and refuses.
#include "drawing/colours.h"
#include "host/device.h"

using namespace testhost;

namespace {

using AccountForm = Device;

TEST_F(AccountForm, ANewAccountHasItsFileItsFirstRowsAndItsLimits) {
    constexpr struct {
        const char *Name;
        int Type;
        uint32_t Stored;
        const char *Rows;
    } cases[] = {
        {"Purse", BankRow, BankAccount, "0, Opening balance, 3, 2026-03-02; 1, Monday, 4, 2026-03-02; "},
        {"Shares", ShareRow, ShareValue, "0, Opening balance, 3, 2026-03-02; 1, Monday, 4, 2026-03-02; "},
        {"Shopping", ListRow, ListAccount, "0, Opening balance, 3, 2026-03-02; "},
    };
    size_t accounts = Accounts().size();
    uint32_t lastID = Accounts().back().ID;
    for (const auto &row : cases) {
        New(AccountList);
        ++accounts;
        EXPECT_EQ(Shown({TextField, MinField, MaxField}), "Account " + std::to_string(accounts) + ", 0, 50000");
        EXPECT_EQ(TextAt(DialogWindow, {120, 165, 240, 189}), "");
        SetText(TextField, row.Name);
        Choose(TypeField, row.Type);
        Check(MinCheck, true);
        EXPECT_EQ(Lines(), "/Min enabled//Balances below min will be highlighted//");
        Fill({{MinField, "20"}, {MaxField, "800"}});
        TapPart(SecondSignItem);
        TapPart(FlagItem);
        Tick();
        ASSERT_EQ(Accounts().size(), accounts);
        const ARec made = Accounts().back();
        EXPECT_EQ(Fields(made, "Name AccType LowWatch HighWatch MinLimit MaxLimit Flag"),
                  std::string(row.Name) + ", " + std::to_string(row.Stored) + ", 1, 0, -20, 800, 1");
        EXPECT_GT(made.ID, lastID);
        lastID = made.ID;
        EXPECT_EQ(made.ColumnPos[0], 0u);
        EXPECT_EQ(made.ColumnPos[1], 187u);
        EXPECT_EQ(made.ColumnPos[4], 941u);
        std::string rows;
        for (const TRec &entry : Rows(made.ID))
            rows += Fields(entry, "RowKind Name Rank Date") + "; ";
        EXPECT_EQ(rows, row.Rows);
        EXPECT_EQ(state.CurrentScreen, AccountList);
        EXPECT_EQ(state.SelectedPos[AccountList], static_cast<int32_t>(accounts));
    }
    EXPECT_NE(TextAt(ListWindow, {0, 0, 240, 200}).find("Shopping"), std::string::npos);
}

TEST_F(AccountForm, LimitsTheWrongWayRoundKeepTheFormOpenAndSayWhy) {
    MakeAccount("Purse", BankRow);
    constexpr struct {
        const char *Min;
        bool MinPlus;
        const char *Max;
        bool MaxPlus;
        const char *Limits; // nullptr: refused
    } cases[] = {
        {"10", true, "9", true, nullptr},   {"5", true, "5", false, nullptr},
        {"10", true, "10", true, "10, 10"}, {"99999999", false, "abc", true, "-99999999, 0"},
        {"", true, "1.9", true, "0, 1"},    {"--7", true, "123456789", true, "0, 12345678"},
    };
    for (const auto &row : cases) {
        const auto before = Snapshot(root.Path());
        Modify(AccountList, static_cast<int>(Accounts().size()));
        Fill({{MinField, row.Min}, {MaxField, row.Max}});
        if ((state.SecondSign != 0) != row.MinPlus)
            TapPart(SecondSignItem);
        if ((state.FirstSign != 0) != row.MaxPlus)
            TapPart(FirstSignItem);
        const int beeps = machine.Beeps;
        Tick();
        if (row.Limits) {
            EXPECT_EQ(form.Resource, 0) << row.Min;
            EXPECT_EQ(Fields(Accounts().back(), "MinLimit MaxLimit"), row.Limits);
            continue;
        }
        EXPECT_EQ(form.Resource, 106);
        EXPECT_GT(machine.Beeps, beeps);
        EXPECT_EQ(state.HelpMode, 1u);
        EXPECT_EQ(TextAt(DialogWindow, {0, 202, 240, 215}), "Min must be less than (or =) max");
        Cross();
        EXPECT_EQ(Snapshot(root.Path()), before);
        SendCommand(CommandLeftEye);
    }
}

TEST_F(AccountForm, AChangeOfKindKeepsTheRowsAndReadsThemAnew) {
    const uint32_t id = MakeAccount("Purse", BankRow);
    New(TransactionList);
    TapPart(ViewItem);
    TapPart(FirstSignItem);
    Fill({{TitleField, "Three of ten"}, {WholeField, "10"}, {MultiplierField, "3"}});
    Tick();
    EXPECT_EQ(Accounts().back().Balance, 30000);
    const int position = static_cast<int>(Accounts().size());
    Modify(AccountList, position);
    EXPECT_EQ(state.ActiveDialog, AccountDialog);
    EXPECT_EQ(TextAt(DialogWindow, {120, 165, 240, 189}), "ID: " + std::to_string(id));
    EXPECT_EQ(TextsIn(DialogWindow, {120, 165, 240, 189})[0].InkColour, MutedGrey);
    EXPECT_EQ(ControlText(TextField), "Purse");
    SetText(TextField, std::string(60, 'n'));
    Choose(TypeField, ShareRow);
    Tick();
    // Four shares at ten, the opening balance being one, bought for thirty.
    EXPECT_EQ(Fields(Accounts().back(), "Name AccType ID Balance"),
              std::string(23, 'n') + ", 5, " + std::to_string(id) + ", 10000");
    EXPECT_EQ(Rows(id).size(), 3u);
    // An unchanged tick changes no account.
    const std::vector<uint8_t> before = ReadBytes(root.DataFile("E1_01IND"));
    Modify(AccountList, position);
    Tick();
    EXPECT_EQ(ReadBytes(root.DataFile("E1_01IND")), before);
}

TEST_F(AccountForm, LimitsAreWatchedInTheLiveRowsWhateverIsShown) {
    ShowScreen(AccountList);
    SendKey(Key::Header); // the archives
    for (const char *most : {"100", "900"}) {
        Modify(AccountList, 1);
        Check(MaxCheck, true);
        SetText(MaxField, most);
        Tick();
        EXPECT_EQ(Accounts()[0].BalanceInJeopardy, most[0] == '1');
    }
}

TEST_F(AccountForm, ATotalMarkerHasANameAndNoKind) {
    state.SelectedPos[AccountList] = state.EntryCount[AccountList] + 1;
    ASSERT_TRUE(SendCommand(CommandInsertTotal));
    const auto files = Snapshot(root.Path());
    Modify(AccountList, static_cast<int>(Accounts().size()));
    EXPECT_EQ(ControlItems(TypeField), std::vector<std::string>{" "});
    Focus(TypeField);
    EXPECT_EQ(Lines(), "/Account type/Not applicable to a Total marker///");
    SetText(TextField, "All of it");
    Tick();
    EXPECT_EQ(Fields(Accounts().back(), "Name RowKind"), "All of it, 1");
    EXPECT_EQ(Snapshot(root.Path()).size(), files.size()); // no transaction file of its own
}

TEST_F(AccountForm, AnEmptyNameIsKeptEmptyAndAFullDiskKeepsTheForm) {
    New(AccountList);
    SetText(TextField, "");
    disk.Switches.Full = true;
    const size_t before = Accounts().size();
    Tick();
    EXPECT_EQ(form.Resource, 106);
    EXPECT_EQ(Lines(), "/Warning!/Can't use xx_Data directory///");
    EXPECT_EQ(state.HelpMode, 1u); // where the owner sees it
    EXPECT_EQ(Accounts().size(), before);
    disk.Switches.Full = false;
    Tick();
    EXPECT_EQ(Accounts().size(), before + 1);
    EXPECT_EQ(Utf8(Accounts().back().Name), "");
    EXPECT_EQ(Rows(Accounts().back().ID).size(), 2u);
}

} // namespace
