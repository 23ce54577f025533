// The owner's help lines: remembered here, painted by the message window.
#pragma once

#include "resources/messages.h"
#include <cstdint>

// Writes every message into its slot. Once, at start-up.
void LoadHelp();

// The text of a message with doubled percent signs made single; "" for an id without a text.
const char16_t *MessageText(int id);

// Remembers six lines (ids of resources/messages.h, 0 blank) and, with help mode on, has them painted when they differ
// from the remembered ones or `force` is 1. `align` 1 centres. With unusable data the lines are always the refusal.
void ShowHelpMessage(int align, int force, int line1, int line2, int line3, int line4, int line5, int line6);

// The usual call: centred, not forced.
inline void ShowHelp(int line1, int line2 = 0, int line3 = 0, int line4 = 0, int line5 = 0, int line6 = 0) {
    ShowHelpMessage(1, 0, line1, line2, line3, line4, line5, line6);
}
