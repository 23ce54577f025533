#include "records/fields.h"
#include "platform/text.h"
#include <cstring>
#include <utility>

namespace {

constexpr int ByteCounts[] = {1, 4, 8, 12, 64, 20, 2, 32, 44, 8, 20}; // ORDER FIELDTYPE

using enum FieldType;

template <FieldType Type, size_t Width> constexpr Field Row(const char *name, size_t offset) {
    static_assert(Width == ByteCounts[static_cast<int>(Type)]);
    return {name, Type, static_cast<uint16_t>(offset)};
}

// clang-format off
#define FIELD(record, field, type) Row<type, sizeof(record::field)>(#field, offsetof(record, field))
#define IN_ARRAY(record, name, field, type) \
    Row<type, sizeof(std::declval<record>().field)>(name, offsetof(record, field))

constexpr Field Account[] = {
    FIELD(ARec, Version,            Byte),
    FIELD(ARec, RowKind,            Byte),
    FIELD(ARec, Name,               Text32),
    FIELD(ARec, ID,                 Number),
    FIELD(ARec, AccType,            Number),
    FIELD(ARec, Flag,               Number),
    FIELD(ARec, Balance,            Amount),
    FIELD(ARec, ClearedBalance,     Amount),
    FIELD(ARec, ArcBalance,         Amount),
    FIELD(ARec, ArcClearedBalance,  Amount),
    FIELD(ARec, ColumnPos,          Numbers5),
    FIELD(ARec, LowWatch,           Number),
    FIELD(ARec, HighWatch,          Number),
    FIELD(ARec, MinLimit,           Number),
    FIELD(ARec, MaxLimit,           Number),
    FIELD(ARec, ClearedInJeopardy,  Number),
    FIELD(ARec, BalanceInJeopardy,  Number),
    FIELD(ARec, Extra,              Bytes32),
    FIELD(ARec, Extra2,             Numbers2),
};

constexpr Field Transaction[] = {
    FIELD(TRec, Version,            Byte),
    FIELD(TRec, RowKind,            Byte),
    FIELD(TRec, CatSlot,            Byte),
    FIELD(TRec, Date,               Date),
    FIELD(TRec, Rank,               Number),
    FIELD(TRec, Name,               Text32),
    FIELD(TRec, Cleared,            Number),
    FIELD(TRec, Cash,               Number),
    FIELD(TRec, NoCash,             Number),
    FIELD(TRec, Flag,               Byte),
    FIELD(TRec, Memo,               Text32),
    FIELD(TRec, Units,              Number),
    FIELD(TRec, ClearedUnits,       Number),
    FIELD(TRec, CashAmount,         Amount),
    FIELD(TRec, ClearedCashAmount,  Amount),
    FIELD(TRec, Value,              Amount),
    FIELD(TRec, ClearedValue,       Amount),
    FIELD(TRec, TransferID,         Number),
    FIELD(TRec, RunUnits,           Number),
    FIELD(TRec, RunClearedUnits,    Number),
    FIELD(TRec, RunTotal,           Amount),
    FIELD(TRec, RunCleared,         Amount),
    FIELD(TRec, ParentRow,          Number),
    FIELD(TRec, CatID,              Amount),
    FIELD(TRec, FITID,              Text32),
};

constexpr Field RecurringItem[] = {
    FIELD(DDRec, Version,           Byte),
    FIELD(DDRec, RowKind,           Byte),
    FIELD(DDRec, CatSlot,           Byte),
    FIELD(DDRec, ItemStatus,        Number),
    FIELD(DDRec, NextDate,          Date),
    FIELD(DDRec, Rank,              Number),
    FIELD(DDRec, DayWanted,         Byte),
    FIELD(DDRec, Name,              Text32),
    FIELD(DDRec, FirstDone,         Byte),
    IN_ARRAY(DDRec, "Cleared1",     Block[0].Cleared,  Number),
    IN_ARRAY(DDRec, "Cash1",        Block[0].Cash,     Number),
    IN_ARRAY(DDRec, "NoCash1",      Block[0].NoCash,   Number),
    IN_ARRAY(DDRec, "Flag1",        Block[0].Flag,     Byte),
    IN_ARRAY(DDRec, "Units1",       Block[0].Units,    Number),
    IN_ARRAY(DDRec, "Value1",       Block[0].Value,    Amount),
    IN_ARRAY(DDRec, "Account1",     Block[0].Account,  Number),
    IN_ARRAY(DDRec, "Transfer1",    Block[0].Transfer, Number),
    IN_ARRAY(DDRec, "Memo1",        Block[0].Memo,     Text32),
    IN_ARRAY(DDRec, "CatID1",       Block[0].CatID,    Amount),
    IN_ARRAY(DDRec, "Cleared2",     Block[1].Cleared,  Number),
    IN_ARRAY(DDRec, "Cash2",        Block[1].Cash,     Number),
    IN_ARRAY(DDRec, "NoCash2",      Block[1].NoCash,   Number),
    IN_ARRAY(DDRec, "Flag2",        Block[1].Flag,     Byte),
    IN_ARRAY(DDRec, "Units2",       Block[1].Units,    Number),
    IN_ARRAY(DDRec, "Value2",       Block[1].Value,    Amount),
    IN_ARRAY(DDRec, "Account2",     Block[1].Account,  Number),
    IN_ARRAY(DDRec, "Transfer2",    Block[1].Transfer, Number),
    IN_ARRAY(DDRec, "Memo2",        Block[1].Memo,     Text32),
    IN_ARRAY(DDRec, "CatID2",       Block[1].CatID,    Amount),
    FIELD(DDRec, PeriodUnit,        Text10),
    FIELD(DDRec, PeriodCount,       Number),
    FIELD(DDRec, TotalCount,        Number),
    FIELD(DDRec, Remaining,         Number),
    FIELD(DDRec, Spare512,          Number),
    FIELD(DDRec, Spare516,          Bytes2),
    FIELD(DDRec, Spare520,          Number),
};

constexpr Field Template[] = {
    FIELD(FRec, Version,            Byte),
    FIELD(FRec, RowKind,            Byte),
    FIELD(FRec, Name,               Text32),
    FIELD(FRec, Cleared,            Number),
    FIELD(FRec, Cash,               Number),
    FIELD(FRec, NoCash,             Number),
    FIELD(FRec, Flag,               Number),
    FIELD(FRec, Memo,               Text32),
    FIELD(FRec, Units,              Number),
    FIELD(FRec, Value,              Amount),
    FIELD(FRec, Transfer,           Number),
    FIELD(FRec, CatID,              Amount),
};

constexpr Field Deleted[] = {
    FIELD(BinRec, Version,              Byte),
    FIELD(BinRec, RowKind,              Byte),
    FIELD(BinRec, CatSlot,              Byte),
    FIELD(BinRec, Date,                 Date),
    FIELD(BinRec, Rank,                 Number),
    FIELD(BinRec, Name,                 Text32),
    FIELD(BinRec, FirstDone,            Byte),
    FIELD(BinRec, Cleared,              Number),
    FIELD(BinRec, Cash,                 Number),
    FIELD(BinRec, NoCash,               Number),
    FIELD(BinRec, Flag,                 Byte),
    FIELD(BinRec, Units,                Number),
    FIELD(BinRec, Value,                Amount),
    FIELD(BinRec, Account1,             Number),
    FIELD(BinRec, Transfer,             Number),
    FIELD(BinRec, Memo,                 Text32),
    FIELD(BinRec, CatID,                Amount),
    FIELD(BinRec, Cleared2,             Number),
    FIELD(BinRec, Cash2,                Number),
    FIELD(BinRec, NoCash2,              Number),
    FIELD(BinRec, Flag2,                Number),
    FIELD(BinRec, Units2,               Number),
    FIELD(BinRec, Value2,               Amount),
    FIELD(BinRec, Account2,             Number),
    FIELD(BinRec, Transfer2,            Number),
    FIELD(BinRec, Memo2,                Text32),
    FIELD(BinRec, CatID2,               Amount),
    FIELD(BinRec, OwnerID,              Number),
    FIELD(BinRec, OwnerType,            Number),
    FIELD(BinRec, WasArchive,           Number),
    IN_ARRAY(BinRec, "Balance",           Totals[0], Amount),
    IN_ARRAY(BinRec, "ClearedBalance",    Totals[1], Amount),
    IN_ARRAY(BinRec, "ArcBalance",        Totals[2], Amount),
    IN_ARRAY(BinRec, "ArcClearedBalance", Totals[3], Amount),
    FIELD(BinRec, SourceList,           Number),
    FIELD(BinRec, RunUnits,             Number),
    FIELD(BinRec, RunClearedUnits,      Number),
    FIELD(BinRec, CashAmountLow,        Number),
    FIELD(BinRec, ClearedCashAmountLow, Number),
    FIELD(BinRec, ClearedUnits,         Number),
    FIELD(BinRec, ClearedValue,         Amount),
    FIELD(BinRec, RunTotal,             Amount),
    FIELD(BinRec, RunCleared,           Amount),
    FIELD(BinRec, ItemStatus,           Number),
    FIELD(BinRec, DayWanted,            Byte),
    FIELD(BinRec, PeriodUnit,           Text10),
    FIELD(BinRec, PeriodCount,          Number),
    FIELD(BinRec, TotalCount,           Number),
    FIELD(BinRec, Remaining,            Number),
    FIELD(BinRec, FromName,             Text32),
    FIELD(BinRec, ToName,               Text32),
    FIELD(BinRec, AccountLayout,        Bytes44),
    FIELD(BinRec, Carries,              Byte),
    FIELD(BinRec, CashAmount,           Amount),
    FIELD(BinRec, ClearedCashAmount,    Amount),
    FIELD(BinRec, FITID,                Text32),
};

constexpr Field Category[] = {
    FIELD(CatRec, Version,          Byte),
    FIELD(CatRec, Name,             Text32),
    FIELD(CatRec, Description,      Text32),
    FIELD(CatRec, Red,              Number),
    FIELD(CatRec, Green,            Number),
    FIELD(CatRec, Blue,             Number),
    FIELD(CatRec, CatID,            Amount),
};

constexpr Field Conversion[] = {
    FIELD(CurRec, Version,          Byte),
    FIELD(CurRec, RowKind,          Byte),
    FIELD(CurRec, FromName,         Text32),
    FIELD(CurRec, ToName,           Text32),
    FIELD(CurRec, Note,             Text32),
    FIELD(CurRec, Rate,             Amount),
    FIELD(CurRec, InverseRate,      Amount),
    FIELD(CurRec, DirectionState,   Number),
    FIELD(CurRec, ColourFlag,       Number),
};
// clang-format on
#undef FIELD
#undef IN_ARRAY

template <int Count> constexpr RecordFields TableOf(const Field (&rows)[Count]) {
    return {rows, Count};
}

// ORDER LIST
constexpr RecordFields Tables[ListCount] = {
    {nullptr, 0},      TableOf(Account), TableOf(Transaction), TableOf(Transaction), TableOf(RecurringItem),
    TableOf(Template), TableOf(Deleted), TableOf(Category),    TableOf(Conversion),
};

constexpr bool FieldsFollowEachOther(RecordFields fields, int payload) {
    int end = 0;
    for (int i = 0; i < fields.Count; ++i) {
        if (fields.Rows[i].Offset < end)
            return false;
        end = fields.Rows[i].Offset + ByteCounts[static_cast<int>(fields.Rows[i].Type)];
    }
    return end <= payload;
}
constexpr bool AllFieldsFollowEachOther() {
    for (int list = AccountList; list < ListCount; ++list)
        if (!FieldsFollowEachOther(Tables[list], PayloadSize(KindOfList(list))))
            return false;
    return true;
}
static_assert(AllFieldsFollowEachOther());

} // namespace

int FieldBytes(FieldType type) {
    return ByteCounts[static_cast<int>(type)];
}

RecordFields FieldsOfList(int list) {
    return list > NoList && list < ListCount ? Tables[list] : Tables[NoList];
}

void CopyFields(RecordFields fields, const void *source, void *destination) {
    for (const Field *field = fields.Rows; field != fields.Rows + fields.Count; ++field) {
        const auto *from = static_cast<const uint8_t *>(source) + field->Offset;
        auto *to = static_cast<uint8_t *>(destination) + field->Offset;
        if (field->Type == Text32 || field->Type == Text10)
            CopyText(reinterpret_cast<char16_t *>(to), FieldBytes(field->Type) / 2,
                     reinterpret_cast<const char16_t *>(from));
        else
            std::memmove(to, from, static_cast<size_t>(FieldBytes(field->Type)));
        if (field->Type == Date)
            std::memset(to + offsetof(RecDate, Padding), 0, sizeof RecDate::Padding);
    }
}
