// The whole program over damaged data: whatever stands in a file, it starts, shows, answers and leaves. The sanitizers
// watch; what was refused for its version is not touched.
#include "core/state.h"
#include "host/fuzz.h"
#include "host/hands.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

constexpr const char *DataFiles[] = {"E1_01IND", "E1_02A1",  "E1_02A2",  "E1_02R1",  "E1_03CON", "E1_04DD", "E1_05FAV",
                                     "E1_06BIN", "E1_07CAT", "E1_08CUR", "E1_09SST", "COL",      "E1_00NOT"};

// Every list is shown, scrolled, tapped, stroked; a form is opened in each and closed again by the cross.
void WalkAllScreens() {
    const auto work = [] {
        for (const int row : {1, 4, 7}) {
            const Point place = RowMiddle(row);
            Tap(place.X, place.Y);
            Drag(place.X, place.Y, place.X + 40, place.Y);
            DoubleTap(place.X, place.Y);
            SendCommand(40089);
        }
        Scroll(ScrollCode::PageDown);
        Scroll(ScrollCode::ThumbTrack, state.EntryCount[state.CurrentScreen] / 2);
        SendKey(Key::Up);
        SendKey(Key::Right);
        SendKey(Key::Left);
    };
    for (int page = 0; page < 2; ++page) {
        for (int slot = 1; slot <= 6; ++slot) {
            const Point tab = TabMiddle(slot);
            Tap(tab.X, tab.Y);
            work();
        }
        const Point other = TabMiddle(7);
        Tap(other.X, other.Y);
    }
    Tap(38, 30); // the arrows and the title of the header
    Tap(200, 30);
    Tap(120, 30);
}

class Damaged : public testing::Test {
protected:
    // A device with something in every file.
    Damaged() {
        SetClock(2026, 3, 2);
        EXPECT_TRUE(StartProgram());
        const Point account = RowMiddle(1), entry = RowMiddle(2);
        DoubleTap(account.X, account.Y);
        Tap(entry.X, entry.Y);
        SendCommand(40098); // one for the bin
        SendCommand(40097); // and what is left above for the archive
        QuitProgram();
        good = Snapshot(root.Path());
    }
    void Restore() {
        for (const auto &[name, bytes] : good)
            WriteBytes(root.Path() + "/" + name, bytes);
    }
    const std::vector<uint8_t> &Good(const char *name) {
        return good[std::string("Program Files/Zentrik/E1_Data/") + name];
    }
    void Run(const char *name, const std::vector<uint8_t> &bytes) {
        Restore();
        WriteBytes(root.DataFile(name), bytes);
        const std::string data = root.HostPath("\\Program Files");
        const auto files = Snapshot(data);
        ASSERT_TRUE(StartProgram());
        const bool refused = !state.DataUsable;
        WalkAllScreens();
        QuitProgram();
        EXPECT_FALSE(ProgramRuns());
        EXPECT_EQ(disk.OpenHandles, 0);
        if (refused) {
            EXPECT_TRUE(Snapshot(data) == files) << "refused data are not touched";
        }
    }

    TestRoot root;
    std::map<std::string, std::vector<uint8_t>> good;
};

} // namespace

TEST_F(Damaged, RandomBytesInAnyFileAreSurvived) {
    for (const char *name : DataFiles)
        for (const uint64_t seed : FuzzSeeds(3)) {
            SCOPED_TRACE(std::string(name) + " seed " + std::to_string(seed));
            std::vector<uint8_t> bytes = FuzzBytes(seed, 6000);
            Run(name, bytes);
            if (!bytes.empty()) {
                bytes[0] = 1; // past the test of the version
                Run(name, bytes);
            }
        }
}

TEST_F(Damaged, DamagedRecordsInAnyFileAreSurvived) {
    for (const char *name : DataFiles)
        for (const uint64_t seed : FuzzSeeds(8)) {
            SCOPED_TRACE(std::string(name) + " seed " + std::to_string(seed));
            Run(name, DamagedBytes(seed, Good(name)));
        }
}

TEST_F(Damaged, AFileCutAtAnyLengthIsSurvived) {
    for (const char *name : DataFiles) {
        const std::vector<uint8_t> &whole = Good(name);
        for (size_t length = 0; length < whole.size(); length += whole.size() / 5 + 1) {
            SCOPED_TRACE(std::string(name) + " cut at " + std::to_string(length));
            Run(name, {whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
        }
    }
}
