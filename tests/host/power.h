// The end of a process at any call that changes or syncs the disk, and what a loss of power leaves then: of what was
// written since the last sync of its file, and of the names changed since the last sync of their directory, nothing, a
// part or all.
#pragma once

#include <string>

namespace testhost {

enum class Tear { Before, AtPage, AtOddByte }; // of the write at which the process ends
enum class Bytes { Stay, Go, ByFile, ByPage }; // unsynced ones
enum class Names { Stay, Go };                 // unsynced ones
struct Ending {
    int At = 0; // the process ends at this call, counted from 1; 0 never
    Tear How = Tear::Before;
    Bytes Unsynced = Bytes::Stay;
    Names Renamed = Names::Stay;
    unsigned Seed = 0; // of which file or page goes
};
// From now on, below a directory that is on the disk for good as it stands.
void WatchPower(const std::string &hostDirectory, const Ending &ending);
// Calls since then.
int PowerCalls();

// Of the test host's disk. 1 when the process ends at this call.
bool EndsHere();
[[noreturn]] void EndHere();
// Where a write of so many bytes at an offset breaks off.
long long TornAt(long long offset, long long bytes);
void NoteSync(int handle);
void NoteDirectorySync(const char *hostDirectory);
// What loses its name keeps its inode, so that no other file is taken for it.
void KeepInode(const char *path);

// The directory's files as they were: rewritten in place, so that open handles lead to them.
void RestoreFiles(const std::string &hostDirectory, const std::string &copy);

} // namespace testhost
