#include "screens/graph_spoken.h"
#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/single.h"
#include "drawing/geometry.h"
#include "frame/shown.h"
#include "screens/chart_spoken.h"
#include "screens/graph_boxes.h"
#include "screens/graph_frame.h"
#include "screens/graph_plot.h"
#include "state/state.h"
#include <algorithm>
#include <cstdlib>

namespace {

constexpr const char16_t *Modes[ModeIcons] = { // ORDER GRAPHMODE
    u"Graph", u"Regression", u"Extrapolation", u"Bars", u"Pies"};

// --- The row of boxes

struct BoxWords {
    int Kind, Index;
    const char16_t *Name;
};
constexpr BoxWords Boxes[] = { // from left to right
    {ZeroBox, 1, u"Zero"},           {ValueBox, 8, u"Ten millions"},
    {ValueBox, 7, u"Millions"},      {ValueBox, 6, u"Hundred thousands"},
    {ValueBox, 5, u"Ten thousands"}, {ValueBox, 4, u"Thousands"},
    {ValueBox, 3, u"Hundreds"},      {ValueBox, 2, u"Tens"},
    {ValueBox, 1, u"Units"},         {PercentBox, 1, u"Percentage"},
    {DateBox, DayPart, u"Day"},      {DateBox, MonthPart, u"Month"},
    {DateBox, YearPart, u"Year"}};

// What the boxes of its kind hold together: each is a digit or a part of it.
void SayBox(Spot *spot, int kind) {
    if (kind == PercentBox) {
        SayMore(spot, u"");
        SayCount(spot, state.ExtrapPercent);
    } else if (kind == ValueBox) {
        SayMore(spot, u"value ");
        if (std::abs(state.ExtrapValue) >= LargestExtrapolated)
            SayWords(spot, u"too large");
        else
            SayCount(spot, state.ExtrapValue);
    } else if (kind == DateBox) {
        SayDate(spot, state.TargetDate);
    }
}

void ListBoxes(SpotList *list) {
    for (const BoxWords &box : Boxes) {
        Rect place;
        ExtrapBoxRect(box.Kind, box.Index, &place);
        const bool whole = box.Kind == ZeroBox || box.Kind == PercentBox;
        const bool chosen = box.Kind == state.BoxSelection && (whole || box.Index == state.BoxIndex);
        Spot &spot = AddChoice(list, ListWindow, place, box.Name, chosen);
        SayBox(&spot, box.Kind);
        spot.Focused = chosen;
    }
    Rect units, percent, day;
    ExtrapBoxRect(ValueBox, 1, &units);
    ExtrapBoxRect(PercentBox, 1, &percent);
    ExtrapBoxRect(DateBox, DayPart, &day);
    AddChoice(list, ListWindow, {units.Right + 1, units.Top, percent.Left, units.Bottom},
              u"Percentage acts on the value", state.PercentLink == LinkValue);
    AddChoice(list, ListWindow, {percent.Right + 1, units.Top, day.Left, units.Bottom}, u"Percentage acts on the date",
              state.PercentLink == LinkDate);
}

// --- The plot

void SayEnd(Spot *spot, const char16_t *word, int64_t value, const RecDate &day) {
    SayMore(spot, word);
    SayCount(spot, value);
    if (state.AccountKind != ListAccount)
        SayDate(spot, day);
}

void SayLineOfFit(Spot *spot) {
    const int last = state.SampleCount;
    if (last < 2 || state.GraphMode == PlainGraph)
        return;
    if (state.GraphMode == Extrapolation) {
        SayEnd(spot, u"line from ", WholePart(state.LeftValue), state.LeftDate);
        SayEnd(spot, u"to ", WholePart(state.TargetValue), state.TargetDate);
        return;
    }
    const auto width = static_cast<float>(state.SamplePt[last].X - state.SamplePt[1].X);
    const int rise = Cut(width * state.RegSlope * state.UnitsPerRow); // down the screen
    SayEnd(spot, u"line from ", state.FirstValue, state.SampleRow[1].Date);
    SayEnd(spot, u"to ", int64_t{state.FirstValue} - rise, state.SampleRow[last].Date);
}

// What the pointer tells; of the entry that is marked also while no pointer is shown.
void ListPoint(SpotList *list) {
    if (!PointerTells() && (state.GraphMode == Extrapolation || state.SelectedSample < 1))
        return;
    const PlotPoint point = PointOfPlot();
    Spot &spot =
        AddSpot(list, SpotKind::Row, ListWindow, {point.At.X - 3, point.At.Y - 3, point.At.X + 4, point.At.Y + 4}, u"");
    if (state.AccountKind == ListAccount)
        SayCount(&spot, state.SelectedEntry);
    else
        SayDate(&spot, point.Day);
    SayValue(&spot, point.Amount);
    if (point.Title[0])
        SayMore(&spot, point.Title);
    spot.Selectable = spot.Selected = true;
    spot.Focused = state.GraphMode != Extrapolation || state.BoxSelection == NoBox;
}

void ListPlot(SpotList *list) {
    const int top = state.GraphMode == Extrapolation ? BoxRowBand().Bottom : 0;
    Spot &plot = AddSpot(list, SpotKind::Graphic, ListWindow, {0, top, ScreenWidth, state.RowCount * RowHeight},
                         Modes[std::clamp<int>(state.GraphMode, PlainGraph, Extrapolation) - 1]);
    SayMore(&plot, u"");
    SayCount(&plot, state.SampleTotal);
    SayWords(&plot, u" entries");
    if (state.GraphMode != Extrapolation) {
        SayMore(&plot, u"from ");
        SayAmountOf(&plot, state.SampleMin);
        SayMore(&plot, u"to ");
        SayAmountOf(&plot, state.SampleMax);
    }
    SayLineOfFit(&plot);
    ListPoint(list);
}

} // namespace

void ListGraphIcons(SpotList *list) {
    for (int icon = 1; icon <= CountIcon; ++icon) {
        const int left = IconLeft + (icon - 1) * IconPitch;
        const Rect box = {left, HeaderBottom, left + IconSize, TitlesBottom};
        if (icon == CountIcon) {
            Spot &count = AddSpot(list, SpotKind::Choice, TopWindow, box,
                                  state.IncrementMode ? u"Taps on boxes count up" : u"Taps on boxes count down");
            count.Disabled = state.GraphMode != Extrapolation;
            continue;
        }
        Spot &mode = AddChoice(list, TopWindow, box, Modes[icon - 1], icon == state.GraphMode);
        mode.Disabled = icon == Extrapolation && state.AccountKind == ListAccount;
    }
}

void ListGraphSpots(SpotList *list) {
    if (ChartShown()) {
        ListChartSpots(list);
        return;
    }
    if (state.GraphMode == Extrapolation)
        ListBoxes(list);
    ListPlot(list);
}
