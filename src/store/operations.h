// Records added, changed and removed in place. All work on the list that state.CurrentScreen names; `accountID` counts
// for transactions alone. Positions count from 1. All return 0 at once when the data are not usable.
#pragma once

#include "store/records/records.h"

// Copies a record of a list (AccountList to ConversionList) field by field; any other list is reported as caseError.
void CopyRecFile(int list, const void *source, void *destination);

// Inserts a record so that it gets the position; the bin ignores it and appends. The file grows first: when it can't,
// the trouble is reported, nothing has changed and 0 returns. After a transaction CurrentScreen is TransactionList, the
// position is selected, and the account list is reloaded unless `noReload` is 1.
int AddRecFile(uint32_t accountID, int32_t position, const void *record, int noReload);

// Rewrites one record. For a transaction the running totals of it and of the rows behind it follow by an approximation
// that holds until CalcBalance runs; refused (0) while a filter is shown.
int ModRecFile(uint32_t accountID, int32_t position, const void *record);

// Removes one record.
int DeleteRecFile(uint32_t accountID, int32_t position);
