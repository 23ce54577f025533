#include "power.h"
#include "test_host.h"
#include <filesystem>
#include <fstream>
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
std::map<std::string, ino_t> durableNames;

std::map<std::string, ino_t> NamesNow() {
    std::map<std::string, ino_t> names;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(watched)) {
        struct stat about;
        if (entry.is_regular_file() && stat(entry.path().c_str(), &about) == 0)
            names[entry.path().string()] = about.st_ino;
    }
    return names;
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
    std::map<std::string, Content> left;
    unsigned number = 0;
    for (const auto &[path, file] : ending.Renamed == Names::Stay ? now : durableNames) {
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
    durableNames = NamesNow();
    for (const auto &[path, file] : durableNames)
        durable[file] = ReadBytes(path);
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
    if (watched.empty() || ending.At == 0)
        return;
    const fs::path directory = hostDirectory;
    std::erase_if(durableNames, [&](const auto &name) { return fs::path(name.first).parent_path() == directory; });
    for (const auto &name : NamesNow())
        if (fs::path(name.first).parent_path() == directory)
            durableNames.insert(name);
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
