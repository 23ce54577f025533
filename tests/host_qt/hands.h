// The owner's hands on the real widgets: events of the window system at pixels of the device.
#pragma once

#include <QTest>
#include <QWidget>
#include <QtTest>

namespace little {

// Lets the host do all that is waiting.
void Settle();

// The pointer at a device pixel, by events of the window system; what is not a mere press or move settles.
void PressAt(int x, int y);
void MoveTo(int x, int y);
void ReleaseAt(int x, int y);
void TapAt(int x, int y);
void DoubleTapAt(int x, int y);
// The pixel of the frame's widget in the middle of a device pixel.
QPoint WidgetPixel(int x, int y);

// A key by events of the window system; then settled.
void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const char *text);

// The real control of the open form whose name for screen readers is this.
QWidget *Control(const char *name);

} // namespace little
