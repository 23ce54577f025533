#include "ledger/account_file.h"
#include "cipher/hooks.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/index.h"
#include "store/runs.h"

namespace {

// A damaged name ends within its field.
ARec PayloadOf(const ARecFile &record) {
    ARec row = record.Rec;
    row.Name[TextRoom - 1] = 0;
    return row;
}

} // namespace

int ReadAccount(int32_t position, ARec *row) {
    if (!state.DataUsable || position < 1)
        return 0;
    const int handle = OpenDataFile(FileKind::Accounts, OpenOrCreate, 0, nullptr);
    ARecFile record;
    const int read = ReadRecord(handle, FileKind::Accounts, position, &record);
    CloseFile(handle);
    if (read)
        *row = PayloadOf(record);
    return read;
}

int FindAccount(uint32_t accountID, ARec *row, int32_t *position) {
    const int32_t found = IDtoAccount(accountID, row);
    if (found && position)
        *position = found;
    return found != 0;
}

int AccountThere(uint32_t accountID) {
    ARec row;
    return FindAccount(accountID, &row, nullptr);
}

int WriteAccount(int32_t position, const ARec &row, In function) {
    const int handle = OpenDataFile(FileKind::Accounts, OpenOrCreate, 0, nullptr);
    ARecFile record = {row, {}};
    const int written = WriteRecord(handle, FileKind::Accounts, position, &record);
    if (handle < 0)
        ReportError(function, Trouble::AcreateFail);
    else if (!written)
        ReportError(function, Trouble::AwriteFail);
    else if (row.ID != 0 && row.ID == state.CurAccount.ID)
        state.CurAccount = row;
    CloseFile(handle);
    return written;
}

int OpenTransactions(TransactionFile file, uint32_t accountID, OpenDisposition disposition) {
    char path[PathRoom];
    TransactionPath(path, file, accountID);
    return OpenFile(path, disposition);
}

int OpenView(uint32_t archive, uint32_t accountID, OpenDisposition disposition) {
    const uint32_t view = state.ArchiveView;
    state.ArchiveView = archive;
    uint32_t filtered;
    const int handle = OpenDataFile(FileKind::Transactions, disposition, accountID, &filtered);
    state.ArchiveView = view;
    return handle;
}

int RemoveRecords(int handle, FileKind kind, int32_t first, int32_t last) {
    const int32_t count = CountRecords(handle, kind);
    if (last < count && !MoveRun(handle, kind, last + 1, count - last, first))
        return 0;
    return CutFile(handle, int64_t{count - (last - first + 1)} * RecordSize(kind));
}
