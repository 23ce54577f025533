#include "analysis/extrapolation.h"
#include "analysis/graph_data.h"
#include "analysis/graph_value.h"
#include "analysis/regression.h"
#include "analysis/single.h"
#include "state/state.h"
#include <algorithm>
#include <initializer_list>

namespace {

uint32_t ValidDay(int64_t day) {
    return static_cast<uint32_t>(std::clamp<int64_t>(day, FirstDayNumber, LastDayNumber));
}

uint32_t Today() {
    RecDate today;
    LoadTodaysDate(&today);
    return today.DayNumber;
}

// The straight line's value for a day, not yet clipped to what the boxes show.
int64_t StraightValue(int64_t day) {
    constexpr int64_t Most = int64_t{1} << 40; // far beyond them, and a percentage of it still fits
    const auto days = static_cast<float>(day - static_cast<int64_t>(state.FirstDay));
    const auto rise = Cut<int64_t>(days * state.UnitsPerRow * state.RegSlope * state.RowsPerDay);
    return state.FirstValue - std::clamp(rise, -Most, Most);
}

int Bends() {
    return state.ExtrapPercent != 0 && state.GraphMode == Extrapolation;
}

int64_t Distance(int64_t a, int64_t b) {
    return a > b ? a - b : b - a;
}

// The value that the straight line must have for the bent one to reach `value`.
int32_t Unbent(uint32_t day, int32_t value) {
    if (!Bends())
        return value;
    const uint32_t today = Today();
    const auto off = static_cast<float>(Distance(PredictValue(today), value));
    const auto percent = static_cast<float>(state.ExtrapPercent), all = static_cast<float>(state.ExtrapPercent + 100);
    const float part = off * percent / all;
    return day >= today ? Cut(static_cast<float>(value) - part) : Cut(static_cast<float>(value) + part);
}

RecDate DateOf(int64_t day) {
    return DateFromDayNumber(static_cast<uint32_t>(std::max<int64_t>(day, 1)));
}

// The date of a sample; today's when there is none.
RecDate SampleDate(int sample) {
    RecDate date = state.SampleRow[sample].Date;
    if (sample == 0)
        LoadTodaysDate(&date);
    return date;
}

} // namespace

int32_t PredictValue(int64_t day) {
    int64_t value = StraightValue(day);
    if (Bends()) {
        const uint32_t today = Today();
        const int64_t bend = Distance(StraightValue(today), value) * state.ExtrapPercent / 100;
        value += day < today ? -bend : bend;
    }
    return static_cast<int32_t>(std::clamp<int64_t>(value, -LargestExtrapolated, LargestExtrapolated));
}

uint32_t PredictDate(uint32_t day, int32_t value) {
    const int32_t straight = Unbent(day, value);
    const bool solvable = state.RowsPerDay != 0 && state.UnitsPerRow != 0 && state.RegSlope != 0;
    int32_t days = 1;
    if (solvable) {
        const auto rise = static_cast<float>(int64_t{straight} - state.FirstValue);
        days = Cut(rise / state.RegSlope / state.UnitsPerRow * (-1.0F / state.RowsPerDay));
    }
    int64_t found = int64_t{state.FirstDay} + days;
    // Rounding must not show: a neighbour that gives the value exactly is the better answer.
    if (PredictValue(found) != value) {
        found = PredictValue(found + 1) == value ? found + 1 : found - 1;
        if (PredictValue(found) != value)
            found = solvable ? found + 1 : int64_t{LastDayNumber};
    }
    return ValidDay(found);
}

void RebuildExtrapolation() {
    state.ExtrapReload = 0;
    state.PointerOn = 0;
    state.BoxSelection = NoBox;
    state.BoxIndex = 1;
    state.ExtrapPercent = 0;
    state.FirstDate = state.LeftDate = SampleDate(state.SampleCount > 0);
    state.FirstDay = state.FirstDate.DayNumber;
    state.LastDate = state.TargetDate = SampleDate(state.SampleCount);
    state.DaySpan = static_cast<int32_t>(state.LastDate.DayNumber - state.FirstDay);
    if (state.DaySpan == 0)
        state.DaySpan = 1;
    if (!CalcRegression()) { // nothing of an earlier account's line is to be told
        state.RegSlope = 0;
        state.FirstValue = 0;
    }
    state.ExtrapValue = state.SampleCount < 2 ? 0 : PredictValue(state.TargetDate.DayNumber);
}

void ScaleExtrapolation() {
    const int64_t left = state.LeftDate.DayNumber, target = state.TargetDate.DayNumber,
                  first = state.FirstDate.DayNumber;
    if (left >= target || (left < first && target <= first))
        state.LeftDate = DateOf(target - 1);
    else if (left < first)
        state.LeftDate = state.FirstDate;
    state.LeftValue = PredictValue(state.LeftDate.DayNumber) * Thousand;
    state.TargetValue = PredictValue(state.TargetDate.DayNumber) * Thousand;
    state.SampleMin = std::min<FixedAmount>({state.LeftValue, state.TargetValue, 0});
    state.SampleMax = std::max<FixedAmount>({state.LeftValue, state.TargetValue, 0});
    FixedAmount span;
    float xStep;
    ScaleGraph(state.SampleMin, state.SampleMax, &span, &xStep);
}

// --- The boxes

namespace {

constexpr int BoxTop = 5, BoxHeight = 14, DigitWidth = 11;

struct BoxPlace {
    int Kind, Index, Left, Right;
};
// clang-format off
constexpr BoxPlace Places[] = { // but the digits, whose places follow from their index
    {ZeroBox,    1,           3,  20},
    {PercentBox, 1,         121, 139},
    {DateBox,    DayPart,   157, 175},
    {DateBox,    MonthPart, 174, 204},
    {DateBox,    YearPart,  203, 238},
};
// clang-format on

int DigitLeft(int index) {
    return ((9 - index) / 3 + 34) * 3 - index * 10;
}

} // namespace

void ExtrapBoxRect(int kind, int index, Rect *box) {
    const int top = PlotRow(BoxTop);
    *box = {0, top, 0, top + BoxHeight};
    if (kind == ValueBox) {
        box->Left = DigitLeft(index);
        box->Right = box->Left + DigitWidth;
        return;
    }
    for (const BoxPlace &place : Places)
        if (place.Kind == kind && place.Index == index) {
            box->Left = place.Left;
            box->Right = place.Right;
        }
}

BoxHit BoxAt(int x) {
    Rect box;
    ExtrapBoxRect(ZeroBox, 1, &box);
    if (x <= box.Right)
        return {ZeroBox, 1};
    for (int index = Digits; index >= 1; --index) {
        ExtrapBoxRect(ValueBox, index, &box);
        if (x <= box.Right)
            return {ValueBox, index};
    }
    ExtrapBoxRect(PercentBox, 1, &box);
    if (x < box.Left)
        return {NoBox, LinkValue};
    if (x <= box.Right)
        return {PercentBox, 1};
    ExtrapBoxRect(DateBox, DayPart, &box);
    if (x < box.Left)
        return {NoBox, LinkDate};
    for (const int part : {DayPart, MonthPart}) {
        ExtrapBoxRect(DateBox, part, &box);
        if (x <= box.Right)
            return {DateBox, part};
    }
    return {DateBox, YearPart};
}

void FollowChange(int kind) {
    const bool dateFollows = kind == ValueBox || (kind == PercentBox && state.PercentLink == LinkDate);
    if (dateFollows)
        state.TargetDate = DateOf(PredictDate(state.TargetDate.DayNumber, state.ExtrapValue));
    else
        state.ExtrapValue = PredictValue(state.TargetDate.DayNumber);
}

int StepBox(int up) {
    const int sign = up ? 1 : -1;
    switch (state.BoxSelection) {
    case DateBox:
        StepDate(up, static_cast<DateUnit>(state.BoxIndex), &state.TargetDate);
        break;
    case ValueBox: {
        int32_t step = sign;
        for (int digit = 1; digit < state.BoxIndex; ++digit)
            step *= 10;
        state.ExtrapValue = std::clamp(state.ExtrapValue + step, -LargestExtrapolated, LargestExtrapolated);
        break;
    }
    case PercentBox:
        if (state.ExtrapPercent == sign * LargestPercent)
            return 0;
        state.ExtrapPercent += sign;
        break;
    default:
        return 0;
    }
    FollowChange(state.BoxSelection);
    return 1;
}

void ZeroSelected(int selected) {
    switch (selected) {
    case PercentBox:
        state.ExtrapPercent = 0;
        break;
    case ValueBox:
        state.ExtrapValue = 0;
        break;
    case DateBox:
        LoadTodaysDate(&state.TargetDate);
        state.BoxIndex = DayPart;
        break;
    default:
        return;
    }
    state.BoxSelection = selected;
    FollowChange(selected);
}

int StepBoxByKey(int up) {
    if (state.BoxSelection != ZeroBox)
        return StepBox(up);
    state.ExtrapValue = 0;
    FollowChange(ValueBox);
    return 1;
}

void WalkBoxes(int right) {
    // The row from left to right; digits count down.
    static constexpr BoxHit Row[] = {{ZeroBox, 1},       {ValueBox, 8},   {ValueBox, 7},      {ValueBox, 6},
                                     {ValueBox, 5},      {ValueBox, 4},   {ValueBox, 3},      {ValueBox, 2},
                                     {ValueBox, 1},      {PercentBox, 1}, {DateBox, DayPart}, {DateBox, MonthPart},
                                     {DateBox, YearPart}};
    constexpr int Last = static_cast<int>(sizeof Row / sizeof Row[0]) - 1;
    for (int at = 0; at <= Last; ++at) {
        const bool here = Row[at].Kind == state.BoxSelection && (at == 0 || Row[at].Index == state.BoxIndex);
        if (!here)
            continue;
        const BoxHit &next = Row[std::clamp(right ? at + 1 : at - 1, 0, Last)];
        state.BoxSelection = next.Kind;
        state.BoxIndex = next.Index;
        return;
    }
}

// --- The pointer

int PointAtLine(int x, int y) {
    constexpr int Reach = 20;
    const Point &from = state.LineEnds[0], &to = state.LineEnds[1];
    const bool wasOn = state.PointerOn;
    const int px = std::clamp(x, from.X, to.X);
    const auto distance = static_cast<float>(px - from.X);
    const float part = to.X == from.X ? distance : distance / static_cast<float>(to.X - from.X);
    const int row = Cut(static_cast<float>(to.Y - from.Y) * part + static_cast<float>(from.Y));
    if (Distance(y, row) >= Reach) {
        state.PointerOn = 0;
        return wasOn;
    }
    if (px - from.X < 1)
        return 0;
    const int oldX = state.PointerX, oldY = state.PointerY;
    state.PointerOn = 1;
    state.PointerX = px;
    state.PointerY = Cut(static_cast<float>(row) / state.PlotYScale);
    const int64_t left = state.LeftDate.DayNumber;
    const auto days = static_cast<float>(int64_t{state.TargetDate.DayNumber} - left);
    state.PointerDate = DateOf(left + Cut(days * part));
    return !wasOn || px != oldX || state.PointerY != oldY;
}
