// The journal: the changes of whole actions, in a file beside the data directory, each made durable by one sync before
// any file is written. A start applies what stands in it. For the file layer alone.
//
// The file: two heads, 4096 bytes apart, of which the valid one with the higher number counts; from 8192 on the
// records. A record carries its length, its number and a checksum over both and its bytes. Numbers only rise: no number
// is ever used twice, also not for what had to be dropped, so that what an earlier record left behind the last one is
// never taken for its continuation. An action is one record, or several of which the first and the last are marked; it
// counts when all stand whole.
#pragma once

#include "platform/changes.h"

inline constexpr char JournalPath[] = "Program Files\\Zentrik\\E1_Journal"; // plain
inline constexpr int64_t JournalLimit = 16 << 20;                           // beyond it the files are synced

// Forgets what is known of the journal, as at power-on; closes its file.
void CloseJournal();
// Finds the whole actions in the journal. 1, also when there is none; 0 when it can't be read.
[[nodiscard]] int ReadJournal();
// Bytes that the whole actions take.
int64_t JournalBytes();

// Shows `visit` the changes of all whole actions in their order, until it answers 0. 1 when it saw them all.
[[nodiscard]] int VisitJournal(int (*visit)(const ChangeView &change));

// An action is appended: begun, filled with changes and sealed. SealRecords makes it durable by one sync. After a 0 the
// caller calls DropRecords. A Write may hold more bytes than a record: it is split.
void BeginRecords();
[[nodiscard]] int AppendChange(const ChangeView &change);
[[nodiscard]] int SealRecords();
// 1 when nothing was appended since BeginRecords.
int RecordsEmpty();
// Makes sure that no start takes what was appended last for an action. When the machine refuses even that, JournalSound
// is 0 until CutJournal succeeds, and nothing may be appended.
void DropRecords();
int JournalSound();
// Shows `visit` the changes of the action sealed last. 1 when it saw them all.
[[nodiscard]] int VisitLastAction(int (*visit)(const ChangeView &change));

// Room for `bytes` of changes and, behind them, for `further` bytes that files will need; the latter is given back by
// ReleaseRoom. 0 when there is no such room.
[[nodiscard]] int ReserveJournal(int64_t bytes, int64_t further);
void ReleaseRoom();

// All actions so far are in the files for good: the journal is empty again. 0 when the machine refuses.
[[nodiscard]] int CutJournal();
// Nothing of what was entered stays behind in a journal that was cut: zeros over it, down to the disk. For a time when
// nobody waits. No start reads there, so a failure is harmless; the next call tries again.
void CleanJournal();
// A number that no action before had, for the names of its shadows.
uint64_t JournalNumber();
