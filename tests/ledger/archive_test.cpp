// Old rows move away and back, and no balance moves with them.
#include "ledger/account_window.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/ledger_test.h"
#include "ledger/moves.h"
#include "store/index.h"
#include "store/windows.h"

using namespace testhost;

namespace {

int Percent;
void TellPercent(int percent) {
    EXPECT_GE(percent, Percent);
    Percent = percent;
}

} // namespace

TEST_F(Ledger, ArchivedRowsLeaveOneMarkerAndEveryBalance) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-9, "a", 1000, 2, 1},
                {-8, "b", -500},
                {-8, "Saturday", 0, 0, 0, ReconcileEntry},
                {-7, "c", 300, 1, 1},
                {-2, "d", 40},
                {0, "Monday", 0, 0, 0, DayMarker},
                {5, "e", 7000}});
    const ARec before = Account(bank);
    EXPECT_EQ(Archive(1, 0, nullptr), 0);
    ASSERT_EQ(Archive(1, 4, nullptr), 1);
    EXPECT_EQ(Names(bank, true), "a 2, b 1, c 1");
    EXPECT_EQ(Names(bank), "Archived 1, d 1, Monday 1, e 8");
    const TRec marker = Rows(bank)[0];
    EXPECT_EQ(marker.Value, 1800);
    EXPECT_EQ(marker.ClearedValue, 2300);
    EXPECT_EQ(marker.Date.DayNumber, Today - 7);
    EXPECT_EQ(marker.Rank, +ArchiveRank);
    EXPECT_EQ(marker.Cleared * 100 + marker.NoCash * 10 + marker.Cash, 110U);
    EXPECT_EQ(Utf8(marker.Memo), "Auto created");
    EXPECT_EQ(Account(bank).Balance, before.Balance);
    EXPECT_EQ(Account(bank).ClearedBalance, before.ClearedBalance);
    EXPECT_EQ(Account(bank).ArcBalance, 1800);
    EXPECT_EQ(state.CurrentScreen, +TransactionList);
    EXPECT_EQ(state.Restructuring, 0U);

    // More of it: a new marker takes the place of the old, which never reaches the archive.
    ASSERT_EQ(Archive(1, 99, TellPercent), 1);
    EXPECT_EQ(Percent, 100);
    EXPECT_EQ(Names(bank, true), "a 2, b 1, c 1, d 1, e 8");
    EXPECT_EQ(Names(bank), "Archived 8");

    // A change in the archive reaches the live file's marker.
    GoTo(bank, true);
    TRec changed = Rows(bank, true)[1];
    changed.Value = 99500;
    ASSERT_EQ(MoveRecFile(bank, 2, 2, &changed), 1);
    EXPECT_EQ(Names(bank), "Archived 108");
    EXPECT_EQ(Archive(1, 1, nullptr), 0); // not in this view
    ASSERT_EQ(Unarchive(1, 3, nullptr), 1);
    EXPECT_EQ(Names(bank, true), "a 2, b 101");
    EXPECT_EQ(Names(bank), "Archived 101, c 101, d 101, e 108");
    EXPECT_EQ(Rows(bank)[0].Value, 101500);
    EXPECT_EQ(Rows(bank)[0].Cash, 0U);
    EXPECT_EQ(Utf8(Rows(bank)[0].Memo), "Auto generated");
    EXPECT_EQ(Unarchive(1, 3, nullptr), 0);
    ASSERT_EQ(Unarchive(1, 1, nullptr), 1);
    EXPECT_EQ(Names(bank), "a 2, b 101, c 101, d 101, e 108");
    EXPECT_TRUE(Rows(bank, true).empty());
    EXPECT_EQ(Account(bank).ArcBalance, 0);
    EXPECT_EQ(Account(bank).Balance, 101840);
    EXPECT_EQ(Unarchive(1, 1, nullptr), 0);
    EXPECT_EQ(disk.OpenHandles, 0);
}

TEST_F(Ledger, BackdatedRowsFindTheirPlaceInTheArchive) {
    const std::vector<Entry> old = {{-30, "o1", 1}, {-20, "o2", 2}, {-20, "o3", 4}, {-10, "o4", 8}};
    const std::vector<Entry> fresh = {
        {-40, "Archived", 15, 1, 1, ArchiveMarker}, {-40, "n0", 16}, {-20, "n1", 32}, {-15, "n2", 64}, {-5, "n3", 128}};
    struct Case {
        uint32_t Type;
        const char *Archived, *Back; // live after everything came back
        uint32_t Restructured;
    };
    const Case cases[] = {
        {BankAccount, "n0 o1 o2 o3 n1 n2 o4 n3 ", "n0 o1 o2 o3 n1 n2 o4 n3 ", 1},
        {ListAccount, "o1 o2 o3 o4 n0 n1 n2 n3 ", "o1 o2 o3 o4 n0 n1 n2 n3 ", 0},
    };
    const auto names = [](const std::vector<TRec> &rows) {
        std::string all;
        for (const TRec &row : rows)
            all += Utf8(row.Name) + " ";
        return all;
    };
    for (const Case &test : cases) {
        const uint32_t account = NewAccount(test.Type);
        const int32_t position = IDtoRec(account);
        Fill(account, old, true);
        Fill(account, fresh);
        ASSERT_EQ(Archive(position, 5, nullptr), 1);
        EXPECT_EQ(names(Rows(account, true)), test.Archived);
        EXPECT_EQ(state.Restructuring, test.Restructured);
        EXPECT_EQ(Rows(account, true).back().RunTotal, 255);
        EXPECT_EQ(Rows(account)[0].Value, 255);
        GoTo(account, true);
        ASSERT_EQ(Unarchive(position, 1, nullptr), 1);
        EXPECT_EQ(names(Rows(account)), test.Back);
        EXPECT_EQ(Rows(account).back().RunTotal, 255);

        // Coming back among live rows: before those of their day; Deleted and Reconcile rows of the live file go.
        Fill(account, old, true);
        std::vector<Entry> live = fresh;
        live.push_back({-4, "gone", 1000, 1, 0, ReconcileEntry});
        live.push_back({0, "Monday", 0, 0, 0, DayMarker});
        Fill(account, live);
        GoTo(account, true);
        ASSERT_EQ(Unarchive(position, 2, nullptr), 1);
        EXPECT_EQ(names(Rows(account, true)), "o1 ");
        EXPECT_EQ(names(Rows(account)), test.Restructured ? "Archived n0 o2 o3 n1 n2 o4 n3 Monday "
                                                          : "Archived o2 o3 o4 n0 n1 n2 n3 Monday ");
        EXPECT_EQ(Rows(account).back().RunTotal, 255);
    }
}

TEST_F(Ledger, AShareAccountKeepsItsWorthThroughTheArchive) {
    const uint32_t shares = NewAccount(ShareValue);
    Fill(shares, {{-9, "in", 1000000, 1, 1, EntryRow, 1},
                  {-8, "buy", 2500, 100, 1},
                  {-7, "free", 3000, 10, 0, EntryRow, 0, 1},
                  {-6, "fee", -1500, 1, 0, EntryRow, 1},
                  {-5, "sell", 4000, -50, 1}});
    const std::vector<TRec> before = Rows(shares);
    const ARec account = Account(shares);
    for (int32_t boundary = 1; boundary <= 5; ++boundary) {
        SCOPED_TRACE(boundary);
        ASSERT_EQ(Archive(1, boundary, nullptr), 1);
        std::vector<TRec> rows = Rows(shares);
        ASSERT_EQ(rows.size(), static_cast<size_t>(6 - boundary));
        for (size_t i = 1; i < rows.size(); ++i) {
            const TRec &was = before[i + static_cast<size_t>(boundary) - 1];
            EXPECT_EQ(std::memcmp(&rows[i], &was, sizeof was), 0) << i;
        }
        EXPECT_EQ(Account(shares).Balance, account.Balance);
        EXPECT_EQ(Account(shares).ClearedBalance, account.ClearedBalance);
        GoTo(shares, true);
        CalcBalance(shares); // the marker from the archive is the same
        EXPECT_EQ(std::memcmp(&rows[0], &Rows(shares)[0], sizeof(TRec)), 0);
        ASSERT_EQ(Unarchive(1, 1, nullptr), 1);
        GoTo(shares);
        EXPECT_EQ(std::memcmp(before.data(), Rows(shares).data(), before.size() * sizeof(TRec)), 0);
    }
}

TEST_F(Ledger, AnArchiveCutInARecordIsContinuedBehindTheLastWholeOne) {
    const uint32_t bank = NewAccount(BankAccount);
    Fill(bank, {{-9, "a", 1000}, {-8, "b", 2000}}, true);
    std::vector<uint8_t> bytes = ReadBytes(Root.DataFile("E1_02R1"));
    bytes.resize(608 + 300);
    WriteBytes(Root.DataFile("E1_02R1"), bytes);
    Fill(bank, {{-7, "c", 4000}, {-6, "d", 8000}});
    ASSERT_EQ(Archive(1, 1, nullptr), 1);
    EXPECT_EQ(Names(bank, true), "a 1, c 5");
    EXPECT_EQ(Names(bank), "Archived 4, d 12"); // the rows that stay keep theirs
    GoTo(bank, true);
    ASSERT_EQ(Unarchive(1, 2, nullptr), 1);
    EXPECT_EQ(Names(bank), "Archived 1, c 5, d 13");
}

// Whatever the disk does, each row is in one of the files; on a full disk nothing has changed at all.
TEST_F(Ledger, AFailingDiskLosesNoArchivedRow) {
    struct Case {
        bool Back, Backdated;
    };
    for (const Case &test : {Case{false, false}, Case{false, true}, Case{true, false}, Case{true, true}})
        for (const bool onward : {false, true})
            for (int n = 0;; ++n) { // 0: the disk is full
                SCOPED_TRACE(testing::Message() << (test.Back ? "back" : "away") << (test.Backdated ? " merged" : "")
                                                << ", write " << n << (onward ? " and all after it" : ""));
                const uint32_t bank = NewAccount(BankAccount);
                const int32_t position = IDtoRec(bank);
                Fill(bank, {{-20, "a", 1000}, {-10, "b", 2000}}, true);
                Fill(bank, {{test.Backdated ? -15 : -5, "c", 4000}, {-4, "d", 8000}, {-3, "e", 16000}});
                const std::vector<TRec> live = Rows(bank), archive = Rows(bank, true);
                GoTo(bank, test.Back);
                ResetDisk();
                disk.Switches.FailAt = n;
                disk.Switches.FailOnward = onward;
                disk.Switches.Full = n == 0;
                const int done = test.Back ? Unarchive(position, 2, nullptr) : Archive(position, 2, nullptr);
                const bool failed = n == 0 || disk.WriteCalls >= n;
                ResetDisk();
                std::string all;
                for (const bool view : {false, true})
                    for (const TRec &row : Rows(bank, view))
                        all += row.RowKind == ArchiveMarker ? "" : Utf8(row.Name);
                for (const char name : {'a', 'b', 'c', 'd', 'e'})
                    EXPECT_NE(all.find(name), std::string::npos) << all;
                if (n == 0) {
                    EXPECT_EQ(done, 0);
                    EXPECT_EQ(std::memcmp(live.data(), Rows(bank).data(), live.size() * sizeof(TRec)), 0);
                    EXPECT_EQ(archive.size(), Rows(bank, true).size());
                }
                EXPECT_EQ(disk.OpenHandles, 0);
                if (!failed)
                    break;
                ASSERT_LT(n, 100);
            }
}
