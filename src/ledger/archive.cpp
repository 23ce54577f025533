#include "ledger/archive.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "ledger/row_copy.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/index.h"
#include "store/operations.h"
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
bool BesideReturned(uint8_t rowKind) { // a Deleted marker among them stands for money
    return rowKind != ArchiveMarker && rowKind != ReconcileEntry;
}

struct Copying { // of rows from one file to another
    KindChoice Choice;
    int32_t Total; // rows to look at, for the progress
    ProgressTeller Tell;
    uint32_t EarliestDay = UINT32_MAX; // of the rows that went over
};

int ChooseRow(TRec *row, int32_t position, Copying *copying) {
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

// The last of the rows up to a position that none dated after today comes before; 0 for none.
int32_t LastDue(int handle, int32_t position) {
    RecDate today;
    LoadTodaysDate(&today);
    for (int32_t first = 1, read; first <= position; first += read) {
        read = ReadRows(handle, first, position);
        for (int32_t index = 0; index < read; ++index) {
            const TRec *row = RowInRun(index);
            if (!row || row->Date.DayNumber > today.DayNumber)
                return row ? first + index - 1 : 0;
        }
        if (read == 0)
            return 0; // the read failed
    }
    return position;
}

// Both files of an account that may be rearranged now.
struct Account {
    ARec Rec;
    int Live, Archive;
    int32_t LiveRows, ArchiveRows;
};

void CloseAccount(const Account &account) {
    CloseFile(account.Live);
    CloseFile(account.Archive);
}

// 0 when there is none, or when a filter hides rows.
int OpenAccount(uint32_t accountID, In function, Account *account) {
    if (!FindAccount(accountID, &account->Rec, nullptr))
        return 0;
    for (const View view : {View::Live, View::Archive}) {
        char path[PathRoom];
        TransactionPath(path, FilterFile(view), accountID);
        if (FileThere(path) != 0)
            return 0;
    }
    account->Live = OpenTransactions(TransactionFile::Live, accountID, OpenOrCreate);
    account->Archive = OpenTransactions(TransactionFile::Archive, accountID, OpenOrCreate);
    account->LiveRows = CountRecords(account->Live, Kind);
    account->ArchiveRows = CountRecords(account->Archive, Kind);
    state.ArchiveProgress = 0;
    state.Restructuring = 0;
    ForgetFindings(LiveRows(accountID));
    ForgetFindings(RowsOf(accountID, View::Archive));
    if (account->Live >= 0 && account->Archive >= 0)
        return 1;
    ReportError(function, Trouble::TcreateFail);
    CloseAccount(*account);
    return 0;
}

bool HasMarker(int handle, int32_t rows) {
    for (int32_t first = 1, read; first <= rows && (read = ReadRows(handle, first, rows)) > 0; first += read)
        for (int32_t index = 0; index < read; ++index)
            if (const TRec *row = RowInRun(index); row && row->RowKind == ArchiveMarker)
                return true;
    return false;
}

// An archive whose marker its owner has deleted counts for nothing any more. Before rows come into it or leave it a
// Deleted marker at its end takes away what they come to, so that no balance moves.
int WriteOff(Account *account) {
    TRecFile last;
    if (account->ArchiveRows < 1 || HasMarker(account->Live, account->LiveRows))
        return 1;
    if (!ReadRecord(account->Archive, Kind, account->ArchiveRows, &last))
        return 0;
    MakeDeletedMarker(&last.Rec, account->Rec.AccType);
    NegateDeletedMarker(&last.Rec, account->Rec.AccType);
    return WriteRecord(account->Archive, Kind, ++account->ArchiveRows, &last);
}

// Merges a file's two parts into a work file that then takes the place of another.
int MergeAs(TransactionFile work, TransactionFile real, uint32_t accountID, int source, int32_t first, int32_t split) {
    state.Restructuring = 1;
    const int target = OpenWorkFile(work, accountID);
    const int merged = MergeRows(source, first, split, target) >= 0;
    CloseFile(target);
    return merged && ReplaceBy(work, real, accountID);
}

// The rows behind the boundary move to the head, behind the marker. Returns how many rows stay, -1 when they could not
// all be written.
int32_t ShortenLive(const Account &account, int32_t boundaryPosition, const TRec &marker) {
    Copying rest = {BehindBoundary, account.LiveRows, nullptr};
    const int32_t kept =
        CopyRows<Copying>(account.Live, boundaryPosition + 1, account.LiveRows, account.Live, 2, ChooseRow, &rest);
    return kept >= 0 && WriteMarker(account.Live, marker) && CutRows(account.Live, 1 + kept) ? kept : -1;
}

// A list keeps its owner's order; entries stay in that of their dates.
bool OutOfOrder(const Account &account, const Copying &added, int32_t lastBefore) {
    return account.Rec.AccType != ListAccount && lastBefore > 0 &&
           added.EarliestDay < DayOf(account.Archive, lastBefore);
}

} // namespace

ArchiveResult Archive(uint32_t accountID, int32_t position, ProgressTeller tell) {
    Account account;
    if (!OpenAccount(accountID, In::Archive, &account))
        return ArchiveResult::Refused;
    position = LastDue(account.Live, std::min(position, account.LiveRows));
    TRecFile boundary;
    Copying copying = {IntoArchive, position, tell};
    if (position < 1 || !ReadRecord(account.Live, Kind, position, &boundary) || !WriteOff(&account)) {
        CloseAccount(account);
        return position < 1 ? ArchiveResult::NotYet : ArchiveResult::Refused;
    }
    const int32_t before = account.ArchiveRows;
    const int32_t copied =
        CopyRows<Copying>(account.Live, 1, position, account.Archive, before + 1, ChooseRow, &copying);
    if (copied == 0 && before == 0) { // markers alone are nothing to archive
        CloseAccount(account);
        return ArchiveResult::NotYet;
    }
    int done = copied >= 0;
    if (done && OutOfOrder(account, copying, before))
        done = MergeAs(TransactionFile::ArchiveFilterWork, TransactionFile::Archive, accountID, account.Archive, 1,
                       before);
    bool markerBehind = false; // the boundary
    if (done) {
        TRec marker;
        FillArchiveMarker(&marker, boundary.Rec, account.Rec.AccType, u"Auto created");
        const int32_t kept = ShortenLive(account, position, marker);
        done = kept >= 0;
        markerBehind = kept < account.LiveRows - position;
    }
    CloseAccount(account);
    if (!done) {
        ReportError(In::Archive, Trouble::RwriteFail);
        return ArchiveResult::Refused;
    }
    const Place archive = RowsOf(accountID, View::Archive, Rows::All);
    if (markerBehind) // the new one stands for the old one's rows too, so it takes the whole archive's totals
        CalcTotals(archive);
    else
        CalcOneView(archive);
    CalcOneView(LiveRows(accountID, Rows::All));
    Tell(tell, 100);
    return ArchiveResult::Done;
}

int ArchiveMarked(uint32_t accountID) {
    const int handle = OpenTransactions(TransactionFile::Live, accountID, OpenExisting);
    const bool marked = HasMarker(handle, CountRecords(handle, Kind));
    CloseFile(handle);
    return marked;
}

int MarkArchive(uint32_t accountID, const TRec &row) {
    TRec marker;
    FillArchiveMarker(&marker, row, BankAccount, u"Auto created"); // its totals come with the archive's
    return AddRecord(LiveRows(accountID, Rows::All), 1, marker) > 0;
}

ArchiveResult Unarchive(uint32_t accountID, int32_t position, ProgressTeller tell) {
    Account account;
    if (!OpenAccount(accountID, In::Unarchive, &account))
        return ArchiveResult::Refused;
    const int32_t head = position > 1 ? 1 : 0; // rows before those that return: the marker
    if (position < 1 || position > account.ArchiveRows || !WriteOff(&account)) {
        CloseAccount(account);
        return ArchiveResult::Refused;
    }
    const int32_t returning = account.ArchiveRows - position + 1;
    // The returning rows, then the live ones; in one file, which takes the live file's place.
    const int work = OpenWorkFile(TransactionFile::LiveFilterWork, accountID);
    int done = work >= 0;
    if (head) {
        TRecFile boundary;
        TRec marker;
        done = done && ReadRecord(account.Archive, Kind, position - 1, &boundary);
        if (done) {
            FillArchiveMarker(&marker, boundary.Rec, account.Rec.AccType, u"Auto generated");
            done = WriteMarker(work, marker);
        }
    }
    Copying back = {OutOfArchive, account.ArchiveRows, tell};
    Copying live = {BesideReturned, account.LiveRows, nullptr};
    done = done &&
           CopyRows<Copying>(account.Archive, position, account.ArchiveRows, work, head + 1, ChooseRow, &back) ==
               returning &&
           CopyRows<Copying>(account.Live, 1, account.LiveRows, work, head + returning + 1, ChooseRow, &live) >= 0;
    if (done)
        done = OutOfOrder(account, live, account.ArchiveRows)
                   ? MergeAs(TransactionFile::ArchiveFilterWork, TransactionFile::Live, accountID, work, head + 1,
                             head + returning)
                   : ReplaceBy(TransactionFile::LiveFilterWork, TransactionFile::Live, accountID);
    CloseFile(work);
    done = done && CutRows(account.Archive, position - 1);
    EraseTransactions(TransactionFile::LiveFilterWork, accountID);
    CloseAccount(account);
    if (!done) {
        ReportError(In::Unarchive, Trouble::TwriteFail);
        return ArchiveResult::Refused;
    }
    CalcTotals(RowsOf(accountID, View::Archive, Rows::All)); // and from it the marker and the live file
    CalcOneView(LiveRows(accountID, Rows::All));
    Tell(tell, 100);
    return ArchiveResult::Done;
}
