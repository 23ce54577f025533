// The page that covers the whole screen at the start, when the settings ask for it, and on the About command. The movie
// plays on it, see movie.h, with a tracker for its speed. A tap anywhere else, or a key, ends it.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include "resources/geometry.h"

// Where it stands in HostWindow: the name on the banner, the version, and what answers the stylus as tracker.
inline constexpr Rect BannerBox = {0, 222, 212, 222 + 78}, NameBox = {50, 224, 180, 250},
                      VersionBox = {86, 250, 206, 266},
                      TrackerBox = {BannerBox.Right, BannerBox.Top, ScreenWidth, BarTop - TitleHeight};

// Shows the page before the data are read; its end is NextStep::LeaveFrontPage.
void OpenFrontPage();
// Shows the page over the screen; its end brings the screen back.
void OpenAbout();

// Every event while the page is shown. 1 when it was the page's; leaving the program is not.
int HandlePageEvent(const Event &event);

// Paints the page as it stands without the movie.
void DrawWholePage();
// The same of its ground alone, within a box of HostWindow.
void DrawPage(const Rect &box);
// The speed tracker, 0 to 45 in steps of 5: state.MovieSpeed.
void DrawTracker();
