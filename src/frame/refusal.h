// What is shown after an action that was refused: everything as it was before the action, and the reason.
#pragma once

#include "resources/help_lines.h"
#include <cstdint>

enum class Deed : uint8_t; // resources/deeds.h

// Says what the action that runs is, for whoever takes it back. The last word holds. What nobody names has only looked
// (a file that came to be, the marker of today, totals of a new day): nobody expects an undo to take that back.
void NameDeed(Deed deed);

// Notes where the owner is: screen, account and positions. At the begin of each action that an owner's event
// starts.
void NoteShown();

// Tells the owner which list or account holds a record that can't be read, when one was met that he has not been told
// of in this run. 1 when it was told. After each action, and last of all.
int TellBrokenRecord();

// Ends the action that runs, for a form that has done its work: 1 when it is durable; the next action then runs. 0 when
// it was refused: the rows stand as before, the owner has been told, and the next action runs.
[[nodiscard]] int FinishAction();
// What is shown is read anew from the files: the accounts, the account that was current at the begin of the action,
// found by its ID, and the rows of the screen, positions held inside the lists; the reconcile search and a range half
// chosen are forgotten.
void ReloadShown();
// Nothing of the action stays, whether it was refused or is to be given up: what is shown is read anew, and the owner
// is told why. An open form stays as it is. The next action then runs.
void GiveActionUp();
// The same, told by lines of the caller's own: the trouble was with a file of the owner's, not with the records.
void GiveActionUp(Help help);
// GiveActionUp at the end of an event. A form that the event opened closes again: its lists may not be whole, and what
// it was opened for is not selected any more. One that the event has led to another row shows again the row it showed.
void GiveEventUp();
