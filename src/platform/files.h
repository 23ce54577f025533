// Files and directories by device path, such as "\Program Files\Zentrik\E1_Data\E1_01IND": 8-bit text, '\' between
// names, a leading '\' for the device root. A path without the leading '\' is relative to the root. Implemented once,
// over disk.h. Handles are small numbers; -1 is the handle of a failed open, which every function accepts and answers
// with failure.
#pragma once

#include <cstdint>

inline constexpr int PathRoom = 260;

enum OpenDisposition : uint8_t {
    OpenExisting = 3, // fails when there is no such file
    OpenOrCreate = 4,
};

// The host's directory (UTF-8) that stands for "\". Set once by the host before anything else.
void SetDeviceRoot(const char *hostDirectory);
// The root as it was set, for messages of the host.
const char *DeviceRoot();

[[nodiscard]] int OpenFile(const char *path, OpenDisposition disposition);
// 1, or 0 when the handle was not open or the host reported an error.
int ReleaseFile(int handle);
// Bytes read from `offset`; fewer at the end of the file, 0 for a bad handle.
int64_t ReadFileAt(int handle, int64_t offset, void *buffer, int64_t bytes);
// 1 when all bytes stand in the file. Writing at the end makes the file grow.
[[nodiscard]] int WriteFileAt(int handle, int64_t offset, const void *buffer, int64_t bytes);
int64_t FileLength(int handle);
// Cuts the file to `length` bytes.
[[nodiscard]] int CutFile(int handle, int64_t length);

[[nodiscard]] int DeleteFileAt(const char *path);
// Replaces an existing target.
[[nodiscard]] int MoveFileTo(const char *from, const char *to);
// Copies whole; on failure no half target is left.
[[nodiscard]] int CopyFileTo(const char *from, const char *to);
[[nodiscard]] int MakeDirectory(const char *path);
[[nodiscard]] int RemoveEmptyDirectory(const char *path);
int FileThere(const char *path);
int DirectoryThere(const char *path);

// Makes durable what was written since the last call. The start-up floor calls it once no input waits, so that
// no tap waits for the disk.
void SyncFiles();

// A walk over the names in a directory that begin with a prefix ("" for all). Deleting the file just named is
// allowed. FindNextName returns 0 at the end.
struct FileWalk {
    void *Host = nullptr; // the host's walk; null when the directory could not be read
    char Prefix[32] = {};
};
void FindNames(FileWalk *walk, const char *directory, const char *prefix);
[[nodiscard]] int FindNextName(FileWalk *walk, char *name, int room);
void EndFind(FileWalk *walk);
