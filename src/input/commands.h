// The commands of the bar and its menus.
#pragma once

// A menu command or bar button by its id of resources/menus.h; an id that is none does nothing.
void DoCommand(int command);
