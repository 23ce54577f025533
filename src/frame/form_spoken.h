// The painted parts of the open form, told to those who can't see them; its real controls speak for themselves.
#pragma once

#include "drawing/spots.h"

void ListFormSpots(SpotList *list);
