// Killed, refused or full at every write of a change of key, a backup and a restore: nothing is lost.
#include "care.h"
#include "host/power.h"
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr char Rows[] = "Current account | 516.00";

// What the sweeps do to a device, and what an owner may find afterwards.
struct Deed {
    const char *Name;
    void (*Prepare)();
    void (*Do)();
};
void SetCode() {
    SetPassCode("1234");
}
void TakeCodeOff() {
    SendCommand(CommandPasswordOff);
}
void CopyAway() {
    AtCard(CommandBackup);
    SendCommand(CommandTick);
}
// Into data that the restore takes back.
void CopyAndSpoil() {
    CopyAway();
    ShowScreen(AccountList);
    TapRow(3);
    SendKey(Key::Delete);
}
void BringBack() {
    AtCard(CommandRestore);
    SendCommand(CommandTick);
}
constexpr Deed Deeds[] = {
    {"on", [] {}, SetCode},
    {"off", SetCode, TakeCodeOff},
    {"another code", SetCode, [] { SetPassCode("4321"); }},
    {"backup", [] {}, CopyAway},
    {"backup over another", CopyAway, CopyAway},
    {"restore", CopyAndSpoil, BringBack},
};

class Kill : public testing::TestWithParam<Deed> {
protected:
    TestRoot root;
    const std::string copy = root.Path() + "-copy";

    Kill() {
        SetClock(2026, 3, 2);
        fs::create_directories(root.HostPath("\\Card"));
        EXPECT_TRUE(StartProgram());
        GetParam().Prepare();
        QuitProgram();
    }
    ~Kill() override { fs::remove_all(copy); }

    void Copied() const {
        fs::remove_all(copy);
        fs::copy(root.Path(), copy, fs::copy_options::recursive);
    }
    // Past the gate, when there is one, with whichever code is right.
    static void Enter() {
        for (const char *code : {"1234", "4321"})
            if (state.ActiveDialog == PassCodeDialog)
                TapDigits(code);
    }
    // Starts on the copy and does the deed on a disk that behaves as told. The write-like calls that it made.
    static int DoOn(const std::string &device, const DiskSwitches &switches, const Ending &ending = {}) {
        const TestRoot again(device);
        if (!StartProgram())
            _exit(1);
        Enter();
        ResetDisk();
        disk.Switches = switches;
        WatchPower(device, ending);
        GetParam().Do();
        if (ending.At > 0)
            EndHere(); // what was told as done
        const int calls = ending.At < 0 ? PowerCalls() : disk.WriteCalls;
        WatchPower("", {});
        ResetDisk();
        QuitProgram();
        return calls;
    }
    // In a process of its own, which ends on the way.
    void EndOn(const DiskSwitches &switches, const Ending &ending) {
        Copied();
        const pid_t child = fork();
        if (child == 0) {
            DoOn(copy, switches, ending);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status));
        kills += WEXITSTATUS(status) == DiedExitCode;
        ExpectAllThere();
    }
    int kills = 0;

    // A backup that stands, or has to stand, holds what the accounts hold.
    void ExpectBackup(bool hasTo) const {
        const std::string backup = copy + "/Card/Zentk_Backup";
        EXPECT_TRUE(!hasTo || fs::exists(backup));
        for (const char *file : {"/E1_02A1", "/E1_02A2", "/E1_06BIN"})
            if (fs::exists(backup)) {
                EXPECT_EQ(ReadBytes(backup + file), ReadBytes(root.DataFile(file))) << file;
            }
    }

    // Every entry, template and category stands, and a backup that stood stands or is the new one.
    void ExpectAllThere() const {
        const bool spoiled = GetParam().Prepare == CopyAndSpoil;
        const TestRoot again(copy);
        ASSERT_TRUE(StartProgram());
        Enter();
        ASSERT_EQ(state.ActiveDialog, NoDialog) << "no code opens the data";
        EXPECT_EQ(state.DataUsable, 1U) << Lines();
        EXPECT_EQ(TextAt(ListWindow, Row(1)), Rows);
        const int accounts = state.EntryCount[AccountList];
        EXPECT_TRUE(accounts == 3 || (spoiled && accounts == 2)) << accounts;
        OpenRow(1);
        EXPECT_EQ(state.EntryCount[TransactionList], 5);
        EXPECT_NE(TextAt(ListWindow, Row(2)).find("ATM"), std::string::npos);
        constexpr int counts[][2] = {{RecurringList, 1}, {TemplateList, 6}, {CategoryList, 3}, {ConversionList, 5}};
        for (const auto &[list, count] : counts)
            EXPECT_EQ(state.EntryCount[list], count) << list;
        if (GetParam().Prepare == CopyAway || spoiled) {
            AtCard(CommandRestore);
            EXPECT_EQ(form.Controls[ProgressField].Progress, 100) << "the backup is no backup any more";
            SendCommand(CommandCross);
        }
        QuitProgram();
    }
};

} // namespace

TEST_P(Kill, AtAnyWriteTheDataAreWhole) {
    Copied();
    const int total = DoOn(copy, {});
    // A change of key has as many writes as files and records: every one of the first and last, a sample between.
    for (int n = 1; n <= total; n += n < 6 || n > total - 12 ? 1 : 1 + total / 8) {
        SCOPED_TRACE(testing::Message() << "write " << n << " of " << total);
        EndOn({.DieAt = n}, {});
    }
    EXPECT_GE(kills, 3);
}

TEST_P(Kill, WhateverALossOfPowerTakesTheDataAreWhole) {
    if (GetParam().Do != CopyAway)
        return; // an action, whose loss of power the tests of actions know
    Copied();
    const int total = DoOn(copy, {}, {-1});
    const Ending ways[] = {{0, Tear::Before, Bytes::Go, Names::Go},
                           {0, Tear::AtPage, Bytes::Go, Names::Stay},
                           {0, Tear::AtOddByte, Bytes::ByFile, Names::Go}};
    // Behind the last call, too: what was told as done is done.
    for (int n = 1; n <= total + 1; n += n > total - 20 ? 1 : 1 + total / 8)
        for (Ending way : ways) {
            way.At = n;
            way.Seed = static_cast<unsigned>(n);
            SCOPED_TRACE(testing::Message()
                         << "call " << n << " of " << total << ", way " << static_cast<int>(way.How));
            EndOn({}, way);
            ExpectBackup(n > total && GetParam().Do == CopyAway);
        }
    EXPECT_GE(kills, 3);
}

TEST_P(Kill, OnADiskThatRefusesOrIsFullTheDataAreWholeAndItIsTold) {
    Copied();
    const int total = DoOn(copy, {});
    std::vector<DiskSwitches> ways = {{.Full = true}, {.Unwritable = true}};
    for (int n = 1; n <= total; n += n < 3 ? 1 : 1 + total / 5)
        ways.push_back({.FailAt = n, .FailOnward = n % 2 == 0, .TearWrite = true});
    for (const int n : {1, 4, 12, 40}) {
        ways.push_back({.FailRead = n});
        ways.push_back({.FailOnward = n == 12, .FailOpen = n});
    }
    for (size_t n = 0; n < ways.size(); ++n) {
        SCOPED_TRACE(n);
        Copied();
        DoOn(copy, ways[n]);
        ExpectAllThere();
    }
}

INSTANTIATE_TEST_SUITE_P(Deeds, Kill, testing::ValuesIn(Deeds), [](const auto &row) {
    std::string name = row.param.Name;
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
});
