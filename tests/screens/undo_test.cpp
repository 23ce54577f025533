// The one undo: every kind of change that an owner makes is taken back and done again, byte for byte.
#include "host/device.h"
#include "platform/history.h"
#include "resources/deeds.h"
#include "resources/hub_keys.h"
#include "state/messages.h"
#include <functional>

using namespace testhost;

namespace {

using Files = std::map<std::string, std::vector<uint8_t>>;

// Then the command, if any.
void Select(int screen, int position, int command = 0) {
    ShowScreen(screen);
    state.SelectedPos[screen] = position;
    if (command)
        SendCommand(command);
}
bool Ticks(int id, const char *text) {
    const bool typed = SetText(id, text);
    return SendCommand(CommandTick) && typed;
}
// An item that is due since yesterday, on a day whose marker stands already.
void MakeDue() {
    SetClock(2026, 4, 2);
    ShowScreen(TransactionList);
    ShowScreen(RecurringList);
    SendCommand(CommandNew);
    SetText(TitleField, "Rent due");
    Choose(AccountField, 1);
    SetDate(DateField, 2026, 4, 1);
    SendCommand(CommandTick);
}

struct Step {
    Deed Kind;
    const char *Words;
    std::function<void()> Before, Do;
};
const Step Steps[] = {
    {Deed::Added, "a new entry", [] { Select(TransactionList, 1, CommandNew); }, [] { Ticks(TitleField, "Bread"); }},
    {Deed::Changed, "a change of an entry", [] { Select(TransactionList, 2, CommandModify); },
     [] { Ticks(WholeField, "77"); }},
    {Deed::Deleted, "what was deleted", [] { Select(TransactionList, 2); }, [] { SendKey(Key::Delete); }},
    {Deed::Stroked, "the mark of a reconciled entry", [] { Select(TransactionList, 2); }, [] { SendKey(Key::Stroke); }},
    {Deed::Changed, "a change of an entry",
     [] {
         Select(TransactionList, 2, CommandHub);
         state.CalcX = -9500;
         state.CalcLine = LineXKey;
     },
     [] {
         SendKey(static_cast<Key>(static_cast<int>(Key::HubKeys) + WriteKey));
         SendKey(Key::Escape);
     }},
    {Deed::Added, "a new entry",
     [] {
         SendCommand(CommandHub);
         Select(TransactionList, state.EntryCount[TransactionList] + 1);
     },
     [] {
         SendKey(Key::Stroke); // with the hub open there is no form
         SendKey(Key::Escape);
     }},
    {Deed::Sent, "what went to another list", [] { Select(TransactionList, 1); }, [] { SendKey(Key::Drop5); }},
    {Deed::Marked, "a marker", [] { Select(TransactionList, 1); }, [] { SendCommand(CommandInsertDay); }},
    {Deed::Filtered, "the filter", [] { Select(TransactionList, 2); }, [] { SendCommand(ExcludeName); }},
    {Deed::Unfiltered, "the end of the filters", [] {}, [] { SendCommand(CommandFilterOff); }},
    {Deed::Archived, "the archiving", [] { Select(TransactionList, 1); }, [] { SendCommand(CommandArchive); }},
    {Deed::Unarchived, "the return from the archive",
     [] {
         ShowScreen(TransactionList);
         SendKey(Key::Header);
         state.SelectedPos[TransactionList] = 1;
     },
     [] { SendCommand(CommandUnarchive); }},
    {Deed::Deleted, "what was deleted",
     [] {
         SendKey(Key::Header);
         Select(TransactionList, 2);
     },
     [] { SendCommand(CommandDeletePreceding); }},
    {Deed::Sent, "what went to another list", [] { Select(BinList, 1); }, [] { SendKey(Key::Drop2); }},
    {Deed::BinEmptied, "the emptying of the bin", [] { Select(BinList, 1, CommandEmptyBin); },
     [] { SendCommand(CommandEmptyBin); }},
    {Deed::Moved, "a move of a row", [] { Select(AccountList, 2); }, [] { SendKey(Key::RowUp); }},
    {Deed::Marked, "a marker", [] { Select(AccountList, 2); }, [] { SendKey(Key::Stroke); }},
    {Deed::Watched, "the watch on limits", [] { Select(AccountList, 1); }, [] { SendCommand(CommandJeopardyOn); }},
    {Deed::Added, "a new entry", [] { Select(AccountList, 1, CommandNew); }, [] { Ticks(TextField, "Cash"); }},
    {Deed::Noted, "the notepad", [] { SendCommand(CommandNotepad); }, [] { Ticks(TextField, "Remember"); }},
    {Deed::Configured, "the settings", [] { SendCommand(CommandGeneral); },
     [] {
         EXPECT_TRUE(Check(FrontPageCheck, !state.ShowFrontPage));
         SendCommand(CommandTick);
     }},
    {Deed::Posted, "what the recurring items posted", MakeDue, [] { ShowScreen(AccountList); }},
};

class Undo : public Device {
protected:
    Undo() { ForgetHistory(); } // what the fixture wrote is nobody's deed
    Files Now() const { return Snapshot(root.Path()); }
    std::string Said() const {
        std::string said;
        for (const int16_t id : state.MessageLine)
            said += std::string(said.empty() || !id ? "" : " ") + Utf8(MessageText(id));
        return said;
    }
};

TEST_F(Undo, EachKindOfActionIsTakenBackAndDoneAgain) {
    ShowScreen(TransactionList);
    int kept = 0;
    for (const Step &step : Steps) {
        SCOPED_TRACE(step.Words);
        step.Before();
        const Files before = Now();
        const uint32_t front = state.ShowFrontPage;
        step.Do();
        const Files after = Now();
        ASSERT_NE(before, after);
        ASSERT_EQ(form.Resource, 0);
        EXPECT_EQ(UndoLabel(), static_cast<int>(step.Kind));
        for (int round = 0; round < 2; ++round) {
            SendKey(Key::Undo);
            ASSERT_EQ(Now(), before);
            EXPECT_EQ(Said(), std::string("Taken back: ") + step.Words);
            EXPECT_TRUE(state.MessageWindowOn);
            EXPECT_EQ(state.EntryCount[AccountList], static_cast<int32_t>(Accounts().size()));
            SendKey(Key::Redo);
            ASSERT_EQ(Now(), after);
            EXPECT_EQ(Said(), std::string("Done again: ") + step.Words);
        }
        SendKey(Key::Undo);
        EXPECT_EQ(state.ShowFrontPage, front);
        SendKey(Key::Redo);
        ++kept;
    }
    EXPECT_GE(HistoryCount(), kept);
    // All the way, on the screen that happens to be shown.
    std::vector<Files> way = {Now()};
    while (HistoryCount() > 0) {
        SendKey(Key::Undo);
        way.push_back(Now());
    }
    for (size_t n = way.size() - 1; n > 0; --n) {
        EXPECT_EQ(Now(), way[n]);
        SendKey(Key::Redo);
    }
    EXPECT_EQ(Now(), way[0]);
    const int beeps = machine.Beeps;
    SendKey(Key::Redo);
    EXPECT_GT(machine.Beeps, beeps);
    EXPECT_EQ(Said(), "Nothing is left to do again");
}

TEST_F(Undo, ShowsWhatThenStandsThere) {
    Select(TransactionList, 2);
    SendKey(Key::Delete);
    SendKey(Key::Undo);
    EXPECT_EQ(state.EntryCount[TransactionList], 5);
    EXPECT_EQ(Entries(), "Opening balance,ATM,Rent,Monday,Visa payment");
    EXPECT_NE(TextAt(ListWindow, Row(2)).find("ATM"), std::string::npos);
    EXPECT_TRUE(state.MessageWindowOn);
    SendKey(Key::Down); // what was told goes with the next thing that is done
    EXPECT_FALSE(state.MessageWindowOn);

    Select(TransactionList, 2);
    SendCommand(ExcludeName);
    EXPECT_TRUE(state.FilterView);
    SendKey(Key::Undo);
    EXPECT_FALSE(state.FilterView);
    SendKey(Key::Redo);
    EXPECT_TRUE(state.FilterView);
    SendKey(Key::Undo);
    // A new account goes although its register is shown.
    New(AccountList);
    Ticks(TextField, "Cash");
    const int32_t position = state.EntryCount[AccountList];
    Select(AccountList, position);
    ShowScreen(TransactionList);
    SendKey(Key::Undo);
    EXPECT_EQ(state.EntryCount[AccountList], position - 1);
    EXPECT_LE(state.SelectedPos[AccountList], position - 1);
    EXPECT_EQ(state.CurAccount.ID, Accounts()[static_cast<size_t>(state.SelectedPos[AccountList] - 1)].ID);
}

TEST_F(Undo, TheRowTappedUnderWhatWasToldIsTheRowSeen) {
    for (int n = 0; n < 5; ++n) {
        New(TransactionList);
        SetText(WholeField, std::to_string(n + 1));
        Ticks(TitleField, "Bread");
    }
    Select(TransactionList, 10);
    SendKey(Key::Stroke);
    SendKey(Key::Undo);
    Scroll(ScrollCode::ThumbTrack, 3);
    ASSERT_EQ(state.TopPos[TransactionList], 3);
    TapRow(2);
    EXPECT_FALSE(state.MessageWindowOn);
    EXPECT_EQ(state.SelectedPos[TransactionList], 4);
}

TEST_F(Undo, LooksAndFormsAndRestartsHaveNothingToTakeBack) {
    for (int screen = ConversionList; screen >= AccountList; --screen)
        ShowScreen(screen);
    EXPECT_EQ(HistoryCount(), 0) << "who looks changes nothing";
    SendKey(Key::Undo);
    EXPECT_EQ(Said(), "Nothing is left to take back");
    Select(TransactionList, 2);
    SendKey(Key::Stroke);
    const Files stroked = Now();
    New(TransactionList);
    SendKey(Key::Undo);
    EXPECT_EQ(Now(), stroked) << "a form's keys are the form's";
    Cross();
    // A column that is drawn wider does not take the undo away.
    Drag(state.ColumnEdge[TransactionList][3], 50, state.ColumnEdge[TransactionList][3] + 8, 50);
    EXPECT_EQ(HistoryCount(), 1);
    ASSERT_TRUE(StartProgram());
    const Files files = Now();
    SendKey(Key::Undo);
    EXPECT_EQ(Now(), files);
}

TEST_F(Undo, ARefusedUndoLeavesAllAsItWasAndCanBeTriedAgain) {
    Select(TransactionList, 2);
    const Files before = Now();
    SendKey(Key::Delete);
    const Files after = Now();
    static constexpr int DiskSwitches::*Calls[] = {&DiskSwitches::FailRead, &DiskSwitches::FailOpen,
                                                   &DiskSwitches::FailAt, &DiskSwitches::FailSync,
                                                   &DiskSwitches::FailReserve};
    for (const auto call : Calls)
        for (int n = 1, met = 1; met; ++n) {
            DiskSwitches switches;
            switches.*call = n;
            const int beeps = machine.Beeps;
            met = WithFailingDisk(switches, [] { SendKey(Key::Undo); });
            ASSERT_TRUE(Now() == before || (Now() == after && machine.Beeps > beeps)) << n;
            if (Now() == before)
                SendKey(Key::Redo);
            ASSERT_EQ(Now(), after);
        }
    disk.Switches.Full = true;
    SendKey(Key::Undo);
    EXPECT_EQ(Now(), after);
    EXPECT_EQ(state.EntryCount[TransactionList], 4);
    EXPECT_NE(Said().find("Can't use xx_Data directory"), std::string::npos);
    disk.Switches.Full = false;
    Recuperate();
    SendKey(Key::Undo);
    EXPECT_EQ(Now(), before);
}

} // namespace
