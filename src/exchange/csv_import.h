// Reads CSV files.
#pragma once

#include "exchange/batch.h"
#include "exchange/text_lines.h"

// Reads the lines of an open file into the batch. The case of the first record's type letter tells the content; when it
// does not suit the account and that is not empty, reading ends there with Accepted 0. Content stays Unknown when no
// record told it.
void ReadCsv(TextFile *text, const ImportTask &task, ImportBatch *batch);

inline constexpr int CsvFieldRoom = 1024;
// A line taken apart. Columns that the line does not have are empty.
struct CsvRecord {
    int32_t First, Second, Year; // of the date, as they stand
    char Title[CsvFieldRoom], Ref[CsvFieldRoom];
    int32_t Units;
    char Value[CsvFieldRoom], Total[CsvFieldRoom], Cleared[CsvFieldRoom], Type[CsvFieldRoom], Balance[CsvFieldRoom];
};
// Fields as a scan of nine columns counts them, 13 for a whole line and 10 at least; 0 for a line that can't be read.
int ScanCsvLine(const char *line, CsvRecord *record);
