// The files of the data directory and the one path by which a record reaches them. No file stays open between two
// operations.
#pragma once

#include "platform/files.h"
#include "records/records.h"

inline constexpr char DataDirectory[] = "\\Program Files\\Zentrik\\E1_Data";
inline constexpr char OldDataDirectory[] = "\\Program Files\\Zentrik\\Data"; // the error log goes here
inline constexpr char TransferDirectory[] = "\\Program Files\\Zentrik\\Zentk$D$ypz";

// ORDER TRANSACTIONFILE: A, R, AF, RF, AFF, RFF
enum class TransactionFile : uint8_t { Live, Archive, LiveFilter, ArchiveFilter, LiveFilterWork, ArchiveFilterWork };

// Device path of a file of the data directory, or of an account's transaction file. Room of PathRoom.
void DataPath(char *to, FileKind kind);
void TransactionPath(char *to, TransactionFile file, uint32_t accountID);

// Opens a data file; a handle, or -1. `accountID` and `filtered` count for FileKind::Transactions alone: the file set
// follows state.ArchiveView, a filter file is preferred when there is one, and `filtered` (null: not wanted) then says
// 1, otherwise 0. With state.IgnoreFilter 1 the plain file is opened, only if it exists, and `filtered` stays as it
// was.
[[nodiscard]] int OpenDataFile(FileKind kind, OpenDisposition disposition, uint32_t accountID, uint32_t *filtered);

// Closes, and logs Closure when the platform refuses; accepts the handle of a failed open.
int CloseFile(int handle);

// 1 when the file can be opened for reading.
int FileExists(const char *path);

// Whole records in the file, by its length; a remainder does not count.
int32_t CountRecords(int handle, FileKind kind);

// One record at a 1-based position into a buffer of RecordSize(kind), deciphered. 0 on a short read, buffer undefined.
[[nodiscard]] int ReadRecord(int handle, FileKind kind, int32_t position, void *record);

// Up to `most` whole records from a 1-based position on by one read, deciphered, into a buffer of that many
// RecordSize(kind). Returns how many arrived.
int32_t ReadRecords(int handle, FileKind kind, int32_t first, int32_t most, void *records);

// One record to a 1-based position, enciphered in place: the buffer is not to be read again. The result also stands
// in state.LastWriteResult; the caller reports.
[[nodiscard]] int WriteRecord(int handle, FileKind kind, int32_t position, void *record);

// The error of a failed open or write of a kind; for FileKind::Transactions the live file's.
enum class Trouble : uint8_t;
Trouble CreateFailOf(FileKind kind);
Trouble WriteFailOf(FileKind kind);
