#include "platform/files.h"
#include "platform/action.h"
#include "platform/disk.h"
#include "platform/journal.h"
#include "platform/overlay.h"
#include "platform/painting.h"
#include "platform/paths.h"
#include "platform/recovery.h"
#include <cassert>
#include <cstdio>
#include <cstring>

namespace {

constexpr int MostOpen = 64; // an operation holds three files at most
constexpr int CopyBytes = 1 << 16;

// A handle stands for a path. Where it leads follows what runs: into the overlay within an action, to the disk
// otherwise.
struct OpenSlot {
    bool Used, InActions; // InActions: what is written belongs to an action
    int Disk;             // of disk.h, below 0 while it leads into the overlay
    int32_t Row;          // of the overlay
    uint32_t Series;      // of that row
    char Path[PathRoom];  // plain
};
OpenSlot Open[MostOpen];
int ReadLast; // slot

OpenSlot *SlotOf(int handle) {
    return handle >= 0 && handle < MostOpen && Open[handle].Used ? &Open[handle] : nullptr;
}

// 1 when files below the program's directory are seen through the overlay.
int ThroughOverlay() {
    return ActionRuns() || OverlayStandsIn();
}

// A change of a file that belongs to actions: within one, or as one of its own.
class Changing {
public:
    Changing() : Own(!ActionRuns()) {
        if (Own)
            BeginAction();
        Allowed = FilesMayChange();
        if (!Allowed)
            RefuseActionFor(WriteRefused);
    }
    int End(int done) {
        if (!done)
            RefuseActionFor(WriteRefused);
        return Own ? CommitAction() && done : done;
    }
    int Allowed;

private:
    bool Own;
};

// What a question outside any action comes to, told in one way for both floors.
int64_t RefusedRead() {
    RefuseActionFor(ReadRefused);
    return -1;
}

// The slot's row of the overlay, null when the machine refuses.
OverlayFile *RowOf(OpenSlot *slot) {
    if (slot->Disk >= 0) {
        DiskClose(slot->Disk);
        slot->Disk = DiskMissing;
    }
    if (slot->Row < 0 || slot->Series != OverlaySeries()) {
        slot->Row = OverlayOf(slot->Path);
        slot->Series = OverlaySeries();
        if (slot->Row >= 0)
            ++OverlayRow(slot->Row)->Users;
    }
    return slot->Row >= 0 ? OverlayRow(slot->Row) : nullptr;
}

// The slot's file on the disk, below 0 when the machine refuses.
int DiskOf(OpenSlot *slot) {
    if (slot->Disk < 0) {
        char host[HostPathRoom];
        HostPath(host, slot->Path);
        slot->Disk = DiskOpen(host, 0);
    }
    return slot->Disk;
}

int UnusedSlot() {
    for (int handle = 0; handle < MostOpen; ++handle)
        if (!Open[handle].Used)
            return handle;
    return -1;
}

int CreateInAction(const char *plain) {
    Changing changing;
    const int32_t row = changing.Allowed ? OverlayOf(plain) : -1;
    return changing.End(row >= 0 && OverlayCreate(OverlayRow(row)));
}

// NoFile, FailedOpen, or 0 when the slot leads to a file.
int OpenThroughOverlay(OpenSlot *slot, OpenDisposition disposition) {
    OverlayFile *file = RowOf(slot);
    if (!file)
        return FailedOpen;
    if (file->Now == Stands::Nothing && disposition == OpenOrCreate && !CreateInAction(slot->Path))
        return FailedOpen;
    if (file->Now == Stands::Directory)
        return static_cast<int>(RefusedRead()) - 1;
    return file->Now == Stands::File ? 0 : NoFile;
}

int OpenOnDisk(OpenSlot *slot, OpenDisposition disposition) {
    char host[HostPathRoom];
    HostPath(host, slot->Path);
    const bool creates = disposition == OpenOrCreate;
    slot->Disk = DiskOpen(host, creates && !slot->InActions);
    if (slot->Disk == DiskMissing && creates && slot->InActions && CreateInAction(slot->Path)) {
        if (OverlayStandsIn())
            return 0;
        slot->Disk = DiskOpen(host, 0);
    }
    if (slot->Disk == DiskMissing && !creates)
        return NoFile;
    if (slot->Disk >= 0)
        return 0;
    if (!TellsTrouble(slot->Path))
        RefuseActionFor(ReadRefused);
    return FailedOpen;
}

void LeaveSlot(OpenSlot *slot) {
    if (slot->Row >= 0 && slot->Series == OverlaySeries())
        --OverlayRow(slot->Row)->Users;
    slot->Row = -1;
    slot->Used = false;
}

// A plain path into `to`; 0, with the action refused, when it is too long, or belongs to data that may not be read.
int TakePath(char *to, const char *path) {
    if (PlainPath(to, path) && (!BelongsToActions(to) || FilesMayBeRead()))
        return 1;
    RefuseActionFor(ReadRefused);
    return 0;
}

int KindAt(const char *path) {
    char plain[PathRoom], host[HostPathRoom];
    if (!TakePath(plain, path))
        return -1;
    if (BelongsToActions(plain) && ThroughOverlay()) {
        const int32_t row = OverlayOf(plain);
        return row < 0 ? -1 : static_cast<int>(OverlayRow(row)->Now);
    }
    HostPath(host, plain);
    const int kind = DiskKind(host);
    return kind >= 0 ? kind : static_cast<int>(RefusedRead());
}

int CopyBetween(int source, int target) {
    static char buffer[CopyBytes];
    const int64_t length = FileLength(source);
    if (length > 0 && Open[source].Disk >= 0 && Open[target].Disk >= 0 && !Open[target].InActions)
        return DiskCopy(Open[source].Disk, Open[target].Disk, 0, length);
    for (int64_t at = 0; at < length;) {
        const int64_t bytes = ReadFileAt(source, at, buffer, CopyBytes);
        if (bytes <= 0 || !WriteFileAt(target, at, buffer, bytes))
            return 0;
        at += bytes;
    }
    return length >= 0 && CutFile(target, length);
}

int CopyOpened(const char *from, const char *to) {
    const int source = OpenFile(from, OpenExisting);
    const int target = source >= 0 ? OpenFile(to, OpenOrCreate) : NoFile;
    int copied = target >= 0 && CutFile(target, 0) && CopyBetween(source, target);
    ReleaseFile(source);
    if (target >= 0 && !ReleaseFile(target))
        copied = 0;
    return copied;
}

// What stands in a file that belongs to no action, to the disk for good.
int SyncOutside(const char *path) {
    const int file = OpenFile(path, OpenExisting);
    const int synced = file >= 0 && DiskSync(DiskOf(&Open[file]));
    ReleaseFile(file);
    return synced;
}

// To where no action reaches: by way of a file beside the target, so that a copy that fails leaves an earlier target
// whole.
int CopyOut(const char *from, const char *to) {
    char beside[PathRoom];
    if (std::snprintf(beside, sizeof beside, "%s~", to) >= PathRoom)
        return 0;
    if (CopyOpened(from, beside) && SyncOutside(beside) && MoveFileTo(beside, to))
        return 1;
    static_cast<void>(DeleteFileAt(beside)); // it may never have come to be
    return 0;
}

// 1 when nothing stands in the directory, as the action sees it.
int EmptyDirectory(const char *plain) {
    FileWalk walk;
    char name[PathRoom];
    FindNames(&walk, plain, "");
    const int found = FindNextName(&walk, name, PathRoom);
    EndFind(&walk);
    return !found && ActionRefused() == NotRefused;
}

int ChangeDirectory(const char *path, Stands to) {
    char plain[PathRoom], host[HostPathRoom];
    if (!TakePath(plain, path))
        return 0;
    if (!BelongsToActions(plain)) {
        HostPath(host, plain);
        return to == Stands::Directory ? DiskMakeDirectory(host) : DiskRemoveDirectory(host);
    }
    Changing changing;
    const int32_t row = changing.Allowed ? OverlayOf(plain) : -1;
    OverlayFile *file = row >= 0 ? OverlayRow(row) : nullptr;
    const Stands from = to == Stands::Directory ? Stands::Nothing : Stands::Directory;
    const int can = file && file->Now == from && (to == Stands::Directory || EmptyDirectory(plain));
    if (can) {
        file->Now = to;
        file->Changed = true;
    }
    return changing.End(can);
}

// Of two paths that are not both covered by actions: the file goes by way of a copy.
int MoveAcross(const char *from, const char *to) {
    return CopyFileTo(from, to) && DeleteFileAt(from);
}

} // namespace

void SetDeviceRoot(const char *hostDirectory) {
    ForgetRoot();
    NameRoot(hostDirectory);
}

const char *DeviceRoot() {
    return RootName();
}

int LockFiles() {
    return TakeLocks();
}

int RecoverFiles() {
    return RecoverAnew();
}

int OpenFile(const char *path, OpenDisposition disposition) {
    const int handle = UnusedSlot();
    char plain[PathRoom];
    if (OverlayStandsIn() && !ActionRuns())
        static_cast<void>(ReadyForActions()); // the machine may be well again
    if (handle < 0 || !TakePath(plain, path)) {
        RefuseActionFor(ReadRefused);
        return FailedOpen;
    }
    assert(!Painting::Runs() || TellsTrouble(plain));
    OpenSlot &slot = Open[handle];
    slot = {true, BelongsToActions(plain) != 0, DiskMissing, -1, 0, {}};
    std::strcpy(slot.Path, plain);
    const bool through = slot.InActions && ThroughOverlay();
    const int opened = through ? OpenThroughOverlay(&slot, disposition) : OpenOnDisk(&slot, disposition);
    if (opened < 0)
        LeaveSlot(&slot);
    return opened < 0 ? opened : handle;
}

int FilesOpen() {
    int count = 0;
    for (const OpenSlot &slot : Open)
        count += slot.Used;
    return count;
}

int ReleaseFile(int handle) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot)
        return 0;
    const int closed = slot->Disk < 0 || DiskClose(slot->Disk);
    LeaveSlot(slot);
    return closed;
}

int64_t ReadFileAt(int handle, int64_t offset, void *buffer, int64_t bytes) {
    OpenSlot *slot = SlotOf(handle);
    if (handle == NoFile || (slot && bytes == 0))
        return 0;
    if (!slot || offset < 0 || bytes < 0)
        return RefusedRead();
    ReadLast = handle;
    if (slot->InActions && ThroughOverlay()) {
        OverlayFile *file = RowOf(slot);
        return file && file->Now == Stands::File ? OverlayRead(file, offset, buffer, bytes) : RefusedRead();
    }
    const int64_t arrived = DiskOf(slot) < 0 ? -1 : DiskRead(slot->Disk, offset, buffer, bytes);
    return arrived >= 0 || TellsTrouble(slot->Path) ? arrived : RefusedRead();
}

const char *FileReadLast() {
    return Open[ReadLast].Path;
}

int WriteFileAt(int handle, int64_t offset, const void *buffer, int64_t bytes) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot || offset < 0 || bytes < 0) {
        RefuseActionFor(WriteRefused);
        return 0;
    }
    if (!slot->InActions)
        return DiskOf(slot) >= 0 && DiskWrite(slot->Disk, offset, buffer, bytes);
    Changing changing;
    OverlayFile *file = changing.Allowed ? RowOf(slot) : nullptr;
    return changing.End(file && OverlayWrite(file, offset, buffer, bytes));
}

int64_t FileLength(int handle) {
    OpenSlot *slot = SlotOf(handle);
    if (handle == NoFile)
        return 0;
    if (!slot)
        return RefusedRead();
    if (slot->InActions && ThroughOverlay()) {
        const OverlayFile *file = RowOf(slot);
        return file && file->Now == Stands::File ? file->Length : RefusedRead();
    }
    const int64_t length = DiskOf(slot) < 0 ? -1 : DiskLength(slot->Disk);
    return length >= 0 || TellsTrouble(slot->Path) ? length : RefusedRead();
}

int CutFile(int handle, int64_t length) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot || length < 0) {
        RefuseActionFor(WriteRefused);
        return 0;
    }
    if (!slot->InActions)
        return DiskOf(slot) >= 0 && DiskCut(slot->Disk, length);
    Changing changing;
    OverlayFile *file = changing.Allowed ? RowOf(slot) : nullptr;
    return changing.End(file && (file->Now != Stands::File || file->Length != length ? OverlayCut(file, length) : 1));
}

int DeleteFileAt(const char *path) {
    char plain[PathRoom], host[HostPathRoom];
    if (!TakePath(plain, path))
        return 0;
    if (!BelongsToActions(plain)) {
        HostPath(host, plain);
        return DiskDelete(host);
    }
    if (KindAt(plain) == 0)
        return 0; // nothing was to be deleted, and so nothing failed
    Changing changing;
    const int32_t row = changing.Allowed ? OverlayOf(plain) : -1;
    const int can = row >= 0 && OverlayRow(row)->Now == Stands::File;
    if (can)
        OverlayDelete(OverlayRow(row));
    return changing.End(can);
}

int MoveFileTo(const char *from, const char *to) {
    char source[PathRoom], target[PathRoom], hostFrom[HostPathRoom], hostTo[HostPathRoom];
    if (!TakePath(source, from) || !TakePath(target, to))
        return 0;
    if (!BelongsToActions(source) && !BelongsToActions(target)) {
        HostPath(hostFrom, source);
        HostPath(hostTo, target);
        return DiskRename(hostFrom, hostTo);
    }
    if (std::strcmp(source, target) == 0)
        return KindAt(source) == 1;
    if (!BelongsToActions(source) || !BelongsToActions(target))
        return MoveAcross(from, to);
    Changing changing;
    const int32_t fromRow = changing.Allowed ? OverlayOf(source) : -1;
    const int32_t toRow = fromRow >= 0 ? OverlayOf(target) : -1;
    return changing.End(toRow >= 0 && (OverlayMove(OverlayRow(fromRow), OverlayRow(toRow)) || MoveAcross(from, to)));
}

int CopyFileTo(const char *from, const char *to) {
    char plain[PathRoom];
    if (!TakePath(plain, to))
        return 0;
    if (!BelongsToActions(plain))
        return CopyOut(from, to);
    Changing changing;
    return changing.End(changing.Allowed && CopyOpened(from, to));
}

int MakeDirectory(const char *path) {
    return ChangeDirectory(path, Stands::Directory);
}
int RemoveEmptyDirectory(const char *path) {
    return ChangeDirectory(path, Stands::Nothing);
}

int SyncDirectory(const char *path) {
    char plain[PathRoom], host[HostPathRoom];
    if (!TakePath(plain, path))
        return 0;
    HostPath(host, plain);
    return BelongsToActions(plain) || DiskSyncDirectory(host);
}

int FileThere(const char *path) {
    const int kind = KindAt(path);
    return kind < 0 ? -1 : kind == 1;
}
int DirectoryThere(const char *path) {
    const int kind = KindAt(path);
    return kind < 0 ? -1 : kind == 2;
}

int SyncFiles() {
    if (ActionRuns()) {
        RefuseActionFor(WriteRefused);
        return 0;
    }
    if (!FilesMayBeRead())
        return 0;
    if (!AllSynced() && !(ReadyForActions() && SyncApplied()))
        return 0;
    CleanJournal();
    return 1;
}

void FindNames(FileWalk *walk, const char *directory, const char *prefix) {
    *walk = {};
    walk->Next = -1;
    std::snprintf(walk->Prefix, sizeof walk->Prefix, "%s", prefix);
    char host[HostPathRoom];
    if (!TakePath(walk->Directory, directory))
        return;
    HostPath(host, walk->Directory);
    walk->Host = DiskOpenWalk(host);
    if (!walk->Host && DiskKind(host) != 0)
        RefuseActionFor(ReadRefused);
}

int FindNextName(FileWalk *walk, char *name, int room) {
    const auto wanted = [walk](const char *found) {
        // No device path can name a file whose name holds the separator; shadows are nobody's files.
        return std::strncmp(found, walk->Prefix, std::strlen(walk->Prefix)) == 0 && !std::strchr(found, '\\') &&
               std::strncmp(found, ShadowPrefix, sizeof ShadowPrefix - 1) != 0;
    };
    const bool through = ThroughOverlay();
    char plain[PathRoom], directory[PathRoom];
    for (int found; walk->Host && (found = DiskNextName(walk->Host, name, room)) != 0;) {
        if (found < 0) {
            RefuseActionFor(ReadRefused);
            return 0;
        }
        if (!wanted(name))
            continue;
        const int length =
            std::snprintf(plain, PathRoom, "%s%s%s", walk->Directory, walk->Directory[0] ? "\\" : "", name);
        if (length < PathRoom - 1 && through && OverlayGone(plain))
            continue;
        return 1;
    }
    // What the action has made, and the disk does not have.
    while (through && (walk->Next = NextOverlay(walk->Next)) >= 0) {
        const OverlayFile *file = OverlayRow(walk->Next);
        DirectoryOf(directory, file->Path);
        if (file->Now == Stands::Nothing || file->OnDisk != Stands::Nothing ||
            std::strcmp(directory, walk->Directory) != 0)
            continue;
        const char *base = file->Path + std::strlen(directory) + (directory[0] != 0);
        if (!wanted(base))
            continue;
        std::snprintf(name, static_cast<size_t>(room), "%s", base);
        return 1;
    }
    return 0;
}

void EndFind(FileWalk *walk) {
    if (walk->Host)
        DiskCloseWalk(walk->Host);
    walk->Host = nullptr;
}
