// How the HUB and the calculator look, and which key lies where. Both stand in tables of keys; the window is the one
// that state.HubState shows.
#pragma once

#include "resources/hub_keys.h"

inline constexpr Rect PanelDisplay = {18, 42, 111, 76}, CalculatorDisplay = {40, 5, 234, 97};

// The key under a point of the panel, or of the calculator. NoHubKey between the keys, AboveHub over the panel.
int HubHit(int x, int y);

// Everything, after the window was shown or covered.
void DrawHub();
// What a key may have changed: the lines, their sign and the operator.
void DrawHubDisplay();
// The arrows as SettleHub (screens/hub.h) found them.
void DrawHubArrows();
// A key as it is, or pressed. A key that is not there draws nothing.
void DrawHubKey(int key, bool pressed);
