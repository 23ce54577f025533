// Where everything stands on the pass-code screen. A digit stands on the ring as on the dial of a telephone, in the
// middle the circle. Used by pass_code.cpp and pass_code_spoken.cpp alone.
#pragma once

#include "platform/surface.h"
#include "state/state.h"

inline constexpr int PassDigits = 4, DigitKeys = 10, NoPassSpot = -1, CircleSpot = 10, LifterSpot = 11;

struct PassSpot {
    int What; // a digit, CircleSpot or LifterSpot
    Rect Box;
};
// clang-format off
inline constexpr PassSpot PassSpots[] = {
    {0,          { 72,  58, 102,  88}},
    {1,          {105,  47, 135,  77}},
    {2,          {138,  58, 168,  88}},
    {3,          {158,  86, 188, 116}},
    {4,          {158, 120, 188, 150}},
    {5,          {138, 148, 168, 178}},
    {6,          {105, 159, 135, 189}},
    {7,          { 72, 148, 102, 178}},
    {8,          { 52, 120,  82, 150}},
    {9,          { 52,  86,  82, 116}},
    {CircleSpot, { 84,  82, 156, 154}},
    {LifterSpot, {210,   5, 234,  29}},
};
// clang-format on
inline constexpr Rect DigitCircles[PassDigits] = {
    {78, 24, 96, 42}, {100, 24, 118, 42}, {122, 24, 140, 42}, {144, 24, 162, 42}};
inline constexpr Rect TitleLine = {10, 4, 205, 20}, WrongLine = {4, 214, 236, 228}, WhyLine = {4, 230, 236, 244};

// ORDER PASSCODEMODE
inline constexpr const char16_t *PassTitles[] = {
    u"Enter pass code", u"Enter new pass code", u"Confirm new pass code", u"", u"Decrypting", u"Encrypting"};

inline int ShowsDial() {
    return !state.StrongMode && state.CipherProgress < 0;
}

// The long code's box is a real control and stands in a form; the dial has the page behind it for itself.
inline Window PassWindow() {
    return state.StrongMode ? DialogWindow : HostWindow;
}

// With the message window closed there is room, and the dial stands lower.
inline Rect Placed(Rect box) {
    constexpr int Drop = 16;
    if (!state.MessageWindowOn && box.Top > TitleLine.Top + 20) {
        box.Top += Drop;
        box.Bottom += Drop;
    }
    return box;
}

inline const Rect &BoxOf(int what) {
    for (const PassSpot &spot : PassSpots)
        if (spot.What == what)
            return spot.Box;
    return PassSpots[0].Box;
}
