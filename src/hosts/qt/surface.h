// Fonts of the surface, which the style and the controls use too.
#pragma once

#include "platform/surface.h"
#include <QFont>

QFont DeviceFont(Font font, double pixelsPerUnit);
