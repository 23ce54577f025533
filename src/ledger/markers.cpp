#include "ledger/markers.h"
#include "ledger/balance.h"
#include "ledger/order.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "state/state.h"
#include "store/index.h"
#include "store/operations.h"

namespace {

constexpr int MarkerNameUnits = 24;

} // namespace

void SetMarkerDay(TRec *row, const RecDate &date) {
    row->Date = date;
    CopyText(row->Name, TextRoom, u"");
    CopyText(row->Name, MarkerNameUnits + 1, WeekdayName(WeekdayOf(date)));
}

void FillDayMarker(TRec *row, const RecDate &date) {
    InitTRec(row);
    row->RowKind = DayMarker;
    row->Rank = DayRank;
    row->Units = row->ClearedUnits = 0;
    SetMarkerDay(row, date);
    CopyText(row->Memo, TextRoom, u"Auto generated");
}

void SetArchiveTotals(TRec *marker, int64_t accountType, const FileTotals &totals) {
    if (IsShare(accountType)) {
        marker->Units = totals.Shares;
        marker->ClearedUnits = totals.ClearedShares;
        marker->Value = totals.Price;
        marker->ClearedValue = totals.ClearedPrice;
        marker->CashAmount = totals.Balance;
        marker->ClearedCashAmount = totals.Cleared;
    } else {
        marker->Units = marker->ClearedUnits = 1;
        marker->Value = totals.Balance;
        marker->ClearedValue = totals.Cleared;
    }
}

void FillTotalMarker(ARec *row) {
    InitARec(row);
    row->RowKind = HeadingRow;
    CopyText(row->Name, TextRoom, u"Total");
    row->ID = GetNextID();
    row->MinLimit = 50;
    row->MaxLimit = 50000;
}

void CallDeletedMarker(TRec *row) {
    row->RowKind = DeletedMarker;
    row->Rank = DeletedRank;
    row->CatSlot = 1; // KeepsCleared
    CopyText(row->Name, TextRoom, u"Deleted");
    CopyText(row->Memo, TextRoom, u"Autocreated to protect balance");
    CopyText(row->FITID, TextRoom, u"");
    row->Cleared = row->NoCash = 1;
    row->Cash = 0;
    row->Flag = 0;
    row->TransferID = 0;
    row->CatID = 0;
}

void MakeDeletedMarker(TRec *row, int64_t accountType) {
    CallDeletedMarker(row);
    if (IsShare(accountType)) { // the prices are those of the row
        row->Units = row->RunUnits;
        row->ClearedUnits = row->RunClearedUnits;
        row->CashAmount = row->RunTotal;
        row->ClearedCashAmount = row->RunCleared;
    } else {
        row->Units = row->ClearedUnits = 1;
        row->Value = row->RunTotal;
        row->ClearedValue = row->RunCleared;
    }
}

void NegateDeletedMarker(TRec *row, int64_t accountType) {
    if (IsShare(accountType)) {
        row->Units = -row->Units;
        row->ClearedUnits = -row->ClearedUnits;
        row->CashAmount = NegateAmount(row->CashAmount);
        row->ClearedCashAmount = NegateAmount(row->ClearedCashAmount);
    } else {
        row->Value = NegateAmount(row->Value);
        row->ClearedValue = NegateAmount(row->ClearedValue);
    }
}

int32_t AddDayMarker(const Place &place) {
    RecDate today;
    LoadTodaysDate(&today);
    TRec row;
    FillDayMarker(&row, today);
    const int32_t position = AddRecord(place, PositionByDate(place, today, DayRank), row);
    if (position > 0)
        CalcTotals(place);
    return position;
}

int32_t AddTotalMarker(int32_t position) {
    ARec row;
    FillTotalMarker(&row);
    return AddRecord(Place{AccountList}, position, row);
}
