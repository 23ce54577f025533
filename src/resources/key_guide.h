// What the keys of a keyboard do, in the words of --help, of the manual page and of README.md. The build reads the rows
// too.
#pragma once

struct KeyWords {
    const char *Keys, *Does;
};

// clang-format off
inline constexpr KeyWords KeyGuide[] = {
    {"Up, Down",                       "the row above, the row below; on a plot the entry before and after"},
    {"Left, Right",                    "the account before, the account after"},
    {"Enter",                          "opens the selected row, on a plot the selected entry"},
    {"Page Up, Page Down, Home, End",  "scroll, as the wheel does"},
    {"Ctrl+1 to Ctrl+8",               "the eight screens"},
    {"Ctrl+N, Ctrl+M",                 "a new entry; change the selected one"},
    {"Space",                          "the stroke on the selected row"},
    {"Delete",                         "the selected row to the bin; a row out of view first comes into view, as with Space"},
    {"Ctrl+Z, Ctrl+Shift+Z",           "takes back the last change and says what it was; does it again; up to 100 changes of this run of the program"},
    {"Ctrl+F",                         "search: what is typed goes to the next row whose title, reference or amount holds it; Enter the next, Escape back"},
    {"Ctrl+Up, Ctrl+Down",             "moves the selected row, where rows can be moved; in a form the entry before and after"},
    {"Alt+1 to Alt+8",                 "takes the selected row to that tab: into the bin and out of it, to the templates, to the categories"},
    {"F1",                             "the eyes: help mode"},
    {"F2 to F5",                       "taps on the titles of the columns; on the blue tab the next mode, the way taps count, the value, the balance"},
    {"F6",                             "account view or archive view"},
    {"F10, Alt",                       "the menu"},
    {"F11",                            "the whole screen, or the window"},
    {"F12",                            "the list of the keys"},
    {"Ctrl+H",                         "the hub, then the calculator, then neither"},
    {"Ctrl+K",                         "the hub's cone: to the calculator and back"},
    {"F8, F9",                         "the hub's arrows: read the selected row, write to it"},
    {"0 to 9 . + - * / = % Backspace", "keys of the open hub; n is the sign, x y z the lines, o the next operator, s store, m recall, r root, i reciprocal, p pi, d decimals, c conversions"},
    {"Enter, arrows",                  "on an extrapolation: Enter selects a box, Left and Right walk along the boxes, Up and Down step one"},
    {"Enter, Space",                   "on a chart: Enter drops the lists one after the other, where arrows choose; Space values or percentages; Ctrl+Up and Ctrl+Down stretch and shrink bars"},
    {"Tab, Shift+Tab",                 "in a form: the next field, the one before"},
    {"Down",                           "in a form: opens the list of a field, or its calendar"},
    {"F2, F3, F4, F5",                 "in a form: flag, sign, sign of the multiplier, reconciled; of an import or export F2, F3 and F4 are the three choices"},
    {"F6, F7, F8, F9",                 "in a form: gratis, duplicate, Basic or Advanced, the other block or direction"},
    {"Enter, Ctrl+Enter",              "the tick of a form; in a text of several lines only Ctrl+Enter"},
    {"Shift+Enter",                    "the tick of a transaction, then a new one of the same day"},
    {"Escape",                         "the cross of a form; leaves the search, the hub, About and help mode"},
    {"F2, arrows, digits",             "on the palette (F2 on a category's form): Left and Right another parameter, Up and Down or digits its value, Ctrl+Up and Ctrl+Down another square, Space keeps the colour in it, F2 gives it to the category"},
    {"digits, F2",                     "on the pass-code screen: the code; the weight lifter, for a long one"},
    {"Up, Down",                       "on the front page and About: the movie's speed; Escape ends the page"},
};
// clang-format on
