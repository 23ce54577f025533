#include "ledger/bin.h"
#include "cipher/hooks.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/filter.h"
#include "ledger/moves.h"
#include "ledger/order.h"
#include "ledger/recurring.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include "store/windows.h"
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

constexpr TransactionFile AccountFiles[] = {TransactionFile::Live, TransactionFile::LiveFilter,
                                            TransactionFile::Archive, TransactionFile::ArchiveFilter};

int ListOfScreen() {
    return state.CurrentScreen == GraphList ? +TransactionList : state.CurrentScreen;
}

// Transactions of one account are not mixed with another's, nor live rows with archived ones.
int32_t RangeTag(int list) {
    if (list != TransactionList)
        return list;
    const int32_t tag = 10 + state.SelectedPos[AccountList];
    return state.ArchiveView ? -tag : tag;
}

void EraseFile(const char *path) {
    if (FileThere(path) && !DeleteFileAt(path))
        ReportError(In::WndProc, Trouble::FileDelete);
}

void EraseFilesOfBinRow(const BinRec &row) {
    if (row.SourceList == AccountList)
        EraseAccountFiles(row.OwnerID);
}

int OpenList(int list) {
    uint32_t filtered;
    const int handle = OpenDataFile(KindOfList(list), OpenOrCreate, state.CurAccount.ID, &filtered);
    if (handle < 0)
        ReportError(In::DeleteRecRange, CreateFailOf(KindOfList(list)));
    return handle;
}

// Appends the range to the bin; when the bin can't take all of it, it is left as it was. 1, or 0.
int CopyRangeToBin(int source, int list, int32_t first, int32_t last) {
    const int bin = OpenList(BinList);
    const int32_t before = CountRecords(bin, FileKind::Bin);
    int copied = bin >= 0;
    for (int32_t position = first; copied && position <= last; ++position) {
        alignas(8) uint8_t record[LargestRecord];
        BinRecFile row = {};
        copied = ReadRecord(source, KindOfList(list), position, record) && RecordToBin(list, record, &row.Rec) &&
                 WriteRecord(bin, FileKind::Bin, before + 1 + position - first, &row);
    }
    if (copied) {
        state.EntryCount[BinList] = before + last - first + 1;
    } else if (bin >= 0) {
        ReportError(In::DeleteRecRange, Trouble::BwriteFail);
        static_cast<void>(CutFile(bin, int64_t{before} * RecordSize(FileKind::Bin)));
    }
    CloseFile(bin);
    return copied;
}

void FillDeletedMarker(TRec *row, bool share) {
    row->RowKind = DeletedMarker;
    row->Rank = DeletedRank;
    CopyText(row->Name, TextRoom, u"Deleted");
    CopyText(row->Memo, TextRoom, u"Autocreated to protect balance");
    CopyText(row->FITID, TextRoom, u"");
    row->Cleared = row->NoCash = 1;
    row->Cash = 0;
    row->Flag = 0;
    row->TransferID = 0;
    row->CatID = 0;
    if (share) {
        row->ClearedValue = row->Value;
        row->Units = row->ClearedUnits = row->RunClearedUnits = row->RunUnits;
        row->CashAmount = row->ClearedCashAmount = row->RunTotal;
    } else {
        row->Value = row->RunTotal;
        row->Units = row->ClearedUnits = 1;
        row->ClearedValue = 0;
    }
}

void SelectionRefused() {
    state.RangeStart = state.RangeFinish = 0;
    state.RangeStartScreen = state.RangeFinishScreen = 0;
    Beep();
    ShowHelp(Help::SelectAgain);
}

// One of the two steps: stores the selected row, and deletes once both stand.
int SelectRangeEnd(int32_t *position, int32_t *tag, const int32_t &otherTag, Help askForOther) {
    const int list = ListOfScreen();
    const int32_t selection = state.SelectedPos[list];
    if (selection < 1 || selection > state.EntryCount[list]) {
        Beep();
        return 0;
    }
    const int32_t here = RangeTag(list);
    if ((*tag != 0 && *tag != here) || (otherTag != 0 && otherTag != here)) {
        SelectionRefused();
        return 0;
    }
    *position = selection;
    *tag = here;
    if (otherTag == 0) {
        ShowHelp(askForOther, state.ArchiveView ? AddedLine::BalanceMayChange : AddedLine::None);
        return 0;
    }
    if (state.RangeStart > state.RangeFinish) {
        SelectionRefused();
        return 0;
    }
    state.RangeStartScreen = state.RangeFinishScreen = 0;
    return DeleteRecRange(state.RangeStart, state.RangeFinish) == 1;
}

} // namespace

int DeleteRecRange(int32_t first, int32_t last) {
    const int list = ListOfScreen();
    if (!state.DataUsable || (list == TransactionList && state.FilterShown))
        return 0;
    const FileKind kind = KindOfList(list);
    const int handle = OpenList(list);
    const int32_t count = CountRecords(handle, kind);
    if (first > last || first < 1 || first > count) {
        CloseFile(handle);
        return -1;
    }
    last = std::min(last, count);
    state.ReconcileState = ReconcileStep::Idle;
    if (list == BinList) {
        for (int32_t position = first; position <= last; ++position) {
            BinRecFile row;
            if (ReadRecord(handle, kind, position, &row))
                EraseFilesOfBinRow(row.Rec);
        }
    } else if (!CopyRangeToBin(handle, list, first, last)) {
        CloseFile(handle);
        return 0;
    }
    ShowHelp(Help::Deleted);
    if (list == TransactionList && first == 1) {
        CloseFile(handle);
        DeleteN(state.CurAccount.ID, last);
        return 1;
    }
    if (!RemoveRecords(handle, kind, first, last))
        ReportError(In::DeleteRecRange, WriteFailOf(kind));
    state.EntryCount[list] = CountRecords(handle, kind);
    CloseFile(handle);
    return 1;
}

void DeleteN(uint32_t accountID, int32_t count) {
    if (!state.DataUsable)
        return;
    constexpr FileKind Kind = FileKind::Transactions;
    uint32_t filtered;
    const int handle = OpenDataFile(Kind, OpenOrCreate, accountID, &filtered);
    if (handle < 0)
        ReportError(In::DeleteN, Trouble::TcreateFail);
    count = std::min(count, CountRecords(handle, Kind));
    int removed = 1;
    if (count > 0 && !state.ArchiveView) {
        removed = RemoveRecords(handle, Kind, 1, count);
    } else if (count > 0) {
        TRecFile marker;
        removed = ReadRecord(handle, Kind, count, &marker);
        ARec account;
        FillDeletedMarker(&marker.Rec, FindAccount(accountID, &account, nullptr) && IsShare(account.AccType));
        std::memset(marker.Tail, 0, sizeof marker.Tail);
        removed =
            removed && WriteRecord(handle, Kind, 1, &marker) && (count < 2 || RemoveRecords(handle, Kind, 2, count));
    }
    if (!removed)
        ReportError(In::DeleteN, Trouble::TwriteFail);
    CloseFile(handle);
    CountTransactions();
}

int DeleteRecMem(int32_t position) {
    const int list = ListOfScreen();
    if (!state.DataUsable || (list == TransactionList && state.FilterView))
        return 0;
    const FileKind kind = KindOfList(list);
    const int screen = state.CurrentScreen;
    state.CurrentScreen = list;
    const int handle = OpenList(list);
    alignas(8) uint8_t record[LargestRecord];
    int deleted = ReadRecord(handle, kind, position, record);
    CloseFile(handle);
    BinRec row;
    int binned = 0;
    if (deleted && list == BinList) {
        CopyRecFile(BinList, record, &row);
        EraseFilesOfBinRow(row);
    } else if (deleted && !(list == AccountList && reinterpret_cast<const ARec *>(record)->RowKind == HeadingRow)) {
        state.CurrentScreen = BinList;
        deleted = binned = RecordToBin(list, record, &row) && AddRecFile(0, 1, &row, 1);
        state.CurrentScreen = list;
    }
    if (deleted && !DeleteRecFile(state.CurAccount.ID, position)) {
        deleted = 0;
        if (binned) { // rather where it was than in two places
            state.CurrentScreen = BinList;
            DeleteRecFile(0, state.EntryCount[BinList]);
        }
    }
    if (deleted)
        RepairTop(list);
    state.CurrentScreen = screen;
    return deleted;
}

int32_t AddTranMem() {
    const int list = state.CurrentScreen;
    BinRec bin;
    alignas(8) uint8_t record[LargestRecord];
    if (!FetchBin(state.SelectedPos[BinList], &bin) || !BinToRecord(bin, list, record))
        return 0;
    int32_t position = 0;
    if (list == TransactionList) {
        if (!AccountThere(bin.OwnerID))
            return 0;
        state.CurrentScreen = BinList; // what is shown while filters are lifted
        ClearFilters();
        state.CurrentScreen = TransactionList;
        state.ArchiveView = bin.WasArchive == 1;
        MakeAccountCurrent(bin.OwnerID);
        state.SelectedPos[AccountList] = IDtoRec(bin.OwnerID);
        state.TranFileShown = bin.OwnerID;
        const auto *row = reinterpret_cast<const TRec *>(record);
        position = CpDates(row->Date, row->Rank);
    } else if (list == RecurringList) {
        const auto *item = reinterpret_cast<const DDRec *>(record);
        position = CpDates(item->NextDate, item->Rank);
    } else {
        const int handle = OpenList(list);
        position = CountRecords(handle, KindOfList(list)) + 1;
        CloseFile(handle);
        state.EntryCount[list] = position - 1;
    }
    const int added = AddRecFile(list == TransactionList ? bin.OwnerID : 0, position, record, 1);
    if (added && list == TransactionList)
        CalcBalance(bin.OwnerID);
    if (added && list == RecurringList)
        DDFileCheck();
    return added ? position : 0;
}

int MoveBin(int32_t position) {
    BinRec bin;
    const int32_t screen = state.CurrentScreen;
    if (!FetchBin(position, &bin) || bin.SourceList < AccountList || bin.SourceList >= ListCount)
        return 0;
    state.SelectedPos[BinList] = position;
    state.CurrentScreen = static_cast<int32_t>(bin.SourceList);
    int32_t restored = AddTranMem();
    state.CurrentScreen = BinList;
    if (restored && DeleteRecFile(0, position)) {
        RepairTop(BinList);
    } else if (restored) { // rather where it was than in two places
        state.CurrentScreen = static_cast<int32_t>(bin.SourceList);
        DeleteRecFile(bin.OwnerID, restored);
        if (bin.SourceList == TransactionList)
            CalcBalance(bin.OwnerID);
        restored = 0;
    }
    state.SelectedPos[BinList] = std::min(position, state.EntryCount[BinList]);
    state.CurrentScreen = screen;
    return restored > 0;
}

void EraseAccountFiles(uint32_t accountID) {
    if (!state.DataUsable || IDtoRec(accountID))
        return;
    for (const TransactionFile file : AccountFiles) {
        char path[PathRoom];
        TransactionPath(path, file, accountID);
        EraseFile(path);
    }
}

void EmptyBin() {
    if (!state.DataUsable)
        return;
    const int32_t screen = state.CurrentScreen;
    ClearFilters();
    char path[PathRoom];
    DataPath(path, FileKind::Bin);
    EraseFile(path);
    state.EntryCount[BinList] = 0;
    state.TopPos[BinList] = state.SelectedPos[BinList] = 1;
    // Without the list of accounts every file would look like one of an account that has gone.
    const int accounts = OpenDataFile(FileKind::Accounts, OpenOrCreate, 0, nullptr);
    CloseFile(accounts);
    for (const char *prefix : {"E1_02A", "E1_02R"}) {
        FileWalk walk;
        FindNames(&walk, DataDirectory, prefix);
        char name[PathRoom];
        while (accounts >= 0 && FindNextName(&walk, name, PathRoom)) {
            char *end;
            const unsigned long accountID = std::strtoul(name + std::strlen(prefix), &end, 10);
            if (*end == 0 && end > name + std::strlen(prefix))
                EraseAccountFiles(static_cast<uint32_t>(accountID));
        }
        EndFind(&walk);
    }
    if (screen == BinList)
        LoadBinFile(1);
    state.CurrentScreen = screen;
}

int SelectRangeStart() {
    return SelectRangeEnd(&state.RangeStart, &state.RangeStartScreen, state.RangeFinishScreen, Help::SelectFinish);
}

int SelectRangeFinish() {
    return SelectRangeEnd(&state.RangeFinish, &state.RangeFinishScreen, state.RangeStartScreen, Help::SelectStart);
}
