// play ROOT DATETIME < STORY
//
// Runs the whole program on the test host, over the device root ROOT (a directory, made when missing) and a clock that
// stands at DATETIME (2026-03-02, 2026-03-02T09:30 or 2026-03-02T09:30:15), and follows a story: a line an event.
// Blank lines and lines that begin with # are passed over. Coordinates are the device's, 0 to 239 and 0 to 319.
//
//   tap X Y             press and release
//   double X Y          a double tap
//   drag X1 Y1 X2 Y2    press, moves, release
//   press X Y, move X Y, release X Y
//   key NAME            Up Down Left Right Enter Backspace Clear 0 to 9 Tab1 to Tab8 Stroke Escape Help Delete New
//                       Modify Tick
//   command ID          a menu command or bar button by its number; "greyed ID" is printed when it can't be chosen
//   scroll CODE POS     LineUp LineDown PageUp PageDown Thumb Top Bottom; POS is for Thumb
//   set ID TEXT         types TEXT into a control of the open form, in place of what stood there; \n is a new line
//   choose ID INDEX     chooses an item of a list, from 0
//   check ID 0|1        a check box
//   date ID YYYY-MM-DD  a date picker
//   clock DATETIME      moves the clock
//   lines               prints the six remembered message lines
//   screen              prints every text on the shown windows: window, left, top, right, bottom, colour, words
//   form                prints the open form's controls: id, text, chosen item, check or date
//   words               prints CurrentScreen, ActiveDialog, counts, tops and selections of the lists 1 to 8
//   fail N, die N       the N-th write-like call from here fails; ends the process (exit code 86); 0 none
//   full 0|1            the disk is full
//   quit                leaves in order and ends the story
//
// A story that ends without "quit" ends like a device whose battery was taken out. Exit codes: 0 the story was
// followed, 1 the program did not start, 2 a line or an argument is wrong.
#include "host/hands.h"
#include "state/state.h"
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sstream>

using namespace testhost;

namespace {

struct Arguments {
    int Number[4] = {};
    std::string Text;
};

std::string wrong; // what is wrong with the present line

// For the verbs that work a control.
void Refuse(bool worked, int id) {
    if (worked)
        return;
    wrong = form.Resource == 0 ? "no form is open"
                               : "control " + std::to_string(id) + " of the open form can't be worked in this way";
}

void PrintLines() {
    for (int n = 0; n < MessageLines; ++n)
        printf("%s\n", Line(n).c_str());
}

void PrintScreen() {
    static constexpr const char *names[] = {"", "Top", "List", "Host", "Hub", "Dialog"};
    for (int n = TopWindow; n < WindowCount; ++n) {
        const auto window = static_cast<Window>(n);
        if (!machine.Shown[window])
            continue;
        for (const StandingText &text : TextsOn(window)) {
            const Rect box = OnDevice(window, text.Ink);
            if (WindowAt((box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2) != window)
                continue; // another window stands over it
            printf("%s %d %d %d %d #%06X %s%s\n", names[n], box.Left, box.Top, box.Right, box.Bottom, text.InkColour,
                   text.Words.c_str(), text.Cut ? " [cut]" : "");
        }
    }
    for (const BarItem &item : machine.Bar)
        if (item.Kind != BarKind::Separator)
            printf("Bar %d %d %d %d %d %s%s\n", item.Box.Left, item.Box.Top, item.Box.Right, item.Box.Bottom,
                   item.Command, item.Text.empty() ? item.Name.c_str() : item.Text.c_str(),
                   CommandEnabled(item.Command) ? "" : " [greyed]");
}

void PrintForm() {
    for (const int id : form.Order) {
        const ControlState &control = form.Controls[id];
        if (!control.Shown)
            continue;
        printf("%d %s \"%s\"", id, id == form.Focus ? "*" : "-", ControlText(id).c_str());
        if (!control.Items.empty())
            printf(" item %d of %zu", control.Selected, control.Items.size());
        if (control.Template.Kind == ControlKind::Check)
            printf(" %s", control.Checked ? "checked" : "not checked");
        if (control.Template.Kind == ControlKind::Date)
            printf(" %04d-%02d-%02d", control.Date.Year, control.Date.Month, control.Date.Day);
        printf("%s\n", control.Enabled ? "" : " [disabled]");
    }
}

void PrintList(const char *name, const int32_t *words) {
    printf("%s", name);
    for (int n = 1; n <= ScreenCount; ++n)
        printf(" %d", words[n]);
    printf("\n");
}

void PrintWords() {
    printf("CurrentScreen %d\nActiveDialog %d\n", state.CurrentScreen, state.ActiveDialog);
    PrintList("EntryCount", state.EntryCount);
    PrintList("TopPos", state.TopPos);
    PrintList("SelectedPos", state.SelectedPos);
}

void PlayKey(const Arguments &given) {
    const Key key = KeyByName(given.Text);
    if (key == Key::None)
        wrong = "there is no key \"" + given.Text + "\"";
    else
        SendKey(key);
}

void PlayCommand(const Arguments &given) {
    if (!SendCommand(given.Number[0]))
        printf("greyed %d\n", given.Number[0]);
}

void PlayScroll(const Arguments &given) {
    static constexpr const char *codes[] = {"LineUp", "LineDown", "PageUp", "PageDown", "Thumb", "Top", "Bottom"};
    std::istringstream words(given.Text);
    std::string code, rest;
    int position = 0;
    words >> code;
    if (words >> std::ws && !words.eof() && !(words >> position && words.eof())) {
        wrong = "the position must be a number";
        return;
    }
    for (int n = 0; n < static_cast<int>(std::size(codes)); ++n)
        if (code == codes[n]) {
            if (!Scroll(static_cast<ScrollCode>(n), position))
                wrong = "no scroll bar is shown";
            return;
        }
    wrong = "there is no scroll code \"" + code + "\"";
}

void PlaySet(const Arguments &given) {
    std::string text = given.Text;
    for (size_t at = text.find("\\n"); at != std::string::npos; at = text.find("\\n", at))
        text.replace(at, 2, "\n");
    Refuse(SetText(given.Number[0], text), given.Number[0]);
}

void PlayDate(const Arguments &given) {
    int year = 0, month = 0, day = 0, end = 0;
    sscanf(given.Text.c_str(), "%d-%d-%d%n", &year, &month, &day, &end);
    if (end == 0 || end != static_cast<int>(given.Text.size()))
        wrong = "a date is written YYYY-MM-DD";
    else
        Refuse(SetDate(given.Number[0], year, month, day), given.Number[0]);
}

void PlayClock(const Arguments &given) {
    if (!SetClock(given.Text))
        wrong = "a time is written 2026-03-02T09:30";
}

bool over = false; // "quit" was read

struct Verb {
    const char *Name;
    int Numbers;    // whole numbers that follow
    bool TakesText; // the rest of the line follows them
    void (*Play)(const Arguments &given);
};

// clang-format off
constexpr Verb Verbs[] = {
    {"tap",     2, false, [](const Arguments &a) { Tap(a.Number[0], a.Number[1]); }},
    {"double",  2, false, [](const Arguments &a) { DoubleTap(a.Number[0], a.Number[1]); }},
    {"drag",    4, false, [](const Arguments &a) { Drag(a.Number[0], a.Number[1], a.Number[2], a.Number[3]); }},
    {"press",   2, false, [](const Arguments &a) { Press(a.Number[0], a.Number[1]); }},
    {"move",    2, false, [](const Arguments &a) { Move(a.Number[0], a.Number[1]); }},
    {"release", 2, false, [](const Arguments &a) { Release(a.Number[0], a.Number[1]); }},
    {"key",     0, true,  PlayKey},
    {"command", 1, false, PlayCommand},
    {"scroll",  0, true,  PlayScroll},
    {"set",     1, true,  PlaySet},
    {"choose",  2, false, [](const Arguments &a) { Refuse(Choose(a.Number[0], a.Number[1]), a.Number[0]); }},
    {"check",   2, false, [](const Arguments &a) { Refuse(Check(a.Number[0], a.Number[1] != 0), a.Number[0]); }},
    {"date",    1, true,  PlayDate},
    {"clock",   0, true,  PlayClock},
    {"lines",   0, false, [](const Arguments &) { PrintLines(); }},
    {"screen",  0, false, [](const Arguments &) { PrintScreen(); }},
    {"form",    0, false, [](const Arguments &) { PrintForm(); }},
    {"words",   0, false, [](const Arguments &) { PrintWords(); }},
    {"fail",    1, false, [](const Arguments &a) { ResetDisk(); disk.Switches.FailAt = a.Number[0]; }},
    {"die",     1, false, [](const Arguments &a) { ResetDisk(); disk.Switches.DieAt = a.Number[0]; }},
    {"full",    1, false, [](const Arguments &a) { disk.Switches.Full = a.Number[0] != 0; }},
    {"quit",    0, false, [](const Arguments &) { QuitProgram(); over = true; }},
};
// clang-format on

// Reads and plays one line; leaves what is wrong with it in `wrong`.
void PlayLine(const std::string &line) {
    std::istringstream words(line);
    std::string name;
    if (!(words >> name) || name[0] == '#')
        return;
    for (const Verb &verb : Verbs) {
        if (name != verb.Name)
            continue;
        Arguments given;
        for (int n = 0; n < verb.Numbers; ++n)
            if (!(words >> given.Number[n])) {
                wrong = "\"" + name + "\" needs " + std::to_string(verb.Numbers) + " whole number(s)";
                return;
            }
        if (verb.TakesText && words.peek() == ' ')
            words.get(); // the one blank before the text
        std::getline(words, given.Text, '\0');
        if (!verb.TakesText && given.Text.find_first_not_of(" \t\r") != std::string::npos)
            wrong = "too much after \"" + name + "\": \"" + given.Text + "\"";
        else if (!ProgramRuns() && name != "quit")
            wrong = "the program has ended";
        else
            verb.Play(given);
        return;
    }
    wrong = "there is no event \"" + name + "\"";
}

} // namespace

int main(int count, char **arguments) {
    if (count != 3 || !SetClock(arguments[2])) {
        fprintf(stderr, "play ROOT DATETIME < STORY, where DATETIME is such as 2026-03-02T09:30\n");
        return 2;
    }
    std::error_code failure;
    std::filesystem::create_directories(arguments[1], failure);
    if (failure) {
        fprintf(stderr, "%s: %s\n", arguments[1], failure.message().c_str());
        return 2;
    }
    const TestRoot root(arguments[1]);
    if (!StartProgram()) {
        fprintf(stderr, "the program did not start\n");
        return 1;
    }
    std::string line;
    size_t told = 0; // lines of the terminal passed on
    for (int number = 1; !over && std::getline(std::cin, line); ++number) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        PlayLine(line);
        for (; told < machine.Terminal.size(); ++told)
            fprintf(stderr, "%s\n", machine.Terminal[told].c_str());
        fflush(stdout);
        if (!wrong.empty()) {
            fprintf(stderr, "line %d: %s: %s\n", number, wrong.c_str(), line.c_str());
            return 2;
        }
    }
    return 0;
}
