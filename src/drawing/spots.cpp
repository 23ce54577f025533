#include "drawing/spots.h"
#include "platform/text.h"
#include "state/state.h"
#include <algorithm>

Spot &AddSpot(SpotList *list, SpotKind kind, Window where, const Rect &box, const char16_t *name) {
    Spot &spot = list->To[std::min(list->Count, list->Room - 1)];
    list->Count = std::min(list->Count + 1, list->Room);
    spot = {.Kind = kind, .Where = where, .Box = box};
    CopyText(spot.Name, SpotNameRoom, name);
    return spot;
}

Spot &AddChoice(SpotList *list, Window where, const Rect &box, const char16_t *name, bool chosen) {
    Spot &spot = AddSpot(list, SpotKind::Choice, where, box, name);
    spot.Selectable = true;
    spot.Selected = chosen;
    return spot;
}

void SayMore(Spot *spot, const char16_t *more) {
    if (spot->Name[0])
        AppendAscii(spot->Name, SpotNameRoom, ", ");
    AppendText(spot->Name, SpotNameRoom, more);
}

void SayDate(Spot *spot, const RecDate &date) {
    SayMore(spot, u"");
    AppendNumber(spot->Name, SpotNameRoom, date.Day);
    AppendAscii(spot->Name, SpotNameRoom, " ");
    AppendText(spot->Name, SpotNameRoom, state.MonthNames[std::clamp<int>(date.Month, 1, 12)]);
    AppendAscii(spot->Name, SpotNameRoom, " ");
    AppendNumber(spot->Name, SpotNameRoom, date.Year);
}

void SayAmountOf(Spot *spot, FixedAmount value) {
    char16_t magnitude[32];
    WriteAmount(magnitude, 32, value);
    AppendAscii(spot->Name, SpotNameRoom, value < 0 ? "-" : "");
    AppendText(spot->Name, SpotNameRoom, magnitude);
}

void SayValue(Spot *spot, FixedAmount value) {
    SayMore(spot, u"");
    SayAmountOf(spot, value);
}

void SayCount(Spot *spot, int64_t number) {
    AppendNumber(spot->Name, SpotNameRoom, number);
}

void SayWords(Spot *spot, const char16_t *words) {
    AppendText(spot->Name, SpotNameRoom, words);
}
