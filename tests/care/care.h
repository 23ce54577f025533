// What the tests of data care share: an owner at the pass-code screen, and what lies on the disk.
#pragma once

#include "host/device.h"
#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;
using namespace testhost;

namespace testhost {

// The middle of a digit of the dial, of the circle (10) and of the weight lifter (11), in device coordinates.
inline Point PassSpot(int what) {
    constexpr Point places[] = {{87, 73},   {120, 62}, {153, 73}, {173, 101}, {173, 135}, {153, 163},
                                {120, 174}, {87, 163}, {67, 135}, {67, 101},  {120, 118}, {222, 17}};
    const int drop = what < 11 && !state.MessageWindowOn ? 16 : 0;
    return {places[what].X, 26 + places[what].Y + drop};
}
inline void TapPassSpot(int what) {
    const Point at = PassSpot(what);
    Tap(at.X, at.Y);
}
inline void TapDigits(const std::string &digits) {
    for (const char digit : digits)
        TapPassSpot(digit - '0');
}
// The four digits twice, as "On" asks for them.
inline void SetPassCode(const std::string &digits) {
    SendCommand(CommandPasswordOn);
    TapDigits(digits);
    TapDigits(digits);
}
inline void SetLongCode(const std::string &code) {
    SendCommand(CommandPasswordOn);
    TapPassSpot(11);
    SetText(TextField, code);
    SendCommand(CommandTick);
    SetText(TextField, code);
    SendCommand(CommandTick);
}
// "Backup ..." or "Restore ..." up to the tick. False when the card could not be reached.
inline bool AtCard(int command) {
    return SendCommand(command) && Choose(DirectoryField, "Card");
}
inline std::string PassTitle() {
    return TextAt(state.StrongMode ? DialogWindow : HostWindow, {0, 0, 205, 21});
}
// Sectors of failed tries: how many eighths of the circle bear this colour.
inline int Sectors(Colour colour) {
    int sectors = 0;
    const Rect circle = {84, 82, 156, 154};
    const int drop = state.MessageWindowOn ? 0 : 16;
    constexpr Point middles[] = {{10, -23}, {23, -10}, {23, 10},   {10, 23},
                                 {-10, 23}, {-23, 10}, {-23, -10}, {-10, -23}};
    for (const Point &at : middles)
        sectors += ColourAt(HostWindow, (circle.Left + circle.Right) / 2 + at.X,
                            (circle.Top + circle.Bottom) / 2 + drop + at.Y) == colour;
    return sectors;
}

inline bool Contains(const std::vector<uint8_t> &bytes, const void *what, size_t count) {
    const auto *from = static_cast<const uint8_t *>(what);
    return std::search(bytes.begin(), bytes.end(), from, from + count) != bytes.end();
}
// The payloads of a record file; the spare tails mean nothing.
inline std::vector<uint8_t> Payloads(const std::string &hostPath, FileKind kind) {
    const std::vector<uint8_t> bytes = ReadBytes(hostPath);
    std::vector<uint8_t> payloads;
    for (size_t at = 0; at + static_cast<size_t>(RecordSize(kind)) <= bytes.size();
         at += static_cast<size_t>(RecordSize(kind)))
        payloads.insert(payloads.end(), bytes.begin() + static_cast<long>(at),
                        bytes.begin() + static_cast<long>(at) + PayloadSize(kind));
    return payloads;
}

struct CoveredFile {
    const char *Name;
    FileKind Kind;
};
// Every file of the sample that a key goes over.
inline constexpr CoveredFile CoveredFiles[] = {
    {"E1_00NOT", FileKind::Notepad},     {"E1_01IND", FileKind::Accounts},    {"E1_02A1", FileKind::Transactions},
    {"E1_02A2", FileKind::Transactions}, {"E1_02A3", FileKind::Transactions}, {"E1_02R1", FileKind::Transactions},
    {"E1_04DD", FileKind::Recurring},    {"E1_05FAV", FileKind::Templates},   {"E1_06BIN", FileKind::Bin},
    {"E1_07CAT", FileKind::Categories},  {"E1_08CUR", FileKind::Conversions}, {"E1_09SST", FileKind::Check},
};
inline std::map<std::string, std::vector<uint8_t>> AllPayloads(const TestRoot &root) {
    std::map<std::string, std::vector<uint8_t>> all;
    for (const CoveredFile &file : CoveredFiles)
        all[file.Name] = Payloads(root.DataFile(file.Name), file.Kind);
    return all;
}

// A device with something in every file: a note, an archived entry, a deleted template.
class FullDevice : public Device {
protected:
    FullDevice() { FillUp(); }
    static void FillUp() {
        SendCommand(CommandNotepad);
        SetText(TextField, "Remember the milk");
        SendCommand(CommandTick);
        ShowScreen(TemplateList);
        SendKey(Key::Delete);
        ShowScreen(AccountList);
        OpenRow(1);
        TapRow(1);
        SendCommand(CommandArchive);
        ShowScreen(AccountList);
    }
    // Restarts and stands before the gate.
    void Restart() {
        QuitProgram();
        ASSERT_TRUE(StartProgram());
    }
};

} // namespace testhost
