#include "frame/refusal.h"
#include "frame/form.h"
#include "frame/message_window.h"
#include "frame/shown.h"
#include "platform/action.h"
#include "platform/shell.h"
#include "resources/deeds.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/index.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>
#include <utility>

namespace {

struct Shown {
    int32_t CurrentScreen;
    uint32_t AccountID;
    const struct Form *OpenedForm;
    int32_t TopPos[ScreenCount + 1], SelectedPos[ScreenCount + 1];
};
Shown noted;

void FindAccountAgain() {
    const int32_t position = IDtoRec(noted.AccountID);
    if (position > 0)
        state.SelectedPos[AccountList] = position;
    const int32_t count = state.EntryCount[AccountList];
    state.SelectedPos[AccountList] = std::clamp(state.SelectedPos[AccountList], 1, std::max(count, 1));
    LoadCurrentAccount();
}

void HoldInside(int list) {
    const int32_t count = state.EntryCount[list];
    state.SelectedPos[list] = std::min(state.SelectedPos[list], count + 1);
    if (state.TopPos[list] > count + 1)
        ReloadList(list, SetRecPosition(state.SelectedPos[list], count));
}

} // namespace

void NameDeed(Deed deed) {
    NameAction(static_cast<int>(deed));
}

void ReloadShown() {
    state.ReconcileState = ReconcileStep::Idle;
    state.RangeStart = state.RangeFinish = 0;
    state.RangeStartPlace = state.RangeFinishPlace = {};
    state.WaitingCount = 0;
    state.Restructuring = 0;
    state.DragSource = 0;
    if (!state.DataUsable || !state.FileAccessReady) // before the right pass code nothing can be read
        return;
    // Looking goes on also where nothing can be written: the owner stays on a screen that was asked for.
    const int32_t screen = state.CurrentScreen;
    if (screen == noted.CurrentScreen) {
        std::copy(std::begin(noted.TopPos), std::end(noted.TopPos), state.TopPos);
        std::copy(std::begin(noted.SelectedPos), std::end(noted.SelectedPos), state.SelectedPos);
    }
    ReloadList(AccountList, state.TopPos[AccountList]);
    FindAccountAgain();
    const int32_t selected = state.SelectedPos[TransactionList];
    const int32_t segment = state.SelectedPos[GraphList], topSegment = state.TopPos[GraphList];
    LoadTranFile(state.SelectedPos[AccountList], state.TopPos[TransactionList]);
    state.SelectedPos[TransactionList] = selected;
    state.SelectedPos[GraphList] = segment;
    state.TopPos[GraphList] = topSegment;
    if (screen >= GraphList && screen <= ConversionList)
        ReloadList(screen, state.TopPos[screen]);
    if (screen >= AccountList && screen <= ConversionList && screen != GraphList)
        HoldInside(screen);
    state.CurrentScreen = screen;
}

namespace {

// On a disk that can't be read now this is done again before the next event.
void ReadNoted() {
    state.ShownUnread = 1;
    ReloadShown();
    if (state.FormUnread && state.OpenedForm && ActionRefused() == NotRefused) {
        state.OpenedForm->Fill(1);
        DrawDialogDecor(DecorAll);
    }
    state.ShownUnread = ActionRefused() != NotRefused;
    state.FormUnread = state.FormUnread && state.ShownUnread;
}

// Nothing of the action stays; no row moves until the owner has been told.
template <typename Words> void GiveUp(const Words &tell) {
    AbortAction();
    BeginAction();
    ReadNoted();
    const uint32_t unread = std::exchange(state.ShownUnread, 1U);
    if (state.ActiveDialog == NoDialog && state.FileAccessReady) {
        SetGreys(state.CurrentScreen);
        RepaintScreen();
    }
    tell();
    state.ShownUnread = unread;
}

constexpr struct {
    FileKind Kind;
    AddedLine Line;
} BrokenLines[] = {
    {FileKind::Notepad, AddedLine::BrokenInNotepad},   {FileKind::Accounts, AddedLine::BrokenInAccounts},
    {FileKind::Recurring, AddedLine::BrokenInItems},   {FileKind::Templates, AddedLine::BrokenInTemplates},
    {FileKind::Bin, AddedLine::BrokenInBin},           {FileKind::Categories, AddedLine::BrokenInCategories},
    {FileKind::Conversions, AddedLine::BrokenInRates},
};

// The list or the account that a data file belongs to, as a line of its own.
AddedLine PlaceOfFile(const char *name) {
    uint32_t accountID;
    if (AccountOfFile(name, &accountID)) {
        if (AccountThere(accountID))
            NameMessage(static_cast<int>(AddedLine::BrokenInAccount), AccountIdToName(accountID));
        return AddedLine::BrokenInAccount;
    }
    for (const auto &[kind, line] : BrokenLines) {
        char path[PathRoom];
        DataPath(path, kind);
        if (std::strcmp(std::strrchr(path, '\\') + 1, name) == 0)
            return line;
    }
    return AddedLine::None;
}

// The file that holds the record, and that it has been told of.
void SayBroken(Help help, const char *broken) {
    char name[DataNameRoom];
    std::memcpy(name, broken, sizeof name);
    if (!state.HelpMode)
        ToggleEyes();
    Beep();
    ShowHelp(help, PlaceOfFile(name));
    std::memcpy(state.BrokenTold[state.BrokenToldCount % MostBrokenTold], name, sizeof name);
    state.BrokenToldCount = std::min(state.BrokenToldCount + 1, MostBrokenTold);
    state.BrokenFile[0] = 0;
}

} // namespace

void NoteShown() {
    if (state.ShownUnread) { // what was noted still holds; it is read before anything else is done
        ReadNoted();
        return;
    }
    noted.CurrentScreen = state.CurrentScreen;
    noted.AccountID = state.CurAccount.ID;
    noted.OpenedForm = state.OpenedForm;
    std::copy(std::begin(state.TopPos), std::end(state.TopPos), noted.TopPos);
    std::copy(std::begin(state.SelectedPos), std::end(state.SelectedPos), noted.SelectedPos);
}

int TellBrokenRecord() {
    for (int32_t told = 0; told < state.BrokenToldCount; ++told)
        if (std::strcmp(state.BrokenTold[told], state.BrokenFile) == 0)
            state.BrokenFile[0] = 0;
    if (!state.BrokenFile[0] || !state.DataUsable)
        return 0;
    SayBroken(Help::RecordBroken, state.BrokenFile);
    return 1;
}

int FinishAction() {
    if (!CommitAction()) {
        GiveActionUp();
        return 0;
    }
    BeginAction();
    NoteShown();
    return 1;
}

void GiveActionUp() {
    if (ActionRefused() == DoubtRefused) {
        char name[DataNameRoom]; // before what is shown is read anew
        std::memcpy(name, state.BrokenFile, sizeof name);
        GiveUp([&name] { SayBroken(Help::RecordBrokenHere, name); });
        return;
    }
    GiveActionUp(ActionRefused() == ReadRefused ? Help::NotRead : Help::NotWritten);
}

void GiveActionUp(Help help) {
    GiveUp([help] { RefuseTick(help); });
}

void GiveEventUp() {
    if (state.OpenedForm && !noted.OpenedForm)
        Dialog_End();
    const int32_t screen = noted.CurrentScreen;
    if (!state.ShownUnread)
        state.FormUnread = state.OpenedForm && state.OpenedForm->Fill && screen == state.CurrentScreen &&
                           state.SelectedPos[screen] != noted.SelectedPos[screen];
    GiveActionUp();
}
