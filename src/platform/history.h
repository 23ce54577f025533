// The bytes that the last actions replaced, kept in memory for the run of the program: the undo.
//
// Kept are 100 actions, or 16 MB of what they replaced. An action that is larger than that empties the history, and so
// does one without a name (platform/action.h) that changes bytes that a kept action has changed as well:
// otherwise an undo would take away what nobody undid.
#pragma once

#include <cstdint>

// Actions that can be undone, and that were undone and can be done again. A new action empties the latter.
int HistoryCount();
int RedoCount();
// What NameAction said of the action that the next UndoAction or RedoAction concerns; 0 for none.
int UndoLabel();
int RedoLabel();

// Takes the last action back, or does it again: as one action, which is durable when it is committed. Inside an action,
// which must not have changed anything yet, it becomes what that action does; otherwise it is an action of its own.
// 0 when there is nothing to undo, or the action was refused: then everything is as before.
[[nodiscard]] int UndoAction();
[[nodiscard]] int RedoAction();

// What was kept belongs to files that are not these any more: another root, another state of the data.
void ForgetHistory();
