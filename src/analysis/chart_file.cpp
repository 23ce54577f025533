#include "analysis/chart_file.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include <cstdio>

namespace {

constexpr int64_t Size = sizeof(GRec);

void ChartPath(char *to) {
    std::snprintf(to, PathRoom, "%s\\CHART", DataDirectory);
}

} // namespace

int OpenChart() {
    char path[PathRoom];
    ChartPath(path);
    const int file = OpenFile(path, OpenOrCreate);
    if (file < 0)
        ReportError(In::ModRecFile, Trouble::FcreateFail);
    return file;
}

int RemoveChart() {
    char path[PathRoom];
    ChartPath(path);
    return !FileThere(path) || DeleteFileAt(path);
}

int32_t CountChart(int file) {
    return static_cast<int32_t>(FileLength(file) / Size);
}

int32_t ReadChart(int file, int32_t first, int32_t most, GRec *segments) {
    return static_cast<int32_t>(ReadFileAt(file, (first - 1) * Size, segments, most * Size) / Size);
}

int WriteChart(int file, int32_t first, int32_t count, const GRec *segments) {
    return WriteFileAt(file, (first - 1) * Size, segments, count * Size);
}

int CutChart(int file, int32_t count) {
    return CutFile(file, count * Size);
}
