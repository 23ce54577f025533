// What a press started and a move or a release ends: strokes, rows dragged to a new place or to a tab, column edges.
#pragma once

#include "platform/event.h"

// Moves are heard only while the stylus is down; a release may lie outside every window.
void DoMouseMove(Window window, int x, int y);
void DoButtonUp(Window window, int x, int y);
