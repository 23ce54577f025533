// What a host tells the program. Every event enters by the one door, HandleEvent in program/door.h.
#pragma once

#include <cstdint>

// ORDER WINDOW: the program's windows. Each has a persistent image, see surface.h, and a place of its own, see
// resources/geometry.h.
enum Window : uint8_t {
    NoWindow,     // a release outside every window
    TopWindow,    // header and column titles; the parent of List and Host
    ListWindow,   // rows, tab strip, message window
    HostWindow,   // hidden unless used: front page, calculator, palette, pass code
    HubWindow,    // the small data hub, placed by the program in TopWindow's coordinates
    DialogWindow, // the open form
    WindowCount
};

enum class EventKind : uint8_t {
    PointerDown, // Where, X, Y
    PointerMove, // Where, X, Y; only while the pointer is down
    PointerUp,   // Where, X, Y
    DoubleTap,   // Where, X, Y; stands for the second PointerDown, its PointerUp follows
    Key,         // Code is a Key
    Character,   // Code is the unit typed on a screen, when it is no Key
    Command,     // Code is a menu command or bar button
    Control,     // Control id and Change of the open form
    Scroll,      // Code is a ScrollCode, Position for the thumb
    Paint,       // a paint request, see surface.h
    Close,       // the window's close button; the same as command 40002
};

// clang-format off
enum class Key : uint8_t {
    None,
    Up, Down, Left, Right, Enter, Backspace, Clear,
    Digit0, Digit1, Digit2, Digit3, Digit4, Digit5, Digit6, Digit7, Digit8, Digit9,
    Tab1, Tab2, Tab3, Tab4, Tab5, Tab6, Tab7, Tab8, // show that screen
    Stroke, // a horizontal stroke on the selected row
    Escape, // leaves a form, the hub, About or help mode; nothing elsewhere
    Help,   // the eyes
    Delete, // "this entry only" on a list
    New, Modify,
    Tick,
    Drop1, Drop2, Drop3, Drop4, Drop5, Drop6, Drop7, Drop8, // the selected row dragged to that tab
    RowUp, RowDown, // the selected row dragged over its neighbour; in a form the entry before and after
    Title1, Title2, Title3, Title4, // a tap on that column's title
    Header, // a tap on the header's title
    FlagPart, FirstSignPart, SecondSignPart, ClearedPart, FreePart, DuplicatePart, ViewPart, // taps on parts of a form
    OtherSidePart, // the other block of a recurring item, the other direction of a conversion
    TickAndNext,   // the tick, then a new form of the same kind
    Find,          // begins a search by what is typed
    Undo, Redo,    // takes the last change back, does it again
    HubButton, // the command bar's
    HubKeys, // and the codes behind it: the key of the hub with that number, from 0
};

enum class ScrollCode : uint8_t { LineUp, LineDown, PageUp, PageDown, ThumbTrack, Top, Bottom };

enum class ControlChange : uint8_t {
    Focus,        // gained the focus by tap or Tab
    Choice,       // the owner chose a list item
    Dropped,      // the list was dropped down
    Text,         // the text was changed
    Pressed,      // a check box, button or list row was pressed
    DoublePressed,
    Calendar,     // the calendar was opened
    Minus, Plus,  // that sign was typed into a box that holds a number
};
// clang-format on

struct Event {
    EventKind Kind;
    Window Where = NoWindow;
    int X = 0, Y = 0; // in Where's coordinates; may be outside it during a drag
    int Code = 0;
    int Position = 0;
    int Control = 0;
    ControlChange Change = ControlChange::Focus;
};

// What stands somewhere, in words, and the key that does the same as a tap there.
struct Hint {
    const char16_t *Words = nullptr; // null: nothing that has a name
    Key Pressed = Key::None;
};
