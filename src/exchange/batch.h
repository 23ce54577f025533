// What an import read: the entries in the order of the file, and what became of every one of them. The readers of the
// formats fill it and know nothing of the store.
#pragma once

#include "records/records.h"

inline constexpr int32_t ImportLimit = 5000; // entries that one import finishes

enum class Outcome : uint8_t { // ORDER REPORTLINE
    WellFormed,
    BadlyFormed,
    AsRequested, // skipped: before the first day, of another security, or known already
    Unreadable,
};
inline constexpr int OutcomeCount = 4;

// An entry to be added; of a skipped one only the count is kept.
struct ReadEntry {
    TRec Row;
    Outcome Result;
};

// What kind of account a file is for.
enum class ContentKind : uint8_t { Unknown, Money, Shares, Unsupported };

using ExchangeTeller = void (*)(int percent); // hears how far the work has come, 0 to 100; may be null

// What the owner asked for, and the account as it stands.
struct ImportTask {
    uint32_t FirstDay;        // day number; earlier entries are skipped; 0 takes all
    const char16_t *Security; // of a QIF file of shares; empty takes all
    int32_t AccountKind;      // AccountType
    int AccountEmpty;         // 1: no record at all
    int DayFirst;             // 1 where the device's dates begin with the day: decides when the file does not
    ExchangeTeller Tell;
};

struct ImportCounts {
    int32_t Count;    // of Entries
    int32_t Finished; // entries read to their end, whatever became of them
    int32_t Total;    // entries that the file seems to hold
    int32_t Outcomes[OutcomeCount];
    ContentKind Content;
    int Accepted;        // 1: the content suits the account
    int32_t AccountKind; // what the account is to become, or is
    int KindSettled;     // 1: AccountKind is to be stored
    // A statement's own closing balance, and whether it told one.
    FixedAmount StatementBalance;
    int HasStatementBalance;
    int32_t Told; // percent told last
};

struct ImportBatch : ImportCounts {
    ReadEntry Entries[ImportLimit];
};

// Empty, for a task.
void StartBatch(ImportBatch *batch, const ImportTask &task);
// A row as an imported entry begins: an ordinary one, no date yet.
TRec NewRow();
// Counts an entry, and keeps the row of one that is to be added.
void AddEntry(ImportBatch *batch, const TRec &row, Outcome outcome);
// Tells the progress when it has grown enough to be seen.
void TellReading(ImportBatch *batch, const ImportTask &task, int percent);

// Calendar fields to a date. 0, and the date left alone, when there is no such day in the years 1601 to 9999.
[[nodiscard]] int DateOf(int32_t year, int32_t month, int32_t day, RecDate *date);
// UTF-8 into a record's text, at most `units` of it.
void TakeText(char16_t (&to)[TextRoom], const char *from, int units);
