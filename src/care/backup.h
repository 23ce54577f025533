// A copy of all data files in a directory of the owner's choice, and the way back. The files are copied as they lie:
// enciphered ones stay enciphered.
#pragma once

// Told how far the copying has come, 0 to 100.
using CopyTeller = void (*)(int percent);

enum class CopyResult {
    Done,
    Nothing,    // there is nothing to copy
    InTheWay,   // an unfinished directory of an earlier copy stands where this one would be written
    Unsuitable, // the place lies within the data
    Unwritten,  // the disk refuses; what stood before stands as it was
    Invalid,    // no backup that could be restored
};

// All paths of directories end with a '\'.

// 1 when the directory holds a backup: "Zentk_Backup" in it has more than five files whose names begin with "E1_", and
// none of them is cut short.
int ValidBackup(const char *directory);

// Copies the data into "Zentk_Backup" in the directory. The one that stands there is replaced once the copy is whole.
[[nodiscard]] CopyResult MakeBackup(const char *directory, CopyTeller tell);

// Puts the backup of the directory in the place of the data: all of it or nothing. The state still holds what was.
[[nodiscard]] CopyResult RestoreBackup(const char *directory, CopyTeller tell);

// At the start, when there is no data directory: an unfinished restore of an earlier version has left the restored data
// under another name. 1 when they are the data directory now.
int FinishRestore();
