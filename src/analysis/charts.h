// The records behind a pie or a bar chart: entries of the current account merged into segments, their shares, and their
// order. They stand in the work file CHART of the data directory, so that their number has no limit in memory.
#pragma once

#include "records/chart_record.h"
#include "records/place.h"

// Which entries make one segment. Titles are told apart by all their units; a sign of zero counts as "+".
enum AnalysisGroups : int32_t { ByName = 1, ByCategory, ByRef, ByMonth, ByYear, ByFlag, BySign };
inline constexpr int GroupCount = BySign;

// ORDER ANALYSISORDER: the last two are by title without regard to case. The orders of one sign alone count the others
// as 0.
enum AnalysisOrders : int32_t {
    LargestFirst,
    SmallestFirst,
    LowestFirst,
    HighestFirst,
    DebitsOnly,
    CreditsOnly,
    FromAToZ,
    FromZToA,
};
inline constexpr int OrderCount = FromZToA + 1;
// The order that a group begins with.
int32_t FirstOrderOf(int32_t group);

// Makes CHART anew from the entries of a place, by state.AnalysisGroup and state.AnalysisOrder, with ratios and sorted;
// sets state.LargestCredit and LargestDebit. Returns the segments. Every
// marker is left out. Of share prices a segment holds the last; totals count as what each entry adds. Reports
// TcreateFail when a file can't be opened and BwriteFail when one can't be written, and goes on with what there is.
// Whatever stood in state.RunBuffer is lost.
int32_t ConvertRecToGRec(const Place &place);

// The shares of each segment in credits, debits and magnitudes, 0 where there are none.
void CalcRatios();
// What an entry must have to be in a segment, as a filter asks for it (FilterBy has the numbers of the groups).
void CriteriaFromSegment(const GRec &segment, struct FilterCriteria *criteria);
// Removes CHART.
void EndCharts();

// The segment at a row from 1. 0 and the defaults when there is none: no title, value 0, one entry, white.
int LoadGRec(int32_t row, GRec *segment);
// Up to `most` segments from a row on, by one opening. Returns how many arrived.
int32_t LoadGRecs(int32_t first, int32_t most, GRec *segments);
// Shows `visit(row, segment)` every segment until it answers 0.
template <typename Visit> void WalkGRecs(Visit visit) {
    constexpr int32_t AtOnce = 64;
    GRec run[AtOnce];
    int32_t read = AtOnce;
    for (int32_t first = 1; read == AtOnce; first += read) {
        read = LoadGRecs(first, AtOnce, run);
        for (int32_t i = 0; i < read; ++i)
            if (!visit(first + i, run[i]))
                return;
    }
}

// What a segment counts by the order: of all debits, of all credits, or of all magnitudes.
float PercentOf(const GRec &segment);
// Its value, 0 when the order counts the other sign alone.
FixedAmount ValueOf(const GRec &segment);
// |value|, also for the smallest 64-bit value.
constexpr uint64_t MagnitudeOf(FixedAmount value) {
    return value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
}
