#include "store/windows.h"
#include "platform/shell.h"
#include "state/error_log.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

// What a loader must know of its list.
struct WindowRow {
    void *Rows; // from row 1
    uint16_t RowBytes;
    uint16_t Name;   // offset of the text that names a row
    int16_t DateKey; // offset of the day number that is 0 in an empty row, -1 for none
    In Reporter;
    void (*Init)(void *row);
};

template <typename Rec, void (*Init)(Rec *)> constexpr auto InitAs = [](void *row) { Init(static_cast<Rec *>(row)); };

constexpr int16_t DayNumberAt(size_t date) {
    return static_cast<int16_t>(date + offsetof(RecDate, DayNumber));
}

// clang-format off
constexpr WindowRow Windows[] = { // ORDER LIST
    {},
    {state.AccRows + 1, sizeof(ARec),   offsetof(ARec, Name),       -1,
     In::LoadAccFile,  InitAs<ARec, InitARec>},
    {nullptr,           sizeof(TRec),   offsetof(TRec, Name),       DayNumberAt(offsetof(TRec, Date)),
     In::LoadTranFile, InitAs<TRec, InitTRec>},
    {},
    {state.DDRows + 1,  sizeof(DDRec),  offsetof(DDRec, Name),      DayNumberAt(offsetof(DDRec, NextDate)),
     In::LoadDDFile,   InitAs<DDRec, InitDDRec>},
    {state.FavRows + 1, sizeof(FRec),   offsetof(FRec, Name),       -1,
     In::LoadFavFile,  InitAs<FRec, InitFRec>},
    {state.BinRows + 1, sizeof(BinRec), offsetof(BinRec, Name),     DayNumberAt(offsetof(BinRec, Date)),
     In::LoadBinFile,  InitAs<BinRec, InitBinRec>},
    {state.CatRows + 1, sizeof(CatRec), offsetof(CatRec, Name),     -1,
     In::LoadCatFile,  InitAs<CatRec, InitCatRec>},
    {state.CurRows + 1, sizeof(CurRec), offsetof(CurRec, FromName), -1,
     In::LoadCatFile,  InitAs<CurRec, InitCurRec>},
};
// clang-format on
static_assert(std::size(Windows) == ListCount);

// No row of the window is one of the file's.
void ClearRow(const WindowRow &window, uint8_t *row) {
    window.Init(row);
    if (window.DateKey >= 0)
        std::memset(row + window.DateKey, 0, sizeof(uint32_t));
}

// The newest records into a file of their own that then takes the bin's place: whenever this is broken off, the bin
// is either as it was or trimmed. Returns the count that now stands.
int32_t TrimBin(int file, int32_t count) {
    char bin[PathRoom], trimmed[PathRoom];
    DataPath(bin, FileKind::Bin);
    std::snprintf(trimmed, sizeof trimmed, "%s\\BIN~", DataDirectory);
    const int target = OpenFile(trimmed, OpenOrCreate);
    const int copied = target >= 0 && CutFile(target, 0) &&
                       CopyRun(file, FileKind::Bin, count - BinKeep + 1, BinKeep, target, 1) == BinKeep;
    if (target >= 0)
        CloseFile(target);
    if (copied && MoveFileTo(trimmed, bin))
        return BinKeep;
    ReportError(In::LoadBinFile, Trouble::BwriteFail);
    if (target >= 0)
        static_cast<void>(DeleteFileAt(trimmed));
    return count;
}

// The first record decides whether the file may be used.
int AcceptFile(int file, int list, In function) {
    alignas(8) uint8_t record[LargestRecord];
    return !ReadRecord(file, KindOfList(list), 1, record) || AcceptVersion(record[0], function);
}

void ReadWindow(int file, int list, const WindowRow &window) {
    const FileKind kind = KindOfList(list);
    alignas(8) uint8_t records[MostRows * sizeof(BinRecFile)]; // the widest kind that a list shows
    const int32_t read = ReadRecords(file, kind, state.TopPos[list], state.RowCount, records);
    auto *row = static_cast<uint8_t *>(window.Rows);
    for (int i = 0; i < read; ++i, row += window.RowBytes) {
        CopyRecFile(list, records + i * RecordSize(kind), row);
        if (row[0] != RecordVersion) {
            Beep();
            TraceWide(reinterpret_cast<const char16_t *>(row + window.Name));
        }
    }
}

int LoadWindow(int list, int32_t top) {
    const WindowRow &window = Windows[list];
    for (int i = 0; i < MostRows; ++i)
        ClearRow(window, static_cast<uint8_t *>(window.Rows) + i * window.RowBytes);
    const auto refuse = [list] {
        state.EntryCount[list] = 0;
        state.TopPos[list] = state.SelectedPos[list] = 1;
        return 0;
    };
    if (!state.DataUsable)
        return refuse();
    state.CurrentScreen = list;
    const FileKind kind = KindOfList(list);
    int file = OpenDataFile(kind, OpenOrCreate, 0, nullptr);
    if (file < 0) {
        ReportError(window.Reporter, CreateFailOf(kind));
        state.EntryCount[list] = 0;
        state.TopPos[list] = 1;
        return 1;
    }
    if (!AcceptFile(file, list, window.Reporter)) {
        CloseFile(file);
        return refuse();
    }
    int32_t count = CountRecords(file, kind);
    if (list == BinList && count > BinTrimAbove && TrimBin(file, count) == BinKeep) {
        CloseFile(file);
        file = OpenDataFile(kind, OpenOrCreate, 0, nullptr);
        count = CountRecords(file, kind);
    }
    state.EntryCount[list] = count;
    state.TopPos[list] = list == RecurringList && top < 1 ? 1 : TopFor(top, count);
    ReadWindow(file, list, window);
    CloseFile(file);
    return 1;
}

// A record of a list into the caller's row, or the list's defaults.
int FetchRow(int list, uint32_t accountID, int32_t position, void *row) {
    const WindowRow &window = Windows[list];
    const FileKind kind = KindOfList(list);
    window.Init(row);
    if (!state.DataUsable)
        return 0;
    int32_t count = 0;
    int there = 0;
    if (list != TransactionList || accountID) {
        const int file = OpenDataFile(kind, OpenOrCreate, accountID, nullptr);
        if (file < 0) {
            ReportError(window.Reporter, CreateFailOf(kind));
        } else {
            count = CountRecords(file, kind);
            there = position >= 1 && position <= count && ReadRow(file, list, position, row);
            CloseFile(file);
        }
    }
    state.EntryCount[list] = count;
    return there;
}

// Every column stays at least this wide, the last ones giving way first.
void SetTransactionEdges(const ARec &account) {
    constexpr int32_t Least = 30;
    int32_t *edge = state.ColumnEdge[TransactionList];
    edge[0] = 0;
    edge[1] = account.AccType == ListAccount ? 0 : denormalise(account.ColumnPos[1]);
    if (account.AccType != ListAccount && edge[1] < Least)
        edge[1] = Least;
    edge[2] = denormalise(account.ColumnPos[2]);
    edge[3] = denormalise(account.ColumnPos[3]);
    edge[4] = RightEdge;
    if (edge[1] + Least > edge[2])
        edge[2] = edge[1] + Least;
    if (edge[2] + Least > edge[3])
        edge[3] = edge[2] + Least;
    for (int i = 3; i > 0 && edge[i] + Least > edge[i + 1]; --i)
        edge[i] = edge[i + 1] - Least;
    for (int i = 0; i < 5; ++i) {
        state.LoadedEdge[TransactionList][i] = edge[i];
        state.StoredColumn[TransactionList][i] = account.ColumnPos[i];
    }
}

} // namespace

int LoadAccFile(int32_t top) {
    SumHeadings();
    const int loaded = LoadWindow(AccountList, top);
    if (state.EntryCount[AccountList] > 0)
        return loaded;
    state.SelectedPos[AccountList] = 1;
    return 0;
}

int LoadFavFile(int32_t top) {
    return LoadWindow(TemplateList, top);
}
int LoadCatFile(int32_t top) {
    return LoadWindow(CategoryList, top);
}
int LoadCurFile(int32_t top) {
    return LoadWindow(ConversionList, top);
}
int LoadBinFile(int32_t top) {
    return LoadWindow(BinList, top);
}
int LoadDDFile(int32_t top) {
    return LoadWindow(RecurringList, top);
}

int FetchAccount(int32_t position, ARec *row) {
    if (!FetchRow(AccountList, 0, position, row))
        return 0;
    state.AccountKind = static_cast<int32_t>(row->AccType);
    SetTransactionEdges(*row);
    return 1;
}

int FetchTran(int32_t position, TRec *row) {
    if (FetchRow(TransactionList, state.CurAccount.ID, position, row))
        return 1;
    row->ClearedUnits = 1;
    return 0;
}

int FetchDD(int32_t position, DDRec *row) {
    if (FetchRow(RecurringList, 0, position, row))
        return 1;
    row->ItemStatus = 2; // refers to an account that is not there
    return 0;
}

int FetchFav(int32_t position, FRec *row) {
    return FetchRow(TemplateList, 0, position, row);
}
int FetchBin(int32_t position, BinRec *row) {
    return FetchRow(BinList, 0, position, row);
}
int FetchCat(int32_t position, CatRec *row) {
    return FetchRow(CategoryList, 0, position, row);
}
int FetchCur(int32_t position, CurRec *row) {
    return FetchRow(ConversionList, 0, position, row);
}

void InitARec(ARec *row) {
    static constexpr int32_t Pixels[5] = {0, 45, 135, 180, 226};
    *row = {};
    row->Version = RecordVersion;
    for (int i = 0; i < 5; ++i)
        row->ColumnPos[i] = normalise(Pixels[i]);
}

void InitTRec(TRec *row) {
    *row = {};
    row->Version = RecordVersion;
    LoadTodaysDate(&row->Date);
    row->Rank = EntryRank;
    row->Units = 1;
}

void InitDDRec(DDRec *row) {
    *row = {};
    row->Version = RecordVersion;
    LoadTodaysDate(&row->NextDate);
    row->Rank = EntryRank;
    row->DayWanted = static_cast<uint8_t>(row->NextDate.Day);
}

void InitFRec(FRec *row) {
    *row = {};
    row->Version = RecordVersion;
}

void InitBinRec(BinRec *row) {
    *row = {};
    row->Version = RecordVersion;
}

void InitCatRec(CatRec *row) {
    *row = {};
    row->Version = RecordVersion;
    row->Red = row->Blue = 255;
}

void InitCurRec(CurRec *row) {
    *row = {};
    row->Version = RecordVersion;
}

int32_t SetRecPosition(int32_t selection, int32_t count) {
    const bool graph = state.CurrentScreen == GraphList;
    const int32_t rows = state.RowCount - (graph && state.MessageWindowOn == 1);
    const int32_t pastEnd = graph ? 0 : 2;
    int32_t top = selection - rows / 2;
    if (top < 1)
        return 1;
    if (top > count - rows + pastEnd)
        top = count - rows + pastEnd + 1;
    return top < 1 ? 1 : top;
}

int32_t TopFor(int32_t top, int32_t count) {
    if (top >= 1)
        return top;
    const int64_t fromEnd = int64_t{count} - state.RowCount - top + 1;
    return fromEnd < 1 ? 1 : fromEnd > INT32_MAX ? INT32_MAX : static_cast<int32_t>(fromEnd);
}

int32_t CatIDToPosition(int64_t catID) {
    if (!state.DataUsable || catID == 0)
        return -1;
    const int file = OpenDataFile(FileKind::Categories, OpenOrCreate, 0, nullptr);
    if (file < 0) {
        ReportError(In::LoadCatFile, Trouble::FcreateFail);
        return -1;
    }
    int32_t found = -1;
    CatRecFile record;
    for (int32_t position = 1; found < 0 && ReadRecord(file, FileKind::Categories, position, &record); ++position)
        if (record.Rec.CatID == catID)
            found = position;
    CloseFile(file);
    return found;
}

int64_t CatPositionToID(int32_t position) {
    CatRec row;
    return FetchCat(position, &row) ? row.CatID : 0;
}

int AcceptVersion(uint8_t version, In function) {
    if (version == RecordVersion)
        return 1;
    ReportError(function, Trouble::WrongVersion);
    state.DataUsable = 0;
    state.MessageWindowOn = state.HelpMode = 1;
    state.RowCount = RowsAboveMessages;
    ForceHelp(Help::None); // becomes the refusal
    return 0;
}
