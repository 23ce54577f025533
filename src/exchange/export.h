// Writes the current account, or its archive, as a text file in one of the formats for exchange.
#pragma once

#include <cstdint>

// ORDER EXPORTMODE: which entries go out
enum ExportMode : int { ExportAll = 1, ExportFrom = 2, ExportUpTo = 3 };

using ExchangeTeller = void (*)(int percent);

// Write the rows of the view, filtered or not, to a device path: all, those dated `day` (a day number) or later, or
// those dated `day` or earlier. `tell` (may be null) hears how far it has come, 0 to 100. 1, or 0 when the transactions
// can't be read or the file can't be written (reported as NcreateFail): there is then no new file.
[[nodiscard]] int ExportQIFFile(const char *path, uint32_t day, int mode, ExchangeTeller tell);
[[nodiscard]] int ExportCSVFile(const char *path, uint32_t day, int mode, ExchangeTeller tell);
[[nodiscard]] int ExportTXTFile(const char *path, uint32_t day, int mode, ExchangeTeller tell);
