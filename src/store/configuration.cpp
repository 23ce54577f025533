#include "store/configuration.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include "store/lists.h"
#include <cstring>

namespace {

// Room of the record for columns that no list has; written in a new record alone.
struct FurtherColumns {
    uint16_t Offset;
    uint8_t Count;
    int16_t Pixels[MostDividers];
};
// clang-format off
constexpr FurtherColumns Further[] = {
    {offsetof(ConfRec, TransactionColumns),  5, {0, 38, 120, 175, 226}},
    {offsetof(ConfRec, FurtherColumns),      5, {0, 38, 120, 175, 226}},
    {offsetof(ConfRec, FurtherColumns) + 20, 5, {0, 38, 120, 175, 226}},
    {offsetof(ConfRec, FurtherColumns) + 40, 5, {0, 38, 120, 175, 226}},
    {offsetof(ConfRec, FurtherColumns) + 60, 5, {0, 38, 120, 175, 226}},
};
// clang-format on

constexpr int32_t CategoryEdge[] = {10, 210}, ConversionEdge[] = {10, 216}; // bounds
constexpr int32_t ConversionGap = 10;
constexpr int32_t MostDaysAhead = 99, LastMovieSpeed = 45; // two digits can be entered

uint32_t *DividersAt(ConfRec *record, uint16_t offset) {
    return reinterpret_cast<uint32_t *>(reinterpret_cast<uint8_t *>(record) + offset);
}

// Shows `visit` each list whose columns stand in the record, with what is stored of them.
template <typename Visit> void ForEachDividers(ConfRec *record, Visit visit) {
    for (int list = AccountList; list < ListCount; ++list)
        if (const ListFacts *row = FactsOfList(list); row->List == list && row->Dividers != 0)
            visit(*row, DividersAt(record, row->Dividers));
}

int32_t Within(int32_t value, int32_t low, int32_t high, int32_t otherwise) {
    return value >= low && value <= high ? value : otherwise;
}

// The whole record with its tail, zero where the file is too short: such a file is a new one. A read that failed tells
// nothing about the record.
ConfRead ReadWhole(ConfRecFile *whole, In function) {
    *whole = {};
    const int file = OpenDataFile(FileKind::Configuration, OpenOrCreate);
    if (file < 0) {
        ReportError(function, Trouble::CcreateFail);
        return ConfRead::Failed;
    }
    const int64_t length = FileLength(file);
    const bool isShort = length >= 0 && length < RecordSize(FileKind::Configuration);
    const int there = !isShort && ReadRecord(file, FileKind::Configuration, 1, whole);
    CloseFile(file);
    if (!there)
        *whole = {};
    return there ? ConfRead::Whole : isShort ? ConfRead::Short : ConfRead::Failed;
}

void TakeFrontSettings(const ConfRec &record) {
    state.MovieSpeed = Within(record.MovieSpeed, 0, LastMovieSpeed, 20);
    state.PercentLink = Within(record.PercentLink, 1, 2, 2);
    state.ConfSpare = record.ConfSpare == 3 ? 3 : 2;
}

// Keeps the edges of a damaged record in order and on the screen.
void TakeDividers(const ListFacts &row, const uint32_t *stored) {
    int32_t *edge = state.ColumnEdge[row.List];
    for (int i = 0; i < row.DividerCount; ++i) {
        state.StoredColumn[row.List][i] = stored[i];
        const int32_t least = i ? edge[i - 1] : 0;
        edge[i] = denormalise(stored[i]);
        edge[i] = edge[i] < least ? least : edge[i] > RightEdge ? RightEdge : edge[i];
    }
    edge[0] = 0;
    edge[row.DividerCount - 1] = RightEdge;
    if (row.List == CategoryList)
        edge[1] = Within(edge[1], CategoryEdge[0], CategoryEdge[1], row.DividerPixels[1]);
    if (row.List == ConversionList &&
        (edge[1] < ConversionEdge[0] || edge[2] > ConversionEdge[1] || edge[1] > edge[2] - ConversionGap)) {
        edge[1] = row.DividerPixels[1];
        edge[2] = row.DividerPixels[2];
    }
    for (int i = 0; i < row.DividerCount; ++i)
        state.LoadedEdge[row.List][i] = edge[i];
}

} // namespace

uint32_t DividerToStore(int list, int edge) {
    const int32_t pixels = state.ColumnEdge[list][edge];
    return pixels == state.LoadedEdge[list][edge] ? state.StoredColumn[list][edge] : normalise(pixels);
}

void SetConfDefaults(ConfRec *record) {
    *record = {};
    record->Version = RecordVersion;
    record->NextID = 1;
    record->ShowFrontPage = 1;
    record->CheckAheadDays = 7;
    record->MovieSpeed = 20;
    record->PercentLink = 2;
    record->ConfSpare = 3;
    ForEachDividers(record, [](const ListFacts &row, uint32_t *stored) {
        for (int i = 0; i < row.DividerCount; ++i)
            stored[i] = normalise(row.DividerPixels[i]);
    });
    for (const FurtherColumns &row : Further)
        for (int i = 0; i < row.Count; ++i)
            DividersAt(record, row.Offset)[i] = normalise(row.Pixels[i]);
    LoadTodaysDate(&record->LastChecked);
}

ConfRead ReadConfRec(ConfRec *record, In function) {
    ConfRecFile whole;
    const ConfRead read = ReadWhole(&whole, function);
    if (read == ConfRead::Whole)
        *record = whole.Rec;
    else
        SetConfDefaults(record);
    return read;
}

int WriteConfiguration(const ConfRec *record, In function) {
    if (!state.DataUsable)
        return 0;
    ConfRecFile whole; // for its tail, which is written back as found
    if (ReadWhole(&whole, function) == ConfRead::Failed)
        return 0;
    whole.Rec = *record;
    const int file = OpenDataFile(FileKind::Configuration, OpenOrCreate);
    const int written = file >= 0 && WriteRecord(file, FileKind::Configuration, 1, &whole);
    if (!written)
        ReportError(function, Trouble::CwriteFail);
    CloseFile(file);
    return written;
}

int LoadConfFile() {
    ConfRec record;
    const ConfRead read = ReadConfRec(&record, In::LoadConfFile);
    if (read == ConfRead::Failed)
        return 0;
    state.PasswordOn = record.PasswordOn;
    if (state.PasswordOn == 0)
        state.CurrentKey = NoKey;
    TakeFrontSettings(record);
    ForEachDividers(&record, [](const ListFacts &row, const uint32_t *stored) { TakeDividers(row, stored); });
    return read == ConfRead::Whole || WriteConfiguration(&record, In::LoadConfFile);
}

int StoreConfFile() {
    if (!state.DataUsable)
        return 0;
    ConfRec record;
    const ConfRead read = ReadConfRec(&record, In::StoreConfFile);
    if (read == ConfRead::Failed)
        return 0;
    const ConfRec before = record;
    if (read == ConfRead::Whole) {
        record.MovieSpeed = state.MovieSpeed;
        record.PercentLink = state.PercentLink;
        record.ConfSpare = state.ConfSpare;
    }
    ForEachDividers(&record, [](const ListFacts &row, uint32_t *stored) {
        for (int i = 0; i < row.DividerCount; ++i)
            stored[i] = DividerToStore(row.List, i);
    });
    if (read == ConfRead::Whole && std::memcmp(&before, &record, sizeof record) == 0)
        return 1;
    return WriteConfiguration(&record, In::StoreConfFile);
}

void UpdateBmap() {
    ConfRec record;
    if (ReadConfRec(&record, In::UpdateBmap) == ConfRead::Failed)
        return;
    state.ShowFrontPage = record.ShowFrontPage;
    state.NewUserFields = record.NewUserFields;
    state.CheckAheadDays = Within(record.CheckAheadDays, 0, MostDaysAhead, 7);
    TakeFrontSettings(record);
}

int StampLastChecked() {
    if (!state.DataUsable)
        return 0;
    ConfRec record;
    const ConfRead read = ReadConfRec(&record, In::CheckT1totals);
    RecDate today;
    LoadTodaysDate(&today);
    if (read == ConfRead::Failed)
        return 0;
    if (read == ConfRead::Whole && std::memcmp(&record.LastChecked, &today, sizeof today) == 0)
        return 1;
    record.LastChecked = today;
    return WriteConfiguration(&record, In::CheckT1totals);
}
