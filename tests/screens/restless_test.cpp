// Restless hands: anything in any order, and what must be true after every step.
#include "device.h"

namespace {

struct Hands {
    uint32_t Seed;
    int Pick(int below) {
        Seed = Seed * 1664525 + 1013904223;
        return static_cast<int>((Seed >> 10) % static_cast<uint32_t>(below));
    }
    void Point() {
        const int x = Pick(226), y = 26 + Pick(268), toX = Pick(240), toY = Pick(3) ? 26 + Pick(268) : y;
        switch (Pick(3)) {
        case 0:
            Tap(x, y);
            return;
        case 1:
            DoubleTap(x, y);
            return;
        default:
            Drag(x, y, toX, toY);
        }
    }
    // Every command but those that leave.
    void Command() {
        const MenuRow &row = Menu[Pick(MenuRows)];
        if (!row.Popup && row.Id != CommandExit)
            SendCommand(row.Id);
    }
    void Step() {
        switch (Pick(6)) {
        case 0:
            SendKey(static_cast<Key>(1 + Pick(static_cast<int>(Key::Tick))));
            return;
        case 1:
            Command();
            return;
        case 2:
            Scroll(static_cast<ScrollCode>(Pick(7)), Pick(20));
            return;
        default:
            Point();
        }
    }
};

// Empty, or what is wrong.
std::string WhatIsWrong() {
    const int screen = state.CurrentScreen;
    if (disk.OpenHandles)
        return "a file stayed open";
    if (screen < 1 || screen > 8 || state.TopPos[screen] < 1)
        return "no such screen or top";
    if (state.RepaintSkip)
        return "a later paint request would be lost";
    if (state.ActiveDialog != NoDialog)
        return "";
    if (state.RowCount != (state.MessageWindowOn ? 7 : 12))
        return "wrong number of rows";
    if (TextAt(TopWindow, {210, 0, 240, 15}) != std::to_string(state.EntryCount[screen]))
        return "the count shown is stale";
    if (screen != GraphList && (!Remains(ListWindow).empty() || !Remains(TopWindow).empty()))
        return "remains of an earlier picture";
    if (screen != GraphList && state.SelectedPos[screen] > 0 && state.HighlightPos != state.SelectedPos[screen])
        return "the selection is not the row shown pressed";
    return "";
}

TEST(RestlessHands, LeaveScreensAndFilesInOrder) {
    for (uint32_t seed : {7919U, 104729U, 1299709U, 15485863U}) {
        TestRoot root;
        SetClock(2026, 3, 2);
        ASSERT_TRUE(StartProgram());
        Hands hands{seed};
        for (int step = 0; step < 400; ++step) {
            hands.Step();
            ASSERT_TRUE(ProgramRuns() || StartProgram()); // the bar's cross leaves
            ASSERT_EQ(WhatIsWrong(), "") << "seed " << seed << ", step " << step;
        }
        // What the account list says is what a new start works out from the entries.
        SendKey(Key::Escape);
        ASSERT_TRUE(ProgramRuns());
        SendEvent({.Kind = EventKind::Command, .Code = CommandFilterOff});
        const std::vector<uint8_t> accounts = ReadBytes(root.DataFile("E1_01IND"));
        QuitProgram();
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(ReadBytes(root.DataFile("E1_01IND")), accounts) << "seed " << seed;
    }
}

} // namespace
