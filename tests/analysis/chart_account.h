// An account of a few named entries, charted on a started device.
#pragma once

#include "analysis/charts.h"
#include "frame/shown.h"
#include "host/device.h"
#include "screens/chart_picture.h"
#include "screens/screens.h"
#include "store/windows.h"

namespace testhost {

struct Entry {
    std::string Name;
    FixedAmount Value;
    uint32_t Year = 2026;
    int Month = 3;
    std::string Ref = "";
    uint8_t Flag = 0;
    int64_t CatID = 0;
    uint32_t Cleared = 0;
    uint8_t Kind = EntryRow;
};

// A file of these records, their tails empty.
template <typename Record> void WriteRecords(const std::string &hostPath, const std::vector<Record> &records) {
    std::vector<uint8_t> bytes(records.size() * sizeof(InFile<Record>));
    for (size_t n = 0; n < records.size(); ++n)
        std::memcpy(bytes.data() + n * sizeof(InFile<Record>), &records[n], sizeof(Record));
    WriteBytes(hostPath, bytes);
}

inline TRec RowOf(const Entry &entry) {
    TRec row;
    InitTRec(&row);
    Utf16(entry.Name).copy(row.Name, 31);
    Utf16(entry.Ref).copy(row.Memo, 31);
    row.Date = {entry.Year, static_cast<int8_t>(entry.Month), 5, {}, 0};
    InsertAbs(&row.Date);
    row.Value = entry.Value;
    row.Flag = entry.Flag;
    row.CatID = entry.CatID;
    row.Cleared = entry.Cleared;
    row.RowKind = entry.Kind;
    return row;
}

inline constexpr int BarIconX = 73, PieIconX = 93, IconY = 52, ListY = 62;

struct Charts : Device {
    void Write(const std::vector<TRec> &rows) const { WriteRecords(root.DataFile("E1_02A1"), rows); }
    void Write(const std::vector<Entry> &entries) const {
        std::vector<TRec> rows;
        for (const Entry &entry : entries)
            rows.push_back(RowOf(entry));
        Write(rows);
    }
    std::vector<GRec> Segments() const {
        const std::vector<uint8_t> bytes = ReadBytes(root.DataFile("CHART"));
        EXPECT_EQ(bytes.size() % sizeof(GRec), 0u);
        std::vector<GRec> segments(bytes.size() / sizeof(GRec));
        if (!segments.empty())
            std::memcpy(segments.data(), bytes.data(), segments.size() * sizeof(GRec));
        return segments;
    }
    // "Rent -5 x1, Food 3 x2": titles, thousandths, entries.
    std::string Told() const {
        std::string told;
        for (const GRec &segment : Segments())
            told += (told.empty() ? "" : ", ") + Utf8(segment.Title) + " " + std::to_string(segment.Value) + " x" +
                    std::to_string(segment.Entries);
        return told;
    }
    std::string Titles() const {
        std::string titles;
        for (const GRec &segment : Segments())
            titles += (titles.empty() ? "" : ",") + Utf8(segment.Title);
        return titles;
    }
    void Show(int iconX) {
        ShowScreen(GraphList);
        testhost::Tap(iconX, IconY);
    }
    void Build(int group, int order) {
        state.AnalysisGroup = group;
        state.AnalysisOrder = order;
        state.EntryCount[GraphList] = ConvertRecToGRec(EntriesShown());
    }
    static void TapList(int x, int y) { testhost::Tap(x, ListY + y); }
    static void TapBox(const Rect &box) { TapList((box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2); }
    static void Pick(int list, int entry) {
        TapBox(list == GroupList ? GroupField : OrderField);
        TapBox(DropEntryBox(list, entry));
    }
    static std::string Heading() { return TextAt(ListWindow, UpperHeading); }
};

} // namespace testhost
