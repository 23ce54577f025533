// The order in which the program comes up and goes down.
#pragma once

// Steps 1 to the first painted screen, which may be the front page, or the pass-code screen when the data are
// enciphered. 1, -1 or 0 as WinMain answers.
[[nodiscard]] int StartUp();

// What comes behind the front page: the gate of the pass code, or the data and the first list.
void GoOnFromPage();
// What comes behind the gate: the data and the first list.
void LoadData();
// The files have been replaced: everything is read anew, with help mode as it was.
void StartAgain();

// Ends the program: filters go unless `keepFilters`, settings are stored, the host's loop ends.
void ShutDown(int keepFilters);
