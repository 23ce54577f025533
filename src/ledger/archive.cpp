#include "ledger/archive.h"
#include "ledger/account_file.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "ledger/row_copy.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/windows.h"
#include <algorithm>

namespace {

constexpr FileKind Kind = FileKind::Transactions;

// Which rows go over, by RowKind; what is no marker is an entry.
using KindChoice = bool (*)(uint8_t rowKind);

bool IntoArchive(uint8_t rowKind) {
    return rowKind != DayMarker && rowKind != ArchiveMarker && rowKind != ReconcileEntry;
}
bool BehindBoundary(uint8_t rowKind) {
    return rowKind != ArchiveMarker;
}
bool OutOfArchive(uint8_t) {
    return true;
}
bool BesideReturned(uint8_t rowKind) {
    return rowKind != ArchiveMarker && rowKind != DeletedMarker && rowKind != ReconcileEntry;
}

struct Copying { // of rows from one file to another
    KindChoice Choice;
    int32_t Total; // rows to look at, for the progress
    ProgressTeller Tell;
    uint32_t EarliestDay = UINT32_MAX; // of the rows that went over
};

int ChooseRow(TRec *row, int32_t position, void *context) {
    auto *copying = static_cast<Copying *>(context);
    if (copying->Tell && position % 256 == 0) {
        state.ArchiveProgress = static_cast<int32_t>(int64_t{100} * position / copying->Total);
        copying->Tell(state.ArchiveProgress);
    }
    if (!copying->Choice(row->RowKind))
        return 0;
    copying->EarliestDay = std::min(copying->EarliestDay, row->Date.DayNumber);
    return 1;
}

void Tell(ProgressTeller tell, int percent) {
    state.ArchiveProgress = percent;
    if (tell)
        tell(percent);
}

// The marker that stands for all rows up to and with `boundary`.
void FillArchiveMarker(TRec *row, const TRec &boundary, uint32_t accountType, const char16_t *memo) {
    InitTRec(row);
    row->RowKind = ArchiveMarker;
    row->Date = boundary.Date;
    row->Rank = ArchiveRank;
    CopyText(row->Name, TextRoom, u"Archived");
    CopyText(row->Memo, TextRoom, memo);
    row->Cleared = row->NoCash = 1;
    SetArchiveTotals(row, accountType,
                     {boundary.RunTotal, boundary.RunCleared, boundary.RunUnits, boundary.RunClearedUnits,
                      boundary.Value, boundary.ClearedValue});
}

int WriteMarker(int handle, const TRec &marker) {
    TRecFile record = {marker, {}};
    return WriteRecord(handle, Kind, 1, &record);
}

int CutRows(int handle, int32_t rows) {
    return CutFile(handle, int64_t{rows} * RecordSize(Kind));
}

uint32_t DayOf(int handle, int32_t position) {
    TRecFile record;
    return ReadRecord(handle, Kind, position, &record) ? record.Rec.Date.DayNumber : 0;
}

// Both files of an account that may be rearranged now.
struct Account {
    ARec Rec;
    int Live, Archive;
    int32_t LiveRows, ArchiveRows;
};

// 0 with a beep when the other view is shown, a form of its own is open, or a filter hides rows.
int OpenAccount(int32_t position, uint32_t view, Dialog dialog, In function, Account *account) {
    const bool formOpen = state.ActiveDialog != NoDialog && state.ActiveDialog != dialog;
    if (state.ArchiveView != view || formOpen || !ReadAccount(position, &account->Rec) ||
        account->Rec.RowKind == HeadingRow) {
        Beep();
        return 0;
    }
    const uint32_t id = account->Rec.ID;
    for (const TransactionFile filter : {TransactionFile::LiveFilter, TransactionFile::ArchiveFilter}) {
        char path[PathRoom];
        TransactionPath(path, filter, id);
        if (FileThere(path)) {
            Beep();
            return 0;
        }
    }
    account->Live = OpenTransactions(TransactionFile::Live, id, OpenOrCreate);
    account->Archive = OpenTransactions(TransactionFile::Archive, id, OpenOrCreate);
    account->LiveRows = CountRecords(account->Live, Kind);
    account->ArchiveRows = CountRecords(account->Archive, Kind);
    state.ArchiveProgress = 0;
    state.Restructuring = 0;
    state.ReconcileState = ReconcileStep::Idle;
    if (account->Live >= 0 && account->Archive >= 0)
        return 1;
    ReportError(function, Trouble::TcreateFail);
    CloseFile(account->Live);
    CloseFile(account->Archive);
    return 0;
}

// Merges a file's two parts into a work file. 1, or 0 when the work file could not be written.
int MergeInto(TransactionFile work, uint32_t accountID, int source, int32_t first, int32_t split) {
    state.Restructuring = 1;
    const int target = OpenWorkFile(work, accountID);
    const int32_t merged = MergeRows(source, first, split, target);
    CloseFile(target);
    return merged >= 0;
}

// The rows behind the boundary move to the head, behind the marker. Nothing grows, and what is overwritten stands in
// the archive by now. Returns how many rows stay, -1 when they could not all be written.
int32_t ShortenLive(const Account &account, int32_t boundaryPosition, const TRec &marker) {
    Copying rest = {BehindBoundary, account.LiveRows, nullptr};
    const int32_t kept =
        CopyRows(account.Live, boundaryPosition + 1, account.LiveRows, account.Live, 2, ChooseRow, &rest);
    return kept >= 0 && WriteMarker(account.Live, marker) && CutRows(account.Live, 1 + kept) ? kept : -1;
}

} // namespace

int Archive(int32_t accountPosition, int32_t position, ProgressTeller tell) {
    Account account;
    if (!OpenAccount(accountPosition, 0, ArchiveDialog, In::Archive, &account))
        return 0;
    const uint32_t id = account.Rec.ID;
    position = std::min(position, account.LiveRows);
    TRecFile boundary;
    const int32_t before = account.ArchiveRows;
    int32_t copied = -1;
    Copying copying = {IntoArchive, position, tell};
    if (position > 0 && ReadRecord(account.Live, Kind, position, &boundary)) {
        copied = CopyRows(account.Live, 1, position, account.Archive, before + 1, ChooseRow, &copying);
        if (copied < 0)
            ReportError(In::Archive, Trouble::RwriteFail);
    }
    int done = copied > 0 || (copied == 0 && before > 0);
    if (done && before > 0 && account.Rec.AccType != ListAccount &&
        copying.EarliestDay < DayOf(account.Archive, before)) {
        done = MergeInto(TransactionFile::ArchiveFilterWork, id, account.Archive, 1, before) &&
               ReplaceBy(TransactionFile::ArchiveFilterWork, TransactionFile::Archive, id);
        if (!done)
            ReportError(In::Archive, Trouble::RwriteFail);
        EraseTransactions(TransactionFile::ArchiveFilterWork, id);
    }
    if (!done && copied != 0)
        static_cast<void>(CutRows(account.Archive, before));
    bool markerBehind = false; // the boundary
    if (done) {
        TRec marker;
        FillArchiveMarker(&marker, boundary.Rec, account.Rec.AccType, u"Auto created");
        const int32_t kept = ShortenLive(account, position, marker);
        done = kept >= 0;
        markerBehind = kept < account.LiveRows - position;
        if (!done)
            ReportError(In::Archive, Trouble::TwriteFail);
    }
    CloseFile(account.Live);
    CloseFile(account.Archive);
    if (done) {
        if (markerBehind) { // the new one stands for the old one's rows too, so it takes the whole archive's totals
            state.ArchiveView = 1;
            CalcBalance(id);
            state.ArchiveView = 0;
        } else {
            CalcOneView(id, 1);
        }
        CalcOneView(id, 0);
        state.CurrentScreen = TransactionList;
        Tell(tell, 100);
    }
    return done;
}

int Unarchive(int32_t accountPosition, int32_t position, ProgressTeller tell) {
    Account account;
    if (!OpenAccount(accountPosition, 1, UnarchiveDialog, In::Unarchive, &account))
        return 0;
    const uint32_t id = account.Rec.ID;
    const int32_t returning = account.ArchiveRows - position + 1;
    const int32_t head = position > 1 ? 1 : 0; // rows before those that return: the marker
    TransactionFile whole = TransactionFile::LiveFilterWork;
    int done = position > 0 && returning > 0;
    if (done) {
        // The returning rows, then the live ones; in one file, beside the real one.
        const int work = OpenWorkFile(TransactionFile::LiveFilterWork, id);
        TRecFile boundary;
        TRec marker;
        if (head) {
            done = ReadRecord(account.Archive, Kind, position - 1, &boundary);
            FillArchiveMarker(&marker, boundary.Rec, account.Rec.AccType, u"Auto generated");
            done = done && WriteMarker(work, marker);
        }
        Copying back = {OutOfArchive, account.ArchiveRows, tell};
        Copying live = {BesideReturned, account.LiveRows, nullptr};
        done =
            done &&
            CopyRows(account.Archive, position, account.ArchiveRows, work, head + 1, ChooseRow, &back) == returning &&
            CopyRows(account.Live, 1, account.LiveRows, work, head + returning + 1, ChooseRow, &live) >= 0;
        if (done && account.Rec.AccType != ListAccount &&
            live.EarliestDay < DayOf(account.Archive, account.ArchiveRows)) {
            whole = TransactionFile::ArchiveFilterWork;
            done = MergeInto(whole, id, work, head + 1, head + returning);
        }
        CloseFile(work);
        done = done && ReplaceBy(whole, TransactionFile::Live, id);
        if (!done)
            ReportError(In::Unarchive, Trouble::TwriteFail);
        else if (!CutRows(account.Archive, position - 1))
            ReportError(In::Unarchive, Trouble::RwriteFail);
    }
    EraseTransactions(TransactionFile::ArchiveFilterWork, id);
    EraseTransactions(TransactionFile::LiveFilterWork, id);
    CloseFile(account.Live);
    CloseFile(account.Archive);
    if (done) {
        CalcBalance(id); // the archive, and from it the marker and the live file
        CalcOneView(id, 0);
        Tell(tell, 100);
    }
    return done;
}
