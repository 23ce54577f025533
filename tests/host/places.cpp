// Where things stand on the device.
#include "state/state.h"
#include "test_host.h"

namespace testhost {

Window WindowAt(int x, int y) {
    for (const Window window : {HubWindow, DialogWindow, HostWindow, ListWindow, TopWindow})
        if (machine.Shown[window] && y < 294 && Inside(machine.Place[window], x, y))
            return window;
    return NoWindow;
}

Rect OnDevice(Window window, const Rect &box) {
    const Rect &place = machine.Place[window];
    return {box.Left + place.Left, box.Top + place.Top, box.Right + place.Left, box.Bottom + place.Top};
}

Rect Row(int n, int left, int right) {
    return {left, (n - 1) * 17, right, n * 17 + 1};
}

Point RowMiddle(int n, int x) {
    return {x, machine.Place[ListWindow].Top + (n - 1) * 17 + 9};
}

Point TabMiddle(int slot) {
    const int y = machine.Place[ListWindow].Top + state.RowCount * 17 + 14;
    return {slot == 7 ? 234 : slot * 37 - 17, y};
}

} // namespace testhost
