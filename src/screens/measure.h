// The third column of the transactions: what an entry is worth, or the measure that a share account's owner chose.
#pragma once

#include "screens/rows.h"

// False when state.AccountKind, which a damaged account may have set, is no AccountType.
bool MeasureIsKnown();

// What the row shows between two x.
void PaintMeasure(const RowStrip &strip, int left, int right, const TRec &row);

// The column's title by state.AccountKind, clipped to its cell in TopWindow.
void DrawMeasureTitle(int left, int right, Colour ink);
// A tap on it: the next measure of a share account, and what it is.
void StepMeasure(int x);
