// Where an operation works: a list, and for transactions the account, its live rows or its archive, and whether a
// filter file stands for them. Every operation of the store and the ledger takes its place as its first argument.
#pragma once

#include "records/records.h"

enum class View : uint8_t { Live, Archive }; // the numbers of state.ArchiveView

enum class Rows : uint8_t {
    Shown, // of the filter file while there is one
    All,   // of the real file
};

struct Place {
    int List = NoList;          // AccountList to ConversionList
    uint32_t Account = 0;       // ID, for TransactionList alone
    View Of = View::Live;       // likewise
    Rows Through = Rows::Shown; // likewise
};

// The same rows, whether through a filter or not.
constexpr bool SamePlace(const Place &a, const Place &b) {
    return a.List == b.List && a.Account == b.Account && a.Of == b.Of;
}

constexpr Place RowsOf(uint32_t accountID, View view, Rows through = Rows::Shown) {
    return {TransactionList, accountID, view, through};
}
constexpr Place LiveRows(uint32_t accountID, Rows through = Rows::Shown) {
    return RowsOf(accountID, View::Live, through);
}
