// What every plot stands on.
#pragma once

#include "values/amounts.h"

// Grid, axes and labels for values from `min` to `max` on a cleared ground. The axes stay in state.AxisLine.
void DrawGraphOutline(FixedAmount min, FixedAmount max);
