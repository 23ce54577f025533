// Marker rows that an owner makes.
#pragma once

#include "store/records/records.h"

// A Day marker for today in the current account, balances right again and the window reloaded. Nothing while a filter
// is shown or a form is open. 1 when made.
int InsertDayMarker();

// A Total marker in the account list at the selected position, or after the last when that is past the end, with its
// help lines. 1 when made.
int InsertTotalMarker();

// Row contents of the two, for whoever inserts them elsewhere. FillTotalMarker draws an ID.
void FillDayMarker(TRec *row, const RecDate &date);
void FillTotalMarker(ARec *row);

// A Day marker's date and name alone.
void SetMarkerDay(TRec *row, const RecDate &date);
