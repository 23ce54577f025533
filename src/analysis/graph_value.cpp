#include "analysis/graph_value.h"
#include "state/error_log.h"
#include "state/state.h"

namespace {

constexpr int BarChart = 4, PieChart = 5; // of state.GraphMode

bool InAnalysis() {
    return state.CurrentScreen == GraphList && (state.GraphMode == BarChart || state.GraphMode == PieChart);
}

// In 32 bits, so that it wraps: this is deliberate.
FixedAmount ShareCount(int32_t units) {
    return static_cast<int32_t>(static_cast<uint32_t>(units) * 1000u);
}

FixedAmount Balance(const TRec &row, bool cleared) {
    const FixedAmount total = cleared ? row.RunCleared : row.RunTotal;
    if (!IsShare(state.AccountKind))
        return total;
    const FixedAmount shares =
        cleared ? TimesUnits(row.RunClearedUnits, row.ClearedValue) : TimesUnits(row.RunUnits, row.Value);
    return AddAmounts(shares, total);
}

} // namespace

FixedAmount GetGraphValue(const TRec &row) {
    const bool cleared = state.ReconciledView == 1;
    if (state.BalanceView == 1 && !InAnalysis())
        return Balance(row, cleared);
    const bool left = cleared && row.Cleared != 1;         // not on the statement yet
    const bool moneyAlone = InAnalysis() && row.Cash == 1; // no shares came or went
    switch (state.AccountKind) {
    case BankAccount:
    case ListAccount:
        return left ? 0 : TimesUnits(row.Units, row.Value);
    case ShareNumber:
        return left || moneyAlone ? 0 : ShareCount(row.Units);
    case SharePrice:
        return moneyAlone ? 0 : cleared ? row.ClearedValue : row.Value;
    case ShareTotal:
        return moneyAlone ? 0 : ShareCount(cleared ? row.RunClearedUnits : row.RunUnits);
    case ShareValue:
        if (left)
            return 0;
        return row.Cash == 1 ? row.CashAmount : row.NoCash == 1 ? 0 : TimesUnits(row.Units, row.Value);
    case ShareCash:
        return cleared ? row.RunCleared : row.RunTotal;
    case CashPart:
        return left || row.Cash != 1 ? 0 : row.CashAmount;
    default:
        ReportError(In::DrawGraph, Trouble::CaseError);
        return 0;
    }
}
