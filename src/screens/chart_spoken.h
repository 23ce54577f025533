// A pie or a bar chart, in words: heading, lists, and a row for each segment that shows.
#pragma once

#include "drawing/spots.h"

void ListChartSpots(SpotList *list);
