// Marker rows that an owner makes.
#pragma once

// A Day marker for today in the current account's live rows, and the window at it. Nothing while a filter is shown or a
// form is open. True when made.
bool InsertDayMarker();

// A Total marker in the account list at the selected position, or after the last when that is past the end, with its
// help lines. True when made.
bool InsertTotalMarker();
