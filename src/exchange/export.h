// Writes an account, or its archive, as a text file in one of the formats for exchange.
#pragma once

#include "exchange/batch.h"
#include "records/place.h"

// ORDER EXPORTMODE: which entries go out
enum ExportMode : int { ExportAll = 1, ExportFrom = 2, ExportUpTo = 3 };

// What an export came to. All but ExportDone are reported as NcreateFail, and leave no new file.
enum ExportResult : int {
    ExportUnread = -1, // the account can't be read: the action is refused
    ExportUnwritten = 0,
    ExportDone = 1,
};

// Write the rows of a place to a device path: all, those dated `day` (a day number) or later, or those dated `day` or
// earlier.
[[nodiscard]] int ExportQIFFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell);
[[nodiscard]] int ExportCSVFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell);
[[nodiscard]] int ExportTXTFile(const Place &place, const char *path, uint32_t day, int mode, ExchangeTeller tell);
