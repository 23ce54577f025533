// Share accounts.
#pragma once

#include "records/records.h"

// Makes a measure the one shown of the account with this ID. 0 when refused.
[[nodiscard]] int UpdateShareMode(uint32_t accountID, uint32_t accountType);
// The measure that the next tap on the column's title shows: 2 to 4 to 3 to 5 to 6 to 2.
uint32_t NextShareMode(uint32_t accountType);

// The counter-entry of a transfer: value negated, partner cleared, cash and multiplier turned to the other account's
// kind. Money to share: a cash row of units x value. Share to money: a cash row becomes a plain one.
void MakeCounterEntry(TRec *row, int64_t fromType, int64_t toType);
