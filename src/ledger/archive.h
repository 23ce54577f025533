// Old rows move to an account's archive and back, with every balance kept.
#pragma once

#include "records/records.h"

inline constexpr int32_t ShowProgressFrom = 11; // rows; a smaller job is silent

// Archives rows 1 to `position` of the live file of the account at a position. 1, or 0 when refused: archive view, or
// nothing to do. `tell` is called with 0 to 100 as the work goes on (null: silent) and must touch no record;
// state.Restructuring says when the merge moves rows.
using ProgressTeller = void (*)(int percent);
int Archive(int32_t accountPosition, int32_t position, ProgressTeller tell);

// Returns rows `position` to the end of the archive to the live file. Only in the archive view.
int Unarchive(int32_t accountPosition, int32_t position, ProgressTeller tell);
