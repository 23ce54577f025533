// A day without a pointer: whatever a tap or a drag does on a list or a form has its key.
#include "day.h"
#include "resources/forms.h"
#include "state/state.h"

using namespace stories;

class ByKeysAlone : public testing::Test {
protected:
    ByKeysAlone() {
        SetClock(2026, 3, 2);
        EXPECT_TRUE(StartProgram());
    }
    void Select(int position) {
        while (state.SelectedPos[state.CurrentScreen] < position)
            SendKey(Key::Down);
        while (state.SelectedPos[state.CurrentScreen] > position)
            SendKey(Key::Up);
    }
    TestRoot root;
};

TEST_F(ByKeysAlone, AnIncomeIsEnteredWithItsFlagAndMarkedReconciled) {
    SendKey(Key::Enter); // the first account
    SendKey(Key::New);
    ASSERT_EQ(state.ActiveDialog, TransactionDialog);
    SendKey(Key::ViewPart); // Advanced
    SetText(TitleField, "Salary");
    SetText(WholeField, "1500");
    SetText(MultiplierField, "2");
    for (const Key key : {Key::FirstSignPart, Key::FlagPart, Key::ClearedPart, Key::SecondSignPart, Key::SecondSignPart,
                          Key::FreePart /* not in a bank account */})
        SendKey(key);
    SendKey(Key::Tick);
    ASSERT_EQ(state.ActiveDialog, NoDialog);
    const TRec entry = RecordsIn<TRec>(root.DataFile("E1_02A1")).at(3);
    EXPECT_EQ(entry.Value, 1500000);
    EXPECT_EQ(entry.Units, 2);
    EXPECT_EQ(entry.Flag, 1);
    EXPECT_EQ(entry.Cleared, 1u);
    EXPECT_EQ(entry.NoCash, 0u);
    EXPECT_EQ(entry.RunTotal, 3516000);

    SendKey(Key::Modify);
    SendKey(Key::RowUp); // the entry before
    EXPECT_EQ(state.SelectedPos[TransactionList], 3);
    SendKey(Key::DuplicatePart);
    SendKey(Key::Tick);
    EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")).at(4), "2026-03-02 Rent -248000");
}

TEST_F(ByKeysAlone, RowsAreMovedBinnedRestoredAndMadeIntoTemplatesAndCategories) {
    Select(1);
    SendKey(Key::RowDown);
    EXPECT_EQ(state.SelectedPos[AccountList], 2);
    EXPECT_EQ(RowsShown(2), (std::vector<std::string>{"Savings account | 6033.21", "Current account | 516.00"}));
    SendKey(Key::RowUp);
    SendKey(Key::RowUp); // the first stays the first
    EXPECT_EQ(RowsShown(1), std::vector<std::string>{"Current account | 516.00"});

    SendKey(Key::Enter);
    Select(2);
    SendKey(Key::Drop5);
    SendKey(Key::Drop7);
    SendKey(Key::Drop4); // takes no transaction
    EXPECT_EQ(RecordsIn<FRec>(root.DataFile("E1_05FAV")).size(), 7u);
    EXPECT_EQ(RecordsIn<CatRec>(root.DataFile("E1_07CAT")).size(), 4u);
    SendKey(Key::Drop6);
    EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")).size(), 4u);
    ShowScreen(BinList);
    SendKey(Key::Drop1); // not where it came from
    EXPECT_EQ(state.EntryCount[BinList], 1);
    SendKey(Key::Drop2);
    EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")).at(1), "2026-02-21 ATM -200000");
    EXPECT_EQ(state.EntryCount[BinList], 0);
}

TEST_F(ByKeysAlone, TitlesAndBothSidesOfAFormAreReached) {
    SendKey(Key::Title1);
    EXPECT_EQ(state.RefColumn, 1u);
    SendKey(Key::Title2);
    EXPECT_EQ(state.ReconciledView, 1u);
    SendKey(Key::Title3); // there is none
    SendKey(Key::Header);
    EXPECT_EQ(state.ArchiveView, 1u);
    SendKey(Key::Header);
    SendKey(Key::Enter);
    SendKey(Key::Title4);
    EXPECT_EQ(state.ReconciledView, 0u);

    ShowScreen(ConversionList);
    SendKey(Key::Enter); // 113.955 for one
    SendKey(Key::OtherSidePart);
    SendKey(Key::Tick);
    const std::vector<CurRec> rates = RecordsIn<CurRec>(root.DataFile("E1_08CUR"));
    EXPECT_EQ(rates.back().DirectionState, 1u);
}
