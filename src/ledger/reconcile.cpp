#include "ledger/reconcile.h"
#include "cipher/hooks.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <bit>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

// A mask is cut in two halves of ten bits, each with a table of its sums.
constexpr int HalfBits = MostCandidates / 2;
constexpr uint32_t HalfMasks = 1U << HalfBits;

int IsCandidate(const TRec &row, uint32_t today) {
    return row.RowKind == EntryRow && (!row.Cleared || row.Date.DayNumber > today);
}

// sums[m] is the sum of the candidates of mask m: that of m without its lowest bit, plus one.
void SumMasks(int firstCandidate, int count, FixedAmount *sums) {
    sums[0] = 0;
    for (uint32_t mask = 1; mask < 1U << count; ++mask)
        sums[mask] = AddAmounts(sums[mask & (mask - 1)], state.Candidates[firstCandidate + std::countr_zero(mask)].Sum);
}

// The smallest mask whose sum is the target, 0 for none. The target is not 0.
uint32_t SmallestMask(int count, FixedAmount target) {
    const int lowBits = count < HalfBits ? count : HalfBits;
    FixedAmount low[HalfMasks], high[HalfMasks];
    SumMasks(0, lowBits, low);
    SumMasks(lowBits, count - lowBits, high);
    for (uint32_t upper = 0; upper < 1U << (count - lowBits); ++upper) {
        const FixedAmount rest = SubtractAmounts(target, high[upper]);
        for (uint32_t lower = 0; lower < 1U << lowBits; ++lower)
            if (low[lower] == rest)
                return upper << lowBits | lower;
    }
    return 0;
}

} // namespace

void LoadReconcileCandidates(const Place &place) {
    state.CandidateCount = 0;
    RecDate today;
    LoadTodaysDate(&today);
    const int handle = OpenPlace(place, OpenOrCreate);
    int32_t read;
    for (int32_t first = 1;
         state.CandidateCount < MostCandidates && (read = ReadRun(handle, Kind, first, RunLength(Kind))) > 0;
         first += read) {
        for (int32_t index = 0; index < read && state.CandidateCount < MostCandidates; ++index) {
            TRecFile *record = RunRecord<TRec>(index);
            if (!DecipherRecord(Kind, record))
                continue;
            const TRec &row = record->Rec;
            if (IsCandidate(row, today.DayNumber))
                state.Candidates[state.CandidateCount++] = {first + index, TimesUnits(row.Units, row.Value),
                                                            row.Cleared, 0, 0};
        }
    }
    CloseFile(handle);
}

void SearchReconcile() {
    state.SelectedCount = 0;
    for (Candidate &candidate : state.Candidates)
        candidate.Selected = 0;
    if (state.Discrepancy == 0) {
        state.ReconcileState = ReconcileStep::Solved;
        return;
    }
    const uint32_t mask = SmallestMask(state.CandidateCount, state.Discrepancy);
    for (int i = 0; i < state.CandidateCount; ++i)
        state.Candidates[i].Selected = mask >> i & 1;
    state.SelectedCount = std::popcount(mask);
    state.ReconcileState = mask ? ReconcileStep::Solved : ReconcileStep::Impossible;
}

void RunReconcile(const Place &place, FixedAmount target) {
    state.ReconcileState = ReconcileStep::Computing;
    ARec account = {};
    FindAccount(place.Account, &account, nullptr);
    state.CurrentCleared = account.ClearedBalance;
    state.TargetBalance = target;
    state.Discrepancy = SubtractAmounts(state.TargetBalance, state.CurrentCleared);
    LoadReconcileCandidates(place);
    SearchReconcile();
}

bool IsReconcileCandidate(int32_t position) {
    if (state.ReconcileState != ReconcileStep::Solved)
        return false;
    for (int i = 0; i < state.CandidateCount; ++i)
        if (state.Candidates[i].Position == position)
            return state.Candidates[i].Selected == 1;
    return false;
}

int ApplyReconcile(const Place &place) {
    if (state.ReconcileState != ReconcileStep::Solved)
        return 0;
    const int handle = OpenPlace(place, OpenExisting);
    int applied = handle >= 0;
    for (int i = 0; applied && i < state.CandidateCount; ++i) {
        const Candidate &candidate = state.Candidates[i];
        TRecFile record;
        if (!candidate.Selected)
            continue;
        applied = ReadRecord(handle, Kind, candidate.Position, &record);
        record.Rec.Cleared = 1;
        std::memset(record.Tail, 0, sizeof record.Tail);
        applied = applied && WriteRecord(handle, Kind, candidate.Position, &record);
    }
    CloseFile(handle);
    if (!applied) {
        ReportError(In::ModRecFile, Trouble::TwriteFail);
        return 0;
    }
    state.ReconcileState = ReconcileStep::Idle;
    return 1;
}
