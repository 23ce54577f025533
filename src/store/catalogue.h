// The files of the data directory and the one path by which a record reaches them. No file stays open between two
// operations.
#pragma once

#include "cipher/hooks.h"
#include "platform/files.h"
#include "records/place.h"
#include "records/records.h"

inline constexpr char DataDirectory[] = "\\Program Files\\Zentrik\\E1_Data";
inline constexpr char OldDataDirectory[] = "\\Program Files\\Zentrik\\Data"; // the error log goes here
inline constexpr char TransferDirectory[] = "\\Program Files\\Zentrik\\Zentk$D$ypz";

// ORDER TRANSACTIONFILE: A, R, AF, RF, AFF, RFF
enum class TransactionFile : uint8_t { Live, Archive, LiveFilter, ArchiveFilter, LiveFilterWork, ArchiveFilterWork };

// Device path of a file of the data directory, or of an account's transaction file. Room of PathRoom.
void DataPath(char *to, FileKind kind);
void TransactionPath(char *to, TransactionFile file, uint32_t accountID);

// The account whose transactions a file of the data directory holds, by its name. False for any other name.
bool AccountOfFile(const char *name, uint32_t *accountID);

// Opens the file of a place, or one of the other data files; a handle, or below 0 (platform/files.h). Of transactions
// the filter file is preferred when there is one and the place asks for what is shown; `filtered` (null: not wanted)
// then says 1, otherwise 0. No account, no file: -1.
[[nodiscard]] int OpenPlace(const Place &place, OpenDisposition disposition, uint32_t *filtered = nullptr);
[[nodiscard]] int OpenDataFile(FileKind kind, OpenDisposition disposition);
// One of an account's six files.
[[nodiscard]] int OpenTransactions(TransactionFile file, uint32_t accountID, OpenDisposition disposition);
constexpr TransactionFile RealFile(View view) {
    return view == View::Archive ? TransactionFile::Archive : TransactionFile::Live;
}
constexpr TransactionFile FilterFile(View view) {
    return view == View::Archive ? TransactionFile::ArchiveFilter : TransactionFile::LiveFilter;
}

// Closes, and logs Closure when the platform refuses; what was never opened needs no closing.
int CloseFile(int handle);

// Whole records in the file, by its length; a remainder does not count.
int32_t CountRecords(int handle, FileKind kind);

// One record at a 1-based position into a buffer of RecordSize(kind), deciphered. 0 on a short read, buffer undefined.
// A record that can't be deciphered arrives as zeros, here and below (cipher/hooks.h).
[[nodiscard]] int ReadRecord(int handle, FileKind kind, int32_t position, void *record, Broken then = Broken::Doubts);
// 1 for the zeros that a record with a version byte arrives as when it can't be deciphered.
int IsBroken(const void *record);

// Up to `most` whole records from a 1-based position on by one read, deciphered, into a buffer of that many
// RecordSize(kind). Returns how many arrived.
int32_t ReadRecords(int handle, FileKind kind, int32_t first, int32_t most, void *records,
                    Broken then = Broken::Doubts);

// 1 when the records between two positions, ends included, can be read: those that are about to be written over or
// removed. What is broken is never lost without a word, so 0 has refused the action. Without a key nothing is read.
[[nodiscard]] int MayGo(int handle, FileKind kind, int32_t first, int32_t last);

// One record to a 1-based position, enciphered in place: the buffer is not to be read again. The caller reports.
[[nodiscard]] int WriteRecord(int handle, FileKind kind, int32_t position, void *record);

// The error of a failed open or write of a kind; for FileKind::Transactions the live file's.
enum class Trouble : uint8_t;
Trouble CreateFailOf(FileKind kind);
Trouble WriteFailOf(FileKind kind);
