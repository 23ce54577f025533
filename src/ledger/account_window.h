// The window of an account's transactions.
#pragma once

#include "records/place.h"
#include "records/records.h"

// Loads the rows of an account into state.TranRows; `top` as for every loader (store/windows.h). In the live view a Day
// marker inside the window follows the calendar: it moves to today. A place without an account shows nothing. Returns 1
// when a filter file is shown (also in state.FilterShown), else 0.
int LoadRows(const Place &place, int32_t top);

// Takes the data-refused path when the transactions of a place have another version than 1 (store/windows.h). Reads
// only, unlike LoadRows. 1 when they may be used, or when there are none.
int AcceptRows(const Place &place);
