// disk.h on a POSIX machine. A handle is a file descriptor. Calls that a signal interrupted are made again.
#include "platform/disk.h"
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// Money is nobody else's business: files and directories are made for their owner alone.
constexpr mode_t FileMode = 0600, DirectoryMode = 0700;

template <typename Call> auto Retry(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace

int DiskOpen(const char *path, int create) {
    const int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK; // not blocked by a pipe that bears a file's name
    const auto opened = [&](int more) { return Retry([&] { return open(path, flags | more, FileMode); }); };
    int handle = opened(create ? O_RDWR | O_CREAT : O_RDWR);
    if (handle < 0 && (errno == EACCES || errno == EROFS || errno == EPERM))
        handle = opened(O_RDONLY);
    if (handle < 0)
        return errno == ENOENT || errno == ENOTDIR ? DiskMissing : DiskRefused;
    struct stat about;
    if (fstat(handle, &about) != 0 || !S_ISREG(about.st_mode)) {
        close(handle);
        return DiskRefused;
    }
    return handle;
}

int DiskClose(int handle) {
    return close(handle) == 0;
}

int64_t DiskRead(int handle, int64_t offset, void *buffer, int64_t bytes) {
    char *to = static_cast<char *>(buffer);
    int64_t done = 0;
    while (done < bytes) {
        const ssize_t part =
            Retry([&] { return pread(handle, to + done, static_cast<size_t>(bytes - done), offset + done); });
        if (part < 0)
            return -1;
        if (part == 0)
            break;
        done += part;
    }
    return done;
}

int DiskWrite(int handle, int64_t offset, const void *buffer, int64_t bytes) {
    const char *from = static_cast<const char *>(buffer);
    int64_t done = 0;
    while (done < bytes) {
        const ssize_t part =
            Retry([&] { return pwrite(handle, from + done, static_cast<size_t>(bytes - done), offset + done); });
        if (part <= 0)
            return 0;
        done += part;
    }
    return 1;
}

int64_t DiskLength(int handle) {
    struct stat about;
    return fstat(handle, &about) == 0 ? about.st_size : -1;
}

int DiskCut(int handle, int64_t length) {
    return length >= 0 && Retry([&] { return ftruncate(handle, length); }) == 0;
}

int DiskReserve(int handle, int64_t offset, int64_t bytes) {
    if (Retry([&] { return fallocate(handle, FALLOC_FL_KEEP_SIZE, offset, bytes); }) == 0)
        return 1;
    return errno == EOPNOTSUPP || errno == ENOSYS;
}

int DiskCopy(int from, int to, int64_t offset, int64_t bytes) {
    off_t source = offset, target = offset;
    const off_t end = offset + bytes;
    while (source < end) {
        const ssize_t part =
            Retry([&] { return copy_file_range(from, &source, to, &target, static_cast<size_t>(end - source), 0); });
        if (part <= 0)
            break;
    }
    static char buffer[1 << 16];
    while (source < end) { // between file systems, or where the machine has no such call
        const int64_t wanted = end - source < static_cast<off_t>(sizeof buffer) ? end - source : sizeof buffer;
        if (DiskRead(from, source, buffer, wanted) != wanted || !DiskWrite(to, source, buffer, wanted))
            return 0;
        source += wanted;
    }
    return 1;
}

void DiskHasten(int handle, int64_t offset, int64_t bytes) {
    static_cast<void>(sync_file_range(handle, offset, bytes, SYNC_FILE_RANGE_WRITE));
}

int DiskSync(int handle) {
    return Retry([&] { return fdatasync(handle); }) == 0;
}

int DiskSyncDirectory(const char *path) {
    const int directory = Retry([&] { return open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (directory < 0)
        return 0;
    const int synced = Retry([&] { return fsync(directory); }) == 0;
    close(directory);
    return synced;
}

int DiskRename(const char *from, const char *to) {
    return rename(from, to) == 0;
}
int DiskDelete(const char *path) {
    return unlink(path) == 0;
}
int DiskMakeDirectory(const char *path) {
    return mkdir(path, DirectoryMode) == 0;
}
int DiskRemoveDirectory(const char *path) {
    return rmdir(path) == 0;
}

int DiskKind(const char *path) {
    struct stat about;
    if (stat(path, &about) != 0)
        return errno == ENOENT || errno == ENOTDIR ? 0 : -1;
    return S_ISDIR(about.st_mode) ? 2 : 1;
}

void *DiskOpenWalk(const char *path) {
    return opendir(path);
}

int DiskNextName(void *walk, char *name, int room) {
    if (!walk || room < 1)
        return 0;
    for (;;) {
        errno = 0;
        const dirent *entry = readdir(static_cast<DIR *>(walk));
        if (!entry)
            return errno == 0 ? 0 : -1;
        if (strcmp(entry->d_name, ".") == 0 || strcmp(entry->d_name, "..") == 0)
            continue;
        snprintf(name, static_cast<size_t>(room), "%s", entry->d_name);
        return 1;
    }
}

void DiskCloseWalk(void *walk) {
    if (walk)
        closedir(static_cast<DIR *>(walk));
}

int DiskLock(const char *directory) {
    const int handle = Retry([&] { return open(directory, O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (handle < 0)
        return errno == ENOENT ? DiskMissing : DiskRefused;
    if (Retry([&] { return flock(handle, LOCK_EX | LOCK_NB); }) == 0)
        return handle;
    const int busy = errno == EWOULDBLOCK;
    close(handle);
    return busy ? DiskBusy : DiskRefused;
}
