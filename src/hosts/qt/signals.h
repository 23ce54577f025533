// The signals by which a machine ends a program.
#pragma once

// From now on SIGTERM, SIGHUP and SIGINT are the window's close button: the program leaves in order, as soon as it has
// done what it is at. A second one ends the process at once.
void WatchSignals();
