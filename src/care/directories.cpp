#include "care/directories.h"
#include "care/pause.h"
#include "platform/files.h"
#include "state/state.h"
#include <algorithm>
#include <cstdio>
#include <cstring>

namespace {

constexpr char Top[] = "/"; // of the host

// The path of the device root from the host's own, with a '\' at its end.
int RootFromTop(char *to) {
    const int length = std::snprintf(to, PathRoom, "%s\\", DeviceRoot());
    if (length >= PathRoom || to[0] != '/')
        return 0;
    for (char *unit = to + 1; *unit; ++unit)
        if (*unit == '/')
            *unit = '\\';
    return 1;
}

bool ByName(uint16_t a, uint16_t b) {
    return std::strcmp(state.DirectoryNames + a, state.DirectoryNames + b) < 0;
}

// Directories beyond what the block holds are left out; a directory that can't be read shows none.
void ListDirectories() {
    FileWalk walk;
    char name[PathRoom], path[PathRoom * 2];
    int used = 0;
    state.DirectoryCount = 0;
    FindNames(&walk, state.BrowsePath, "");
    while (FindNextName(&walk, name, sizeof name)) {
        const int bytes = static_cast<int>(std::strlen(name)) + 1;
        std::snprintf(path, sizeof path, "%s%s", state.BrowsePath, name);
        if (state.DirectoryCount == MostDirectories || used + bytes > DirectoryNamesRoom || DirectoryThere(path) != 1)
            continue;
        std::memcpy(state.DirectoryNames + used, name, static_cast<size_t>(bytes));
        state.DirectoryName[state.DirectoryCount++] = static_cast<uint16_t>(used);
        used += bytes;
    }
    EndFind(&walk);
    static_assert(DirectoryNamesRoom <= UINT16_MAX);
    std::sort(state.DirectoryName, state.DirectoryName + state.DirectoryCount, ByName);
}

// A way through the host to the device root ends in the device's own path: what belongs to the data is known by it.
void Show(const char *path) {
    char root[PathRoom];
    const size_t length = RootFromTop(root) ? std::strlen(root) : 0;
    if (length > 0 && std::strncmp(path, root, length) == 0)
        std::snprintf(state.BrowsePath, sizeof state.BrowsePath, "\\%s", path + length);
    else
        std::snprintf(state.BrowsePath, sizeof state.BrowsePath, "%s", path);
    const int paused = PauseAction(); // a directory that the owner may not read is no trouble with the data
    ListDirectories();
    ResumeAction(paused);
}

} // namespace

void ShowDeviceRoot() {
    Show("\\");
}

const char *DirectoryNameAt(int index) {
    return index >= 0 && index < state.DirectoryCount ? state.DirectoryNames + state.DirectoryName[index] : "";
}

int ChosenDirectory(char *to, int index) {
    const char *name = DirectoryNameAt(index);
    return std::snprintf(to, PathRoom, "%s%s%s", state.BrowsePath, name, *name ? "\\" : "") < PathRoom;
}

int EnterDirectory(int index) {
    char path[PathRoom];
    if (!*DirectoryNameAt(index) || !ChosenDirectory(path, index))
        return 0;
    Show(path);
    return 1;
}

int LeaveDirectory() {
    char path[PathRoom];
    if (std::strcmp(state.BrowsePath, Top) == 0)
        return 0;
    if (std::strcmp(state.BrowsePath, "\\") != 0)
        std::strcpy(path, state.BrowsePath);
    else if (!RootFromTop(path))
        return 0;
    path[std::strlen(path) - 1] = 0;
    char *separator = std::strrchr(path, '\\');
    if (separator)
        separator[1] = 0;
    else
        path[1] = 0; // the top
    Show(path);
    return 1;
}
