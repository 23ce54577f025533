// Running totals: the one routine that makes the stored totals true, and those as of today.
#pragma once

#include "records/place.h"
#include "records/records.h"

// Recomputes all running totals of a file of an account (the filter file while the place shows one) and stores in the
// account its totals as of today and, of the live file, its jeopardy flags; those of a filter file are not the
// account's and are not stored. Of an archive the live file's Archive marker follows, and the live file is recomputed.
// To be called after every add, change, move or removal, on both accounts of a transfer. Returns the balance as of
// today, 0 for an account that is not there.
FixedAmount CalcTotals(const Place &place);

// The same for one file alone, without its account's other view.
FixedAmount CalcOneView(const Place &place);

// Refreshes the totals as of today and the jeopardy flags of all accounts without rewriting a transaction, and stamps
// the configuration record. What is right already is not written. Flags are only raised here; CalcTotals lowers them.
void CheckT1totals();

// What a row shows as its balance: RunTotal, or for a share account shares times price plus cash; the reconciled one
// when `cleared` is 1.
FixedAmount RowBalance(const TRec &row, int64_t accountType, int cleared);
