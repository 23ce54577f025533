// Accounts by name, ID and position. An ID never changes and names the account's files; a position is the row in the
// list of accounts. All return 0 (AccountIdToName: "") when the data are not usable.
#pragma once

#include "records/records.h"

// The ID of the first account of that name, compared over what a record holds of it; 0 for none. Headings do not count.
uint32_t AccountNameToId(const char16_t *name);
// The name, or OverflowText when no row has the ID. The text stands in a shared buffer that the next call overwrites.
const char16_t *AccountIdToName(uint32_t accountID);
// The ID at a position, 0 when there is none.
uint32_t RectoID(int32_t position);
// The position of the first row with the ID, 0 for none.
int32_t IDtoRec(uint32_t accountID);
// The position of the account with the ID, never that of a heading, and its row. 0 for none, and the row left alone.
int32_t IDtoAccount(uint32_t accountID, ARec *row);
// Draws a new ID, never one whose live file still exists, and counts it in the configuration record.
uint32_t GetNextID();
// Rewrites the totals of the heading rows: each shows the accounts between it and the heading before it.
void SumHeadings();
