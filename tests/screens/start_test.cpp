// Coming up and going down.
#include "core/startup/door.h"
#include "device.h"
#include "store/configuration.h"
#include <filesystem>

namespace {

constexpr char WrongVersionLines[] = "128,0,129,133,0,4", EncipheredLines[] = "128,0,486,487,488,0";

// Everything an owner may try with data that are refused.
void TryEverything() {
    for (int screen = 1; screen <= 8; ++screen) {
        SendKey(static_cast<Key>(static_cast<int>(Key::Tab1) + screen - 1));
        TapRow(1);
        OpenRow(2);
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

TEST(Start, EmptyDeviceShowsTheSampleAndHelp) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    EXPECT_TRUE(std::filesystem::is_directory(root.HostPath("\\Program Files\\Zentrik\\E1_Data")));
    EXPECT_EQ(state.EntryCount[AccountList], 3);
    EXPECT_EQ(state.RowCount, 7);
    EXPECT_EQ(Line(1), "Tap an item on the screen");
    EXPECT_EQ(TextAt(ListWindow, Row(1, 0, 150)), "Current account");
    EXPECT_EQ(TextAt(TopWindow, {0, 15, 240, 36}), "Name | Balance");
    for (const char *name : {"E1_03CON", "E1_04DD", "E1_05FAV", "E1_07CAT", "E1_08CUR", "E1_09SST"})
        EXPECT_FALSE(ReadBytes(root.DataFile(name)).empty()) << name;
    QuitProgram();
    EXPECT_FALSE(ProgramRuns());

    // The next start finds accounts: no message window, the same rows.
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.EntryCount[AccountList], 3);
    EXPECT_EQ(state.RowCount, 12);
    EXPECT_EQ(state.HelpMode, 0U);
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

TEST(Start, DataOfAFutureVersionAreLeftAlone) {
    for (const char *name : {"E1_01IND", "E1_04DD", "E1_05FAV", "E1_06BIN", "E1_07CAT", "E1_08CUR"}) {
        TestRoot root;
        ASSERT_TRUE(StartProgram());
        SendEvent({.Kind = EventKind::Key, .Code = static_cast<int>(Key::Tab5)});
        SendKey(Key::Delete);
        QuitProgram();
        std::vector<uint8_t> bytes = ReadBytes(root.DataFile(name));
        ASSERT_FALSE(bytes.empty()) << name;
        bytes[0] = 2;
        WriteBytes(root.DataFile(name), bytes);
        const auto before = Snapshot(root.Path());
        StartProgram();
        EXPECT_EQ(Ids(), WrongVersionLines) << name;
        EXPECT_EQ(state.RowCount, 7) << name;
        EXPECT_FALSE(CommandEnabled(CommandEmptyBin));
        TryEverything();
        EXPECT_EQ(Ids(), WrongVersionLines) << name;
        QuitProgram();
        EXPECT_EQ(Snapshot(root.Path()), before) << name;
    }
}

TEST(Start, EncipheredDataAreRefusedInWordsAndLeftAlone) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    QuitProgram();
    std::vector<uint8_t> bytes = ReadBytes(root.DataFile("E1_03CON"));
    bytes[48] = 1; // PasswordOn
    WriteBytes(root.DataFile("E1_03CON"), bytes);
    const auto before = Snapshot(root.Path());
    StartProgram();
    EXPECT_EQ(Ids(), EncipheredLines);
    EXPECT_EQ(TextAt(ListWindow, {0, 176, 240, 189}), "The data are enciphered");
    EXPECT_EQ(state.EntryCount[AccountList], 0);
    TryEverything();
    EXPECT_EQ(Ids(), EncipheredLines);
    QuitProgram();
    EXPECT_EQ(Snapshot(root.Path()), before);
}

TEST(Start, DamagedOrUnwritableDevicesStillComeUp) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    QuitProgram();
    WriteBytes(root.DataFile("E1_03CON"), std::vector<uint8_t>(100, 7));
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(ReadBytes(root.DataFile("E1_03CON")).size(), 888U);
    QuitProgram();

    TestRoot bare;
    disk.Switches.Unwritable = true;
    EXPECT_TRUE(StartProgram());
    EXPECT_GT(machine.Beeps, 0);
    for (int screen = 1; screen <= 8; ++screen)
        SendKey(static_cast<Key>(static_cast<int>(Key::Tab1) + screen - 1));
    OpenRow(1);
    QuitProgram();
    EXPECT_FALSE(ProgramRuns());
    disk.Switches.Unwritable = false;
}

TEST_F(Device, LeavingTakesFiltersAwayUnlessTheSoftOkLeaves) {
    OpenRow(1);
    TapRow(2);
    SendCommand(ShowName);
    const std::string filter = Root.DataFile("E1_02AF1");
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
