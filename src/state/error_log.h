// The channel for trouble: a beep, a line in the log file and on the terminal. The caller then carries on.
#pragma once

#include "resources/error_names.h"
#include <cstdint>

// Appends "%s %s %s\n" (short date and time, function, error) to ZentErrorLog.txt in the directory
// "\Program Files\Zentrik\Data"; the line is lost when that directory is missing. The terminal
// reads of each trouble once: with the directory and the cause where the machine knows them. Returns 1.
int ReportError(In function, Trouble error);

// A line "<%s>" in AAAtrace.txt: the names of damaged records. TraceWide takes at most 32 units of the text.
void TraceWide(const char16_t *text);
void TraceNarrow(const char *text);

// A record of another version among the rows shown: a beep, and its name in the trace.
void ReportDamagedRow(const char16_t *name);
