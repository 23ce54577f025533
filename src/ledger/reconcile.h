// The search for the entries that explain a statement's balance.
#pragma once

#include "records/records.h"

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
