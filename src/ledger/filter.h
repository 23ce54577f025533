// A filtered view is a real file beside the real one; every reader simply opens it instead.
#pragma once

#include "records/records.h"

enum class FilterBy : uint8_t {
    Name = 1,
    Category,
    Ref,
    Month,
    Year,
    Flag,
    Sign,
    Date,
    Entry,
    Preceding,
    Following,
    Kind
};

// What a row must have; taken from a row by CriteriaFromRow.
struct FilterCriteria {
    char16_t Name[32], Memo[32];
    int64_t CatID;
    int32_t Month;
    uint32_t Year;
    uint32_t Flag;
    FixedAmount Value; // only its sign counts
    uint32_t DayNumber;
    int32_t Position;     // of the selected row in the view shown
    uint32_t FromArchive; // 1 when it was selected in the archive view
    uint32_t Kind;        // RowKind
};
void CriteriaFromRow(const TRec &row, int32_t position, FilterCriteria *criteria);

// One pass over archive and live file of an account; `keep` 1 shows only what matches, 0 excludes it. Passes stack.
// `date` is the day number near which the list should stay. 1, or 0 when a file could not be read or written.
int ApplyFilter(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria, uint32_t date);

// Removes all filter files of all accounts, returns to the row one was on, reloads and repaints. 1 when there were any.
int ClearFilters();
// The same for the transaction screen, with balances computed anew.
void ClearFiltersAndRecompute();
