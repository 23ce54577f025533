#include "drawing/mixing.h"
#include "drawing/colour_model.h"
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr int Full = 255, ConeMiddle = 128, ConeCentre = 127;
constexpr int Turn = 360, RedAt = 30; // degrees; the cone's red stands this far from where angles begin

int Bounded(int value) {
    return std::clamp(value, 0, Full);
}

void PlaceMark(ColourState *colour) {
    const Point mark = ConePlace(colour->ColH, colour->ColS);
    colour->MarkX = mark.X;
    colour->MarkY = mark.Y;
}

void FindHls(ColourState *colour) {
    const Hls hls = RgbToHls(colour->ColR, colour->ColG, colour->ColB);
    colour->ColH = hls.H;
    colour->ColL = hls.L;
    colour->ColS = hls.S;
    colour->ColC = hls.C;
}

void FindRgb(ColourState *colour) {
    const Colour rgb = HlsToRgb(colour->ColH, colour->ColL, colour->ColS);
    colour->ColR = static_cast<int>(rgb >> 16 & 255);
    colour->ColG = static_cast<int>(rgb >> 8 & 255);
    colour->ColB = static_cast<int>(rgb & 255);
    colour->ColC =
        std::max({colour->ColR, colour->ColG, colour->ColB}) - std::min({colour->ColR, colour->ColG, colour->ColB});
}

void KeepReference(ColourState *colour) {
    colour->RefR = colour->ColR;
    colour->RefG = colour->ColG;
    colour->RefB = colour->ColB;
}

// Of equal channels the first is the greatest and the last the smallest, so that a grey can be spread too.
void Spread(ColourState *colour, int contrast) {
    int32_t channels[] = {colour->RefR, colour->RefG, colour->RefB};
    int most = 0, least = 2;
    for (int i = 1; i < 3; ++i)
        most = channels[i] > channels[most] ? i : most;
    for (int i = 1; i >= 0; --i)
        least = channels[i] < channels[least] ? i : least;
    const int low = std::clamp((channels[most] + channels[least]) / 2 - contrast / 2, 0, Full - contrast);
    const int third = 3 - most - least;
    channels[least] = low;
    channels[most] = low + contrast;
    channels[third] = std::clamp(channels[third], low, low + contrast);
    colour->ColR = channels[0];
    colour->ColG = channels[1];
    colour->ColB = channels[2];
}

struct Parameter {
    int32_t ColourState::*Word;
    bool FromHls; // red, green and blue follow from it
};
// clang-format off
constexpr Parameter Parameters[] = { // ORDER COLOURLINK
    {&ColourState::ColR, false}, {&ColourState::ColG, false}, {&ColourState::ColB, false}, {&ColourState::ColC, false},
    {&ColourState::ColH, true},  {&ColourState::ColL, true},  {&ColourState::ColS, true},
};
// clang-format on

const Parameter &ParameterOf(int32_t link) {
    return Parameters[std::clamp<int32_t>(link, LinkRed, LinkSaturation) - LinkRed];
}

} // namespace

void SetCurrentColour(int red, int green, int blue) {
    ColourState &colour = state.Mixed;
    colour.ColR = Bounded(red);
    colour.ColG = Bounded(green);
    colour.ColB = Bounded(blue);
    FindHls(&colour);
    KeepReference(&colour);
    PlaceMark(&colour);
}

int ColourParameter(const ColourState &colour, int32_t link) {
    return colour.*ParameterOf(link).Word;
}

void SetParameterOf(ColourState *colour, int32_t link, int value) {
    const Parameter &parameter = ParameterOf(link);
    value = Bounded(value);
    if (link == LinkContrast)
        Spread(colour, value);
    else
        colour->*parameter.Word = value;
    if (parameter.FromHls)
        FindRgb(colour);
    else
        FindHls(colour);
    if (link != LinkContrast)
        KeepReference(colour);
    PlaceMark(colour);
}

void SetColourParameter(int32_t link, int value) {
    SetParameterOf(&state.Mixed, link, value);
}

void LinkColourParameter(int32_t link) {
    state.Mixed.ColLink = link;
    KeepReference(&state.Mixed);
}

ConePoint ConeAngle(int x, int y) {
    const double across = ConeMiddle - x, up = ConeMiddle - y, distance = std::sqrt(across * across + up * up);
    const int radius = static_cast<int>(distance);
    if (radius == 0)
        return {0, 0};
    double angle = std::asin(std::clamp(up / distance, -1.0, 1.0));
    if (x > ConeCentre)
        angle = std::numbers::pi - angle;
    if (angle < 0)
        angle += 2 * std::numbers::pi;
    return {radius, angle};
}

void ConeColour(int x, int y, int *hue, int *saturation) {
    const ConePoint point = ConeAngle(x, y);
    double degrees = Turn - (point.Angle * Turn / (2 * std::numbers::pi) + RedAt);
    if (degrees < 0)
        degrees += Turn;
    *hue = Bounded(static_cast<int>(degrees * Full / Turn));
    *saturation = std::min(Full, 2 * point.Radius);
}

Point ConePlace(int hue, int saturation) {
    double degrees = hue * static_cast<double>(Turn) / Full + RedAt;
    if (degrees > Turn)
        degrees -= Turn;
    const double angle = (Turn - degrees) * 2 * std::numbers::pi / Turn;
    return {static_cast<int>(ConeCentre - std::cos(angle) * saturation / 2),
            static_cast<int>(ConeCentre - std::sin(angle) * saturation / 2)};
}

int SetColourFromCone(int x, int y) {
    if (ConeAngle(x, y).Radius >= ConeTapReach)
        return 0;
    ColourState &colour = state.Mixed;
    ConeColour(x, y, &colour.ColH, &colour.ColS);
    FindRgb(&colour);
    KeepReference(&colour);
    PlaceMark(&colour);
    return 1;
}
