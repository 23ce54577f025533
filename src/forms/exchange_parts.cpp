#include "forms/exchange_parts.h"
#include "drawing/colours.h"
#include "frame/shown.h"
#include "platform/shell.h"

namespace {

constexpr int RingWidth = 16, DotInset = 4;

} // namespace

int OpenExchangeForm(const Form *form) {
    const int32_t screen = state.CurrentScreen;
    if (state.ActiveDialog != NoDialog || !LoadCurrentAccount() || state.CurAccount.RowKind == HeadingRow)
        return 0;
    state.CurrentScreen = TransactionList;
    CountTransactions();
    if (!Dialog_Init(form)) {
        state.CurrentScreen = screen;
        return 0;
    }
    state.BackToGraph = screen == GraphList;
    return 1;
}

RecDate DateProposed(int later) {
    TRec row;
    RecDate date;
    LoadTodaysDate(&date);
    if (state.SelectedPos[TransactionList] > 0 && FetchTran(state.SelectedPos[TransactionList], &row))
        date = row.Date;
    if (later && state.EntryCount[TransactionList] > 0)
        StepDate(1, StepDay, &date);
    return date;
}

void PaintChoices(int mask) {
    if (!(mask & DecorLabels))
        return;
    for (const FormPart &part : state.OpenedForm->Parts) {
        if (part.Item < FirstChoiceItem || part.Item > ThirdChoiceItem)
            continue;
        const Rect ring = {part.Hit.Left, part.Hit.Top, part.Hit.Left + RingWidth, part.Hit.Top + RingWidth};
        FillEllipse(DialogWindow, ring, White, Black);
        if (state.DateOption == part.Item - FirstChoiceItem + 1)
            FillEllipse(DialogWindow,
                        {ring.Left + DotInset, ring.Top + DotInset, ring.Right - DotInset, ring.Bottom - DotInset},
                        Black, Black);
    }
}

void TapChoice(int item) {
    if (item < FirstChoiceItem || item > ThirdChoiceItem)
        return;
    state.DateOption = item - FirstChoiceItem + 1;
    DrawDialogDecor(DecorLabels);
}

void ShowProgress(int percent) {
    SetControlProgress(ProgressField, percent);
    ShowNow();
}
