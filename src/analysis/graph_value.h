// What an entry contributes to plots, to charts and to the hub.
#pragma once

#include "records/records.h"

// ORDER GRAPHMODE, counted from 1; state.GraphMode 0 is none yet
enum GraphModes : int { PlainGraph = 1, Regression, Extrapolation, BarChart, PieChart };

// 1 in the two modes that merge entries into segments.
int ChartShown();

// Beside the measures of an account, state.AccountKind inside a chart alone: the cash part of an entry.
inline constexpr int32_t CashPart = 7;

// Where an entry is counted. A segment adds values up, whatever column is chosen, and has no shares where only money
// came or went.
enum class CountedIn : uint8_t { Plot, Segment };

// The value column of an entry by state.AccountKind and ReconciledView: thousandths. A number of shares counts as whole
// units and wraps at 32 bits, deliberately. An AccountKind that is not known counts as 0.
FixedAmount ColumnValue(const TRec &row, CountedIn where);

// The same, or in a plot the balance where BalanceView has it plotted.
FixedAmount GetGraphValue(const TRec &row, CountedIn where = CountedIn::Plot);
