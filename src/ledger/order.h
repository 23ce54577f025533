// Where a row belongs.
#pragma once

#include "records/place.h"
#include "records/records.h"

// The 1-based position at which a new record of that date and rank belongs in a place (transactions of an account, or
// recurring items). A transaction lands after its equals, a recurring item before them. Reads from the end, and only as
// far as it must. 1 for any other list, reported as caseError.
int32_t PositionByDate(const Place &place, const RecDate &date, uint32_t rank);

// The rank of a row by its RowKind; an unknown kind is reported as caseError under `function` and ranks as an entry.
enum class In : uint8_t;
uint32_t RankOf(uint8_t rowKind, In function);
