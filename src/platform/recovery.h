// From the journal to the files: after a commit, at the start, and when the files are brought to the disk for good. For
// the file layer alone.
#pragma once

// Another root, or power-on: what ran before is gone without a word, with its locks.
void ForgetRoot();
// LockFiles and RecoverFiles of files.h.
[[nodiscard]] int TakeLocks();
[[nodiscard]] int RecoverAnew();

// Once for each action, before it: the journal has been read and its whole actions are in the files. 0: nothing can be
// changed at present.
[[nodiscard]] int ReadyForActions();
// 1 while files may be changed: ReadyForActions said so last.
int FilesMayChange();
// 1 while files may be read: the journal was read, and what it held is in the files or in the overlay.
[[nodiscard]] int FilesMayBeRead();

// The changes of the action sealed last into the files. 0 when the machine refuses: the overlay has to stand for them,
// and every ReadyForActions tries again.
[[nodiscard]] int ApplyLastAction();
// 1 while the overlay stands for a finished action whose changes are not all in the files.
int OverlayStandsIn();

// Files and directories to the disk, then the journal is cut. 0 when the machine refuses: the journal stays.
[[nodiscard]] int SyncApplied();
// 1 when everything is on the disk for good and the journal is empty.
int AllSynced();
