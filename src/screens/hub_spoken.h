// The hub or the calculator, whichever is shown, in words.
#pragma once

#include "drawing/spots.h"

void ListHubSpots(SpotList *list);
