// The look of the real controls: small, tidy, and drawn for the present scale.
#pragma once

#include <QRgb>

class QStyle;

namespace style {
inline constexpr QRgb Ink = 0xff000000, GreyInk = 0xff8a8a8a, Paper = 0xffffffff, Silver = 0xffdcdcdc,
                      Pressed = 0xffb9c4e4, Shadow = 0xff9a9a9a, Line = 0xff6f7890, Focus = 0xff00279f,
                      Selection = 0xff00279f, SelectionInk = 0xffffffff, Progress = 0xff96c8ff, Alarm = 0xffb00000;
} // namespace style

QStyle *MakeDeviceStyle();
