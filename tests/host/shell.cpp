// The machine around the program, as plain values that a test reads and sets.
#include "platform/shell.h"
#include "internals.h"
#include "platform/text.h"
#include "resources/menus.h"
#include "test_host.h"

namespace testhost {

Machine machine;

void ResetHost() {
    machine = Machine{};
    ResetSurface();
    ResetControls();
    ResetDisk();
}

static int ParentPopup(int command) {
    for (const MenuRow &row : Menu)
        if (row.Id == command)
            return row.Parent;
    return 0;
}

bool CommandEnabled(int command) {
    for (int id = command; id != 0; id = ParentPopup(id)) {
        const auto said = machine.Enabled.find(id);
        if (said != machine.Enabled.end() && !said->second)
            return false;
    }
    return true;
}

static int BarButtonWidth(const BarButton &button) {
    switch (button.Kind) {
    case BarKind::Separator:
        return 6;
    case BarKind::Image:
        return 22;
    default:
        return button.Text ? TextWidth(button.Text, Font::Normal) + 8 : 22;
    }
}

static bool SameSize(const Rect &a, const Rect &b) {
    return a.Right - a.Left == b.Right - b.Left && a.Bottom - a.Top == b.Bottom - b.Top;
}

} // namespace testhost

using namespace testhost;

int TakeInstanceLock() {
    return !machine.AnotherRuns;
}

int CreateWindows() {
    if (machine.RefusesWindows)
        return 0;
    ShowWindow(TopWindow, 1);
    ShowWindow(ListWindow, 1);
    return 1;
}

void ShowWindow(Window window, int on) {
    if (machine.Shown[window] == (on != 0))
        return;
    machine.Shown[window] = on != 0;
    machine.PaintWanted = true;
}

int WindowShown(Window window) {
    return machine.Shown[window];
}

void PlaceWindow(Window window, const Rect &box) {
    const Rect &top = machine.Place[TopWindow];
    machine.Place[window] = {box.Left + top.Left, box.Top + top.Top, box.Right + top.Left, box.Bottom + top.Top};
}

void LeaveLoop() {
    machine.LoopLeft = true;
}

void ShowScrollBar(int on) {
    if (machine.Scroll.Shown && !on)
        machine.PaintWanted = true;
    machine.Scroll.Shown = on != 0;
}

void PlaceScrollBar(const Rect &box) {
    if (!SameSize(machine.Scroll.Box, box))
        machine.PaintWanted = true;
    machine.Scroll.Box = box;
}

void SetScrollBar(int low, int high, int page, int position) {
    machine.Scroll.Low = low;
    machine.Scroll.High = high;
    machine.Scroll.Page = page;
    machine.Scroll.Position = position;
}

void ShowCommandBar(const BarButton *buttons, int count) {
    ++machine.BarsBuilt;
    machine.Bar.clear();
    int left = 2;
    for (int n = 0; n < count; ++n) {
        const BarButton &button = buttons[n];
        const int right = left + BarButtonWidth(button);
        machine.Bar.push_back({button.Kind,
                               button.Command,
                               button.Text ? Utf8(button.Text) : "",
                               button.Name ? Utf8(button.Name) : "",
                               button.Image,
                               button.Cell,
                               {left, 294, right, 320}});
        left = right;
    }
}

void OpenBarMenu() {}

void EnableMenuItem(int id, int on) {
    machine.Enabled[id] = on != 0;
}

int PanelUp() {
    return machine.HasPanel && machine.PanelIsUp;
}
void RaisePanel() {
    machine.PanelIsUp = machine.HasPanel;
}
void LowerPanel() {
    machine.PanelIsUp = false;
}
void PreferPanel(int mode) {
    machine.PanelPreference = mode;
}

void Beep(Sound sound) {
    ++(sound == Sound::Exclamation ? machine.Exclamations : machine.Beeps);
}

void Sleep(int) {
    ShowNow();
}

int Random(int below) {
    machine.RandomState = machine.RandomState * 1664525u + 1013904223u;
    return below > 0 ? static_cast<int>((machine.RandomState >> 8) % static_cast<uint32_t>(below)) : 0;
}

void TitleDevice(const char16_t *title) {
    machine.Title = title ? Utf8(title) : "";
}

void TellTrouble(int, const char *, const char *line) {
    TellTerminal(line);
}

void TellTerminal(const char *line) {
    machine.Terminal.push_back(line);
}
