#include "store/windows.h"
#include "platform/action.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/runs.h"
#include <cstdio>
#include <cstring>

namespace {

uint8_t *WindowRow(const ListFacts &list, int index) {
    return static_cast<uint8_t *>(list.Window) + index * list.RowBytes;
}

// No row of the window is one of the file's.
void ClearWindow(const ListFacts &list) {
    for (int i = 0; i < MostRows; ++i) {
        list.Init(WindowRow(list, i));
        if (list.DateKey >= 0)
            std::memset(WindowRow(list, i) + list.DateKey, 0, sizeof(uint32_t));
    }
}

// The newest records into a file of their own that then takes the bin's place. 1, or 0 when refused.
int TrimBin(int file, int32_t count) {
    char bin[PathRoom], trimmed[PathRoom];
    DataPath(bin, FileKind::Bin);
    std::snprintf(trimmed, sizeof trimmed, "%s\\BIN~", DataDirectory);
    const int target = OpenFile(trimmed, OpenOrCreate);
    const int copied = target >= 0 && CutFile(target, 0) &&
                       CopyRun(file, FileKind::Bin, count - BinKeep + 1, BinKeep, target, 1) == BinKeep;
    CloseFile(target);
    if (copied && MoveFileTo(trimmed, bin))
        return 1;
    ReportError(In::LoadBinFile, Trouble::BwriteFail);
    return 0;
}

// The first record decides whether the file may be used.
int AcceptFile(int file, const ListFacts &list) {
    RecordBuffer record;
    return !ReadRecord(file, list.Kind, 1, record.Bytes, Broken::Shows) || IsBroken(record.Bytes) ||
           AcceptVersion(record.Bytes[0], list.Loader);
}

void ReadWindow(int file, const ListFacts &list) {
    alignas(8) uint8_t records[MostRows * sizeof(BinRecFile)]; // the widest kind that a list shows
    const int32_t read = ReadRecords(file, list.Kind, state.TopPos[list.List], state.RowCount, records, Broken::Shows);
    for (int i = 0; i < read; ++i) {
        if (IsBroken(records + i * RecordSize(list.Kind)))
            continue; // its row stays blank
        uint8_t *row = WindowRow(list, i);
        CopyFields(FieldsOfList(list.List), records + i * RecordSize(list.Kind), row);
        if (row[0] != RecordVersion)
            ReportDamagedRow(reinterpret_cast<const char16_t *>(row + list.Name));
    }
}

int ShowNothing(int list) {
    state.EntryCount[list] = 0;
    state.TopPos[list] = state.SelectedPos[list] = 1;
    return 0;
}

template <typename Rec> int FetchOrInit(int32_t position, Rec *row) {
    FactsOfList(ListOf<Rec>)->Init(row);
    return FetchRecord(Place{ListOf<Rec>}, position, row);
}

} // namespace

int LoadListWindow(int list, int32_t top) {
    const ListFacts *about = FactsOfList(list);
    if (!about || !about->Window)
        return 0;
    ClearWindow(*about);
    if (!state.DataUsable)
        return ShowNothing(list);
    const int file = OpenDataFile(about->Kind, OpenOrCreate);
    if (file < 0) {
        ReportError(about->Loader, CreateFailOf(about->Kind));
        state.EntryCount[list] = 0;
        state.TopPos[list] = 1;
        return 1;
    }
    if (!AcceptFile(file, *about)) {
        CloseFile(file);
        return ShowNothing(list);
    }
    const int32_t count = CountRecords(file, about->Kind);
    state.EntryCount[list] = count;
    state.TopPos[list] = list == RecurringList && top < 1 ? 1 : TopFor(top, count);
    ReadWindow(file, *about);
    CloseFile(file);
    return 1;
}

int LoadAccFile(int32_t top) {
    SumHeadings();
    const int loaded = LoadListWindow(AccountList, top);
    if (state.EntryCount[AccountList] > 0)
        return loaded;
    state.SelectedPos[AccountList] = 1;
    return 0;
}

int LoadBinFile(int32_t top) {
    const int file = state.DataUsable ? OpenDataFile(FileKind::Bin, OpenOrCreate) : -1;
    const int32_t count = CountRecords(file, FileKind::Bin);
    if (count > BinTrimAbove && AcceptFile(file, *FactsOfList(BinList)))
        static_cast<void>(TrimBin(file, count)); // an untrimmed bin is a bin all the same
    CloseFile(file);
    const int loaded = LoadListWindow(BinList, top);
    if (state.EntryCount[BinList] > 0)
        NameBinOwners();
    return loaded;
}

int LoadDDFile(int32_t top) {
    const int loaded = LoadListWindow(RecurringList, top);
    if (state.EntryCount[RecurringList] > 0)
        NameItemAccounts();
    return loaded;
}

int FetchAccount(int32_t position, ARec *row) {
    return FetchOrInit(position, row);
}

int FetchDD(int32_t position, DDRec *row) {
    if (FetchOrInit(position, row))
        return 1;
    row->ItemStatus = 2; // refers to an account that is not there
    return 0;
}

int FetchFav(int32_t position, FRec *row) {
    return FetchOrInit(position, row);
}
int FetchBin(int32_t position, BinRec *row) {
    return FetchOrInit(position, row);
}
int FetchCat(int32_t position, CatRec *row) {
    return FetchOrInit(position, row);
}
int FetchCur(int32_t position, CurRec *row) {
    return FetchOrInit(position, row);
}

int32_t TopAround(int list, int32_t selection, int32_t count) {
    const bool graph = list == GraphList;
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
    const int file = OpenDataFile(FileKind::Categories, OpenOrCreate);
    if (file < 0) {
        ReportError(In::LoadCatFile, Trouble::FcreateFail);
        return -1;
    }
    int32_t found = -1;
    CatRecFile record;
    bool broken = false;
    for (int32_t position = 1; found < 0 && ReadRecord(file, FileKind::Categories, position, &record, Broken::Shows);
         ++position) {
        broken = broken || IsBroken(&record);
        if (record.Rec.CatID == catID)
            found = position;
    }
    CloseFile(file);
    if (found < 0 && broken)
        DoubtAction(); // it may be the one that can't be read
    return found;
}

int64_t CatPositionToID(int32_t position) {
    CatRec row;
    return FetchCat(position, &row) ? row.CatID : 0;
}

int64_t NewCatID() {
    int64_t catID = ClockTicks();
    while (CatIDToPosition(catID) > 0)
        ++catID;
    return catID;
}

int AcceptVersion(uint8_t version, In function) {
    if (version == RecordVersion)
        return 1;
    if (ActionRuns() && ActionRefused() != NotRefused)
        return 0; // what a refused action reads decides nothing
    ReportError(function, Trouble::WrongVersion);
    state.DataUsable = 0;
    state.MessageWindowOn = state.HelpMode = 1;
    state.RowCount = RowsAboveMessages;
    ForceHelp(Help::None); // becomes the refusal
    return 0;
}
