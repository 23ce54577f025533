// What is always true between two events, by name. The door asserts it in debug builds.
#pragma once

// The name of the first condition that does not hold now; null when all of them do. Opens no file.
const char *BrokenInvariant();
