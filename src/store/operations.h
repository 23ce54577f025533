// Records added, changed and removed in place. All work on the list that state.CurrentScreen names; `accountID` counts
// for transactions alone. Positions count from 1. All return 0 at once when the data are not usable.
#pragma once

#include "records/records.h"

// Copies a record of a list (AccountList to ConversionList) field by field; any other list is reported as caseError.
void CopyRecFile(int list, const void *source, void *destination);

// A row from a 1-based position of an open file, and to it: through the hooks, field by field. What is no field of the
// row is left alone in reading; a written record is zero where no field stands. 0 on a short read or a failed write.
[[nodiscard]] int ReadRow(int handle, int list, int32_t position, void *row);
[[nodiscard]] int WriteRow(int handle, int list, int32_t position, const void *row);

// Inserts a record so that it gets the position; the bin ignores it and appends; one outside 1 to count + 1 is brought
// to the nearest. The file grows first: when it can't, or when a later write fails, the trouble is reported, nothing
// has changed and 0 returns. A process that ends in between leaves at most one record doubled. After a transaction
// CurrentScreen is TransactionList, the position is selected, and the account list is reloaded unless `noReload` is 1.
int AddRecFile(uint32_t accountID, int32_t position, const void *record, int noReload);

// Rewrites one record. For a transaction the running totals of it and of the rows behind it follow by an approximation
// that holds until CalcBalance runs; refused (0) while a filter is shown.
int ModRecFile(uint32_t accountID, int32_t position, const void *record);

// Removes one record. When a write fails the trouble is reported, the record stands where it stood and 0 returns. (To
// cut a record off the end all the same would lose one that nobody deleted.)
int DeleteRecFile(uint32_t accountID, int32_t position);
