// Where a row belongs.
#pragma once

#include "records/records.h"

// The 1-based position at which a new record of that date and rank belongs in the current screen's file (transactions
// of the current account, or recurring items). A transaction lands after its equals, a recurring item before them.
// Reads from the end, and only as far as it must. 1 for any other list, reported as caseError.
int32_t CpDates(const RecDate &date, uint32_t rank);

// The rank of a row by its RowKind; an unknown kind is reported as caseError under `function` and ranks as an entry.
enum class In : uint8_t;
uint32_t RankOf(uint8_t rowKind, In function);
