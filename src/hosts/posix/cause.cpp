// cause.h by asking the machine what it would allow.
#include "platform/cause.h"
#include "platform/files.h"
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

int Say(char *to, int room, const char *path, int error) {
    std::snprintf(to, static_cast<size_t>(room), "%s: %s", path, std::strerror(error));
    return 1;
}

// The first file of a directory that can't be read and written; 0 when all can.
int FindFile(const char *directory, char *to, int room) {
    DIR *const walk = opendir(directory);
    if (!walk)
        return Say(to, room, directory, errno);
    int found = 0;
    while (const dirent *entry = found ? nullptr : readdir(walk)) {
        char path[2 * PathRoom + 256];
        std::snprintf(path, sizeof path, "%s/%s", directory, entry->d_name);
        struct stat about;
        if (stat(path, &about) == 0 && S_ISREG(about.st_mode) && access(path, R_OK | W_OK) != 0)
            found = Say(to, room, path, errno);
    }
    closedir(walk);
    return found;
}

} // namespace

int FindCause(const char *directory, char *to, int room) {
    char path[2 * PathRoom];
    std::snprintf(path, sizeof path, "%s", DeviceRoot());
    size_t length = std::strlen(path);
    for (const char *at = directory;; ++at) {
        struct stat about;
        if ((*at == '\\' || *at == 0) && stat(path, &about) != 0) {
            // Nobody could make it either, when the directory above it is closed.
            const int error = errno;
            char *const name = std::strrchr(path, '/');
            if (error == ENOENT && name && name != path) {
                *name = 0;
                if (access(path, W_OK | X_OK) != 0)
                    return Say(to, room, path, errno);
                *name = '/';
            }
            return Say(to, room, path, error);
        }
        if (*at == 0)
            break;
        if (length + 2 < sizeof path) {
            path[length++] = *at == '\\' ? '/' : *at;
            path[length] = 0;
        }
    }
    if (access(path, R_OK | W_OK | X_OK) != 0)
        return Say(to, room, path, errno);
    struct statvfs disk;
    if (statvfs(path, &disk) == 0 && disk.f_bavail == 0)
        return Say(to, room, path, ENOSPC);
    return FindFile(path, to, room);
}
