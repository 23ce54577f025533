// Old rows move to an account's archive and back, with every balance kept.
#pragma once

#include "ledger/progress.h"
#include "records/records.h"

inline constexpr int32_t ShowProgressFrom = 11; // rows; a smaller job is silent

// Refused: no such account, a filter hides rows of it, nothing to do, or the disk (then the action is refused too).
// NotYet: no entry up to the position is dated up to today.
enum class ArchiveResult : uint8_t { Refused, NotYet, Done };

// Archives rows 1 to `position` of an account's live file, but none from the first one dated after today on, so that
// the balances as of today stay. state.Restructuring says when a merge moves rows.
ArchiveResult Archive(uint32_t accountID, int32_t position, ProgressTeller tell);

// 1 when the account's live rows have an Archive marker, wherever it stands; 0 without one, or when refused.
int ArchiveMarked(uint32_t accountID);
// The marker of an archive whose first row this is, at the head of the live rows. 0 when refused.
[[nodiscard]] int MarkArchive(uint32_t accountID, const TRec &row);

// Returns rows `position` to the end of the archive to the live file.
ArchiveResult Unarchive(uint32_t accountID, int32_t position, ProgressTeller tell);
