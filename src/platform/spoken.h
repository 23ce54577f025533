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
    Check,    // a mark that is on or off
    Choice,   // a mark that goes through several values, or one of several
    Slider,   // the keys Up and Down step it
    Progress, // of a work that lasts
    Graphic,
    Message, // a line of the message window, a display: told whenever it changes
};

inline constexpr int SpotNameRoom = 192, MostSpots = 128;

// A place that is painted by hand. A tap on its middle does what its kind promises.
struct Spot {
    SpotKind Kind;
    Window Where;
    Rect Box;                // in Where
    bool Selectable = false; // one of several; Selected says whether it is the chosen one
    bool Selected = false;
    bool On = false;                    // of a check
    bool Disabled = false;              // a tap would only be refused
    bool Focused = false;               // what the arrow keys act on
    int Value = 0, Least = 0, Most = 0; // of a slider and of progress
    int Step = 1;                       // of a slider
    char16_t Name[SpotNameRoom] = {};
};

// What stands now, in reading order. Returns how many, at most `room`. Nothing is painted or changed.
int ListSpots(Spot *to, int room);
