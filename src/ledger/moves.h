// Moving, deleting and restoring records.
#pragma once

#include "records/records.h"

// Moves a record of the current list, with the new content given. `to` is the position it would be inserted at while
// still standing at `from`, as CpDates gives it: moved toward the end it lands at `to` - 1. A move to its own place
// changes it in place. The moved row is selected. Transactions have CalcBalance run afterwards. Categories and
// conversions are not moved: 0. 0 as well when the file could not take it; nothing has changed then.
int MoveRecFile(uint32_t accountID, int32_t from, int32_t to, const void *record);

// The bare move that MoveRecFile and the Day marker use: inserted at `to`, then taken out at its old place. 0 when the
// disk failed; the record is then where it was.
int ShiftRecord(uint32_t accountID, int32_t from, int32_t to, const void *record);

// The owner's delete of one row of the current list: into the bin, then out of its file, then the window's top
// repaired. A row of the bin is erased for good, an account row with its files. A heading row goes without a bin copy.
// Refused (0) for the rows of a filtered view.
int DeleteRecMem(int32_t position);

// Restores the selected bin row into the list that state.CurrentScreen names. The position it got there, or 0.
int32_t AddTranMem();

// The top of a list after one row of it went: it falls by one when the window would show more than two blank rows.
void RepairTop(int list);
