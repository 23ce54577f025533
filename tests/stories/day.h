// What the stories share: an owner's device on 2 March 2026, its files as plain records, and the way into an account.
#pragma once

#include "host/hands.h"
#include "resources/forms.h"
#include "store/records/records.h"
#include <algorithm>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace stories {

using namespace testhost;

// Records of a data file, by layout alone: `bytes` in the file each, the payload first.
template <typename Record> std::vector<Record> RecordsIn(const std::string &hostPath) {
    const std::vector<uint8_t> bytes = ReadBytes(hostPath);
    constexpr size_t stored = sizeof(InFile<Record>);
    std::vector<Record> records(bytes.size() / stored);
    for (size_t n = 0; n < records.size(); ++n)
        std::memcpy(&records[n], bytes.data() + n * stored, sizeof(Record));
    return records;
}

template <typename Record> std::string NameOf(const Record &record) {
    char16_t name[TextRoom + 1] = {};
    std::copy_n(record.Name, TextRoom, name);
    return Utf8(name);
}

inline std::string DateOf(const RecDate &date) {
    char text[32];
    snprintf(text, sizeof text, "%04u-%02d-%02d", date.Year, date.Month, date.Day);
    return text;
}

// "2026-02-12 Opening balance 964000", in file order.
inline std::vector<std::string> EntriesIn(const std::string &hostPath) {
    std::vector<std::string> lines;
    for (const TRec &entry : RecordsIn<TRec>(hostPath))
        lines.push_back(DateOf(entry.Date) + " " + NameOf(entry) + " " + std::to_string(entry.Value));
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

// From the account list into an account; then the blank row behind its entries opens the form of a new one.
inline void OpenAccount(int row) {
    const Point place = RowMiddle(row);
    DoubleTap(place.X, place.Y);
}
inline void OpenNewEntry() {
    SendCommand(40076);
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
    SendCommand(40091);
}
inline void Cross() {
    SendCommand(40089);
}
inline void AddEntry(const NewEntry &entry) {
    OpenNewEntry();
    FillEntry(entry);
    Tick();
}

} // namespace stories
