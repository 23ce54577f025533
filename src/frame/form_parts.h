// The hand-painted parts of the open form under taps; used by the frame alone.
#pragma once

#include "frame/form.h"

// The part under a point of DialogWindow, null for none.
const FormPart *PartAt(int x, int y);
// 1 when the open form shows a part for the item.
int ShowsItem(int item);
// Acts on the part under a point of DialogWindow: what its item does on all forms, then what it does on this one, its
// help lines, its repaint. 0 when there is no part.
int TapPart(int x, int y);
// The same for the form's part of an item, by key; 0 when the form shows none.
int TapItem(int item);
// The form's own help lines of a field or item, when it has some.
void ShowItemHelp(int id);
