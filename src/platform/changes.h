// What an action does to files, as a row of bytes: the form in which the journal keeps it, and the undo. For the file
// layer alone.
#pragma once

#include <cstdint>

// ORDER CHANGE: the numbers stand in journals and are never renumbered.
enum class Change : uint8_t {
    Write = 1,           // bytes at an offset; the file grows, and comes to be, as needed
    Empty = 2,           // the file is there and has no bytes
    Length = 3,          // cut, or grown by zeros, to the offset
    Delete = 4,          // the file is not there
    Take = 5,            // the shadow whose plain path is the data takes the file's place
    MakeDirectory = 6,   // the directory is there
    RemoveDirectory = 7, // the directory is not there
};

struct ChangeView {
    Change What;
    const char *Path; // plain, ends with 0
    int64_t Offset;
    const uint8_t *Data;
    int64_t Bytes;
};

// Room of a change with its path and data.
int64_t ChangeRoom(const char *path, int64_t bytes);
// Writes a change at `*used` of a buffer of `room` bytes and moves `*used` behind it. 0, and nothing is written, when
// it does not fit.
[[nodiscard]] int PutChange(uint8_t *buffer, int64_t room, int64_t *used, const ChangeView &change);
// Lets a Write at `at` of the buffer, the last change in it, go on for further bytes. 0, and nothing is written, when
// they do not fit.
[[nodiscard]] int ExtendWrite(uint8_t *buffer, int64_t room, int64_t *used, int64_t at, const uint8_t *data,
                              int64_t bytes);
// The change at `*at`, which moves behind it. 1, 0 at the end, -1 for bytes that are no change.
[[nodiscard]] int NextChange(const uint8_t *buffer, int64_t bytes, int64_t *at, ChangeView *change);
