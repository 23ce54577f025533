#include "analysis/graph_value.h"
#include "ledger/balance.h"
#include "state/state.h"

namespace {

FixedAmount InShares(int32_t units) {
    return static_cast<int32_t>(static_cast<uint32_t>(units) * uint32_t{1000});
}

} // namespace

int ChartShown() {
    return state.GraphMode == BarChart || state.GraphMode == PieChart;
}

FixedAmount ColumnValue(const TRec &row, CountedIn where) {
    const bool cleared = state.ReconciledView == 1;
    const bool counts = !cleared || row.Cleared == 1;                     // on a statement already
    const bool moneyAlone = where == CountedIn::Segment && row.Cash == 1; // no shares came or went
    switch (state.AccountKind) {
    case BankAccount:
    case ListAccount:
        return counts ? TimesUnits(row.Units, row.Value) : 0;
    case ShareNumber:
        return counts && !moneyAlone ? InShares(row.Units) : 0;
    case SharePrice:
        return moneyAlone ? 0 : cleared ? row.ClearedValue : row.Value;
    case ShareTotal:
        return moneyAlone ? 0 : InShares(cleared ? row.RunClearedUnits : row.RunUnits);
    case ShareValue:
        return !counts ? 0 : row.Cash == 1 ? row.CashAmount : row.NoCash == 1 ? 0 : TimesUnits(row.Units, row.Value);
    case ShareCash:
        return cleared ? row.RunCleared : row.RunTotal;
    case CashPart:
        return counts && row.Cash == 1 ? row.CashAmount : 0;
    default:
        return 0;
    }
}

FixedAmount GetGraphValue(const TRec &row, CountedIn where) {
    if (state.BalanceView == 1 && where == CountedIn::Plot)
        return RowBalance(row, state.AccountKind, state.ReconciledView == 1);
    return ColumnValue(row, where);
}
