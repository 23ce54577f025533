#include "state/error_log.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/state.h"
#include <cstdio>
#include <cstring>

namespace {

constexpr char ErrorLogPath[] = "\\Program Files\\Zentrik\\Data\\ZentErrorLog.txt";
constexpr char TracePath[] = "AAAtrace.txt";
constexpr char DataPath[] = "\\Program Files\\Zentrik\\E1_Data";
constexpr int LineRoom = 160;
constexpr int TracedUnits = 32;

template <int Count> const char *NameOf(const ErrorName (&names)[Count], uint8_t id) {
    for (const ErrorName &row : names)
        if (row.Id == id)
            return row.Name;
    return "";
}

// Whether the trouble is one of the files; others have no cause in a directory.
bool IsOfFiles(Trouble error) {
    return error != Trouble::CaseError && error != Trouble::WrongVersion && error != Trouble::LimitReached;
}

// The reporting path must not fail, so nobody asks how it went.
void AppendLine(const char *path, const char *line) {
    const int file = OpenFile(path, OpenOrCreate);
    if (file < 0)
        return;
    static_cast<void>(WriteFileAt(file, FileLength(file), line, static_cast<int64_t>(std::strlen(line))));
    ReleaseFile(file);
}

} // namespace

int ReportError(In function, Trouble error) {
    Beep();
    ClockTime now;
    ReadClock(&now);
    char date[32] = "", time[32] = "", line[LineRoom];
    WriteShortDate(date, sizeof date, &now);
    WriteShortTime(time, sizeof time, &now);
    const int length = std::snprintf(line, sizeof line - 1, "%s %s %s %s", date, time,
                                     NameOf(FunctionNames, static_cast<uint8_t>(function)),
                                     NameOf(TroubleNames, static_cast<uint8_t>(error)));
    TellTrouble(static_cast<int>(error), IsOfFiles(error) ? DataPath : nullptr, line);
    std::memcpy(line + length, "\n", 2);
    AppendLine(ErrorLogPath, line);
    return 1;
}

void TraceWide(const char16_t *text) {
    char16_t start[TracedUnits + 1];
    CopyText(start, TracedUnits + 1, text);
    char narrow[TracedUnits * 3 + 1];
    NarrowText(narrow, sizeof narrow, start);
    TraceNarrow(narrow);
}

void TraceNarrow(const char *text) {
    char line[LineRoom];
    std::snprintf(line, sizeof line, "<%.*s>\n", LineRoom - 4, text);
    AppendLine(TracePath, line);
}

void ReportDamagedRow(const char16_t *name) {
    Beep();
    TraceWide(state.CurrentKey == NoKey ? name : u""); // under a code no name goes into a plain file
}
