#include "care/migration.h"
#include "platform/action.h"
#include "platform/text.h"
#include "records/fields.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include <cstdio>
#include <cstring>
#include <iterator>
#include <span>

namespace {

using enum FieldType;

// Dividers were pixels.
constexpr int Dividers = 5;

struct OldField {
    FieldType Type;
    uint16_t From, To; // offsets in the old record and in the payload
};
// clang-format off
constexpr OldField AccountFields[] = {
    {Byte,     1, offsetof(ARec, RowKind)},
    {Text32,  20, offsetof(ARec, Name)},
    {Number,  84, offsetof(ARec, ID)},
    {Number,  88, offsetof(ARec, AccType)},
    {Number,  92, offsetof(ARec, Flag)},
    {Amount,  96, offsetof(ARec, Balance)},
    {Amount, 104, offsetof(ARec, ClearedBalance)},
    {Amount, 112, offsetof(ARec, ArcBalance)},
    {Amount, 120, offsetof(ARec, ArcClearedBalance)},
    {Numbers5, 128, offsetof(ARec, ColumnPos)},
    {Number, 148, offsetof(ARec, LowWatch)},
    {Number, 152, offsetof(ARec, HighWatch)},
    {Number, 156, offsetof(ARec, MinLimit)},
    {Number, 160, offsetof(ARec, MaxLimit)},
    {Number, 164, offsetof(ARec, ClearedInJeopardy)},
    {Number, 168, offsetof(ARec, BalanceInJeopardy)},
};
constexpr OldField TransactionFields[] = {
    {Byte,     1, offsetof(TRec, RowKind)},
    {Byte,     2, offsetof(TRec, CatSlot)},
    {Date,     4, offsetof(TRec, Date)},
    {Number,  16, offsetof(TRec, Rank)},
    {Text32,  20, offsetof(TRec, Name)},
    {Number,  84, offsetof(TRec, Cleared)},
    {Number,  88, offsetof(TRec, Cash)},
    {Number,  92, offsetof(TRec, NoCash)},
    {Byte,    96, offsetof(TRec, Flag)},
    {Text32,  98, offsetof(TRec, Memo)},
    {Number, 164, offsetof(TRec, Units)},
    {Number, 168, offsetof(TRec, ClearedUnits)},
    {Amount, 176, offsetof(TRec, CashAmount)},
    {Amount, 184, offsetof(TRec, ClearedCashAmount)},
    {Amount, 192, offsetof(TRec, Value)},
    {Amount, 200, offsetof(TRec, ClearedValue)},
    {Number, 208, offsetof(TRec, TransferID)},
    {Number, 212, offsetof(TRec, RunUnits)},
    {Number, 216, offsetof(TRec, RunClearedUnits)},
    {Amount, 224, offsetof(TRec, RunTotal)},
    {Amount, 232, offsetof(TRec, RunCleared)},
};
// The record of today without what was new in it: the pass code, the columns of lists that there were not, the day of
// the last check.
constexpr OldField ConfigurationFields[] = {
    {Number,   4, offsetof(ConfRec, NextID)},
    {Number,   8, offsetof(ConfRec, ShowFrontPage)},
    {Number,  12, offsetof(ConfRec, CheckAheadDays)},
    {Number,  16, offsetof(ConfRec, MovieSpeed)},
    {Number,  20, offsetof(ConfRec, PercentLink)},
    {Number,  24, offsetof(ConfRec, NewUserFields)},
    {Number,  44, offsetof(ConfRec, ConfSpare)},
};
struct OldDividers {
    uint16_t Offset; // in both records
    int Count;
};
constexpr OldDividers ConfigurationDividers[] = {
    {offsetof(ConfRec, AccountColumns),     3},
    {offsetof(ConfRec, TransactionColumns), 5},
    {offsetof(ConfRec, RecurringColumns),   5},
    {offsetof(ConfRec, TemplateColumns),    3},
    {offsetof(ConfRec, BinColumns),         5},
};

struct OldKind {
    const char *Name; // null: the transaction files, named by their account
    int Record;       // bytes of an old record
    Trouble OpenFail;
};
constexpr OldKind OldKinds[] = { // ORDER FILEKIND
    {"NOT",   2000, Trouble::FcreateFail},
    {"IND",   328,  Trouble::FcreateFail},
    {nullptr, 328,  Trouble::FcreateFail},
    {"CON",   576,  Trouble::CcreateFail},
    {"DD",    528,  Trouble::FcreateFail},
    {"FAV",   336,  Trouble::FcreateFail},
    {"BIN",   784,  Trouble::FcreateFail},
};
// clang-format on
constexpr int MostOldRecord = 2000;

constexpr int MostName = 16;                      // of an old file: a tag and ten digits
constexpr const char *AccountTags[] = {"A", "R"}; // live, archive

const OldKind *OldKindOf(FileKind kind) {
    const auto index = static_cast<size_t>(kind);
    return index < std::size(OldKinds) ? &OldKinds[index] : nullptr;
}

// Pixels to thousandths; what lies beside the screen is drawn onto it.
void ConvertDividers(const uint8_t *from, uint8_t *to, int count) {
    for (int i = 0; i < count; ++i, from += sizeof(uint32_t), to += sizeof(uint32_t)) {
        uint32_t pixels;
        std::memcpy(&pixels, from, sizeof pixels);
        const uint32_t stored = normalise(pixels > ScreenWidth ? ScreenWidth : static_cast<int32_t>(pixels));
        std::memcpy(to, &stored, sizeof stored);
    }
}

void ConvertFields(std::span<const OldField> fields, const uint8_t *old, uint8_t *record) {
    for (const OldField &field : fields) {
        if (field.Type == Numbers5) {
            ConvertDividers(old + field.From, record + field.To, Dividers);
            continue;
        }
        const Field row = {"", field.Type, 0};
        CopyFields({&row, 1}, old + field.From, record + field.To);
    }
}

void ConvertConfiguration(const uint8_t *old, uint8_t *record) {
    ConfRec converted;
    SetConfDefaults(&converted);
    auto *bytes = reinterpret_cast<uint8_t *>(&converted);
    ConvertFields(ConfigurationFields, old, bytes);
    for (const OldDividers &dividers : ConfigurationDividers)
        ConvertDividers(old + dividers.Offset, bytes + dividers.Offset, dividers.Count);
    std::memcpy(record, &converted, sizeof converted);
}

// An account in the bin brings its dividers.
void ConvertBinned(const uint8_t *old, uint8_t *record) {
    CopyFields(FieldsOfList(BinList), old, record);
    uint32_t source;
    std::memcpy(&source, old + offsetof(BinRec, SourceList), sizeof source);
    if (source == AccountList)
        ConvertDividers(old + offsetof(BinRec, AccountLayout), record + offsetof(BinRec, AccountLayout), Dividers);
}

void ConvertNote(const uint8_t *old, uint8_t *record) {
    constexpr int Room = sizeof NoteRec::Text / sizeof(char16_t);
    char16_t text[Room];
    std::memcpy(text, old, sizeof text);
    text[Room - 1] = 0;
    CopyText(reinterpret_cast<char16_t *>(record), Room, text);
}

// --- Files

void OldPath(char *to, const char *fileName) {
    std::snprintf(to, PathRoom, "%s\\%.*s", OldDataDirectory, MostName, fileName);
}
void NewPath(char *to, FileKind kind, const char *fileName) {
    std::snprintf(to, PathRoom, "%s\\E1_%02d%.*s", DataDirectory, static_cast<int>(kind), MostName, fileName);
}

// 1 for a tag with a number behind it: other names begin with these letters too.
bool IsTransactionFile(const char *name, const char *tag) {
    name += std::strlen(tag);
    if (!*name || std::strlen(name) > 10)
        return false;
    for (; *name; ++name)
        if (*name < '0' || *name > '9')
            return false;
    return true;
}

// Each transaction file of a tag. `visit` null: they are only counted.
int ForEachTransactionFile(const char *tag, int (*visit)(FileKind kind, const char *fileName)) {
    FileWalk walk;
    char name[PathRoom];
    int count = 0;
    FindNames(&walk, OldDataDirectory, tag);
    while (FindNextName(&walk, name, sizeof name))
        if (IsTransactionFile(name, tag))
            count += visit ? visit(FileKind::Transactions, name) : 1;
    EndFind(&walk);
    return count;
}

int ConvertOpened(FileKind kind, int from, int to, int32_t count) {
    const int size = OldRecordSize(kind);
    uint8_t old[MostOldRecord];
    alignas(8) uint8_t record[LargestRecord];
    const In function = kind == FileKind::Transactions ? In::ConvertTranFile : In::ConvertFavFile;
    int32_t written = 0;
    for (int32_t n = 0; n < count; ++n) {
        if (ReadFileAt(from, int64_t{n} * size, old, size) != size) {
            ReportError(function, OldKindOf(kind)->OpenFail);
            break;
        }
        ConvertRecord(kind, old, record);
        if (WriteRecord(to, kind, written + 1, record))
            ++written;
        else
            ReportError(function, Trouble::CwriteFail);
    }
    return written > 0;
}

int ReadableToTheEnd(const char *path) {
    uint8_t piece[4096];
    const int file = OpenFile(path, OpenExisting);
    const int64_t length = file < 0 ? -1 : FileLength(file);
    int64_t read = 0;
    for (int64_t got = 1; got > 0 && read<length; read += got> 0 ? got : 0)
        got = ReadFileAt(file, read, piece, sizeof piece);
    if (file >= 0)
        ReleaseFile(file);
    return length >= 0 && read == length;
}

// Within the action that runs, or as one of its own, which brings the directory with the first file: a machine that
// reads nothing leaves none, which would hide the old data from the next start.
int ConvertWhole(FileKind kind, const char *fileName) {
    if (ActionRuns())
        return ConvertFile(kind, fileName);
    BeginAction();
    const int made = DirectoryThere(DataDirectory) == 1 || MakeDirectory(DataDirectory);
    if (made && ConvertFile(kind, fileName) && CommitAction())
        return 1;
    AbortAction();
    return 0;
}

int CountUnreadable(FileKind, const char *fileName) {
    char path[PathRoom];
    OldPath(path, fileName);
    return FileThere(path) != 0 && !ReadableToTheEnd(path);
}

} // namespace

int OldRecordSize(FileKind kind) {
    const OldKind *row = OldKindOf(kind);
    return row ? row->Record : 0;
}

void ConvertRecord(FileKind kind, const uint8_t *old, uint8_t *record) {
    std::memset(record, 0, static_cast<size_t>(RecordSize(kind)));
    switch (kind) {
    case FileKind::Notepad:
        ConvertNote(old, record);
        return; // it has no version
    case FileKind::Accounts:
        ConvertFields(AccountFields, old, record);
        break;
    case FileKind::Transactions:
        ConvertFields(TransactionFields, old, record);
        break;
    case FileKind::Configuration:
        ConvertConfiguration(old, record);
        break;
    case FileKind::Recurring:
        CopyFields(FieldsOfList(RecurringList), old, record);
        break;
    case FileKind::Templates:
        CopyFields(FieldsOfList(TemplateList), old, record);
        break;
    case FileKind::Bin:
        ConvertBinned(old, record);
        break;
    default:
        ReportError(In::ConvertFavFile, Trouble::CaseError);
        return;
    }
    record[0] = RecordVersion; // of the record as it is now
}

int ConvertFile(FileKind kind, const char *fileName) {
    char path[PathRoom];
    OldPath(path, fileName);
    if (FileThere(path) != 1)
        return 0;
    const int from = OpenFile(path, OpenExisting);
    if (from < 0) {
        ReportError(In::ConvertFavFile, OldKindOf(kind)->OpenFail);
        return 0;
    }
    const int64_t length = FileLength(from);
    const auto count = static_cast<int32_t>(length / OldRecordSize(kind));
    int converted = 0;
    if (length > 0) {
        NewPath(path, kind, fileName);
        const int to = OpenFile(path, OpenOrCreate);
        if (to < 0)
            ReportError(In::ConvertFavFile, OldKindOf(kind)->OpenFail);
        else
            converted = ConvertOpened(kind, from, to, count);
        if (to >= 0)
            CloseFile(to);
    }
    CloseFile(from);
    return converted;
}

int OldDataThere() {
    if (DirectoryThere(OldDataDirectory) != 1)
        return 0;
    char path[PathRoom];
    for (const OldKind &kind : OldKinds) {
        if (!kind.Name)
            continue;
        OldPath(path, kind.Name);
        if (FileThere(path) == 1)
            return 1;
    }
    for (const char *tag : AccountTags)
        if (ForEachTransactionFile(tag, nullptr) > 0)
            return 1;
    return 0;
}

int OldDataReadable() {
    int unreadable = 0;
    for (const char *tag : AccountTags)
        unreadable += ForEachTransactionFile(tag, CountUnreadable);
    for (const OldKind &kind : OldKinds)
        if (kind.Name)
            unreadable += CountUnreadable(FileKind::Notepad, kind.Name);
    return unreadable == 0;
}

int MigrateDataDirectory() {
    int converted = 0;
    for (const char *tag : AccountTags)
        converted += ForEachTransactionFile(tag, ConvertWhole);
    for (size_t kind = 0; kind < std::size(OldKinds); ++kind)
        if (OldKinds[kind].Name)
            converted += ConvertWhole(static_cast<FileKind>(kind), OldKinds[kind].Name);
    return converted;
}
