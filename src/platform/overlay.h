// The files that an action has met, as the action has left them: what it changed is held here in pages, above what the
// disk holds. For the file layer alone.
#pragma once

#include "platform/changes.h"
#include "platform/files.h"

inline constexpr int PageBytes = 4096;

enum class Stands : uint8_t { Nothing, File, Directory };

struct OverlayFile {
    char Path[PathRoom]; // plain; "" for a row that is not in use
    int32_t NextOfName;  // in the chain of names, -1 at the end
    int32_t FirstPage;   // of its pages, in no order, -1 for none
    int32_t PageCount;
    int64_t LowPage, HighPage;    // its pages lie between these, ends included
    int Disk;                     // handle of disk.h, below 0 for none
    int ShadowDisk;               // the same of its shadow
    int32_t Shadow;               // number of its shadow, 0 for none; a file with a shadow has no pages
    int64_t FilledFrom, FilledTo; // what the shadow holds of it; around that the disk's bytes count, up to BaseLength
    int64_t DiskLength;           // bytes on the disk
    int64_t BaseLength;           // bytes of these that still count
    int64_t Length;               // as the action sees it
    int32_t Users;                // open handles
    Stands OnDisk, Now;
    bool Changed;
    bool Emptied; // what the disk holds under its name goes as a whole
};

// The row of a path, which it gets with the first question: -1 when the machine refuses or there are too many files,
// which has then refused the action.
int32_t OverlayOf(const char *plain);
OverlayFile *OverlayRow(int32_t row);
// The row after `row` (-1: the first) that is in use; -1 at the end.
int32_t NextOverlay(int32_t row);

// 1, and the file is there and empty or as it was; 0 when something else stands there.
[[nodiscard]] int OverlayCreate(OverlayFile *file);
// As in files.h, for a row; a failure has refused the action.
[[nodiscard]] int64_t OverlayRead(OverlayFile *file, int64_t offset, void *buffer, int64_t bytes);
[[nodiscard]] int OverlayWrite(OverlayFile *file, int64_t offset, const void *buffer, int64_t bytes);
[[nodiscard]] int OverlayCut(OverlayFile *file, int64_t length);
// The file is not there any more.
void OverlayDelete(OverlayFile *file);
// What the action made under one name stands under the other. 0, and nothing happened, when it did not make it all.
[[nodiscard]] int OverlayMove(OverlayFile *from, OverlayFile *to);

// How a file with pages changes, shown to `visit` until that answers 0: of each page what really differs from the disk.
// `Before` is what the disk holds there, zeros where it holds nothing. 1 when all went well.
struct PageChange {
    int64_t Offset;
    const uint8_t *Bytes, *Before;
    int32_t Count;
};
[[nodiscard]] int VisitPages(OverlayFile *file, int (*visit)(OverlayFile *file, const PageChange &change));

// The shadow gets what it does not hold yet, and its length, and is made durable, with its name. 1, also for a file
// without a shadow.
[[nodiscard]] int SealShadow(OverlayFile *file);
// The plain path of a file's shadow. Room of PathRoom.
void ShadowPath(char *to, const OverlayFile &file);
// 1 when a file has a shadow, or a directory goes: earlier changes to what bears the name may not be done after it.
int OverlayHasShadow();
int OverlayDropsDirectory();

// The handle of a file on the disk, opened when it is not; DiskMissing or DiskRefused.
[[nodiscard]] int OverlayDisk(OverlayFile *file);

// The handle of a path that is open on the disk; DiskMissing when it is not, or has no row.
int DiskHeld(const char *plain);
// 1 for a path that the action has taken away.
int OverlayGone(const char *plain);
// Rises whenever rows cease to be: a row from another series is not to be used.
uint32_t OverlaySeries();

// Forgets everything and closes what it opened. With `shadows` 1 it also deletes the shadows, which nobody took;
// otherwise what they replaced is closed by CloseReplaced.
void ClearOverlay(int shadows);
void CloseReplaced();
// 1 when it holds nothing.
int OverlayEmpty();
