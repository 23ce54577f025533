// The way events take to the program.
#pragma once

#include "platform/event.h"

// An event of the pointer or a key is given to the program at once, one of a control after the control has
// finished its own work; what waits is given first, and an event never interrupts another.
void Deliver(const Event &event);
void DeliverLater(const Event &event);
// As DeliverLater, unless the form that is open now has been closed by then.
void DeliverFromForm(const Event &event);
// Gives the events that wait.
void DeliverWaiting();
// Asks for a paint event once no input waits; however often, for one.
void RequestPaint();
// Gives the paint event that was asked for, if one was.
void DeliverPaint();
