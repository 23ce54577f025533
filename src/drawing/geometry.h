// Where everything stands in the windows.
#pragma once

#include "resources/geometry.h"
#include "state/state.h"

// TopWindow
inline constexpr int HeaderBottom = 15, TitlesBottom = 36;
inline constexpr Rect LeftCountBox = {0, 0, 30, 15}, UpArrowBox = {30, 0, 47, 15}, TitleBox = {47, 0, 193, 15},
                      DownArrowBox = {193, 0, 210, 15}, RightCountBox = {210, 0, ScreenWidth, 15};
// ListWindow
inline constexpr int RowHeight = 17;
inline constexpr int MessageTop = 147, MessageTopInForm = 189, MessageLineHeight = 13;
inline constexpr int VisibleBottom =
    BarTop - TitleHeight; // of TopWindow and of a form: the command bar covers the rest
inline constexpr int TabPitch = 37;
inline constexpr int TabBand = 32; // height of the strip

// The tab strip stands right under the rows: the last pixel row of a list of n rows is n * RowHeight.
inline constexpr int TabTop(int rowCount) {
    return rowCount * RowHeight + 1;
}
inline constexpr int RowTop(int row) {
    return (row - 1) * RowHeight;
}
// The box of a text in a row whose top is `top`.
inline constexpr Rect RowTextBox(int top, int left, int right) {
    return {left, top + 1, right, top + 1 + RowHeight};
}

// Screen row (from 1) of a position of the current screen, whether it shows or not.
inline int RowOfPosition(int position) {
    return position - state.TopPos[state.CurrentScreen] + 1;
}
inline bool RowShows(int row) {
    return row >= 1 && row <= state.RowCount;
}
