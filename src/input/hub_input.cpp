#include "input/hub_input.h"
#include "frame/form.h"
#include "frame/form_parts.h"
#include "input/wndproc.h"
#include "platform/shell.h"
#include "resources/menus.h"
#include "screens/hub.h"
#include "screens/hub_face.h"
#include "state/state.h"

namespace {

bool OnHub(Window window) {
    return window == (state.HubState == LargeHub ? HostWindow : HubWindow);
}

// The pages without a form's controls hear a keyboard's keys.
bool PageHearsKeys() {
    return state.ActiveDialog == PassCodeDialog || state.ActiveDialog == PaletteDialog;
}

Key KeyForPage(int key) {
    if (!PageHearsKeys() || state.HubState != SmallHub)
        return Key::None;
    if (key >= 0 && key <= 9)
        return static_cast<Key>(static_cast<int>(Key::Digit0) + key);
    return key == BackKey ? Key::Backspace : Key::None;
}

void Press(int x, int y) {
    state.PressX = x;
    state.PressY = y;
    state.DragSource = 0;
    const Key typed = KeyForPage(HubHit(x, y));
    if (typed != Key::None)
        WndProc({.Kind = EventKind::Key, .Code = static_cast<int>(typed)});
    else
        PressHub(x, y);
}

// The cross closes the hub before the form under it. The tick belongs to that form, unless it can't be seen.
bool TakesCommand(int command) {
    if (command == CommandCross)
        CloseHub();
    else if (command != CommandTick)
        return false;
    else if (state.HubPicking)
        EndPicking();
    else if (state.HubState == LargeHub)
        CloseHub();
    else
        return false;
    return true;
}

// The number of the hub's key that a key of a keyboard stands for, NoHubKey for none.
int HubKeyOf(Key key) {
    if (key >= Key::HubKeys)
        return static_cast<int>(key) - static_cast<int>(Key::HubKeys);
    if (state.ActiveDialog != NoDialog && !HubCoversForm())
        return NoHubKey; // what is typed belongs to the form
    if (key >= Key::Digit0 && key <= Key::Digit9)
        return static_cast<int>(key) - static_cast<int>(Key::Digit0);
    if (key == Key::Backspace || key == Key::Clear)
        return BackKey;
    return key == Key::Enter && state.HubState == LargeHub && !state.HubPicking ? static_cast<int>(EqualsKey)
                                                                                : static_cast<int>(NoHubKey);
}

// What is written on the hub's keys besides the digits.
struct HubCharacter {
    char16_t Typed;
    HubKeyNumber Key;
};
// clang-format off
constexpr HubCharacter Characters[] = {
    {u'.', PointKey},  {u',', PointKey},  {u'+', PlusKey},       {u'-', MinusKey},    {u'*', TimesKey},
    {u'/', DivideKey}, {u'=', EqualsKey}, {u'%', PercentKey},    {u'n', SignKey},     {u'o', NextOperatorKey},
    {u'x', LineXKey},  {u'y', LineYKey},  {u'z', LineZKey},      {u's', StoreKey},    {u'm', RecallKey},
    {u'p', PiKey},     {u'r', RootKey},   {u'i', ReciprocalKey}, {u'd', DecimalsKey}, {u'c', ConversionsKey},
};
// clang-format on

// The calculator hears every character; the panel leaves those that it has no use for to the list.
bool TakesCharacter(int typed) {
    if (state.ActiveDialog != NoDialog && !HubCoversForm())
        return false;
    for (const HubCharacter &row : Characters)
        if (row.Typed == typed) {
            HubKey(row.Key);
            return true;
        }
    return state.HubState == LargeHub || state.HubPicking;
}

// The list of rates can be walked, turned and scrolled, but not left by a key that shows another.
bool WorksWhilePicking(Key key) {
    return key == Key::Up || key == Key::Down || key == Key::Enter || key == Key::Stroke;
}

bool TakesKey(Key key) {
    if (key == Key::Help || key == Key::HubButton)
        return false;
    if (key == Key::Escape)
        CloseHub();
    else if (key == Key::Tick)
        return TakesCommand(CommandTick);
    else if (const int hubKey = HubKeyOf(key); hubKey != NoHubKey)
        HubKey(hubKey);
    else if (state.HubPicking)
        return !WorksWhilePicking(key);
    else
        return state.HubState == LargeHub;
    return true;
}

} // namespace

bool HubHears(const Event &event) {
    if (state.HubState == HubClosed)
        return false;
    switch (event.Kind) {
    case EventKind::PointerDown:
    case EventKind::DoubleTap:
        if (!OnHub(event.Where))
            return false;
        Press(event.X, event.Y);
        return true;
    case EventKind::Command:
        return TakesCommand(event.Code);
    case EventKind::Key:
        return TakesKey(static_cast<Key>(event.Code));
    case EventKind::Character:
        return TakesCharacter(event.Code);
    case EventKind::Paint:
        DrawHub();
        if (HubCoversForm())
            DrawDialogDecor(DecorAll);
        return false;
    default:
        return false;
    }
}
