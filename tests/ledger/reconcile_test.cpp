// A statement's balance finds the entries that explain it.
#include "host/fuzz.h"
#include "ledger/entries.h"
#include "ledger/ledger_test.h"
#include "ledger/reconcile.h"
#include <functional>

namespace {

std::string Selected() {
    std::string positions;
    for (int32_t position = 1; position <= 40; ++position)
        if (IsReconcileCandidate(position))
            positions += std::to_string(position) + " ";
    return positions;
}

} // namespace

TEST_F(Ledger, TheSearchPrefersTheOldestEntries) {
    const std::vector<Entry> twentyTwo(22, Entry{-5, "one", 1000});
    constexpr ReconcileStep Solved = ReconcileStep::Solved, Impossible = ReconcileStep::Impossible;
    const struct {
        const char *What;
        std::vector<Entry> Rows;
        FixedAmount Target;
        ReconcileStep State;
        const char *Selected;
        int32_t Count;
    } cases[] = {
        {"first alone", {{-3, "", 5000}, {-2, "", 3000}, {-1, "", 2000}}, 5000, Solved, "1 ", 1},
        {"both", {{-3, "", 3000}, {-2, "", 5000}}, 8000, Solved, "1 2 ", 2},
        {"a thousandth off", {{-3, "", 3000}, {-2, "", 5000}}, 8001, Impossible, "", 0},
        {"nothing to explain", {{-3, "", 3000, 1, 1}}, 3000, Solved, "", 0},
        {"nothing to choose from", {{-3, "", 3000, 1, 1}}, 4000, Impossible, "", 0},
        {"the multiplier counts", {{-3, "", -10000, 3}, {-2, "", 1}}, -30000, Solved, "1 ", 1},
        {"reconciled, but not yet due", {{-3, "", 1000}, {1, "", 7000, 1, 1}}, 7000, Solved, "2 ", 1},
        {"markers are no entries",
         {{-3, "", 4000, 1, 0, DeletedMarker}, {-2, "", 4000, 1, 0, ReconcileEntry}, {-1, "", 4000}},
         4000,
         Solved,
         "3 ",
         1},
        {"twenty", twentyTwo, 20000, Solved, "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 ", 20},
        {"the 21st is not considered", twentyTwo, 21000, Impossible, "", 0},
    };
    for (const auto &test : cases) {
        SCOPED_TRACE(test.What);
        NewAccount(BankAccount, test.Rows);
        RunReconcile(EntriesShown(), test.Target);
        EXPECT_EQ(state.ReconcileState, test.State);
        EXPECT_EQ(Selected(), test.Selected);
        EXPECT_EQ(state.SelectedCount, test.Count);
    }
}

// All masks in ascending order by the plainest loop, against the search's own, over many small accounts.
TEST_F(Ledger, TheSmallestMaskWins) {
    Dice dice(7);
    int solved = 0;
    for (int round = 0; round < 300; ++round) {
        state.CandidateCount = static_cast<int32_t>(dice.Below(14));
        for (int i = 0; i < state.CandidateCount; ++i)
            state.Candidates[i] = {i + 1, static_cast<FixedAmount>(dice.Below(41)) - 20, 0, 0, 0};
        state.Discrepancy = static_cast<FixedAmount>(dice.Below(61)) - 30;
        uint32_t expected = 0;
        for (uint32_t mask = 1; state.Discrepancy != 0 && !expected && mask < 1U << state.CandidateCount; ++mask) {
            FixedAmount sum = 0;
            for (int i = 0; i < state.CandidateCount; ++i)
                sum += mask >> i & 1 ? state.Candidates[i].Sum : 0;
            expected = sum == state.Discrepancy ? mask : 0;
        }
        SearchReconcile();
        uint32_t found = 0;
        for (int i = 0; i < state.CandidateCount; ++i)
            found |= state.Candidates[i].Selected << i;
        EXPECT_EQ(found, expected) << "round " << round;
        solved += found != 0;
    }
    EXPECT_GT(solved, 100);
}

TEST_F(Ledger, AnAppliedSolutionIsReconciled) {
    const uint32_t bank =
        NewAccount(BankAccount,
                   {{-3, "a", 5000}, {-2, "b", 7000}, {-1, "c", 9000}, {0, "Reconcile", 14000, 1, 0, ReconcileEntry}});
    RunReconcile(EntriesShown(), 14000);
    EXPECT_EQ(ApplyReconcile(EntriesShown()), 1);
    CalcBalance(bank);
    EXPECT_EQ(Account(bank).ClearedBalance, 14000);
    EXPECT_EQ(Rows(bank)[1].Cleared, 0U);
    EXPECT_EQ(state.ReconcileState, ReconcileStep::Idle);
    EXPECT_EQ(ApplyReconcile(EntriesShown()), 0);
    EXPECT_EQ(Account(bank).ClearedBalance, 14000);
    // A solution holds only for the file as it was.
    RunReconcile(EntriesShown(), 21000);
    EXPECT_EQ(Selected(), "2 ");
    Put(bank, {-9, "older", 1000});
    EXPECT_EQ(Selected(), "");
}

// A solution and a range half chosen are of the rows as they stood.
TEST_F(Ledger, FindingsEndWithAnyChangeOfTheRows) {
    const uint32_t bank = NewAccount(BankAccount, {{-3, "a", 5000}, {-2, "b", 3000}, {-1, "c", 2000}});
    const Place live = LiveRows(bank);
    const TRec row = RowOf({-1, "d", 1000});
    const struct {
        const char *What;
        bool KeepsRange;
        std::function<int()> Do;
    } changes[] = {
        {"a row changed", true, [&] { return ChangeRecord(live, 1, row); }},
        {"a row added", false, [&] { return AddRecord(live, 1, row) > 0; }},
        {"a row removed", false, [&] { return RemoveRecord(live, 1); }},
        {"a row moved", false, [&] { return MoveRecord(live, 1, 3) > 0; }},
        {"entries posted", false, [&] { return QueueEntry(live, row) && PlaceQueuedEntries(); }},
        {"archived", false, [&] { return Archived(bank, 1); }},
        {"unarchived", false, [&] { return Unarchived(bank, 1); }},
    };
    for (const auto &change : changes) {
        SCOPED_TRACE(change.What);
        RunReconcile(live, Account(bank).ClearedBalance);
        ASSERT_EQ(state.ReconcileState, ReconcileStep::Solved);
        state.RangeStart = 2;
        state.RangeStartPlace = live;
        EXPECT_EQ(change.Do(), 1);
        EXPECT_EQ(state.ReconcileState, ReconcileStep::Idle);
        EXPECT_EQ(state.RangeStartPlace.List == NoList && state.RangeStart == 0, !change.KeepsRange);
    }
}
