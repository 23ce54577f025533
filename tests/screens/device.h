// A started device for the tests of the screens, and short ways to ask what happened.
#pragma once

#include "core/state.h"
#include "host/hands.h"
#include "host/test_host.h"
#include "resources/menus.h"
#include <array>
#include <cstring>
#include <gtest/gtest.h>

using namespace testhost;

// Monday, 2 March 2026; the sample's three accounts, help mode off. Account 1 has the rows Opening balance 12 February,
// ATM 21 February, Rent 23 February, the Day marker of today, Visa payment 9 March.
struct Device : testing::Test {
    TestRoot Root;
    Device() {
        SetClock(2026, 3, 2);
        EXPECT_TRUE(StartProgram());
        SendKey(Key::Help); // a first run opens the message window
        EXPECT_EQ(state.RowCount, 12);
    }

    template <typename File> std::vector<decltype(File::Rec)> Read(const std::string &name) const {
        const std::vector<uint8_t> bytes = ReadBytes(Root.DataFile(name));
        std::vector<decltype(File::Rec)> rows(bytes.size() / sizeof(File));
        for (size_t i = 0; i < rows.size(); ++i)
            std::memcpy(&rows[i], bytes.data() + i * sizeof(File), sizeof rows[i]);
        return rows;
    }
    // Titles of a file's rows, with commas between them.
    template <typename File> std::string Names(const std::string &name) const {
        std::string names;
        for (const auto &row : Read<File>(name))
            names += (names.empty() ? "" : ",") + Utf8(row.Name);
        return names;
    }
    std::string Accounts() const { return Names<ARecFile>("E1_01IND"); }
    std::string Entries(int account = 1) const { return Names<TRecFile>("E1_02A" + std::to_string(account)); }
};

// The remembered lines as their numbers: "0,207,0,0,0,0".
inline std::string Ids() {
    std::string ids;
    for (const int16_t id : state.MessageLine)
        ids += (ids.empty() ? "" : ",") + std::to_string(id);
    return ids;
}

inline void TapRow(int n) {
    Tap(RowMiddle(n).X, RowMiddle(n).Y);
}
inline void OpenRow(int n) {
    DoubleTap(RowMiddle(n).X, RowMiddle(n).Y);
}
// Across a row by so many pixels.
inline void StrokeRow(int n, int pixels = 60) {
    Drag(60, RowMiddle(n).Y, 60 + pixels, RowMiddle(n).Y);
}
inline void ShowScreen(int screen) {
    SendKey(static_cast<Key>(static_cast<int>(Key::Tab1) + screen - 1));
    ASSERT_EQ(state.CurrentScreen, screen);
}
// Drags row n to the tab in a slot of the page shown.
inline void DragToSlot(int n, int slot) {
    Drag(RowMiddle(n).X, RowMiddle(n).Y, TabMiddle(slot).X, TabMiddle(slot).Y);
}
