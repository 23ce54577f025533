// The row of boxes above an extrapolation.
#pragma once

#include "platform/surface.h"

void DrawBoxRow();
// Rows of ListWindow that the boxes take; the plot's ground begins at the last of them.
Rect BoxRowBand();
