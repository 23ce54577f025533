#include "program/sample_data.h"
#include "ledger/balance.h"
#include "ledger/markers.h"
#include "platform/action.h"
#include "platform/clock.h"
#include "platform/text.h"
#include "state/state.h"
#include "store/configuration.h"
#include "store/index.h"
#include "store/operations.h"
#include "store/side_files.h"
#include "store/windows.h"
#include <iterator>

namespace {

struct SampleCategory {
    const char16_t *Name, *NameAlone; // beside the sample's accounts; written for itself
    const char16_t *Description;
    uint32_t Red, Green, Blue;
};
struct SampleEntry {
    int Account; // 1 to 3
    int Days;    // of an account's first row from today, of the others from the row before
    uint8_t Flag;
    const char16_t *Name, *Memo;
    int32_t Units;
    FixedAmount Value;
    uint32_t Cleared;
    int Category; // 1 to 3, 0 none
    int32_t Position;
};
struct SampleAccount {
    const char16_t *Name;
    uint32_t Flag;
};
struct SampleTemplate {
    const char16_t *Name;
    FixedAmount Value;
    uint32_t Cleared, Flag;
};
struct SampleConversion {
    const char16_t *From, *To, *Note;
    FixedAmount Rate;
};

constexpr char16_t AutoMemo[] = u"Auto created example";

// clang-format off
constexpr SampleCategory Categories[] = {
    {u"Cat 1 - Credit cards", u"Cat 1 - Credit cards",      u"This is dummy entry 1", 200,   0,   0},
    {u"Cat 2 - Corporate",    u"Cat 2 - Corporate Project", u"This is dummy entry 2",   0, 200,   0},
    {u"Cat 3 - Outgoings",    u"Cat 3 - Outgoings",         u"This is dummy entry 3",   0,   0, 200},
};
constexpr SampleAccount Accounts[] = {{u"Current account", 0}, {u"Savings account", 0}, {u"Work expenses", 1}};
constexpr SampleEntry Entries[] = {
    // account days flag name                   memo                            units   value  cleared category position
    {1, -18, 3, u"Opening balance",    AutoMemo,                       1,   964000, 0, 0, 1},
    {1,   9, 1, u"ATM",                AutoMemo,                       1,  -200000, 0, 0, 2},
    {1,   2, 0, u"Rent",               AutoMemo,                       1,  -248000, 0, 3, 3},
    {1,  14, 2, u"Visa payment",       AutoMemo,                       1,  -344980, 0, 1, 4},
    {2, -18, 3, u"Opening balance",    AutoMemo,                       1,  9000000, 0, 0, 1},
    {2,  10, 1, u"Car deposit",        AutoMemo,                       1, -3000000, 1, 3, 2},
    {2,   4, 0, u"Interest",           AutoMemo,                       1,    33210, 1, 0, 3},
    {3,  -7, 2, u"Train",              u"London Mtg, Project 1425",    1,   -49500, 0, 2, 1},
    {3,   3, 2, u"Mileage to station", u"Project 1425, 0.24 per km",  12,     -240, 0, 2, 2},
    {3,   3, 1, u"Hotel",              u"Project 1425",                1,  -109650, 0, 2, 3},
};
constexpr SampleTemplate Templates[] = {
    {u"Gas",           -29750, 0, 0},
    {u"ATM",          -100000, 1, 1},
    {u"Bus (single)",   -1700, 0, 1},
    {u"Bus (return)",   -3000, 0, 1},
    {u"Train",         -49500, 0, 1},
    {u"Dividend",       98110, 0, 3},
};
constexpr SampleConversion Conversions[] = {
    {u"USD (USA) Dollar",          u"JPY (Japan) Yen",           u"This is dummy entry 1", 113955},
    {u"USD (USA) Dollar",          u"EUR (European Union) Euro", u"This is dummy entry 1",    837},
    {u"EUR (European Union) Euro", u"AUD (Australia) Dollar",    u"This is dummy entry 1",   1580},
    {u"GBP (UK) Pound",            u"AUD (Australia) Dollar",    u"This is dummy entry 2",   2329},
    {u"kg",                        u"lb",                        u"This is dummy entry 3",   2222},
};
// clang-format on
constexpr int32_t MarkerPosition = 4;

template <typename Rec> void Put(const Place &place, int32_t position, const Rec &row) {
    if (!AddRecord(place, position, row))
        RefuseAction(); // the samples come whole
}
template <typename Rec> void Put(int32_t position, const Rec &row) {
    Put(Place{ListOf<Rec>}, position, row);
}

// The first of the three ids; the others follow it.
int64_t AddCategories(bool besideAccounts) {
    const int64_t firstID = ClockTicks();
    int32_t position = 0;
    for (const SampleCategory &sample : Categories) {
        CatRec row;
        InitCatRec(&row);
        CopyText(row.Name, TextRoom, besideAccounts ? sample.Name : sample.NameAlone);
        CopyText(row.Description, TextRoom, sample.Description);
        row.Red = sample.Red;
        row.Green = sample.Green;
        row.Blue = sample.Blue;
        row.CatID = firstID + position;
        Put(++position, row);
    }
    state.EntryCount[CategoryList] = state.SelectedPos[CategoryList] = position;
    LoadCatFile(position);
    return firstID;
}

void AddEntries(int account, uint32_t accountID, int64_t firstCategory) {
    const Place place = LiveRows(accountID, Rows::All);
    RecDate today;
    LoadTodaysDate(&today);
    uint32_t day = today.DayNumber;
    for (const SampleEntry &sample : Entries) {
        if (sample.Account != account)
            continue;
        day += static_cast<uint32_t>(sample.Days);
        TRec row;
        InitTRec(&row);
        row.Date = DateFromDayNumber(day);
        row.Rank = EntryRank;
        row.Flag = sample.Flag;
        CopyText(row.Name, TextRoom, sample.Name);
        CopyText(row.Memo, TextRoom, sample.Memo);
        row.Units = sample.Units;
        row.Value = sample.Value;
        row.Cleared = sample.Cleared;
        row.CatID = sample.Category ? firstCategory + sample.Category - 1 : 0;
        Put(place, sample.Position, row);
    }
    TRec marker;
    FillDayMarker(&marker, today);
    Put(place, MarkerPosition, marker);
    CalcTotals(place);
}

void AddAccounts() {
    const int64_t firstCategory = AddCategories(true);
    uint32_t id[std::size(Accounts)];
    for (size_t i = 0; i < std::size(Accounts); ++i) {
        ARec row;
        InitARec(&row);
        CopyText(row.Name, TextRoom, Accounts[i].Name);
        row.Flag = Accounts[i].Flag;
        row.ID = id[i] = GetNextID();
        row.MinLimit = 50;
        row.MaxLimit = 50000;
        Put(static_cast<int32_t>(i) + 1, row);
    }
    LoadAccFile(1);
    for (size_t i = 0; i < std::size(Accounts); ++i)
        AddEntries(static_cast<int>(i) + 1, id[i], firstCategory);
}

void AddRecurring() {
    RecDate today;
    LoadTodaysDate(&today);
    const uint32_t savings = AccountNameToId(Accounts[1].Name);
    DDRec row;
    InitDDRec(&row);
    row.ItemStatus = 0;
    row.NextDate = DateFromDayNumber(today.DayNumber + 30);
    row.DayWanted = static_cast<uint8_t>(today.Day);
    row.Rank = EntryRank;
    CopyText(row.Name, TextRoom, u"Monthly credit");
    for (DDBlock &block : row.Block) {
        block.Flag = 1;
        block.Units = 1;
        block.Account = savings;
    }
    row.Block[0].Cleared = 1;
    row.Block[0].Value = 2000000;
    row.Block[1].Value = 2500000;
    CopyText(row.Block[0].Memo, TextRoom, u"1st Month ");
    CopyText(row.Block[1].Memo, TextRoom, u"Subsequent months");
    CopyText(row.PeriodUnit, static_cast<int>(std::size(row.PeriodUnit)), u"Month(s)");
    row.PeriodCount = 1;
    row.TotalCount = row.Remaining = 5;
    Put(1, row);
    LoadDDFile(1);
}

void AddTemplates() {
    int32_t position = 0;
    for (const SampleTemplate &sample : Templates) {
        FRec row;
        InitFRec(&row);
        CopyText(row.Name, TextRoom, sample.Name);
        CopyText(row.Memo, TextRoom, u"This is a dummy entry");
        row.Units = 1;
        row.Value = sample.Value;
        row.Cleared = sample.Cleared;
        row.Flag = sample.Flag;
        Put(++position, row);
    }
    LoadFavFile(position);
}

void AddConversions() {
    int32_t position = 0;
    for (const SampleConversion &sample : Conversions) {
        CurRec row;
        InitCurRec(&row);
        CopyText(row.FromName, TextRoom, sample.From);
        CopyText(row.ToName, TextRoom, sample.To);
        CopyText(row.Note, TextRoom, sample.Note);
        row.Rate = sample.Rate;
        row.InverseRate = 1000000 / sample.Rate;
        Put(++position, row);
    }
    state.EntryCount[ConversionList] = state.SelectedPos[ConversionList] = position;
    LoadCurFile(position);
}

void AddCheckRecord() {
    ConfRec record = {};
    record.Version = RecordVersion;
    CopyText(record.PassCheck, static_cast<int>(std::size(record.PassCheck)), PassCheckText);
    if (!StoreRecord(CheckRecord, &record))
        RefuseAction();
}

} // namespace

void CreateSampleData(FileKind kind) {
    switch (kind) {
    case FileKind::Accounts:
        AddAccounts();
        break;
    case FileKind::Configuration:
        if (!LoadConfFile())
            RefuseAction();
        break;
    case FileKind::Recurring:
        AddRecurring();
        break;
    case FileKind::Templates:
        AddTemplates();
        break;
    case FileKind::Categories:
        AddCategories(false);
        break;
    case FileKind::Conversions:
        AddConversions();
        break;
    case FileKind::Check:
        AddCheckRecord();
        break;
    default:
        break;
    }
}
