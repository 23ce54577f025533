#include "power.h"
#include "test_host.h"
#include <fcntl.h>
#include <filesystem>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace testhost {

namespace {

using Content = std::vector<uint8_t>;

Ending ending;
std::string watched;
int calls;
std::map<ino_t, Content> durable; // bytes of each file at its last sync
struct Entry {
    ino_t Inode;
    bool IsDirectory;
};
std::map<ino_t, std::map<std::string, Entry>> durableNames; // of each directory at its last sync

ino_t InodeOf(const std::string &path) {
    struct stat about;
    return stat(path.c_str(), &about) == 0 ? about.st_ino : 0;
}

void TakeNames(const std::string &directory) {
    auto &names = durableNames[InodeOf(directory)];
    names.clear();
    for (const fs::directory_entry &entry : fs::directory_iterator(directory))
        names[entry.path().filename().string()] = {InodeOf(entry.path().string()), entry.is_directory()};
}

std::map<std::string, ino_t> NamesNow() {
    std::map<std::string, ino_t> names;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(watched))
        if (entry.is_regular_file())
            names[entry.path().string()] = InodeOf(entry.path().string());
    return names;
}

// The files that the names on the disk for good lead to, and the directories.
void FollowNames(const std::string &path, ino_t inode, std::map<std::string, ino_t> *files,
                 std::set<fs::path> *places) {
    places->insert(path);
    for (const auto &[name, entry] : durableNames[inode])
        if (entry.IsDirectory)
            FollowNames(path + "/" + name, entry.Inode, files, places);
        else
            (*files)[path + "/" + name] = entry.Inode;
}

bool Goes(unsigned number) {
    return (number * 2654435761U + ending.Seed * 40503U) >> 16 & 1;
}

// The pages of both: each of one or the other.
Content Mixed(const Content &old, const Content &present, unsigned file) {
    constexpr size_t Page = 4096;
    Content mixed = Goes(file * 977U) ? old : present;
    for (size_t at = 0; at < mixed.size(); at += Page) {
        const Content &from = Goes(file + static_cast<unsigned>(at / Page)) ? old : present;
        for (size_t byte = at; byte < at + Page && byte < mixed.size(); ++byte)
            mixed[byte] = byte < from.size() ? from[byte] : 0;
    }
    return mixed;
}

void WriteInPlace(const std::string &path, const Content &content) {
    fs::create_directories(fs::path(path).parent_path());
    WriteBytes(path, content);
}

void LosePower() {
    if (ending.Unsynced == Bytes::Stay && ending.Renamed == Names::Stay)
        return;
    const std::map<std::string, ino_t> now = NamesNow();
    std::map<ino_t, Content> present;
    for (const auto &[path, file] : now)
        present[file] = ReadBytes(path);
    std::map<std::string, ino_t> names = now;
    std::set<fs::path> places;
    if (ending.Renamed == Names::Go) {
        names.clear();
        FollowNames(watched, InodeOf(watched), &names, &places);
    }
    std::map<std::string, Content> left;
    unsigned number = 0;
    for (const auto &[path, file] : names) {
        ++number;
        const Content &old = durable[file];
        const Content &last = present.count(file) ? present[file] : old;
        const bool gone = ending.Unsynced == Bytes::Go || (ending.Unsynced == Bytes::ByFile && Goes(number));
        left[path] = ending.Unsynced == Bytes::ByPage ? Mixed(old, last, number) : gone ? old : last;
    }
    for (const auto &[path, file] : now)
        if (!left.count(path))
            fs::remove(path);
    for (const auto &[path, content] : left)
        WriteInPlace(path, content);
    if (ending.Renamed == Names::Stay)
        return;
    std::set<fs::path> extra;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(watched))
        if (entry.is_directory() && !places.count(entry.path()))
            extra.insert(entry.path());
    for (const fs::path &path : extra)
        fs::remove_all(path);
    for (const fs::path &path : places)
        fs::create_directories(path);
}

} // namespace

void WatchPower(const std::string &hostDirectory, const Ending &how) {
    watched = hostDirectory;
    ending = how;
    calls = 0;
    durable.clear();
    durableNames.clear();
    if (watched.empty())
        return;
    for (const auto &[path, file] : NamesNow())
        durable[file] = ReadBytes(path);
    TakeNames(watched);
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(watched))
        if (entry.is_directory())
            TakeNames(entry.path().string());
}

int PowerCalls() {
    return calls;
}

bool EndsHere() {
    return !watched.empty() && ++calls == ending.At;
}

void EndHere() {
    LosePower();
    _exit(DiedExitCode);
}

long long TornAt(long long offset, long long bytes) {
    if (ending.How == Tear::AtOddByte)
        return bytes / 2 | (bytes > 1);
    if (ending.How == Tear::Before)
        return 0;
    const long long page = (offset + bytes / 2) / 4096 * 4096;
    return page > offset ? page - offset : 0;
}

void NoteSync(int handle) {
    if (watched.empty() || ending.At == 0)
        return;
    struct stat about;
    fstat(handle, &about);
    Content content(static_cast<size_t>(about.st_size));
    if (pread(handle, content.data(), content.size(), 0) == about.st_size)
        durable[about.st_ino] = content;
}

void NoteDirectorySync(const char *hostDirectory) {
    if (!watched.empty() && ending.At != 0 && fs::is_directory(hostDirectory))
        TakeNames(hostDirectory);
}

void KeepInode(const char *path) {
    if (!watched.empty() && ending.At != 0)
        static_cast<void>(open(path, O_PATH | O_CLOEXEC)); // until the process ends
}

void RestoreFiles(const std::string &hostDirectory, const std::string &copy) {
    for (const auto &[path, content] : [&] {
             std::map<std::string, Content> files;
             for (const fs::directory_entry &entry : fs::recursive_directory_iterator(copy))
                 if (entry.is_regular_file())
                     files[fs::relative(entry.path(), copy).string()] = ReadBytes(entry.path().string());
             return files;
         }())
        WriteInPlace(hostDirectory + "/" + path, content);
    std::vector<fs::path> extra;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(hostDirectory))
        if (entry.is_regular_file() && !fs::exists(fs::path(copy) / fs::relative(entry.path(), hostDirectory)))
            extra.push_back(entry.path());
    for (const fs::path &path : extra)
        fs::remove(path);
}

} // namespace testhost
