// Reads QIF files.
#pragma once

#include "exchange/batch.h"
#include "exchange/text_lines.h"

// Reads the entries of an open file into the batch. A file without a useful header, or of content that does not suit
// the account, leaves Accepted 0 and all its entries unreadable. Shares suit an empty account of money, which is then
// to become a share account, and money an empty share account.
void ReadQif(TextFile *text, const ImportTask &task, ImportBatch *batch);

inline constexpr int SecurityRoom = 65; // units, terminator included
inline constexpr int MostSecurities = 64;
struct SecurityList {
    int Count;
    char16_t Names[MostSecurities][SecurityRoom];
};
// The securities that an open file names, each once, in the order of the file. 0 when it is no file of shares.
int ReadSecurities(TextFile *text, SecurityList *list);
