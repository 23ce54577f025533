// The scroll bar, the wheel, and the keys that scroll.
#pragma once

#include "platform/event.h"

// `position` is the thumb's, for ThumbTrack alone.
void DoScroll(ScrollCode code, int position);
