// The order in which the program comes up and goes down.
#pragma once

// Steps 1 to the first painted screen, which is the pass-code screen when the data are enciphered. 1, -1 or 0 as
// WinMain answers.
[[nodiscard]] int StartUp();

// Reads the data and shows the first list: after the start, or after the right pass code.
void LoadData();
// The files have been replaced: everything is read anew, with help mode as it was.
void StartAgain();

// Ends the program: filters go unless `keepFilters`, settings are stored, the host's loop ends.
void ShutDown(int keepFilters);
