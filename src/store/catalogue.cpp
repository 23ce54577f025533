#include "store/catalogue.h"
#include "cipher/hooks.h"
#include "state/error_log.h"
#include "state/state.h"
#include <cstdio>
#include <iterator>

namespace {

struct KindRow {
    const char *Name; // null: named by the account
    Trouble CreateFail, WriteFail;
};
// clang-format off
constexpr KindRow Kinds[] = { // ORDER FILEKIND
    {"E1_00NOT", Trouble::NcreateFail, Trouble::NwriteFail},
    {"E1_01IND", Trouble::AcreateFail, Trouble::AwriteFail},
    {nullptr,    Trouble::TcreateFail, Trouble::TwriteFail},
    {"E1_03CON", Trouble::CcreateFail, Trouble::CwriteFail},
    {"E1_04DD",  Trouble::DcreateFail, Trouble::DwriteFail},
    {"E1_05FAV", Trouble::FcreateFail, Trouble::FwriteFail},
    {"E1_06BIN", Trouble::BcreateFail, Trouble::BwriteFail},
    {"E1_07CAT", Trouble::FcreateFail, Trouble::FwriteFail},
    {"E1_08CUR", Trouble::FcreateFail, Trouble::FwriteFail},
    {"E1_09SST", Trouble::CcreateFail, Trouble::CwriteFail},
};
// clang-format on
static_assert(std::size(Kinds) == static_cast<size_t>(FileKind::Count));

constexpr const char *TransactionTags[] = {"A", "R", "AF", "RF", "AFF", "RFF"}; // ORDER TRANSACTIONFILE

const KindRow &RowOf(FileKind kind) {
    return Kinds[static_cast<int>(kind)];
}

int OpenTransactions(TransactionFile file, OpenDisposition disposition, uint32_t accountID) {
    char path[PathRoom];
    TransactionPath(path, file, accountID);
    return OpenFile(path, disposition);
}

} // namespace

void DataPath(char *to, FileKind kind) {
    std::snprintf(to, PathRoom, "%s\\%s", DataDirectory, RowOf(kind).Name);
}

void TransactionPath(char *to, TransactionFile file, uint32_t accountID) {
    std::snprintf(to, PathRoom, "%s\\E1_02%s%u", DataDirectory, TransactionTags[static_cast<int>(file)], accountID);
}

int OpenDataFile(FileKind kind, OpenDisposition disposition, uint32_t accountID, uint32_t *filtered) {
    if (kind != FileKind::Transactions) {
        char path[PathRoom];
        DataPath(path, kind);
        return OpenFile(path, disposition);
    }
    const bool archive = state.ArchiveView == 1;
    const auto plain = archive ? TransactionFile::Archive : TransactionFile::Live;
    if (state.IgnoreFilter == 1)
        return OpenTransactions(plain, OpenExisting, accountID);
    const int filter = OpenTransactions(archive ? TransactionFile::ArchiveFilter : TransactionFile::LiveFilter,
                                        OpenExisting, accountID);
    if (filtered)
        *filtered = filter >= 0;
    return filter >= 0 ? filter : OpenTransactions(plain, disposition, accountID);
}

int CloseFile(int handle) {
    if (ReleaseFile(handle))
        return 1;
    ReportError(In::CloseHandle, Trouble::Closure);
    return 0;
}

int FileExists(const char *path) {
    const int file = OpenFile(path, OpenExisting);
    return file >= 0 && ReleaseFile(file);
}

int32_t CountRecords(int handle, FileKind kind) {
    const int64_t count = FileLength(handle) / RecordSize(kind);
    return count > INT32_MAX ? INT32_MAX : static_cast<int32_t>(count);
}

int ReadRecord(int handle, FileKind kind, int32_t position, void *record) {
    const int size = RecordSize(kind);
    if (ReadFileAt(handle, (position - int64_t{1}) * size, record, size) != size)
        return 0;
    DecipherRecord(kind, record);
    return 1;
}

int32_t ReadRecords(int handle, FileKind kind, int32_t first, int32_t most, void *records) {
    const int size = RecordSize(kind);
    auto *bytes = static_cast<uint8_t *>(records);
    const auto read =
        static_cast<int32_t>(ReadFileAt(handle, (first - int64_t{1}) * size, bytes, int64_t{most} * size) / size);
    for (int32_t index = 0; index < read; ++index)
        DecipherRecord(kind, bytes + int64_t{index} * size);
    return read;
}

int WriteRecord(int handle, FileKind kind, int32_t position, void *record) {
    const int size = RecordSize(kind);
    const int written =
        EncipherRecord(kind, record) && WriteFileAt(handle, (position - int64_t{1}) * size, record, size);
    state.LastWriteResult = written == 1;
    return written;
}

Trouble CreateFailOf(FileKind kind) {
    return RowOf(kind).CreateFail;
}
Trouble WriteFailOf(FileKind kind) {
    return RowOf(kind).WriteFail;
}
