// A double tap opens what is selected; New, Modify, Enter and some strokes come here too.
#pragma once

#include "platform/event.h"

// Opens what is selected; `entryKind` is the RowKind of a new row. 1 when something opened.
int DoButtonDblclk(Window window, int entryKind);
// From the account list to the selected account's transactions, with the lines that say so.
void ShowEnteredAccount();
