// Reads OFX files, and the older OFC.
#pragma once

#include "exchange/batch.h"
#include "exchange/text_lines.h"

// Reads the entries of an open file into the batch, with the bank's identity in FITID. KindSettled is set, and the kind
// that of a bank, when the body has no closing tag.
void ReadOfx(TextFile *text, const ImportTask &task, ImportBatch *batch);

// A bank's identity as it is kept and compared: right aligned in 30 units, deliberately with the blanks before it; of
// one of 32 units or more the first 16 and the last 15.
void KeepIdentity(char16_t (&to)[TextRoom], const char *value);
