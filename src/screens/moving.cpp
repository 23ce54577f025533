#include "screens/moving.h"
#include "frame/header.h"
#include "ledger/bin.h"
#include "ledger/moves.h"
#include "platform/shell.h"
#include "screens/list_screen.h"
#include "screens/transactions.h"
#include "store/operations.h"
#include "store/windows.h"

namespace {

union AnyRow {
    ARec Account;
    TRec Transaction;
    FRec Template;
    CatRec Category;
    CurRec Conversion;
};

int FetchAnyRow(int list, int position, AnyRow *row) {
    switch (list) {
    case AccountList:
        return FetchAccount(position, &row->Account);
    case TransactionList:
        return FetchTran(position, &row->Transaction);
    case TemplateList:
        return FetchFav(position, &row->Template);
    case CategoryList:
        return FetchCat(position, &row->Category);
    case ConversionList:
        return FetchCur(position, &row->Conversion);
    default:
        return 0;
    }
}

// Puts a row before the one at `to`.
void Reorder(const ListScreen &screen, int from, int to) {
    const int list = screen.List;
    const uint32_t account = list == TransactionList ? state.CurAccount.ID : 0;
    AnyRow row;
    if (FilterGivesWay() || !FetchAnyRow(list, from, &row))
        return;
    if (to > state.EntryCount[list] + 1)
        to = state.EntryCount[list] + 1;
    const bool down = to > from;
    if (!ShiftRecord(account, from, to, &row))
        return;
    state.CurrentScreen = list;
    state.SelectedPos[list] = down ? to - 1 : to;
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
    const int screen = state.CurrentScreen;
    if (FilterGivesWay())
        return;
    if (!DeleteRecMem(position)) {
        Beep();
        return;
    }
    state.CurrentScreen = screen;
    const ListScreen *list = ScreenOf(screen);
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
    if (const TabDrop *drop = screen ? DropFor(*screen, tab, position) : nullptr)
        drop->Drop(position);
}
