// Account records read and written without making the account current, and an account's transaction files opened
// without regard to what the screen shows.
#pragma once

#include "records/records.h"
#include "store/catalogue.h"

enum class In : uint8_t;

// The account at a position, payload alone. 1, or 0 when there is none. Nothing of the state changes.
[[nodiscard]] int ReadAccount(int32_t position, ARec *row);
// The account with this ID, and where it stands (may be null). Headings are no accounts: 0.
[[nodiscard]] int FindAccount(uint32_t accountID, ARec *row, int32_t *position);
// 1 when an account (no heading) has this ID.
int AccountThere(uint32_t accountID);
// Writes the account back to its position; CurAccount follows when it is the same account. 0 on failure, reported under
// `function`.
int WriteAccount(int32_t position, const ARec &row, In function);

// Opens one of the transaction files of an account, whatever view or filter is in force. A handle, or -1.
[[nodiscard]] int OpenTransactions(TransactionFile file, uint32_t accountID, OpenDisposition disposition);
// Opens what FileKind::Transactions means in a view: the filter file while there is one. `filtered` may be null.
[[nodiscard]] int OpenView(uint32_t archive, uint32_t accountID, OpenDisposition disposition);

// Removes records `first` to `last` of an open file by moving the later ones down. 0 when a write failed: the records
// behind the range are then all still there, some of them twice.
[[nodiscard]] int RemoveRecords(int handle, FileKind kind, int32_t first, int32_t last);
