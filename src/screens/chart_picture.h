// Where everything stands on a chart, in ListWindow; and what the painter and the stylus share. Used by chart_view.cpp
// and chart_picture.cpp alone.
#pragma once

#include "analysis/chart_window.h"
#include "analysis/charts.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "drawing/geometry.h"
#include "state/state.h"

inline constexpr int TopMargin = 5;
inline constexpr int ColumnLimit = 153; // bars end here, the table begins behind it
inline constexpr int TableLeft = ColumnLimit + 1, TableRight = RightEdge;
inline constexpr int TableRowHeight = 13;

// The heading, and the fields of the two drop lists.
inline constexpr int HeadingSplit = 75; // what a tap means changes here
inline constexpr Rect UpperHeading = {1, 1, ColumnLimit, 18}, LowerHeading = {1, 18, ColumnLimit, 35};
enum DropLists : int32_t { NoDropList, GroupList, OrderList };
inline constexpr Rect GroupField = {TableLeft, 1, TableRight, 18}, OrderField = {TableLeft, 18, TableRight, 35};
inline constexpr int DropEntryHeight = 14, OrderColumns = 2;

constexpr Rect DropBox(int list) {
    const Rect &field = list == GroupList ? GroupField : OrderField;
    const int rows = list == GroupList ? GroupCount : OrderCount / OrderColumns;
    return {field.Left, field.Bottom, field.Right, field.Bottom + rows * DropEntryHeight + 2};
}
// The box of an entry (from 0) of a dropped list. Two columns fill row by row.
constexpr Rect DropEntryBox(int list, int entry) {
    const Rect box = DropBox(list);
    const int columns = list == GroupList ? 1 : OrderColumns;
    const int width = (box.Right - box.Left - 2) / columns, left = box.Left + 1 + entry % columns * width,
              top = box.Top + 1 + entry / columns * DropEntryHeight;
    return {left, top, left + width, top + DropEntryHeight};
}
constexpr int DropCount(int list) {
    return list == GroupList ? GroupCount : OrderCount;
}

// Row n of the table, from 1, stands behind bar n.
constexpr int TableTop(int row) {
    return TableRowHeight * row + TopMargin + 21;
}
inline int TableBottom() {
    return TableTop(TableRows() + 1);
}

// Vertical lengths with the message window open.
inline int Scaled(int length) {
    return static_cast<int>(static_cast<float>(length) * VerticalScale());
}

// The pie is seen from above at a slant: its middle sinks and its height grows over that of a flat one.
inline constexpr int PieMiddle = (ScreenWidth - 84) / 2, PieWidth = 140;
inline Rect PieBox() {
    const int height = Scaled(60) * 8 / 5, middle = Scaled(105) + 10, top = middle - height / 2;
    return {PieMiddle - PieWidth / 2, top, PieMiddle + PieWidth / 2, top + height};
}

// Debits against credits: two columns on one base.
inline constexpr int PairLeft[2] = {58, 129}, PairWidth = 70;
inline int PairBase() {
    return state.RowCount * RowHeight - 34 + (state.MessageWindowOn ? 21 : 0);
}
inline bool IsPair() {
    return state.GraphMode == BarChart && state.AnalysisGroup == BySign;
}

// Of the segments that count by the order.
uint64_t LargestMagnitude();
// Where a bar of a magnitude begins, 10 to ColumnLimit.
int BarLeft(uint64_t magnitude);
// A bar that is longer than there is room.
int BarIsCut(uint64_t magnitude);

// Paints all between titles and tabs.
void PaintWholeChart();
