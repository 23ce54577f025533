#include "ledger/bin_record.h"
#include "platform/text.h"
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

enum class Copy : uint8_t { Bytes, Text };

struct Route {
    int List;
    Copy How;
    uint16_t BinOffset, BinBytes, Offset, Bytes;
    bool Carried = false; // back only from a row that carries it
};

// clang-format off
#define ROUTE(how, list, record, bin, field) \
    {list, Copy::how, offsetof(BinRec, bin), sizeof(BinRec::bin), offsetof(record, field), sizeof(record::field)}
#define CARRIED(how, list, record, bin, field) \
    {list, Copy::how, offsetof(BinRec, bin), sizeof(BinRec::bin), offsetof(record, field), sizeof(record::field), true}
#define BLOCK(how, bin, index, field) \
    {RecurringList, Copy::how, offsetof(BinRec, bin), sizeof(BinRec::bin), \
     offsetof(DDRec, Block) + (index) * sizeof(DDBlock) + offsetof(DDBlock, field), sizeof(DDBlock::field)}
constexpr Route Routes[] = {
    ROUTE(Bytes, TransactionList, TRec, RowKind,              RowKind),
    ROUTE(Bytes, TransactionList, TRec, CatSlot,              CatSlot),
    ROUTE(Bytes, TransactionList, TRec, Date,                 Date),
    ROUTE(Bytes, TransactionList, TRec, Rank,                 Rank),
    ROUTE(Text,  TransactionList, TRec, Name,                 Name),
    ROUTE(Bytes, TransactionList, TRec, Cleared,              Cleared),
    ROUTE(Bytes, TransactionList, TRec, Cash,                 Cash),
    ROUTE(Bytes, TransactionList, TRec, NoCash,               NoCash),
    ROUTE(Bytes, TransactionList, TRec, Flag,                 Flag),
    ROUTE(Bytes, TransactionList, TRec, Units,                Units),
    ROUTE(Bytes, TransactionList, TRec, Value,                Value),
    ROUTE(Bytes, TransactionList, TRec, Transfer,             TransferID),
    ROUTE(Text,  TransactionList, TRec, Memo,                 Memo),
    ROUTE(Bytes, TransactionList, TRec, CatID,                CatID),
    ROUTE(Bytes, TransactionList, TRec, RunUnits,             RunUnits),
    ROUTE(Bytes, TransactionList, TRec, RunClearedUnits,      RunClearedUnits),
    ROUTE(Bytes, TransactionList, TRec, CashAmountLow,        CashAmount),
    ROUTE(Bytes, TransactionList, TRec, ClearedCashAmountLow, ClearedCashAmount),
    ROUTE(Bytes, TransactionList, TRec, ClearedUnits,         ClearedUnits),
    ROUTE(Bytes, TransactionList, TRec, ClearedValue,         ClearedValue),
    ROUTE(Bytes, TransactionList, TRec, RunTotal,             RunTotal),
    ROUTE(Bytes, TransactionList, TRec, RunCleared,           RunCleared),
    CARRIED(Bytes, TransactionList, TRec, CashAmount,         CashAmount),
    CARRIED(Bytes, TransactionList, TRec, ClearedCashAmount,  ClearedCashAmount),
    CARRIED(Text,  TransactionList, TRec, FITID,              FITID),

    ROUTE(Bytes, RecurringList, DDRec, RowKind,      RowKind),
    ROUTE(Bytes, RecurringList, DDRec, CatSlot,      CatSlot),
    ROUTE(Bytes, RecurringList, DDRec, Date,         NextDate),
    ROUTE(Bytes, RecurringList, DDRec, Rank,         Rank),
    ROUTE(Text,  RecurringList, DDRec, Name,         Name),
    ROUTE(Bytes, RecurringList, DDRec, FirstDone,    FirstDone),
    BLOCK(Bytes, Cleared,   0, Cleared),
    BLOCK(Bytes, Cash,      0, Cash),
    BLOCK(Bytes, NoCash,    0, NoCash),
    BLOCK(Bytes, Flag,      0, Flag),
    BLOCK(Bytes, Units,     0, Units),
    BLOCK(Bytes, Value,     0, Value),
    BLOCK(Bytes, Account1,  0, Account),
    BLOCK(Bytes, Transfer,  0, Transfer),
    BLOCK(Text,  Memo,      0, Memo),
    BLOCK(Bytes, CatID,     0, CatID),
    BLOCK(Bytes, Cleared2,  1, Cleared),
    BLOCK(Bytes, Cash2,     1, Cash),
    BLOCK(Bytes, NoCash2,   1, NoCash),
    BLOCK(Bytes, Flag2,     1, Flag),
    BLOCK(Bytes, Units2,    1, Units),
    BLOCK(Bytes, Value2,    1, Value),
    BLOCK(Bytes, Account2,  1, Account),
    BLOCK(Bytes, Transfer2, 1, Transfer),
    BLOCK(Text,  Memo2,     1, Memo),
    BLOCK(Bytes, CatID2,    1, CatID),
    ROUTE(Bytes, RecurringList, DDRec, ItemStatus,   ItemStatus),
    ROUTE(Bytes, RecurringList, DDRec, DayWanted,    DayWanted),
    ROUTE(Text,  RecurringList, DDRec, PeriodUnit,   PeriodUnit),
    ROUTE(Bytes, RecurringList, DDRec, PeriodCount,  PeriodCount),
    ROUTE(Bytes, RecurringList, DDRec, TotalCount,   TotalCount),
    ROUTE(Bytes, RecurringList, DDRec, Remaining,    Remaining),

    ROUTE(Text,  TemplateList, FRec, Name,     Name),
    ROUTE(Bytes, TemplateList, FRec, Cleared,  Cleared),
    ROUTE(Bytes, TemplateList, FRec, Cash,     Cash),
    ROUTE(Bytes, TemplateList, FRec, NoCash,   NoCash),
    ROUTE(Bytes, TemplateList, FRec, Flag,     Flag),
    ROUTE(Bytes, TemplateList, FRec, Units,    Units),
    ROUTE(Bytes, TemplateList, FRec, Value,    Value),
    ROUTE(Bytes, TemplateList, FRec, Transfer, Transfer),
    ROUTE(Text,  TemplateList, FRec, Memo,     Memo),
    ROUTE(Bytes, TemplateList, FRec, CatID,    CatID),

    ROUTE(Bytes, AccountList, ARec, RowKind,   RowKind),
    ROUTE(Text,  AccountList, ARec, Name,      Name),
    ROUTE(Bytes, AccountList, ARec, Flag,      Flag),
    ROUTE(Bytes, AccountList, ARec, Value,     Balance),
    ROUTE(Bytes, AccountList, ARec, OwnerID,   ID),
    ROUTE(Bytes, AccountList, ARec, OwnerType, AccType),
    {AccountList, Copy::Bytes, offsetof(BinRec, Totals), sizeof(BinRec::Totals), offsetof(ARec, Balance),
     offsetof(ARec, ColumnPos) - offsetof(ARec, Balance)},
    {AccountList, Copy::Bytes, offsetof(BinRec, AccountLayout), sizeof(BinRec::AccountLayout),
     offsetof(ARec, ColumnPos), offsetof(ARec, Unused156) - offsetof(ARec, ColumnPos)},

    ROUTE(Text,  CategoryList, CatRec, Name,          Name),
    ROUTE(Text,  CategoryList, CatRec, Memo,          Description),
    ROUTE(Bytes, CategoryList, CatRec, CatID,         CatID),
    ROUTE(Bytes, CategoryList, CatRec, RunUnits,      Green),
    ROUTE(Bytes, CategoryList, CatRec, CashAmountLow, Red),
    ROUTE(Bytes, CategoryList, CatRec, RunTotal,      Blue),

    ROUTE(Bytes, ConversionList, CurRec, CatSlot,  RowKind),
    ROUTE(Bytes, ConversionList, CurRec, Cleared,  DirectionState),
    ROUTE(Bytes, ConversionList, CurRec, Flag,     ColourFlag),
    ROUTE(Bytes, ConversionList, CurRec, Value,    Rate),
    ROUTE(Bytes, ConversionList, CurRec, Value2,   InverseRate),
    ROUTE(Text,  ConversionList, CurRec, Memo,     Note),
    ROUTE(Text,  ConversionList, CurRec, FromName, FromName),
    ROUTE(Text,  ConversionList, CurRec, ToName,   ToName),
};
#undef ROUTE
#undef CARRIED
#undef BLOCK
// clang-format on

constexpr bool RoutesFit() {
    for (const Route &route : Routes)
        if (route.How == Copy::Text && route.BinBytes != route.Bytes)
            return false;
    return true;
}
static_assert(RoutesFit());

// A wider target gets zeroes, or the sign of an amount that travels in a 32-bit slot.
void CopyRoute(Copy how, const uint8_t *from, int fromBytes, uint8_t *to, int toBytes) {
    if (how == Copy::Text) {
        CopyText(reinterpret_cast<char16_t *>(to), toBytes / 2, reinterpret_cast<const char16_t *>(from));
        return;
    }
    const bool negative = fromBytes == 4 && toBytes == 8 && (from[3] & 0x80) != 0;
    std::memset(to, negative ? 0xFF : 0, static_cast<size_t>(toBytes));
    std::memcpy(to, from, static_cast<size_t>(std::min(fromBytes, toBytes)));
}

bool HasRoutes(int list) {
    return std::any_of(std::begin(Routes), std::end(Routes), [=](const Route &route) { return route.List == list; });
}

} // namespace

int RecordToBin(const Place &from, int64_t ownerType, const RecordBuffer &record, BinRec *bin) {
    if (!HasRoutes(from.List))
        return 0;
    InitBinRec(bin);
    for (const Route &route : Routes)
        if (route.List == from.List)
            CopyRoute(route.How, record.Bytes + route.Offset, route.Bytes,
                      reinterpret_cast<uint8_t *>(bin) + route.BinOffset, route.BinBytes);
    bin->SourceList = static_cast<uint32_t>(from.List);
    bin->WasArchive = static_cast<uint32_t>(from.Of);
    if (from.List == TransactionList) {
        bin->OwnerID = from.Account;
        bin->OwnerType = static_cast<uint32_t>(ownerType);
        bin->Carries = 1;
    } else if (from.List == RecurringList) {
        bin->OwnerID = bin->FirstDone ? bin->Account2 : bin->Account1;
    } else if (from.List == AccountList) {
        bin->Units = 1;
    }
    return 1;
}

int BinToRecord(const BinRec &bin, RecordBuffer *record) {
    const int list = static_cast<int>(bin.SourceList);
    if (!HasRoutes(list))
        return 0;
    InitRow(list, record);
    for (const Route &route : Routes)
        if (route.List == list && (bin.Carries || !route.Carried))
            CopyRoute(route.How, reinterpret_cast<const uint8_t *>(&bin) + route.BinOffset, route.BinBytes,
                      record->Bytes + route.Offset, route.Bytes);
    return 1;
}
