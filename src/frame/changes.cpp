#include "frame/changes.h"
#include "frame/refusal.h"
#include "ledger/balance.h"
#include "ledger/bin.h"
#include "ledger/filter.h"
#include "ledger/order.h"
#include "ledger/recurring.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "state/greys.h"
#include <algorithm>

namespace {

void Recount(const Place &place) {
    if (!FactsOfList(place.List))
        return;
    state.EntryCount[place.List] = CountOf(place);
    if (place.List != BinList)
        state.EntryCount[BinList] = CountOf(Place{BinList});
}

// The rows of a filtered view can't be changed.
bool Fixed(const Place &place) {
    return place.List == TransactionList && (state.FilterView || state.FilterShown);
}

} // namespace

int DeleteRecFile(uint32_t accountID, int32_t position) {
    Place place = PlaceShown();
    if (place.List == TransactionList)
        place.Account = accountID;
    const int removed = RemoveRecord(place, position);
    Recount(place);
    return removed;
}

int ShiftRecord(int32_t from, int32_t to) {
    const Place place = PlaceShown();
    const int32_t moved = MoveRecord(place, from, to);
    if (moved > 0)
        state.SelectedPos[place.List] = moved;
    return moved > 0;
}

int DeleteRecMem(int32_t position) {
    const Place place = PlaceShown();
    if (Fixed(place) || !DeleteToBin(place, position))
        return 0;
    Recount(place);
    RepairTop(place.List);
    return 1;
}

int DeleteRecRange(int32_t first, int32_t last) {
    const Place place = PlaceShown();
    if (!state.DataUsable || Fixed(place))
        return 0;
    const int deleted = DeleteRangeToBin(place, first, last);
    Recount(place);
    return deleted;
}

int32_t CpDates(const RecDate &date, uint32_t rank) {
    return PositionByDate(PlaceShown(), date, rank);
}

FixedAmount CalcBalance(uint32_t accountID) {
    const FixedAmount balance = CalcTotals(RowsOf(accountID, ViewShown()));
    RefreshAccounts();
    return balance;
}

void RecomputeBalances() {
    Place place = EntriesShown();
    if (place.Of == View::Archive)
        CalcTotals(LiveRows(place.Account));
    CalcTotals(place);
    RefreshAccounts();
}

int FilterAccount(uint32_t accountID, int keep, FilterBy field, const FilterCriteria &criteria, uint32_t day) {
    FilterCount count;
    if (!ApplyFilter(accountID, keep, field, criteria, day, &count))
        return 0;
    state.ReconcileState = ReconcileStep::Idle;
    if (accountID != state.CurAccount.ID)
        return 1;
    state.FilterView = state.FilterShown = 1;
    state.SelectedPos[TransactionList] = std::min(count.RowsBefore[state.ArchiveView] + 1, CountTransactions());
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
    NameDeed(Deed::Unfiltered);
    const uint32_t wasShown = state.FilterView;
    state.FilterView = state.FilterShown = 0;
    std::fill_n(state.AccFiltered, MostRows + 1, uint8_t{0});
    const int32_t count = CountTransactions();
    selection = std::min(std::max(selection, 1), count);
    state.SelectedPos[TransactionList] = selection;
    if (state.CurrentScreen == TransactionList)
        LoadTranFile(state.SelectedPos[AccountList], SetRecPosition(selection, count));
    SetGreys(state.CurrentScreen);
    if (wasShown && KindOfList(state.CurrentScreen) == FileKind::Transactions)
        RepaintScreen();
    return 1;
}

void ClearFiltersAndRecompute() {
    ClearFilters();
    if (state.CurrentScreen != TransactionList || !LoadCurrentAccount())
        return;
    CalcTotals(RowsOf(state.CurAccount.ID, View::Archive));
    CalcTotals(LiveRows(state.CurAccount.ID));
    RefreshAccounts();
    LoadTranFile(state.SelectedPos[AccountList], state.TopPos[TransactionList]);
    RepaintScreen();
}

void CheckDDs() {
    if (!AnItemIsDue())
        return;
    ClearFilters(); // the entries must reach the real files
    const int32_t selection = state.SelectedPos[TransactionList];
    if (PostDueItems() == 0)
        return;
    NameDeed(Deed::Posted);
    CheckT1totals();
    RefreshAccounts();
    LoadCurrentAccount();
    ReloadList(state.CurrentScreen, state.TopPos[state.CurrentScreen]);
    CountTransactions();
    state.SelectedPos[TransactionList] = selection;
    Beep(Sound::Exclamation);
    RepaintScreen();
}
