// Which field of a bin record comes from which field of the other records.
#include "ledger/bin.h"
#include "platform/text.h"
#include "state/state.h"
#include "store/windows.h"
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

enum class Copy : uint8_t { Bytes, Text };

struct Route {
    int List;
    Copy How;
    uint16_t BinOffset, BinBytes, Offset, Bytes;
};

// clang-format off
#define ROUTE(how, list, record, bin, field) \
    {list, Copy::how, offsetof(BinRec, bin), sizeof(BinRec::bin), offsetof(record, field), sizeof(record::field)}
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

using Initialiser = void (*)(void *record);
template <typename Record, void (*Init)(Record *)> void InitRecord(void *record) {
    Init(static_cast<Record *>(record));
}

Initialiser InitialiserOf(int list) {
    switch (list) {
    case AccountList:
        return InitRecord<ARec, InitARec>;
    case TransactionList:
        return InitRecord<TRec, InitTRec>;
    case RecurringList:
        return InitRecord<DDRec, InitDDRec>;
    case TemplateList:
        return InitRecord<FRec, InitFRec>;
    case CategoryList:
        return InitRecord<CatRec, InitCatRec>;
    case ConversionList:
        return InitRecord<CurRec, InitCurRec>;
    }
    return nullptr;
}

} // namespace

int RecordToBin(int list, const void *record, BinRec *bin) {
    list = list == GraphList ? +TransactionList : list;
    if (!InitialiserOf(list))
        return 0;
    std::memset(bin, 0, sizeof *bin);
    bin->Version = RecordVersion;
    for (const Route &route : Routes)
        if (route.List == list)
            CopyRoute(route.How, static_cast<const uint8_t *>(record) + route.Offset, route.Bytes,
                      reinterpret_cast<uint8_t *>(bin) + route.BinOffset, route.BinBytes);
    bin->SourceList = static_cast<uint32_t>(list);
    if (list == TransactionList) {
        bin->OwnerID = state.CurAccount.ID;
        bin->OwnerType = state.CurAccount.AccType;
        bin->WasArchive = state.ArchiveView;
    } else if (list == RecurringList) {
        bin->OwnerID = bin->FirstDone ? bin->Account2 : bin->Account1;
        bin->WasArchive = state.ArchiveView;
    } else if (list == AccountList) {
        bin->Units = 1;
    }
    return 1;
}

int BinToRecord(const BinRec &bin, int list, void *record) {
    const Initialiser initialise = InitialiserOf(list);
    if (!initialise || bin.SourceList != static_cast<uint32_t>(list))
        return 0;
    initialise(record);
    for (const Route &route : Routes)
        if (route.List == list)
            CopyRoute(route.How, reinterpret_cast<const uint8_t *>(&bin) + route.BinOffset, route.BinBytes,
                      static_cast<uint8_t *>(record) + route.Offset, route.Bytes);
    return 1;
}
