// Every event finds its handler here.
#pragma once

#include "platform/event.h"

// Routes every event by ActiveDialog and CurrentScreen.
void WndProc(const Event &event);
