// What the screen shows of the work file CHART, kept in the central state: the rows of the table, the segment selected,
// and the pie cut into whole degrees. Painters take it from there.
#pragma once

#include "records/place.h"

// Makes CHART anew from the entries of a place and shows it from row `top`; the selection is brought onto a segment,
// and an open drop list is closed.
void LoadChart(const Place &place, int32_t top);
// Shows CHART, as it stands, from row `top` or the nearest that fills the table: for another top, another selection and
// another height of the table.
void LoadChartRows(int32_t top);

// Rows that the table has on the screen.
int TableRows();
// The last top, at least 1.
int32_t LowestChartTop();
