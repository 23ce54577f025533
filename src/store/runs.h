// Runs of raw records through the one buffer state.RunBuffer: as they lie in the file, without a cipher hook. Whoever
// calls one of these loses what another left in the buffer.
#pragma once

#include "records/records.h"

// Records that the buffer takes at once.
int32_t RunLength(FileKind kind);

// Reads up to RunLength records from a 1-based position. Returns how many arrived whole.
int32_t ReadRun(int handle, FileKind kind, int32_t first, int32_t most);

// The n-th record (from 0) of the run in the buffer.
void *RunRecord(FileKind kind, int32_t index);

// Writes `count` records of the buffer, from its `index` on, to a 1-based position. 0 on failure.
[[nodiscard]] int WriteRun(int handle, FileKind kind, int32_t index, int32_t count, int32_t first);

// Moves `count` records from position `from` to position `to` of the same file, overlapping or not, in such an order
// that an interruption leaves at most doubled records and loses none. The file grows when `to` lies behind it. 0 on
// a failed write: what had been moved has then been put back, as far as the disk allowed.
[[nodiscard]] int MoveRun(int handle, FileKind kind, int32_t from, int32_t count, int32_t to);

// Copies `count` records from one file to another. Returns how many were copied.
int32_t CopyRun(int source, FileKind kind, int32_t from, int32_t count, int target, int32_t to);
