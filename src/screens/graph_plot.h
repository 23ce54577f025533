// The plot of the blue tab on ListWindow: outline, curve, line of best fit, pointer; and the row of boxes above an
// extrapolation. The sample table must be loaded.
#pragma once

#include "platform/surface.h"
#include "records/records.h"
#include "values/amounts.h"
#include "values/dates.h"

// What stands on the outline of the plots of modes 1 and 2: curve, line of best fit, axes again, mark and pointer.
void DrawGraph();
// The same for an extrapolation: its line and its pointer.
void DrawExtrapolation();
// 1 while the pointer is shown and tells of its point.
int PointerTells();
// The entry marked on the plot, of an extrapolation the point of its line.
struct PlotPoint {
    Point At;
    RecDate Day;
    FixedAmount Amount;
    char16_t Title[TextRoom];
};
PlotPoint PointOfPlot();
// Day, amount and title at the pointer.
void ShowGraphPtr();
// Where the pointer's day and amount stand while it is on; empty boxes otherwise. Labels that they would cut are left
// out.
struct PointerPlace {
    Point At;
    Rect Day, Amount;
};
PointerPlace PlaceOfPointer();

// The depth of a line while the screen is three-dimensional, in the colour of a brush: of two points the band behind
// it, of more points shifted copies.
void DrawRibbon(const Point *points, int count, int brush);
