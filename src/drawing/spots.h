// What a screen tells of itself to those who can't see it: its own file adds its spots, where its painter and the
// stylus find them.
#pragma once

#include "platform/spoken.h"
#include "values/amounts.h"
#include "values/dates.h"

struct SpotList {
    Spot *To;
    int Room; // at least 1
    int Count = 0;
};

// The spot after the last; the last one again when there is no room for another.
Spot &AddSpot(SpotList *list, SpotKind kind, Window where, const Rect &box, const char16_t *name);
// The same as one of several, of which one is chosen.
Spot &AddChoice(SpotList *list, Window where, const Rect &box, const char16_t *name, bool chosen);

// More words of a spot's name, joined with ", ".
void SayMore(Spot *spot, const char16_t *more);
// The same of a date, "12 Apr 2026", and of an amount with its minus.
void SayDate(Spot *spot, const RecDate &date);
void SayValue(Spot *spot, FixedAmount value);
// Put behind the name as they are: a number, an amount, words.
void SayCount(Spot *spot, int64_t number);
void SayAmountOf(Spot *spot, FixedAmount value);
void SayWords(Spot *spot, const char16_t *words);
