#include "platform/paths.h"
#include "platform/journal.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr int RootRoom = HostPathRoom - PathRoom;
constexpr const char *TroublePaths[] = {"Program Files\\Zentrik\\Data\\ZentErrorLog.txt", "AAAtrace.txt"};

char Root[RootRoom];

} // namespace

void NameRoot(const char *hostDirectory) {
    std::snprintf(Root, RootRoom, "%s", hostDirectory);
}

const char *RootName() {
    return Root;
}

int PlainPath(char *to, const char *path) {
    while (*path == '\\')
        ++path;
    if (std::strlen(path) >= PathRoom - 1) // with its '\' it has to fit as well
        return 0;
    std::strcpy(to, path);
    for (size_t length = std::strlen(to); length > 0 && to[length - 1] == '\\'; --length)
        to[length - 1] = 0; // a directory's path may end with one
    return 1;
}

void HostPath(char *to, const char *plain) {
    std::snprintf(to, HostPathRoom, "%s/%s", Root, plain);
    for (char *unit = to + std::strlen(Root); *unit; ++unit)
        if (*unit == '\\')
            *unit = '/';
}

void DirectoryOf(char *to, const char *plain) {
    const char *end = std::strrchr(plain, '\\');
    const size_t length = end ? static_cast<size_t>(end - plain) : 0;
    std::memcpy(to, plain, length);
    to[length] = 0;
}

int TellsTrouble(const char *plain) {
    for (const char *path : TroublePaths)
        if (std::strcmp(plain, path) == 0)
            return 1;
    return 0;
}

int BelongsToActions(const char *plain) {
    constexpr size_t Length = sizeof ProgramDirectory - 1;
    if (std::strncmp(plain, ProgramDirectory, Length) != 0 || plain[Length] != '\\')
        return 0;
    const char *name = std::strrchr(plain, '\\') + 1;
    return !TellsTrouble(plain) && std::strcmp(plain, JournalPath) != 0 &&
           std::strncmp(name, ShadowPrefix, sizeof ShadowPrefix - 1) != 0;
}
