// The search for the entries that explain a statement's balance.
#pragma once

#include "store/records/records.h"

// Fills state.Candidates with the oldest unreconciled entries of the current account.
void LoadReconcileCandidates();
// Finds the smallest mask of candidates whose sum is state.Discrepancy; result in state.ReconcileState.
void SearchReconcile();
// The whole step towards a statement's balance.
void RunReconcile(FixedAmount target);
// 1 when the row at a position is part of the solution shown.
int IsReconcileCandidate(int32_t position);
// In the solved state: marks the solution reconciled. The state becomes idle.
void ApplyReconcile();
// A stroke across the Reconcile entry at a position: a solution is applied and the entry goes, without a copy in the
// bin; in any other state the search runs anew. Balances are the caller's to recompute. 1 when it was applied.
int StrokeReconcile(int32_t position);
