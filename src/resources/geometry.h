// The device's screen and the program's windows on it, in device pixels. A host and the painting code read these.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"

inline constexpr int ScreenWidth = 240, ScreenHeight = 320;
inline constexpr int TitleHeight = 26;                                // of the title bar, above all windows
inline constexpr int BarTop = 294, BarHeight = ScreenHeight - BarTop; // the command bar, over whatever reaches under it
inline constexpr int RightEdge = 226;                                 // of the rows; the scroll bar stands behind it
inline constexpr int ListTop = 36;                                    // of ListWindow in TopWindow

// Where each window stands, from the corner of TopWindow, which is that of the screen under the title bar. The data hub
// is placed by the program; here it has its size.
// clang-format off
inline constexpr Rect WindowBoxes[WindowCount] = {
    // ORDER WINDOW
    {},                                       // NoWindow
    {0,       0, ScreenWidth, 294},           // TopWindow
    {0, ListTop, ScreenWidth, ListTop + 262}, // ListWindow
    {0,       0, ScreenWidth, 394},           // HostWindow
    {0,       0, ScreenWidth, 82},            // HubWindow
    {0,       0, ScreenWidth, 268},           // DialogWindow
};
// clang-format on
