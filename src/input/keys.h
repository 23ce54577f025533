// The hardware keys, and the keys that stand for taps and commands.
#pragma once

#include "platform/event.h"

void DoKeyDown(Key key);
