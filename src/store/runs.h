// Runs of raw records through the one buffer state.RunBuffer: as they lie in the file, without a cipher hook. Whoever
// calls one of these loses what another left in the buffer.
#pragma once

#include "records/records.h"
#include "state/state.h"

// Records that the buffer takes at once.
int32_t RunLength(FileKind kind);

// Reads up to `most` records, as many as the buffer takes from its `index` on, from a 1-based position. Returns how
// many arrived whole, 0 when a read failed.
int32_t ReadRun(int handle, FileKind kind, int32_t first, int32_t most, int32_t index = 0);

// The n-th record (from 0) of the run in the buffer.
template <typename Rec> InFile<Rec> *RunRecord(int32_t index) {
    return reinterpret_cast<InFile<Rec> *>(state.RunBuffer) + index;
}

// Writes `count` records of the buffer, from its `index` on, to a 1-based position. 0 on failure.
[[nodiscard]] int WriteRun(int handle, FileKind kind, int32_t index, int32_t count, int32_t first);

// Moves `count` records from position `from` to position `to` of the same file, overlapping or not. The file grows when
// `to` lies behind it. 0 on a failed read or write.
[[nodiscard]] int MoveRun(int handle, FileKind kind, int32_t from, int32_t count, int32_t to);

// Copies `count` records from one file to another. Returns how many were copied.
int32_t CopyRun(int source, FileKind kind, int32_t from, int32_t count, int target, int32_t to);
