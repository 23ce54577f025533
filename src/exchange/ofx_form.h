// An OFX file as banks write it, brought into the form that its reader expects: one tag a line with its value behind
// it, as "<NAME>Rent". What goes: everything before the body; comments, declarations and instructions; blanks around
// values; the closing tag of a value; what stands in a tag behind its name, and the name of a space before it; tags
// whose names only begin with the name of one that the reader knows. What is joined: a value that stands on the lines
// after its tag. What is turned: tags to capitals; character entities to their characters; dates with marks between
// their parts to digits alone.
#pragma once

#include "exchange/text_lines.h"

inline constexpr int TagRoom = 32, ValueRoom = 211;

struct OfxForm {
    TextFile *Text;
    int Unit, Ahead; // the present unit and the next, -1 at the end of the file
    char Tag[TagRoom];
    char Value[ValueRoom];
    char LastValued[TagRoom]; // the tag before, when it had a value: its closing tag goes
};

void StartOfx(OfxForm *form, TextFile *text);
// The next line, as Tag and Value. 0 at the end of the file.
[[nodiscard]] int NextOfxLine(OfxForm *form);
