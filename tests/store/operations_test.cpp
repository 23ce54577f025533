// No entry is lost or doubled, whatever the disk does.
#include "host/rows.h"
#include "store/catalogue.h"
#include "store/runs.h"
#include "store/store_test.h"
#include "store/windows.h"
#include <numeric>

namespace {

constexpr uint32_t Account = 5;

TRec Entry(int number) {
    TRec row;
    InitTRec(&row);
    row.Value = number;
    return row;
}

std::vector<int> Numbers(const TestRoot &root, const char *file = "E1_02A5") {
    std::vector<int> numbers;
    for (const TRec &row : RecordsIn<TRec>(root.DataFile(file)))
        numbers.push_back(static_cast<int>(row.Value));
    return numbers;
}

std::vector<int> Counted(int first, int last) {
    std::vector<int> numbers(static_cast<size_t>(last - first + 1));
    std::iota(numbers.begin(), numbers.end(), first);
    return numbers;
}

void WriteEntries(const TestRoot &root, int count, size_t loose = 0) {
    std::vector<uint8_t> bytes(static_cast<size_t>(count) * 608 + loose, 0xAB);
    for (int i = 0; i < count; ++i) {
        TRecFile record = {};
        record.Rec = Entry(i + 1);
        memcpy(bytes.data() + static_cast<size_t>(i) * 608, &record, sizeof record);
    }
    WriteBytes(root.DataFile("E1_02A5"), bytes);
}

struct Operations : Store {
    Operations() { state.CurrentScreen = TransactionList; }
};

int Add(int32_t position) {
    const TRec row = Entry(999);
    return AddRecFile(Account, position, &row, 1);
}
int Delete(int32_t position) {
    return DeleteRecFile(Account, position);
}

// Both change one row at a position; After gives the numbers then in a file of `count` rows.
constexpr struct {
    const char *Name;
    int (*Do)(int32_t position);
} BothWays[] = {{"AddRecFile", Add}, {"DeleteRecFile", Delete}};

std::vector<int> After(int (*operation)(int32_t), int count, int position) {
    std::vector<int> numbers = Counted(1, count);
    if (operation == Add)
        numbers.insert(numbers.begin() + position - 1, 999);
    else
        numbers.erase(numbers.begin() + position - 1);
    return numbers;
}

} // namespace

TEST_F(Operations, ARowGoesInAndOutAtEveryPlace) {
    for (const int count : {0, 1, 3, 448, 900})
        for (const int position : {1, 2, count / 2, count, count + 1}) {
            if (position < 1 || position > count + 1)
                continue;
            SCOPED_TRACE(testing::Message() << count << " rows, at " << position);
            WriteEntries(Root, count, 100); // a remainder of no whole record does not count
            EXPECT_EQ(Add(position), 1);
            EXPECT_EQ(Numbers(Root), After(Add, count, position));
            EXPECT_EQ(state.EntryCount[TransactionList], count + 1);
            EXPECT_EQ(state.SelectedPos[TransactionList], position);
            EXPECT_EQ(Delete(position), 1);
            EXPECT_EQ(Numbers(Root), Counted(1, count));
            EXPECT_EQ(state.EntryCount[TransactionList], count);
            EXPECT_EQ(ReadBytes(Root.DataFile("E1_02A5")).size(), static_cast<size_t>(count) * 608);
        }
    WriteEntries(Root, 2);
    EXPECT_EQ(Delete(0) + Delete(3), 0);
    EXPECT_EQ(Add(-5) + Add(77), 2);
    EXPECT_EQ(Numbers(Root), (std::vector<int>{999, 1, 2, 999}));
}

TEST_F(Operations, AFailingDiskChangesNothing) {
    for (const auto &way : BothWays)
        for (const int count : {1, 2, 6, 460})
            for (const int position : {1, count / 2 + 1, count})
                for (const bool tear : {false, true})
                    for (int n = 1, done = 0; !done; n += count < 100 || n < 4 ? 1 : 151) {
                        SCOPED_TRACE(testing::Message() << way.Name << ": " << count << " rows, at " << position
                                                        << ", call " << n << (tear ? " torn" : ""));
                        WriteEntries(Root, count);
                        state.SelectedPos[TransactionList] = 44;
                        machine.Terminal.clear();
                        const bool met = WithFailingAction({.FailAt = n, .TearWrite = tear}, &done,
                                                           [&, position] { return way.Do(position); });
                        ASSERT_TRUE(done || met);
                        // A write that fails after the journal has the action is made good.
                        ASSERT_EQ(Numbers(Root), done ? After(way.Do, count, position) : Counted(1, count));
                    }
}

TEST_F(Operations, AFullDiskTakesNoEntryAndLosesNone) {
    int added = 0;
    WriteEntries(Root, 500);
    for (const int position : {1, 250, 500, 501})
        WithFailingAction({.Full = true}, &added, [position] { return Add(position); });
    EXPECT_EQ(Numbers(Root), Counted(1, 500));
    EXPECT_EQ(ReadBytes(Root.DataFile("E1_02A5")).size(), 500u * 608);
}

TEST_F(Operations, RunsMoveWholeOverAnyDistance) {
    static const struct {
        int Count, From, Moved, To;
    } cases[] = {
        {10, 1, 10, 4},       {10, 4, 7, 1},        {10, 3, 2, 9},       {10, 9, 2, 1},        {10, 2, 3, 11},
        {1000, 1, 1000, 301}, {1000, 1, 1000, 601}, {1000, 301, 700, 1}, {2000, 1, 900, 1001}, {10, 5, 0, 1},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(testing::Message() << c.Moved << " of " << c.Count << " from " << c.From << " to " << c.To);
        WriteEntries(Root, c.Count);
        std::vector<int> expected = Counted(1, c.Count);
        const std::vector<int> run(expected.begin() + c.From - 1, expected.begin() + c.From - 1 + c.Moved);
        expected.resize(static_cast<size_t>(std::max(c.Count, c.To + c.Moved - 1)));
        std::copy(run.begin(), run.end(), expected.begin() + c.To - 1);
        const int file = OpenPlace(LiveRows(Account), OpenExisting);
        EXPECT_EQ(MoveRun(file, FileKind::Transactions, c.From, c.Moved, c.To), 1);
        CloseFile(file);
        EXPECT_EQ(Numbers(Root), expected);
    }
}

TEST_F(Operations, ARecordMovesWholeToEveryPlace) {
    for (const int from : {1, 2, 5})
        for (const int to : {1, 2, 3, 5, 6}) {
            SCOPED_TRACE(testing::Message() << from << " to " << to);
            WriteEntries(Root, 5);
            std::vector<int> expected = Counted(1, 5);
            const int landing = to > from ? to - 1 : to;
            expected.erase(expected.begin() + from - 1);
            expected.insert(expected.begin() + landing - 1, from);
            EXPECT_EQ(MoveRecord(LiveRows(Account), from, to), landing);
            EXPECT_EQ(Numbers(Root), expected);
        }
    for (const auto &[from, to] : {std::pair{0, 1}, {6, 1}, {1, 0}, {1, 7}})
        EXPECT_EQ(MoveRecord(LiveRows(Account), from, to), 0);
}

TEST_F(Operations, TheListWorkedOnIsTheOneOfTheScreen) {
    BinRec bin;
    InitBinRec(&bin);
    state.CurrentScreen = BinList;
    for (const char16_t *name : {u"first", u"second"}) {
        CopyText(bin.Name, 32, name);
        EXPECT_EQ(AddRecFile(0, 1, &bin, 0), 1); // the bin ignores the position
    }
    EXPECT_EQ(FetchBin(2, &bin), 1);
    EXPECT_EQ(Utf8(bin.Name), "second");
    EXPECT_EQ(state.CurrentScreen, BinList);

    ARec account;
    InitARec(&account);
    account.ID = 5;
    state.CurrentScreen = AccountList;
    EXPECT_EQ(AddRecFile(0, 1, &account, 0), 1);
    state.CurrentScreen = GraphList; // shows transactions
    state.ReconcileState = ReconcileStep::Solved;
    const TRec row = Entry(1);
    EXPECT_EQ(AddRecFile(Account, 1, &row, 0), 1);
    EXPECT_EQ(state.AccRows[1].ID, 5u) << "the account list was reloaded";
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Idle);

    EXPECT_EQ(AddRecFile(0, 1, &row, 1), 0);
    EXPECT_FALSE(FileThere("\\Program Files\\Zentrik\\E1_Data\\E1_02A0")) << "no account, no file";
    state.CurrentScreen = 9;
    EXPECT_EQ(Delete(1), 0);
    EXPECT_TRUE(Told("DeleteRecFile caseError"));

    state.CurrentScreen = TransactionList;
    state.DataUsable = 0;
    const auto before = Snapshot(Root.Path());
    EXPECT_EQ(Add(1) + ModRecFile(Account, 1, &row) + Delete(1), 0);
    EXPECT_EQ(Snapshot(Root.Path()), before);
}

TEST_F(Operations, AFilterFileIsWorkedOnInPlaceOfItsAccount) {
    WriteEntries(Root, 2);
    WriteBytes(Root.DataFile("E1_02AF5"), {});
    const auto open = [&](View view, Rows through, OpenDisposition disposition, uint32_t *filtered) {
        const int file = OpenPlace(RowsOf(Account, view, through), disposition, filtered);
        CloseFile(file);
        return file >= 0;
    };
    uint32_t filtered = 7;
    EXPECT_TRUE(open(View::Live, Rows::Shown, OpenOrCreate, &filtered));
    EXPECT_EQ(filtered, 1u);
    EXPECT_EQ(Add(1), 1);
    EXPECT_EQ(Numbers(Root), Counted(1, 2));
    EXPECT_EQ(Numbers(Root, "E1_02AF5"), std::vector<int>{999});
    EXPECT_TRUE(open(View::Live, Rows::All, OpenExisting, &filtered));
    EXPECT_EQ(filtered, 0u);

    EXPECT_FALSE(open(View::Archive, Rows::Shown, OpenExisting, nullptr));
    EXPECT_FALSE(FileThere("\\Program Files\\Zentrik\\E1_Data\\E1_02R5"));
    EXPECT_TRUE(open(View::Archive, Rows::Shown, OpenOrCreate, nullptr));
    EXPECT_TRUE(FileThere("\\Program Files\\Zentrik\\E1_Data\\E1_02R5"));
}
