// Old rows move away and back, and no balance moves with them.
#include "ledger/entries.h"
#include "ledger/ledger_test.h"

namespace {

int Percent;
void TellPercent(int percent) {
    EXPECT_GE(percent, Percent);
    Percent = percent;
}

} // namespace

TEST_F(Ledger, ArchivedRowsLeaveOneMarkerAndEveryBalance) {
    const uint32_t bank = NewAccount(BankAccount, {{-9, "a", 1000, 2, 1},
                                                   {-8, "b", -500},
                                                   {-8, "Saturday", 0, 0, 0, ReconcileEntry},
                                                   {-7, "c", 300, 1, 1},
                                                   {-2, "d", 40},
                                                   {0, "Monday", 0, 0, 0, DayMarker},
                                                   {5, "e", 7000}});
    EXPECT_EQ(Archived(bank, 0), 0);
    ASSERT_EQ(Archived(bank, 4), 1);
    EXPECT_EQ(Names(bank, true), "a 2, b 1, c 1");
    EXPECT_EQ(Names(bank), "Archived 1, d 1, Monday 1, e 8");
    EXPECT_EQ(Fields(Rows(bank)[0], "Value ClearedValue Date Rank Cleared NoCash Cash Memo"),
              "1800, 2300, 2026-02-23, 2, 1, 1, 0, Auto created");
    EXPECT_EQ(Balances(bank), "1840, 2300");
    EXPECT_EQ(Account(bank).ArcBalance, 1800);
    EXPECT_EQ(state.Restructuring, 0U);

    // More of it: a new marker takes the place of the old, which never reaches the archive.
    ASSERT_EQ(Archived(bank, 99, TellPercent), 1);
    EXPECT_EQ(Percent, 100);
    EXPECT_EQ(Names(bank, true), "a 2, b 1, c 1, d 1"); // but nothing that is still to come
    EXPECT_EQ(Names(bank), "Archived 1, e 8");
    EXPECT_EQ(Balances(bank), "1840, 2300");
    EXPECT_EQ(Archive(NewAccount(BankAccount, {{1, "soon", 1000}}), 1, nullptr), ArchiveResult::NotYet);

    // A change in the archive reaches the live file's marker.
    GoTo(bank, true);
    TRec changed = Rows(bank, true)[1];
    changed.Value = 99500;
    ASSERT_EQ(MoveRecFile(bank, 2, 2, &changed), 1);
    EXPECT_EQ(Names(bank), "Archived 101, e 108");
    ASSERT_EQ(Unarchived(bank, 3), 1);
    EXPECT_EQ(Names(bank, true), "a 2, b 101");
    EXPECT_EQ(Names(bank), "Archived 101, c 101, d 101, e 108");
    EXPECT_EQ(Fields(Rows(bank)[0], "Cash Memo"), "0, Auto generated");
    EXPECT_EQ(Unarchived(bank, 3), 0);
    ASSERT_EQ(Unarchived(bank, 1), 1);
    EXPECT_EQ(Names(bank), "a 2, b 101, c 101, d 101, e 108");
    EXPECT_TRUE(Rows(bank, true).empty());
    EXPECT_EQ(Account(bank).ArcBalance, 0);
    EXPECT_EQ(Account(bank).Balance, 101840);
    EXPECT_EQ(Unarchived(bank, 1), 0);
}

TEST_F(Ledger, BackdatedRowsFindTheirPlaceInTheArchive) {
    const std::vector<Entry> old = {{-30, "o1", 1000}, {-20, "o2", 2000}, {-20, "o3", 4000}, {-10, "o4", 8000}};
    const std::vector<Entry> fresh = {{-40, "Archived", 15000, 1, 1, ArchiveMarker},
                                      {-40, "n0", 16000},
                                      {-20, "n1", 32000},
                                      {-15, "n2", 64000},
                                      {-5, "n3", 128000}};
    const struct {
        uint32_t Type;
        const char *All, *Back; // by date, or in a list as they were
        uint32_t Restructured;
    } cases[] = {
        {BankAccount, "n0 16, o1 17, o2 19, o3 23, n1 55, n2 119, o4 127, n3 255",
         "Archived 1, n0 17, o2 19, o3 23, n1 55, n2 119, o4 127, n3 255, lost 1255, Monday 1255", 1},
        {ListAccount, "o1 1, o2 3, o3 7, o4 15, n0 31, n1 63, n2 127, n3 255",
         "Archived 1, o2 3, o3 7, o4 15, n0 31, n1 63, n2 127, n3 255, lost 1255, Monday 1255", 0},
    };
    for (const auto &test : cases) {
        const uint32_t account = NewAccount(test.Type);
        Fill(account, old, true);
        Fill(account, fresh);
        ASSERT_EQ(Archived(account, 5), 1);
        EXPECT_EQ(Names(account, true), test.All);
        EXPECT_EQ(state.Restructuring, test.Restructured);
        EXPECT_EQ(Names(account), "Archived 255");
        GoTo(account, true);
        ASSERT_EQ(Unarchived(account, 1), 1);
        EXPECT_EQ(Names(account), test.All);

        // Coming back among live rows: before those of their day. A Deleted marker keeps its money, a Reconcile row
        // goes.
        Fill(account, old, true);
        std::vector<Entry> live = fresh;
        live.push_back({-4, "gone", 1000000, 1, 0, ReconcileEntry});
        live.push_back({-4, "lost", 1000000, 1, 0, DeletedMarker});
        live.push_back({0, "Monday", 0, 0, 0, DayMarker});
        Fill(account, live);
        GoTo(account, true);
        ASSERT_EQ(Unarchived(account, 2), 1);
        EXPECT_EQ(Names(account, true), "o1 1");
        EXPECT_EQ(Names(account), test.Back);
    }
}

// An entry older than the archive stands before the marker; archived alone, it takes the marker's totals along.
TEST_F(Ledger, ARowBeforeTheMarkerIsArchivedWithEveryBalance) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-30, "o1", 1000}, {-10, "o2", 2000, 1, 1}}, true);
    Fill(bank,
         {{-40, "n0", 16000}, {-35, "n1", 64000}, {-10, "Archived", 3000, 1, 1, ArchiveMarker}, {-5, "n2", 128000}});
    GoTo(bank, true);
    CalcBalance(bank);
    GoTo(bank);
    const std::string balances = Balances(bank);
    ASSERT_EQ(Archived(bank, 1), 1);
    EXPECT_EQ(Names(bank, true), "n0 16, o1 17, o2 19");
    EXPECT_EQ(Names(bank), "Archived 19, n1 83, n2 211");
    EXPECT_EQ(Balances(bank), balances);
}

// What stands in an archive counts through the live file's marker, and no longer when its owner deletes that.
TEST_F(Ledger, AnArchiveCountsThroughItsMarkerOrNotAtAll) {
    for (const uint32_t type : {+BankAccount, +ShareValue}) {
        SCOPED_TRACE(type);
        const int binned = static_cast<int>(Bin().size());
        const uint32_t account = NewAccount(type, {{-9, "a", 1000}, {-8, "b", 1000, 2}, {-7, "c", 1000}});
        const Place live = LiveRows(account), archive = RowsOf(account, View::Archive);
        TRec row = RowOf({-20, "old", 1000, 4, 1});
        ASSERT_GT(EnterEntry(archive, 0, &row), 0);
        EXPECT_EQ(Rows(account)[0].RowKind, ArchiveMarker);
        EXPECT_EQ(Rows(account)[3].RunTotal, IsShare(type) ? -8000 : 8000);
        const std::string whole = Balances(account);
        ASSERT_EQ(Archived(account, 2), 1);
        EXPECT_EQ(Balances(account), whole);

        ASSERT_EQ(DeleteToBin(live, 1), 1);
        CalcTotals(live);
        const std::string left = Balances(account);
        const auto expectLeft = [&] {
            CalcTotals(archive);
            EXPECT_EQ(Balances(account), left);
        };
        expectLeft();
        ASSERT_EQ(Archived(account, 1), 1);
        expectLeft();
        ASSERT_EQ(DeleteToBin(live, 1), 1);
        CalcTotals(live);
        ASSERT_EQ(Unarchived(account, 3), 1);
        const int64_t sign = IsShare(type) ? -1 : 1;
        EXPECT_EQ(Rows(account).back().RunTotal, sign * 1000); // c
        // What the first marker stood for comes back as money: the archive has a marker again.
        ASSERT_EQ(Restored(binned + 1), 1);
        EXPECT_EQ(Rows(account).back().RunTotal, sign * 6000);
        EXPECT_EQ(Rows(account)[0].RowKind, ArchiveMarker);
        const std::vector<TRec> rows = Rows(account);
        EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const TRec &r) { return r.RowKind == ArchiveMarker; }), 1);
    }
}

TEST_F(Ledger, AShareAccountKeepsItsWorthThroughTheArchive) {
    const uint32_t shares = NewAccount(ShareValue, {{-9, "in", 1000000, 1, 1, EntryRow, 1},
                                                    {-8, "buy", 2500, 100, 1},
                                                    {-7, "free", 3000, 10, 0, EntryRow, 0, 1},
                                                    {-6, "fee", -1500, 1, 0, EntryRow, 1},
                                                    {-5, "sell", 4000, -50, 1}});
    const std::vector<uint8_t> before = File(shares);
    const std::string balances = Balances(shares);
    for (int32_t boundary = 1; boundary <= 5; ++boundary) {
        SCOPED_TRACE(boundary);
        ASSERT_EQ(Archived(shares, boundary), 1);
        const std::vector<uint8_t> after = File(shares);
        EXPECT_TRUE(std::equal(after.begin() + 608, after.end(), before.begin() + 608 * boundary, before.end()));
        EXPECT_EQ(Balances(shares), balances);
        GoTo(shares, true);
        CalcBalance(shares); // the marker from the archive is the same
        EXPECT_TRUE(File(shares) == after);
        ASSERT_EQ(Unarchived(shares, 1), 1);
        GoTo(shares);
        EXPECT_TRUE(File(shares) == before);
    }
}

TEST_F(Ledger, AnArchiveCutInARecordIsContinuedBehindTheLastWholeOne) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-9, "a", 1000}, {-8, "b", 2000}}, true);
    std::vector<uint8_t> bytes = File(bank, true);
    bytes.resize(608 + 300);
    WriteBytes(Root.DataFile("E1_02R1"), bytes);
    Fill(bank, {{-9, "Archived", 1000, 1, 1, ArchiveMarker}, {-7, "c", 4000}, {-6, "d", 8000}});
    ASSERT_EQ(Archived(bank, 2), 1);
    EXPECT_EQ(Names(bank, true), "a 1, c 5");
    EXPECT_EQ(Names(bank), "Archived 5, d 13");
    GoTo(bank, true);
    ASSERT_EQ(Unarchived(bank, 2), 1);
    EXPECT_EQ(Names(bank), "Archived 1, c 5, d 13");
}

// Whatever the disk does, each row is in one of the files; on a full disk nothing has changed at all.
TEST_F(Ledger, AFailingDiskLosesNoArchivedRow) {
    for (const bool back : {false, true})
        for (const bool backdated : {false, true})
            for (const bool onward : {false, true})
                for (int n = 0;; ++n) { // 0: the disk is full
                    SCOPED_TRACE(testing::Message() << (back ? "back" : "away") << (backdated ? " merged" : "")
                                                    << ", write " << n << (onward ? " and all after it" : ""));
                    const uint32_t bank = NewAccount(BankAccount);
                    Fill(bank, {{-20, "a", 1000}, {-10, "b", 2000}}, true);
                    Fill(bank, {{backdated ? -15 : -5, "c", 4000}, {-4, "d", 8000}, {-3, "e", 16000}});
                    const std::vector<uint8_t> live = File(bank), archive = File(bank, true);
                    GoTo(bank, back);
                    int done = 0;
                    const bool failed = WithFailingDisk({.FailAt = n, .FailOnward = onward, .Full = n == 0},
                                                        [&] { done = back ? Unarchived(bank, 2) : Archived(bank, 2); });
                    ExpectNoneLost("abcde", bank);
                    if (n == 0) {
                        EXPECT_EQ(done, 0);
                        EXPECT_TRUE(File(bank) == live && File(bank, true) == archive);
                    }
                    if (!failed)
                        break;
                }
}
