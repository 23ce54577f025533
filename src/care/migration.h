// Taking over the data of the generation before: shorter records in files without a prefix, in a directory of their
// own, which stays as it is.
#pragma once

#include "records/records.h"

// 1 when the older directory holds at least one file of the older generation; the error log alone is none.
int OldDataThere();

// Converts every file of the older directory into the data directory. Returns how many were converted. Within an action
// the directory exists and is empty, and all of it or nothing is done; outside any, each file is one, a file that can't
// be read is reported and skipped, and the directory comes with the first that can.
int MigrateDataDirectory();

// 1 when every old file can be read to its end. A failed read would refuse an action, so that with 0 the files are
// converted one by one.
int OldDataReadable();

// One file by its old name, such as "A7": a missing or empty one is skipped, a partial last record ignored. 1 when
// something was written, 0 otherwise.
int ConvertFile(FileKind kind, const char *fileName);

// One record, field by field; what the older generation did not know is zero or has its default. `old` holds
// OldRecordSize(kind) bytes, `record` takes RecordSize(kind).
void ConvertRecord(FileKind kind, const uint8_t *old, uint8_t *record);

// 0 for a kind that the older generation did not know.
int OldRecordSize(FileKind kind);
