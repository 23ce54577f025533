// What a press of the stylus means: the header, the titles, the rows, the tabs.
#pragma once

#include "platform/event.h"

void DoButtonDown(Window window, int x, int y);
// The host's double tap: a row opens, anything else takes it as a press.
void DoDoubleTap(Window window, int x, int y);

// What stands at a point of a window.
Hint HintOf(Window where, int x, int y);
// The column edge that a press at a point grabs, 0 for none.
int EdgeUnder(Window where, int x, int y);

// What lies under a point of ListWindow: 1 and up a row, -1 to -8 a tab, -13 the page button, 0 anything else.
int LinePos(Window window, int x, int y);

// A tap on a tab: its help lines, and the screen when it is another one.
void TapTab(int tab);
// Turns to the tab page that shows a tab, where it does not show.
void ShowTabPageOf(int tab);
