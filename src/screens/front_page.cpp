#include "screens/front_page.h"
#include "drawing/colours.h"
#include "frame/message_window.h"
#include "platform/shell.h"
#include "platform/text.h"
#include "resources/art.h"
#include "resources/geometry.h"
#include "resources/menus.h"
#include "resources/version.h"
#include "screens/movie.h"
#include "state/state.h"
#include <algorithm>

namespace {

constexpr int PageBottom = BarTop - TitleHeight;
constexpr Rect WholePage = {0, 0, ScreenWidth, PageBottom};
constexpr Colour VersionInk = Rgb(185, 196, 228);

constexpr int TrackX = 226, KnobWidth = 16, KnobHeight = 7;
constexpr int TrackTop = TrackerBox.Top + 1; // the knob's middle at the fastest; a pixel is a unit
constexpr Colour TrackDark = Rgb(10, 14, 28), TrackLight = Rgb(70, 92, 150);

// The part of an image that stands at `place`, within a box.
void DrawPart(int image, const Rect &place, const Rect &box) {
    const Rect shown = {std::max(box.Left, place.Left), std::max(box.Top, place.Top), std::min(box.Right, place.Right),
                        std::min(box.Bottom, place.Bottom)};
    if (shown.Left < shown.Right && shown.Top < shown.Bottom)
        CopyImage(HostWindow, {shown.Left, shown.Top}, image,
                  {shown.Left - place.Left, shown.Top - place.Top, shown.Right - place.Left, shown.Bottom - place.Top});
}

void SetSpeed(int speed) {
    state.MovieSpeed = std::clamp(speed / MovieSpeedStep * MovieSpeedStep, 0, FastestMovie);
    DrawTracker();
    StartMovie(); // also one that had come to rest
}

void OpenPage(Page page) {
    state.PageShown = page;
    state.TrackerHeld = 0;
    DrawWholePage();
    ShowWindow(HostWindow, 1);
    StartMovie();
}

void ClosePage() {
    const Page page = state.PageShown;
    StopMovie();
    state.PageShown = Page::None;
    ShowWindow(HostWindow, 0);
    if (page == Page::Front)
        state.Next = NextStep::LeaveFrontPage;
}

void SpeedUnder(int y) {
    SetSpeed(TrackTop + FastestMovie - y + MovieSpeedStep / 2);
}

void Press(const Event &event) {
    state.TrackerHeld = event.Where == HostWindow && Inside(TrackerBox, event.X, event.Y);
    if (state.TrackerHeld)
        SpeedUnder(event.Y);
    else
        ClosePage();
}

void PressKey(Key key) {
    const bool about = state.PageShown == Page::About;
    if (key == Key::Up || key == Key::Down)
        SetSpeed(state.MovieSpeed + (key == Key::Up ? MovieSpeedStep : -MovieSpeedStep));
    else if (!about || (key != Key::Enter && key != Key::Help))
        ClosePage();
}

// 0 for what leaves the program: the commands hear it.
int Command(int id) {
    if (id == CommandExit || id == CommandClose || id == CommandOk)
        return 0;
    if (id == CommandCross || id == CommandTick)
        ClosePage();
    else if (id != CommandLeftEye && id != CommandRightEye)
        Beep();
    return 1;
}

} // namespace

void OpenFrontPage() {
    OpenPage(Page::Front);
}

void OpenAbout() {
    if (state.HubState != 0)
        LeaveHelpOrHub(CommandHub); // it lies in the same place
    OpenPage(Page::About);
}

int HandlePageEvent(const Event &event) {
    if (state.PageShown == Page::None)
        return 0;
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        Press(event);
        return 1;
    case EventKind::PointerMove:
        if (state.TrackerHeld)
            SpeedUnder(event.Y);
        return 1;
    case EventKind::PointerUp:
        state.TrackerHeld = 0;
        return 1;
    case EventKind::Key:
        PressKey(static_cast<Key>(event.Code));
        return 1;
    case EventKind::Command:
        return Command(event.Code);
    case EventKind::Paint:
        DrawWholePage();
        RepaintMovie();
        return 1;
    case EventKind::Close:
        return 0;
    default:
        return 1;
    }
}

void DrawWholePage() {
    char16_t version[32] = u"Version ";
    DrawPage(WholePage);
    AppendAscii(version, 32, ProgramVersion);
    PaintText(HostWindow, version, VersionBox, Align::Right, Font::Normal, VersionInk);
    DrawTracker();
}

void DrawPage(const Rect &box) {
    DrawPart(FrontGround, {0, 0, ScreenWidth + 1, 300}, box);
    DrawPart(FrontBanner, BannerBox, box);
}

void DrawTracker() {
    DrawPage(TrackerBox);
    FillRect(HostWindow, {TrackX - 2, TrackTop, TrackX + 2, TrackTop + FastestMovie}, TrackDark);
    FillRect(HostWindow, {TrackX - 1, TrackTop + FastestMovie - state.MovieSpeed, TrackX + 1, TrackTop + FastestMovie},
             TrackLight);
    const int knob = std::clamp(TrackTop + FastestMovie - state.MovieSpeed - KnobHeight / 2, TrackerBox.Top,
                                TrackerBox.Bottom - KnobHeight);
    CopyImage(HostWindow, {TrackX - KnobWidth / 2, knob}, TrackerKnob, {0, 0, KnobWidth, KnobHeight});
}
