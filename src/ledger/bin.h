// The bin: deleting, deleting ranges, restoring, erasing.
#pragma once

#include "records/place.h"
#include "records/records.h"

// The owner's delete of one row of a place: into the bin, then out of its file. A row of the bin is erased for good, an
// account row with its files. A heading row goes without a bin copy. 0 when refused.
[[nodiscard]] int DeleteToBin(const Place &place, int32_t position);
// A range of rows likewise; `last` beyond the end means the end. -1 when `first` exceeds `last` or lies outside the
// file, 0 when refused, 1 when deleted. Balances are the caller's to recompute.
[[nodiscard]] int DeleteRangeToBin(const Place &place, int32_t first, int32_t last);
// Removes the first `count` rows of a transaction file; in an archive a Deleted marker keeps their totals. 0 when
// refused.
[[nodiscard]] int DeleteN(const Place &place, int32_t count);

// Puts a bin row's record back where it came from: a transaction and a recurring item by date, an archived one into the
// live file when its archive has no rows any more; anything else at the end. Returns the position it got and, in
// `where`, its place; 0 for a row of an unknown list, a transaction whose account has gone, or when refused.
[[nodiscard]] int32_t RestoreRecord(const BinRec &bin, Place *where);
// The same for the row at a position of the bin, which then leaves it.
[[nodiscard]] int32_t MoveBin(int32_t position, Place *where);

// True when an account with this ID stands in the bin.
bool AccountInBin(uint32_t accountID);
// Erases all transaction files of an account, unless an account of the list still has that ID. 0 when refused.
[[nodiscard]] int EraseAccountFiles(uint32_t accountID);
// Removes the bin file, and the files of the accounts that stood in it. 0 when refused.
[[nodiscard]] int EmptyBin();
