// The fields of every record as rows: name, type, offset. One table a record drives copying, the way to the bin and
// back, and dumps in tests. What stands in no row is unused and stays zero.
#pragma once

#include "records/records.h"

enum class FieldType : uint8_t { // ORDER FIELDTYPE: ByteCounts
    Byte,
    Number,
    Amount,
    Date,
    Text32,
    Text10,
    Bytes2,
    Bytes32,
    Bytes44,
    Numbers2,
    Numbers5
};

struct Field {
    const char *Name;
    FieldType Type;
    uint16_t Offset; // in the payload
};

struct RecordFields {
    const Field *Rows;
    int Count;
};

// Bytes that a field of this type takes.
int FieldBytes(FieldType type);

// The table of a list's record (AccountList to ConversionList; GraphList is TransactionList); no rows for any other.
RecordFields FieldsOfList(int list);

// Copies the fields of one record, texts as strings with zeroes behind the terminator and cut to what the field
// holds. What is no field is left as it is in the destination.
void CopyFields(RecordFields fields, const void *source, void *destination);
