// The line of best fit through the plot, worked out from its pixels in single precision.
#pragma once

#include "platform/surface.h"
#include <cstdint>

// Sets the regression words of the state from the sample table; wants DaySpan. 0 below two samples, and nothing is
// changed. The x of a sample is its rank, not its date: entries count as evenly spread over the days, deliberately.
int CalcRegression();

// Sets state.LineEnds to where the line runs: over the samples, in Extrapolation Mode from LeftValue to TargetValue. 0
// below two samples.
int SetLineEnds();

// Where a line, given by its row `y0` at the first vertex and its slope, stands above a curve on the screen: pairs of
// points into `stretches` (room for `count` pairs). Returns the number of pairs. The crossing that ends a stretch is
// told one row lower, so that a ribbon on it meets the curve.
struct Stretch {
    Point From, To;
};
int LineAboveCurve(float slope, int y0, const Point *curve, int count, const Point line[2], Stretch *stretches);
