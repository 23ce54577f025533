// Coming up and going down.
#include "device.h"
#include "program/door.h"
#include <filesystem>

namespace {

// Everything an owner may try with data that are refused.
void TryEverything() {
    for (int screen = 1; screen <= 8; ++screen) {
        ShowScreen(screen);
        TapRow(1);
        OpenRow(1);
        OpenRow(2);
        EXPECT_EQ(state.ActiveDialog, NoDialog);
        EXPECT_EQ(state.CurrentScreen, screen);
        StrokeRow(1);
        DragToSlot(1, 6);
        for (const Key key : {Key::Up, Key::Down, Key::Enter, Key::Stroke, Key::Delete, Key::New, Key::Modify})
            SendKey(key);
    }
    for (const MenuRow &row : Menu)
        if (!row.Popup && row.Id != CommandExit)
            SendEvent({.Kind = EventKind::Command, .Code = row.Id});
    EXPECT_TRUE(ProgramRuns());
}

TEST(Start, SecondCopyChangesNothing) {
    TestRoot root;
    machine.AnotherRuns = true;
    EXPECT_FALSE(StartProgram());
    EXPECT_EQ(WinMain(), -1);
    EXPECT_TRUE(Snapshot(root.Path()).empty());
    machine.AnotherRuns = false;
    machine.RefusesWindows = true;
    EXPECT_EQ(WinMain(), 0);
}

TEST(Start, EmptiedListsStayEmptyAndMissingOnesAreFilled) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    QuitProgram();
    WriteBytes(root.DataFile("E1_05FAV"), {});
    std::filesystem::remove(root.DataFile("E1_04DD"));
    std::filesystem::remove(root.DataFile("E1_08CUR"));
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.EntryCount[TemplateList], 0);
    EXPECT_EQ(state.EntryCount[RecurringList], 1);
    EXPECT_EQ(state.EntryCount[ConversionList], 5);
    EXPECT_EQ(state.EntryCount[AccountList], 3);
}

TEST(Start, ATabThatShowsNothingNewWritesNothing) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    for (const bool again : {false, true})
        for (int screen = AccountList; screen < ListCount; ++screen) {
            ResetDisk();
            ShowScreen(screen);
            EXPECT_TRUE(!again || disk.WriteCalls + disk.Syncs + disk.Reserves == 0) << screen;
        }
}

TEST_F(Device, AnOwnerWhoseAccountsLieInTheBinIsNoNewOne) {
    ShowScreen(AccountList);
    for (int n = 0; n < 3; ++n) {
        state.SelectedPos[AccountList] = 1;
        SendKey(Key::Delete);
    }
    QuitProgram();
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(AccountNames(), "");
    EXPECT_EQ(Rows().size(), 5U);
    EXPECT_EQ(state.DataUsable, 1U);
}

TEST(Start, DataThatCanNotBeUsedAreRefusedInWordsAndLeftAlone) {
    static constexpr char Future[] = "Warning! | Wrong (future) version data | Can't use xx_Data directory | "
                                     "To exit Help mode, tap the eyes below";
    const auto told = [] { return TextAt(ListWindow, {0, 120, 240, 262}); };
    for (const char *file : {"E1_01IND", "E1_02A1", "E1_04DD", "E1_05FAV", "E1_06BIN", "E1_07CAT", "E1_08CUR"}) {
        SCOPED_TRACE(file);
        TestRoot root;
        SetClock(2026, 3, 2);
        ASSERT_TRUE(StartProgram());
        ShowScreen(TemplateList);
        SendKey(Key::Delete); // something for the bin
        QuitProgram();
        const std::vector<uint8_t> good = ReadBytes(root.DataFile(file));
        std::vector<uint8_t> bytes = good;
        bytes.at(0) = 2;
        WriteBytes(root.DataFile(file), bytes);
        const auto before = Snapshot(root.Path());
        SetClock(2026, 3, 3); // a day on, totals and markers would move
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(told(), Future);
        EXPECT_EQ(state.RowCount, 7);
        EXPECT_FALSE(CommandEnabled(CommandEmptyBin));
        TryEverything();
        EXPECT_EQ(told(), Future);
        QuitProgram();
        EXPECT_FALSE(ProgramRuns());
        EXPECT_EQ(Snapshot(root.Path()), before);
        WriteBytes(root.DataFile(file), good);
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(state.DataUsable, 1U);
    }
}

TEST_F(Device, LeavingTakesFiltersAwayUnlessTheSoftOkLeaves) {
    OpenRow(1);
    TapRow(2);
    SendCommand(ShowName);
    const std::string filter = root.DataFile("E1_02AF1");
    ASSERT_TRUE(std::filesystem::exists(filter));
    SendEvent({.Kind = EventKind::Command, .Code = CommandOk});
    EXPECT_FALSE(ProgramRuns());
    EXPECT_TRUE(std::filesystem::exists(filter));
    SendEvent({.Kind = EventKind::Key, .Code = static_cast<int>(Key::Tab4)});

    ASSERT_TRUE(StartProgram());
    SendCommand(CommandCross);
    EXPECT_FALSE(ProgramRuns());
    EXPECT_FALSE(std::filesystem::exists(filter));
}

} // namespace
