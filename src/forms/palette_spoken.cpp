#include "forms/palette_spoken.h"
#include "drawing/mixing.h"
#include "forms/palette_places.h"

namespace {

void SayColour(Spot *spot, Colour colour) {
    static constexpr struct {
        const char16_t *Name;
        int Shift;
    } Parts[] = {{u"red ", 16}, {u"green ", 8}, {u"blue ", 0}};
    for (const auto &part : Parts) {
        SayMore(spot, part.Name);
        SayCount(spot, static_cast<int>(colour >> part.Shift & 255));
    }
}

void ListSquares(SpotList *list) {
    for (int entry = 1; entry <= OwnerEntries; ++entry) {
        Spot &square = AddChoice(list, HostWindow, SquareBox(entry), u"Colour ", entry == state.PaletteSquare);
        SayCount(&square, entry);
        SayColour(&square, state.Palette[entry]);
    }
}

// The parameters, and the slider for the one that is linked to it.
void ListParameters(SpotList *list) {
    for (const ParameterPart &part : Parameters) {
        const bool linked = part.Link == state.Mixed.ColLink;
        const int value = ColourParameter(state.Mixed, part.Link);
        Spot &spot = AddChoice(list, HostWindow, part.Box, part.Name, linked);
        SayMore(&spot, u"");
        SayCount(&spot, value);
        if (!linked)
            continue;
        Spot &slider = AddSpot(list, SpotKind::Slider, HostWindow, SliderBox, part.Name);
        slider.Value = value;
        slider.Most = 255;
        slider.Focused = true;
    }
}

} // namespace

void ListPaletteSpots(SpotList *list) {
    SayColour(&AddSpot(list, SpotKind::Heading, HostWindow, SwatchBox, u"Palette"), ColourOf(state.Mixed));
    ListSquares(list);
    Spot &cone = AddSpot(list, SpotKind::Graphic, HostWindow, ConeBox, u"Cone of hues, hue ");
    SayCount(&cone, state.Mixed.ColH);
    SayMore(&cone, u"saturation ");
    SayCount(&cone, state.Mixed.ColS);
    ListParameters(list);
    Spot &category = AddSpot(list, SpotKind::Button, HostWindow, CategoryBox, u"Give the colour to ");
    SayWords(&category, state.FormRow.Category.Name);
    if (state.CategoryArmed)
        SayMore(&category, u"tap again");
}
