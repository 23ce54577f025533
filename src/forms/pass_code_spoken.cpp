#include "forms/pass_code_spoken.h"
#include "forms/pass_code_places.h"

namespace {

void ListWork(SpotList *list) {
    Spot &circle = AddSpot(list, SpotKind::Progress, PassWindow(), Placed(BoxOf(CircleSpot)), u"Files enciphered");
    circle.Value = state.CipherProgress;
    circle.Most = 100;
}

void ListDial(SpotList *list) {
    const Rect box = {DigitCircles[0].Left, DigitCircles[0].Top, DigitCircles[PassDigits - 1].Right,
                      DigitCircles[0].Bottom};
    Spot &entered = AddSpot(list, SpotKind::Message, PassWindow(), box, u"");
    if (state.DigitMarks == PassMarks::Typed) {
        SayCount(&entered, state.DigitCount);
        SayWords(&entered, u" of 4 digits entered");
    } else {
        SayWords(&entered, state.DigitMarks == PassMarks::Wrong ? u"Wrong code" : u"Right code");
    }
    for (const PassSpot &spot : PassSpots)
        if (spot.What < DigitKeys)
            SayCount(&AddSpot(list, SpotKind::Button, PassWindow(), Placed(spot.Box), u""), spot.What);
}

} // namespace

void ListPassCodeSpots(SpotList *list) {
    AddSpot(list, SpotKind::Heading, PassWindow(), TitleLine, PassTitles[state.PassMode]);
    if (state.CipherProgress >= 0) {
        ListWork(list);
        return;
    }
    AddSpot(list, SpotKind::Check, PassWindow(), BoxOf(LifterSpot), u"Long code").On = state.StrongMode != 0;
    if (ShowsDial())
        ListDial(list);
    Spot &circle =
        AddSpot(list, SpotKind::Button, PassWindow(), Placed(BoxOf(CircleSpot)), u"Clear, wrong codes so far ");
    SayCount(&circle, state.FailedTries);
}
