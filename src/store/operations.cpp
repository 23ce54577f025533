#include "store/operations.h"
#include "cipher/hooks.h"
#include "records/fields.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/runs.h"
#include "store/windows.h"
#include <cstring>

namespace {

struct alignas(8) RecordBuffer {
    uint8_t Bytes[LargestRecord];
};

// The list worked on, NoList (reported) when the screen shows none that holds records.
int ListWorkedOn(In function) {
    const int list = state.CurrentScreen == GraphList ? TransactionList : state.CurrentScreen;
    if (list > NoList && list < ListCount)
        return list;
    ReportError(function, Trouble::CaseError);
    return NoList;
}

int OpenList(int list, uint32_t accountID, In function) {
    const FileKind kind = KindOfList(list);
    if (kind == FileKind::Transactions && accountID == 0)
        return -1; // no account, no file
    const int file = OpenDataFile(kind, OpenOrCreate, accountID, nullptr);
    if (file < 0)
        ReportError(function, CreateFailOf(kind));
    return file;
}

// Adds the rows' own amounts to the totals of the row before the first of them, to the end of the file. A plain sum:
// markers and share rows are only put right by CalcBalance.
void CarryTotals(int file, int32_t first, FixedAmount total, FixedAmount cleared) {
    constexpr FileKind Kind = FileKind::Transactions;
    for (int32_t count; (count = ReadRun(file, Kind, first, RunLength(Kind))) > 0; first += count) {
        int32_t changedFrom = count, changedEnd = 0;
        for (int32_t i = 0; i < count; ++i) {
            auto *row = static_cast<TRec *>(RunRecord(Kind, i));
            DecipherRecord(Kind, row);
            total = AddAmounts(total, TimesUnits(row->Units, row->Value));
            if (row->Cleared == 1)
                cleared = AddAmounts(cleared, TimesUnits(row->Units, row->ClearedValue));
            if (row->RunTotal != total || row->RunCleared != cleared) {
                changedFrom = changedFrom < i ? changedFrom : i;
                changedEnd = i + 1;
            }
            row->RunTotal = total;
            row->RunCleared = cleared;
            EncipherRecord(Kind, row);
        }
        if (changedEnd > changedFrom &&
            !WriteRun(file, Kind, changedFrom, changedEnd - changedFrom, first + changedFrom)) {
            ReportError(In::ModRecFile, Trouble::TwriteFail);
            return;
        }
    }
}

int RewriteTransaction(int file, int32_t position, const void *record) {
    TRec old = {}, row = {};
    if (!ReadRow(file, TransactionList, position, &old))
        return 0;
    CopyRecFile(TransactionList, record, &row);
    row.RunTotal =
        AddAmounts(old.RunTotal, SubtractAmounts(TimesUnits(row.Units, row.Value), TimesUnits(old.Units, old.Value)));
    // Deliberate: a cleared row's new cleared total leaves the old one out. The callers run CalcBalance next.
    row.RunCleared = row.Cleared == 1 ? SubtractAmounts(TimesUnits(row.Units, row.ClearedValue),
                                                        TimesUnits(old.Units, old.ClearedValue))
                                      : old.RunCleared;
    if (!WriteRow(file, TransactionList, position, &row)) {
        ReportError(In::ModRecFile, Trouble::TwriteFail);
        return 0;
    }
    CarryTotals(file, position + 1, row.RunTotal, row.RunCleared);
    return 1;
}

} // namespace

void CopyRecFile(int list, const void *source, void *destination) {
    const RecordFields fields = FieldsOfList(list);
    if (fields.Count == 0)
        ReportError(In::CopyRecFile, Trouble::CaseError);
    CopyFields(fields, source, destination);
}

int ReadRow(int handle, int list, int32_t position, void *row) {
    RecordBuffer buffer;
    if (!ReadRecord(handle, KindOfList(list), position, buffer.Bytes))
        return 0;
    CopyRecFile(list, buffer.Bytes, row);
    return 1;
}

int WriteRow(int handle, int list, int32_t position, const void *row) {
    RecordBuffer buffer = {};
    CopyRecFile(list, row, buffer.Bytes);
    return WriteRecord(handle, KindOfList(list), position, buffer.Bytes);
}

int AddRecFile(uint32_t accountID, int32_t position, const void *record, int noReload) {
    if (!state.DataUsable)
        return 0;
    state.ReconcileState = ReconcileStep::Idle;
    const int list = ListWorkedOn(In::AddRecFile);
    const int file = list ? OpenList(list, accountID, In::AddRecFile) : -1;
    if (file < 0)
        return 0;

    const FileKind kind = KindOfList(list);
    const int64_t length = FileLength(file);
    const int32_t count = CountRecords(file, kind);
    if (list == BinList || position > count + 1)
        position = count + 1;
    else if (position < 1)
        position = 1;
    const int32_t behind = count + 1 - position;
    int added = MoveRun(file, kind, position, behind, position + 1);
    if (added && !WriteRow(file, list, position, record)) {
        added = 0;
        if (MoveRun(file, kind, position + 1, behind, position))
            static_cast<void>(CutFile(file, length));
    }
    if (!added)
        ReportError(In::AddRecFile, WriteFailOf(kind));
    state.EntryCount[list] = CountRecords(file, kind);
    CloseFile(file);

    if (list == TransactionList) {
        if (added)
            state.SelectedPos[TransactionList] = position;
        if (added && !noReload)
            LoadAccFile(state.TopPos[AccountList]);
        state.CurrentScreen = TransactionList;
    }
    return added;
}

int ModRecFile(uint32_t accountID, int32_t position, const void *record) {
    if (!state.DataUsable)
        return 0;
    const int list = ListWorkedOn(In::ModRecFile);
    if (list == NoList || (list == TransactionList && state.FilterShown == 1))
        return 0;
    const int file = OpenList(list, accountID, In::ModRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(list);
    int changed = 0;
    if (position >= 1 && position <= CountRecords(file, kind)) {
        if (list == TransactionList)
            changed = RewriteTransaction(file, position, record);
        else if (!(changed = WriteRow(file, list, position, record)))
            ReportError(In::ModRecFile, WriteFailOf(kind));
    }
    CloseFile(file);
    return changed;
}

int DeleteRecFile(uint32_t accountID, int32_t position) {
    if (!state.DataUsable)
        return 0;
    state.ReconcileState = ReconcileStep::Idle;
    const int list = ListWorkedOn(In::DeleteRecFile);
    const int file = list ? OpenList(list, accountID, In::DeleteRecFile) : -1;
    if (file < 0)
        return 0;

    const FileKind kind = KindOfList(list);
    const int64_t size = RecordSize(kind);
    const int32_t count = CountRecords(file, kind);
    RecordBuffer removed; // as it lies in the file, to put it back when the gap can't be closed
    int deleted = 0;
    if (position >= 1 && position <= count && ReadFileAt(file, (position - 1) * size, removed.Bytes, size) == size) {
        const int closed = MoveRun(file, kind, position + 1, count - position, position);
        deleted = closed && CutFile(file, (count - 1) * size);
        if (!deleted) {
            if (closed)
                static_cast<void>(MoveRun(file, kind, position, count - position, position + 1));
            static_cast<void>(WriteFileAt(file, (position - 1) * size, removed.Bytes, size));
            ReportError(In::DeleteRecFile, WriteFailOf(kind));
        }
    }
    state.EntryCount[list] = CountRecords(file, kind);
    CloseFile(file);
    return deleted;
}
