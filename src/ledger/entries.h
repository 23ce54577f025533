// Where entries are made: one by one with the other side of their transfer, or many at once.
#pragma once

#include "ledger/progress.h"
#include "records/place.h"
#include "records/records.h"

// Enters a row at a position of an account's rows, or by its date when `position` is 0, and with `row->TransferID` the
// counter-entry into the partner's live file, whatever filter is shown there; a partner that has gone needs none and is
// taken out of the row. Balances of both are right afterwards. The position the row got, 0 when refused: then neither
// entry may stand, and the action is refused.
[[nodiscard]] int32_t EnterEntry(const Place &place, int32_t position, TRec *row);

// Gives a row of a place other content, and its place by date unless the account is a List. It keeps its partner, and
// makes no counter-entry. The position it has then, 0 when refused.
[[nodiscard]] int32_t ChangeEntry(const Place &place, int32_t position, TRec row);

// The first rows of a new account: an opening balance of nothing and, unless it is a List, today's Day marker. 0 when
// refused.
[[nodiscard]] int AddFirstRows(uint32_t accountID, uint32_t accountType);

// An entry that will be placed by its date in the real file of a place, whatever filter is shown there. What waits is
// placed when there is room for no more. 0 when refused.
[[nodiscard]] int QueueEntry(const Place &place, const TRec &row);
// Places what waits: each account's file is gone through once, from the end to the earliest new entry, which lands
// where PositionByDate would have put it in its turn. Balances are right afterwards. `tell` hears what part is placed.
// 0 when refused.
[[nodiscard]] int PlaceQueuedEntries(ProgressTeller tell = nullptr);
