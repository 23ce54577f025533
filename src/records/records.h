// Record layouts. A file is nothing but its records; all integers little-endian, texts zero-terminated 16-bit. Each
// structure is the payload of a record, which is also its row in memory; in a file a spare tail of 200 bytes follows.
// Unused bytes are zero in every record written here, and no reader gives them a meaning.
#pragma once

#include "values/amounts.h"
#include "values/dates.h"
#include <bit>
#include <cstddef>
#include <cstdint>
#include <type_traits>

static_assert(std::endian::native == std::endian::little, "records are written as they stand in memory");

// clang-format off
// ORDER FILEKIND: the two digits in the file names, FileSizes
enum class FileKind : uint8_t {
    Notepad, Accounts, Transactions, Configuration, Recurring, Templates, Bin, Categories, Conversions, Check, Count
};

// A list, and the screen that shows it.
enum List : int {
    NoList, AccountList, TransactionList, GraphList, RecurringList, TemplateList, BinList, CategoryList, ConversionList,
    ListCount
};

enum RowKind : uint8_t { // of a TRec; an ARec knows 0 and HeadingRow alone
    EntryRow = 0,
    DayMarker = 1,
    ArchiveMarker = 2,
    DeletedMarker = 4,
    ReconcileEntry = 8,
    HeadingRow = 1, // a Total marker of the account list
};
enum Rank : uint32_t { DeletedRank = 1, ArchiveRank = 2, EntryRank = 3, DayRank = 4 };

// 2 to 6 are share accounts; the value also names the measure in the third column.
enum AccountType : uint32_t {
    BankAccount = 0, ListAccount = 1, ShareNumber = 2, SharePrice = 3, ShareTotal = 4, ShareValue = 5, ShareCash = 6
};
// clang-format on
constexpr bool IsShare(int64_t accountType) {
    return accountType > 1;
}

inline constexpr int32_t ForEver = 314159; // DDRec.TotalCount of an item without an end
inline constexpr uint8_t RecordVersion = 1;
inline constexpr int TextRoom = 32; // units of a record's text field, terminator included
inline constexpr int TailBytes = 200;

struct ARec { // an account, or a heading of the account list
    uint8_t Version;
    uint8_t RowKind;
    char16_t Name[32];
    uint8_t Padding66[2];
    uint32_t ID;                               // names the transaction files
    uint32_t AccType;                          // AccountType
    uint32_t Flag;                             // 0 to 3
    FixedAmount Balance, ClearedBalance;       // as of today, live file
    FixedAmount ArcBalance, ArcClearedBalance; // as of today, archive
    uint32_t ColumnPos[5];                     // thousandths of the screen width
    uint32_t LowWatch, HighWatch;              // 1 when the limit is watched
    int32_t MinLimit, MaxLimit;                // whole units
    uint32_t ClearedInJeopardy, BalanceInJeopardy;
    uint8_t Unused156[4];
    uint8_t Extra[32];
    uint8_t Unused192[48];
    uint32_t Extra2[2];
    uint8_t Unused248[280];
};

struct TRec { // a transaction or a marker
    uint8_t Version;
    uint8_t RowKind;
    uint8_t CatSlot;
    uint8_t Padding3;
    RecDate Date;
    uint32_t Rank;
    char16_t Name[32];
    uint32_t Cleared; // 1 when reconciled
    uint32_t Cash;    // 1: in a share account the row moves CashAmount alone
    uint32_t NoCash;  // 1: shares come or go without cash
    uint8_t Flag;     // 0 to 3
    uint8_t Padding97;
    char16_t Memo[32];
    uint8_t Padding162[2];
    int32_t Units;        // signed multiplier, or number of shares
    int32_t ClearedUnits; // Archive markers
    uint8_t Padding172[4];
    FixedAmount CashAmount, ClearedCashAmount;
    FixedAmount Value;        // per unit; the share price
    FixedAmount ClearedValue; // the price in force for the cleared totals
    uint32_t TransferID;      // ID of the account at the other end, 0 none
    int32_t RunUnits, RunClearedUnits;
    uint8_t Padding220[4];
    FixedAmount RunTotal, RunCleared;
    uint32_t ParentRow; // in a filter file: 1-based position in the unfiltered file
    uint8_t Padding244[4];
    int64_t CatID; // 0 none
    uint8_t Unused256[8];
    char16_t FITID[32]; // the bank's identity of an imported entry
    uint8_t Unused328[80];
};

struct DDBlock { // one of the two blocks of a recurring item, at 96 and 288
    uint32_t Cleared, Cash, NoCash;
    uint8_t Flag;
    uint8_t Padding109[3];
    int32_t Units;
    uint8_t Padding116[4];
    FixedAmount Value;
    uint32_t Account;  // ID of the account posted to
    uint32_t Transfer; // ID of the partner, 0 none
    char16_t Memo[32];
    uint8_t Padding200[8];
    int64_t CatID;
    uint8_t Unused216[72];
};

struct DDRec { // a recurring item
    uint8_t Version;
    uint8_t RowKind;
    uint8_t CatSlot;
    uint8_t Padding3;
    uint32_t ItemStatus; // bit 0 generates many entries, bit 1 refers to a missing account
    RecDate NextDate;
    uint32_t Rank;
    uint8_t DayWanted; // the day of the month asked for, kept through clamping
    uint8_t Padding25;
    char16_t Name[32];
    uint8_t FirstDone; // 0 while Block[0] is in force, then 1
    uint8_t Padding91[5];
    DDBlock Block[2];        // first and subsequent occurrences
    char16_t PeriodUnit[10]; // "Day(s)", "Week(s)", "Month(s)", "Year(s)"; only the first letter is tested
    int32_t PeriodCount;
    int32_t TotalCount, Remaining; // occurrences asked for and still to come, or ForEver
    uint32_t Spare512;
    uint8_t Spare516[2];
    uint8_t Padding518[2];
    uint32_t Spare520;
    uint8_t Unused524[4];
};

struct FRec { // a template
    uint8_t Version;
    uint8_t RowKind;
    char16_t Name[32];
    uint8_t Padding66[2];
    uint32_t Cleared, Cash, NoCash, Flag;
    char16_t Memo[32];
    int32_t Units;
    FixedAmount Value;
    uint32_t Transfer; // ID of the partner, 0 none
    uint8_t Unused164[20];
    int64_t CatID;
    uint8_t Unused192[144];
};

struct BinRec { // anything deleted
    uint8_t Version;
    uint8_t RowKind;
    uint8_t CatSlot;
    uint8_t Padding3;
    RecDate Date;
    uint32_t Rank;
    char16_t Name[32];
    uint8_t FirstDone;
    uint8_t Padding85[3];
    uint32_t Cleared, Cash, NoCash;
    uint8_t Flag;
    uint8_t Padding101[3];
    int32_t Units;
    uint8_t Padding108[4];
    FixedAmount Value;
    uint32_t Account1, Transfer;
    char16_t Memo[32];
    uint8_t Padding192[8];
    int64_t CatID;
    uint8_t Unused208[72];
    uint32_t Cleared2, Cash2, NoCash2, Flag2;
    int32_t Units2;
    uint8_t Padding300[4];
    FixedAmount Value2;
    uint32_t Account2, Transfer2;
    char16_t Memo2[32];
    uint8_t Padding384[8];
    int64_t CatID2;
    uint8_t Unused400[72];
    uint32_t OwnerID, OwnerType, WasArchive;
    uint8_t Padding484[4];
    FixedAmount Totals[4]; // Balance to ArcClearedBalance of an account
    uint32_t SourceList;   // List
    uint32_t RunUnits;     // or a category's Green
    uint32_t RunClearedUnits;
    uint32_t CashAmountLow; // or a category's Red
    uint32_t ClearedCashAmountLow;
    int32_t ClearedUnits;
    FixedAmount ClearedValue;
    FixedAmount RunTotal; // or a category's Blue in the first word
    FixedAmount RunCleared;
    uint32_t ItemStatus;
    uint8_t DayWanted;
    uint8_t Padding573;
    char16_t PeriodUnit[10];
    uint8_t Padding594[2];
    int32_t PeriodCount, TotalCount, Remaining;
    char16_t FromName[32], ToName[32];
    uint8_t AccountLayout[44]; // ColumnPos to BalanceInJeopardy of an account
    uint8_t Carries;           // 1: of a transaction the three fields below, instead of the two Low words alone
    uint8_t Padding781[3];
    FixedAmount CashAmount, ClearedCashAmount;
    char16_t FITID[32];
};

struct CatRec { // a category
    uint8_t Version;
    uint8_t Padding1;
    char16_t Name[32], Description[32];
    uint8_t Padding130[2];
    uint32_t Red, Green, Blue; // 0 to 255
    uint8_t Unused144[24];
    int64_t CatID; // drawn from the clock, above 10000
    uint8_t Unused176[144];
};

struct CurRec { // a conversion
    uint8_t Version;
    uint8_t RowKind;
    char16_t FromName[32], ToName[32], Note[32];
    uint8_t Padding194[6];
    FixedAmount Rate;        // how many ToName for one FromName
    FixedAmount InverseRate; // 1000000 / Rate, 0 when Rate is 0
    uint32_t DirectionState; // 1 when shown reversed
    uint32_t ColourFlag;     // 0 to 3
    uint8_t Unused224[160];
};

struct ConfRec { // the configuration record; the check record has its shape
    uint8_t Version;
    uint8_t Padding1[3];
    uint32_t NextID;
    uint32_t ShowFrontPage;
    int32_t CheckAheadDays;
    int32_t MovieSpeed;
    int32_t PercentLink;
    uint32_t NewUserFields; // 1: new entries open in the Advanced view
    uint8_t Reserved28[16];
    uint32_t ConfSpare; // 3 or 2
    uint32_t PasswordOn;
    uint8_t Reserved52[88];
    char16_t PassCheck[17]; // of the check record
    uint8_t Reserved174[286];
    uint32_t AccountColumns[3]; // all dividers in thousandths of the screen width
    uint32_t TransactionColumns[9];
    uint32_t RecurringColumns[5];
    uint32_t TemplateColumns[3];
    uint32_t BinColumns[5];
    uint32_t CategoryColumns[3];
    uint32_t ConversionColumns[4];
    uint8_t Padding588[4];
    uint32_t FurtherColumns[4][5];
    RecDate LastChecked;
    uint8_t Reserved684[4];
};

struct NoteRec {
    char16_t Text[1000];
};

// A record as it stands in a file.
template <typename Payload> struct InFile {
    Payload Rec;
    uint8_t Tail[TailBytes];
};
struct NoteFile {
    NoteRec Rec;
    uint8_t Tail[400];
};
using ARecFile = InFile<ARec>;
using TRecFile = InFile<TRec>;
using DDRecFile = InFile<DDRec>;
using FRecFile = InFile<FRec>;
using BinRecFile = InFile<BinRec>;
using CatRecFile = InFile<CatRec>;
using CurRecFile = InFile<CurRec>;
using ConfRecFile = InFile<ConfRec>;

inline constexpr int LargestRecord = 2400; // bytes, the notepad

// A row of the transaction window.
struct TranRow {
    uint32_t Position; // in the file, from 1
    uint32_t Padding;
    TRec Rec;
};
static_assert(sizeof(TranRow) == 416);

// clang-format off
#define AT(record, field, offset) static_assert(offsetof(record, field) == (offset))
AT(ARec, Name, 2); AT(ARec, ID, 68); AT(ARec, AccType, 72); AT(ARec, Flag, 76); AT(ARec, Balance, 80);
AT(ARec, ClearedBalance, 88); AT(ARec, ArcBalance, 96); AT(ARec, ArcClearedBalance, 104); AT(ARec, ColumnPos, 112);
AT(ARec, LowWatch, 132); AT(ARec, HighWatch, 136); AT(ARec, MinLimit, 140); AT(ARec, MaxLimit, 144);
AT(ARec, ClearedInJeopardy, 148); AT(ARec, BalanceInJeopardy, 152); AT(ARec, Extra, 160); AT(ARec, Extra2, 240);

AT(TRec, CatSlot, 2); AT(TRec, Date, 4); AT(TRec, Rank, 16); AT(TRec, Name, 20); AT(TRec, Cleared, 84);
AT(TRec, Cash, 88); AT(TRec, NoCash, 92); AT(TRec, Flag, 96); AT(TRec, Memo, 98); AT(TRec, Units, 164);
AT(TRec, ClearedUnits, 168); AT(TRec, CashAmount, 176); AT(TRec, ClearedCashAmount, 184); AT(TRec, Value, 192);
AT(TRec, ClearedValue, 200); AT(TRec, TransferID, 208); AT(TRec, RunUnits, 212); AT(TRec, RunClearedUnits, 216);
AT(TRec, RunTotal, 224); AT(TRec, RunCleared, 232); AT(TRec, ParentRow, 240); AT(TRec, CatID, 248);
AT(TRec, FITID, 264);

AT(DDRec, ItemStatus, 4); AT(DDRec, NextDate, 8); AT(DDRec, Rank, 20); AT(DDRec, DayWanted, 24); AT(DDRec, Name, 26);
AT(DDRec, FirstDone, 90); AT(DDRec, Block, 96); AT(DDRec, PeriodUnit, 480); AT(DDRec, PeriodCount, 500);
AT(DDRec, TotalCount, 504); AT(DDRec, Remaining, 508); AT(DDRec, Spare512, 512); AT(DDRec, Spare516, 516);
AT(DDRec, Spare520, 520);
AT(DDBlock, Cleared, 0); AT(DDBlock, Cash, 4); AT(DDBlock, NoCash, 8); AT(DDBlock, Flag, 12); AT(DDBlock, Units, 16);
AT(DDBlock, Value, 24); AT(DDBlock, Account, 32); AT(DDBlock, Transfer, 36); AT(DDBlock, Memo, 40);
AT(DDBlock, CatID, 112);

AT(FRec, Name, 2); AT(FRec, Cleared, 68); AT(FRec, Cash, 72); AT(FRec, NoCash, 76); AT(FRec, Flag, 80);
AT(FRec, Memo, 84); AT(FRec, Units, 148); AT(FRec, Value, 152); AT(FRec, Transfer, 160); AT(FRec, CatID, 184);

AT(BinRec, Date, 4); AT(BinRec, Rank, 16); AT(BinRec, Name, 20); AT(BinRec, FirstDone, 84); AT(BinRec, Cleared, 88);
AT(BinRec, Cash, 92); AT(BinRec, NoCash, 96); AT(BinRec, Flag, 100); AT(BinRec, Units, 104); AT(BinRec, Value, 112);
AT(BinRec, Account1, 120); AT(BinRec, Transfer, 124); AT(BinRec, Memo, 128); AT(BinRec, CatID, 200);
AT(BinRec, Cleared2, 280); AT(BinRec, Cash2, 284); AT(BinRec, NoCash2, 288); AT(BinRec, Flag2, 292);
AT(BinRec, Units2, 296); AT(BinRec, Value2, 304); AT(BinRec, Account2, 312); AT(BinRec, Transfer2, 316);
AT(BinRec, Memo2, 320); AT(BinRec, CatID2, 392); AT(BinRec, OwnerID, 472); AT(BinRec, OwnerType, 476);
AT(BinRec, WasArchive, 480); AT(BinRec, Totals, 488); AT(BinRec, SourceList, 520); AT(BinRec, RunUnits, 524);
AT(BinRec, RunClearedUnits, 528); AT(BinRec, CashAmountLow, 532); AT(BinRec, ClearedCashAmountLow, 536);
AT(BinRec, ClearedUnits, 540); AT(BinRec, ClearedValue, 544); AT(BinRec, RunTotal, 552); AT(BinRec, RunCleared, 560);
AT(BinRec, ItemStatus, 568); AT(BinRec, DayWanted, 572); AT(BinRec, PeriodUnit, 574); AT(BinRec, PeriodCount, 596);
AT(BinRec, TotalCount, 600); AT(BinRec, Remaining, 604); AT(BinRec, FromName, 608); AT(BinRec, ToName, 672);
AT(BinRec, AccountLayout, 736); AT(BinRec, Carries, 780); AT(BinRec, CashAmount, 784);
AT(BinRec, ClearedCashAmount, 792); AT(BinRec, FITID, 800);

AT(CatRec, Name, 2); AT(CatRec, Description, 66); AT(CatRec, Red, 132); AT(CatRec, Green, 136); AT(CatRec, Blue, 140);
AT(CatRec, CatID, 168);

AT(CurRec, FromName, 2); AT(CurRec, ToName, 66); AT(CurRec, Note, 130); AT(CurRec, Rate, 200);
AT(CurRec, InverseRate, 208); AT(CurRec, DirectionState, 216); AT(CurRec, ColourFlag, 220);

AT(ConfRec, NextID, 4); AT(ConfRec, ShowFrontPage, 8); AT(ConfRec, CheckAheadDays, 12); AT(ConfRec, MovieSpeed, 16);
AT(ConfRec, PercentLink, 20); AT(ConfRec, NewUserFields, 24); AT(ConfRec, ConfSpare, 44); AT(ConfRec, PasswordOn, 48);
AT(ConfRec, PassCheck, 140); AT(ConfRec, AccountColumns, 460); AT(ConfRec, TransactionColumns, 472);
AT(ConfRec, RecurringColumns, 508); AT(ConfRec, TemplateColumns, 528); AT(ConfRec, BinColumns, 540);
AT(ConfRec, CategoryColumns, 560); AT(ConfRec, ConversionColumns, 572); AT(ConfRec, FurtherColumns, 592);
AT(ConfRec, LastChecked, 672);
#undef AT

#define SIZES(record, payload, file) \
    static_assert(sizeof(record) == (payload) && sizeof(record##File) == (file)); \
    static_assert(std::has_unique_object_representations_v<record##File> && std::is_trivial_v<record>)
SIZES(ARec, 528, 728); SIZES(TRec, 408, 608); SIZES(DDRec, 528, 728); SIZES(FRec, 336, 536); SIZES(BinRec, 864, 1064);
SIZES(CatRec, 320, 520); SIZES(CurRec, 384, 584); SIZES(ConfRec, 688, 888);
#undef SIZES
static_assert(sizeof(NoteRec) == 2000 && sizeof(NoteFile) == 2400);
// clang-format on

struct FileSize {
    int Record;  // bytes in the file
    int Payload; // bytes that the cipher covers on writing
};
// clang-format off
inline constexpr FileSize FileSizes[] = { // ORDER FILEKIND
    {2400, 2000}, {728, 528}, {608, 408}, {888, 688}, {728, 528},
    {536, 336},   {1064, 864}, {520, 320}, {584, 384}, {888, 688},
};
// clang-format on
static_assert(sizeof(FileSizes) / sizeof(FileSizes[0]) == static_cast<size_t>(FileKind::Count));

constexpr int RecordSize(FileKind kind) {
    return FileSizes[static_cast<int>(kind)].Record;
}
constexpr int PayloadSize(FileKind kind) {
    return FileSizes[static_cast<int>(kind)].Payload;
}

// The file that a list is kept in; GraphList works on the transactions.
constexpr FileKind KindOfList(int list) {
    return list == GraphList ? FileKind::Transactions : static_cast<FileKind>(list);
}

// The list that keeps a record of a type.
template <typename Rec> inline constexpr int ListOf = NoList;
template <> inline constexpr int ListOf<ARec> = AccountList;
template <> inline constexpr int ListOf<TRec> = TransactionList;
template <> inline constexpr int ListOf<DDRec> = RecurringList;
template <> inline constexpr int ListOf<FRec> = TemplateList;
template <> inline constexpr int ListOf<BinRec> = BinList;
template <> inline constexpr int ListOf<CatRec> = CategoryList;
template <> inline constexpr int ListOf<CurRec> = ConversionList;
