// The images of resources/art.h, rasterised at the present scale.
#pragma once

#include "platform/surface.h"
#include <QImage>
#include <QPoint>
#include <QRect>

// A whole image of resources/art.h in pixels of the screen, and where its corner lies. Null pixels when there is
// no such image. Valid until ForgetArt or the next call.
struct ArtPixels {
    const QImage *Pixels = nullptr;
    QPoint Corner;
};

void ForgetArt();
// At the present scale, with its corner at pixel (x, y), which may lie between pixels.
ArtPixels Art(int image, double x, double y);
// Stretched so that a part of it fills a box of pixels.
ArtPixels StretchedArt(int image, const Rect &part, const QRect &box);
