// Backup and restore by the owner's hands.
#include "care.h"
#include "care/backup.h"
#include "care/directories.h"

namespace {

class Backup : public FullDevice {
protected:
    const std::string Data = root.DataFile(""), Card = root.HostPath("\\Card"), Copy = Card + "/Zentk_Backup";

    Backup() { fs::create_directories(Card); }

    static void Enter(const std::string &name) {
        ASSERT_TRUE(Choose(DirectoryField, name)) << name;
        SendEvent({.Kind = EventKind::Control, .Control = DirectoryField, .Change = ControlChange::DoublePressed});
    }
    static void MakeCopy() {
        ASSERT_TRUE(AtCard(CommandBackup));
        SendCommand(CommandTick);
        EXPECT_EQ(state.ActiveDialog, NoDialog) << Lines();
    }
    static void BringBack() {
        ASSERT_TRUE(AtCard(CommandRestore));
        SendCommand(CommandTick);
    }
    void PutCopy(const std::map<std::string, std::vector<uint8_t>> &files) const {
        fs::remove_all(Copy);
        fs::create_directories(Copy);
        for (const auto &[name, bytes] : files)
            WriteBytes(Copy + "/" + name, bytes);
    }
    // Changes that a restore takes back.
    void Spoil() {
        ShowScreen(AccountList);
        TapRow(1);
        SendKey(Key::Delete);
        WriteBytes(Data + "CHART", {1, 2, 3});
    }
};

} // namespace

TEST_F(Backup, TheDataAreCopiedAndComeBackAndWhatIsNoDataFileToo) {
    WriteBytes(Data + "COL", {9, 9});
    fs::create_directories(Data + "inner");
    MakeCopy();
    auto expected = Snapshot(Data);
    EXPECT_TRUE(Snapshot(Copy) == expected);
    EXPECT_EQ(expected.count("COL"), 1U);
    Spoil();
    MakeCopy(); // over the one that stands there
    EXPECT_TRUE(Snapshot(Copy) == Snapshot(Data));
    EXPECT_EQ(fs::exists(Card + "/Zentk$B$zpy") || fs::exists(Card + "/Zentk$O$zpy"), false);

    PutCopy(expected);
    BringBack();
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    EXPECT_EQ(state.SelectedPos[AccountList], 1);
    EXPECT_FALSE(fs::exists(Data + "CHART"));
    EXPECT_TRUE(Payloads(root.DataFile("E1_02A1"), FileKind::Transactions) ==
                Payloads(Copy + "/E1_02A1", FileKind::Transactions));
    Restart();
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

TEST_F(Backup, ACodeOfTheTimeOfTheBackupIsAskedForAtOnce) {
    SetPassCode("1234");
    MakeCopy();
    SendCommand(CommandPasswordOff);
    Spoil();
    BringBack();
    EXPECT_EQ(PassTitle(), "Enter pass code");
    TapDigits("1234");
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
    // And a backup without a code opens without one.
    SendCommand(CommandPasswordOff);
    MakeCopy();
    SetPassCode("4321");
    BringBack();
    EXPECT_EQ(state.ActiveDialog, NoDialog);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

TEST_F(Backup, OnlyABackupIsRestored) {
    MakeCopy();
    const auto good = Snapshot(Copy);
    static const auto leave = [](const std::string &copy, int count, bool withConfiguration) {
        for (const auto &[name, bytes] : Snapshot(copy))
            if ((withConfiguration || name != "E1_03CON") && count-- <= 0)
                fs::remove(copy + "/" + name);
    };
    struct {
        const char *Why;
        void (*Spoil)(const std::string &copy);
        bool Valid;
    } const rows[] = {
        {"as it is", [](const std::string &) {}, true},
        {"five files", [](const std::string &copy) { leave(copy, 4, false); }, false},
        {"six files", [](const std::string &copy) { leave(copy, 6, true); }, true},
        {"foreign files",
         [](const std::string &copy) {
             for (const auto &[name, bytes] : Snapshot(copy))
                 fs::rename(copy + "/" + name, copy + "/X" + name);
         },
         false},
        {"a file cut short", [](const std::string &copy) { fs::resize_file(copy + "/E1_02A1", 700); }, false},
        {"an empty configuration", [](const std::string &copy) { fs::resize_file(copy + "/E1_03CON", 0); }, false},
        {"nothing", [](const std::string &copy) { fs::remove_all(copy); }, false},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.Why);
        PutCopy(good);
        row.Spoil(Copy);
        const auto before = Snapshot(Data);
        ASSERT_TRUE(AtCard(CommandRestore));
        EXPECT_EQ(form.Controls[ProgressField].Progress, row.Valid ? 100 : 0);
        if (!row.Valid) {
            SendCommand(CommandTick);
            EXPECT_EQ(Lines(), "/Restore action disallowed!/Source data is invalid///");
            EXPECT_EQ(state.ActiveDialog, RestoreDialog);
            EXPECT_TRUE(Snapshot(Data) == before);
        }
        SendCommand(CommandCross);
    }
}

TEST_F(Backup, AnInterruptedCopyIsToldAndAnInterruptedExchangeFound) {
    MakeCopy();
    const auto good = Snapshot(Copy);
    fs::create_directories(Card + "/Zentk$B$zpy");
    ASSERT_TRUE(AtCard(CommandBackup));
    SendCommand(CommandTick);
    EXPECT_EQ(Lines(), "/An interrupted copy is in the way!/Remove Zentk$B$zpy/Zentk$D$ypz first///");
    EXPECT_TRUE(Snapshot(Copy) == good);
    SendCommand(CommandCross);
    fs::remove(Card + "/Zentk$B$zpy");

    fs::create_directories(root.HostPath("\\Program Files\\Zentrik\\Zentk$D$ypz"));
    ASSERT_TRUE(AtCard(CommandRestore));
    SendCommand(CommandTick);
    EXPECT_EQ(Lines(), "/An interrupted copy is in the way!/Remove Zentk$B$zpy/Zentk$D$ypz first///");
    SendCommand(CommandCross);

    fs::rename(Copy, Card + "/Zentk$O$zpy"); // killed between the two renames
    ASSERT_TRUE(AtCard(CommandRestore));
    EXPECT_EQ(form.Controls[ProgressField].Progress, 100);
    SendCommand(CommandCross);
    EXPECT_TRUE(Snapshot(Copy) == good);

    // A restore of an earlier version that was killed before its last step.
    QuitProgram();
    fs::remove(root.HostPath("\\Program Files\\Zentrik\\Zentk$D$ypz"));
    fs::rename(Data, root.HostPath("\\Program Files\\Zentrik\\Zentk$D$ypz"));
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

TEST_F(Backup, TheWalkReachesTheWholeHostAndComesBack) {
    fs::create_directories(Card + "/b\xC3\xA4r");
    fs::create_directories(Card + "/a");
    WriteBytes(Card + "/file", {1});
    const auto path = [] { return TextAt(DialogWindow, {0, 13, 240, 26}); };
    SendCommand(CommandBackup);
    EXPECT_EQ(path(), "\\");
    Enter("Card");
    EXPECT_EQ(path(), "\\Card\\");
    EXPECT_EQ(ControlItems(DirectoryField), (std::vector<std::string>{"a", "b\xC3\xA4r"}));
    ASSERT_TRUE(Choose(DirectoryField, "a"));
    EXPECT_EQ(path(), "\\Card\\a\\");
    Tap(12, 26 + 36); // the arrow
    EXPECT_EQ(path(), "\\");
    Tap(12, 26 + 36);
    const fs::path above = fs::path(root.Path()).parent_path();
    EXPECT_EQ(path(), above.string() + "/");
    Enter(fs::path(root.Path()).filename().string());
    EXPECT_EQ(path(), "\\") << "the device root is known again";
    for (int up = 0; up < 20; ++up)
        Tap(12, 26 + 36);
    EXPECT_EQ(path(), "/");
    EXPECT_GT(machine.Beeps, 0);
    SendCommand(CommandCross);

    // Beside the device root, as on another disk.
    SendCommand(CommandBackup);
    Tap(12, 26 + 36);
    const std::string beside = root.Path() + "-beside";
    fs::create_directories(beside);
    SendCommand(CommandCross);
    SendCommand(CommandBackup);
    Tap(12, 26 + 36);
    ASSERT_TRUE(Choose(DirectoryField, fs::path(beside).filename().string()));
    SendCommand(CommandTick);
    EXPECT_TRUE(Snapshot(beside + "/Zentk_Backup") == Snapshot(Data));
    fs::remove_all(beside);

    SendCommand(CommandBackup);
    for (const char *step : {"Program Files", "Zentrik", "E1_Data"})
        Enter(step);
    SendCommand(CommandTick);
    EXPECT_EQ(Lines(), "/No backup within the data themselves!////");
    SendCommand(CommandCross);
}

TEST_F(Backup, ADirectoryThatMayNotBeReadIsEmptyAndNoTroubleWithTheData) {
    fs::create_directories(Card + "/a");
    SendCommand(CommandBackup);
    Enter("Card");
    ResetDisk();
    disk.Switches.FailOpen = 1;
    disk.Switches.FailOnward = true;
    Enter("a");
    ResetDisk();
    EXPECT_EQ(TextAt(DialogWindow, {0, 13, 240, 26}), "\\Card\\a\\");
    EXPECT_EQ(state.ActiveDialog, BackupDialog);
    EXPECT_EQ(Lines(),
              "/The current selected directory/Double tap to see a directory/Tap 'up arrow' to go up one level//");
}
