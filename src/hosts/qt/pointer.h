// Mouse, finger and pen.
#pragma once

#include "platform/event.h"
#include <QPoint>

// Once, before the first press.
void WatchPointer();
// Sends what a pointer does at a point of the screen to the program window that lies there.
void SendPointer(EventKind kind, const QPoint &screen);
// The same as a press on an arrow of the list's scroll bar, `lines` times; below 0 is up.
void ScrollLines(int lines);
