#include "ledger/filter.h"
#include "ledger/account_file.h"
#include "ledger/account_window.h"
#include "ledger/balance.h"
#include "ledger/row_copy.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/windows.h"
#include <algorithm>
#include <cstdio>

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

int PassesFilter(TRec *row, int32_t position, void *context) {
    auto *pass = static_cast<FilterPass *>(context);
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

struct FileSet {
    TransactionFile Real, Filter, Work;
};
constexpr FileSet Files[] = {
    // by view: live, archive
    {TransactionFile::Live, TransactionFile::LiveFilter, TransactionFile::LiveFilterWork},
    {TransactionFile::Archive, TransactionFile::ArchiveFilter, TransactionFile::ArchiveFilterWork},
};

// Writes the work file of one view. Returns its rows, or -1.
int32_t FilterFile(uint32_t accountID, FilterPass *pass) {
    const FileSet &files = Files[pass->Archive];
    int source = OpenTransactions(files.Filter, accountID, OpenExisting);
    pass->FromReal = source < 0;
    if (source < 0)
        source = OpenTransactions(files.Real, accountID, OpenOrCreate);
    const int work = OpenWorkFile(files.Work, accountID);
    int32_t rows = -1;
    if (source < 0 || work < 0) {
        ReportError(In::WndProc, Trouble::TcreateFail);
    } else {
        rows = CopyRows(source, 1, CountRecords(source, FileKind::Transactions), work, 1, PassesFilter, pass);
        if (rows < 0)
            ReportError(In::WndProc, Trouble::CwriteFail);
    }
    CloseFile(source);
    CloseFile(work);
    return rows;
}

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

} // namespace

void CriteriaFromRow(const TRec &row, int32_t position, FilterCriteria *criteria) {
    *criteria = {};
    CopyText(criteria->Name, TextRoom, row.Name);
    CopyText(criteria->Memo, TextRoom, row.Memo);
    criteria->CatID = row.CatID;
    criteria->Month = row.Date.Month;
    criteria->Year = row.Date.Year;
    criteria->Flag = row.Flag;
    criteria->Value = RowEffect(row, state.AccountKind);
    criteria->DayNumber = row.Date.DayNumber;
    criteria->Position = position;
    criteria->FromArchive = state.ArchiveView;
    criteria->Kind = row.RowKind;
}

int ApplyFilter(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria, uint32_t date) {
    ARec account;
    if (!state.DataUsable || !FindAccount(accountID, &account, nullptr))
        return 0;
    const uint32_t view = state.ArchiveView;
    int32_t rows[2] = {}, rowsBefore[2] = {};
    for (const uint32_t archive : {1U, 0U}) {
        FilterPass pass = {&criteria, field, keep, archive, account.AccType, 0, date, 0};
        rows[archive] = FilterFile(accountID, &pass);
        rowsBefore[archive] = pass.RowsBefore;
    }
    const int written = rows[0] >= 0 && rows[1] >= 0;
    for (const FileSet &files : Files) {
        if (!written)
            EraseTransactions(files.Work, accountID);
        else if (!ReplaceBy(files.Work, files.Filter, accountID))
            Beep();
    }
    if (!written)
        return 0;
    for (const uint32_t archive : {1U, 0U}) {
        state.ArchiveView = archive;
        CalcBalance(accountID);
    }
    state.ArchiveView = view;
    if (accountID == state.CurAccount.ID) {
        state.SelectedPos[TransactionList] = std::min(rowsBefore[view] + 1, CountTransactions());
        state.FilterView = state.FilterShown = 1;
    }
    return 1;
}

int ClearFilters() {
    if (!state.DataUsable)
        return 0;
    TRec row;
    int32_t selection = state.SelectedPos[TransactionList];
    if (state.FilterView && FetchTran(selection, &row) && row.ParentRow != 0)
        selection = static_cast<int32_t>(std::min<uint32_t>(row.ParentRow, INT32_MAX));
    if (!RemoveFilterFiles())
        return 0;
    const uint32_t wasShown = state.FilterView;
    state.FilterView = state.FilterShown = 0;
    const int32_t count = CountTransactions();
    selection = std::min(std::max(selection, 1), count);
    state.SelectedPos[TransactionList] = selection;
    if (state.CurrentScreen == TransactionList)
        LoadTranFile(state.SelectedPos[AccountList], SetRecPosition(selection, count));
    if (wasShown && KindOfList(state.CurrentScreen) == FileKind::Transactions)
        RepaintScreen();
    return 1;
}

void ClearFiltersAndRecompute() {
    ClearFilters();
    if (state.CurrentScreen != TransactionList || !LoadCurrentAccount())
        return;
    CalcOneView(state.CurAccount.ID, !state.ArchiveView);
    CalcBalance(state.CurAccount.ID);
    LoadTranFile(state.SelectedPos[AccountList], state.TopPos[TransactionList]);
    RepaintScreen();
}
