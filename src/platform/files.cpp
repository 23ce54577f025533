#include "platform/files.h"
#include "platform/disk.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr int RootRoom = 1024;
constexpr int HostRoom = RootRoom + PathRoom;
constexpr int MostOpen = 32;     // an operation holds three files at most
constexpr int MostUnsynced = 16; // an entry with its transfer writes six
constexpr int CopyBytes = 1 << 16;

char Root[RootRoom];

struct OpenSlot {
    int Disk = -1; // handle of disk.h
    bool Written;
    char Path[PathRoom]; // device path
};
OpenSlot Open[MostOpen];

// Device paths of files that may not have reached the disk itself yet.
char Unsynced[MostUnsynced][PathRoom];
int UnsyncedCount;

// 1, or 0 when the path does not fit.
int HostPath(char *to, const char *path) {
    if (std::strlen(path) >= PathRoom)
        return 0;
    while (*path == '\\')
        ++path;
    std::snprintf(to, HostRoom, "%s/%s", Root, path);
    for (char *unit = to + std::strlen(Root); *unit; ++unit)
        if (*unit == '\\')
            *unit = '/';
    return 1;
}

OpenSlot *SlotOf(int handle) {
    return handle >= 0 && handle < MostOpen && Open[handle].Disk >= 0 ? &Open[handle] : nullptr;
}

int UnsyncedIndex(const char *path) {
    for (int i = 0; i < UnsyncedCount; ++i)
        if (std::strcmp(Unsynced[i], path) == 0)
            return i;
    return -1;
}

void RememberUnsynced(const char *path) {
    if (UnsyncedIndex(path) >= 0)
        return;
    if (UnsyncedCount == MostUnsynced)
        SyncFiles();
    std::strcpy(Unsynced[UnsyncedCount++], path);
}

void ForgetUnsynced(const char *path) {
    if (const int index = UnsyncedIndex(path); index >= 0)
        std::memcpy(Unsynced[index], Unsynced[--UnsyncedCount], PathRoom);
}

void MarkWritten(OpenSlot *slot) {
    if (!slot->Written)
        RememberUnsynced(slot->Path);
    slot->Written = true;
}

int KindAt(const char *path) {
    char host[HostRoom];
    return HostPath(host, path) ? DiskKind(host) : 0;
}

int CopyBetween(int source, int target) {
    static char buffer[CopyBytes];
    const int64_t length = FileLength(source);
    for (int64_t at = 0; at < length;) {
        const int64_t bytes = ReadFileAt(source, at, buffer, CopyBytes);
        if (bytes == 0 || !WriteFileAt(target, at, buffer, bytes))
            return 0;
        at += bytes;
    }
    return CutFile(target, length);
}

} // namespace

void SetDeviceRoot(const char *hostDirectory) {
    std::snprintf(Root, RootRoom, "%s", hostDirectory);
}

const char *DeviceRoot() {
    return Root;
}

int OpenFile(const char *path, OpenDisposition disposition) {
    char host[HostRoom];
    if (!HostPath(host, path))
        return -1;
    for (int handle = 0; handle < MostOpen; ++handle) {
        OpenSlot &slot = Open[handle];
        if (slot.Disk >= 0)
            continue;
        slot.Disk = DiskOpen(host, disposition == OpenOrCreate);
        slot.Written = false;
        std::strcpy(slot.Path, path);
        return slot.Disk >= 0 ? handle : -1;
    }
    return -1;
}

int ReleaseFile(int handle) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot)
        return 0;
    const int closed = DiskClose(slot->Disk);
    slot->Disk = -1;
    return closed;
}

int64_t ReadFileAt(int handle, int64_t offset, void *buffer, int64_t bytes) {
    const OpenSlot *slot = SlotOf(handle);
    if (!slot || offset < 0 || bytes <= 0)
        return 0;
    const int64_t arrived = DiskRead(slot->Disk, offset, buffer, bytes);
    return arrived > 0 ? arrived : 0;
}

int WriteFileAt(int handle, int64_t offset, const void *buffer, int64_t bytes) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot || offset < 0 || bytes < 0)
        return 0;
    MarkWritten(slot);
    return DiskWrite(slot->Disk, offset, buffer, bytes);
}

int64_t FileLength(int handle) {
    const OpenSlot *slot = SlotOf(handle);
    return slot ? DiskLength(slot->Disk) : 0;
}

int CutFile(int handle, int64_t length) {
    OpenSlot *slot = SlotOf(handle);
    if (!slot || length < 0)
        return 0;
    MarkWritten(slot);
    return DiskCut(slot->Disk, length);
}

int DeleteFileAt(const char *path) {
    char host[HostRoom];
    if (!HostPath(host, path) || !DiskDelete(host))
        return 0;
    ForgetUnsynced(path);
    return 1;
}

int MoveFileTo(const char *from, const char *to) {
    char hostFrom[HostRoom], hostTo[HostRoom];
    if (!HostPath(hostFrom, from) || !HostPath(hostTo, to) || !DiskRename(hostFrom, hostTo))
        return 0;
    ForgetUnsynced(from);
    RememberUnsynced(to);
    return 1;
}

// By way of a file beside the target, so that a copy that fails leaves an earlier target whole.
int CopyFileTo(const char *from, const char *to) {
    char beside[PathRoom];
    if (std::snprintf(beside, sizeof beside, "%s~", to) >= PathRoom)
        return 0;
    const int source = OpenFile(from, OpenExisting);
    const int target = source >= 0 ? OpenFile(beside, OpenOrCreate) : -1;
    int copied = target >= 0 && CopyBetween(source, target);
    ReleaseFile(source);
    if (target >= 0 && !ReleaseFile(target))
        copied = 0;
    if (copied && MoveFileTo(beside, to))
        return 1;
    if (target >= 0)
        static_cast<void>(DeleteFileAt(beside)); // it may never have come to be
    return 0;
}

int MakeDirectory(const char *path) {
    char host[HostRoom];
    return HostPath(host, path) && DiskMakeDirectory(host);
}

int RemoveEmptyDirectory(const char *path) {
    char host[HostRoom];
    return HostPath(host, path) && DiskRemoveDirectory(host);
}

int FileThere(const char *path) {
    return KindAt(path) == 1;
}
int DirectoryThere(const char *path) {
    return KindAt(path) == 2;
}

void SyncFiles() {
    for (int i = 0; i < UnsyncedCount; ++i) {
        char host[HostRoom];
        const int disk = HostPath(host, Unsynced[i]) ? DiskOpen(host, 0) : -1;
        if (disk < 0)
            continue; // deleted or replaced since
        DiskSync(disk);
        DiskClose(disk);
    }
    UnsyncedCount = 0;
    for (OpenSlot &slot : Open)
        slot.Written = false;
}

void FindNames(FileWalk *walk, const char *directory, const char *prefix) {
    *walk = {};
    char host[HostRoom];
    std::snprintf(walk->Prefix, sizeof walk->Prefix, "%s", prefix);
    if (HostPath(host, directory))
        walk->Host = DiskOpenWalk(host);
}

int FindNextName(FileWalk *walk, char *name, int room) {
    while (walk->Host && DiskNextName(walk->Host, name, room))
        // No device path can name a file whose name holds the separator.
        if (std::strncmp(name, walk->Prefix, std::strlen(walk->Prefix)) == 0 && !std::strchr(name, '\\'))
            return 1;
    return 0;
}

void EndFind(FileWalk *walk) {
    if (walk->Host)
        DiskCloseWalk(walk->Host);
    walk->Host = nullptr;
}
