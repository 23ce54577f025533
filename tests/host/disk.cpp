// The disk of the tests: real files, and switches that make it fail.
#include "platform/disk.h"
#include "test_host.h"
#include <algorithm>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace testhost {

Disk disk;

void ResetDisk() {
    const int open = disk.OpenHandles;
    disk = Disk{};
    disk.OpenHandles = open;
}

// Counts a write-like call, ends the process when its number has come, and says whether the call may go on.
static bool MayWrite() {
    const int number = ++disk.WriteCalls;
    const DiskSwitches &switches = disk.Switches;
    if (number == switches.DieAt)
        _exit(DiedExitCode);
    if (switches.Unwritable)
        return false;
    if (switches.FailAt == 0)
        return true;
    return switches.FailOnward ? number < switches.FailAt : number != switches.FailAt;
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

} // namespace testhost

using namespace testhost;

int DiskOpen(const char *path, int create) {
    const bool makes = create && DiskKind(path) == 0;
    if (makes && !MayWrite())
        return -1;
    if (!create && DiskKind(path) != 1)
        return -1;
    const int handle = open(path, makes ? O_RDWR | O_CREAT | O_CLOEXEC : O_RDWR | O_CLOEXEC, 0644);
    if (handle >= 0)
        ++disk.OpenHandles;
    return handle;
}

int DiskClose(int handle) {
    if (handle < 0 || close(handle) != 0)
        return 0;
    --disk.OpenHandles;
    return 1;
}

int64_t DiskRead(int handle, int64_t offset, void *buffer, int64_t bytes) {
    int64_t done = 0;
    while (done < bytes) {
        const ssize_t part =
            pread(handle, static_cast<uint8_t *>(buffer) + done, static_cast<size_t>(bytes - done), offset + done);
        if (part <= 0)
            break;
        done += part;
    }
    return done;
}

int DiskWrite(int handle, int64_t offset, const void *buffer, int64_t bytes) {
    const auto *data = static_cast<const uint8_t *>(buffer);
    if (!MayWrite()) {
        if (disk.Switches.TearWrite)
            WriteWhole(handle, offset, data, bytes / 2);
        return 0;
    }
    if (disk.Switches.Full && offset + bytes > DiskLength(handle)) {
        WriteWhole(handle, offset, data, std::max<int64_t>(0, DiskLength(handle) - offset));
        return 0;
    }
    return WriteWhole(handle, offset, data, bytes);
}

int64_t DiskLength(int handle) {
    struct stat about;
    return fstat(handle, &about) == 0 ? about.st_size : 0;
}

int DiskCut(int handle, int64_t length) {
    if (!MayWrite())
        return 0;
    if (disk.Switches.Full && length > DiskLength(handle))
        return 0;
    return ftruncate(handle, length) == 0;
}

int DiskSync(int) {
    ++disk.Syncs;
    return 1;
}

int DiskRename(const char *from, const char *to) {
    return MayWrite() && rename(from, to) == 0;
}

int DiskDelete(const char *path) {
    return MayWrite() && unlink(path) == 0;
}

int DiskMakeDirectory(const char *path) {
    return MayWrite() && !disk.Switches.Full && mkdir(path, 0755) == 0;
}

int DiskRemoveDirectory(const char *path) {
    return MayWrite() && rmdir(path) == 0;
}

int DiskKind(const char *path) {
    struct stat about;
    if (stat(path, &about) != 0)
        return 0;
    return S_ISDIR(about.st_mode) ? 2 : 1;
}

void *DiskOpenWalk(const char *path) {
    return opendir(path);
}

int DiskNextName(void *walk, char *name, int room) {
    while (walk) {
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
