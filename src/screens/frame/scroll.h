// The list's scroll bar.
#pragma once

// Shows or hides the bar; a second identical call does nothing.
void ShowListScrollBar(int on);
// Height by RowCount, at the right of the rows.
void PlaceListScrollBar();
// Range, page and thumb. `count` is EntryCount + 2 on list screens, so that two blank rows can be reached.
void SetScrollBarThumb(int top, int count);
