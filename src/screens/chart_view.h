// Pies and bars of the graph screen: what they show, and what taps, strokes, keys and the scroll bar do to them. They
// are rows of the table of modes in graph_frame.cpp.
#pragma once

#include "platform/event.h"

// 1 when the list's scroll bar belongs to the chart shown: debits against credits have no table.
int ChartsScroll();

// With PaintRows makes the work file anew and paints all between titles and tabs, with counts and thumb.
void PaintCharts(int mask);
// A press on the chart, and the release that ends it (state.PressX and PressY say where it began).
void PressCharts(int x, int y);
void StrokeCharts(int x, int y);
void ScrollCharts(ScrollCode code, int position);
// 1 when the key was the chart's.
int KeyCharts(Key key);
