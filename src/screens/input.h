// Stylus, keys and commands.
#pragma once

#include "platform/event.h"

// Routes every event by ActiveDialog and CurrentScreen.
void WndProc(const Event &event);

void DoButtonDown(Window window, int x, int y);
void DoMouseMove(Window window, int x, int y);
void DoButtonUp(Window window, int x, int y);
// Opens what is selected; `entryKind` is the RowKind of a new row. 1 when something opened.
int DoButtonDblclk(Window window, int entryKind);
void DoKeyDown(Key key);
void DoCommand(int command);
void DoScroll(ScrollCode code, int position);

// What lies under a point of ListWindow: 1 and up a row, -1 to -8 a tab, -13 the page button, 0 anything else.
int LinePos(Window window, int x, int y);
