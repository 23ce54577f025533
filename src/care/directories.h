// The directories that an owner walks through to a place for a backup: state.BrowsePath is the one in view, its
// directories stand sorted in the state block.
#pragma once

// Shows the device root, "\".
void ShowDeviceRoot();
// Shows a directory of those in view, from 0 on. 0 when there is no such one, or its path would be too long.
[[nodiscard]] int EnterDirectory(int index);
// Shows the directory that holds the one in view; above the device root the host's own go on, by paths that begin with
// '/'. 0 at the top.
[[nodiscard]] int LeaveDirectory();

// The name of a directory in view, UTF-8, "" for none.
const char *DirectoryNameAt(int index);
// The path with a '\' at its end of the directory chosen: of those in view, or with index -1 the one in view. Room of
// PathRoom. 0 when it does not fit.
[[nodiscard]] int ChosenDirectory(char *to, int index);
