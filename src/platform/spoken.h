// What stands on the screen, in words: a host tells it to those who can't see the painting. The program answers; a host
// asks when it needs to know.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"

enum class SpotKind : uint8_t {
    Heading, // the title of the screen
    Text,
    ColumnTitle,
    Row,
    Tab,
    Button,
    Check,  // a mark that is on or off
    Choice, // a mark that goes through several values, or one of several
    Slider,
    Graphic,
    Message, // a line of the message window
};

inline constexpr int SpotNameRoom = 192, MostSpots = 96;

// A place that is painted by hand. A tap on its middle does what its kind promises.
struct Spot {
    SpotKind Kind;
    Window Where;
    Rect Box;                // in Where
    bool Selectable = false; // a row or a tab; Selected says whether it is
    bool Selected = false;
    bool On = false; // of a check
    char16_t Name[SpotNameRoom] = {};
};

// What stands now, in reading order. Returns how many, at most `room`. Nothing is painted or changed.
int ListSpots(Spot *to, int room);
