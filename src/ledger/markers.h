// Marker rows that an owner makes.
#pragma once

#include "records/records.h"

// A Day marker for today in the current account, balances right again and the window reloaded. Nothing while a filter
// is shown or a form is open. 1 when made.
int InsertDayMarker();

// A Total marker in the account list at the selected position, or after the last when that is past the end, with its
// help lines. 1 when made.
int InsertTotalMarker();

// Row contents of the two, for whoever inserts them elsewhere. FillTotalMarker draws an ID.
void FillDayMarker(TRec *row, const RecDate &date);
void FillTotalMarker(ARec *row);

// What all rows of a file come to, as an Archive marker carries it.
struct FileTotals {
    FixedAmount Balance, Cleared; // of a share account the cash side
    int32_t Shares, ClearedShares;
    FixedAmount Price, ClearedPrice; // last seen; last seen on a reconciled row
};
void SetArchiveTotals(TRec *marker, int64_t accountType, const FileTotals &totals);

// A Day marker's date and name alone.
void SetMarkerDay(TRec *row, const RecDate &date);
