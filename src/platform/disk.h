// The few raw calls that files.h stands on, by host path (UTF-8, '/' between names). The program links the POSIX
// ones; tests link ones that fail, or end the process, at the n-th write.
#pragma once

#include <cstdint>

// A handle of 0 or more, or -1. `create` 1 makes an empty file when there is none. Opened for reading and writing,
// or for reading alone where writing is not permitted.
[[nodiscard]] int DiskOpen(const char *path, int create);
int DiskClose(int handle);

// Bytes read, fewer than asked only at the end of the file or on an error.
int64_t DiskRead(int handle, int64_t offset, void *buffer, int64_t bytes);
// 1 when all bytes were written. After a failure a part may stand in the file.
[[nodiscard]] int DiskWrite(int handle, int64_t offset, const void *buffer, int64_t bytes);
// Bytes, 0 for a handle that is not open.
int64_t DiskLength(int handle);
[[nodiscard]] int DiskCut(int handle, int64_t length);
// Waits until what was written through any handle of this file would survive a loss of power.
int DiskSync(int handle);

[[nodiscard]] int DiskRename(const char *from, const char *to);
[[nodiscard]] int DiskDelete(const char *path);
[[nodiscard]] int DiskMakeDirectory(const char *path);
[[nodiscard]] int DiskRemoveDirectory(const char *path);
// 0 nothing there, 1 a file, 2 a directory.
int DiskKind(const char *path);

// Names in a directory, without "." and "..", in no order. The walk is a pointer of the host's; null when the
// directory can't be read. DiskNextName returns 0 at the end; the name is cut to `room`.
void *DiskOpenWalk(const char *path);
[[nodiscard]] int DiskNextName(void *walk, char *name, int room);
void DiskCloseWalk(void *walk);
