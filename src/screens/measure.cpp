#include "screens/measure.h"
#include "drawing/saying.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "ledger/shares.h"
#include "platform/text.h"
#include "screens/list_screen.h"
#include "state/state.h"

namespace {

// What stands in the third column.
struct Measure {
    enum { Blank, Amount, Number, Word } Shows = Blank;
    FixedAmount Value = 0; // of a number: whole units
    int Decimals = 2;
    bool RedWhenPositive = false;
    Align Side = Align::Right;
};

Measure ReconcileMeasure() {
    if (state.ReconcileState == ReconcileStep::Solved)
        return {.Shows = Measure::Number, .Value = state.SelectedCount, .Side = Align::Centre};
    if (state.ReconcileState == ReconcileStep::Impossible)
        return {.Shows = Measure::Amount, .Value = state.Discrepancy};
    return {};
}

Measure ValueMeasure(const TRec &row) {
    const bool share = IsShare(state.AccountKind);
    const bool reversed = state.AccountKind == ShareValue;
    if (row.RowKind == DayMarker)
        return {};
    if (row.RowKind == ReconcileEntry)
        return ReconcileMeasure();
    if (row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker) {
        const bool cleared = state.ReconciledView == 1;
        const FixedAmount total =
            cleared ? TimesUnits(row.ClearedUnits, row.ClearedValue) : TimesUnits(row.Units, row.Value);
        const FixedAmount cash = cleared ? row.ClearedCashAmount : row.CashAmount;
        return {.Shows = Measure::Amount, .Value = share ? AddAmounts(total, cash) : total};
    }
    if (row.Cash == 1)
        return {.Shows = Measure::Amount, .Value = row.CashAmount};
    // Buying shares costs money: in a share account the value column is red when it is positive, deliberately.
    const FixedAmount value = share && row.NoCash == 1 ? 0 : TimesUnits(row.Units, row.Value);
    return {.Shows = Measure::Amount, .Value = value, .RedWhenPositive = reversed};
}

Measure MeasureOf(const TRec &row) {
    const bool cleared = state.ReconciledView == 1;
    switch (state.AccountKind) {
    case BankAccount:
    case ListAccount:
    case ShareValue:
        return ValueMeasure(row);
    case ShareNumber:
        if (row.RowKind == DayMarker)
            return {};
        if (row.Cash == 1)
            return {.Shows = Measure::Word};
        if (cleared && (row.RowKind == ArchiveMarker || row.RowKind == DeletedMarker))
            return {.Shows = Measure::Number, .Value = row.ClearedUnits};
        return {.Shows = Measure::Number, .Value = row.Units};
    case ShareTotal:
        if (row.Cash == 1)
            return {};
        return {.Shows = Measure::Number, .Value = cleared ? row.RunClearedUnits : row.RunUnits};
    case SharePrice:
        if (row.RowKind != DayMarker && (row.Cash == 1 || row.NoCash == 1))
            return {};
        return {.Shows = Measure::Amount, .Value = cleared ? row.ClearedValue : row.Value, .Decimals = 3};
    case ShareCash:
        return {.Shows = Measure::Amount, .Value = cleared ? row.RunCleared : row.RunTotal};
    default:
        return {};
    }
}

// ORDER ACCOUNTTYPE: the words over the third column, the second one lower
// clang-format off
constexpr const char16_t *MeasureTitle[][2] = {
    {u"Value",  nullptr},
    {u"Value",  nullptr},
    {u"Number", nullptr},
    {u"Price",  nullptr},
    {u"Share",  u"total"},
    {u"Value",  nullptr},
    {u"Cash",   u"total"},
};
// clang-format on

// ORDER ACCOUNTTYPE
constexpr Help MeasureHelp[] = {Help::ValueColumn,      Help::ValueColumn,      Help::NumberColumn,   Help::PriceColumn,
                                Help::ShareTotalColumn, Help::ShareValueColumn, Help::CashTotalColumn};

// A measure that a table has a row for: a damaged account is taken as a Bank account.
int KnownKind() {
    return MeasureIsKnown() ? state.AccountKind : static_cast<int>(BankAccount);
}

} // namespace

bool MeasureIsKnown() {
    return state.AccountKind >= static_cast<int>(BankAccount) && state.AccountKind <= static_cast<int>(ShareCash);
}

void PaintMeasure(const RowStrip &strip, int left, int right, const TRec &row) {
    const Measure measure = MeasureOf(row);
    const bool red = measure.RedWhenPositive ? measure.Value > 0 : measure.Value < 0;
    const Colour ink = red ? AlertRed : Black;
    switch (measure.Shows) {
    case Measure::Blank:
        return;
    case Measure::Word:
        RowText(strip, left, right, u"Cash", Align::Right);
        return;
    case Measure::Amount:
        RowAmountIn(strip, left, right, measure.Value, measure.Decimals, measure.Side, ink);
        return;
    case Measure::Number:
        RowNumber(strip, left, right, measure.Value, measure.Side, ink);
        return;
    }
}

void DrawMeasureTitle(int left, int right, Colour ink) {
    constexpr int Middle = HeaderBottom + 1, Lower = 8;
    const auto &words = MeasureTitle[KnownKind()];
    const Rect box = {left + 2, Middle, right - 2, TitlesBottom - 1};
    NoteMoreOfTitle(left, words[0]);
    if (!words[1]) {

        PaintText(TopWindow, words[0], box, Align::Centre, Font::Bold, ink, 1);
        return;
    }
    NoteMoreOfTitle(left, words[1]);
    PaintText(TopWindow, words[0], {box.Left, Middle, box.Right, box.Bottom - Lower}, Align::Centre, Font::SmallBold,
              ink, 1);
    PaintText(TopWindow, words[1], {box.Left, Middle + Lower, box.Right, box.Bottom}, Align::Centre, Font::SmallBold,
              ink, 1);
}

void StepMeasure(int) {
    const bool share = IsShare(state.AccountKind);
    if (share && !UpdateShareMode(state.CurAccount.ID, NextShareMode(static_cast<uint32_t>(state.AccountKind))))
        return;
    if (share)
        LoadCurrentAccount();
    const int kind = KnownKind();
    ShowHelp(MeasureHelp[kind], state.FilterShown     ? AddedLine::Filtered
                                : kind == ShareNumber ? AddedLine::CashAddsNoShares
                                                      : AddedLine::None);
    if (share)
        state.Paint[state.CurrentScreen](ListWindow, PaintColumns | PaintRows);
}
