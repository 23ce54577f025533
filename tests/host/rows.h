// Records read back from the files by layout alone, and what stands in them.
#pragma once

#include "host/test_host.h"
#include "records/records.h"
#include <cstring>

namespace testhost {

// The whole records of a file.
template <typename Record> std::vector<Record> RecordsIn(const std::string &hostPath) {
    const std::vector<uint8_t> bytes = ReadBytes(hostPath);
    std::vector<Record> records(bytes.size() / sizeof(InFile<Record>));
    for (size_t n = 0; n < records.size(); ++n)
        std::memcpy(&records[n], bytes.data() + n * sizeof(InFile<Record>), sizeof(Record));
    return records;
}

std::string FieldsAt(int list, const void *record, const std::string &names);
// The fields of a record that are named (with blanks between the names), with ", " between them:
// Fields(row, "Name Date Value") gives "Rent, 2026-02-23, -248000". An unknown name gives "?".
template <typename Record> std::string Fields(const Record &record, const std::string &names) {
    return FieldsAt(ListOf<Record>, &record, names);
}

} // namespace testhost
