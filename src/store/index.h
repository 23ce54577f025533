// Accounts by name, ID and position. An ID never changes and names the account's files; a position is the row in the
// list of accounts. All return 0 (AccountIdToName: "") when the data are not usable.
#pragma once

#include "records/records.h"

enum class In : uint8_t;

// The ID of the first account of that name, compared over what a record holds of it; 0 for none. Headings do not count.
uint32_t AccountNameToId(const char16_t *name);
// The name, or OverflowText when no row has the ID. The text stands in a shared buffer that the next call overwrites.
const char16_t *AccountIdToName(uint32_t accountID);
// The ID at a position, 0 when there is none.
uint32_t RectoID(int32_t position);
// The position of the first row with the ID, 0 for none.
int32_t IDtoRec(uint32_t accountID);

// The account with this ID, never a heading, with its row and where it stands (both may be null). 0 for none, and the
// two left alone.
int FindAccount(uint32_t accountID, ARec *row, int32_t *position);
inline bool AccountThere(uint32_t accountID) {
    return FindAccount(accountID, nullptr, nullptr);
}
// For a pass that asks for many accounts: reads the index once, and answers from memory until the next reading. Null
// for an account that is not there. Nothing may add, remove or move an account in between.
void KnowAccounts();
const struct KnownAccount *KnownAccountOf(uint32_t accountID);

// Writes an account back to its position. 0 on failure, reported under `function`.
[[nodiscard]] int WriteAccount(int32_t position, const ARec &row, In function);

// The accounts' names for the rows shown of the bin and of the recurring items, so that painting reads no file.
void NameBinOwners();
void NameItemAccounts();

// Draws a new ID, never one whose live file still exists, and counts it in the configuration record.
uint32_t GetNextID();
// Rewrites the totals of the heading rows that differ: each shows the accounts between it and the heading before it.
void SumHeadings();

// Shows `visit` every row of the index with its position, until it answers false. `row` is its own.
template <typename Visit> void ForEachAccount(In function, Visit visit);

// What ForEachAccount reads through: up to a block of rows from a position on. Returns how many.
inline constexpr int32_t IndexBlock = 16; // most owners' whole list
int OpenIndex(In function);
int32_t ReadIndex(int handle, int32_t first, ARec *rows);
void CloseIndex(int handle);

template <typename Visit> void ForEachAccount(In function, Visit visit) {
    const int handle = OpenIndex(function);
    if (handle < 0)
        return;
    ARec rows[IndexBlock];
    int32_t read = IndexBlock;
    bool more = true;
    for (int32_t first = 1; more && read == IndexBlock; first += read) {
        read = ReadIndex(handle, first, rows);
        for (int32_t index = 0; more && index < read; ++index)
            more = visit(first + index, rows[index]);
    }
    CloseIndex(handle);
}
