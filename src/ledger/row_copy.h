// Transactions copied from file to file in runs, chosen row by row: what archiving and filtering are made of.
#pragma once

#include "records/records.h"
#include "store/catalogue.h"

// 1 to copy the row. It may be changed; `position` is where it stands in the source.
template <typename Context> using RowChoice = int (*)(TRec *row, int32_t position, Context *context);

// Copies the chosen rows `from` to `last` of one file to another, beginning at position `to`; or toward the head of the
// same file, and then the rows are not to be changed. Returns how many, or -1 when a read or write failed.
template <typename Context> int32_t CopyRows(int source, int32_t from, int32_t last, int target, int32_t to,
                                             RowChoice<Context> choice, Context *context);

// Copies a file whose rows `first` to `split` and `split` + 1 to its end are each in date order, so that the whole is.
// Rows of one day keep the order of the two parts; rows before `first` stay at the head. Returns how many rows were
// copied, or -1 when a read or write failed.
int32_t MergeRows(int source, int32_t first, int32_t split, int target);

// A work file of an account, empty. A handle, or below 0.
[[nodiscard]] int OpenWorkFile(TransactionFile file, uint32_t accountID);
// The work file in place of another file of the account, or away with it.
[[nodiscard]] int ReplaceBy(TransactionFile work, TransactionFile real, uint32_t accountID);
void EraseTransactions(TransactionFile file, uint32_t accountID);

// --- What CopyRows is made of: a run of rows in the buffer, deciphered one by one; and those kept of it.
int32_t ReadRows(int source, int32_t from, int32_t last);
TRec *RowInRun(int32_t index);
void KeepRow(int32_t index, int32_t kept); // the row at `index`, as the `kept`-th
[[nodiscard]] int WriteKept(int target, int32_t kept, int32_t to);

template <typename Context> int32_t CopyRows(int source, int32_t from, int32_t last, int target, int32_t to,
                                             RowChoice<Context> choice, Context *context) {
    int32_t copied = 0, read;
    for (; from <= last && (read = ReadRows(source, from, last)) > 0; from += read) {
        int32_t kept = 0;
        for (int32_t index = 0; index < read; ++index)
            if (choice(RowInRun(index), from + index, context))
                KeepRow(index, kept++);
        const bool inPlace = source == target && kept == read && to + copied == from;
        if (kept > 0 && !inPlace && !WriteKept(target, kept, to + copied))
            return -1;
        copied += kept;
    }
    return from > last ? copied : -1;
}
