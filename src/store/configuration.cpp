#include "store/configuration.h"
#include "cipher/keys.h"
#include "state/error_log.h"
#include "state/state.h"
#include "store/catalogue.h"
#include <cstring>

namespace {

struct DividerRow {
    int List; // NoList: written in a new record alone
    uint16_t Offset;
    uint8_t Count;
    int16_t Pixels[5];
};
// clang-format off
constexpr DividerRow Dividers[] = {
    {AccountList,    offsetof(ConfRec, AccountColumns),        3, {0, 150, 226}},
    {NoList,         offsetof(ConfRec, TransactionColumns),    5, {0, 38, 120, 175, 226}},
    {RecurringList,  offsetof(ConfRec, RecurringColumns),      5, {0, 38, 120, 175, 226}},
    {TemplateList,   offsetof(ConfRec, TemplateColumns),       3, {0, 150, 226}},
    {BinList,        offsetof(ConfRec, BinColumns),            5, {0, 38, 120, 175, 226}},
    {CategoryList,   offsetof(ConfRec, CategoryColumns),       3, {0, 45, 226}},
    {ConversionList, offsetof(ConfRec, ConversionColumns),     4, {0, 95, 130, 226}},
    {NoList,         offsetof(ConfRec, FurtherColumns),        5, {0, 38, 120, 175, 226}},
    {NoList,         offsetof(ConfRec, FurtherColumns) + 20,   5, {0, 38, 120, 175, 226}},
    {NoList,         offsetof(ConfRec, FurtherColumns) + 40,   5, {0, 38, 120, 175, 226}},
    {NoList,         offsetof(ConfRec, FurtherColumns) + 60,   5, {0, 38, 120, 175, 226}},
};
// clang-format on

constexpr int32_t CategoryEdge[] = {10, 210}, ConversionEdge[] = {10, 216}; // bounds
constexpr int32_t ConversionGap = 10;
constexpr int32_t MostDaysAhead = 99, LastMovieSpeed = 45; // two digits can be entered

uint32_t *StoredDividers(ConfRec *record, const DividerRow &row) {
    return reinterpret_cast<uint32_t *>(reinterpret_cast<uint8_t *>(record) + row.Offset);
}

int32_t Within(int32_t value, int32_t low, int32_t high, int32_t otherwise) {
    return value >= low && value <= high ? value : otherwise;
}

// The whole record with its tail, zero where the file is too short.
int ReadWhole(ConfRecFile *whole, In function) {
    *whole = {};
    const int file = OpenDataFile(FileKind::Configuration, OpenOrCreate, 0, nullptr);
    if (file < 0) {
        ReportError(function, Trouble::CcreateFail);
        return 0;
    }
    const int there = ReadRecord(file, FileKind::Configuration, 1, whole);
    CloseFile(file);
    if (!there)
        *whole = {};
    return there;
}

void TakeFrontSettings(const ConfRec &record) {
    state.MovieSpeed = Within(record.MovieSpeed, 0, LastMovieSpeed, 20);
    state.PercentLink = Within(record.PercentLink, 1, 2, 2);
    state.ConfSpare = record.ConfSpare == 3 ? 3 : 2;
}

// Keeps the edges of a damaged record in order and on the screen.
void TakeDividers(const DividerRow &row, const uint32_t *stored) {
    int32_t *edge = state.ColumnEdge[row.List];
    for (int i = 0; i < row.Count; ++i) {
        state.StoredColumn[row.List][i] = stored[i];
        const int32_t least = i ? edge[i - 1] : 0;
        edge[i] = denormalise(stored[i]);
        edge[i] = edge[i] < least ? least : edge[i] > RightEdge ? RightEdge : edge[i];
    }
    edge[0] = 0;
    edge[row.Count - 1] = RightEdge;
    if (row.List == CategoryList)
        edge[1] = Within(edge[1], CategoryEdge[0], CategoryEdge[1], row.Pixels[1]);
    if (row.List == ConversionList &&
        (edge[1] < ConversionEdge[0] || edge[2] > ConversionEdge[1] || edge[1] > edge[2] - ConversionGap)) {
        edge[1] = row.Pixels[1];
        edge[2] = row.Pixels[2];
    }
    for (int i = 0; i < row.Count; ++i)
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
    if (state.PasswordOn == 1) { // a record that goes missing in a run does not take the way to the key with it
        record->PasswordOn = 1;
        record->CipherSuite = static_cast<uint8_t>(state.CipherSuite);
        std::memcpy(record->KeySalt, state.KeySalt, sizeof record->KeySalt);
    }
    for (const DividerRow &row : Dividers)
        for (int i = 0; i < row.Count; ++i)
            StoredDividers(record, row)[i] = normalise(row.Pixels[i]);
    LoadTodaysDate(&record->LastChecked);
}

int ReadConfiguration(ConfRec *record, In function) {
    ConfRecFile whole;
    const int there = ReadWhole(&whole, function);
    if (there)
        *record = whole.Rec;
    else
        SetConfDefaults(record);
    return there;
}

int WriteConfiguration(const ConfRec *record, In function) {
    if (!state.DataUsable)
        return 0;
    ConfRecFile whole;
    const int there = ReadWhole(&whole, function); // for its tail, which is written back as found
    whole.Rec = *record;
    const int file = OpenDataFile(FileKind::Configuration, OpenOrCreate, 0, nullptr);
    if (file < 0)
        return 0; // reported by the read
    // A record that stands there and can't be read is not written over: it may say how to make the key.
    const bool mayWrite = there || FileLength(file) < RecordSize(FileKind::Configuration);
    const int written = mayWrite && WriteRecord(file, FileKind::Configuration, 1, &whole);
    if (!written)
        ReportError(function, Trouble::CwriteFail);
    CloseFile(file);
    return written;
}

void LoadConfFile() {
    ConfRec record;
    if (!ReadConfiguration(&record, In::LoadConfFile))
        WriteConfiguration(&record, In::LoadConfFile);
    state.PasswordOn = record.PasswordOn;
    state.CipherSuite = record.CipherSuite;
    std::memcpy(state.KeySalt, record.KeySalt, sizeof state.KeySalt);
    if (state.PasswordOn == 0)
        ForgetCurrentKey();
    TakeFrontSettings(record);
    for (const DividerRow &row : Dividers)
        if (row.List != NoList)
            TakeDividers(row, StoredDividers(&record, row));
}

void StoreConfFile() {
    if (!state.DataUsable)
        return;
    ConfRec record;
    if (ReadConfiguration(&record, In::StoreConfFile)) {
        record.MovieSpeed = state.MovieSpeed;
        record.PercentLink = state.PercentLink;
        record.ConfSpare = state.ConfSpare;
    }
    for (const DividerRow &row : Dividers)
        for (int i = 0; row.List != NoList && i < row.Count; ++i)
            StoredDividers(&record, row)[i] = DividerToStore(row.List, i);
    WriteConfiguration(&record, In::StoreConfFile);
}

void UpdateBmap() {
    ConfRec record;
    ReadConfiguration(&record, In::UpdateBmap);
    state.ShowFrontPage = record.ShowFrontPage;
    state.NewUserFields = record.NewUserFields;
    state.CheckAheadDays = Within(record.CheckAheadDays, 0, MostDaysAhead, 7);
    TakeFrontSettings(record);
}

int StampLastChecked() {
    ConfRec record;
    ReadConfiguration(&record, In::CheckT1totals);
    LoadTodaysDate(&record.LastChecked);
    return WriteConfiguration(&record, In::CheckT1totals);
}
