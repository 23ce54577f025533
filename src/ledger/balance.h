// Running totals: the one routine that makes the stored totals true, and those as of today.
#pragma once

#include "records/records.h"

// Recomputes all running totals of an account's file (live or archive by state.ArchiveView; the filter file while
// one is shown), the account's totals as of today and, in the live view, its jeopardy flags. In the archive view the
// live file's Archive marker follows and the live file is recomputed. To be called after every add, change, move or
// removal, on both accounts of a transfer. Leaves selection and view as they were. Returns the balance as of today, 0
// for an account that is not there.
FixedAmount CalcBalance(uint32_t accountID);

// The same for one file alone, without its account's other view: `archive` 1 the archive, 0 the live file.
FixedAmount CalcOneView(uint32_t accountID, uint32_t archive);

// Writes the totals as of today into the account at a position, by the view, and reloads the account list.
void UpdateT2FILtot(int32_t position, FixedAmount todayBalance, FixedAmount todayCleared);

// Refreshes the totals as of today and the jeopardy flags of all accounts without rewriting a transaction, and stamps
// the configuration record. Flags are only raised here; CalcBalance lowers them. The argument is not used.
void CheckT1totals(int flag);

// Records of the account at a position, live and archive files together.
int32_t ReGraphFILsiz(int32_t position);

// What a row shows as its balance: RunTotal, or for a share account shares times price plus cash; the reconciled one
// when `cleared` is 1.
FixedAmount RowBalance(const TRec &row, int64_t accountType, int cleared);
