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

struct Rung { // what decides the order of two rows
    uint32_t DayNumber, Rank;
};

Rung RungOf(FileKind kind, int32_t index) {
    if (kind == FileKind::Recurring) {
        DDRecFile *item = RunRecord<DDRec>(index);
        DecipherRecord(kind, item);
        return {item->Rec.NextDate.DayNumber, item->Rec.Rank};
    }
    TRecFile *row = RunRecord<TRec>(index);
    DecipherRecord(kind, row);
    return {row->Rec.Date.DayNumber, row->Rec.Rank};
}

} // namespace

int32_t PositionByDate(const Place &place, const RecDate &date, uint32_t rank) {
    const FileKind kind = KindOfList(place.List);
    const bool items = kind == FileKind::Recurring;
    if (!items && kind != FileKind::Transactions) {
        ReportError(In::CpDates, Trouble::CaseError);
        return 1;
    }
    const int handle = OpenPlace(place, OpenOrCreate);
    if (handle < 0)
        ReportError(In::CpDates, CreateFailOf(kind));
    const auto before = [&](const Rung &rung) {
        return rung.DayNumber < date.DayNumber ||
               (rung.DayNumber == date.DayNumber && (items ? rung.Rank < rank : rung.Rank <= rank));
    };
    // Most rows belong near the end: the runs read backward start small and grow.
    int32_t last = CountRecords(handle, kind), most = 4;
    while (last > 0) {
        const int32_t first = std::max(1, last - most + 1);
        int32_t index = ReadRun(handle, kind, first, last - first + 1) - 1;
        while (index >= 0 && !before(RungOf(kind, index)))
            --index;
        last = first + index;
        if (index >= 0)
            break;
        most = std::min(most * 4, RunLength(kind));
    }
    CloseFile(handle);
    return last + 1;
}
