// The few raw calls that files.h stands on, by host path (UTF-8, '/' between names). The program links the POSIX
// ones; tests link ones that fail, or end the process, at the n-th call. Above them nobody but the file layer calls.
#pragma once

#include <cstdint>

// What a call that gives a handle answers instead of one.
enum DiskAnswer : int {
    DiskMissing = -1, // there is no such file
    DiskRefused = -2, // the machine refused, or something else than a file stands there
    DiskBusy = -3,    // of DiskLock: another process holds it
};

// A handle of 0 or more, DiskMissing or DiskRefused. `create` 1 makes an empty file when there is none. Opened for
// reading and writing, or for reading alone where writing is not permitted.
[[nodiscard]] int DiskOpen(const char *path, int create);
int DiskClose(int handle);

// Bytes read, fewer than asked only at the end of the file; -1 on an error.
[[nodiscard]] int64_t DiskRead(int handle, int64_t offset, void *buffer, int64_t bytes);
// 1 when all bytes were written. After a failure a part may stand in the file.
[[nodiscard]] int DiskWrite(int handle, int64_t offset, const void *buffer, int64_t bytes);
// Bytes, -1 on an error.
[[nodiscard]] int64_t DiskLength(int handle);
[[nodiscard]] int DiskCut(int handle, int64_t length);
// Takes the room that a later write of these bytes needs; the length stays. 1 also where the file system can't promise
// any; 0 when there is no room.
[[nodiscard]] int DiskReserve(int handle, int64_t offset, int64_t bytes);
// Bytes of one file into another, to the same place; shares or moves them inside the machine where it can. 0 also when
// the file has fewer.
[[nodiscard]] int DiskCopy(int from, int to, int64_t offset, int64_t bytes);
// These bytes will be synced soon: the disk may begin with them. Promises nothing.
void DiskHasten(int handle, int64_t offset, int64_t bytes);
// Waits until what was written through any handle of this file would survive a loss of power. 0 when that is not
// known.
[[nodiscard]] int DiskSync(int handle);
// The same for the names in a directory.
[[nodiscard]] int DiskSyncDirectory(const char *path);

// Replaces an existing target in one step.
[[nodiscard]] int DiskRename(const char *from, const char *to);
[[nodiscard]] int DiskDelete(const char *path);
[[nodiscard]] int DiskMakeDirectory(const char *path);
[[nodiscard]] int DiskRemoveDirectory(const char *path);
// 0 nothing there, 1 a file, 2 a directory, -1 on an error that is not absence.
[[nodiscard]] int DiskKind(const char *path);

// Names in a directory, without "." and "..", in no order. The walk is a pointer of the host's; null when the
// directory can't be read. DiskNextName returns 0 at the end and -1 on an error; the name is cut to `room`.
void *DiskOpenWalk(const char *path);
[[nodiscard]] int DiskNextName(void *walk, char *name, int room);
void DiskCloseWalk(void *walk);

// Keeps a directory for this process alone, by whatever path another one reaches it, until the handle is closed or the
// process ends. A handle for DiskClose, DiskMissing, DiskRefused or DiskBusy.
[[nodiscard]] int DiskLock(const char *directory);
