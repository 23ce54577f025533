// Marker rows that an owner makes.
#pragma once

#include "records/place.h"
#include "records/records.h"

// Adds a Day marker for today to an account's rows, balances right again. Its position, 0 when refused.
[[nodiscard]] int32_t AddDayMarker(const Place &place);

// Adds a Total marker to the account list at a position. Where it stands, 0 when refused.
[[nodiscard]] int32_t AddTotalMarker(int32_t position);

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

// A Deleted marker in place of a row and all before it: it keeps what they came to, reconciled and not.
void MakeDeletedMarker(TRec *row, int64_t accountType);
// 1 when a Deleted marker holds the reconciled part apart; one without counts as reconciled whole.
constexpr bool KeepsCleared(const TRec &row) {
    return row.RowKind == DeletedMarker && row.CatSlot == 1;
}

// The same of a row that carries such totals already.
void CallDeletedMarker(TRec *row);
// What a Deleted marker stands for, taken away instead.
void NegateDeletedMarker(TRec *row, int64_t accountType);

// A Day marker's date and name alone.
void SetMarkerDay(TRec *row, const RecDate &date);
