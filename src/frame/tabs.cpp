#include "frame/tabs.h"
#include "drawing/colours.h"
#include "drawing/geometry.h"
#include "resources/art.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/windows.h"

namespace {

// clang-format off
constexpr int TabOfSlot[2][SlotCount] = { // main page, secondary page
    {AccountList,  TransactionList, GraphList, RecurringList, TemplateList, BinList},
    {CategoryList, ConversionList,  0,         0,             0,            BinList},
};
// clang-format on

constexpr int LastTab = ConversionList;
constexpr int ShapeWidth = 37, ShapePitch = 38, ShapeHeight = 26; // of the sheet of tab shapes
constexpr int SelectedDrop = 4;                                   // a selected tab hangs this much lower
constexpr int HotShape = 9;
constexpr int TabIconSize = 18, AlertIcons = 19; // y of the alert icons in the sheet
constexpr int SelectedIconDrop = 3;
constexpr int PageButtonX = 229, PageButtonHalf = 8, PageButtonHeight = 18;

// From here on the owner is warned that the bin will soon be trimmed.
constexpr int BinAlertAbove = 5050, BinAlertUpTo = BinTrimAbove;

int ShapeLeft(int slot) {
    return slot * TabPitch - 35;
}

bool NeedsAttention(int tab) {
    if (tab == RecurringList)
        return !state.RecurringInOrder;
    const int entries = state.EntryCount[BinList];
    return tab == BinList && entries > BinAlertAbove && entries <= BinAlertUpTo;
}

void DrawTabIcon(int slot, int tab) {
    const Point to = {slot * TabPitch - 25,
                      TabTop(state.RowCount) + (tab == state.CurrentScreen ? SelectedIconDrop : 0)};
    const int x = (tab - 1) * TabIconSize, y = NeedsAttention(tab) ? AlertIcons : 0;
    CopyImage(ListWindow, to, TabIcons, {x, y, x + TabIconSize, y + TabIconSize}, Blit::And);
}

void DrawPageButton() {
    const int x = state.TabPage == 0 ? PageButtonHalf : 0;
    CopyImage(ListWindow, {PageButtonX, TabTop(state.RowCount) + 4}, PageButton,
              {x, 0, x + PageButtonHalf, PageButtonHeight});
}

} // namespace

int TabInSlot(int slot) {
    return slot >= 1 && slot <= SlotCount ? TabOfSlot[state.TabPage ? 1 : 0][slot - 1] : 0;
}

int SlotOfTab(int tab) {
    for (int slot = 1; tab > 0 && slot <= SlotCount; ++slot)
        if (TabInSlot(slot) == tab)
            return slot;
    return 0;
}

void DrawTabText(int tab, int tabState) {
    if (tab < 1 || tab > LastTab)
        return;
    if (tabState < NormalTab || tabState > HotTab) {
        ReportError(In::DrawTabText, Trouble::CaseError);
        return;
    }
    const int slot = SlotOfTab(tab);
    if (slot == 0)
        return;
    const bool hot = tabState == HotTab;
    const bool tall = tabState == SelectedTab || (hot && tab == state.CurrentScreen);
    const int x = ((hot ? HotShape : tab) - 1) * ShapePitch;
    CopyImage(ListWindow, {ShapeLeft(slot), TabTop(state.RowCount)}, TabShapes,
              {x, tall ? 0 : SelectedDrop, x + ShapeWidth, ShapeHeight});
}

void DrawTabs() {
    if (state.ColumnDragScreen == 0) {
        const int top = TabTop(state.RowCount);
        FillRect(ListWindow, {0, top, ScreenWidth, top + TabBand}, White);
        for (int slot = 1; slot <= SlotCount; ++slot) {
            const int tab = TabInSlot(slot);
            const int cool = tab == state.CurrentScreen ? SelectedTab : NormalTab;
            DrawTabText(tab, tab != 0 && tab == state.DragOverTab ? HotTab : cool);
        }
        DrawPageButton();
    }
    for (int slot = 1; slot <= SlotCount; ++slot)
        if (const int tab = TabInSlot(slot))
            DrawTabIcon(slot, tab);
}
