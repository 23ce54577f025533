#include "ledger/order.h"
#include "cipher/hooks.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/runs.h"
#include <algorithm>

uint32_t RankOf(uint8_t rowKind, In function) {
    switch (rowKind) { // ORDER ROWKIND
    case DayMarker:
        return DayRank;
    case ArchiveMarker:
        return ArchiveRank;
    case DeletedMarker:
        return DeletedRank;
    case EntryRow:
    case ReconcileEntry:
        return EntryRank;
    }
    ReportError(function, Trouble::CaseError);
    return EntryRank;
}

namespace {

struct Place { // what decides the order of two rows
    uint32_t DayNumber, Rank;
};

Place PlaceOf(FileKind kind, const void *record) {
    if (kind == FileKind::Recurring) {
        const auto *item = static_cast<const DDRec *>(record);
        return {item->NextDate.DayNumber, item->Rank};
    }
    const auto *row = static_cast<const TRec *>(record);
    return {row->Date.DayNumber, row->Rank};
}

} // namespace

int32_t CpDates(const RecDate &date, uint32_t rank) {
    const FileKind kind = KindOfList(state.CurrentScreen);
    const bool items = state.CurrentScreen == RecurringList;
    if (!items && kind != FileKind::Transactions) {
        ReportError(In::CpDates, Trouble::CaseError);
        return 1;
    }
    uint32_t filtered;
    const int handle = OpenDataFile(kind, OpenOrCreate, state.CurAccount.ID, &filtered);
    if (handle < 0)
        ReportError(In::CpDates, CreateFailOf(kind));
    const int32_t count = CountRecords(handle, kind);
    // Most rows belong near the end: the runs read backward start small and grow.
    int32_t last = count, most = 4;
    Place found = {0, 0};
    while (last > 0) {
        const int32_t first = std::max(1, last - most + 1);
        const int32_t read = ReadRun(handle, kind, first, last - first + 1);
        int32_t index = read - 1;
        for (; index >= 0; --index) {
            void *record = RunRecord(kind, index);
            DecipherRecord(kind, record);
            found = PlaceOf(kind, record);
            if (found.DayNumber < date.DayNumber ||
                (found.DayNumber == date.DayNumber && (items ? found.Rank < rank : found.Rank <= rank)))
                break;
        }
        last = first + index;
        if (index >= 0)
            break;
        most = std::min(most * 4, RunLength(kind));
    }
    CloseFile(handle);
    if (!items) {
        state.FoundDayNumber = last > 0 ? found.DayNumber : 0;
        state.EntryCount[TransactionList] = count;
    }
    return last + 1;
}
