// The line of best fit as a calculator: a date gives a value and a value gives a date, held in a row of boxes.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include <cstdint>

inline constexpr int32_t LargestExtrapolated = 10000000; // whole units, on both sides of zero: eight digits
inline constexpr int32_t LargestPercent = 50;

// ORDER BOX: state.BoxSelection
enum Box : int { NoBox, DateBox, ValueBox, ZeroBox, PercentBox };
inline constexpr int Digits = 8;                          // parts of ValueBox, 1 the units
enum DatePart : int { DayPart = 1, MonthPart, YearPart }; // of DateBox; a DateUnit by number
enum PercentLinks : int { LinkDate = 1, LinkValue = 2 };

// Value predicted for a day number, whole units, at most LargestExtrapolated on either side. In Extrapolation Mode the
// percentage bends it around today.
int32_t PredictValue(int64_t day);
// The day number for which a value is predicted, in the range of valid dates; the last of them when there is none.
// `day` is the target's present one: it chooses on which side of today the percentage is undone.
uint32_t PredictDate(uint32_t day, int32_t value);

// Builds the state anew from the sample table, which must have been plotted in Extrapolation Mode.
void RebuildExtrapolation();
// Repairs LeftDate, predicts both ends, and scales the plot to them.
void ScaleExtrapolation();

// Where a box stands in ListWindow; `right` and `bottom` belong to it.
void ExtrapBoxRect(int kind, int index, Rect *box);
inline constexpr int BoxReach = 2; // rows above the boxes that answer a tap as well

// What a point at x in the row of boxes means.
struct BoxHit {
    int Kind;  // NoBox: one of the links
    int Index; // from 1; of NoBox the PercentLinks value
};
BoxHit BoxAt(int x);

// Steps the selected box one up or down, and what follows from it. 0 when the percentage is at its end: nothing
// changed.
int StepBox(int up);
// What the zero button does to the box that was selected: value or percentage to zero, date to today. The box stays
// selected.
void ZeroSelected(int selected);
// Up and Down with a box selected. 0 as StepBox.
int StepBoxByKey(int up);
// Moves the selection along the row, from the zero button to the year.
void WalkBoxes(int right);
// What follows from a changed box: the date from the value or the value from the date.
void FollowChange(int kind);

// A point of the line: sets PointerX, PointerY, PointerDate and PointerOn. 1 when one of them changed.
int PointAtLine(int x, int y);
