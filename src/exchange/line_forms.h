// The lines of each format for one row of an account.
#pragma once

#include "exchange/line_writer.h"
#include "records/records.h"

// What a format needs to know of the account.
struct ExportAccount {
    const char16_t *Name;
    int32_t Kind; // AccountType
    int DayFirst; // 1 where the device's dates begin with the day
    int Cleared;  // 1: balances are the reconciled ones
};

// What stands before the first row, and a row's lines; rows that a format leaves out write nothing.
struct ExportFormat {
    void (*Begin)(LineWriter *writer, const ExportAccount &account);
    void (*WriteRow)(LineWriter *writer, const ExportAccount &account, const TRec &row);
};
extern const ExportFormat QifFormat, CsvFormat, TxtFormat;

// The multiplier of a row: a cash row of an account of money counts once.
constexpr int32_t UnitsOf(const ExportAccount &account, const TRec &row) {
    return row.Cash && !IsShare(account.Kind) ? 1 : row.Units;
}
// Units x value.
constexpr FixedAmount AmountOf(const ExportAccount &account, const TRec &row) {
    return TimesUnits(UnitsOf(account, row), row.Value);
}
