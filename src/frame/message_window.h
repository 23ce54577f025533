// The window of six lines, and help mode.
#pragma once

#include "platform/event.h"
#include "platform/spoken.h"

// Paints the current message into the window that shows it now: the list's, the host window for the palette and the
// pass-code screen, the form's for any other form. Nothing while the hub or no message window is open. The paint
// procedure of slot 0; it chooses its window itself and takes no mask.
void PaintMessages(Window window, int mask);
// Opens the message window when closed, closes it when open. `reload` 1 brings the selection to the middle of the list
// and loads its window of rows anew; with 0 rows and top stay, for a caller that loads them itself. `keepDialog` 1
// leaves the input panel of an open form as it is.
void ToggleHelpMode(int reload, int keepDialog);
// The eyes (CommandLeftEye) or the hub button (CommandHub) when something is to be closed.
void LeaveHelpOrHub(int button);
// The eyes command.
void ToggleEyes();

// The lines that show, for speech. Returns how many, at most `room`.
int ListMessages(Spot *to, int room);
