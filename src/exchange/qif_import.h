// Reads QIF files.
#pragma once

#include "exchange/batch.h"
#include "exchange/text_lines.h"

// Reads the entries of an open file into the batch. A file without a useful header, or of content that does not suit
// the account, leaves Accepted 0 and all its entries unreadable. Shares suit an empty account of money, which is then
// to become a share account, and money an empty share account.
void ReadQif(TextFile *text, const ImportTask &task, ImportBatch *batch);

inline constexpr int SecurityRoom = 65; // units, terminator included
// Calls `add` for the security of each entry of an open file; one may come many times. 0 when it is no file of shares.
int ReadSecurities(TextFile *text, void (*add)(const char16_t *security, void *context), void *context);
