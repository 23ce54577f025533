// What the keys of a keyboard do, in the words of --help and of the manual page. The build reads the rows too.
#pragma once

struct KeyWords {
    const char *Keys, *Does;
};

// clang-format off
inline constexpr KeyWords KeyGuide[] = {
    {"arrows",                "selection up and down, account before and after"},
    {"Enter",                 "opens the selected row"},
    {"Page Up, Page Down",    "scroll by a page"},
    {"Home, End",             "the first rows, the last rows"},
    {"Ctrl+1 to Ctrl+8",      "the eight screens"},
    {"F10, Alt",              "the menu"},
    {"F1",                    "the eyes: help mode"},
    {"Space",                 "the stroke on the selected row"},
    {"Delete",                "the selected row to the bin"},
    {"Ctrl+N, Ctrl+M",        "new entry, modify the selected one"},
    {"Ctrl+Up, Ctrl+Down",    "moves the selected row; in a form the entry before and after"},
    {"Alt+1 to Alt+8",        "takes the selected row to that tab"},
    {"F2 to F5",              "taps on the titles of the columns"},
    {"F6",                    "account view or archive view"},
    {"Tab, Shift+Tab",        "in a form: the next field, the one before"},
    {"F2, F3, F4, F5",        "in a form: flag, sign, sign of the multiplier, reconciled"},
    {"F6, F7, F8, F9",        "in a form: gratis, duplicate, Basic or Advanced, the other side"},
    {"Enter, Ctrl+Enter",     "the tick of a form"},
    {"Escape",                "the cross of a form, of About, of help mode"},
    {"Up, Down",              "on the front page: the movie's speed"},
};
// clang-format on
