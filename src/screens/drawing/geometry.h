// Where everything stands on the 240-wide screen.
#pragma once

#include "core/state.h"
#include "store/configuration.h"

// TopWindow
inline constexpr int HeaderBottom = 15, TitlesBottom = 36;
inline constexpr Rect LeftCountBox = {0, 0, 30, 15}, UpArrowBox = {30, 0, 47, 15}, TitleBox = {47, 0, 193, 15},
                      DownArrowBox = {193, 0, 210, 15}, RightCountBox = {210, 0, 240, 15};
// ListWindow
inline constexpr int RowHeight = 17;
inline constexpr int MessageTop = 147, MessageTopInForm = 189, MessageLineHeight = 13;
inline constexpr int WindowHeight = 294;  // TopWindow
inline constexpr int VisibleBottom = 268; // of TopWindow and of a form: the command bar covers the rest
inline constexpr int ListTop = 36;        // ListWindow in TopWindow
inline constexpr int TabTop(int rowCount) {
    return rowCount * RowHeight + 1;
}
inline constexpr int TabPitch = 37;

// Screen row (from 1) of a position of the current screen, whether it shows or not.
inline int RowOfPosition(int position) {
    return position - state.TopPos[state.CurrentScreen] + 1;
}
inline bool RowShows(int row) {
    return row >= 1 && row <= state.RowCount;
}
