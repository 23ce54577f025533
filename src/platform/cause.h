// Why the data can't be kept, as the machine knows it.
#pragma once

// Looks at a directory of the device root (a device path) and at those above it: "/home/me/Zentrik/...: Permission
// denied". 1, or 0 when nothing is wrong with any of them.
[[nodiscard]] int FindCause(const char *directory, char *to, int room);
