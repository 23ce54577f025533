// The whole program over damaged data: whatever stands in a file, it starts, shows, answers and leaves. The sanitizers
// watch; what was refused for its version is not touched.
#include "frame/form.h"
#include "host/fuzz.h"
#include "host/hands.h"
#include "resources/menus.h"
#include "state/state.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

constexpr const char *DataFiles[] = {"E1_01IND", "E1_02A1",  "E1_02A2",  "E1_02R1",  "E1_03CON", "E1_04DD", "E1_05FAV",
                                     "E1_06BIN", "E1_07CAT", "E1_08CUR", "E1_09SST", "COL",      "E1_00NOT"};

// Every list is shown, scrolled, tapped, stroked, filtered; a form is opened in each and closed again by the cross.
void WalkAllScreens() {
    for (int screen = 1; screen <= 8; ++screen) {
        ShowScreen(screen);
        for (const int row : {1, 2, 4, 7}) {
            TapRow(row);
            StrokeRow(row);
            OpenRow(row);
            SendCommand(CommandCross);
        }
        for (const Point title : {Point{38, 30}, {200, 30}, {120, 30}, {156, 50}, {80, 50}})
            Tap(title.X, title.Y);
        for (const int command : {CommandInsertDay, ShowMonth, CommandFilterOff})
            SendCommand(command);
        Scroll(ScrollCode::PageDown);
        Scroll(ScrollCode::ThumbTrack, state.EntryCount[state.CurrentScreen] / 2);
        for (const Key key : {Key::Up, Key::Right, Key::Left})
            SendKey(key);
    }
}

// The category form leads to it and is not there meanwhile.
void WorkThePalette() {
    for (const Point spot : {Point{10, 35}, {136, 80}, {210, 90}, {100, 145}, {160, 195}, {160, 195}})
        Tap(spot.X, spot.Y);
    SendCommand(CommandTick);
}

void WorkTheForm() {
    bool palette = false; // once is enough, it is a whole screen
    for (int y = 0; y < 190 && state.OpenedForm; y += 12)
        for (int x = 3; x < 240 && state.OpenedForm; x += 24) {
            if (palette && DialogItemAtPos(x, y) == ColourItem)
                continue;
            Tap(x, 26 + y);
            if (state.ActiveDialog == PaletteDialog) {
                WorkThePalette();
                palette = true;
            }
        }
    for (const int id : std::vector<int>(form.Order)) {
        Choose(id, ControlItemCount(id) - 1);
        SetText(id, "7");
    }
}

// Files of records, and how much at the head of each stays when the rest is noise: the version, or the data would be
// refused; an account's ID too, or its entries would never be seen.
constexpr struct Records {
    const char *Name;
    size_t Bytes, Intact;
    int Screen;
} RecordFiles[] = {
    {"E1_01IND", 728, 72, AccountList},
    {"E1_02A1", 608, 1, TransactionList},
    {"E1_02A2", 608, 1, 0},
    {"E1_02R1", 608, 1, 0},
    {"E1_04DD", 728, 1, RecurringList},
    {"E1_05FAV", 536, 1, TemplateList},
    {"E1_06BIN", 1064, 1, 0},
    {"E1_07CAT", 520, 1, CategoryList},
    {"E1_08CUR", 584, 1, ConversionList},
};

class Damaged : public testing::Test {
protected:
    // A device with something in every file.
    Damaged() {
        SetClock(2026, 3, 2);
        EXPECT_TRUE(StartProgram());
        OpenRow(1);
        TapRow(2);
        SendCommand(CommandDeleteOne); // one for the bin
        SendCommand(CommandArchive);   // and what is left above for the archive
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
    // Of a record: any bytes but the version.
    std::vector<uint8_t> Noise(Dice &dice, const Records &file) {
        std::vector<uint8_t> bytes = Good(file.Name);
        for (size_t n = 0; n < bytes.size(); ++n)
            if (n % file.Bytes >= file.Intact && dice.Below(3) < 2)
                bytes[n] = static_cast<uint8_t>(dice.Next());
        return bytes;
    }
    void Run(const char *name, const std::vector<uint8_t> &bytes) {
        Restore();
        WriteBytes(root.DataFile(name), bytes);
        Run();
    }
    void Run() {
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

TEST_F(Damaged, NoiseInAllRecordsIsSurvived) {
    for (const uint64_t seed : FuzzSeeds(6)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Restore();
        for (const Records &file : RecordFiles)
            WriteBytes(root.DataFile(file.Name), Noise(dice, file));
        Run();
    }
}

TEST_F(Damaged, FormsOverNoiseOpenAnswerEveryTapAndClose) {
    int opened = 0;
    for (const uint64_t seed : FuzzSeeds(2)) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        for (const Records &file : RecordFiles) {
            if (!file.Screen)
                continue;
            Restore();
            ASSERT_TRUE(StartProgram());
            WriteBytes(root.DataFile(file.Name), Noise(dice, file));
            for (int turn = 0; turn < 6; ++turn) {
                ShowScreen(file.Screen);
                state.SelectedPos[file.Screen] = turn / 2 + 1;
                SendCommand(CommandModify);
                opened += state.OpenedForm != nullptr;
                WorkTheForm();
                if (turn % 2)
                    SendCommand(CommandTick);
                if (state.OpenedForm) // not opened, crossed out, or its tick refused
                    SendCommand(CommandCross);
                ASSERT_EQ(state.ActiveDialog, NoDialog);
                if (state.HelpMode)
                    SendCommand(CommandLeftEye);
            }
            QuitProgram();
        }
    }
    EXPECT_GT(opened, 40);
}
