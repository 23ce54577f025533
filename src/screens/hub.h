// The HUB: a panel at the bottom of the screen with a small keypad and two arrows, which read and write the amount of
// the row selected above it; the calculator, which is the same with all its keys on the whole screen; and the view of
// the conversions in which a rate is picked for it. Under an open form the pad types into the form.
#pragma once

#include "resources/hub_keys.h"

// The hub button: opens the panel, enlarges it to the calculator, closes that. A beep before start-up has ended.
void TurnHub();
// Closes it, whatever it shows. The list gets its room back, a form its lower end.
void CloseHub();

// What a key does. Numbers that are no key do nothing.
void HubKey(int key);
// A press on the panel or the calculator: what it does, its lines of help, and a key that shows it was pressed. The
// key, or HubHit's answer when there is none.
int PressHub(int x, int y);

// At the end of an event: finds out what the panel's arrows can do now, and draws them when that has changed.
void SettleHub();

// True while the open form lies under the calculator or the conversion view and hears nothing.
bool HubCoversForm();
// Ends the conversion view and shows the calculator again.
void EndPicking();
// Takes the rate of the selected conversion into the active line, and ends the view. 1, or 0 when the selection is no
// conversion.
int PickRate();
