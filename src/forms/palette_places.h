// Where everything stands on the palette, in HostWindow; all of it ends above the message window. Used by palette.cpp
// and palette_spoken.cpp alone.
#pragma once

#include "drawing/palette.h"
#include "platform/surface.h"
#include "resources/help_lines.h"
#include "state/state.h"

inline constexpr int Shades = 5, SquarePitch = 15, SquareSize = 14, SquaresLeft = 4, SquaresTop = 4;
inline constexpr int ConeSize = 100, SliderRows = 101;
inline constexpr Rect ConeBox = {86, 4, 86 + ConeSize, 4 + ConeSize}, SliderBox = {200, 4, 220, 4 + SliderRows},
                      SwatchBox = {201, 131, 238, 149}, CategoryBox = {84, 154, 238, 184};

constexpr Rect SquareBox(int entry) { // entry from 1: a row for each hue
    const int left = SquaresLeft + (entry - 1) % Shades * SquarePitch,
              top = SquaresTop + (entry - 1) / Shades * SquarePitch;
    return {left, top, left + SquareSize, top + SquareSize};
}

struct ParameterPart {
    int32_t Link;
    Rect Box;
    const char16_t *Letter, *Name;
    Help Lines;
};
// clang-format off
inline constexpr ParameterPart Parameters[] = { // ORDER COLOURLINK
    {LinkRed,        { 84, 110, 121, 128}, u"R", u"Red",        Help::RedParameter},
    {LinkGreen,      {123, 110, 160, 128}, u"G", u"Green",      Help::GreenParameter},
    {LinkBlue,       {162, 110, 199, 128}, u"B", u"Blue",       Help::BlueParameter},
    {LinkContrast,   {201, 110, 238, 128}, u"C", u"Contrast",   Help::ContrastParameter},
    {LinkHue,        { 84, 131, 121, 149}, u"H", u"Hue",        Help::HueParameter},
    {LinkLuminosity, {123, 131, 160, 149}, u"L", u"Luminosity", Help::LuminosityParameter},
    {LinkSaturation, {162, 131, 199, 149}, u"S", u"Saturation", Help::SaturationParameter},
};
// clang-format on
