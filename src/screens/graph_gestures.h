// What stylus and keys do to the plots of the blue tab, modes 1 to 3. Points are ListWindow's.
#pragma once

#include "platform/event.h"

// A tap on the plot, or a move over it: selects the nearest point, in Extrapolation Mode the point of the line.
void SelectGraphPoint(int x, int y);
// In Extrapolation Mode: the row of boxes, and the line below it.
void PressExtrapolation(int x, int y);
void MoveOverExtrapolation(int x, int y);
// Turns the eyes to the point that a tap or drag has found.
void LookAtPoint();

// Up and Down go from point to point, Enter opens the entry of the selected one. 0 when the key is not one of these.
int PlotKeyPressed(Key key);
// With a box selected Up and Down step it, Left and Right walk along the row. Enter selects one, and gives it up.
int BoxKeyPressed(Key key);

// Has the entry of the selected point stand selected in the middle of the transactions, so that what works on these
// works on it. 0 when no point is selected, or the entry is not where it was.
int BringSelectedPoint();
