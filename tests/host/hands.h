// The owner's hands: what a test does to the running program. Every event goes through the one door, and what a host
// does between events (idle steps, paint requests) is done before the call returns. Coordinates are the device's: x 0
// to 239, y 0 to 319; the title bar ends at y 26, the command bar starts at y 294.
#pragma once

#include "test_host.h"

namespace testhost {

// Power-on and WinMain. True when the program runs. Also a restart: what ran before is gone without a word. A front
// page is tapped away; StartWithPage leaves it.
bool StartProgram();
bool StartWithPage();
// The window's close button, when the program still runs.
void QuitProgram();
bool ProgramRuns();

// One event as it is, then what a host does when no input waits.
void SendEvent(const Event &event);
// Idle steps and paint requests until the program wants no more, or after MostIdleSteps: a movie never ends by itself.
inline constexpr int MostIdleSteps = 60;
void Settle();

void Press(int x, int y);
void Move(int x, int y);
void Release(int x, int y);
void Tap(int x, int y);
void DoubleTap(int x, int y);
// Press, moves of at most six pixels, release.
void Drag(int fromX, int fromY, int toX, int toY);

// The list's rows and the tabs, by the places of test_host.h. A stroke goes so many pixels across a row; a row is
// dragged to the tab in a slot of the page shown.
void TapRow(int n);
void OpenRow(int n);
void StrokeRow(int n, int pixels = 60);
void TapSlot(int slot);
void DragToSlot(int n, int slot);

// With a form open, most keys belong to the control that has the focus: digits and Backspace are typed into it.
void SendKey(Key key);
// "Up", "Digit7", "7", "Tab3", "Stroke" ...; Key::None for no such key.
Key KeyByName(const std::string &name);
// By the screen's own key.
void ShowScreen(int screen);

// False, and nothing is sent, when the command or the popup it stands in is greyed.
bool SendCommand(int command);
// False when no scroll bar is shown.
bool Scroll(ScrollCode code, int position = 0);

// The controls of the open form, as an owner works them. False when the form has no such control, or it is hidden or
// disabled, or can't be worked in this way. A text is cut to the control's limit.
bool SetText(int id, const std::string &text);
bool Choose(int id, int index);
// Chooses the item with this text.
bool Choose(int id, const std::string &item);
bool Check(int id, bool on);
bool SetDate(int id, int year, int month, int day);
bool Focus(int id);

} // namespace testhost
