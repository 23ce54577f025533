// Changes to what is shown: the record operations on the list, account and view of the screen, and what the screen's
// words (counts, selection, windows) need afterwards.
#pragma once

#include "frame/shown.h"
#include "state/state.h"

// An account's balances right by the view shown, and the account list with them. The balance as of today.
FixedAmount CalcBalance(uint32_t accountID);

// Inserts a record into the list of its type; transactions go into an account by the view shown. Afterwards the count
// is right; a transaction is selected, and the account list is reloaded unless `noReload` is 1. 0 when refused.
template <typename Rec> int AddRecFile(uint32_t accountID, int32_t position, const Rec *row, int noReload) {
    constexpr int List = ListOf<Rec>;
    const Place place = List == TransactionList ? RowsOf(accountID, ViewShown()) : Place{List};
    const int32_t added = AddRecord(place, position, *row);
    state.EntryCount[List] = CountOf(place);
    if (added == 0)
        return 0;
    if (List == TransactionList)
        state.SelectedPos[List] = added;
    if (List == TransactionList && !noReload)
        LoadAccFile(state.TopPos[AccountList]);
    return 1;
}

// Rewrites one record. Refused (0) for a transaction while a filter is shown. Balances are the caller's to compute.
template <typename Rec> int ModRecFile(uint32_t accountID, int32_t position, const Rec *row) {
    constexpr int List = ListOf<Rec>;
    if (List == TransactionList && state.FilterShown == 1)
        return 0;
    return ChangeRecord(List == TransactionList ? RowsOf(accountID, ViewShown()) : Place{List}, position, *row);
}

// Moves a record of the list of its type with new content; to its own place it is changed there. `to` as for
// MoveRecord. The moved row is selected, an account's balances are right afterwards. 0 when refused.
template <typename Rec> int MoveRecFile(uint32_t accountID, int32_t from, int32_t to, const Rec *row) {
    constexpr int List = ListOf<Rec>;
    const Place place = List == TransactionList ? RowsOf(accountID, ViewShown()) : Place{List};
    if (!ModRecFile(accountID, from, row))
        return 0;
    const int32_t moved = to == from || to == from + 1 ? from : MoveRecord(place, from, to);
    if (moved == 0)
        return 0;
    state.SelectedPos[List] = moved;
    if (List == TransactionList)
        CalcBalance(accountID);
    else if (List == AccountList)
        LoadCurrentAccount();
    return 1;
}

// Removes one record of the list shown. 0 when refused.
int DeleteRecFile(uint32_t accountID, int32_t position);
// Moves a record of the list shown as it lies. `to` as for MoveRecord. The moved row is selected. 0 when refused.
int ShiftRecord(int32_t from, int32_t to);
// The owner's delete of one row of the list shown, then the window's top repaired. Refused (0) for the rows of a
// filtered view.
int DeleteRecMem(int32_t position);
// A range of the list shown; -1 and 0 as DeleteRangeToBin, 0 for a filtered view.
int DeleteRecRange(int32_t first, int32_t last);

// Where a new record of the list shown belongs.
int32_t CpDates(const RecDate &date, uint32_t rank);
// The current account's balances right, in the archive view those of the live file first.
void RecomputeBalances();

// Filters the rows of an account (ledger/filter.h). Of the current one the selection comes near the day, and the count
// is right. 0 when refused.
enum class FilterBy : uint8_t;
struct FilterCriteria;
int FilterAccount(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria, uint32_t day);
// Removes all filter files of all accounts and returns to the row one was on. 1 when there were any.
int ClearFilters();
// The same for the transaction screen, with balances computed anew.
void ClearFiltersAndRecompute();
