// The command bar and its eyes.
#pragma once

#include "platform/event.h"

// Builds the bar and its menus.
void SetMenuBar();
// With x at least 0 the eyes look at that point of a window; with x negative the left eye shows image -x and the right
// |y|. 1, or 0 when the front page is still up or the point lies in a form (with a beep).
int UpdateEyes(Window window, int x, int y);
