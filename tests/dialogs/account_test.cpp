// What the form of an account makes, changes and refuses.
#include "device.h"
#include "screens/drawing/colours.h"

using namespace testhost;

namespace {

class AccountForm : public Device {
protected:
    std::string FirstRows(uint32_t account) {
        std::string all;
        for (const TRec &row : Rows(account))
            all += std::to_string(row.RowKind) + ":" + Utf8(row.Name) + ":" + std::to_string(row.Rank) + ":" +
                   std::to_string(row.Date.Day) + " ";
        return all;
    }
};

TEST_F(AccountForm, ANewAccountHasItsFileItsFirstRowsAndItsLimits) {
    const size_t before = Accounts().size();
    constexpr struct {
        const char *Name;
        int Type;
        uint32_t Stored;
        const char *Rows;
    } cases[] = {
        {"Purse", BankRow, BankAccount, "0:Opening balance:3:2 1:Monday:4:2 "},
        {"Shares", ShareRow, ShareValue, "0:Opening balance:3:2 1:Monday:4:2 "},
        {"Shopping", ListRow, ListAccount, "0:Opening balance:3:2 "},
    };
    uint32_t lastID = Accounts().back().ID;
    for (const auto &row : cases) {
        New(AccountList);
        EXPECT_EQ(ControlText(TextField), "Account " + std::to_string(Accounts().size() + 1));
        EXPECT_EQ(ControlText(MinField), "0");
        EXPECT_EQ(ControlText(MaxField), "50000");
        EXPECT_EQ(TextAt(DialogWindow, {120, 165, 240, 189}), "");
        SetText(TextField, row.Name);
        Choose(TypeField, row.Type);
        Check(MinCheck, true);
        EXPECT_EQ(Lines(), "/Min enabled//Balances below min will be highlighted//");
        SetText(MinField, "20");
        TapPartOf(SecondSignItem);
        SetText(MaxField, "800");
        TapPartOf(FlagItem);
        Tick();
        const ARec made = Accounts().back();
        EXPECT_EQ(Utf8(made.Name), row.Name);
        EXPECT_EQ(made.AccType, row.Stored);
        EXPECT_GT(made.ID, lastID);
        lastID = made.ID;
        EXPECT_EQ(made.LowWatch, 1u);
        EXPECT_EQ(made.HighWatch, 0u);
        EXPECT_EQ(made.MinLimit, -20);
        EXPECT_EQ(made.MaxLimit, 800);
        EXPECT_EQ(made.Flag, 1u);
        EXPECT_EQ(made.ColumnPos[0], 0u);
        EXPECT_EQ(made.ColumnPos[1], 187u);
        EXPECT_EQ(made.ColumnPos[4], 941u);
        EXPECT_EQ(FirstRows(made.ID), row.Rows);
        EXPECT_EQ(state.CurrentScreen, AccountList);
        EXPECT_EQ(state.SelectedPos[AccountList], static_cast<int32_t>(Accounts().size()));
    }
    EXPECT_EQ(Accounts().size(), before + 3);
    EXPECT_NE(TextAt(ListWindow, {0, 0, 240, 200}).find("Shopping"), std::string::npos);
}

TEST_F(AccountForm, LimitsTheWrongWayRoundKeepTheFormOpenAndSayWhy) {
    const uint32_t id = MakeAccount("Purse", BankRow);
    Show(AccountList);
    constexpr struct {
        const char *Min;
        bool MinPlus;
        const char *Max;
        bool MaxPlus;
        bool Taken;
        int32_t MinLimit, MaxLimit;
    } cases[] = {
        {"10", true, "9", true, false, 0, 0},
        {"5", true, "5", false, false, 0, 0},
        {"10", true, "10", true, true, 10, 10},
        {"99999999", false, "abc", true, true, -99999999, 0},
        {"--7", true, "123456789", true, true, 0, 12345678},
        {"", true, "1.9", true, true, 0, 1},
    };
    for (const auto &row : cases) {
        const auto before = Snapshot(root.Path());
        Modify(AccountList, static_cast<int>(Accounts().size()));
        SetText(MinField, row.Min);
        SetText(MaxField, row.Max);
        if ((state.SecondSign != 0) != row.MinPlus)
            TapPartOf(SecondSignItem);
        if ((state.FirstSign != 0) != row.MaxPlus)
            TapPartOf(FirstSignItem);
        const int beeps = machine.Beeps;
        Tick();
        if (row.Taken) {
            EXPECT_EQ(form.Resource, 0) << row.Min;
            EXPECT_EQ(Accounts().back().MinLimit, row.MinLimit) << row.Min;
            EXPECT_EQ(Accounts().back().MaxLimit, row.MaxLimit) << row.Max;
            continue;
        }
        EXPECT_EQ(form.Resource, 106);
        EXPECT_GT(machine.Beeps, beeps);
        EXPECT_EQ(state.HelpMode, 1u);
        EXPECT_EQ(TextAt(DialogWindow, {0, 202, 240, 215}), "Min must be less than (or =) max");
        EXPECT_EQ(Snapshot(root.Path()), before);
        Cross();
        EXPECT_EQ(Snapshot(root.Path()), before);
        SendCommand(CommandLeftEye);
    }
    EXPECT_EQ(Accounts().back().ID, id);
}

TEST_F(AccountForm, AChangeOfKindKeepsTheRowsAndReadsThemAnew) {
    const uint32_t id = MakeAccount("Purse", BankRow);
    MakeEntry("Three of ten", "10", true, "3");
    EXPECT_EQ(Accounts().back().Balance, 30000);
    const int position = static_cast<int>(Accounts().size());
    Modify(AccountList, position);
    EXPECT_EQ(state.ActiveDialog, AccountDialog);
    EXPECT_EQ(TextAt(DialogWindow, {120, 165, 240, 189}), "ID: " + std::to_string(id));
    EXPECT_EQ(TextsIn(DialogWindow, {120, 165, 240, 189})[0].InkColour, MutedGrey);
    EXPECT_EQ(ControlText(TextField), "Purse");
    TapPartOf(TypeItem);
    EXPECT_EQ(Lines(), "/Alter jeopardy settings/to enable min & max monitoring for/the selected account//");
    SetText(TextField, std::string(60, 'n'));
    Choose(TypeField, ShareRow);
    Tick();
    const ARec now = Accounts().back();
    EXPECT_EQ(Utf8(now.Name), std::string(23, 'n'));
    EXPECT_EQ(now.AccType, static_cast<uint32_t>(ShareValue));
    EXPECT_EQ(now.ID, id);
    // Four shares at ten, the opening balance being one, bought for thirty.
    EXPECT_EQ(now.Balance, 10000);
    EXPECT_EQ(Rows(id).size(), 3u);
    // An unchanged tick changes no account.
    const std::vector<uint8_t> before = ReadBytes(root.DataFile("E1_01IND"));
    Modify(AccountList, position);
    Tick();
    EXPECT_EQ(ReadBytes(root.DataFile("E1_01IND")), before);
}

TEST_F(AccountForm, ATotalMarkerHasANameAndNoKind) {
    Show(AccountList);
    state.SelectedPos[AccountList] = state.EntryCount[AccountList] + 1;
    ASSERT_TRUE(SendCommand(CommandInsertTotal));
    const auto files = Snapshot(root.Path());
    Modify(AccountList, static_cast<int>(Accounts().size()));
    EXPECT_EQ(ControlItems(TypeField), std::vector<std::string>{" "});
    Focus(TypeField);
    EXPECT_EQ(Lines(), "/Account type/Not applicable to a Total marker///");
    SetText(TextField, "All of it");
    Tick();
    const ARec marker = Accounts().back();
    EXPECT_EQ(Utf8(marker.Name), "All of it");
    EXPECT_EQ(marker.RowKind, HeadingRow);
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
