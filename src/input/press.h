// What a press of the stylus means: the header, the titles, the rows, the tabs.
#pragma once

#include "platform/event.h"
#include "resources/help_lines.h"

void DoButtonDown(Window window, int x, int y);
// The host's double tap: a row opens, anything else takes it as a press.
void DoDoubleTap(Window window, int x, int y);

// 1 when the command, which can't be taken back, came a second time; else the owner has been asked.
int Confirmed(int command);
// Says something that the owner must see: the message window is open until he does the next thing.
void Tell(Help help, AddedLine added);
// The question, or what was told, is off the screen.
void ForgetQuestion();
// Before any other handling: whatever does not answer yes takes the question back.
void HearAnswer(const Event &event);

// The search by what is typed, on the screens with rows.
void BeginSearch();
// 1 when the event belonged to the search.
int HearSearch(const Event &event);

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
