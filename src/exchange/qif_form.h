// A QIF file as banks and other programs write it, brought into the form that its reader expects, line by line.
// What goes: blanks around lines, inside dates and before amounts; lists (categories, classes, securities, prices and
// the like); account blocks; option and clear lines; comments; the dates of an entry's parts; an entry's end with
// nothing before it. What is added: an end that is missing before a header and at the end of the file. What is turned:
// the case of headers; dates that begin with the year or name the month, into the order of the other dates; amounts, as
// in amount_form.h.
#pragma once

#include "exchange/date_form.h"
#include "exchange/text_lines.h"

inline constexpr int QifLineRoom = 512;

// What is passed over: a list, the block of an account, or what stands behind one up to the next header, unless that
// begins with a date.
enum QifPassing : uint8_t { PassNothing, PassList, PassAccount, PassBehindAccount };

struct QifForm {
    TextFile *Text;
    DateOrder Order;   // Unknown: dates that need it are passed over
    uint8_t Passing;   // a QifPassing
    uint8_t Held;      // 1: Line is still to be given, behind an end
    uint8_t Open;      // 1: the entry has lines but no end yet
    uint8_t Split;     // 1: parts of the entry have begun
    uint8_t BadAmount; // 1: the line given last is an amount that can't be read for sure
    char Line[QifLineRoom];
    char End[2]; // a line of its own while Line is held
};

void StartQif(QifForm *form, TextFile *text, DateOrder order);
// The next line: a header "!Type:Bank", a letter and its text, or "^". It stands until the next call. Null at the end.
char *NextQifLine(QifForm *form);
// A line's letter as the reader takes it: "b" to "x" count as capitals.
char QifLetter(const char *line);
