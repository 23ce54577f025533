// What a list is: one row of one table, read by the loaders, the record operations and the configuration.
#pragma once

#include "records/fields.h"
#include "records/place.h"
#include "records/records.h"
#include "resources/error_names.h"

inline constexpr int MostDividers = 5;

struct ListFacts {
    int List;
    FileKind Kind;
    uint16_t RowBytes;
    int16_t Name;    // offset of the text that names a row
    int16_t DateKey; // offset of the day number that is 0 in an empty row, -1 for none
    void *Window;    // the rows shown, from row 1; null: loaded by the ledger
    void (*Init)(void *row);
    In Loader;         // what trouble in loading is reported under
    uint16_t Dividers; // offset of the stored column dividers in the configuration record, 0: each account has its own
    int8_t DividerCount;
    int16_t DividerPixels[MostDividers]; // as in a new record
};

// The row of a list, AccountList to ConversionList; GraphList is TransactionList. Null for any other number.
const ListFacts *FactsOfList(int list);

// Rows as a new record has them: zero but for Version 1 and what records.h names. A new transaction or recurring item
// is dated today.
void InitARec(ARec *row);
void InitTRec(TRec *row);
void InitDDRec(DDRec *row);
void InitFRec(FRec *row);
void InitBinRec(BinRec *row);
void InitCatRec(CatRec *row);
void InitCurRec(CurRec *row);

// A record of any list as its bytes stand in a file, tail included.
struct RecordBuffer {
    alignas(8) uint8_t Bytes[LargestRecord];
};

// A row with the list's defaults.
void InitRow(int list, RecordBuffer *row);
// Field by field, as CopyFields does: what is no field is zero in the buffer, and left alone in the row.
template <typename Rec> RecordBuffer PackRow(const Rec &row) {
    RecordBuffer buffer = {};
    CopyFields(FieldsOfList(ListOf<Rec>), &row, buffer.Bytes);
    return buffer;
}
template <typename Rec> void UnpackRow(const RecordBuffer &buffer, Rec *row) {
    CopyFields(FieldsOfList(ListOf<Rec>), buffer.Bytes, row);
}
