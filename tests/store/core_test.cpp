// What the owner is told and may choose.
#include "host/test_host.h"
#include "platform/files.h"
#include "state/error_log.h"
#include "state/greys.h"
#include "state/messages.h"
#include "state/state.h"
#include <gtest/gtest.h>

using namespace testhost;

namespace {

// What SetGreys does to an item on the screens 0 to 8: E enabled, - grey, . left as it was.
std::string GreysOf(int id) {
    int row = 0;
    while (row < MenuRows && Menu[row].Id != id)
        ++row;
    std::string greys;
    for (int screen = 0; screen <= ScreenCount; ++screen) {
        uint8_t after[2];
        for (const bool before : {false, true}) {
            state.ItemEnabled[row] = before;
            SetGreys(screen);
            after[before] = state.ItemEnabled[row];
            EXPECT_EQ(MenuItemEnabled(id), int{after[before]});
            EXPECT_EQ(machine.Enabled[id], after[before] != 0);
        }
        greys += after[0] != after[1] ? '.' : after[0] ? 'E' : '-';
    }
    return greys;
}

constexpr auto Plain = [] {};
constexpr auto InArchive = [] { state.ArchiveView = 1; };
constexpr auto Filtered = [] { state.FilterView = 1; };
constexpr auto OnList = [] { state.AccountKind = ListAccount; };
constexpr auto OnShares = [] { state.AccountKind = ShareNumber; };
constexpr auto AsGraph = [] { state.GraphMode = 1; };
constexpr auto AsRegression = [] { state.GraphMode = 2; };
constexpr auto AsExtrapolation = [] { state.GraphMode = 3; };
constexpr auto AsBars = [] { state.GraphMode = 4; };
constexpr auto AsPies = [] { state.GraphMode = 5; };
constexpr auto WithKey = [] { state.PasswordOn = 1; };
constexpr auto WithDialog = [] { state.ActiveDialog = TransactionDialog; };
constexpr auto WithHub = [] { state.HubState = 1; };
constexpr auto WithoutData = [] { state.DataUsable = 0; };

} // namespace

TEST(Menus, OfferWhatTheScreenCanDo) {
    const TestRoot root;
    static const struct {
        void (*Set)();
        int Id;
        const char *Expected;
    } cases[] = {
        // clang-format off
        //                                         012345678     condition        item                      012345678
        {Plain,           CommandNotepad,         "-EEEEEEEE"}, {Plain,           ConfigPopup,            "-EEEEEEEE"},
        {Plain,           CommandGeneral,         ".EEEEEEEE"}, {Plain,           CommandAlign,           ".-E------"},
        {Plain,           PasswordPopup,          "-EEEEEEEE"}, {Plain,           CommandPasswordOn,      "EEEEEEEEE"},
        {Plain,           CommandPasswordOff,     "---------"}, {Plain,           JeopardyPopup,          "-EEE-----"},
        {Plain,           CommandJeopardyOn,      "........."}, {Plain,           FilterPopup,            "--EE-----"},
        {Plain,           ShowOnlyPopup,          "..EE....."}, {Plain,           ShowEntry,              "...E....."},
        {Plain,           ExcludeEntry,           "..EE....."}, {Plain,           CommandFilterOff,       "........."},
        {Plain,           InsertPopup,            "-EE------"}, {Plain,           CommandInsertDay,       ".-E......"},
        {Plain,           CommandInsertReconcile, ".-E......"}, {Plain,           CommandInsertTotal,     ".E-......"},
        {Plain,           CommandModify,          "-EE-EE-EE"}, {Plain,           DeletePopup,            "-EE-EEEEE"},
        {Plain,           CommandDeleteOne,       "........."}, {Plain,           CommandEmptyBin,        "EEEEEEEEE"},
        {Plain,           CommandAbout,           "-EEEEEEEE"}, {Plain,           CommandExport,          "--E------"},
        {Plain,           CommandImport,          "--E------"}, {Plain,           CommandBackup,          "-EEEEEEEE"},
        {Plain,           CommandRestore,         "-EEEEEEEE"}, {Plain,           ArchivePopup,           "--E------"},
        {Plain,           UnarchivePopup,         "---------"}, {Plain,           CommandExit,            "-EEEEEEEE"},
        {InArchive,       InsertPopup,            "-E-------"}, {InArchive,       CommandImport,          "---------"},
        {InArchive,       ArchivePopup,           "---------"}, {InArchive,       UnarchivePopup,         "--E------"},
        {InArchive,       CommandInsertDay,       ".-......."}, {InArchive,       CommandInsertReconcile, ".-......."},
        {InArchive,       CommandInsertTotal,     ".E......."}, {InArchive,       CommandExport,          "--E------"},
        {Filtered,        InsertPopup,            "-E-------"}, {Filtered,        DeletePopup,            "-E--EEEEE"},
        {Filtered,        CommandImport,          "---------"}, {Filtered,        ArchivePopup,           "---------"},
        {Filtered,        FilterPopup,            "-.EE....."}, {Filtered,        ShowOnlyPopup,          ".-EE-----"},
        {Filtered,        ExcludePopup,           ".-EE-----"}, {OnList,          ShowDate,               "..--....."},
        {OnList,          ShowMonth,              "..--....."}, {OnList,          ExcludeYear,            "..--....."},
        {OnList,          ShowName,               "..EE....."}, {OnList,          CommandInsertReconcile, ".--......"},
        {OnShares,        CommandInsertReconcile, ".--......"}, {OnShares,        ShowDate,               "..EE....."},
        {AsGraph,         CommandModify,          "-EEEEE-EE"}, {AsGraph,         DeletePopup,            "-EEEEEEEE"},
        {AsRegression,    CommandExport,          "--EE-----"}, {AsRegression,    CommandImport,          "--EE-----"},
        {AsRegression,    ArchivePopup,           "--EE-----"}, {AsExtrapolation, CommandModify,          "-EE-EE-EE"},
        {AsExtrapolation, ShowOnlyPopup,          "..E-....."}, {AsExtrapolation, ExcludePopup,           "..E-....."},
        {AsBars,          ExcludeFlag,            "..E-....."}, {AsPies,          ShowYear,               "..E-....."},
        {AsPies,          ExcludeFollowing,       "..E-....."}, {AsPies,          ExcludeEntry,           "..EE....."},
        {AsPies,          ShowEntry,              "...E....."}, {WithKey,         CommandPasswordOff,     "EEEEEEEEE"},
        {WithDialog,      CommandExit,            "---------"}, {WithDialog,      CommandPasswordOn,      "EEEEEEEEE"},
        {WithDialog,      CommandEmptyBin,        "EEEEEEEEE"}, {WithDialog,      CommandGeneral,         "........."},
        {WithHub,         CommandModify,          "---------"}, {WithoutData,     CommandEmptyBin,        "---------"},
        {WithoutData,     CommandExit,            "---------"},
        // clang-format on
    };
    for (const auto &c : cases) {
        ResetState();
        c.Set();
        EXPECT_EQ(GreysOf(c.Id), c.Expected) << "item " << c.Id << ", case " << &c - cases;
    }
    ResetState();
    SetGreys(TransactionList);
    EXPECT_TRUE(MenuItemEnabled(CommandDeleteOne)) << "what is never greyed can be chosen from the start";
    EXPECT_FALSE(MenuItemEnabled(12345));
}

namespace {

int Paints;
void CountPaint(Window, int) {
    ++Paints;
}

} // namespace

TEST(Messages, AreRememberedAndPaintedOnlyWhenNew) {
    const TestRoot root;
    LoadHelp();
    EXPECT_EQ(Utf8(MessageText(278)), "A % depreciation/appreciation");
    EXPECT_EQ(Utf8(MessageText(100)), "Value = price × number");
    for (const int blank : {-3, 0, 30, 62, 455, LastMessage + 1, 100000})
        EXPECT_EQ(Utf8(MessageText(blank)), "") << blank;

    ShowHelp(Help::TapAnItem);
    EXPECT_EQ(Lines(), "/Tap an item on the screen/for information on that item///");
    state.HelpMode = 1;
    ShowHelp(Help::BackToAccounts); // no screen exists yet
    state.Paint[0] = CountPaint;
    Paints = 0;
    ShowHelp(Help::BackToAccounts);
    EXPECT_EQ(Paints, 0);
    ShowHelpMessage(0, 0, 0, 122, 7, 0, 0, 0);
    EXPECT_EQ(Paints, 1) << "the alignment differs";
    RepeatHelp();
    EXPECT_EQ(Paints, 2) << "forced";
    EXPECT_EQ(state.MessageAlign, 0) << "repeated as it was";
    ForceHelp(Help::BackToAccounts);
    ForceHelp(Help::BackToAccounts);
    EXPECT_EQ(Paints, 4);
    ShowHelpMessage(1, 0, -1, -6, 0, 0, 0, 0);
    EXPECT_EQ(state.MessageLine[1], -6);
    state.HelpMode = 0;
    ShowHelp(Help::Transaction, AddedLine::InJeopardy);
    EXPECT_EQ(Paints, 5);
    EXPECT_EQ(state.MessageLine[1], 291);
    ShowHelp(Help::Transaction);
    EXPECT_EQ(state.MessageLine[1], 0);
    state.DataUsable = 0;
    ShowHelpMessage(0, 0, 6, 7, 0, 0, 0, 0);
    EXPECT_EQ(
        Lines(),
        "Warning!//Wrong (future) version data/Can't use xx_Data directory//To exit Help mode, tap the eyes below");
    EXPECT_EQ(state.MessageAlign, 1);
}

// Names can't stand twice, nor can sets: neither would compile.
TEST(HelpSets, SayOnlyWhatHasAText) {
    LoadHelp();
    for (const HelpSet &set : HelpSets) {
        int added = 0;
        for (const int16_t id : set.Line) {
            added += id == AddedHere;
            EXPECT_TRUE(id == 0 || id == AddedHere || *MessageText(id)) << set.Name << ": " << id;
        }
        EXPECT_LE(added, 1) << set.Name;
    }
    for (const AddedLine line :
         {AddedLine::CannotBeModified, AddedLine::ValueTooBig, AddedLine::CashAddsNoShares, AddedLine::BalanceTooBig,
          AddedLine::ManyEntries, AddedLine::TotalsOfToday, AddedLine::AccountMissing, AddedLine::BalanceMayChange,
          AddedLine::RegressionBasis, AddedLine::InJeopardy, AddedLine::Filtered})
        EXPECT_TRUE(*MessageText(static_cast<int>(line))) << static_cast<int>(line);
    EXPECT_STREQ(HelpSets[static_cast<int>(Help::FilterOff)].Name, "FilterOff");
}

TEST(ErrorLog, KeepsALineForEachTroubleAndNeverStandsInTheWay) {
    const TestRoot root;
    SetClock(2026, 3, 2, 9, 30);
    EXPECT_EQ(ReportError(In::AddRecFile, Trouble::TwriteFail), 1); // no directory: the line is lost
    EXPECT_EQ(machine.Beeps, 1);
    ASSERT_EQ(machine.Terminal.size(), 1u);
    EXPECT_TRUE(Snapshot(root.Path()).empty());

    ASSERT_TRUE(MakeDirectory("\\Program Files") && MakeDirectory("\\Program Files\\Zentrik") &&
                MakeDirectory("\\Program Files\\Zentrik\\Data"));
    ReportError(In::CloseHandle, Trouble::Closure);
    ReportError(static_cast<In>(15), Trouble::CaseError);
    ReportError(static_cast<In>(255), static_cast<Trouble>(0));
    const std::vector<uint8_t> log = ReadBytes(root.HostPath("\\Program Files\\Zentrik\\Data\\ZentErrorLog.txt"));
    EXPECT_EQ(std::string(log.begin(), log.end()),
              "02/03/2026 09:30 CloseHandle Closure\n02/03/2026 09:30  caseError\n02/03/2026 09:30  \n");
    EXPECT_EQ(machine.Beeps, 4);

    TraceWide(u"Dépôt of a name that is longer than can be traced");
    TraceNarrow(std::string(500, 'x').c_str());
    const std::vector<uint8_t> trace = ReadBytes(root.HostPath("\\AAAtrace.txt"));
    EXPECT_EQ(std::string(trace.begin(), trace.begin() + 40), "<Dépôt of a name that is longer t>\n<xx");
    EXPECT_EQ(trace.size(), 37u + 159u);
    EXPECT_EQ(disk.OpenHandles, 0);
}

TEST(Files, ReachTheDiskAndNeverHalf) {
    const TestRoot root;
    const int file = OpenFile("\\a.txt", OpenOrCreate);
    ASSERT_TRUE(WriteFileAt(file, 0, "0123456789", 10));
    EXPECT_TRUE(ReleaseFile(file));
    EXPECT_FALSE(ReleaseFile(file));
    char text[16] = {};
    EXPECT_EQ(ReadFileAt(file, 0, text, 4), -1) << "the handle is closed";
    EXPECT_EQ(ReadFileAt(NoFile, 0, text, 4), 0) << "a missing file is an empty one";
    EXPECT_FALSE(WriteFileAt(-1, 0, "x", 1));
    EXPECT_EQ(OpenFile("\\b.txt", OpenExisting), NoFile);
    EXPECT_EQ(OpenFile(("\\" + std::string(300, 'n')).c_str(), OpenOrCreate), FailedOpen);

    WriteBytes(root.HostPath("\\b.txt"), {'o', 'l', 'd'});
    const auto before = Snapshot(root.Path());
    for (int n = 1;; ++n) {
        ResetDisk();
        disk.Switches.FailAt = n;
        disk.Switches.TearWrite = true;
        const int copied = CopyFileTo("\\a.txt", "\\b.txt");
        if (copied)
            break;
        EXPECT_EQ(Snapshot(root.Path()), before) << "failing at " << n;
    }
    EXPECT_EQ(ReadBytes(root.HostPath("\\b.txt")).size(), 10u);
    EXPECT_EQ(disk.OpenHandles, 0);

    ResetDisk();
    for (int i = 0; i < 40; ++i)
        WriteBytes(root.HostPath("\\f" + std::to_string(i)), {'x'});
    FileWalk walk;
    FindNames(&walk, "\\", "f1");
    int found = 0;
    for (char name[64]; FindNextName(&walk, name, sizeof name); ++found)
        EXPECT_TRUE(DeleteFileAt(name));
    EndFind(&walk);
    EXPECT_EQ(found, 11); // f1, f10 to f19
    FindNames(&walk, "\\nowhere", "");
    EXPECT_FALSE(FindNextName(&walk, text, sizeof text));
    EndFind(&walk);
}
