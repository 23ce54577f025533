#include "state/error_log.h"
#include "platform/cause.h"
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
constexpr int LineRoom = 160, CauseRoom = 640;
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

// 1 the first time that the terminal is to read of a cause.
int IsNewCause(const char *cause) {
    uint64_t sum = 14695981039346656037U;
    for (; *cause; ++cause)
        sum = (sum ^ static_cast<uint8_t>(*cause)) * 1099511628211U;
    sum |= 1;
    for (uint64_t &told : state.CauseTold) {
        if (told == sum)
            return 0;
        if (told == 0) {
            told = sum;
            return 1;
        }
    }
    return 0;
}

// One trouble of the disk shows in many places; the owner reads it once, with the directory and the cause where the
// machine knows them.
void TellOnce(Trouble error, const char *line) {
    char cause[CauseRoom];
    if (IsOfFiles(error) && FindCause(DataPath, cause, CauseRoom)) {
        if (!IsNewCause(cause))
            return;
        char told[CauseRoom + LineRoom];
        std::snprintf(told, sizeof told, "the data can't be kept: %s (%s)", cause, line);
        TellTerminal(told);
        return;
    }
    const uint32_t bit = 1U << (static_cast<unsigned>(error) & 31U);
    if (state.TroubleTold & bit)
        return;
    state.TroubleTold |= bit;
    TellTerminal(line);
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
    TellOnce(error, line);
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
