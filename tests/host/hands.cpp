// The owner's hands.
#include "hands.h"
#include "program/door.h"
#include <algorithm>
#include <cstdlib>

namespace testhost {

static Point pressedAt;    // of the last press, in device coordinates
static bool pressedOnHost; // the last press went to something of the host's own: bar, scroll bar, control

bool StartProgram() {
    if (!StartWithPage())
        return false;
    if (machine.Shown[HostWindow] && machine.Bar.empty())
        Tap(120, 120);
    return ProgramRuns();
}

bool StartWithPage() {
    const DiskSwitches switches = disk.Switches;
    const bool another = machine.AnotherRuns, refuses = machine.RefusesWindows, panel = machine.HasPanel;
    ResetHost();
    disk.Switches = switches;
    machine.AnotherRuns = another;
    machine.RefusesWindows = refuses;
    machine.HasPanel = panel;
    if (WinMain() != 1) {
        machine.LoopLeft = true;
        return false;
    }
    Settle();
    return ProgramRuns();
}

void QuitProgram() {
    SendEvent({.Kind = EventKind::Close});
}

bool ProgramRuns() {
    return !machine.LoopLeft;
}

void Settle() {
    for (int n = 0; n < MostIdleSteps && ProgramRuns(); ++n) {
        if (machine.PaintWanted) {
            machine.PaintWanted = false;
            HandleEvent({.Kind = EventKind::Paint});
        } else if (!IdleStep()) {
            if (machine.Rests)
                RestStep();
            return;
        }
    }
}

void SendEvent(const Event &event) {
    if (!ProgramRuns())
        return;
    HandleEvent(event);
    Settle();
}

// A form's background and the header know no double tap.
static void SendPointer(EventKind kind, int x, int y) {
    const Window window = WindowAt(x, y);
    if (kind == EventKind::DoubleTap && (window == DialogWindow || window == TopWindow))
        kind = EventKind::PointerDown;
    if (window == NoWindow) {
        if (kind == EventKind::PointerUp)
            SendEvent({.Kind = kind});
        return;
    }
    const Rect &place = machine.Place[window];
    SendEvent({.Kind = kind, .Where = window, .X = x - place.Left, .Y = y - place.Top});
}

static void TapBar(int x, int y) {
    for (const BarItem &item : machine.Bar)
        if (Inside(item.Box, x, y)) {
            if (item.Kind == BarKind::Popup)
                OpenBarMenu();
            else if (item.Kind != BarKind::Separator)
                SendCommand(item.Command);
            return;
        }
}

// The arrows at the bar's ends are as high as the bar is wide; a tap between them moves by a page.
static void TapScrollBar(int y) {
    const ScrollBarState &bar = machine.Scroll;
    const int width = bar.Box.Right - bar.Box.Left, height = bar.Box.Bottom - bar.Box.Top;
    if (y < bar.Box.Top + width)
        Scroll(ScrollCode::LineUp);
    else if (y >= bar.Box.Bottom - width)
        Scroll(ScrollCode::LineDown);
    else {
        const int span = std::max(1, bar.High - bar.Low);
        const int thumb = bar.Box.Top + width + (height - 2 * width) * (bar.Position - bar.Low) / span;
        Scroll(y < thumb ? ScrollCode::PageUp : ScrollCode::PageDown);
    }
}

static ControlState *Workable(int id) {
    const auto found = form.Controls.find(id);
    if (found == form.Controls.end() || !found->second.Enabled || !found->second.Shown || !machine.Shown[DialogWindow])
        return nullptr;
    return &found->second;
}

static void Tell(int id, ControlChange change) {
    SendEvent({.Kind = EventKind::Control, .Control = id, .Change = change});
}

bool Focus(int id) {
    if (!Workable(id))
        return false;
    form.Focus = id;
    Tell(id, ControlChange::Focus);
    return Workable(id) != nullptr; // the handler may have closed the form
}

static void TapControl(int id) {
    constexpr int CalendarHandle = 18;
    if (!Focus(id))
        return;
    const ControlState &control = form.Controls[id];
    const FormControl &box = control.Template;
    switch (box.Kind) {
    case ControlKind::Check:
        Check(id, !control.Checked);
        break;
    case ControlKind::List:
        Tell(id, ControlChange::Dropped);
        break;
    case ControlKind::Combo:
        if (pressedAt.X >= box.X + box.Width - CalendarHandle)
            Tell(id, ControlChange::Dropped);
        break;
    case ControlKind::Date:
        if (pressedAt.X >= box.X + box.Width - CalendarHandle)
            Tell(id, ControlChange::Calendar);
        break;
    case ControlKind::ListBox:
        Tell(id, ControlChange::Pressed);
        break;
    default:
        break;
    }
}

// 1 when the press belongs to something of the host's own, which then has done its work.
static bool PressOnHost(int x, int y) {
    if (y >= 294) {
        TapBar(x, y);
        return true;
    }
    const Window window = WindowAt(x, y);
    const Rect &place = machine.Place[window];
    const int innerX = x - place.Left, innerY = y - place.Top;
    if (window == ListWindow && machine.Scroll.Shown && Inside(machine.Scroll.Box, innerX, innerY)) {
        TapScrollBar(innerY);
        return true;
    }
    if (window == DialogWindow)
        for (const int id : form.Order) {
            const FormControl &box = form.Controls[id].Template;
            if (form.Controls[id].Shown &&
                Inside({box.X, box.Y, box.X + box.Width, box.Y + box.Height}, innerX, innerY)) {
                TapControl(id);
                return true;
            }
        }
    return false;
}

static void PressAs(EventKind kind, int x, int y) {
    pressedAt = {x, y};
    pressedOnHost = y < 26 || PressOnHost(x, y);
    if (!pressedOnHost)
        SendPointer(kind, x, y);
}

void Press(int x, int y) {
    PressAs(EventKind::PointerDown, x, y);
}

void Move(int x, int y) {
    if (!pressedOnHost)
        SendPointer(EventKind::PointerMove, x, y);
}

void Release(int x, int y) {
    if (!pressedOnHost)
        SendPointer(EventKind::PointerUp, x, y);
}

void Tap(int x, int y) {
    Press(x, y);
    Release(x, y);
}

void DoubleTap(int x, int y) {
    Tap(x, y);
    PressAs(EventKind::DoubleTap, x, y);
    Release(x, y);
}

void Drag(int fromX, int fromY, int toX, int toY) {
    constexpr int StepPixels = 6;
    Press(fromX, fromY);
    const int steps = std::max({std::abs(toX - fromX), std::abs(toY - fromY), 1}) / StepPixels + 1;
    for (int n = 1; n <= steps; ++n)
        Move(fromX + (toX - fromX) * n / steps, fromY + (toY - fromY) * n / steps);
    Release(toX, toY);
}

void TapRow(int n) {
    Tap(RowMiddle(n).X, RowMiddle(n).Y);
}

void OpenRow(int n) {
    DoubleTap(RowMiddle(n).X, RowMiddle(n).Y);
}

void StrokeRow(int n, int pixels) {
    Drag(60, RowMiddle(n).Y, 60 + pixels, RowMiddle(n).Y);
}

void TapSlot(int slot) {
    Tap(TabMiddle(slot).X, TabMiddle(slot).Y);
}

void DragToSlot(int n, int slot) {
    Drag(RowMiddle(n).X, RowMiddle(n).Y, TabMiddle(slot).X, TabMiddle(slot).Y);
}

static constexpr struct {
    Key Code;
    const char *Name;
} KeyNames[] = {
    {Key::Up, "Up"},
    {Key::Down, "Down"},
    {Key::Left, "Left"},
    {Key::Right, "Right"},
    {Key::Enter, "Enter"},
    {Key::Backspace, "Backspace"},
    {Key::Clear, "Clear"},
    {Key::Digit0, "0"},
    {Key::Digit1, "1"},
    {Key::Digit2, "2"},
    {Key::Digit3, "3"},
    {Key::Digit4, "4"},
    {Key::Digit5, "5"},
    {Key::Digit6, "6"},
    {Key::Digit7, "7"},
    {Key::Digit8, "8"},
    {Key::Digit9, "9"},
    {Key::Tab1, "Tab1"},
    {Key::Tab2, "Tab2"},
    {Key::Tab3, "Tab3"},
    {Key::Tab4, "Tab4"},
    {Key::Tab5, "Tab5"},
    {Key::Tab6, "Tab6"},
    {Key::Tab7, "Tab7"},
    {Key::Tab8, "Tab8"},
    {Key::Stroke, "Stroke"},
    {Key::Escape, "Escape"},
    {Key::Help, "Help"},
    {Key::Delete, "Delete"},
    {Key::New, "New"},
    {Key::Modify, "Modify"},
    {Key::Tick, "Tick"},
    {Key::Drop1, "Drop1"},
    {Key::Drop2, "Drop2"},
    {Key::Drop3, "Drop3"},
    {Key::Drop4, "Drop4"},
    {Key::Drop5, "Drop5"},
    {Key::Drop6, "Drop6"},
    {Key::Drop7, "Drop7"},
    {Key::Drop8, "Drop8"},
    {Key::RowUp, "RowUp"},
    {Key::RowDown, "RowDown"},
    {Key::Title1, "Title1"},
    {Key::Title2, "Title2"},
    {Key::Title3, "Title3"},
    {Key::Title4, "Title4"},
    {Key::Header, "Header"},
    {Key::FlagPart, "Flag"},
    {Key::FirstSignPart, "Sign"},
    {Key::SecondSignPart, "SecondSign"},
    {Key::ClearedPart, "Cleared"},
    {Key::FreePart, "Free"},
    {Key::DuplicatePart, "Duplicate"},
    {Key::ViewPart, "View"},
    {Key::OtherSidePart, "OtherSide"},
    {Key::TickAndNext, "TickAndNext"},
    {Key::Undo, "Undo"},
    {Key::Redo, "Redo"},
    {Key::Find, "Find"},
};

Key KeyByName(const std::string &name) {
    for (const auto &row : KeyNames)
        if (name == row.Name)
            return row.Code;
    return Key::None;
}

// With a form open, keys belong to the control that has the focus, but for the eyes, the cross and the tick; Enter is
// the tick but where it begins a new line or opens a row.
static bool KeyOfControl(Key *key) {
    if (form.Resource == 0 || *key == Key::Help || *key == Key::Escape || *key >= Key::Tick)
        return false;
    const int id = form.Focus;
    const auto focused = form.Controls.find(id);
    const ControlKind kind = focused == form.Controls.end() ? ControlKind::Progress : focused->second.Template.Kind;
    if (*key == Key::Enter && kind != ControlKind::MultiLine && kind != ControlKind::ListBox) {
        *key = Key::Tick;
        return false;
    }
    if ((*key == Key::Up || *key == Key::Down) && kind <= ControlKind::Number)
        return false;
    const bool types = *key >= Key::Digit0 && *key <= Key::Digit9;
    if (kind <= ControlKind::Combo && (types || *key == Key::Backspace)) {
        SendControlKey(types ? '0' + static_cast<int>(*key) - static_cast<int>(Key::Digit0) : 8);
        Tell(id, ControlChange::Text);
    }
    return true;
}

void SendKey(Key key) {
    if (!KeyOfControl(&key))
        SendEvent({.Kind = EventKind::Key, .Code = static_cast<int>(key)});
}

void ShowScreen(int screen) {
    SendKey(static_cast<Key>(static_cast<int>(Key::Tab1) + screen - 1));
}

bool SendCommand(int command) {
    if (!CommandEnabled(command) || !ProgramRuns())
        return false;
    SendEvent({.Kind = EventKind::Command, .Code = command});
    return true;
}

bool Scroll(ScrollCode code, int position) {
    if (!machine.Scroll.Shown || !ProgramRuns())
        return false;
    if (code == ScrollCode::ThumbTrack)
        position = std::clamp(position, machine.Scroll.Low, std::max(machine.Scroll.Low, machine.Scroll.High));
    SendEvent({.Kind = EventKind::Scroll, .Code = static_cast<int>(code), .Position = position});
    return true;
}

bool SetText(int id, const std::string &text) {
    if (!Focus(id))
        return false;
    ControlState &control = form.Controls[id];
    const ControlKind kind = control.Template.Kind;
    if (kind > ControlKind::Combo)
        return false;
    std::u16string typed = Utf16(text);
    if (kind != ControlKind::MultiLine)
        std::replace(typed.begin(), typed.end(), u'\n', u' ');
    if (control.Limit > 0 && typed.size() > static_cast<size_t>(control.Limit))
        typed.resize(static_cast<size_t>(control.Limit));
    control.Text = typed;
    control.Selected = -1;
    Tell(id, ControlChange::Text);
    return true;
}

bool Choose(int id, int index) {
    if (!Focus(id) || index < 0 || index >= ControlItemCount(id))
        return false;
    const ControlKind kind = form.Controls[id].Template.Kind;
    if (kind == ControlKind::Combo || kind == ControlKind::List)
        Tell(id, ControlChange::Dropped);
    else if (kind != ControlKind::ListBox)
        return false;
    SelectControlItem(id, index);
    Tell(id, ControlChange::Choice);
    return true;
}

bool Choose(int id, const std::string &item) {
    const std::vector<std::string> items = ControlItems(id);
    const auto found = std::find(items.begin(), items.end(), item);
    return found != items.end() && Choose(id, static_cast<int>(found - items.begin()));
}

bool Check(int id, bool on) {
    if (!Focus(id) || form.Controls[id].Template.Kind != ControlKind::Check)
        return false;
    if (form.Controls[id].Checked != on) {
        form.Controls[id].Checked = on;
        Tell(id, ControlChange::Pressed);
    }
    return true;
}

bool SetDate(int id, int year, int month, int day) {
    if (!Focus(id) || form.Controls[id].Template.Kind != ControlKind::Date)
        return false;
    form.Controls[id].Date = {year, month, day};
    Tell(id, ControlChange::Choice);
    return true;
}

} // namespace testhost
