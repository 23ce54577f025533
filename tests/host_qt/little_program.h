// A program of a few lines behind the one door: it writes down what the host tells it, and does what a test wants done.
#pragma once

#include "hosts/qt/device.h"
#include "platform/controls.h"
#include "platform/event.h"
#include "platform/shell.h"
#include <QTest>
#include <QtTest>
#include <functional>
#include <gtest/gtest.h>
#include <string>

namespace little {

// What a test wants done inside the handler; none by default.
extern std::function<void(const Event &)> OnEvent;
// Idle steps that the program still wants.
extern int IdleStepsWanted;
extern int IdleStepsDone;

// The events since the last call, one a piece: "down List 3,4", "control 1003 Text", "key Up", "command 40076",
// "scroll ThumbTrack 7", "paint", "close"; joined by "; ".
std::string Told();
// Lets the host do all that is waiting.
void Settle();
// A fresh state at a scale: no form, no bar, the first windows alone shown, nothing told.
void Begin(double scale = 1);

// The pointer at a device pixel, by events of the window system.
void PressAt(int x, int y);
void MoveTo(int x, int y);
void ReleaseAt(int x, int y);
void TapAt(int x, int y);
void DoubleTapAt(int x, int y);
// The pixel of the frame's widget in the middle of a device pixel.
QPoint WidgetPixel(int x, int y);

// A key by events of the window system.
void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const char *text);

// The real control of the open form whose name for screen readers is this.
QWidget *Control(const char *name);

} // namespace little
