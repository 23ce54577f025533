// The colour that an owner mixes: seven linked parameters, and the cone on which hue and saturation are chosen.
#pragma once

#include "platform/surface.h"
#include "state/state.h"

// Loads state.Mixed from a colour; the link stays.
void SetCurrentColour(int red, int green, int blue);
// Sets one parameter (a ColourLink), brought to 0 to 255, and all that follow from it. Contrast spreads the colour that
// was current when it was linked around its middle, so that it can go to 0 and come back.
void SetColourParameter(int32_t link, int value);
// The same on a colour that is not the current one: what the slider would come to.
void SetParameterOf(ColourState *colour, int32_t link, int value);
int ColourParameter(const ColourState &colour, int32_t link);
// Links a parameter to the slider.
void LinkColourParameter(int32_t link);
inline Colour ColourOf(const ColourState &colour) {
    return Rgb(colour.ColR, colour.ColG, colour.ColB);
}

inline constexpr int ConeSpan = 256;     // units across the cone
inline constexpr int ConeRim = 128;      // from this radius on a point lies outside
inline constexpr int ConeTapReach = 169; // a tap further out is none
struct ConePoint {
    int Radius;
    double Angle; // 0 to 2 pi, from the left over the top
};
// Of a point whose coordinates are 0 to 255 across the cone.
ConePoint ConeAngle(int x, int y);
// Hue and saturation at a point; outside the rim those of the rim.
void ConeColour(int x, int y, int *hue, int *saturation);
// Where a hue and a saturation stand.
Point ConePlace(int hue, int saturation);
// Takes hue and saturation from a point of the cone; luminosity stays. 0 when it lies too far out.
int SetColourFromCone(int x, int y);
