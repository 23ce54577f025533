#include "exchange/import.h"
#include "cipher/hooks.h"
#include "exchange/csv_import.h"
#include "exchange/merge.h"
#include "exchange/ofx_import.h"
#include "exchange/qif_import.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/recurring.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/runs.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;
static_assert(MostMerged == ImportLimit + 1); // with the balance brought forward

// One import at a time; too much for the stack.
ImportBatch Batch;
TextFile Text;
const TRec *Sorted[MostMerged];
int32_t ByIdentity[ImportLimit];

int ArchiveShown() {
    return state.ArchiveView == 1;
}

// A file that can't be opened may hold anything.
int HoldsNothing(TransactionFile file) {
    const int handle = OpenTransactions(file, state.CurAccount.ID, OpenExisting);
    if (handle >= 0) {
        const int32_t count = CountRecords(handle, Kind);
        CloseFile(handle);
        return count == 0;
    }
    char path[PathRoom];
    TransactionPath(path, file, state.CurAccount.ID);
    return !FileThere(path);
}

ImportTask TaskFor(uint32_t firstDay, const char16_t *security, void (*tell)(int percent)) {
    return {.FirstDay = firstDay,
            .Security = security,
            .AccountKind = static_cast<int32_t>(state.CurAccount.AccType),
            .AccountEmpty = HoldsNothing(TransactionFile::Live) && HoldsNothing(TransactionFile::Archive),
            .DayFirst = UKSysDateFormatSet(),
            .Tell = tell};
}

// Counts go to zero. 0 when an import can't work here.
int BeginImport(bool onGraph) {
    std::memset(state.ImportCount, 0, sizeof state.ImportCount);
    state.ImportSucceeded = 0;
    const bool there = state.CurrentScreen == TransactionList || (onGraph && state.CurrentScreen == GraphList);
    return state.DataUsable && there && !state.FilterShown && state.CurAccount.ID != 0 &&
           state.CurAccount.RowKind != HeadingRow;
}

using Reading = void (*)(TextFile *text, const ImportTask &task, ImportBatch *batch);

int ReadWhole(Reading read, const char *path, const ImportTask &task, In function) {
    int whole = OpenText(&Text, path);
    if (whole) {
        read(&Text, task, &Batch);
        whole = !Text.Broken;
        CloseText(&Text);
    }
    if (!whole)
        ReportError(function, Trouble::NcreateFail);
    return whole;
}

// --- What is known already

bool IdentityBefore(int32_t a, int32_t b) {
    const TRec &first = Batch.Entries[a].Row, &second = Batch.Entries[b].Row;
    if (first.Date.DayNumber != second.Date.DayNumber)
        return first.Date.DayNumber < second.Date.DayNumber;
    const int order = CompareText(first.FITID, second.FITID);
    return order != 0 ? order < 0 : a < b;
}

bool SameIdentity(const TRec &a, const TRec &b) {
    return a.Date.DayNumber == b.Date.DayNumber && CompareText(a.FITID, b.FITID) == 0;
}

void PassOver(int32_t index) {
    ReadEntry &entry = Batch.Entries[index];
    if (entry.Result > Outcome::BadlyFormed)
        return;
    --Batch.Outcomes[static_cast<int>(entry.Result)];
    entry.Result = Outcome::AsRequested;
    ++Batch.Outcomes[static_cast<int>(entry.Result)];
}

// The entries of the batch that a row of the account is already.
void PassOverKnown(const TRec &row, int32_t count) {
    int32_t low = 0, high = count;
    while (low < high) {
        const int32_t middle = low + (high - low) / 2;
        const TRec &entry = Batch.Entries[ByIdentity[middle]].Row;
        const bool before = entry.Date.DayNumber != row.Date.DayNumber ? entry.Date.DayNumber < row.Date.DayNumber
                                                                       : CompareText(entry.FITID, row.FITID) < 0;
        (before ? low : high) = before ? middle + 1 : middle;
    }
    for (; low < count && SameIdentity(Batch.Entries[ByIdentity[low]].Row, row); ++low)
        PassOver(ByIdentity[low]);
}

// Entries of one day with the same identity of the bank are one and the same: in the account, and in the file. 0 when
// the account can't be read.
int PassOverDuplicates() {
    int32_t count = 0;
    for (int32_t i = 0; i < Batch.Count; ++i)
        if (*Batch.Entries[i].Row.FITID)
            ByIdentity[count++] = i;
    if (count == 0)
        return 1;
    std::sort(ByIdentity, ByIdentity + count, IdentityBefore);
    for (int32_t i = 1; i < count; ++i)
        if (SameIdentity(Batch.Entries[ByIdentity[i - 1]].Row, Batch.Entries[ByIdentity[i]].Row))
            PassOver(ByIdentity[i]);
    const uint32_t firstDay = Batch.Entries[ByIdentity[0]].Row.Date.DayNumber;
    const int handle = OpenView(state.ArchiveView, state.CurAccount.ID, OpenOrCreate);
    int whole = handle >= 0;
    bool earlier = false;
    for (int32_t last = CountRecords(handle, Kind); last > 0 && whole && !earlier;) {
        const int32_t first = std::max(1, last - RunLength(Kind) + 1);
        const int32_t read = ReadRun(handle, Kind, first, last - first + 1);
        whole = read == last - first + 1;
        for (int32_t index = read; index > 0 && !earlier; --index) {
            auto *record = static_cast<TRecFile *>(RunRecord(Kind, index - 1));
            DecipherRecord(Kind, record);
            record->Rec.FITID[TextRoom - 1] = 0;
            earlier = record->Rec.Date.DayNumber < firstDay;
            if (*record->Rec.FITID && !earlier)
                PassOverKnown(record->Rec, count);
        }
        last = first - 1;
    }
    CloseFile(handle);
    return whole;
}

// --- Into the account

// The rows to add, in order of day and rank; those of one day and rank in the order of the file.
int32_t SortRows() {
    int32_t count = 0;
    for (int32_t i = 0; i < Batch.Count; ++i)
        if (Batch.Entries[i].Result <= Outcome::BadlyFormed)
            Sorted[count++] = &Batch.Entries[i].Row;
    std::sort(Sorted, Sorted + count, [](const TRec *a, const TRec *b) {
        if (a->Date.DayNumber != b->Date.DayNumber)
            return a->Date.DayNumber < b->Date.DayNumber;
        return a->Rank != b->Rank ? a->Rank < b->Rank : a < b; // they stand in one array
    });
    return count;
}

// An account at zero gets, the day before its first entry, what makes it end at the statement's balance. How many rows
// are to be added then.
int32_t BringForward(int32_t count) {
    const ARec &account = state.CurAccount;
    const FixedAmount balance = ArchiveShown() ? account.ArcBalance : account.Balance;
    const FixedAmount cleared = ArchiveShown() ? account.ArcClearedBalance : account.ClearedBalance;
    if (count == 0 || balance != 0 || cleared != 0 || !Batch.HasStatementBalance)
        return count;
    static TRec row;
    row = NewRow();
    CopyText(row.Name, TextRoom, u"Brought forward");
    row.Value = Batch.StatementBalance;
    for (int32_t i = 0; i < count; ++i)
        row.Value = SubtractAmounts(row.Value, Sorted[i]->Value);
    uint32_t day = Sorted[0]->Date.DayNumber;
    const int handle = OpenView(state.ArchiveView, account.ID, OpenOrCreate);
    TRecFile first;
    if (ReadRecord(handle, Kind, 1, &first))
        day = std::min(day, first.Rec.Date.DayNumber);
    CloseFile(handle);
    row.Date = DateFromDayNumber(std::max(day, FirstDayNumber + 1) - 1);
    std::memmove(Sorted + 1, Sorted, static_cast<size_t>(count) * sizeof *Sorted);
    Sorted[0] = &row;
    return count + 1;
}

void ShowLastRow() {
    state.SelectedPos[TransactionList] = state.EntryCount[TransactionList];
    LoadTranFile(state.SelectedPos[AccountList],
                 SetRecPosition(state.EntryCount[TransactionList], state.EntryCount[TransactionList]));
}

int AddToAccount(int32_t count) {
    const uint32_t accountID = state.CurAccount.ID;
    if (!MergeEntries(accountID, state.ArchiveView, Sorted, count)) {
        ReportError(In::AddRecFile, Trouble::TwriteFail);
        return 0;
    }
    if (Batch.KindSettled && Batch.AccountKind != static_cast<int32_t>(state.CurAccount.AccType))
        UpdateShareMode(state.SelectedPos[AccountList], static_cast<uint32_t>(Batch.AccountKind));
    const int32_t screen = state.CurrentScreen;
    state.CurrentScreen = TransactionList;
    state.ReconcileState = ReconcileStep::Idle;
    CalcBalance(accountID);
    ShowLastRow();
    DDFileCheck();
    state.CurrentScreen = screen;
    return 1;
}

// What the summary tells.
void CountOutcomes() {
    const int32_t rest = std::max(0, Batch.Total - Batch.Finished);
    const bool full = Batch.Finished >= ImportLimit;
    for (int i = 0; i < OutcomeCount; ++i)
        state.ImportCount[i] = Batch.Outcomes[i];
    if (!full)
        state.ImportCount[static_cast<int>(Outcome::Unreadable)] += rest;
    state.ImportCount[OutcomeCount] = full ? rest : 0;
    state.ImportCount[OutcomeCount + 1] = std::max(Batch.Total, Batch.Finished);
    state.ImportSucceeded = state.ImportCount[0] > 0;
}

int FinishImport(int32_t count, void (*tell)(int percent)) {
    if (!AddToAccount(count))
        return ImportUnwritten;
    CountOutcomes();
    if (tell)
        tell(100);
    return ImportDone;
}

int RefusalOf(ContentKind content) {
    return ImportUnknown + static_cast<int>(content);
}

} // namespace

int ImportQIFFile(const char *path, uint32_t firstDay, const char16_t *security, void (*tell)(int percent)) {
    if (!BeginImport(true) || !ReadWhole(ReadQif, path, TaskFor(firstDay, security, tell), In::ImportQIFFile))
        return ImportFailed;
    if (!Batch.Accepted && Batch.Total > 0) {
        CountOutcomes();
        return RefusalOf(Batch.Content);
    }
    return FinishImport(SortRows(), tell);
}

int ImportOFXFile(const char *path, uint32_t firstDay, void (*tell)(int percent)) {
    if (!BeginImport(true))
        return ImportFailed;
    const ImportTask task = TaskFor(firstDay, u"", tell);
    if (IsShare(task.AccountKind) && !task.AccountEmpty)
        return ImportMoney;
    if (!ReadWhole(ReadOfx, path, task, In::ImportQIFFile))
        return ImportFailed;
    if (!PassOverDuplicates())
        return ImportUnwritten;
    return FinishImport(BringForward(SortRows()), tell);
}

int ImportCSVFile(const char *path, uint32_t firstDay, void (*tell)(int percent)) {
    if (!BeginImport(false) || !ReadWhole(ReadCsv, path, TaskFor(firstDay, u"", tell), In::ImportCSVFile))
        return ImportFailed;
    if (!Batch.Accepted && Batch.Content != ContentKind::Unknown) {
        CountOutcomes();
        return RefusalOf(Batch.Content);
    }
    return FinishImport(SortRows(), tell);
}

int ListSecurities(const char *path, SecurityList *list) {
    list->Count = 0;
    if (!OpenText(&Text, path))
        return 0;
    const auto add = [](const char16_t *security, void *context) {
        auto *to = static_cast<SecurityList *>(context);
        for (int i = 0; i < to->Count; ++i)
            if (SameText(to->Names[i], security))
                return;
        if (to->Count < MostSecurities)
            CopyText(to->Names[to->Count++], SecurityRoom, security);
    };
    const int shares = ReadSecurities(&Text, add, list);
    CloseText(&Text);
    return shares;
}

uint32_t DayAfterLastEntry() {
    const int handle = OpenView(state.ArchiveView, state.CurAccount.ID, OpenOrCreate);
    uint32_t day = 0;
    TRecFile record;
    for (int32_t position = CountRecords(handle, Kind); position > 0 && day == 0; --position)
        if (ReadRecord(handle, Kind, position, &record) && record.Rec.RowKind == EntryRow)
            day = record.Rec.Date.DayNumber + 1;
    CloseFile(handle);
    return day;
}
