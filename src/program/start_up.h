// The order in which the program comes up and goes down.
#pragma once

// Steps 1 to the first painted screen, which may be the front page. 1, -1 or 0 as WinMain answers.
[[nodiscard]] int StartUp();

// What comes behind the front page: the data and the first list.
void GoOnFromPage();

// Ends the program: filters go unless `keepFilters`, settings are stored, the host's loop ends.
void ShutDown(int keepFilters);
