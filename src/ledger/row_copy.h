// Transactions copied from file to file in runs, chosen row by row: what archiving and filtering are made of. What has
// to grow is written beside the real file and takes its place whole, so that a full disk changes nothing.
#pragma once

#include "records/records.h"
#include "store/catalogue.h"

// 1 to copy the row. It may be changed; `position` is where it stands in the source.
using RowChoice = int (*)(TRec *row, int32_t position, void *context);

// Copies the chosen rows `from` to `last` of one file to another, beginning at position `to`; or toward the head of the
// same file, and then the rows are not to be changed. Returns how many, or -1 when a read or write failed.
int32_t CopyRows(int source, int32_t from, int32_t last, int target, int32_t to, RowChoice choice, void *context);

// Copies a file whose rows `first` to `split` and `split` + 1 to its end are each in date order, so that the whole is.
// Rows of one day keep the order of the two parts; rows before `first` stay at the head. Returns how many rows were
// copied, or -1 when a write failed.
int32_t MergeRows(int source, int32_t first, int32_t split, int target);

// A work file of an account, empty. A handle, or -1.
[[nodiscard]] int OpenWorkFile(TransactionFile file, uint32_t accountID);
// The work file in place of another file of the account, or away with it.
[[nodiscard]] int ReplaceBy(TransactionFile work, TransactionFile real, uint32_t accountID);
void EraseTransactions(TransactionFile file, uint32_t accountID);
