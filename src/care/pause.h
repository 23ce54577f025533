// What is an action of its own although an event, which is one too, asks for it.
#pragma once

// Ends the action that runs. 1 when one ran and is done, 0 when none did, -1 when it was refused.
[[nodiscard]] int PauseAction();
// Begins it anew for what the event still does, when PauseAction ended one.
void ResumeAction(int paused);
