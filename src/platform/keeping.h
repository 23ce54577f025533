// How the history is fed: by the commit of an action. For the file layer alone.
#pragma once

#include "platform/changes.h"

// Where the action that is committed goes.
enum class Keeping : uint8_t {
    Kept,   // it can be undone
    Silent, // it leaves no history
};

// The commit shows in this order what would take the action back. KeepReplaced refuses nothing: what does not fit is
// not kept.
void BeginKeeping(Keeping how);
void KeepReplaced(const ChangeView &change);
// The action is too large to keep.
void KeepNothing();
// Ends it: with 1 the action is done and counts, with 0 it was refused.
void EndKeeping(int done, int label);
