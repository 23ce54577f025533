// Fresh roots, and the bytes that stand in them.
#include "platform/files.h"
#include "state/state.h"
#include "test_host.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace testhost {

static constexpr char DataDirectory[] = "\\Program Files\\Zentrik\\E1_Data";

TestRoot::TestRoot() : removed(true) {
    char pattern[] = "/tmp/zentrik-test-XXXXXX";
    path = mkdtemp(pattern);
    ResetHost();
    ResetState();
    SetDeviceRoot(path.c_str());
}

TestRoot::TestRoot(const std::string &hostDirectory) : path(hostDirectory), removed(false) {
    ResetHost();
    ResetState();
    SetDeviceRoot(path.c_str());
}

TestRoot::~TestRoot() {
    ResetDisk();
    if (removed) {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
}

std::string TestRoot::HostPath(const std::string &devicePath) const {
    std::string below = devicePath;
    std::replace(below.begin(), below.end(), '\\', '/');
    return path + (below.empty() || below[0] == '/' ? "" : "/") + below;
}

std::string TestRoot::DataFile(const std::string &name) const {
    return HostPath(std::string(DataDirectory) + "\\" + name);
}

void TestRoot::MakeDataDirectory() const {
    fs::create_directories(HostPath(DataDirectory));
}

void Recuperate() {
    if (!SyncFiles())
        fprintf(stderr, "the files could not be brought to the disk\n");
    ResetDisk();
}

std::vector<uint8_t> ReadBytes(const std::string &hostPath) {
    std::ifstream file(hostPath, std::ios::binary | std::ios::ate);
    std::vector<uint8_t> bytes(file ? static_cast<size_t>(file.tellg()) : 0);
    file.seekg(0);
    file.read(reinterpret_cast<char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

void WriteBytes(const std::string &hostPath, const std::vector<uint8_t> &bytes) {
    std::ofstream file(hostPath, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

std::map<std::string, std::vector<uint8_t>> Snapshot(const std::string &hostDirectory) {
    std::map<std::string, std::vector<uint8_t>> files;
    std::error_code ignored;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(hostDirectory, ignored))
        if (entry.is_regular_file() && entry.path().filename() != "E1_Journal")
            files[fs::relative(entry.path(), hostDirectory).string()] = ReadBytes(entry.path().string());
    return files;
}

} // namespace testhost
