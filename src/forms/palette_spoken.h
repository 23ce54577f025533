// What stands on the palette, in words.
#pragma once

#include "drawing/spots.h"

void ListPaletteSpots(SpotList *list);
