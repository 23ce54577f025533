// The blue tab, in words: its icons, and what stands on ListWindow above the tabs.
#pragma once

#include "drawing/spots.h"

void ListGraphIcons(SpotList *list);
void ListGraphSpots(SpotList *list);
