// What the blue tab plots: which entries are sampled, what each one contributes, and how amounts become rows of pixels.
#pragma once

#include "records/place.h"

inline constexpr int PlotLeft = 33, PlotRight = 223; // x of the first and the last sample
inline constexpr int GridRows = 10;                  // bands from the lowest to the highest value

// Reads the newest entries of an account into the sample table, at most MostSamples, Day markers left out, and plots
// them. A read that fails ends the table where it stands. The entry selected stays, or the one behind it; another
// account, view or filter than before has its last entry selected and all that was foretold forgotten.
void LoadGraphData(const Place &place);
// Points and extremes of the samples as they were read, by the measure state.AccountKind, view, mode and height of the
// screen. Opens no file.
void PlotSamples();

// Sets PlotBand, PlotBase and PlotZero for values from `min` to `max`, which take in zero. Gives what lies between
// them, and the pixels of x between two samples.
void ScaleGraph(FixedAmount min, FixedAmount max, FixedAmount *span, float *xStep);

// What every vertical length passes through: less than 1 above the message window.
float VerticalScale();

// Row of ListWindow of a plot row before PlotYScale; cut toward zero.
int PlotRow(int64_t row);
// The plot row of a value, before PlotYScale, in a scale of `span` (0: the zero row).
int64_t RowOfValue(FixedAmount value, FixedAmount span);

// The first sample at or behind a record of the file, else the last; 0 when there are none.
int SampleOfEntry(int32_t position);
// Makes a sample, 0 none, the selected one.
void SelectSample(int sample);
// The sample nearest to a point of ListWindow, the larger of both distances counting, the earlier one of equals. 0 when
// none is nearer than 20 pixels.
int SampleNear(int x, int y);

// The short form of an amount's magnitude for the axes: "0", "2.30", "45.1", "990k", "1.0M"; stars when it is too
// large. In state.AxisText: the next call overwrites it.
const char16_t *Ystr(FixedAmount value);
