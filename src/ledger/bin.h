// The bin: deleting ranges, restoring, erasing.
#pragma once

#include "records/records.h"

// A range of the current list (a graph counts as the transactions) to the bin and out of its file; on the bin itself
// for good. -1 when `first` exceeds `last` or lies outside the file, 0 when refused (no data, a filtered view) or when
// the bin could not take the rows, and then nothing has changed; 1 otherwise. Balances are the caller's to recompute.
int DeleteRecRange(int32_t first, int32_t last);
// Removes the first `count` rows of a transaction file; in the archive view a Deleted marker keeps their totals.
void DeleteN(uint32_t accountID, int32_t count);
// Restores a bin row to its own list and takes it out of the bin. 1 when it was restored: not a row of an unknown
// list, nor a transaction whose account has gone.
int MoveBin(int32_t position);
// Erases all transaction files of an account, unless an account of the list still has that ID.
void EraseAccountFiles(uint32_t accountID);
// The menu command: filters lifted, the bin file and all files of accounts that no longer exist removed.
void EmptyBin();

// The two menu steps of a range, with their help lines. 1 when the range was deleted.
int SelectRangeStart();
int SelectRangeFinish();

// A list's record to a bin record and back; `list` names the other side. 0 for a list without a bin form.
int RecordToBin(int list, const void *record, BinRec *bin);
int BinToRecord(const BinRec &bin, int list, void *record);
