// The one door between a host and the program.
#pragma once

#include "platform/event.h"

// Starts the program: the lock, the state block, directories, windows, configuration, data. 1 to go on with the
// host's loop, -1 when another copy runs on this device root and has been woken, 0 when the machine refused the
// windows.
[[nodiscard]] int WinMain();

// Every event of the host, as one action (platform/action.h). When it returns, the screen is painted and what the event
// did is durable, or the owner has been told that nothing of it was done.
void HandleEvent(const Event &event);

// Called when no input waits. 1 while it wants to be called again without an event.
int IdleStep();

// Called once when no input has come for RestMilliseconds: brings the files to the disk itself, so that no tap waits
// for it.
inline constexpr int RestMilliseconds = 2000;
void RestStep();

// Questions of a host, which change nothing.
// What stands at a point of a window.
Hint HintAt(Window where, int x, int y);
// 1 where a column's edge can be dragged.
int CanDragEdge(Window where, int x, int y);
