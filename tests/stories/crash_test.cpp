// What a power cut, a failing disk and a full disk leave behind.
#include "day.h"
#include "platform/text.h"
#include "state/state.h"
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace stories;

namespace {

// A device with the sample accounts, and `more` old entries in the first one.
class Device : public testing::Test {
protected:
    Device() { SetClock(2026, 3, 2); }

    void Prepare(int more) {
        ASSERT_TRUE(StartProgram());
        QuitProgram();
        // One entry a day from 1 January 2020 on, in front of the sample's rows.
        const std::string path = root.DataFile("E1_02A1");
        std::vector<uint8_t> bytes = ReadBytes(path), all;
        for (int n = 0; n < more; ++n) {
            InFile<TRec> entry{};
            std::memcpy(&entry, bytes.data(), sizeof entry);
            entry.Rec.Date = DateFromDayNumber(153037 + static_cast<uint32_t>(n));
            CopyText(entry.Rec.Name, TextRoom, (u"Old " + Utf16(std::to_string(n))).c_str());
            entry.Rec.Value = 1000 + n;
            const auto *raw = reinterpret_cast<const uint8_t *>(&entry);
            all.insert(all.end(), raw, raw + sizeof entry);
        }
        all.insert(all.end(), bytes.begin(), bytes.end());
        WriteBytes(path, all);
        before = EntriesIn(path);
    }

    // A copy of the device in a directory of its own.
    std::string Copied() {
        const std::string copy = root.Path() + "-copy";
        fs::remove_all(copy);
        fs::copy(root.Path(), copy, fs::copy_options::recursive);
        return copy;
    }

    TestRoot root;
    std::vector<std::string> before;
};

constexpr NewEntry BackDated = {2020, 1, 3, "Late bill", "12", "34"};
const std::string BackDatedLine = "2020-01-03 Late bill -12340";

std::string LiveFile(const std::string &device) {
    return device + "/Program Files/Zentrik/E1_Data/E1_02A1";
}

// In the copy: start, open the account, fill the form, and tick with the switches set. The writes of the tick.
int TickWith(const std::string &device, const DiskSwitches &switches) {
    const TestRoot copy(device);
    if (!StartProgram())
        _exit(1);
    OpenRow(1);
    OpenNewEntry();
    FillEntry(BackDated);
    ResetDisk();
    disk.Switches = switches;
    Tick();
    disk.Switches = {};
    return disk.WriteCalls;
}

// Every entry that stood before stands at least once; besides these at most the new one, and one of them twice.
void ExpectNothingLost(std::vector<std::string> before, std::vector<std::string> after) {
    const size_t stood = before.size();
    EXPECT_LE(after.size(), stood + 2);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_TRUE(std::includes(after.begin(), after.end(), before.begin(), before.end())) << "an entry is lost";
    std::vector<std::string> extra;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(), std::back_inserter(extra));
    int doubled = 0, added = 0;
    for (const std::string &line : extra)
        ++(line == BackDatedLine ? added : doubled);
    EXPECT_LE(added, 1);
    EXPECT_LE(doubled, 1);
}

} // namespace

TEST_F(Device, AKillAtAnyWriteOfABackDatedEntryLosesNoRecord) {
    // Every write with few entries; the first ones and a sample of the others where the file takes several runs.
    for (const int more : {0, 30, 1000}) {
        SCOPED_TRACE(more);
        Prepare(more);
        int kills = 0;
        for (int n = 1;; n += more < 1000 || n < 4 ? 1 : 117) {
            SCOPED_TRACE(n);
            const std::string copy = Copied();
            const pid_t child = fork();
            if (child == 0) {
                DiskSwitches switches;
                switches.DieAt = n;
                TickWith(copy, switches);
                _exit(0);
            }
            int status = 0;
            ASSERT_EQ(waitpid(child, &status, 0), child);
            ASSERT_TRUE(WIFEXITED(status));
            const TestRoot again(copy);
            EXPECT_TRUE(StartProgram());
            OpenRow(1);
            EXPECT_EQ(state.DataUsable, 1u);
            ExpectNothingLost(before, EntriesIn(LiveFile(copy)));
            QuitProgram();
            if (WEXITSTATUS(status) == 0)
                break;
            ASSERT_EQ(WEXITSTATUS(status), DiedExitCode);
            ++kills;
        }
        EXPECT_GE(kills, 3) << "the entry is written, its totals, the account's";
        fs::remove_all(root.Path() + "-copy");
    }
}

TEST_F(Device, AFailingWriteOfABackDatedEntryLosesNoRecord) {
    Prepare(30);
    struct {
        bool Onward, Torn;
    } constexpr ways[] = {{false, false}, {true, false}, {false, true}};
    for (const auto &way : ways)
        for (int n = 1;; ++n) {
            SCOPED_TRACE(testing::Message() << "write " << n << " onward " << way.Onward << " torn " << way.Torn);
            const std::string copy = Copied();
            DiskSwitches switches;
            switches.FailAt = n;
            switches.FailOnward = way.Onward;
            switches.TearWrite = way.Torn;
            const bool all = TickWith(copy, switches) < n;
            Cross(); // a form that could not be saved is still open
            EXPECT_EQ(state.ActiveDialog, NoDialog);
            QuitProgram();
            Recuperate();
            const std::vector<std::string> after = EntriesIn(LiveFile(copy));
            ExpectNothingLost(before, after);
            const bool done = std::count(after.begin(), after.end(), BackDatedLine) == 1;
            EXPECT_TRUE(all || done || machine.Beeps > 0) << "a failure is told";
            if (all)
                break;
        }
    fs::remove_all(root.Path() + "-copy");
}

TEST_F(Device, AFullDiskInTheMiddleOfAnInsertionChangesNothing) {
    Prepare(1000);
    ASSERT_TRUE(StartProgram());
    OpenRow(1);
    OpenNewEntry();
    FillEntry(BackDated);
    const auto files = Snapshot(root.Path());
    disk.Switches.Full = true;
    Tick();
    EXPECT_EQ(Snapshot(root.Path()), files);
    EXPECT_GT(machine.Beeps, 0);
    disk.Switches.Full = false;
    AddEntry(BackDated);
    std::vector<std::string> expected = before;
    expected.insert(expected.begin() + 3, BackDatedLine);
    EXPECT_EQ(EntriesIn(root.DataFile("E1_02A1")), expected);
}

TEST_F(Device, AnUnwritableDirectoryIsShownAndLeftAlone) {
    for (const bool fresh : {true, false}) {
        SCOPED_TRACE(fresh ? "fresh" : "with data");
        if (!fresh)
            Prepare(0);
        const auto files = Snapshot(root.Path());
        disk.Switches.Unwritable = true;
        ASSERT_TRUE(StartProgram());
        EXPECT_EQ(Lines(), "Warning!//Can't use xx_Data directory///");
        for (int screen = 8; screen >= 1; --screen)
            ShowScreen(screen);
        if (!fresh) {
            EXPECT_EQ(RowsShown(1), std::vector<std::string>{"Current account | 516.00"});
            OpenRow(1);
            AddEntry(BackDated);
            EXPECT_GT(machine.Beeps, 0);
        }
        QuitProgram();
        EXPECT_FALSE(ProgramRuns());
        disk.Switches = {};
        EXPECT_EQ(Snapshot(root.Path()), files);
    }
}
