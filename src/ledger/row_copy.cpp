#include "ledger/row_copy.h"
#include "cipher/hooks.h"
#include "store/runs.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

// Two parts of a file read side by side, and what is merged of them, in thirds of the one buffer.
constexpr int32_t Third = RunBytes / 3 / static_cast<int32_t>(sizeof(TRecFile));

// The rows of one part that stand in memory.
struct Stretch {
    int32_t Next, Last; // positions in the file
    int32_t Slot;       // of the buffer, where its rows begin
    int32_t Read, Used;
    uint32_t Day; // of the next row
};

TRecFile *RowAt(const Stretch &part) {
    return RunRecord<TRec>(part.Slot + part.Used);
}

// The next row of a part, ready. 0 at the part's end or when a read failed.
int Ready(int source, Stretch *part) {
    if (part->Next > part->Last)
        return 0;
    if (part->Used == part->Read) {
        part->Read = ReadRun(source, Kind, part->Next, std::min(Third, part->Last - part->Next + 1), part->Slot);
        part->Used = 0;
    }
    if (part->Used == part->Read)
        return 0;
    TRecFile row = *RowAt(*part);
    DecipherRecord(Kind, &row);
    part->Day = row.Rec.Date.DayNumber;
    return 1;
}

} // namespace

int32_t ReadRows(int source, int32_t from, int32_t last) {
    return ReadRun(source, Kind, from, last - from + 1);
}

TRec *RowInRun(int32_t index) {
    TRecFile *record = RunRecord<TRec>(index);
    DecipherRecord(Kind, record);
    return &record->Rec;
}

void KeepRow(int32_t index, int32_t kept) {
    TRecFile *record = RunRecord<TRec>(index);
    std::memset(record->Tail, 0, sizeof record->Tail);
    EncipherRecord(Kind, record);
    if (kept != index)
        std::memcpy(RunRecord<TRec>(kept), record, sizeof *record);
}

int WriteKept(int target, int32_t kept, int32_t to) {
    return WriteRun(target, Kind, 0, kept, to);
}

int32_t MergeRows(int source, int32_t first, int32_t split, int target) {
    const int32_t count = CountRecords(source, Kind);
    int32_t copied = CopyRun(source, Kind, 1, first - 1, target, 1), merged = 0;
    Stretch a = {first, split, 0, 0, 0, 0}, b = {split + 1, count, Third, 0, 0, 0};
    int hasA = Ready(source, &a), hasB = Ready(source, &b);
    while (hasA || hasB) {
        const bool takeB = !hasA || (hasB && b.Day < a.Day);
        Stretch *part = takeB ? &b : &a;
        std::memcpy(RunRecord<TRec>(2 * Third + merged), RowAt(*part), sizeof(TRecFile));
        ++merged;
        ++part->Next;
        ++part->Used;
        (takeB ? hasB : hasA) = Ready(source, part);
        if (merged < Third && (hasA || hasB))
            continue;
        if (!WriteRun(target, Kind, 2 * Third, merged, copied + 1))
            return -1;
        copied += merged;
        merged = 0;
    }
    return copied == count ? copied : -1;
}

int OpenWorkFile(TransactionFile file, uint32_t accountID) {
    EraseTransactions(file, accountID);
    return OpenTransactions(file, accountID, OpenOrCreate);
}

int ReplaceBy(TransactionFile work, TransactionFile real, uint32_t accountID) {
    char from[PathRoom], to[PathRoom];
    TransactionPath(from, work, accountID);
    TransactionPath(to, real, accountID);
    return MoveFileTo(from, to);
}

void EraseTransactions(TransactionFile file, uint32_t accountID) {
    char path[PathRoom];
    TransactionPath(path, file, accountID);
    if (FileThere(path) != 0)
        static_cast<void>(DeleteFileAt(path)); // a refusal ends the action
}
