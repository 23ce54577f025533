// Many entries placed in an account at once.
#pragma once

#include "records/records.h"

inline constexpr int32_t MostMerged = 5001; // the entries of an import and one more

// Adds `count` rows, which are in order of day number and rank, to an account's transactions: each lands where it would
// land if it were added by itself (ledger/order.h), after its equals, and those of equal day and rank stay in their
// order. The file is written anew beside the old one and takes its place at once: a full disk, or an end in between,
// changes nothing. All that a row holds is kept, the bank's identity as well. `archive` 1 means the archive file. 1, or
// 0 and nothing changed when the file can't be read or written.
[[nodiscard]] int MergeEntries(uint32_t accountID, uint32_t archive, const TRec *const *rows, int32_t count);
