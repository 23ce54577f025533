// The owner's help lines: remembered here, painted by the message window.
#pragma once

#include "resources/help_lines.h"
#include <cstdint>

// Writes every message into its slot. Once, at start-up.
void LoadHelp();

// The text of a message with doubled percent signs made single; "" for an id without a text.
const char16_t *MessageText(int id);

// Another text for a message that names what an owner has named; cut to its room.
void NameMessage(int id, const char16_t *text);

// Remembers six lines (ids of resources/messages.h, 0 blank) and, with help mode on, has them painted when they differ
// from the remembered ones or `force` is 1. `align` 1 centres. With unusable data the lines are always the refusal.
void ShowHelpMessage(int align, int force, int line1, int line2, int line3, int line4, int line5, int line6);

// How everybody speaks: a set of lines by name, centred, with the line that the set has room for. ForceHelp paints it
// even where the same lines show.
void ShowHelp(Help help, AddedLine added = AddedLine::None);
void ForceHelp(Help help);
// Has the remembered lines painted again.
void RepeatHelp();
