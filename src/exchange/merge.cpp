#include "exchange/merge.h"
#include "cipher/hooks.h"
#include "ledger/account_file.h"
#include "ledger/row_copy.h"
#include "store/runs.h"
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;
constexpr int32_t OutRecords = 256;

bool Before(const TRec &a, const TRec &b) {
    return a.Date.DayNumber != b.Date.DayNumber ? a.Date.DayNumber < b.Date.DayNumber : a.Rank < b.Rank;
}

// For each new row how many rows of the file stand before it: from the end on, as each would be looked for by itself,
// and only as far as needed. 0 when the file can't be read.
int FindPlaces(int source, int32_t count, const TRec *const *rows, int32_t added, int32_t *places) {
    int32_t left = added;
    for (int32_t last = count; last > 0 && left > 0;) {
        const int32_t from = last > RunLength(Kind) ? last - RunLength(Kind) + 1 : 1;
        const int32_t read = ReadRun(source, Kind, from, last - from + 1);
        if (read != last - from + 1)
            return 0;
        for (int32_t index = read; index > 0 && left > 0; --index) {
            auto *record = static_cast<TRecFile *>(RunRecord(Kind, index - 1));
            DecipherRecord(Kind, record);
            while (left > 0 && !Before(*rows[left - 1], record->Rec))
                places[--left] = from + index - 1;
        }
        last = from - 1;
    }
    while (left > 0)
        places[--left] = 0;
    return 1;
}

struct Outflow { // the new file
    int File;
    int32_t Written; // records in the file
    int32_t Count;   // in Records
    int Failed;
    TRecFile Records[OutRecords];
};

void Flush(Outflow *out) {
    constexpr int64_t Size = sizeof(TRecFile);
    if (out->Count > 0 && !WriteFileAt(out->File, out->Written * Size, out->Records, out->Count * Size))
        out->Failed = 1;
    out->Written += out->Count;
    out->Count = 0;
}

TRecFile *NextRecord(Outflow *out) {
    if (out->Count == OutRecords)
        Flush(out);
    return &out->Records[out->Count++];
}

void WriteNew(Outflow *out, const TRec &row) {
    TRecFile *record = NextRecord(out);
    *record = {row, {}};
    EncipherRecord(Kind, record);
}

// Copies the rows `from` to `last` as they lie. 0 when they can't be read.
int WriteOld(Outflow *out, int source, int32_t from, int32_t last) {
    while (from <= last) {
        const int32_t read = ReadRun(source, Kind, from, last - from + 1);
        if (read == 0)
            return 0;
        for (int32_t index = 0; index < read; ++index)
            std::memcpy(NextRecord(out), RunRecord(Kind, index), sizeof(TRecFile));
        from += read;
    }
    return 1;
}

// The rows of the file with the new ones between them. 0 when anything could not be read or written.
int WriteMerged(int source, const TRec *const *rows, int32_t added, int work) {
    const int32_t count = CountRecords(source, Kind);
    static int32_t places[MostMerged];
    if (!FindPlaces(source, count, rows, added, places))
        return 0;
    static Outflow out;
    out.File = work;
    out.Count = out.Failed = 0;
    if (CopyRun(source, Kind, 1, places[0], work, 1) != places[0])
        return 0;
    out.Written = places[0];
    int32_t done = places[0];
    for (int32_t n = 0; n < added; ++n) {
        if (!WriteOld(&out, source, done + 1, places[n]))
            return 0;
        done = places[n];
        WriteNew(&out, *rows[n]);
    }
    const int copied = WriteOld(&out, source, done + 1, count);
    Flush(&out);
    return copied && !out.Failed;
}

} // namespace

int MergeEntries(uint32_t accountID, uint32_t archive, const TRec *const *rows, int32_t count) {
    if (count < 1 || count > MostMerged)
        return count == 0;
    const auto real = archive ? TransactionFile::Archive : TransactionFile::Live;
    const auto beside = archive ? TransactionFile::ArchiveFilterWork : TransactionFile::LiveFilterWork;
    const int source = OpenTransactions(real, accountID, OpenOrCreate);
    const int work = source >= 0 ? OpenWorkFile(beside, accountID) : -1;
    int merged = work >= 0 && WriteMerged(source, rows, count, work);
    CloseFile(source);
    if (work >= 0 && !CloseFile(work))
        merged = 0;
    if (merged && ReplaceBy(beside, real, accountID))
        return 1;
    if (work >= 0)
        EraseTransactions(beside, accountID);
    return 0;
}
