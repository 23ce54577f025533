// The disk of the tests: real files, and switches that make it fail.
#include "platform/disk.h"
#include "power.h"
#include "test_host.h"
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace testhost {

Disk disk;
static std::set<int> dataHandles;

void ResetDisk() {
    const int open = disk.OpenHandles;
    disk = Disk{};
    disk.OpenHandles = open;
}

static bool Meets(int number, int failing) {
    return failing != 0 && (disk.Switches.FailOnward ? number >= failing : number == failing);
}

// Counts a write-like call, ends the process when its number has come, and says whether the call may go on.
static bool MayWriteOn();
static bool MayWrite() {
    if (EndsHere())
        EndHere();
    return MayWriteOn();
}

static bool MayWriteOn() {
    const int number = ++disk.WriteCalls;
    if (number == disk.Switches.DieAt)
        _exit(DiedExitCode);
    return !disk.Switches.Unwritable && !Meets(number, disk.Switches.FailAt);
}

static bool MayOpen() {
    return !Meets(++disk.Opens, disk.Switches.FailOpen);
}

static bool WriteWhole(int handle, int64_t offset, const uint8_t *bytes, int64_t count) {
    while (count > 0) {
        const ssize_t done = pwrite(handle, bytes, static_cast<size_t>(count), offset);
        if (done <= 0)
            return false;
        bytes += done;
        offset += done;
        count -= done;
    }
    return true;
}

static int KindOf(const char *path) {
    struct stat about;
    if (stat(path, &about) != 0)
        return errno == ENOENT || errno == ENOTDIR ? 0 : -1;
    return S_ISDIR(about.st_mode) ? 2 : 1;
}

static bool IsJournal(const char *path) {
    const char *name = strrchr(path, '/');
    return name && strcmp(name, "/E1_Journal") == 0;
}

} // namespace testhost

using namespace testhost;

int DiskOpen(const char *path, int create) {
    if (!MayOpen())
        return DiskRefused;
    const int kind = KindOf(path);
    if (kind == 0 && !create)
        return DiskMissing;
    if (kind == 2 || kind < 0 || (kind == 0 && !MayWrite()))
        return DiskRefused;
    const int handle = open(path, create ? O_RDWR | O_CREAT | O_CLOEXEC : O_RDWR | O_CLOEXEC, 0644);
    if (handle < 0)
        return DiskRefused;
    if (!IsJournal(path)) {
        ++disk.OpenHandles;
        ++disk.FilesOpened;
        ++disk.OpensOf[strrchr(path, '/') + 1];
        dataHandles.insert(handle);
    }
    return handle;
}

int DiskClose(int handle) {
    if (handle < 0 || close(handle) != 0)
        return 0;
    disk.OpenHandles -= static_cast<int>(dataHandles.erase(handle));
    return 1;
}

int64_t DiskRead(int handle, int64_t offset, void *buffer, int64_t bytes) {
    if (Meets(++disk.Reads, disk.Switches.FailRead))
        return -1;
    int64_t done = 0;
    while (done < bytes) {
        const ssize_t part =
            pread(handle, static_cast<uint8_t *>(buffer) + done, static_cast<size_t>(bytes - done), offset + done);
        if (part < 0)
            return -1;
        if (part == 0)
            break;
        done += part;
    }
    return done;
}

static int64_t LengthOf(int handle) {
    struct stat about;
    return fstat(handle, &about) == 0 ? about.st_size : -1;
}

int DiskWrite(int handle, int64_t offset, const void *buffer, int64_t bytes) {
    const auto *data = static_cast<const uint8_t *>(buffer);
    disk.DataWrites += static_cast<int>(dataHandles.count(handle));
    if (EndsHere()) {
        WriteWhole(handle, offset, data, TornAt(offset, bytes));
        EndHere();
    }
    if (!MayWriteOn()) {
        if (disk.Switches.TearWrite)
            WriteWhole(handle, offset, data, bytes / 2);
        return 0;
    }
    if (disk.Switches.Full && offset + bytes > LengthOf(handle)) {
        WriteWhole(handle, offset, data, std::max<int64_t>(0, LengthOf(handle) - offset));
        return 0;
    }
    return WriteWhole(handle, offset, data, bytes);
}

int64_t DiskLength(int handle) {
    return LengthOf(handle);
}

int DiskCut(int handle, int64_t length) {
    if (!MayWrite())
        return 0;
    if (disk.Switches.Full && length > LengthOf(handle))
        return 0;
    return ftruncate(handle, length) == 0;
}

int DiskReserve(int handle, int64_t offset, int64_t bytes) {
    if (Meets(++disk.Reserves, disk.Switches.FailReserve) || disk.Switches.Unwritable)
        return 0;
    return !disk.Switches.Full || offset + bytes <= LengthOf(handle);
}

int DiskCopy(int from, int to, int64_t offset, int64_t bytes) {
    std::vector<uint8_t> whole(static_cast<size_t>(bytes));
    return DiskRead(from, offset, whole.data(), bytes) == bytes && DiskWrite(to, offset, whole.data(), bytes);
}

void DiskHasten(int, int64_t, int64_t) {}

int DiskSync(int handle) {
    if (EndsHere())
        EndHere();
    if (Meets(++disk.Syncs, disk.Switches.FailSync))
        return 0;
    NoteSync(handle);
    return 1;
}

int DiskSyncDirectory(const char *path) {
    if (EndsHere())
        EndHere();
    NoteDirectorySync(path);
    return !Meets(++disk.Syncs, disk.Switches.FailSync) && KindOf(path) == 2;
}

int DiskRename(const char *from, const char *to) {
    KeepInode(to);
    return MayWrite() && rename(from, to) == 0;
}

int DiskDelete(const char *path) {
    KeepInode(path);
    return MayWrite() && unlink(path) == 0;
}

int DiskMakeDirectory(const char *path) {
    return MayWrite() && !disk.Switches.Full && mkdir(path, 0755) == 0;
}

int DiskRemoveDirectory(const char *path) {
    KeepInode(path);
    return MayWrite() && rmdir(path) == 0;
}

int DiskKind(const char *path) {
    return MayOpen() ? KindOf(path) : -1;
}

void *DiskOpenWalk(const char *path) {
    return MayOpen() ? opendir(path) : nullptr;
}

int DiskNextName(void *walk, char *name, int room) {
    while (walk) {
        if (Meets(++disk.Reads, disk.Switches.FailRead))
            return -1;
        const dirent *entry = readdir(static_cast<DIR *>(walk));
        if (!entry)
            return 0;
        const std::string found = entry->d_name;
        if (found == "." || found == "..")
            continue;
        snprintf(name, static_cast<size_t>(room), "%s", entry->d_name);
        return 1;
    }
    return 0;
}

void DiskCloseWalk(void *walk) {
    if (walk)
        closedir(static_cast<DIR *>(walk));
}

int DiskLock(const char *directory) {
    if (disk.Switches.Busy)
        return DiskBusy;
    const int handle = open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return errno == ENOENT ? DiskMissing : DiskRefused;
    if (flock(handle, LOCK_EX | LOCK_NB) == 0)
        return handle;
    close(handle);
    return DiskBusy;
}
