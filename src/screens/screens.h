// The eight screens: each has its paint procedure and its rows in the file of its own name.
#pragma once

#include "platform/event.h"

// Paint the bands of the current screen that the mask names (RepaintMask of frame/header.h). The window of rows
// must be loaded.
void doAccounts(Window window, int mask);
void doTransactions(Window window, int mask);
void doGraph(Window window, int mask);
void doDDs(Window window, int mask);
void doFavs(Window window, int mask);
void doBin(Window window, int mask);
void doCats(Window window, int mask);
void doCons(Window window, int mask);

// One row for a position in a RowMode; a row that does not show paints nothing.
void UpdateARec(Window window, int position, int mode);
void UpdateTRec(Window window, int position, int mode);
void UpdateDDRec(Window window, int position, int mode);
void UpdateFRec(Window window, int position, int mode);
void UpdateBinRec(Window window, int position, int mode);
void UpdateCatRec(Window window, int position, int mode);
void UpdateConRec(Window window, int position, int mode);
