// Files and directories by device path, such as "\Program Files\Zentrik\E1_Data\E1_01IND": 8-bit text, '\' between
// names, a leading '\' for the device root. A path without it is relative to the root; one that begins with '/' leads
// from the host's own root, "/home\me", and belongs to no action. Implemented once, over disk.h.
//
// What is done to files below "\Program Files\Zentrik" belongs to the action that runs (platform/action.h): it is held
// in memory, and reads see it. Within an action a file is opened on the disk once, however often it is opened here,
// and between two actions none is open on the disk, but for what a large action replaced, which is let go at the next
// rest. A handle may outlive an action: it stands for the path.
#pragma once

#include <cstdint>

inline constexpr int PathRoom = 260;

enum OpenDisposition : uint8_t {
    OpenExisting = 3, // fails when there is no such file
    OpenOrCreate = 4,
};

// Handles are 0 or more. Every function accepts these two as well: NoFile as a file without bytes that can't be
// written, FailedOpen as a bad handle.
inline constexpr int NoFile = -1;     // OpenExisting, and there is no such file
inline constexpr int FailedOpen = -2; // the machine refused, the path is too long, or too many files are open

// The host's directory (UTF-8) that stands for "\". Set once by the host before anything else.
void SetDeviceRoot(const char *hostDirectory);
// The root as it was set, for messages of the host.
const char *DeviceRoot();

// Takes the data for this process alone: the program's directory, and the data directory once it is there, by whatever
// path another process reaches them. 1 when they are this process's, also when they were already; 0 when another one
// has them, -1 when the machine refuses. After these nothing below "\Program Files\Zentrik" can be changed in this run.
[[nodiscard]] int LockFiles();

// At the start, before anything is read: applies the whole actions that the journal still holds, in their order, drops
// a torn last one, and removes the shadows that an unfinished action left. 1, also when there was nothing to do; 0 when
// the machine refuses, or the journal holds what this version can't read: nothing may be read or written then.
[[nodiscard]] int RecoverFiles();

// A handle, NoFile or FailedOpen.
[[nodiscard]] int OpenFile(const char *path, OpenDisposition disposition);
// 1, or 0 when the handle was not open or the host reported an error.
int ReleaseFile(int handle);
// Handles that have not been released.
int FilesOpen();
// Bytes read from `offset`, fewer only at the end of the file, so 0 for NoFile; -1 on an error and for a bad handle.
[[nodiscard]] int64_t ReadFileAt(int handle, int64_t offset, void *buffer, int64_t bytes);
// The plain path of the file that was asked for bytes last, for whoever finds out later that they are no good.
const char *FileReadLast();
// 1 when all bytes stand in the file. Writing at the end makes the file grow, behind it leaves zeros between.
[[nodiscard]] int WriteFileAt(int handle, int64_t offset, const void *buffer, int64_t bytes);
// Bytes; 0 for NoFile, -1 on an error and for a bad handle.
[[nodiscard]] int64_t FileLength(int handle);
// Cuts the file to `length` bytes, or lets it grow by zeros.
[[nodiscard]] int CutFile(int handle, int64_t length);

// 0 also when there is no such file.
[[nodiscard]] int DeleteFileAt(const char *path);
// Replaces an existing target.
[[nodiscard]] int MoveFileTo(const char *from, const char *to);
// Copies whole; on failure no half target is left. The bytes of a copy to where no action reaches are on the disk for
// good, its name is after SyncDirectory.
[[nodiscard]] int CopyFileTo(const char *from, const char *to);
[[nodiscard]] int MakeDirectory(const char *path);
[[nodiscard]] int RemoveEmptyDirectory(const char *path);
// Waits until the names in a directory are on the disk for good. For one that belongs to no action; in the others the
// action sees to it, and there is nothing to do. 1, or 0 when the machine refuses.
[[nodiscard]] int SyncDirectory(const char *path);
// 1, 0, or -1 on an error that is not absence.
[[nodiscard]] int FileThere(const char *path);
[[nodiscard]] int DirectoryThere(const char *path);

// Brings the files of finished actions to the disk itself and then cuts the journal. Called when no input has come for
// a while and at the end; the layer calls it by itself when the journal has grown long. 1, or 0 when the machine
// refuses, in which case the journal stays and nothing is lost. Inside an action it is forbidden: 0, and the action is
// refused.
[[nodiscard]] int SyncFiles();

// A walk over the names in a directory that begin with a prefix ("" for all). Deleting the file just named is
// allowed. FindNextName returns 0 at the end, and after an error, which refuses the action. No walk outlives its
// action.
struct FileWalk {
    void *Host = nullptr; // the host's walk; null when the directory is not there
    int32_t Next = 0;     // of the files that the action made
    char Prefix[32] = {};
    char Directory[PathRoom] = {}; // plain
};
void FindNames(FileWalk *walk, const char *directory, const char *prefix);
[[nodiscard]] int FindNextName(FileWalk *walk, char *name, int room);
void EndFind(FileWalk *walk);
