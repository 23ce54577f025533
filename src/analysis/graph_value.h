// What an entry contributes to plots and charts.
#pragma once

#include "records/records.h"

// state.AccountKind inside an analysis alone: the cash part of an entry.
inline constexpr int32_t CashPart = 7;

// Thousandths, or shares x 1000. Depends on AccountKind, BalanceView and ReconciledView, and on whether a chart is
// shown (CurrentScreen, GraphMode). Share counts wrap at 2,147,483 shares, deliberately. An AccountKind that is not
// known is reported as caseError and counts as 0.
FixedAmount GetGraphValue(const TRec &row);
