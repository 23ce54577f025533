// The movie of the front page: short steps that the start-up floor asks for when no input waits. It has neither timer
// nor thread; once its scenes are over it rests, and nothing moves until it is started again.
#pragma once

// Of the tracker: state.MovieSpeed is 0 to 45, a unit is a millisecond less for each step.
inline constexpr int FastestMovie = 45, MovieSpeedStep = 5;

// Begins anew when it has not begun or has come to rest; a movie that runs goes on.
void StartMovie();
void StopMovie();

// One step: draws a frame, then sleeps at most 60 ms by the speed of the tracker. 1 while it wants another.
int DrawAbout();

// After the page was painted over: what the present scene has put on it.
void RepaintMovie();
