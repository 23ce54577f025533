#include "platform/recovery.h"
#include "platform/action.h"
#include "platform/disk.h"
#include "platform/history.h"
#include "platform/journal.h"
#include "platform/overlay.h"
#include "platform/paths.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr int MostUnsynced = 64, MostDirectories = 8;
constexpr int Locks = 2; // the program's directory, the data directory
constexpr const char *LockedPaths[Locks] = {ProgramDirectory, "Program Files\\Zentrik\\E1_Data"};

template <int Count> struct PathList {
    char Path[Count][PathRoom];
    int Used;
};
struct Recovery {
    int Recovered; // 1 once the journal has been read and applied
    int Closed;    // 1 after a recovery that failed
    int Unlocked;  // 1 when another process has the data, or might have
    int Changeable;
    int StandsIn;
    int Doubtful;                          // 1 after a sync that failed: the files have to be written once more
    PathList<MostUnsynced> Files;          // that may not have reached the disk itself yet
    PathList<MostDirectories> Directories; // the same of names
    int Lock[Locks];                       // handles; 0 stands for none, like below 0
};
Recovery recovery;

// The file that changes go to, open as long as they go to the same.
struct Target {
    char Path[PathRoom];
    int Disk = DiskMissing;
    int Own; // opened here, not by the overlay
};
Target target;

int CloseTarget() {
    const int closed = target.Disk < 0 || !target.Own || DiskClose(target.Disk);
    target.Disk = DiskMissing;
    return closed;
}

int SyncPath(const char *plain) {
    char host[HostPathRoom];
    HostPath(host, plain);
    const int disk = DiskOpen(host, 0);
    if (disk == DiskMissing)
        return 1; // deleted or replaced since
    if (disk < 0)
        return 0;
    const int synced = DiskSync(disk);
    DiskClose(disk);
    return synced;
}

int SyncNames(const char *plain) {
    char host[HostPathRoom];
    HostPath(host, plain);
    return DiskSyncDirectory(host) || DiskKind(host) == 0;
}

// Remembers a path until the next sync; with the list full it is synced at once, which is slow and right.
template <int Count> int Remember(PathList<Count> *list, const char *plain, int (*sync)(const char *)) {
    for (int i = 0; i < list->Used; ++i)
        if (std::strcmp(list->Path[i], plain) == 0)
            return 1;
    if (list->Used == Count) {
        const int synced = sync(list->Path[--list->Used]);
        recovery.Doubtful |= !synced;
    }
    std::strcpy(list->Path[list->Used++], plain);
    return 1;
}

void RememberNameOf(const char *plain) {
    char directory[PathRoom];
    DirectoryOf(directory, plain);
    Remember(&recovery.Directories, directory, SyncNames);
}

int OpenTarget(const char *plain) {
    if (target.Disk >= 0 && std::strcmp(target.Path, plain) == 0)
        return 1;
    if (!CloseTarget())
        return 0;
    char host[HostPathRoom];
    HostPath(host, plain);
    target.Disk = DiskHeld(plain);
    target.Own = target.Disk < 0;
    if (target.Own)
        target.Disk = DiskOpen(host, 0);
    if (target.Disk == DiskMissing) {
        RememberNameOf(plain);
        target.Disk = DiskOpen(host, 1);
    }
    if (target.Disk < 0)
        return 0;
    std::strcpy(target.Path, plain);
    return Remember(&recovery.Files, plain, SyncPath);
}

int ApplyToDirectory(const ChangeView &change) {
    char host[HostPathRoom];
    HostPath(host, change.Path);
    RememberNameOf(change.Path);
    const bool makes = change.What == Change::MakeDirectory;
    return (makes ? DiskMakeDirectory(host) : DiskRemoveDirectory(host)) || DiskKind(host) == (makes ? 2 : 0);
}

int ApplyTake(const ChangeView &change) {
    char shadow[HostPathRoom], host[HostPathRoom];
    if (change.Bytes < 2 || change.Bytes > PathRoom || change.Data[change.Bytes - 1] != 0)
        return 0;
    HostPath(shadow, reinterpret_cast<const char *>(change.Data));
    HostPath(host, change.Path);
    RememberNameOf(change.Path);
    // A shadow and its name were durable before the journal spoke of it: one that is not there was taken before,
    // whatever became of the file since.
    return DiskRename(shadow, host) || DiskKind(shadow) == 0;
}

int ApplyDeletion(const ChangeView &change) {
    char host[HostPathRoom];
    HostPath(host, change.Path);
    RememberNameOf(change.Path);
    return CloseTarget() && (DiskDelete(host) || DiskKind(host) == 0);
}

// One change into the files. What was applied before may be applied again.
int ApplyChange(const ChangeView &change) {
    if (std::strlen(change.Path) >= PathRoom)
        return 0;
    switch (change.What) {
    case Change::Write:
        return OpenTarget(change.Path) && DiskWrite(target.Disk, change.Offset, change.Data, change.Bytes);
    case Change::Empty:
        return OpenTarget(change.Path) && DiskCut(target.Disk, 0);
    case Change::Length:
        return OpenTarget(change.Path) && DiskCut(target.Disk, change.Offset);
    case Change::Delete:
        return ApplyDeletion(change);
    case Change::Take:
        return ApplyTake(change);
    case Change::MakeDirectory:
    case Change::RemoveDirectory:
        return ApplyToDirectory(change);
    }
    return 0;
}

int ApplyAll(int (*changes)(int (*)(const ChangeView &))) {
    const int applied = changes(ApplyChange);
    return CloseTarget() && applied;
}

// --- The start

void RemoveShadowsIn(const char *plain, int depth) {
    char host[HostPathRoom], name[PathRoom], path[HostPathRoom + PathRoom];
    HostPath(host, plain);
    void *walk = DiskOpenWalk(host);
    while (walk && DiskNextName(walk, name, PathRoom) == 1) {
        if (std::snprintf(path, HostPathRoom, "%s/%s", host, name) >= HostPathRoom)
            continue;
        if (std::strncmp(name, ShadowPrefix, sizeof ShadowPrefix - 1) == 0) {
            static_cast<void>(DiskDelete(path)); // the next start tries again
        } else if (depth > 0 && DiskKind(path) == 2) {
            char below[PathRoom];
            if (std::snprintf(below, PathRoom, "%s\\%s", plain, name) < PathRoom)
                RemoveShadowsIn(below, depth - 1);
        }
    }
    if (walk)
        DiskCloseWalk(walk);
}

int Recover() {
    if (!ReadJournal())
        return 0;
    if (JournalBytes() > 0 && !ApplyAll(VisitJournal))
        return 0;
    RemoveShadowsIn(ProgramDirectory, 1);
    return JournalBytes() == 0 || SyncApplied();
}

void ForgetAll() {
    CloseTarget();
    ClearOverlay(0);
    CloseReplaced();
    CloseJournal();
    ForgetHistory();
    recovery.Recovered = recovery.Changeable = recovery.StandsIn = recovery.Doubtful = 0;
    recovery.Files.Used = recovery.Directories.Used = 0;
}

} // namespace

void ForgetRoot() {
    AbortAction();
    ForgetAll();
    for (int &lock : recovery.Lock) {
        if (lock > 0)
            DiskClose(lock);
        lock = 0;
    }
    recovery.Closed = recovery.Unlocked = 0;
}

int TakeLocks() {
    int taken = 1;
    for (int i = 0; i < Locks; ++i) {
        if (recovery.Lock[i] > 0)
            continue;
        char host[HostPathRoom];
        HostPath(host, LockedPaths[i]);
        recovery.Lock[i] = DiskLock(host);
        // The data directory of a first start has yet to be made, under the lock of the one above it.
        if (recovery.Lock[i] < 0 && (i == 0 || recovery.Lock[i] != DiskMissing))
            taken = recovery.Lock[i] == DiskBusy ? 0 : -1;
    }
    recovery.Unlocked = taken != 1;
    return taken;
}

int RecoverAnew() {
    AbortAction();
    ForgetAll();
    recovery.Recovered = !recovery.Unlocked && Recover();
    recovery.Closed = !recovery.Recovered;
    return recovery.Recovered;
}

int FilesMayBeRead() {
    if (!recovery.Recovered && !recovery.Closed) {
        recovery.Recovered = Recover();
        recovery.Closed = !recovery.Recovered;
    }
    return recovery.Recovered;
}

int ReadyForActions() {
    recovery.Changeable = 0;
    if (!FilesMayBeRead() || recovery.Unlocked)
        return 0;
    if (recovery.StandsIn) {
        if (!ApplyAll(VisitLastAction))
            return 0;
        recovery.StandsIn = 0;
        ClearOverlay(0);
    }
    if ((!JournalSound() || recovery.Doubtful) && !SyncApplied())
        return 0;
    recovery.Changeable = 1;
    return 1;
}

int FilesMayChange() {
    return recovery.Changeable;
}

int ApplyLastAction() {
    if (ApplyAll(VisitLastAction) || ApplyAll(VisitLastAction)) // a trouble that passes need not be anybody's
        return 1;
    recovery.StandsIn = 1;
    return 0;
}

int OverlayStandsIn() {
    return recovery.StandsIn;
}

int SyncApplied() {
    if (recovery.StandsIn)
        return 0;
    // After a failed sync the machine may have forgotten what was written, and say nothing the next time.
    if (recovery.Doubtful && !ApplyAll(VisitJournal))
        return 0;
    recovery.Doubtful = 1;
    for (int i = 0; i < recovery.Files.Used; ++i)
        if (!SyncPath(recovery.Files.Path[i]))
            return 0;
    for (int i = 0; i < recovery.Directories.Used; ++i)
        if (!SyncNames(recovery.Directories.Path[i]))
            return 0;
    recovery.Doubtful = 0;
    if (!CutJournal())
        return 0;
    CloseReplaced();
    recovery.Files.Used = recovery.Directories.Used = 0;
    return 1;
}

int AllSynced() {
    return !recovery.StandsIn && !recovery.Doubtful && JournalSound() && JournalBytes() == 0;
}
