// Recurring items post themselves.
#pragma once

#include "ledger/progress.h"
#include "records/records.h"

enum ItemStatusBit : uint32_t { GeneratesMany = 1, MissingAccount = 2 };

inline constexpr int EntriesAPass = 25; // most entries of one item in one pass

// How many entries a pass would write, without those of transfers. Refreshes state.SharedToday.
int32_t EntriesDue();
// The batch pass: every item that falls due within state.CheckAheadDays writes its entries, up to EntriesAPass each,
// into the real live files; items and balances are right afterwards. Refreshes state.SharedToday. How many entries; 0
// also when the disk refused, and the action with it: an item is never advanced without its entries, nor they without
// it. `tell` hears what part of the entries is placed.
int PostDueItems(ProgressTeller tell = nullptr);
// Queues the entry of one occurrence, and its counter-entry for a transfer (ledger/entries.h). KnowAccounts comes
// first. 0 when the account is not there or when refused.
[[nodiscard]] int AddDDEntry(const DDRec &item);
// Checks every item against the account list and the size limit, stores ItemStatus; that an item makes many entries
// stays as the last pass left it. 1 when every item is clean; the result also stands in state.RecurringInOrder.
int DDFileCheck();
// The block in force: 0 while the first occurrence is still to come, then 1.
constexpr int BlockInForce(const DDRec &item) {
    return item.FirstDone != 0 ? 1 : 0;
}
