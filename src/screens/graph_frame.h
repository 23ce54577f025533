// What the keys and those who can't see it ask of the frame of the graph.
#pragma once

// The icons left of the titles: the modes in their order, then how a tap on a box counts.
inline constexpr int IconLeft = 3, IconPitch = 20, IconSize = 19, ModeIcons = 5, CountIcon = 6;

// Where on the titles a key taps: 1 the icon of the next mode that the account can have, 2 how taps count, 3 the value
// column, 4 the balance.
int TitleKeyX(int title);
