// Records read, added, changed, removed and moved in place, by the type of the record. Positions count from 1. Each
// operation opens its file, uses it and closes it; trouble is reported, and refuses the action it happened in
// (platform/action.h), so that nothing has to be put back by hand. All return 0 at once when the data are not usable.
#pragma once

#include "records/place.h"
#include "store/lists.h"
#include <cassert>

// A record of a place as it lies, deciphered, with its tail; and back. `record` of any list.
[[nodiscard]] int FetchBytes(const Place &place, int32_t position, RecordBuffer *record);
[[nodiscard]] int32_t AddBytes(const Place &place, int32_t position, RecordBuffer record);
[[nodiscard]] int ChangeBytes(const Place &place, int32_t position, RecordBuffer record);

// One record into the caller's row. 0, and the row left alone, when there is no such position.
template <typename Rec> [[nodiscard]] int FetchRecord(const Place &place, int32_t position, Rec *row) {
    assert(ListOf<Rec> == (place.List == GraphList ? +TransactionList : place.List));
    RecordBuffer record;
    if (!FetchBytes(place, position, &record))
        return 0;
    UnpackRow(record, row);
    return 1;
}

// Inserts a record so that it gets the position, and returns the one it got: the bin appends, and a position outside 1
// to count + 1 is brought to the nearest. 0 when refused.
template <typename Rec> [[nodiscard]] int32_t AddRecord(const Place &place, int32_t position, const Rec &row) {
    assert(ListOf<Rec> == (place.List == GraphList ? +TransactionList : place.List));
    return AddBytes(place, position, PackRow(row));
}

// Rewrites one record.
template <typename Rec> [[nodiscard]] int ChangeRecord(const Place &place, int32_t position, const Rec &row) {
    assert(ListOf<Rec> == (place.List == GraphList ? +TransactionList : place.List));
    return ChangeBytes(place, position, PackRow(row));
}

// Removes the records `first` to `last`; RemoveRecord one. 0 when one of them is not there.
[[nodiscard]] int RemoveRecords(const Place &place, int32_t first, int32_t last);
[[nodiscard]] inline int RemoveRecord(const Place &place, int32_t position) {
    return RemoveRecords(place, position, position);
}

// Moves a record as it lies. `to` is the position it would be inserted at while still standing at `from`: moved toward
// the end it lands at `to` - 1. Returns where it stands then, 0 when refused.
[[nodiscard]] int32_t MoveRecord(const Place &place, int32_t from, int32_t to);

// What was found or chosen among the rows of a place (a reconcile search, the ends of a range) holds only for the rows
// as they were, and is forgotten. For whoever changes rows in runs; the operations above do it themselves.
void ForgetFindings(const Place &place);

// Whole records of a place; 0 for a file that is not there.
int32_t CountOf(const Place &place);
