// A filtered view is a real file beside the real one; every reader simply opens it instead.
#pragma once

#include "records/place.h"
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
void CriteriaFromRow(const TRec &row, const Place &place, int32_t position, int64_t accountType,
                     FilterCriteria *criteria);

// What a filter left of the rows of an account.
struct FilterCount {
    int32_t RowsBefore[2]; // by View: shown rows dated before `day`
};

// One pass over archive and live file of an account; `keep` 1 shows only what matches, 0 excludes it. Passes stack.
// `day` is the day number near which the list should stay. 1, or 0 when a file could not be read or written.
[[nodiscard]] int ApplyFilter(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria,
                              uint32_t day, FilterCount *count);

// Removes all filter files of all accounts. 1 when there were any.
int RemoveFilterFiles();
// 1 when a filter hides rows of an account.
bool AccountFiltered(uint32_t accountID);
