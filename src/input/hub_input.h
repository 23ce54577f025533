// Presses, commands and keys while the hub is open. It lies in front, so it is asked first.
#pragma once

#include "platform/event.h"

// What the open hub takes before anything else hears of it: presses on it, the cross, the keys of a calculator. A paint
// request is answered for its windows and goes on to the others.
bool HubHears(const Event &event);
