#include "frame/command_bar.h"
#include "platform/shell.h"
#include "resources/art.h"
#include "state/error_log.h"
#include "state/greys.h"
#include "state/state.h"
#include "store/catalogue.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <numbers>

namespace {

// clang-format off
constexpr BarButton Buttons[] = {
    // kind               command          text      image       cell  name
    {BarKind::Button,    CommandNew,      u"New ",  0,          0,    u"New"},
    {BarKind::Popup,     EditPopup,       u"Edit ", 0,          0,    u"Edit"},
    {BarKind::Popup,     ToolsPopup,      nullptr,  ToolsImage, 0,    u"Tools"},
    {BarKind::Image,     CommandCross,    nullptr,  CrossImage, 0,    u"Cross"},
    {BarKind::Image,     CommandTick,     nullptr,  TickImage,  0,    u"Tick"},
    {BarKind::Image,     CommandHub,      nullptr,  BarSheet,   11,   u"Hub"},
    {BarKind::Separator, 0,               nullptr,  0,          0,    nullptr},
    {BarKind::Image,     CommandLeftEye,  nullptr,  BarSheet,   9,    u"Help"},
    {BarKind::Image,     CommandRightEye, nullptr,  BarSheet,   9,    u"Help"},
    {BarKind::Separator, 0,               nullptr,  0,          0,    nullptr},
};

struct EyeLine { // where a window sees the eyes
    Window Where;
    int Y;
};
constexpr EyeLine EyeLines[] = {{HostWindow, 271}, {TopWindow, 245}, {HubWindow, 245}, {ListWindow, 235}};
// clang-format on

constexpr int LeftEyeX = 140, RightEyeX = 160;
constexpr int Lift = 4; // a point at the eyes' height or below is taken this much higher
constexpr int FlatHubCell = 12;

void ShowBar() {
    BarButton buttons[std::size(Buttons)];
    std::copy(std::begin(Buttons), std::end(Buttons), buttons);
    for (BarButton &button : buttons) {
        if (button.Command == CommandLeftEye)
            button.Cell = state.LeftEye;
        else if (button.Command == CommandRightEye)
            button.Cell = state.RightEye;
        else if (button.Command == CommandHub && state.DrawDepth != 3)
            button.Cell = FlatHubCell;
    }
    ShowCommandBar(buttons, static_cast<int>(std::size(buttons)));
    SetGreys(state.CurrentScreen);
}

// The image of an eye that looks from `eyeX` at a point `above` pixels over it: the angle in ninths of a half turn.
int LookAt(int x, int eyeX, int above) {
    const double angle = std::atan(static_cast<double>(x - eyeX) / above) + std::numbers::pi / 2;
    return std::clamp(static_cast<int>(angle * 9 / std::numbers::pi), static_cast<int>(FirstLook),
                      static_cast<int>(LastLook));
}

} // namespace

void SetMenuBar() {
    const int configuration = OpenDataFile(FileKind::Configuration, OpenExisting);
    if (configuration < 0)
        ReportError(In::SetMenuBar, Trouble::CcreateFail);
    else
        CloseFile(configuration);
    ShowBar();
}

int UpdateEyes(Window window, int x, int y) {
    if (!state.FrontPageDone)
        return 0;
    if (window == DialogWindow) {
        Beep();
        return 0;
    }
    int left = ShutEye, right = ShutEye;
    if (state.HelpMode && x < 0) {
        left = std::clamp(-x, static_cast<int>(FirstLook), static_cast<int>(OpenEye));
        right = std::clamp(std::abs(y), static_cast<int>(FirstLook), static_cast<int>(OpenEye));
    } else if (state.HelpMode) {
        const EyeLine *line = std::find_if(std::begin(EyeLines), std::end(EyeLines) - 1,
                                           [window](const EyeLine &row) { return row.Where == window; });
        if (y >= line->Y)
            y -= Lift;
        const int above = std::max(1, line->Y - y); // beside the eyes they look as far to the side as they can
        left = LookAt(x, LeftEyeX, above);
        right = LookAt(x, RightEyeX, above);
    }
    if (left == state.LeftEye && right == state.RightEye)
        return 1;
    state.LeftEye = left;
    state.RightEye = right;
    ShowBar();
    return 1;
}
