#include "input/ranges.h"
#include "frame/changes.h"
#include "platform/shell.h"
#include "state/messages.h"

namespace {

void SelectionRefused() {
    state.RangeStart = state.RangeFinish = 0;
    state.RangeStartPlace = state.RangeFinishPlace = {};
    Beep();
    ShowHelp(Help::SelectAgain);
}

// An end chosen elsewhere: rows of one account are not mixed with another's, nor live rows with archived ones.
bool Elsewhere(const Place &chosen, const Place &here) {
    return chosen.List != NoList && !SamePlace(chosen, here);
}

bool SelectRangeEnd(int32_t *end, Place *endPlace, const Place &otherPlace, Help askForOther) {
    const Place here = PlaceShown();
    const int32_t selection = state.SelectedPos[here.List];
    if (selection < 1 || selection > state.EntryCount[here.List]) {
        Beep();
        return false;
    }
    if (Elsewhere(*endPlace, here) || Elsewhere(otherPlace, here)) {
        SelectionRefused();
        return false;
    }
    *end = selection;
    *endPlace = here;
    if (otherPlace.List == NoList) {
        ShowHelp(askForOther, state.ArchiveView ? AddedLine::BalanceMayChange : AddedLine::None);
        return false;
    }
    if (state.RangeStart > state.RangeFinish) {
        SelectionRefused();
        return false;
    }
    if (DeleteRecRange(state.RangeStart, state.RangeFinish) != 1) {
        Beep();
        return false;
    }
    state.RangeStartPlace = state.RangeFinishPlace = {};
    ShowHelp(Help::Deleted);
    return true;
}

} // namespace

bool SelectRangeStart() {
    return SelectRangeEnd(&state.RangeStart, &state.RangeStartPlace, state.RangeFinishPlace, Help::SelectFinish);
}

bool SelectRangeFinish() {
    return SelectRangeEnd(&state.RangeFinish, &state.RangeFinishPlace, state.RangeStartPlace, Help::SelectStart);
}
