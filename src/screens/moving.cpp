#include "screens/moving.h"
#include "frame/changes.h"
#include "frame/header.h"
#include "frame/refusal.h"
#include "ledger/bin.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "screens/list_screen.h"
#include "screens/transactions.h"
#include "store/windows.h"

namespace {

// Puts a row before the one at `to`.
void Reorder(const ListScreen &screen, int from, int to) {
    const int list = screen.List;
    if (FilterGivesWay())
        return;
    if (to > state.EntryCount[list] + 1)
        to = state.EntryCount[list] + 1;
    if (!ShiftRecord(from, to))
        return;
    NameDeed(Deed::Moved);
    if (screen.Changed)
        screen.Changed();
    ReloadAndPaint(PaintCounts | PaintColumns | PaintRows);
}

} // namespace

const TabDrop *DropFor(const ListScreen &screen, int tab, int position) {
    for (int i = 0; i < screen.DropCount; ++i)
        if (screen.Drops[i].Tab == tab && screen.Drops[i].Accepts(position))
            return &screen.Drops[i];
    return nullptr;
}

bool AcceptInBin(int position) {
    return InList(position);
}

void BinRow(int position) {
    if (FilterGivesWay())
        return;
    if (!DeleteRecMem(position)) {
        Beep();
        return;
    }
    NameDeed(Deed::Deleted);
    const ListScreen *list = ScreenOf(state.CurrentScreen);
    if (list->Changed)
        list->Changed();
    ReloadAndPaint(PaintCounts | PaintRows | PaintTabs);
    ShowHelp(Help::Deleted);
}

void MoveRow(int from, int to) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (InList(from) && to >= 1 && to != from && to != from + 1 && screen->CanReorder && screen->CanReorder())
        Reorder(*screen, from, to);
}

void DropRow(int tab, int position) {
    const ListScreen *screen = ScreenOf(state.CurrentScreen);
    if (const TabDrop *drop = screen ? DropFor(*screen, tab, position) : nullptr) {
        NameDeed(Deed::Sent); // to the bin is deleted
        drop->Drop(position);
    }
}
