// The test host: the platform seam without a machine. Files are real files in a fresh root; the clock stands still
// until a test moves it; the surface remembers what an owner would see; controls are maps from id to value. Tests set
// the switches below and work the program with the owner's hands of hands.h.
#pragma once

#include "platform/action.h"
#include "platform/controls.h"
#include "platform/event.h"
#include "platform/shell.h"
#include "platform/surface.h"
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace testhost {

// --- The disk. Write-like calls are: write, cut, rename, delete, make or remove a directory, copy, and an open that
// makes a file. These, syncs, reservations, reads and opens (with walks and questions for a kind) are each counted from
// 1 since the switches were last set to their defaults.
struct DiskSwitches {
    int FailAt = 0;          // this write-like call fails; 0 none
    bool FailOnward = false; // and so do all after it; and of the further kinds below as well
    bool TearWrite = false;  // a write that fails has left the first half of its bytes in the file
    int DieAt = 0;           // the process ends at this call, before it has done anything; 0 none
    int FailRead = 0, FailOpen = 0, FailSync = 0, FailReserve = 0; // the n-th of these fails; 0 none
    bool Full = false;                                             // nothing can grow; what stands can be overwritten
    bool Unwritable = false;                                       // nothing can be made, renamed, deleted or written
    bool Busy = false;                                             // another process has the data
};
inline constexpr int DiedExitCode = 86; // of a process that DieAt ended

struct Disk {
    DiskSwitches Switches;
    int WriteCalls = 0; // write-like calls so far
    int Reads = 0, Opens = 0, Syncs = 0, Reserves = 0;
    int DataWrites = 0;                 // writes into data files, not into the journal
    int FilesOpened = 0;                // opens that gave a handle of a data file
    std::map<std::string, int> OpensOf; // the same by the name of the file
    int OpenHandles = 0;                // of data files: neither the journal's nor a lock's
};
extern Disk disk;
// Switches and counters back to the defaults.
void ResetDisk();
// What the program does when its disk is well again: the files hold what was done.
void Recuperate();
// Does the work on a disk that fails as told. True when the failure was met: a sweep goes on to the next call until it
// is not.
template <typename Work> bool WithFailingDisk(const DiskSwitches &switches, const Work &work) {
    ResetDisk();
    disk.Switches = switches;
    work();
    const bool met = switches.Full || (switches.FailAt && disk.WriteCalls >= switches.FailAt) ||
                     (switches.FailRead && disk.Reads >= switches.FailRead) ||
                     (switches.FailOpen && disk.Opens >= switches.FailOpen) ||
                     (switches.FailSync && disk.Syncs >= switches.FailSync) ||
                     (switches.FailReserve && disk.Reserves >= switches.FailReserve);
    ResetDisk();
    Recuperate();
    return met;
}

// The work as one action; what the commit answered.
template <typename Work> int AsAction(const Work &work) {
    BeginAction();
    work();
    return CommitAction();
}

// The same on a disk with switches set: as the door does it, what was refused leaves nothing. `done` is what the work
// answered, 0 when the commit refused. True when a switch was met.
template <typename Work> bool WithFailingAction(const DiskSwitches &switches, int *done, const Work &work) {
    return WithFailingDisk(switches, [&] {
        BeginAction();
        *done = work();
        if (!CommitAction())
            *done = 0;
    });
}

// --- The clock. It does not run by itself, but ClockTicks gives one tick more at each call.
struct TestClock {
    int Year = 2026, Month = 3, Day = 2, Hour = 9, Minute = 30, Second = 0;
    bool DayFirst = true;
    int64_t TicksGiven = 0;
};
extern TestClock testClock;
void SetClock(int year, int month, int day, int hour = 9, int minute = 30, int second = 0);
// "2026-03-02", "2026-03-02T09:30" or "2026-03-02T09:30:15". False when it is no such time.
bool SetClock(const std::string &dateTime);

// --- The surface, as it stands now.
struct StandingText {
    std::string Words; // UTF-8
    Rect Box;          // as the program gave it
    Rect Ink;          // the pixels that the letters take, clipped to box and window
    Colour InkColour;
    Font Face;
    Align Place;
    bool Fitted; // drawn narrower to fit
    bool Cut;    // a part of it did not fit and is missing
    int Visible; // per cent of its pixels that nothing has been painted over since
};
struct StandingImage {
    int Id;
    Rect Part, To;
    int Visible;
};
inline constexpr Colour NothingPainted = 0xFFFFFFFF;

// Texts whose middle is inside the box (in the window's coordinates), by row and then from left to right.
std::vector<StandingText> TextsIn(Window window, const Rect &box);
std::vector<StandingText> TextsOn(Window window);
// The words of TextsIn, with " | " between them; "" for none.
std::string TextAt(Window window, const Rect &box);
// Texts of which a part is covered and a part still stands: remains of a careless repaint.
std::vector<StandingText> Remains(Window window);
// The topmost fill or line, images passed over; NothingPainted outside the window or where nothing was painted.
Colour ColourAt(Window window, int x, int y);
// A colour that is seen as red, however dark or light its ground has made it.
bool IsRed(Colour colour);
// 1 when a pixel of this colour stands in the box.
bool ColourIn(Window window, const Rect &box, Colour colour);
std::vector<StandingImage> ImagesOn(Window window);
// The image whose pixels stand at the point, 0 for none.
int ImageAt(Window window, int x, int y);

struct PaintCounts {
    int Fills = 0, Lines = 0, Shapes = 0, Texts = 0, Images = 0;
};
extern PaintCounts painted[WindowCount]; // since the start of the program or since a test zeroed it

// --- The machine around the program.
struct BarItem {
    BarKind Kind;
    int Command;
    std::string Text, Name;
    int Image, Cell;
    Rect Box; // in device coordinates
};
struct ScrollBarState {
    bool Shown = false;
    Rect Box{}; // in ListWindow
    int Low = 0, High = 0, Page = 0, Position = 0;
};
struct Machine {
    bool AnotherRuns = false;    // TakeInstanceLock finds another copy
    bool RefusesWindows = false; // CreateWindows fails
    bool Rests = true;           // after each event, as if the owner waited: RestStep
    bool HasPanel = false;
    bool PanelIsUp = false;
    int PanelPreference = 0;
    bool Shown[WindowCount] = {};
    Rect Place[WindowCount] = {{}, {0, 26, 240, 294}, {0, 62, 240, 294}, {0, 26, 240, 294},
                               {}, {0, 26, 240, 294}}; // in device coordinates, the part above the command bar
    bool LoopLeft = false;
    bool PaintWanted = false;
    ScrollBarState Scroll;
    std::vector<BarItem> Bar;
    int BarsBuilt = 0;
    std::map<int, bool> Enabled; // what EnableMenuItem said
    int Beeps = 0, Exclamations = 0;
    int ShownNow = 0; // calls of ShowNow
    uint32_t RandomState = 12345;
    std::vector<std::string> Terminal; // lines of TellTerminal
    std::string Title;                 // of TitleDevice; "" for the program's own
};
extern Machine machine;
// 0 for a greyed command, and for one in a greyed popup. A command that was never greyed is enabled.
bool CommandEnabled(int command);

// --- Places and lines.
// The window that a pointer at this place touches, NoWindow for the title bar and the command bar.
Window WindowAt(int x, int y);
// A box of a window in the coordinates of the device.
Rect OnDevice(Window window, const Rect &windowBox);
// The list row n, counted from 1, in ListWindow's coordinates, over the whole width or between two x.
Rect Row(int n, int left = 0, int right = 226);
// Where to tap for a row and for a tab's slot (1 to 6; 7 is the page button), in device coordinates. The tab strip
// moves with the message window.
Point RowMiddle(int n, int x = 90);
Point TabMiddle(int slot);

// The words of a remembered message line, 0 to 5; "" for a blank one.
std::string Line(int n);
// All six, joined with '/': "Tap an item on the screen/for information on that item////".
std::string Lines();
// And their ids, "0,207,0,0,0,0".
std::string Ids();

// --- The controls of the open form.
struct ControlState {
    FormControl Template;
    std::u16string Text;
    std::vector<std::u16string> Items;
    int Selected = -1;
    bool Checked = false;
    ControlDate Date{};
    int Progress = 0;
    int Limit = 0; // 0 none
    bool Enabled = true, Shown = true;
};
struct OpenFormState {
    int Resource = 0; // 0: no form is open
    int Focus = 0;
    std::vector<int> Order; // control ids in reading order
    std::map<int, ControlState> Controls;
};
extern OpenFormState form;
// The control's text in UTF-8; "" when the form has no such control.
std::string ControlText(int id);
std::vector<std::string> ControlItems(int id);

// --- A fresh device. One at a time.
class TestRoot {
public:
    // A directory that is removed at the end, with host and state block as at power-on.
    TestRoot();
    // Over a directory that stays.
    explicit TestRoot(const std::string &hostDirectory);
    ~TestRoot();
    TestRoot(const TestRoot &) = delete;
    TestRoot &operator=(const TestRoot &) = delete;

    const std::string &Path() const { return path; }
    // The host's path of a device path such as "\\Program Files\\Zentrik\\E1_Data".
    std::string HostPath(const std::string &devicePath) const;
    // The host's path of a file in the data directory, such as "E1_01IND".
    std::string DataFile(const std::string &name) const;
    // Makes the data directory and those above it, for tests that do not start the whole program.
    void MakeDataDirectory() const;

private:
    std::string path;
    bool removed;
};

// Power-on: windows, surface, controls, machine and disk switches as at first. The clock stays.
void ResetHost();

std::vector<uint8_t> ReadBytes(const std::string &hostPath); // empty when there is no such file
void WriteBytes(const std::string &hostPath, const std::vector<uint8_t> &bytes);
// Every file under a directory by its path from there, with its bytes: for "nothing changed". The journal is not an
// owner's file.
std::map<std::string, std::vector<uint8_t>> Snapshot(const std::string &hostDirectory);

std::string Utf8(const char16_t *text);
std::u16string Utf16(const std::string &text);

} // namespace testhost
