// Damaged files and impossible input: a clear answer, and nothing lost.
#include "day.h"
#include "state/state.h"

using namespace stories;

class BadInput : public testing::Test {
protected:
    BadInput() {
        SetClock(2026, 3, 2);
        StartProgram();
    }
    TestRoot root;
};

TEST_F(BadInput, AnAccountOfAFutureVersionKeepsItsBalanceUntilItIsOpened) {
    QuitProgram();
    std::vector<uint8_t> bytes = ReadBytes(root.DataFile("E1_02A2"));
    std::fill(bytes.begin(), bytes.end(), uint8_t{0x22});
    WriteBytes(root.DataFile("E1_02A2"), bytes);
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.DataUsable, 1u);
    EXPECT_EQ(RecordsIn<ARec>(root.DataFile("E1_01IND")).at(1).Balance, 6033210);
    OpenRow(2);
    EXPECT_EQ(state.DataUsable, 0u);
    QuitProgram();
    EXPECT_EQ(ReadBytes(root.DataFile("E1_02A2")), bytes);
    EXPECT_EQ(RecordsIn<ARec>(root.DataFile("E1_01IND")).at(1).Balance, 6033210);
}

TEST_F(BadInput, AShortConfigurationIsReplacedAndTheAccountsStay) {
    QuitProgram();
    WriteBytes(root.DataFile("E1_03CON"), std::vector<uint8_t>(100, 0xAA));
    const std::vector<uint8_t> accounts = ReadBytes(root.DataFile("E1_01IND"));
    ASSERT_TRUE(StartProgram());
    const std::vector<uint8_t> bytes = ReadBytes(root.DataFile("E1_03CON"));
    ASSERT_EQ(bytes.size(), 888u);
    EXPECT_EQ(bytes[0], 1);
    EXPECT_EQ(bytes[12], 7) << "days to look ahead";
    EXPECT_EQ(ReadBytes(root.DataFile("E1_01IND")), accounts);
    EXPECT_EQ(RowsShown(1), std::vector<std::string>{"Current account | 516.00"});
}

TEST_F(BadInput, ATornRecordAtTheEndIsPassedOverAndWrittenOver) {
    QuitProgram();
    std::vector<uint8_t> bytes = ReadBytes(root.DataFile("E1_02A1"));
    const std::vector<std::string> before = EntriesIn(root.DataFile("E1_02A1"));
    for (const size_t torn : {size_t{1}, size_t{304}, size_t{607}}) {
        SCOPED_TRACE(torn);
        std::vector<uint8_t> cut = bytes;
        cut.insert(cut.end(), torn, 0xEE);
        WriteBytes(root.DataFile("E1_02A1"), cut);
        ASSERT_TRUE(StartProgram());
        OpenRow(1);
        EXPECT_EQ(state.EntryCount[TransactionList], 5);
        AddEntry({2026, 3, 20, "new", "1", "0"});
        std::vector<std::string> expected = before;
        expected.push_back("2026-03-20 new -1000");
        EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")), expected);
        QuitProgram();
    }
}
