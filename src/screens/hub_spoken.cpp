#include "screens/hub_spoken.h"
#include "analysis/calculator.h"
#include "screens/hub_face.h"
#include "screens/hub_values.h"
#include "state/state.h"

namespace {

struct KeyName {
    int Key;
    const char16_t *Name;
};
// Of the keys whose legend is a picture or a sign.
constexpr KeyName Names[] = {
    {PointKey, u"Point"},
    {SignKey, u"Sign"},
    {PlusKey, u"Plus"},
    {MinusKey, u"Minus"},
    {TimesKey, u"Times"},
    {DivideKey, u"Divided by"},
    {EqualsKey, u"Equals"},
    {ReadKey, u"Read from the selected row"},
    {WriteKey, u"Write to the selected row"},
    {StoreKey, u"Store in the memory"},
    {RecallKey, u"Recall the memory"},
    {BackKey, u"Back"},
    {PiKey, u"Pi"},
    {RootKey, u"Square root"},
    {PercentKey, u"Percent"},
    {ReciprocalKey, u"Reciprocal"},
    {DecimalsKey, u"Decimals"},
    {ConversionsKey, u"Conversions"},
    {NextOperatorKey, u"Operator"},
    {ConeKey, u"Cone: hub or calculator"},
};

const char16_t *NameOf(int key, const char16_t *legend) {
    for (const KeyName &row : Names)
        if (row.Key == key)
            return row.Name;
    return legend;
}

void SayLine(Spot *spot, FixedAmount line) {
    char16_t text[32];
    if (state.CalcError) {
        SayMore(spot, u"too large");
        return;
    }
    WriteLine(text, 32, line);
    const char16_t *digits = text;
    while (*digits == u' ')
        ++digits;
    SayMore(spot, line < 0 ? u"-" : u"");
    SayWords(spot, digits);
}

void ListKey(SpotList *list, Window where, const HubKeyPlace &place) {
    FixedAmount value;
    if (place.Face == HubFace::Line) {
        const bool active = place.Key == state.CalcLine;
        Spot &line = AddChoice(list, where, place.Box, place.Legend, active);
        SayLine(&line, place.Key == LineXKey ? state.CalcX : place.Key == LineYKey ? state.CalcY : state.CalcZ);
        line.Focused = active;
        return;
    }
    Spot &key = AddSpot(list, SpotKind::Button, where, place.Box, NameOf(place.Key, place.Legend));
    if (place.Key == NextOperatorKey)
        SayMore(&key, NameOf(state.CalcOp, u""));
    else if (place.Key == SignKey)
        SayMore(&key, !state.CalcError && *ActiveLine() < 0 ? u"minus" : u"plus");
    else if (place.Key == DecimalsKey)
        SayMore(&key, state.CalcDecimals == 2 ? u"2" : u"3");
    key.Disabled = (place.Key == ReadKey && !HubRead(&value)) || (place.Key == WriteKey && !HubTakesValue());
}

} // namespace

void ListHubSpots(SpotList *list) {
    if (state.HubState == SmallHub) {
        SayLine(&AddSpot(list, SpotKind::Message, HubWindow, PanelDisplay, u"Hub"), *ActiveLine());
        for (const HubKeyPlace &place : HubPanel)
            ListKey(list, HubWindow, place);
    } else if (state.HubState == LargeHub) {
        AddSpot(list, SpotKind::Heading, HostWindow, CalculatorDisplay, u"Calculator");
        for (const HubKeyPlace &place : CalculatorKeys)
            ListKey(list, HostWindow, place);
    }
}
