#include "screens/graph_gestures.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "drawing/geometry.h"
#include "frame/command_bar.h"
#include "frame/header.h"
#include "frame/shown.h"
#include "screens/graph_boxes.h"
#include "screens/graph_plot.h"
#include "screens/list_screen.h"
#include "screens/opening.h"
#include "screens/screens.h"
#include "state/messages.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>

namespace {

constexpr int BoxesAndPlot = PaintCounts | PaintRows;

int PlotOfEntries() {
    return state.GraphMode == PlainGraph || state.GraphMode == Regression;
}

void SelectEntryPoint(int x, int y) {
    if (state.SampleCount < 2 || state.SampleTotal < 2)
        return;
    const int found = SampleNear(x, y);
    const bool wasOn = state.PointerOn, other = found > 0 && found != state.SelectedSample;
    state.PointerOn = found > 0;
    if (found > 0)
        SelectSample(found);
    if (other || wasOn != (found > 0))
        doGraph(ListWindow, PaintRows);
    ShowHelp(found > 0 ? Help::PointSelected : Help::PointMissed);
}

void SelectLinePoint(int x, int y) {
    if (state.SampleCount < 2)
        return;
    const bool unselect = state.BoxSelection != NoBox;
    state.BoxSelection = NoBox;
    const int changed = PointAtLine(x, y);
    if (changed || unselect)
        doGraph(ListWindow, unselect ? BoxesAndPlot : +PaintRows);
    ShowHelp(state.PointerOn ? Help::LineSelected : Help::PointMissed);
}

// --- The row of boxes

void ExplainPercent() {
    ShowHelp(state.PercentLink == LinkDate ? Help::PercentOnDate : Help::PercentOnValue);
}

void StepTapped(const BoxHit &hit) {
    state.BoxSelection = hit.Kind;
    state.BoxIndex = hit.Index;
    if (StepBox(static_cast<int>(state.IncrementMode)))
        doGraph(ListWindow, BoxesAndPlot);
}

void TapZero(int selected) {
    const bool pointerWasOn = state.PointerOn;
    state.PointerOn = 0;
    ZeroSelected(selected);
    doGraph(ListWindow, state.BoxSelection != NoBox || pointerWasOn ? BoxesAndPlot : +PaintCounts);
    ShowHelp(Help::ZeroButton);
}

void TapLink(int link) {
    state.PercentLink = link;
    state.PointerOn = 0;
    doGraph(ListWindow, BoxesAndPlot);
    ShowHelp(link == LinkValue ? Help::LinkedToValue : Help::LinkedToDate);
}

void TapBox(int x) {
    const BoxHit hit = BoxAt(x);
    const int selected = state.BoxSelection;
    state.BoxSelection = NoBox;
    switch (hit.Kind) {
    case ZeroBox:
        TapZero(selected);
        return;
    case NoBox:
        TapLink(hit.Index);
        return;
    case PercentBox:
        state.PointerOn = 0;
        StepTapped(hit);
        ExplainPercent();
        return;
    default:
        state.PointerOn = 0;
        StepTapped(hit);
        ShowHelp(hit.Kind == ValueBox ? Help::ExtrapolatedValue : Help::ExtrapolatedDate);
    }
}

// --- Keys

void StepPoint(int forward) {
    if (state.SampleCount < 1)
        return;
    const int sample = std::clamp(state.SelectedSample + (forward ? 1 : -1), 1, state.SampleCount);
    const bool moved = sample != state.SelectedSample || !state.PointerOn;
    state.PointerOn = state.SampleCount >= 2;
    SelectSample(sample);
    if (moved)
        doGraph(ListWindow, PaintRows);
    ShowHelp(Help::PointSelected);
}

} // namespace

void SelectGraphPoint(int x, int y) {
    if (PlotOfEntries())
        SelectEntryPoint(x, y);
    else
        SelectLinePoint(x, y);
}

void PressExtrapolation(int x, int y) {
    const Rect band = BoxRowBand();
    Rect box;
    ExtrapBoxRect(ZeroBox, 1, &box);
    if (y >= band.Bottom)
        SelectLinePoint(x, y);
    else if (y >= box.Top - BoxReach)
        TapBox(x);
}

void MoveOverExtrapolation(int x, int y) {
    if (y >= BoxRowBand().Bottom && state.PressY >= BoxRowBand().Bottom)
        SelectLinePoint(x, y);
}

void LookAtPoint() {
    if (!state.MessageWindowOn || !state.PointerOn)
        return;
    const Point at = PlaceOfPointer().At;
    UpdateEyes(ListWindow, at.X, at.Y);
}

int PlotKeyPressed(Key key) {
    switch (key) {
    case Key::Up:
    case Key::Down:
        StepPoint(key == Key::Down);
        return 1;
    case Key::Enter:
        if (BringSelectedPoint())
            DoButtonDblclk(ListWindow, EntryRow);
        return 1;
    default:
        return 0;
    }
}

int BoxKeyPressed(Key key) {
    if (state.BoxSelection == NoBox && key != Key::Enter)
        return 0;
    switch (key) {
    case Key::Enter:
        state.BoxSelection = state.BoxSelection == NoBox ? +DateBox : +NoBox;
        state.BoxIndex = DayPart;
        doGraph(ListWindow, PaintCounts);
        return 1;
    case Key::Up:
    case Key::Down:
        state.PointerOn = 0;
        if (StepBoxByKey(key == Key::Up))
            doGraph(ListWindow, BoxesAndPlot);
        return 1;
    case Key::Left:
    case Key::Right:
        WalkBoxes(key == Key::Right);
        doGraph(ListWindow, PaintCounts);
        return 1;
    default:
        return 0;
    }
}

int BringSelectedPoint() {
    const int32_t position = state.SelectedEntry;
    if (!PlotOfEntries() || position < 1)
        return 0;
    const TRec &shown = state.SampleRow[state.SelectedSample];
    TRec there;
    state.CurrentScreen = TransactionList;
    LoadTranFile(state.SelectedPos[AccountList], SetRecPosition(position, state.SampleTotal));
    state.CurrentScreen = GraphList;
    state.SelectedPos[TransactionList] = state.SelectedPos[GraphList] = position;
    // A Day marker that has followed the calendar meanwhile may have moved the rows.
    if (FetchTran(position, &there) && std::memcmp(&shown, &there, sizeof there) == 0)
        return 1;
    ReloadAndPaint(PaintAll);
    return 0;
}
