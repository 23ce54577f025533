// A program of a few lines behind the one door: it writes down what the host tells it, and does what a test wants done.
#pragma once

#include "host_qt/hands.h"
#include "hosts/qt/device.h"
#include "platform/controls.h"
#include "platform/event.h"
#include "platform/shell.h"
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
// A fresh state at a scale: no form, no bar, the first windows alone shown, nothing told.
void Begin(double scale = 1);

} // namespace little
