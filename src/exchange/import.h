// Reads a text file in one of the formats for exchange into the current account, or into its archive in the archive
// view.
#pragma once

#include "exchange/qif_import.h"
#include <cstdint>

// What an import came to. From 11 on the file's content does not suit the account.
enum ImportResult : int {
    ImportUnwritten = -1, // the entries can't be written: nothing has changed
    ImportFailed = 0,     // the file can't be read
    ImportDone = 1,
    ImportUnknown = 10, // the file does not tell its content
    ImportMoney = 11,   // money, and the account holds shares
    ImportShares = 12,  // shares, and the account holds money
    ImportUnsupported = 13,
};

// All entries dated `firstDay` (a day number, 0 for all) or later are added as one, balances follow, and the last row
// is selected. What became of every entry stands in state.ImportCount. `security` is that of the entries wanted of a
// QIF file of shares, "" for all. `tell` (may be null) hears how far it has come, 0 to 100. They work on the
// transactions or the graph of an account that is not filtered, ImportCSVFile on the transactions alone; anywhere else
// they do nothing and return 0. A file that can't be opened is reported as NcreateFail.
[[nodiscard]] int ImportQIFFile(const char *path, uint32_t firstDay, const char16_t *security,
                                void (*tell)(int percent));
[[nodiscard]] int ImportOFXFile(const char *path, uint32_t firstDay, void (*tell)(int percent));
[[nodiscard]] int ImportCSVFile(const char *path, uint32_t firstDay, void (*tell)(int percent));

inline constexpr int MostSecurities = 64;
// The securities that a QIF file of shares names, each once, in the order of the file.
struct SecurityList {
    int Count;
    char16_t Names[MostSecurities][SecurityRoom];
};
// 0 when the file can't be read or is no QIF file of shares.
int ListSecurities(const char *path, SecurityList *list);

// The first day of entries newer than the account's last ordinary one: the day after it, 0 when there is none.
uint32_t DayAfterLastEntry();
