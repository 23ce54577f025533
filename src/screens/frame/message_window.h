// The window of six lines, and help mode.
#pragma once

#include "platform/event.h"

// Paints the current message into the window that shows it now; the paint procedure of slot 0.
void PaintMessages(Window window, int mask);
// Opens the message window when closed, closes it when open. `reload` 1 loads the list's window of rows anew.
void ToggleHelpMode(int reload, int keepDialog);
// The eyes or the hub button when something is to be closed.
void LeaveHelpOrHub(int button);
// The eyes command.
void ToggleEyes();
