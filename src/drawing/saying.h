// While somebody listens, what painters paint is also said, in words: a row is read as it is painted.
#pragma once

#include "values/amounts.h"

// What is said from here on is written to `to`, in place of what stood there.
void StartListening(char16_t *to, int room);
void StopListening();

// Nothing without a listener. Pieces are joined with ", ".
void Say(const char16_t *text);
// The magnitude, with a minus where the screen shows one by red ink.
void SayAmount(FixedAmount value, int decimals, bool minus);
void SayNumber(int64_t value, bool minus);
// "red flag", "blue flag", "yellow flag"; nothing for any other.
void SayFlag(int64_t flag);

// What the header and the column titles show, kept in the state: always, since they are painted seldom.
void NoteHeader(const char16_t *title);
// A title from left to right in TopWindow, in place of what stood there.
void NoteTitle(int left, int right, const char16_t *text);
// More words of the title that begins at `left`.
void NoteMoreOfTitle(int left, const char16_t *text);
