// Text between the program's 16-bit units and the UTF-8 that tests are written in.
#include "test_host.h"

namespace testhost {

std::string Utf8(const char16_t *text) {
    std::string narrow;
    for (; *text; ++text) {
        uint32_t code = *text;
        if (code >= 0xD800 && code < 0xDC00 && text[1] >= 0xDC00 && text[1] < 0xE000)
            code = 0x10000 + ((code - 0xD800) << 10) + (*++text - 0xDC00u);
        else if (code >= 0xD800 && code < 0xE000)
            code = 0xFFFD;
        const int more = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        static constexpr uint8_t lead[] = {0, 0xC0, 0xE0, 0xF0};
        narrow.push_back(static_cast<char>(lead[more] | code >> (6 * more)));
        for (int n = more - 1; n >= 0; --n)
            narrow.push_back(static_cast<char>(0x80 | (code >> (6 * n) & 0x3F)));
    }
    return narrow;
}

// Ill-formed bytes are passed over.
std::u16string Utf16(const std::string &text) {
    std::u16string wide;
    for (size_t at = 0; at < text.size();) {
        const auto byte = static_cast<uint8_t>(text[at++]);
        const int more = byte < 0x80 ? 0 : byte < 0xC0 ? -1 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
        if (more < 0 || at + static_cast<size_t>(more) > text.size())
            continue;
        uint32_t code = more == 0 ? byte : byte & (0x3Fu >> more);
        for (int n = 0; n < more; ++n)
            code = code << 6 | (static_cast<uint8_t>(text[at++]) & 0x3Fu);
        if (code >= 0x10000) {
            wide.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            wide.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        } else {
            wide.push_back(static_cast<char16_t>(code));
        }
    }
    return wide;
}

} // namespace testhost
