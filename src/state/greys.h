// Which menu items can be chosen now.
#pragma once

// Sets the enabled state of all menu items for a screen (a List). The screen is taken as 0 while a form is open, the
// hub holds input, or the data are not usable.
void SetGreys(int screen);

// Greys one item until the next SetGreys.
void GreyMenuItem(int id);

// True when the command or popup is enabled.
bool MenuItemEnabled(int id);
