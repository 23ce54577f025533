#include "host/rows.h"
#include "records/fields.h"
#include <cstdio>
#include <sstream>

namespace testhost {

static std::string Written(const Field &field, const uint8_t *at) {
    const auto number = [at](int n) {
        int32_t word;
        std::memcpy(&word, at + n * 4, sizeof word);
        return std::to_string(word);
    };
    int64_t amount;
    RecDate date;
    char text[32];
    switch (field.Type) {
    case FieldType::Byte:
        return std::to_string(*at);
    case FieldType::Number:
        return number(0);
    case FieldType::Amount:
        std::memcpy(&amount, at, sizeof amount);
        return std::to_string(amount);
    case FieldType::Date:
        std::memcpy(&date, at, sizeof date);
        snprintf(text, sizeof text, "%04u-%02d-%02d", date.Year, date.Month, date.Day);
        return text;
    case FieldType::Text32:
    case FieldType::Text10: {
        char16_t words[TextRoom + 1] = {};
        std::memcpy(words, at, static_cast<size_t>(FieldBytes(field.Type)));
        return Utf8(words);
    }
    default: {
        std::string all = number(0);
        for (int n = 1; n < FieldBytes(field.Type) / 4; ++n)
            all.append(" ").append(number(n));
        return all;
    }
    }
}

std::string FieldsAt(int list, const void *record, const std::string &names) {
    const RecordFields fields = FieldsOfList(list);
    std::istringstream wanted(names);
    std::string all;
    for (std::string name; wanted >> name;) {
        std::string value = "?";
        for (int n = 0; n < fields.Count; ++n)
            if (name == fields.Rows[n].Name)
                value = Written(fields.Rows[n], static_cast<const uint8_t *>(record) + fields.Rows[n].Offset);
        all += (all.empty() ? "" : ", ") + value;
    }
    return all;
}

} // namespace testhost
