// The search for the entries that explain a statement's balance.
#pragma once

#include "records/place.h"
#include "records/records.h"

// The whole step towards a statement's balance: takes the reconciled balance of the place's account, and finds the
// smallest mask of candidates (LoadReconcileCandidates) whose sum is what is missing. The result stands in
// state.ReconcileState.
void RunReconcile(const Place &place, FixedAmount target);
// Fills state.Candidates with the oldest unreconciled entries of a place.
void LoadReconcileCandidates(const Place &place);
// Finds the smallest mask of candidates whose sum is state.Discrepancy.
void SearchReconcile();
// 1 when the row at a position is part of the solution shown.
bool IsReconcileCandidate(int32_t position);
// In the solved state: marks the solution reconciled, in one pass over the rows. The state becomes idle. 0 when not
// solved, or refused.
[[nodiscard]] int ApplyReconcile(const Place &place);
