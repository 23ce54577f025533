// The list's scroll bar.
#pragma once

// Shows or hides the bar; a second identical call does nothing.
void ShowListScrollBar(int on);
// Height by RowCount, at the right of the rows.
void PlaceListScrollBar();
// Has the paint request that placing or hiding the bar brings passed over, since the caller paints itself. Requests
// come coalesced: several of these before the next one are one.
void PassOverRepaint();
// Range, page and thumb. `count` is EntryCount + 2 on list screens, so that two blank rows can be reached.
void SetScrollBarThumb(int top, int count);
