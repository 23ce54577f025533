// Recurring items post themselves.
#pragma once

#include "store/records/records.h"

enum ItemStatusBit : uint32_t { GeneratesMany = 1, MissingAccount = 2 };

// The batch pass: every item that falls due within state.CheckAheadDays writes its entries. Restores screen, account,
// row and view. Refreshes state.SharedToday.
void CheckDDs();
// Writes the entry of one occurrence, and its counter-entry for a transfer.
void AddDDEntry(const DDRec *item);
// Checks every item against the account list and the size limit, stores ItemStatus. 1 when every item is clean; the
// result also stands in state.RecurringInOrder.
int DDFileCheck();
// The block in force: 0 while the first occurrence is still to come, then 1.
constexpr int BlockInForce(const DDRec &item) {
    return item.FirstDone != 0 ? 1 : 0;
}
