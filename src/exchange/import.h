// Reads a text file in one of the formats for exchange into an account or its archive.
#pragma once

#include "exchange/qif_import.h"
#include "records/place.h"

// What an import came to. From 11 on the file's content does not suit the account.
enum ImportResult : int {
    ImportUnwritten = -1, // the account can't be read or written: the action is refused
    ImportFailed = 0,     // the file can't be read: nothing has changed
    ImportDone = 1,
    ImportUnknown = 10, // the file does not tell its content
    ImportMoney = 11,   // money, and the account holds shares
    ImportShares = 12,  // shares, and the account holds money
    ImportUnsupported = 13,
};

// All entries of the file dated `firstDay` (a day number, 0 for all) or later are added to the real rows of a place,
// whatever filter is shown there, and balances follow. What became of every entry stands in state.ImportCount.
// `security` is that of the entries wanted of a QIF file of shares, "" for all. A file that can't be read is reported
// as NcreateFail; where the machine refused to read it, the action is refused as well.
[[nodiscard]] int ImportQIFFile(const Place &place, const char *path, uint32_t firstDay, const char16_t *security,
                                ExchangeTeller tell);
[[nodiscard]] int ImportOFXFile(const Place &place, const char *path, uint32_t firstDay, ExchangeTeller tell);
[[nodiscard]] int ImportCSVFile(const Place &place, const char *path, uint32_t firstDay, ExchangeTeller tell);

// The securities that a QIF file of shares names (exchange/qif_import.h).
// 0 when the file can't be read or is no QIF file of shares.
int ListSecurities(const char *path, SecurityList *list);

// The first day of entries newer than the last ordinary one of a place: the day after it, 0 when there is none.
uint32_t DayAfterLastEntry(const Place &place);
