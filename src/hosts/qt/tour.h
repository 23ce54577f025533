// The tour: the real program off-screen, driven by the events of a mouse and a keyboard on its real widgets.
#pragma once

class QString;

// Plays the program on a throw-away root and saves numbered pictures into `directory`, printing their paths. Makes its
// own application object. Returns the exit code of the process.
int PlayTour(int count, char **words, const QString &directory);
