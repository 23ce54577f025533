#include "exchange/import.h"
#include "cipher/hooks.h"
#include "exchange/csv_import.h"
#include "exchange/ofx_import.h"
#include "exchange/qif_import.h"
#include "ledger/entries.h"
#include "ledger/recurring.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/runs.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr FileKind Kind = FileKind::Transactions;
static_assert(MostWaitingEntries == ImportLimit + 1); // with the balance brought forward

// One import at a time; too much for the stack.
ImportBatch Batch;
TextFile Text;
int32_t ByIdentity[ImportLimit];

// Where the entries go, and how.
struct Target {
    Place Rows; // the real ones
    ARec Account;
    ImportTask Task;
};

// Counts go to zero. 0 when there is no such account.
int BeginImport(const Place &place, uint32_t firstDay, const char16_t *security, ExchangeTeller tell, Target *target) {
    std::memset(state.ImportCount, 0, sizeof state.ImportCount);
    state.ImportSucceeded = 0;
    if (!FindAccount(place.Account, &target->Account, nullptr))
        return 0;
    target->Rows = RowsOf(place.Account, place.Of, Rows::All);
    const int32_t count =
        CountOf(LiveRows(place.Account, Rows::All)) + CountOf(RowsOf(place.Account, View::Archive, Rows::All));
    target->Task = {.FirstDay = firstDay,
                    .Security = security,
                    .AccountKind = static_cast<int32_t>(target->Account.AccType),
                    .AccountEmpty = count == 0,
                    .DayFirst = UKSysDateFormatSet(),
                    .Tell = tell};
    return 1;
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

bool Comes(const ReadEntry &entry) {
    return entry.Result <= Outcome::BadlyFormed;
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

// The rows of an account from the last on, until the visit answers false. 0 when they can't be read.
template <typename Visit> int VisitFromLast(const Place &place, const Visit &visit) {
    const int handle = OpenPlace(place, OpenExisting);
    int whole = handle != FailedOpen;
    bool goesOn = true;
    for (int32_t last = CountRecords(handle, Kind); last > 0 && whole && goesOn;) {
        const int32_t first = std::max(1, last - RunLength(Kind) + 1);
        const int32_t read = ReadRun(handle, Kind, first, last - first + 1);
        whole = read == last - first + 1;
        for (int32_t index = read; index > 0 && goesOn; --index) {
            TRecFile *record = RunRecord<TRec>(index - 1);
            whole = whole && DecipherRecord(Kind, record);
            goesOn = visit(&record->Rec);
        }
        last = first - 1;
    }
    CloseFile(handle);
    return whole;
}

// Entries of one day with the same identity of the bank are one and the same: in the account, and in the file. 0 when
// the account can't be read.
int PassOverDuplicates(const Place &place) {
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
    return VisitFromLast(place, [firstDay, count](TRec *row) {
        row->FITID[TextRoom - 1] = 0;
        const bool earlier = row->Date.DayNumber < firstDay;
        if (*row->FITID && !earlier)
            PassOverKnown(*row, count);
        return !earlier;
    });
}

// An account has one Day marker, which follows the calendar: further ones stay outside. 0 when the account can't be
// read.
int PassOverDayMarkers(const Place &place) {
    const auto isMarker = [](const ReadEntry &entry) { return Comes(entry) && entry.Row.RowKind == DayMarker; };
    if (std::none_of(Batch.Entries, Batch.Entries + Batch.Count, isMarker))
        return 1;
    bool held = false;
    const int whole = VisitFromLast(place, [&held](const TRec *row) {
        held = row->RowKind == DayMarker;
        return !held;
    });
    for (int32_t i = 0; i < Batch.Count && whole; ++i) {
        if (!isMarker(Batch.Entries[i]))
            continue;
        if (held)
            PassOver(i);
        held = true;
    }
    return whole;
}

// --- Into the account

// An account at zero gets, the day before its first entry, what makes it end at the statement's balance. 0 when
// refused.
int BringForward(const Target &target) {
    const ARec &account = target.Account;
    const bool archived = target.Rows.Of == View::Archive;
    const FixedAmount balance = archived ? account.ArcBalance : account.Balance;
    const FixedAmount cleared = archived ? account.ArcClearedBalance : account.ClearedBalance;
    if (balance != 0 || cleared != 0 || !Batch.HasStatementBalance)
        return 1;
    TRec row = NewRow(), first;
    CopyText(row.Name, TextRoom, u"Brought forward");
    row.Value = Batch.StatementBalance;
    uint32_t day = UINT32_MAX;
    for (int32_t i = 0; i < Batch.Count; ++i) {
        if (!Comes(Batch.Entries[i]))
            continue;
        row.Value = SubtractAmounts(row.Value, Batch.Entries[i].Row.Value);
        day = std::min(day, Batch.Entries[i].Row.Date.DayNumber);
    }
    if (day == UINT32_MAX)
        return 1; // nothing came in
    if (FetchRecord(target.Rows, 1, &first))
        day = std::min(day, first.Date.DayNumber);
    row.Date = DateFromDayNumber(std::max(day, FirstDayNumber + 1) - 1);
    return QueueEntry(target.Rows, row);
}

int AddToAccount(const Target &target) {
    if (Batch.KindSettled && Batch.AccountKind != target.Task.AccountKind &&
        !UpdateShareMode(target.Account.ID, static_cast<uint32_t>(Batch.AccountKind)))
        return 0;
    for (int32_t i = 0; i < Batch.Count; ++i)
        if (Comes(Batch.Entries[i]) && !QueueEntry(target.Rows, Batch.Entries[i].Row))
            return 0;
    if (!PlaceQueuedEntries())
        return 0;
    DDFileCheck();
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

int FinishImport(const Target &target) {
    if (!AddToAccount(target))
        return ImportUnwritten;
    CountOutcomes();
    if (target.Task.Tell)
        target.Task.Tell(100);
    return ImportDone;
}

int RefusalOf(ContentKind content) {
    return ImportUnknown + static_cast<int>(content);
}

} // namespace

int ImportQIFFile(const Place &place, const char *path, uint32_t firstDay, const char16_t *security,
                  ExchangeTeller tell) {
    Target target;
    if (!BeginImport(place, firstDay, security, tell, &target))
        return ImportUnwritten;
    if (!ReadWhole(ReadQif, path, target.Task, In::ImportQIFFile))
        return ImportFailed;
    if (!Batch.Accepted && Batch.Total > 0) {
        CountOutcomes();
        return RefusalOf(Batch.Content);
    }
    return FinishImport(target);
}

int ImportOFXFile(const Place &place, const char *path, uint32_t firstDay, ExchangeTeller tell) {
    Target target;
    if (!BeginImport(place, firstDay, u"", tell, &target))
        return ImportUnwritten;
    if (IsShare(target.Task.AccountKind) && !target.Task.AccountEmpty)
        return ImportMoney;
    if (!ReadWhole(ReadOfx, path, target.Task, In::ImportQIFFile))
        return ImportFailed;
    if (!PassOverDuplicates(target.Rows) || !BringForward(target))
        return ImportUnwritten;
    return FinishImport(target);
}

int ImportCSVFile(const Place &place, const char *path, uint32_t firstDay, ExchangeTeller tell) {
    Target target;
    if (!BeginImport(place, firstDay, u"", tell, &target))
        return ImportUnwritten;
    if (!ReadWhole(ReadCsv, path, target.Task, In::ImportCSVFile))
        return ImportFailed;
    if (!Batch.Accepted && Batch.Content != ContentKind::Unknown) {
        CountOutcomes();
        return RefusalOf(Batch.Content);
    }
    if (!PassOverDayMarkers(target.Rows))
        return ImportUnwritten;
    return FinishImport(target);
}

int ListSecurities(const char *path, SecurityList *list) {
    list->Count = 0;
    if (!OpenText(&Text, path))
        return 0;
    const int shares = ReadSecurities(&Text, list) && !Text.Broken;
    CloseText(&Text);
    return shares;
}

uint32_t DayAfterLastEntry(const Place &place) {
    TRec row;
    for (int32_t position = CountOf(place); position > 0 && FetchRecord(place, position, &row); --position)
        if (row.RowKind == EntryRow)
            return row.Date.DayNumber + 1;
    return 0;
}
