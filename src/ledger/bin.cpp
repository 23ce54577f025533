#include "ledger/bin.h"
#include "cipher/hooks.h"
#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/bin_record.h"
#include "ledger/markers.h"
#include "ledger/order.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr TransactionFile AccountFiles[] = {TransactionFile::Live, TransactionFile::LiveFilter,
                                            TransactionFile::Archive, TransactionFile::ArchiveFilter};

int EraseFile(const char *path) {
    if (FileThere(path) == 0 || DeleteFileAt(path))
        return 1;
    ReportError(In::WndProc, Trouble::FileDelete);
    return 0;
}

int64_t TypeOfOwner(const Place &place) {
    ARec account = {};
    if (place.List == TransactionList)
        FindAccount(place.Account, &account, nullptr);
    return account.AccType;
}

// Headings are made anew with a stroke.
bool IsHeading(const Place &place, const RecordBuffer &record) {
    ARec account;
    if (place.List != AccountList)
        return false;
    UnpackRow(record, &account);
    return account.RowKind == HeadingRow;
}

// The files of the accounts whose rows stand between two positions of the bin. 0 when a row can't be read or a file
// can't be erased: the action is refused then, and every file stays.
int EraseFilesOfRows(int32_t first, int32_t last) {
    const int handle = OpenDataFile(FileKind::Bin, OpenExisting);
    int erased = 1;
    for (int32_t position = first; erased && position <= last; ++position) {
        BinRecFile row;
        erased = ReadRecord(handle, FileKind::Bin, position, &row) &&
                 (row.Rec.SourceList != AccountList || EraseAccountFiles(row.Rec.OwnerID));
    }
    CloseFile(handle);
    return erased;
}

// Appends the range to the bin, some rows at a time: as they are read in the first half of the one buffer, their bin
// rows in the second. 0 when the bin can't take it.
int CopyRangeToBin(const Place &place, int32_t first, int32_t last) {
    constexpr int32_t AtOnce = RunBytes / 2 / static_cast<int32_t>(sizeof(BinRecFile)); // the widest kind
    const FileKind kind = KindOfList(place.List);
    const int size = RecordSize(kind);
    const int64_t ownerType = TypeOfOwner(place);
    const int source = OpenPlace(place, OpenExisting), bin = OpenDataFile(FileKind::Bin, OpenOrCreate);
    int32_t to = CountRecords(bin, FileKind::Bin) + 1;
    int copied = source >= 0 && bin >= 0;
    for (int32_t read = 0; copied && first <= last; first += read, to += read) {
        read = ReadRecords(source, kind, first, std::min(AtOnce, last - first + 1), state.RunBuffer);
        copied = read > 0;
        for (int32_t index = 0; copied && index < read; ++index) {
            RecordBuffer record;
            std::memcpy(record.Bytes, state.RunBuffer + index * size, static_cast<size_t>(size));
            BinRecFile *row = RunRecord<BinRec>(AtOnce + index);
            *row = {};
            copied = RecordToBin(place, ownerType, record, &row->Rec) && EncipherRecord(FileKind::Bin, row);
        }
        copied = copied && WriteRun(bin, FileKind::Bin, AtOnce, read, to);
    }
    if (!copied)
        ReportError(In::DeleteRecRange, bin < 0 ? Trouble::BcreateFail : Trouble::BwriteFail);
    CloseFile(bin);
    CloseFile(source);
    return copied;
}

} // namespace

int DeleteToBin(const Place &place, int32_t position) {
    RecordBuffer record;
    if (!FetchBytes(place, position, &record))
        return 0;
    if (place.List == BinList) {
        if (!EraseFilesOfRows(position, position))
            return 0;
    } else if (!IsHeading(place, record)) {
        BinRec row;
        if (!RecordToBin(place, TypeOfOwner(place), record, &row) || !AddRecord(Place{BinList}, 1, row))
            return 0;
    }
    return RemoveRecord(place, position);
}

int DeleteRangeToBin(const Place &place, int32_t first, int32_t last) {
    const int32_t count = CountOf(place);
    if (first > last || first < 1 || first > count)
        return -1;
    last = std::min(last, count);
    if (!(place.List == BinList ? EraseFilesOfRows(first, last) : CopyRangeToBin(place, first, last)))
        return 0;
    return place.List == TransactionList && first == 1 ? DeleteN(place, last) : RemoveRecords(place, first, last);
}

int DeleteN(const Place &place, int32_t count) {
    count = std::min(count, CountOf(place));
    if (count < 1)
        return state.DataUsable != 0;
    if (place.Of == View::Live)
        return RemoveRecords(place, 1, count);
    TRec marker;
    if (!FetchRecord(place, count, &marker))
        return 0;
    MakeDeletedMarker(&marker, TypeOfOwner(place));
    return ChangeRecord(place, 1, marker) && (count < 2 || RemoveRecords(place, 2, count));
}

int32_t RestoreRecord(const BinRec &bin, Place *where) {
    RecordBuffer record;
    if (!BinToRecord(bin, &record))
        return 0;
    const Place archive = RowsOf(bin.OwnerID, View::Archive, Rows::All);
    *where = {static_cast<int>(bin.SourceList)};
    if (where->List == TransactionList) {
        if (!AccountThere(bin.OwnerID))
            return 0;
        // An archive without rows has no marker in the live file that would carry the row's money.
        *where = bin.WasArchive == 1 && CountOf(archive) > 0 ? archive : LiveRows(bin.OwnerID, Rows::All);
    }
    int32_t position = CountOf(*where) + 1;
    bool standsForArchive = false;
    if (where->List == TransactionList) {
        TRec row;
        UnpackRow(record, &row);
        // A second marker would count the archive twice; what the first one stood for comes back as it was.
        standsForArchive = row.RowKind == ArchiveMarker && CountOf(archive) > 0 && !ArchiveMarked(bin.OwnerID);
        if (row.RowKind == ArchiveMarker && !standsForArchive) {
            CallDeletedMarker(&row);
            record = PackRow(row);
        }
        position = PositionByDate(*where, row.Date, row.Rank);
    } else if (where->List == RecurringList) {
        DDRec item;
        UnpackRow(record, &item);
        position = PositionByDate(*where, item.NextDate, item.Rank);
    }
    position = AddBytes(*where, position, record);
    if (position > 0 && where->List == TransactionList)
        CalcTotals(standsForArchive ? archive : *where);
    if (position > 0 && where->List == AccountList)
        CheckT1totals(); // days have passed since it was deleted
    return position;
}

int32_t MoveBin(int32_t position, Place *where) {
    BinRec bin;
    if (!FetchRecord(Place{BinList}, position, &bin))
        return 0;
    const int32_t restored = RestoreRecord(bin, where);
    return restored > 0 && RemoveRecord(Place{BinList}, position) ? restored : 0;
}

bool AccountInBin(uint32_t accountID) {
    const int handle = OpenDataFile(FileKind::Bin, OpenExisting);
    bool found = false;
    BinRecFile row;
    for (int32_t position = 1; !found && ReadRecord(handle, FileKind::Bin, position, &row); ++position)
        found = row.Rec.SourceList == AccountList && row.Rec.OwnerID == accountID;
    CloseFile(handle);
    return found;
}

int EraseAccountFiles(uint32_t accountID) {
    if (!state.DataUsable)
        return 0;
    if (IDtoRec(accountID))
        return 1;
    int erased = 1;
    for (const TransactionFile file : AccountFiles) {
        char path[PathRoom];
        TransactionPath(path, file, accountID);
        erased &= EraseFile(path);
    }
    return erased;
}

int EmptyBin() {
    char path[PathRoom];
    DataPath(path, FileKind::Bin);
    return state.DataUsable && EraseFilesOfRows(1, CountOf(Place{BinList})) && EraseFile(path);
}
