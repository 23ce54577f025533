// The strip of coloured tabs under the rows. A tab hangs from the last row; the selected one hangs lower.
#pragma once

#include "platform/surface.h"

enum TabState : int { NormalTab = 1, SelectedTab = 2, HotTab = 3 };

inline constexpr int SlotCount = 6; // tabs a page; the page button stands behind the last

// The whole strip; only the icons while a column edge is dragged.
void DrawTabs();
// One tab's shape, 1 to 8 (others ignored). An unknown state is reported as caseError.
void DrawTabText(int tab, int tabState);
// The slot of a tab on the page shown, 1 to 6, or 0 when the page does not show it.
int SlotOfTab(int tab);
// The tab in a slot of the page shown, 0 for an empty slot.
int TabInSlot(int slot);
