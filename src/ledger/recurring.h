// Recurring items post themselves.
#pragma once

#include "records/records.h"

enum ItemStatusBit : uint32_t { GeneratesMany = 1, MissingAccount = 2 };

inline constexpr int EntriesAPass = 25; // most entries of one item in one pass

// The batch pass: every item that falls due within state.CheckAheadDays writes its entries. Restores screen, account,
// row and view. Refreshes state.SharedToday.
void CheckDDs();
// Writes the entry of one occurrence, and its counter-entry for a transfer, and computes the balances of both accounts.
// Its account is the current one afterwards. 0 when the account is not there or when the disk could not take it;
// neither entry stands then.
int AddDDEntry(const DDRec *item);
// Checks every item against the account list and the size limit, stores ItemStatus. 1 when every item is clean; the
// result also stands in state.RecurringInOrder.
int DDFileCheck();
// The block in force: 0 while the first occurrence is still to come, then 1.
constexpr int BlockInForce(const DDRec &item) {
    return item.FirstDone != 0 ? 1 : 0;
}
