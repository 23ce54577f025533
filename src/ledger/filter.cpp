#include "ledger/filter.h"
#include "ledger/balance.h"
#include "ledger/row_copy.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/index.h"
#include <cstdio>
#include <initializer_list>

namespace {

constexpr int64_t SmallestCatID = 10001; // smaller numbers but 0 are no category

// What a row does to its account: an amount whose sign decides.
FixedAmount RowEffect(const TRec &row, int64_t accountType) {
    if (!IsShare(accountType))
        return TimesUnits(row.Cash ? 1 : row.Units, row.Value);
    if (row.Cash)
        return row.CashAmount;
    return row.NoCash ? 0 : TimesUnits(row.Units, row.Value);
}

struct FilterPass {
    const FilterCriteria *Criteria;
    FilterBy Field;
    int Keep;
    uint32_t Archive; // the file of this pass
    uint32_t AccountType;
    int FromReal;  // rows are numbered by the real file
    uint32_t Date; // rows before it are counted
    int32_t RowsBefore;
};

int IsSelectedRow(const FilterPass &pass, int32_t position) {
    return pass.Archive == pass.Criteria->FromArchive && position == pass.Criteria->Position;
}

// The archive's rows come before all live ones: below 0 before the selected row, above 0 behind it.
int64_t SideOf(const FilterPass &pass, int32_t position) {
    if (pass.Archive != pass.Criteria->FromArchive)
        return pass.Archive ? -1 : 1;
    return int64_t{position} - pass.Criteria->Position;
}

int EntryMatches(const FilterPass &pass, const TRec &row, int32_t position) {
    const FilterCriteria &wanted = *pass.Criteria;
    switch (pass.Field) {
    case FilterBy::Name:
        return SameText(row.Name, wanted.Name, TextRoom);
    case FilterBy::Category:
        return row.CatID == wanted.CatID && (wanted.CatID == 0 || wanted.CatID >= SmallestCatID);
    case FilterBy::Ref:
        return SameText(row.Memo, wanted.Memo, TextRoom);
    case FilterBy::Month:
        return row.Date.Month == wanted.Month;
    case FilterBy::Year:
        return row.Date.Year == wanted.Year;
    case FilterBy::Flag:
        return row.Flag == wanted.Flag;
    case FilterBy::Sign:
        return (RowEffect(row, pass.AccountType) < 0) == (wanted.Value < 0);
    case FilterBy::Date:
        return row.Date.DayNumber == wanted.DayNumber;
    case FilterBy::Entry:
        return IsSelectedRow(pass, position);
    case FilterBy::Preceding:
        return SideOf(pass, position) <= 0;
    case FilterBy::Following:
        return SideOf(pass, position) >= 0;
    case FilterBy::Kind:
        return wanted.Kind == EntryRow;
    }
    return 0;
}

// Markers stay in every view; only one that was asked to go by its kind, its name or as the selected row goes.
int MarkerExcluded(const FilterPass &pass, const TRec &row, int32_t position) {
    if (pass.Keep)
        return 0;
    switch (pass.Field) {
    case FilterBy::Kind:
        return row.RowKind == pass.Criteria->Kind;
    case FilterBy::Name:
        return SameText(row.Name, pass.Criteria->Name, TextRoom);
    case FilterBy::Entry:
    case FilterBy::Preceding:
    case FilterBy::Following:
        return IsSelectedRow(pass, position);
    default:
        return 0;
    }
}

int PassesFilter(TRec *row, int32_t position, FilterPass *pass) {
    const int shown = row->RowKind == EntryRow ? EntryMatches(*pass, *row, position) == pass->Keep
                                               : !MarkerExcluded(*pass, *row, position);
    if (!shown)
        return 0;
    if (pass->FromReal)
        row->ParentRow = static_cast<uint32_t>(position);
    if (row->Date.DayNumber < pass->Date)
        ++pass->RowsBefore;
    return 1;
}

constexpr TransactionFile WorkFiles[] = {TransactionFile::LiveFilterWork,
                                         TransactionFile::ArchiveFilterWork}; // by View

// Writes the filter file of one view anew. 0 when a read or write failed.
int WriteFilterFile(uint32_t accountID, FilterPass *pass) {
    const View view = pass->Archive ? View::Archive : View::Live;
    const TransactionFile workFile = WorkFiles[pass->Archive];
    uint32_t filtered;
    const int source = OpenPlace(RowsOf(accountID, view), OpenOrCreate, &filtered);
    const int work = OpenWorkFile(workFile, accountID);
    pass->FromReal = !filtered;
    int written = source >= 0 && work >= 0;
    if (!written)
        ReportError(In::WndProc, Trouble::TcreateFail);
    else if (CopyRows<FilterPass>(source, 1, CountRecords(source, FileKind::Transactions), work, 1, PassesFilter,
                                  pass) < 0) {
        written = 0;
        ReportError(In::WndProc, Trouble::CwriteFail);
    }
    CloseFile(source);
    CloseFile(work);
    return written && ReplaceBy(workFile, FilterFile(view), accountID);
}

} // namespace

int RemoveFilterFiles() {
    int removed = 0;
    for (const char *prefix : {"E1_02AF", "E1_02RF"}) {
        FileWalk walk;
        FindNames(&walk, DataDirectory, prefix);
        char name[PathRoom], path[PathRoom];
        while (FindNextName(&walk, name, PathRoom)) {
            const int length = std::snprintf(path, PathRoom, "%s\\%s", DataDirectory, name);
            if (length < PathRoom && DeleteFileAt(path))
                removed = 1;
        }
        EndFind(&walk);
    }
    return removed;
}

bool AccountFiltered(uint32_t accountID) {
    for (const View view : {View::Live, View::Archive}) {
        char path[PathRoom];
        TransactionPath(path, FilterFile(view), accountID);
        if (FileThere(path) == 1)
            return true;
    }
    return false;
}

void CriteriaFromRow(const TRec &row, const Place &place, int32_t position, int64_t accountType,
                     FilterCriteria *criteria) {
    *criteria = {};
    CopyText(criteria->Name, TextRoom, row.Name);
    CopyText(criteria->Memo, TextRoom, row.Memo);
    criteria->CatID = row.CatID;
    criteria->Month = row.Date.Month;
    criteria->Year = row.Date.Year;
    criteria->Flag = row.Flag;
    criteria->Value = RowEffect(row, accountType);
    criteria->DayNumber = row.Date.DayNumber;
    criteria->Position = position;
    criteria->FromArchive = static_cast<uint32_t>(place.Of);
    criteria->Kind = row.RowKind;
}

int ApplyFilter(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria, uint32_t day,
                FilterCount *count) {
    ARec account;
    if (!state.DataUsable || !FindAccount(accountID, &account, nullptr))
        return 0;
    for (const uint32_t archive : {1U, 0U}) {
        FilterPass pass = {&criteria, field, keep, archive, account.AccType, 0, day, 0};
        if (!WriteFilterFile(accountID, &pass))
            return 0;
        count->RowsBefore[archive] = pass.RowsBefore;
    }
    CalcTotals(RowsOf(accountID, View::Archive));
    CalcTotals(LiveRows(accountID));
    return 1;
}
