// The window of an account's transactions, and reloading whatever list is shown.
#pragma once

#include "records/records.h"

// Loads the transactions of the account at a position; `top` as for every loader (store/windows.h). Makes the position
// SelectedPos[AccountList]. In the live view a Day marker inside the window follows the calendar: it moves to today.
// Leaves CurrentScreen as it was. Returns 1 when a filter file is shown (also in state.FilterShown), else 0.
int LoadTranFile(int32_t accountPosition, int32_t top);

// Takes the data-refused path when the transactions of the account at a position have another version than 1 (store/
// windows.h). Reads only, unlike LoadTranFile. 1 when they may be used, or when there are none.
int AcceptTranFile(int32_t accountPosition);

// Fetches the account at SelectedPos[AccountList] into CurAccount. 1, or 0 when there is none.
int LoadCurrentAccount();

// Makes the account with this ID current (CurAccount, AccountKind). 1, or 0 when there is none.
int MakeAccountCurrent(uint32_t accountID);

// Loads the window of a list from `top` again; CurrentScreen afterwards is that list.
void ReloadList(int list, int32_t top);

// Has the screen shown painted whole.
void RepaintScreen();

// Recounts the current account's transactions into EntryCount[TransactionList].
int32_t CountTransactions();
