// A CSV file as other programs save it, brought into the form that its reader expects, line by line. What goes: empty
// lines, quotes around fields. What is turned: semicolons or tabs between fields to commas, and then decimal commas to
// points; commas within texts to semicolons, which stand for them; dates as in date_form.h.
#pragma once

#include "exchange/date_form.h"
#include "exchange/text_lines.h"

inline constexpr int CsvLineRoom = 1024;

struct CsvForm {
    TextFile *Text;
    DateOrder Order;
    char Line[CsvLineRoom];
};

void StartCsv(CsvForm *form, TextFile *text, DateOrder order);
// The next line, which stands until the next call. Null at the end.
char *NextCsvLine(CsvForm *form);
