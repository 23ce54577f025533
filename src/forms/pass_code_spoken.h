// What stands on the pass-code screen, in words: how many digits, never which.
#pragma once

#include "drawing/spots.h"

void ListPassCodeSpots(SpotList *list);
