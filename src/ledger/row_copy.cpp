#include "ledger/row_copy.h"
#include "cipher/hooks.h"
#include "ledger/account_file.h"
#include "store/runs.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

uint32_t DayAt(int handle, int32_t position) {
    TRecFile record;
    return ReadRecord(handle, Kind, position, &record) ? record.Rec.Date.DayNumber : 0;
}

} // namespace

int32_t CopyRows(int source, int32_t from, int32_t last, int target, int32_t to, RowChoice choice, void *context) {
    int32_t copied = 0, read;
    for (; from <= last && (read = ReadRun(source, Kind, from, last - from + 1)) > 0; from += read) {
        int32_t chosen = 0;
        for (int32_t index = 0; index < read; ++index) {
            auto *record = static_cast<TRecFile *>(RunRecord(Kind, index));
            DecipherRecord(Kind, record);
            if (!choice(&record->Rec, from + index, context))
                continue;
            std::memset(record->Tail, 0, sizeof record->Tail);
            EncipherRecord(Kind, record);
            if (chosen != index)
                std::memcpy(RunRecord(Kind, chosen), record, sizeof *record);
            ++chosen;
        }
        const bool inPlace = source == target && chosen == read && to + copied == from;
        if (chosen > 0 && !inPlace && !WriteRun(target, Kind, 0, chosen, to + copied))
            return -1;
        copied += chosen;
    }
    return from > last ? copied : -1;
}

int32_t MergeRows(int source, int32_t first, int32_t split, int target) {
    const int32_t count = CountRecords(source, Kind);
    int32_t copied = CopyRun(source, Kind, 1, first - 1, target, 1);
    int32_t a = first, b = split + 1; // the next row of each part
    while (a <= split || b <= count) {
        const uint32_t dayA = a <= split ? DayAt(source, a) : 0, dayB = b <= count ? DayAt(source, b) : 0;
        // A stretch of one part goes over in runs.
        int32_t *next = a > split || (b <= count && dayB < dayA) ? &b : &a;
        const int32_t from = *next;
        if (next == &a)
            do
                ++a;
            while (a <= split && (b > count || DayAt(source, a) <= dayB));
        else
            do
                ++b;
            while (b <= count && (a > split || DayAt(source, b) < dayA));
        if (CopyRun(source, Kind, from, *next - from, target, copied + 1) != *next - from)
            return -1;
        copied += *next - from;
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
    if (FileThere(path))
        static_cast<void>(DeleteFileAt(path));
}
