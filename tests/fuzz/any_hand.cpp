// A child with a stylus: taps, strokes, drags, keys, commands and words anywhere and in any order. Whatever comes, the
// program goes on, keeps its files in order, and finds them again after a restart.
#include "frame/shown.h"
#include "host/fuzz.h"
#include "host/hands.h"
#include "host/rows.h"
#include "resources/menus.h"
#include "screens/hub.h"
#include "state/state.h"
#include <cstring>
#include <gtest/gtest.h>

using namespace testhost;

namespace {

int Any(Dice &dice, int below) {
    return static_cast<int>(dice.Below(static_cast<size_t>(below)));
}

void WorkControl(Dice &dice) {
    static constexpr const char *words[] = {"", "7", "Bus", "99999999", "-3", "0.5", "Cash", "\xE2\x82\xAC 12", "abc"};
    if (form.Order.empty())
        return;
    const int id = form.Order[dice.Below(form.Order.size())];
    switch (Any(dice, 4)) {
    case 0:
        return void(Choose(id, Any(dice, 12)));
    case 1:
        return void(Check(id, Any(dice, 2) != 0));
    case 2:
        return void(SetDate(id, 1690 + Any(dice, 8400), 1 + Any(dice, 12), 1 + Any(dice, 28)));
    default:
        SetText(id, words[dice.Below(std::size(words))]);
    }
}

void DoAnything(Dice &dice) {
    const int x = Any(dice, 240), y = 26 + Any(dice, 294), command = Menu[dice.Below(MenuRows)].Id;
    const Point tab = TabMiddle(1 + Any(dice, 7));
    switch (Any(dice, 12)) {
    case 0:
    case 1:
        return Tap(x, y);
    case 2:
        return DoubleTap(x, y);
    case 3:
        return Drag(x, y, Any(dice, 240), 26 + Any(dice, 294));
    case 4:
        return Drag(x, y, std::min(239, x + 40), y);
    case 5:
        return Drag(x, y, tab.X, tab.Y);
    case 6:
        return Tap(tab.X, tab.Y);
    case 7:
        return SendKey(static_cast<Key>(1 + Any(dice, static_cast<int>(Key::HubKeys) + ConeKey)));
    case 8:
        return void(command == CommandExit || SendCommand(command));
    case 9:
        return void(SendCommand(Any(dice, 4) ? CommandTick : CommandNew));
    case 10:
        return void(Scroll(static_cast<ScrollCode>(Any(dice, 7)), Any(dice, 40)));
    default:
        WorkControl(dice);
    }
}

template <typename... Words> bool Differ(const State &a, const State &b, Words State::*...words) {
    return ((std::memcmp(&(a.*words), &(b.*words), sizeof(Words)) != 0) || ...);
}

// The rows shown, of the blue tab its plot or chart, are other ones when they are read anew.
bool RowsAreStale() {
    static State shown;
    if (state.EntryCount[state.CurrentScreen] == 0)
        return false;
    shown = state;
    ReloadList(state.CurrentScreen, state.TopPos[state.CurrentScreen]);
    const bool stale =
        Differ(shown, state, &State::EntryCount, &State::TopPos, &State::AccRows, &State::TranRows, &State::DDRows,
               &State::FavRows, &State::BinRows, &State::CatRows, &State::CurRows, &State::BinOwnerNames,
               &State::DDAccountNames, &State::AccFiltered, &State::SamplePos, &State::SampleRow, &State::SelectedEntry,
               &State::ChartRowCount, &State::ChartRows, &State::Segment, &State::PieSectors);
    state = shown;
    return stale;
}

// Empty, or what is wrong beside what the door asserts.
std::string WhatIsWrong() {
    const int screen = state.CurrentScreen;
    if (state.DataUsable != 1)
        return "the data are refused";
    if (disk.OpenHandles)
        return "a file stayed open";
    if (state.RepaintSkip)
        return "a later paint request would be lost";
    const bool underForm = machine.Shown[DialogWindow]; // header and list lie wholly under it
    for (const Window window : {TopWindow, ListWindow, HostWindow, DialogWindow, HubWindow})
        if (machine.Shown[window] && !(underForm && window <= ListWindow) && !Remains(window).empty())
            return "remains of an earlier picture";
    const bool panel = state.HubState == SmallHub;
    if (machine.Shown[HubWindow] != panel || (state.HubPicking && !panel) || (panel && state.RowCount != 7))
        return "the hub is not what it shows";
    const bool covered = HubCoversForm() || state.ActiveDialog == PaletteDialog ||
                         (state.ActiveDialog == PassCodeDialog && !state.StrongMode);
    if (state.ActiveDialog != NoDialog)
        return machine.Shown[DialogWindow] != covered
                   ? ""
                   : "the form is not where it is heard, dialog " + std::to_string(state.ActiveDialog);
    if (RowsAreStale())
        return "the rows shown are stale";
    if (TextAt(TopWindow, {210, 0, 240, 15}) != std::to_string(state.EntryCount[screen]))
        return "the count shown is stale";
    if (screen != GraphList && state.SelectedPos[screen] > 0 && state.HighlightPos != state.SelectedPos[screen])
        return "the selection is not the row shown pressed";
    return "";
}

// What a row of a money account adds to its balance.
FixedAmount Moves(const TRec &entry) {
    if (entry.RowKind == DayMarker || entry.RowKind == ReconcileEntry)
        return 0;
    return entry.RowKind == EntryRow && !entry.Cash ? TimesUnits(entry.Units, entry.Value) : entry.Value;
}

// Entries in the order of their days, but in a List account, and every balance the sum of what stands above it; no file
// with a part of a record.
void ExpectOrder(const TestRoot &root) {
    const std::string accounts = root.DataFile("E1_01IND");
    EXPECT_EQ(ReadBytes(accounts).size() % sizeof(ARecFile), 0u);
    for (const ARec &account : RecordsIn<ARec>(accounts)) {
        EXPECT_EQ(account.Version, 1);
        if (account.RowKind == HeadingRow)
            continue;
        const std::string entries = root.DataFile("E1_02A" + std::to_string(account.ID));
        EXPECT_EQ(ReadBytes(entries).size() % sizeof(TRecFile), 0u) << account.ID;
        uint32_t day = 0;
        FixedAmount balance = 0;
        int position = 0;
        for (const TRec &entry : RecordsIn<TRec>(entries)) {
            ++position;
            EXPECT_EQ(entry.Version, 1) << account.ID;
            EXPECT_TRUE(entry.Date.DayNumber >= day || account.AccType == ListAccount)
                << account.ID << ", " << position;
            if (entry.RowKind != ArchiveMarker) // it stands first, whatever day an entry of the archive has been given
                day = entry.Date.DayNumber;
            balance = AddAmounts(balance, Moves(entry));
            EXPECT_TRUE(entry.RunTotal == balance || IsShare(account.AccType)) << account.ID << ", " << position;
        }
    }
}

} // namespace

TEST(AnyHand, NeverBreaksTheProgramOrItsFiles) {
    for (const uint64_t seed : FuzzSeeds(12)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        SetClock(2026, 3, 2);
        const TestRoot root;
        ASSERT_TRUE(StartProgram());
        for (int event = 0; event < 300; ++event) {
            DoAnything(dice);
            ASSERT_TRUE(ProgramRuns() || StartProgram());
            ASSERT_EQ(WhatIsWrong(), "") << "event " << event;
        }
        ExpectOrder(root);
        // What the account list says is what a new start works out from the entries.
        SendKey(Key::Escape);
        ASSERT_TRUE(ProgramRuns());
        SendEvent({.Kind = EventKind::Command, .Code = CommandFilterOff});
        ShowScreen(AccountList); // Total markers are summed when it is shown
        const std::vector<uint8_t> accounts = ReadBytes(root.DataFile("E1_01IND"));
        QuitProgram();
        ASSERT_TRUE(StartProgram());
        if (!accounts.empty()) { // without one the new start is a first one
            EXPECT_EQ(ReadBytes(root.DataFile("E1_01IND")), accounts);
        }
        QuitProgram();
        SetClock(2026, 4, 20);
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(state.DataUsable, 1u);
        QuitProgram();
        ExpectOrder(root);
        if (HasFailure())
            return;
    }
}
