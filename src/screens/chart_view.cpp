#include "screens/chart_view.h"
#include "drawing/mixing.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "frame/scroll.h"
#include "frame/shown.h"
#include "screens/chart_picture.h"
#include "state/messages.h"
#include <algorithm>
#include <cstdlib>
#include <numbers>

namespace {

// --- Help: what both charts say, each in its words

struct ChartHelp {
    Help Tapping, Selected;     // on the chart, of a segment
    Help Groups, Orders;        // a list as it drops
    Help FormedFrom, OrderedBy; // and what has been chosen in it
    Help Heading;
    AddedLine PercentOfChart;
};
constexpr ChartHelp PieHelp = {Help::PieTapping, Help::PieSegment, Help::PieGroups,  Help::PieOrders,
                               Help::PieFormed,  Help::PieOrdered, Help::PieHeading, AddedLine::PercentOfPie},
                    BarHelp = {Help::BarTapping, Help::BarSelected, Help::BarGroups,  Help::BarOrders,
                               Help::BarFormed,  Help::BarOrdered,  Help::BarHeading, AddedLine::PercentOfBars};

const ChartHelp &HelpOfChart() {
    return state.GraphMode == PieChart ? PieHelp : BarHelp;
}

AddedLine ChosenIn(int list) {
    return list == GroupList
               ? static_cast<AddedLine>(static_cast<int>(AddedLine::FirstGroup) + state.AnalysisGroup - ByName)
               : static_cast<AddedLine>(static_cast<int>(AddedLine::FirstOrder) + state.AnalysisOrder);
}

void ExplainChart() {
    ShowHelp(LargestMagnitude() == 0 ? Help::NothingInChart : HelpOfChart().Tapping);
}

void ExplainChoice(int list) {
    ShowHelp(list == GroupList ? HelpOfChart().FormedFrom : HelpOfChart().OrderedBy, ChosenIn(list));
}

void ExplainList(int list) {
    ShowHelp(list == GroupList ? HelpOfChart().Groups : HelpOfChart().Orders, ChosenIn(list));
}

// --- Selection and window

void Repaint() {
    PaintWholeChart();
    UpdateCounts();
    SetScrollBarThumb(state.TopPos[GraphList], state.EntryCount[GraphList]);
}

void ShowFrom(int32_t top) {
    LoadChartRows(top);
    Repaint();
}

void Select(int32_t segment) {
    state.SelectedPos[GraphList] = segment;
    const int32_t top = state.TopPos[GraphList], row = segment - top;
    ShowFrom(row >= 0 && row < TableRows() ? top : segment - TableRows() / 2);
    ShowHelp(HelpOfChart().Selected);
}

// --- The drop lists

void Drop(int list) {
    state.DroppedList = list;
    if (list)
        ExplainList(list);
    Repaint();
}

void Choose(int list, int entry) {
    if (list == GroupList) {
        state.AnalysisGroup = entry + 1;
        state.AnalysisOrder = FirstOrderOf(state.AnalysisGroup);
    } else {
        state.AnalysisOrder = entry;
    }
    state.DroppedList = NoDropList;
    state.SelectedPos[GraphList] = state.TopPos[GraphList] = 1;
    ExplainChoice(list);
    ReloadList(GraphList, 1);
    state.Paint[GraphList](ListWindow, PaintAllButTabs); // the scroll bar comes and goes with the group
}

// 1 when the press was the open list's.
int PressList(int x, int y) {
    const int list = state.DroppedList;
    if (list == NoDropList)
        return 0;
    for (int entry = 0; entry < DropCount(list); ++entry)
        if (Inside(DropEntryBox(list, entry), x, y)) {
            Choose(list, entry);
            return 1;
        }
    const bool otherField = Inside(list == GroupList ? OrderField : GroupField, x, y);
    if (otherField)
        return 0;
    Drop(NoDropList); // a tap anywhere else only closes it
    return 1;
}

// --- The heading

void SetPercent(int on) {
    state.ShowPercent = on != 0;
    Repaint();
}

void PressHeading(int x, int y) {
    const bool upper = y < UpperHeading.Bottom, left = x < HeadingSplit;
    const AddedLine line = upper  ? left ? AddedLine::SegmentTitle : AddedLine::SegmentEntries
                           : left ? HelpOfChart().PercentOfChart
                                  : AddedLine::SegmentValue;
    if (!upper)
        SetPercent(left);
    ShowHelp(HelpOfChart().Heading, line);
}

// --- The chart itself

// The segment under a point of the pie, 0 for none.
int32_t PieHit(int x, int y) {
    const Rect box = PieBox();
    if (!Inside(box, x, y))
        return 0;
    const ConePoint point = ConeAngle((x - box.Left) * ConeSpan / (box.Right - box.Left),
                                      (y - box.Top) * ConeSpan / (box.Bottom - box.Top));
    if (point.Radius >= ConeRim)
        return 0;
    const double percent = std::clamp(point.Angle * 50 / std::numbers::pi, 0.0, 100.0);
    float sum = 0;
    int32_t hit = 0;
    WalkGRecs([&](int32_t row, const GRec &segment) {
        sum += PercentOf(segment);
        if (PercentOf(segment) > 0)
            hit = row; // the last one closes the circle
        return static_cast<double>(sum) <= percent;
    });
    return hit;
}

int32_t RowHit(int y) {
    if (y < TableTop(1) || y >= TableBottom())
        return 0;
    const int32_t segment = state.TopPos[GraphList] + (y - TableTop(1)) / TableRowHeight;
    return segment <= state.EntryCount[GraphList] ? segment : 0;
}

int32_t PairHit(int x, int y) {
    if (y < UpperHeading.Top || y >= state.RowCount * RowHeight)
        return 0;
    for (int i = 0; i < 2; ++i)
        if (x >= PairLeft[i] && x < PairLeft[i] + PairWidth)
            return i + 1;
    return 0;
}

int32_t SegmentAt(int x, int y) {
    const bool left = x < TableLeft;
    return IsPair() ? PairHit(x, y) : left && state.GraphMode == PieChart ? PieHit(x, y) : RowHit(y);
}

// --- Keys

int OrderStep(Key key) {
    return key == Key::Down ? OrderColumns : key == Key::Up ? -OrderColumns : key == Key::Right ? 1 : -1;
}

// In an open list the arrows move to another entry, which is chosen at once.
void ChooseByKey(Key key) {
    const int list = state.DroppedList;
    const bool group = list == GroupList;
    const int now = group ? state.AnalysisGroup - 1 : state.AnalysisOrder;
    const int next = now + (group ? (key == Key::Down) - (key == Key::Up) : OrderStep(key));
    if (next >= 0 && next < DropCount(list) && next != now) {
        Choose(list, next);
        state.DroppedList = list;
        Repaint();
    }
}

int KeyOfOpenList(Key key) {
    switch (key) {
    case Key::Up:
    case Key::Down:
    case Key::Left:
    case Key::Right:
        ChooseByKey(key);
        return 1;
    case Key::Enter:
        Drop(state.DroppedList == GroupList ? OrderList : NoDropList);
        return 1;
    case Key::Escape:
        Drop(NoDropList);
        return 1;
    default:
        return 0;
    }
}

void StepSegment(int step) {
    const int32_t next = state.SelectedPos[GraphList] + step;
    if (next >= 1 && next <= state.EntryCount[GraphList])
        Select(next);
    ShowHelp(Help::UpAndDownKeys);
}

void Zoom(int in) {
    constexpr int Factor = 3, Enough = 128; // a zoom below this may still grow
    if (in && state.BarZoom < Enough)
        state.BarZoom *= Factor;
    else if (!in)
        state.BarZoom = std::max(1, state.BarZoom / Factor);
    Repaint();
}

} // namespace

int ChartsScroll() {
    return ChartShown() && !IsPair();
}

void PaintCharts(int mask) {
    if (mask & PaintRows)
        Repaint();
}

void PressCharts(int x, int y) {
    if (y >= state.RowCount * RowHeight || PressList(x, y))
        return;
    if (Inside(GroupField, x, y) || Inside(OrderField, x, y)) {
        Drop(y < GroupField.Bottom ? GroupList : OrderList);
    } else if (x < ColumnLimit && y < LowerHeading.Bottom) {
        PressHeading(x, y);
    } else if (const int32_t segment = SegmentAt(x, y)) {
        Select(segment);
    } else {
        ExplainChart();
    }
}

void StrokeCharts(int x, int y) {
    constexpr int ScrollTravel = 27, ZoomTravel = 20, ZoomStep = 10, ZoomSteps = 2;
    const int across = state.PressX - x, down = y - state.PressY;
    if (!ChartsScroll() || state.DroppedList)
        return;
    // What is under the stylus goes with it.
    if (state.PressX >= TableLeft && state.PressY >= TableTop(1) && std::abs(down) >= ScrollTravel) {
        const int pressed = (state.PressY - TableTop(1)) / TableRowHeight, now = (y - TableTop(1)) / TableRowHeight;
        ShowFrom(state.TopPos[GraphList] + pressed - now);
    } else if (state.GraphMode == BarChart && std::abs(across) > ZoomTravel &&
               std::abs(across / ZoomStep) > ZoomSteps) {
        Zoom(across > 0);
    }
}

void ScrollCharts(ScrollCode code, int position) {
    int32_t top = state.TopPos[GraphList];
    const int32_t was = top, page = TableRows() - 1;
    ShowHelp(Help::ScrollBar);
    ShowEyes(OpenEye);
    switch (code) {
    case ScrollCode::LineUp:
        --top;
        break;
    case ScrollCode::LineDown:
        ++top;
        break;
    case ScrollCode::PageUp:
        top -= page;
        break;
    case ScrollCode::PageDown:
        top += page;
        break;
    case ScrollCode::ThumbTrack:
        top = position;
        break;
    case ScrollCode::Top:
        top = 1;
        break;
    case ScrollCode::Bottom:
        top = LowestChartTop();
        break;
    }
    top = std::clamp(top, 1, LowestChartTop());
    if (top != was)
        ShowFrom(top);
}

int KeyCharts(Key key) {
    if (state.DroppedList)
        return KeyOfOpenList(key);
    switch (key) {
    case Key::Up:
    case Key::Down:
        StepSegment(key == Key::Down ? 1 : -1);
        return 1;
    case Key::Enter:
        Drop(GroupList);
        return 1;
    case Key::Stroke:
        SetPercent(!state.ShowPercent);
        return 1;
    case Key::RowUp:
    case Key::RowDown:
        if (state.GraphMode == BarChart && !IsPair())
            Zoom(key == Key::RowUp);
        return 1;
    default:
        return 0;
    }
}
