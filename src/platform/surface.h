// Painting. Each program window keeps what was painted on it until it is painted over. All positions are logical
// pixels of the 240-wide device. A Rect covers the pixels left..right-1, top..bottom-1. Rectangles and axis-parallel
// lines cover whole device pixels, so that painting over something leaves nothing of it behind.
#pragma once

#include "platform/event.h"
#include <cstdint>

using Colour = uint32_t; // 0xRRGGBB
constexpr Colour Rgb(int red, int green, int blue) {
    return static_cast<Colour>(red) << 16 | static_cast<Colour>(green) << 8 | static_cast<Colour>(blue);
}

struct Point {
    int X, Y;
};
struct Rect {
    int Left, Top, Right, Bottom;
};
constexpr bool Inside(const Rect &box, int x, int y) {
    return x >= box.Left && x < box.Right && y >= box.Top && y < box.Bottom;
}

enum class Font : uint8_t { Normal, Bold, SmallBold, LargeBold }; // cells of 13, 13, 12 and 20 pixels

enum class Align : uint8_t { Left, Centre, Right, TopLeft, TopRight }; // the first three centre vertically

void FillRect(Window window, const Rect &box, Colour fill);

// Lines through the points, both ends included, `width` pixels wide; the width extends to the right and down.
void DrawPolyline(Window window, const Point *points, int count, Colour pen, int width = 1);
void FillPolygon(Window window, const Point *points, int count, Colour fill, Colour outline);
void FillEllipse(Window window, const Rect &box, Colour fill, Colour outline);
// The outline alone, `width` pixels wide and within the box.
void DrawEllipse(Window window, const Rect &box, Colour pen, int width);

// One line of text, clipped to the box. `fit` 1 draws it narrower until it fits, so that no digit is ever cut.
void PaintText(Window window, const char16_t *text, const Rect &box, Align align, Font font, Colour ink, int fit = 0);
// Logical pixels, rounded up.
int TextWidth(const char16_t *text, Font font);

enum class Blit : uint8_t {
    Plain, // as it is; transparent places of the art stay transparent
    And,   // white lets the ground show through, for icons on a coloured tab
};

// Copies a part of an image of resources/art.h. `part` is in the image's own pixels.
void CopyImage(Window window, Point to, int image, const Rect &part, Blit blit = Blit::Plain);
void StretchImage(Window window, const Rect &to, int image, const Rect &part);

// Shows what has been painted, and takes no input.
void ShowNow();

// Paint requests: an event of kind Paint comes, coalesced and after pending input, when a program window is first
// shown, hidden or destroyed, when the scroll bar is hidden or resized, and when the scale changes.
