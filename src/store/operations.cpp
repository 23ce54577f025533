#include "store/operations.h"
#include "cipher/hooks.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/runs.h"
#include <algorithm>

namespace {

// A handle, below 0 (reported) when there is none.
int Open(const Place &place, In function) {
    if (!state.DataUsable)
        return -1;
    if (!FactsOfList(place.List)) {
        ReportError(function, Trouble::CaseError);
        return -1;
    }
    const int file = OpenPlace(place, OpenOrCreate);
    if (file < 0 && (place.List != TransactionList || place.Account != 0))
        ReportError(function, CreateFailOf(KindOfList(place.List)));
    return file;
}

// Closes, and reports when the operation was refused.
int Done(int file, FileKind kind, int succeeded, In function) {
    if (!succeeded)
        ReportError(function, WriteFailOf(kind));
    CloseFile(file);
    return succeeded;
}

} // namespace

int FetchBytes(const Place &place, int32_t position, RecordBuffer *record) {
    const ListFacts *list = FactsOfList(place.List);
    const int file = Open(place, list ? list->Loader : In::CopyRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(place.List);
    const int there =
        position >= 1 && position <= CountRecords(file, kind) && ReadRecord(file, kind, position, record->Bytes);
    CloseFile(file);
    return there;
}

int32_t AddBytes(const Place &place, int32_t position, RecordBuffer record) {
    const int file = Open(place, In::AddRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(place.List);
    const int32_t count = CountRecords(file, kind);
    position = place.List == BinList ? count + 1 : std::clamp(position, 1, count + 1);
    ForgetFindings(place);
    const int added = MoveRun(file, kind, position, count + 1 - position, position + 1) &&
                      WriteRecord(file, kind, position, record.Bytes);
    return Done(file, kind, added, In::AddRecFile) ? position : 0;
}

int ChangeBytes(const Place &place, int32_t position, RecordBuffer record) {
    const int file = Open(place, In::ModRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(place.List);
    if (position < 1 || position > CountRecords(file, kind)) {
        CloseFile(file);
        return 0;
    }
    if (place.List == TransactionList)
        state.ReconcileState = ReconcileStep::Idle;
    return Done(file, kind, MayGo(file, kind, position, position) && WriteRecord(file, kind, position, record.Bytes),
                In::ModRecFile);
}

int RemoveRecords(const Place &place, int32_t first, int32_t last) {
    const int file = Open(place, In::DeleteRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(place.List);
    const int32_t count = CountRecords(file, kind);
    if (first < 1 || first > last || last > count) {
        CloseFile(file);
        return 0;
    }
    ForgetFindings(place);
    const int removed = MayGo(file, kind, first, last) && MoveRun(file, kind, last + 1, count - last, first) &&
                        CutFile(file, int64_t{count - (last - first + 1)} * RecordSize(kind));
    return Done(file, kind, removed, In::DeleteRecFile);
}

int32_t MoveRecord(const Place &place, int32_t from, int32_t to) {
    const int file = Open(place, In::MoveRecFile);
    if (file < 0)
        return 0;
    const FileKind kind = KindOfList(place.List);
    const int size = RecordSize(kind);
    const int32_t count = CountRecords(file, kind), landing = to > from ? to - 1 : to;
    if (from < 1 || from > count || landing < 1 || landing > count) {
        CloseFile(file);
        return 0;
    }
    ForgetFindings(place);
    RecordBuffer moved;
    const int64_t at = (from - int64_t{1}) * size;
    const int done = ReadFileAt(file, at, moved.Bytes, size) == size &&
                     (landing > from ? MoveRun(file, kind, from + 1, landing - from, from)
                                     : MoveRun(file, kind, landing, from - landing, landing + 1)) &&
                     WriteFileAt(file, (landing - int64_t{1}) * size, moved.Bytes, size);
    return Done(file, kind, done, In::MoveRecFile) ? landing : 0;
}

void ForgetFindings(const Place &place) {
    if (place.List == TransactionList)
        state.ReconcileState = ReconcileStep::Idle;
    if (!SamePlace(place, state.RangeStartPlace) && !SamePlace(place, state.RangeFinishPlace))
        return;
    state.RangeStart = state.RangeFinish = 0;
    state.RangeStartPlace = state.RangeFinishPlace = {};
}

int32_t CountOf(const Place &place) {
    if (!state.DataUsable)
        return 0;
    const int file = OpenPlace(place, OpenExisting);
    const int32_t count = CountRecords(file, KindOfList(place.List));
    CloseFile(file);
    return count;
}
