// The front page and About: what ends them, what they leave, and the movie that runs on them.
#include "device.h"
#include "platform/shell.h"
#include "program/door.h"
#include "resources/art.h"
#include "screens/movie.h"
#include <set>

namespace {

const Point OnPage = {120, 150}, OnTracker = {226, 26 + 225};

bool PageShows() {
    return machine.Shown[HostWindow] && ImageAt(HostWindow, 5, 250) == FrontBanner;
}

// Ways to end a page. The events go in before the movie has drawn its first frame.
struct Ending {
    const char *Name;
    Event What;
    bool EndsFront, EndsAbout;
};
constexpr Event KeyEvent(Key key) {
    return {.Kind = EventKind::Key, .Code = static_cast<int>(key)};
}
constexpr Event CommandEvent(int id) {
    return {.Kind = EventKind::Command, .Code = id};
}
// clang-format off
constexpr Ending Endings[] = {
    {"tap",          {.Kind = EventKind::PointerDown, .Where = HostWindow, .X = 120, .Y = 120}, true,  true},
    {"double tap",   {.Kind = EventKind::DoubleTap, .Where = HostWindow, .X = 3, .Y = 240},     true,  true},
    {"tracker",      {.Kind = EventKind::PointerDown, .Where = HostWindow, .X = 226, .Y = 240}, false, false},
    {"move",         {.Kind = EventKind::PointerMove, .Where = HostWindow, .X = 120, .Y = 120}, false, false},
    {"release",      {.Kind = EventKind::PointerUp, .Where = HostWindow, .X = 120, .Y = 120},   false, false},
    {"Escape",       KeyEvent(Key::Escape),         true,  true},
    {"digit",        KeyEvent(Key::Digit5),         true,  true},
    {"Enter",        KeyEvent(Key::Enter),          true,  false},
    {"Up",           KeyEvent(Key::Up),             false, false},
    {"Down",         KeyEvent(Key::Down),           false, false},
    {"cross",        CommandEvent(CommandCross),    true,  true},
    {"eyes",         CommandEvent(CommandLeftEye),  false, false},
    {"New",          CommandEvent(CommandNew),      false, false},
    {"another About", CommandEvent(CommandAbout),   false, false},
    {"paint",        {.Kind = EventKind::Paint},    false, false},
};
// clang-format on

TEST(FrontPage, FirstInputEndsItAtOnceAndTheFirstScreenStands) {
    for (const Ending &ending : Endings) {
        TestRoot root;
        ResetHost();
        ASSERT_EQ(WinMain(), 1);
        ASSERT_TRUE(PageShows()) << ending.Name;
        EXPECT_EQ(state.EntryCount[AccountList], 0) << "data were read behind the page";
        HandleEvent(ending.What);
        EXPECT_EQ(!machine.Shown[HostWindow], ending.EndsFront) << ending.Name;
        EXPECT_EQ(state.MovieRunning, ending.EndsFront ? 0u : 1u) << ending.Name;
        EXPECT_EQ(state.FrontPageDone, ending.EndsFront ? 1u : 0u) << ending.Name;
        Settle();
        if (ending.EndsFront) {
            EXPECT_EQ(IdleStep(), 0) << ending.Name;
            EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00") << ending.Name;
            EXPECT_EQ(Line(1), "Tap an item on the screen") << ending.Name;
        }
    }
}

TEST(FrontPage, AboutComesBackToTheScreenItCameFrom) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    for (const int screen : {+AccountList, +TransactionList, +BinList})
        for (const Ending &ending : Endings) {
            if (screen != AccountList && &ending != Endings)
                break; // one way is enough on the others
            ShowScreen(screen);
            const std::string shown = TextAt(ListWindow, Row(1)), lines = Lines();
            ASSERT_TRUE(SendCommand(CommandAbout));
            ASSERT_TRUE(PageShows()) << ending.Name;
            HandleEvent(ending.What);
            EXPECT_EQ(!machine.Shown[HostWindow], ending.EndsAbout) << ending.Name;
            HandleEvent(CommandEvent(CommandCross));
            if (!ending.EndsAbout) {
                EXPECT_FALSE(machine.Shown[HostWindow]) << ending.Name;
            } else {
                HandleEvent(CommandEvent(CommandLeftEye)); // the cross went to help mode
            }
            Settle();
            EXPECT_EQ(state.CurrentScreen, screen);
            EXPECT_EQ(TextAt(ListWindow, Row(1)), shown) << ending.Name;
            EXPECT_EQ(IdleStep(), 0);
        }
}

TEST(FrontPage, TheSettingLeavesItOut) {
    TestRoot root;
    ASSERT_TRUE(StartProgram());
    SendCommand(CommandGeneral);
    ASSERT_TRUE(Check(FrontPageCheck, false));
    SendCommand(CommandTick);
    QuitProgram();
    ASSERT_TRUE(StartWithPage());
    EXPECT_FALSE(machine.Shown[HostWindow]);
    EXPECT_EQ(IdleStep(), 0);
    EXPECT_EQ(TextAt(ListWindow, Row(1)), "Current account | 516.00");
}

TEST(FrontPage, SpeedOfTheTrackerIsKeptAndStaysWithinItsBounds) {
    TestRoot root;
    ASSERT_TRUE(StartWithPage());
    EXPECT_EQ(state.MovieSpeed, 20);
    SendEvent(KeyEvent(Key::Up));
    EXPECT_EQ(state.MovieSpeed, 25);
    Press(OnTracker.X, OnTracker.Y); // near the top
    EXPECT_EQ(state.MovieSpeed, 45);
    Move(OnTracker.X, 292);
    EXPECT_EQ(state.MovieSpeed, 0);
    Move(OnTracker.X, 30);
    EXPECT_EQ(state.MovieSpeed, 45);
    Release(OnPage.X, OnPage.Y); // a stylus that slips off the tracker ends nothing
    EXPECT_TRUE(PageShows());
    for (int n = 0; n < 12; ++n)
        SendEvent(KeyEvent(Key::Down));
    EXPECT_EQ(state.MovieSpeed, 0);
    SendEvent(KeyEvent(Key::Up));
    QuitProgram(); // from the page itself: no data have been touched
    EXPECT_FALSE(ProgramRuns());
    ASSERT_TRUE(StartProgram());
    EXPECT_EQ(state.MovieSpeed, 5);
    EXPECT_EQ(state.EntryCount[AccountList], 3);
}

// Plays to the end: the page rests as it was first painted, whatever the scenes put on it, and nothing wants to run.
TEST(FrontPage, MovieComesToRestAndLeavesNothingOnThePage) {
    TestRoot root;
    ResetHost();
    ASSERT_EQ(WinMain(), 1);
    Settle();
    std::set<int> images;
    std::set<std::string> letters;
    int steps = 0;
    for (; IdleStep() && steps < 10000; ++steps) {
        if (steps % 7)
            continue;
        for (const StandingImage &image : ImagesOn(HostWindow))
            images.insert(image.Id);
        for (const StandingText &text : TextsOn(HostWindow))
            letters.insert(text.Words);
    }
    EXPECT_LT(steps, 10000);
    EXPECT_EQ(IdleStep(), 0);
    EXPECT_TRUE(images.count(MoviePicture));
    EXPECT_TRUE(letters.count("Y") && letters.count("v"));
    for (const StandingImage &image : ImagesOn(HostWindow))
        EXPECT_NE(image.Id, MoviePicture) << "a tile was left";
    for (const StandingText &text : TextsOn(HostWindow))
        EXPECT_EQ(text.Words.substr(0, 7), "Version") << "a letter was left";
    for (int x = 70; x < 170; x += 5)
        EXPECT_EQ(ImageAt(HostWindow, x, 94), FrontGround) << "a blade was left";
    SendEvent(KeyEvent(Key::Up)); // plays on
    EXPECT_EQ(state.MovieRunning, 1u);
}

} // namespace
