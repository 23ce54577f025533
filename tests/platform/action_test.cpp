// The file layer alone: actions that are whole, also larger than the memory, and what takes them back.
#include "host/test_host.h"
#include "platform/files.h"
#include "platform/history.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

constexpr char Here[] = "\\Program Files\\Zentrik\\E1_Data\\";

std::string In(const std::string &name) {
    return Here + name;
}

int Put(const std::string &name, int64_t at, const std::string &bytes) {
    const int file = OpenFile(In(name).c_str(), OpenOrCreate);
    const int written = WriteFileAt(file, at, bytes.data(), static_cast<int64_t>(bytes.size()));
    ReleaseFile(file);
    return written;
}

int Cut(const std::string &name, int64_t length) {
    const int file = OpenFile(In(name).c_str(), OpenExisting);
    const int cut = CutFile(file, length);
    ReleaseFile(file);
    return cut;
}

std::string Get(const std::string &name) {
    const int file = OpenFile(In(name).c_str(), OpenExisting);
    std::string bytes(static_cast<size_t>(std::max<int64_t>(0, FileLength(file))), 0);
    EXPECT_EQ(ReadFileAt(file, 0, bytes.data(), static_cast<int64_t>(bytes.size())),
              static_cast<int64_t>(bytes.size()));
    ReleaseFile(file);
    return bytes;
}

class Actions : public testing::Test {
protected:
    Actions() { Root.MakeDataDirectory(); }
    ~Actions() override { EXPECT_EQ(disk.OpenHandles, 0); }
    std::string OnDisk(const std::string &name) {
        const std::vector<uint8_t> bytes = ReadBytes(Root.DataFile(name));
        return {bytes.begin(), bytes.end()};
    }
    TestRoot Root;
};

} // namespace

TEST_F(Actions, AreSeenWithinAndStandInTheFilesAfterwardsWithOneSync) {
    ASSERT_TRUE(Put("a", 0, "old") && Put("gone", 0, "x") && Put("b", 0, "0123456789"));
    ResetDisk();
    BeginAction();
    EXPECT_TRUE(Put("a", 3, "+") && Put("made", 5000, "end") && DeleteFileAt(In("gone").c_str()));
    EXPECT_TRUE(Cut("b", 4) && Cut("b", 6) && MoveFileTo(In("made").c_str(), In("moved").c_str()));
    EXPECT_TRUE(CopyFileTo(In("b").c_str(), In("copy").c_str()));
    EXPECT_EQ(Get("a") + Get("b") + Get("copy"), std::string("old+0123\0\0"
                                                             "0123\0\0",
                                                             16));
    EXPECT_EQ(Get("moved").size(), 5003u);
    EXPECT_EQ(FileThere(In("made").c_str()) + FileThere(In("gone").c_str()), 0);
    std::string names;
    FileWalk walk;
    FindNames(&walk, Here, "");
    for (char name[64]; FindNextName(&walk, name, sizeof name);)
        names += name + std::string(" ");
    EndFind(&walk);
    EXPECT_EQ(names.size(), std::string("a b copy moved ").size()) << names;
    EXPECT_EQ(OnDisk("a") + OnDisk("gone"), "oldx") << "nothing before the commit";
    EXPECT_FALSE(SyncFiles());
    AbortAction();
    EXPECT_EQ(Get("a") + Get("b"), "old0123456789");

    BeginAction();
    EXPECT_TRUE(Put("a", 3, "+") && Put("a", 1, "L") && Put("made", 0, "m"));
    EXPECT_TRUE(MoveFileTo(In("b").c_str(), In("a2").c_str()));
    ResetDisk();
    EXPECT_TRUE(CommitAction());
    EXPECT_EQ(disk.Syncs, 1);
    EXPECT_EQ(OnDisk("a") + OnDisk("made") + OnDisk("a2"), "oLd+m0123456789");
    EXPECT_EQ(FileThere(In("b").c_str()), 0);
    ResetDisk();
    EXPECT_TRUE(AsAction([] { EXPECT_TRUE(Put("a", 1, "L")); }));
    EXPECT_EQ(disk.WriteCalls + disk.Syncs, 0) << "what changes nothing costs nothing";
}

TEST_F(Actions, AFailedReadIsNeverCommitted) {
    ASSERT_TRUE(Put("a", 0, "old"));
    for (int DiskSwitches::*kind : {&DiskSwitches::FailRead, &DiskSwitches::FailOpen}) {
        BeginAction();
        ResetDisk();
        disk.Switches.*kind = 1;
        char byte;
        const int file = OpenFile(In("a").c_str(), OpenExisting);
        EXPECT_TRUE(file == FailedOpen || ReadFileAt(file, 0, &byte, 1) == -1);
        ReleaseFile(file);
        ResetDisk();
        EXPECT_EQ(ActionRefused(), ReadRefused);
        EXPECT_TRUE(Put("b", 0, "decided")) << "goes on, and comes to nothing";
        EXPECT_FALSE(CommitAction());
        EXPECT_EQ(OnDisk("a") + OnDisk("b"), "old");
    }
    EXPECT_EQ(OpenFile(In("none").c_str(), OpenExisting), NoFile);
    EXPECT_EQ(ReadFileAt(NoFile, 0, nullptr, 5) + FileLength(NoFile), 0);
    EXPECT_EQ(ReadFileAt(FailedOpen, 0, nullptr, 5) + FileLength(FailedOpen), -2);
}

TEST_F(Actions, LargerThanTheMemoryGoThroughShadows) {
    const std::string large(20 << 20, 'l');
    std::string expected = large;
    ASSERT_TRUE(AsAction([&] { EXPECT_TRUE(Put("big", 0, large)); }));
    EXPECT_EQ(OnDisk("big"), large);
    const auto change = [&] {
        for (size_t at = 0; at < large.size(); at += 8192) {
            EXPECT_TRUE(Put("big", static_cast<int64_t>(at), "changed"));
            expected.replace(at, 7, "changed");
        }
        EXPECT_TRUE(Put("small", 0, "s"));
        EXPECT_TRUE(Get("big") == expected);
    };
    for (const bool done : {false, true}) {
        BeginAction();
        change();
        if (done)
            EXPECT_TRUE(CommitAction());
        else
            AbortAction();
        EXPECT_TRUE(OnDisk("big") == (done ? expected : large));
        EXPECT_EQ(OnDisk("small"), done ? "s" : "");
        EXPECT_EQ(Snapshot(Root.Path()).size(), done ? 2u : 1u) << "no shadow stays";
    }
}

TEST_F(Actions, AreTakenBackAndDoneAgain) {
    ASSERT_TRUE(AsAction([] { EXPECT_TRUE(Put("a", 0, "0123456789") && Put("b", 0, "bb")); }));
    std::vector<std::map<std::string, std::vector<uint8_t>>> states = {Snapshot(Root.Path())};
    const std::vector<void (*)()> days = {
        [] { EXPECT_TRUE(Put("a", 3, "three")); },
        [] { EXPECT_TRUE(Cut("a", 4) && Put("a", 6, "x")); },
        [] { EXPECT_TRUE(DeleteFileAt(In("b").c_str()) && Put("c", 0, "c")); },
        [] { EXPECT_TRUE(MoveFileTo(In("c").c_str(), In("a").c_str())); },
    };
    for (size_t n = 0; n < days.size(); ++n) {
        ASSERT_TRUE(AsAction([&] {
            NameAction(static_cast<int>(n) + 1);
            days[n]();
        }));
        states.push_back(Snapshot(Root.Path()));
    }
    for (int round = 0; round < 2; ++round) {
        for (size_t n = days.size(); n > 0; --n) {
            EXPECT_EQ(UndoLabel(), static_cast<int>(n));
            ASSERT_TRUE(UndoAction());
            EXPECT_EQ(Snapshot(Root.Path()), states[n - 1]);
        }
        for (size_t n = 1; n <= days.size(); ++n) {
            EXPECT_EQ(RedoLabel(), static_cast<int>(n));
            ASSERT_TRUE(AsAction([] { EXPECT_TRUE(RedoAction()); }));
            EXPECT_EQ(Snapshot(Root.Path()), states[n]);
        }
    }
    EXPECT_FALSE(RedoAction());
    ASSERT_TRUE(UndoAction());
    // What has no name lets the others stand, unless it changed the same.
    const int count = HistoryCount();
    for (const char *name : {"other", "b"}) {
        ASSERT_TRUE(Put(name, 0, "silent"));
        EXPECT_EQ(HistoryCount(), name[0] == 'o' ? count : 0);
    }
    for (int n = 0; n < 150; ++n)
        ASSERT_TRUE(AsAction([n] {
            NameAction(1);
            EXPECT_TRUE(Put("a", n, "."));
        }));
    EXPECT_EQ(HistoryCount(), 100);
}

TEST_F(Actions, AFailedSyncIsNotBelieved) {
    ASSERT_TRUE(Put("a", 0, "old") && SyncFiles());
    ResetDisk();
    disk.Switches.FailSync = 1;
    EXPECT_FALSE(Put("a", 0, "new"));
    EXPECT_EQ(OnDisk("a"), "old");
    ResetDisk();
    disk.Switches.FailSync = 1;
    disk.Switches.FailOnward = true;
    EXPECT_FALSE(Put("a", 0, "new"));
    EXPECT_FALSE(Put("b", 0, "new")) << "the journal is in doubt";
    ResetDisk();
    EXPECT_TRUE(Put("b", 0, "new"));
    EXPECT_EQ(OnDisk("a") + OnDisk("b"), "oldnew");
    EXPECT_TRUE(RecoverFiles());
    EXPECT_EQ(OnDisk("a") + OnDisk("b"), "oldnew");
}

TEST_F(Actions, DoneButUnwrittenOnesAreSeenAndCaughtUp) {
    ASSERT_TRUE(Put("a", 0, "old") && SyncFiles());
    ResetDisk();
    BeginAction();
    ASSERT_TRUE(Put("a", 0, "new"));
    disk.Switches.FailAt = 2; // behind the record: the file
    disk.Switches.FailOnward = true;
    EXPECT_TRUE(CommitAction());
    EXPECT_EQ(OnDisk("a"), "old");
    EXPECT_EQ(Get("a"), "new");
    EXPECT_FALSE(Put("b", 0, "x")) << "refused until the files are caught up";
    EXPECT_EQ(Get("a"), "new");
    ResetDisk();
    EXPECT_TRUE(Put("b", 0, "x"));
    EXPECT_EQ(OnDisk("a") + OnDisk("b"), "newx");
}
