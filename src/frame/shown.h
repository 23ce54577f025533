// What is shown: the list, the account, its live rows or its archive, and the windows of rows that follow the files.
// Where the floors below take a place, the screens and forms say it here, from the words of the central state.
#pragma once

#include "records/place.h"
#include "records/records.h"
#include "store/windows.h"

// The view that the header's title chose.
View ViewShown();
// The rows of the current account as they are shown, by view and filter.
Place EntriesShown();
// The list shown; the graph works on the entries.
Place PlaceShown();

// --- The current account

// Fetches the account at SelectedPos[AccountList] into CurAccount, with AccountKind and the edges of its columns. 1, or
// 0 when there is none.
int LoadCurrentAccount();
// The same for the account with this ID.
int MakeAccountCurrent(uint32_t accountID);
// Takes an account as the current one.
void TakeAccount(const ARec &account);

// --- Rows

// Loads the transactions of the account at a position, which becomes SelectedPos[AccountList] and the current account;
// and on the blue tab what is drawn of them. Returns 1 when a filter file is shown.
int LoadTranFile(int32_t accountPosition, int32_t top);
// Loads the window of a list from `top` again; of the blue tab the plot, or the chart and its table.
void ReloadList(int list, int32_t top);
// After an account's totals changed: the account list's window, the current account and the count of its entries.
void RefreshAccounts();
// Recounts the current account's transactions into EntryCount[TransactionList].
int32_t CountTransactions();
// One entry of the rows shown. 1, or 0 and the defaults when there is no such position.
int FetchTran(int32_t position, TRec *row);

// The top that brings a selection to the middle of the window shown.
int32_t SetRecPosition(int32_t selection, int32_t count);
// The top of a list after one row of it went: it falls by one when the window would show more than two blank rows.
void RepairTop(int list);
// Has the screen shown painted whole.
void RepaintScreen();
