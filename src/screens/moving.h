// Rows of the current list that go somewhere else: to the bin, to another place, to a tab.
#pragma once

#include "screens/list_screen.h"

// Removes a row of the current list to the bin (from the bin: for good) with what the list needs afterwards, and says
// so. What the white tab and the menu's "this entry only" do.
void BinRow(int position);
// Puts a row of the current list before the one at `to`, where the list can be reordered. A place that changes nothing
// does nothing.
void MoveRow(int from, int to);
// Takes a row to a tab, where that tab accepts it.
void DropRow(int tab, int position);
// Every row within a list may go to the bin.
bool AcceptInBin(int position);
// The drop of a row on a tab that accepts it; null when it does not.
const TabDrop *DropFor(const ListScreen &screen, int tab, int position);
