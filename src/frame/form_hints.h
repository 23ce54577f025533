// What the marks of a form are, in words.
#pragma once

#include "platform/event.h"

// What the marks of the open form are, at a point of DialogWindow.
Hint HintOfForm(int x, int y);
