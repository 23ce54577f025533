// What the keys ask of the frame of the graph.
#pragma once

// Where on the titles a key taps: 1 the icon of the next mode that the account can have, 2 how taps count, 3 the value
// column, 4 the balance.
int TitleKeyX(int title);
