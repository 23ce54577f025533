// The machine around the program's own painting: windows, the list's scroll bar, the command bar with its menus, the
// soft input panel, sound, pauses, chance, and the lock that keeps to one running copy.
#pragma once

#include "platform/event.h"
#include "platform/surface.h"
#include <cstdint>

// 1 when this copy is the first on this device root; 0 when another runs, which has now been brought to the front.
// The lock goes with the process and stands outside the data directory.
[[nodiscard]] int TakeInstanceLock();

// Creates the program's windows, all hidden but TopWindow and ListWindow. 1, or 0 when the machine refuses.
[[nodiscard]] int CreateWindows();
void ShowWindow(Window window, int on);
int WindowShown(Window window);
// For HubWindow and HostWindow, in TopWindow's coordinates.
void PlaceWindow(Window window, const Rect &box);
// What the device's title bar says; the program's own name for null.
void TitleDevice(const char16_t *title);
// Ends the host's loop after the present event.
void LeaveLoop();

// The list's scroll bar, a control of ListWindow.
void ShowScrollBar(int on);
void PlaceScrollBar(const Rect &box);
// Positions `low` to `high`, `page` rows a page, thumb at `position`.
void SetScrollBar(int low, int high, int page, int position);

enum class BarKind : uint8_t { Button, Popup, Image, Separator };
struct BarButton {
    BarKind Kind;
    int Command;          // for a popup: the menu of resources/menus.h that it opens
    const char16_t *Text; // null for a button that shows an image alone
    int Image, Cell;      // of resources/art.h: sheet and 0-based 16 x 16 cell; Image 0 for none
    const char16_t *Name; // said by a screen reader and shown when a pointer rests on it
};
// Shows the command bar, in place of the one before. Safe to call from the handler of one of its commands.
void ShowCommandBar(const BarButton *buttons, int count);
// Opens the first popup of the bar for the keyboard.
void OpenBarMenu();
// Enables or greys a command or a popup; kept by the host when the bar is shown anew.
void EnableMenuItem(int id, int on);

// The soft input panel. 1 when the panel is up; a machine without one always says 0.
int PanelUp();
void RaisePanel();
void LowerPanel();
// What the panel is to offer next: 4 an input form.
void PreferPanel(int mode);

enum class Sound : uint8_t { Default, Exclamation };
void Beep(Sound sound = Sound::Default);
// Shows what is painted, then waits; takes no input.
void Sleep(int milliseconds);
// 0 to `below` - 1.
int Random(int below);
// A line on the terminal, for trouble that must not be silent.
void TellTerminal(const char *line);
// A report of trouble, of a kind from 0 to 31, for the terminal. The owner reads of each kind once; of trouble with the
// files of `directory` (a device path, null for other trouble) once for each cause, which the line names as far as the
// machine knows it.
void TellTrouble(int kind, const char *directory, const char *line);
