// The keyboard.
#pragma once

// Watches the keys of the application from here on.
void WatchKeys();
