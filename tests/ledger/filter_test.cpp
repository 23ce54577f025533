// A filter hides rows and touches none.
#include "ledger/ledger_test.h"

namespace {

struct Filtered : Ledger {
    uint32_t Bank = 0;
    std::map<std::string, std::vector<uint8_t>> Before;

    void SetUp() override {
        Bank = NewAccount(BankAccount);
        Fill(Bank, {{-400, "Rent", -500}, {-399, "Food", -60, -2}, {-300, "Deleted", 9, 1, 1, DeletedMarker}}, true);
        Fill(Bank, {{-40, "Archived", 1, 1, 1, ArchiveMarker},
                    {-31, "Rent", -500},
                    {-31, "Food", -60},
                    {-1, "Pay", 2000, 1, 1},
                    {0, "Food", -70, 2},
                    {0, "Monday", 0, 0, 0, DayMarker},
                    {40, "Rent", -510}});
        GoTo(Bank, true);
        CalcBalance(Bank);
        GoTo(Bank);
        Before = Snapshot(Root.Path());
    }
    // By the row at a position of the view shown.
    int Apply(int keep, FilterBy field, int32_t position, bool archive = false, uint32_t date = 0) {
        GoTo(Bank, archive);
        TRec row;
        EXPECT_EQ(FetchTran(position, &row), 1);
        FilterCriteria criteria;
        CriteriaFromRow(row, EntriesShown(), position, state.AccountKind, &criteria);
        return FilterAccount(Bank, keep, field, criteria, date);
    }
    std::string Shown(bool archive) const {
        std::string rows;
        for (const TRec &row : Read<TRec>((archive ? "E1_02RF" : "E1_02AF") + std::to_string(Bank)))
            rows += std::to_string(row.ParentRow) + " ";
        return rows;
    }
};

} // namespace

TEST_F(Filtered, EachFieldNarrowsTheView) {
    const struct {
        FilterBy Field;
        int Keep;
        int32_t Position;
        bool FromArchive;
        const char *Archive, *Live; // rows shown, by their number among all
    } cases[] = {
        {FilterBy::Name, 1, 2, false, "1 3 ", "1 2 6 7 "},
        {FilterBy::Name, 0, 2, false, "2 3 ", "1 3 4 5 6 "},
        {FilterBy::Name, 0, 6, false, "1 2 3 ", "1 2 3 4 5 7 "}, // a marker by its name
        {FilterBy::Ref, 1, 2, false, "1 2 3 ", "1 2 3 4 5 6 7 "},
        {FilterBy::Category, 0, 2, false, "3 ", "1 6 "},
        {FilterBy::Month, 1, 4, false, "3 ", "1 4 5 6 "},
        {FilterBy::Year, 0, 2, false, "1 2 3 ", "1 6 "},
        {FilterBy::Flag, 1, 2, false, "1 2 3 ", "1 2 3 4 5 6 7 "},
        {FilterBy::Sign, 1, 4, false, "2 3 ", "1 4 6 "}, // -60 twice back is a gain
        {FilterBy::Date, 1, 2, false, "3 ", "1 2 3 6 "},
        {FilterBy::Entry, 1, 3, false, "3 ", "1 3 6 "},
        {FilterBy::Entry, 0, 3, false, "1 2 3 ", "1 2 4 5 6 7 "},
        {FilterBy::Entry, 0, 1, true, "2 3 ", "1 2 3 4 5 6 7 "},
        {FilterBy::Preceding, 0, 3, false, "3 ", "1 4 5 6 7 "},
        {FilterBy::Preceding, 0, 6, false, "3 ", "1 7 "},
        {FilterBy::Preceding, 0, 1, true, "2 3 ", "1 2 3 4 5 6 7 "},
        {FilterBy::Following, 0, 3, false, "1 2 3 ", "1 2 6 "},
        {FilterBy::Following, 0, 2, true, "1 3 ", "1 6 "},
        {FilterBy::Kind, 0, 6, false, "1 2 3 ", "1 2 3 4 5 7 "},
        {FilterBy::Kind, 0, 2, false, "3 ", "1 6 "},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(test.Field) << (test.Keep ? " only " : " without ")
                                        << test.Position);
        ASSERT_EQ(Apply(test.Keep, test.Field, test.Position, test.FromArchive), 1);
        EXPECT_EQ(state.ArchiveView, static_cast<uint32_t>(test.FromArchive));
        EXPECT_EQ(Shown(true), test.Archive);
        EXPECT_EQ(Shown(false), test.Live);
        EXPECT_EQ(ClearFilters(), 1);
        EXPECT_EQ(ClearFilters(), 0);
    }
    GoTo(Bank);
    ClearFiltersAndRecompute();
    EXPECT_TRUE(Snapshot(Root.Path()) == Before); // the accounts' totals included
}

TEST_F(Filtered, FiltersStackAndShowTheirOwnTotals) {
    ASSERT_EQ(Apply(0, FilterBy::Name, 2), 1); // no rent
    GoTo(Bank);
    EXPECT_EQ(state.FilterShown, 1U);
    EXPECT_EQ(state.EntryCount[TransactionList], 5);
    ASSERT_EQ(Apply(0, FilterBy::Name, 2), 1); // no food: the second row of what is shown
    EXPECT_EQ(Shown(false), "1 4 6 ");
    const std::vector<TRec> rows = Read<TRec>("E1_02AF1");
    EXPECT_EQ(rows[0].Value, 9); // the marker follows the archive as it is shown
    EXPECT_EQ(rows[2].RunTotal, 2009);
    EXPECT_EQ(Account(Bank).Balance, 929); // the account's totals are never those of a filter
    EXPECT_EQ(Account(Bank).ArcBalance, -371);

    // Rows of a filtered view can't go.
    state.CurrentScreen = TransactionList;
    GoTo(Bank);
    EXPECT_EQ(DeleteRecMem(1), 0);
    EXPECT_EQ(DeleteRecRange(1, 1), 0);
    // Back to the row one was on.
    state.SelectedPos[TransactionList] = 2;
    ClearFiltersAndRecompute();
    EXPECT_EQ(state.SelectedPos[TransactionList], 4);
    EXPECT_EQ(state.FilterView, 0U);
    EXPECT_TRUE(Snapshot(Root.Path()) == Before);

    // The list stays near a date.
    ASSERT_EQ(Apply(0, FilterBy::Name, 2, false, Today), 1);
    EXPECT_EQ(state.SelectedPos[TransactionList], 4);
}

TEST_F(Filtered, AFilterThatCannotBeWrittenLeavesTheView) {
    ASSERT_EQ(Apply(0, FilterBy::Name, 2), 1);
    GoTo(Bank);
    const std::string before = Shown(false) + "/" + Shown(true);
    for (int n = 1, done = 0; !done; ++n) {
        WithFailingAction({.FailAt = n}, &done, [this] { return Apply(0, FilterBy::Name, 2); });
        EXPECT_EQ(Shown(false) + "/" + Shown(true) == before, !done) << n;
    }
}

TEST_F(Ledger, ACategoryOfASmallNumberIsNone) {
    const uint32_t bank = NewAccount(BankAccount, {{-3, "a", 1}, {-2, "b", 1}, {-1, "c", 1}});
    std::vector<uint8_t> bytes = File(bank);
    bytes[608 + 248] = 9;     // 9
    bytes[2 * 608 + 250] = 1; // 65536
    WriteBytes(Root.DataFile("E1_02A1"), bytes);
    for (const auto &[id, shown] : {std::pair{0, 1U}, {9, 0U}, {65536, 1U}, {65537, 0U}}) {
        FilterCriteria criteria = {};
        criteria.CatID = id;
        ASSERT_EQ(FilterAccount(bank, 1, FilterBy::Category, criteria, 0), 1);
        EXPECT_EQ(Read<TRec>("E1_02AF1").size(), shown) << id;
        ClearFilters();
    }
}
