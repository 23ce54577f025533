#include "store/catalogue.h"
#include "cipher/hooks.h"
#include "platform/cipher.h"
#include "state/error_log.h"
#include "state/state.h"
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

} // namespace

void DataPath(char *to, FileKind kind) {
    std::snprintf(to, PathRoom, "%s\\%s", DataDirectory, RowOf(kind).Name);
}

void TransactionPath(char *to, TransactionFile file, uint32_t accountID) {
    std::snprintf(to, PathRoom, "%s\\E1_02%s%u", DataDirectory, TransactionTags[static_cast<int>(file)], accountID);
}

bool AccountOfFile(const char *name, uint32_t *accountID) {
    for (const char *tag : TransactionTags) {
        char whole[PathRoom];
        const char *digits = name + std::strlen("E1_02") + std::strlen(tag);
        const int length = std::snprintf(whole, sizeof whole, "E1_02%s", tag);
        if (std::strncmp(name, whole, static_cast<size_t>(length)) != 0 || *digits < '1' || *digits > '9')
            continue;
        char *end;
        *accountID = static_cast<uint32_t>(std::strtoul(digits, &end, 10));
        return *end == 0;
    }
    return false;
}

int OpenTransactions(TransactionFile file, uint32_t accountID, OpenDisposition disposition) {
    char path[PathRoom];
    TransactionPath(path, file, accountID);
    return OpenFile(path, disposition);
}

int OpenDataFile(FileKind kind, OpenDisposition disposition) {
    char path[PathRoom];
    DataPath(path, kind);
    return OpenFile(path, disposition);
}

int OpenPlace(const Place &place, OpenDisposition disposition, uint32_t *filtered) {
    const FileKind kind = KindOfList(place.List);
    if (filtered)
        *filtered = 0;
    if (kind != FileKind::Transactions)
        return OpenDataFile(kind, disposition);
    if (place.Account == 0)
        return -1;
    if (place.Through == Rows::Shown) {
        const int filter = OpenTransactions(FilterFile(place.Of), place.Account, OpenExisting);
        if (filtered)
            *filtered = filter >= 0;
        if (filter >= 0)
            return filter;
    }
    return OpenTransactions(RealFile(place.Of), place.Account, disposition);
}

int CloseFile(int handle) {
    if (handle < 0 || ReleaseFile(handle))
        return 1;
    ReportError(In::CloseHandle, Trouble::Closure);
    return 0;
}

int32_t CountRecords(int handle, FileKind kind) {
    const int64_t length = FileLength(handle), count = length < 0 ? 0 : length / RecordSize(kind);
    return count > INT32_MAX ? INT32_MAX : static_cast<int32_t>(count);
}

int ReadRecord(int handle, FileKind kind, int32_t position, void *record, Broken then) {
    const int size = RecordSize(kind);
    if (ReadFileAt(handle, (position - int64_t{1}) * size, record, size) != size)
        return 0;
    static_cast<void>(DecipherRecord(kind, record, then));
    return 1;
}

int IsBroken(const void *record) {
    return state.CurrentKey != NoKey && CipherOfKey(state.CurrentKey) == Cipher::Sealed &&
           *static_cast<const uint8_t *>(record) == 0;
}

int32_t ReadRecords(int handle, FileKind kind, int32_t first, int32_t most, void *records, Broken then) {
    const int size = RecordSize(kind);
    auto *bytes = static_cast<uint8_t *>(records);
    const int64_t arrived = ReadFileAt(handle, (first - int64_t{1}) * size, bytes, int64_t{most} * size);
    const auto read = arrived < 0 ? 0 : static_cast<int32_t>(arrived / size);
    for (int32_t index = 0; index < read; ++index)
        static_cast<void>(DecipherRecord(kind, bytes + int64_t{index} * size, then));
    return read;
}

int MayGo(int handle, FileKind kind, int32_t first, int32_t last) {
    alignas(8) uint8_t record[LargestRecord];
    const int size = RecordSize(kind);
    for (; state.CurrentKey != NoKey && first <= last; ++first)
        if (ReadFileAt(handle, (first - int64_t{1}) * size, record, size) == size && !DecipherRecord(kind, record))
            return 0;
    return 1;
}

int WriteRecord(int handle, FileKind kind, int32_t position, void *record) {
    const int size = RecordSize(kind);
    return EncipherRecord(kind, record) && WriteFileAt(handle, (position - int64_t{1}) * size, record, size);
}

Trouble CreateFailOf(FileKind kind) {
    return RowOf(kind).CreateFail;
}
Trouble WriteFailOf(FileKind kind) {
    return RowOf(kind).WriteFail;
}
