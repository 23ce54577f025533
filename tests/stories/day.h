// What the stories share: an owner's device on 2 March 2026, its files as plain records, and the way into an account.
#pragma once

#include "host/hands.h"
#include "host/rows.h"
#include "resources/forms.h"
#include "resources/menus.h"
#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace stories {

using namespace testhost;

// "2026-02-12 Opening balance 964000", in file order.
inline std::vector<std::string> EntriesIn(const std::string &hostPath) {
    std::vector<std::string> lines;
    for (const TRec &entry : RecordsIn<TRec>(hostPath))
        lines.push_back(Fields(entry, "Date") + " " + Fields(entry, "Name") + " " + Fields(entry, "Value"));
    return lines;
}

// What the screen shows in its rows, blank rows left out.
inline std::vector<std::string> RowsShown(int rows) {
    std::vector<std::string> shown;
    for (int n = 1; n <= rows; ++n)
        if (const std::string row = TextAt(ListWindow, Row(n)); !row.empty())
            shown.push_back(row);
    return shown;
}

inline void OpenNewEntry() {
    SendCommand(CommandNew);
}

struct NewEntry {
    int Year, Month, Day;
    const char *Title, *Whole, *Fraction;
};
// Fills the open form; the tick is the caller's.
inline void FillEntry(const NewEntry &entry) {
    EXPECT_TRUE(SetDate(DateField, entry.Year, entry.Month, entry.Day));
    EXPECT_TRUE(SetText(TitleField, entry.Title));
    EXPECT_TRUE(SetText(WholeField, entry.Whole));
    EXPECT_TRUE(SetText(FractionField, entry.Fraction));
}
inline void Tick() {
    SendCommand(CommandTick);
}
inline void Cross() {
    SendCommand(CommandCross);
}
inline void AddEntry(const NewEntry &entry) {
    OpenNewEntry();
    FillEntry(entry);
    Tick();
}

} // namespace stories
