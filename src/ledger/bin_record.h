// Which field of a bin record comes from which field of the other records.
#pragma once

#include "store/lists.h"

// A record of a place to a bin record; of a transaction with its account's type, which counts for nothing else. 0 for a
// list without a bin form.
int RecordToBin(const Place &from, int64_t ownerType, const RecordBuffer &record, BinRec *bin);
// And back to a record of the list that it came from.
int BinToRecord(const BinRec &bin, RecordBuffer *record);
