#include "platform/checksum.h"
#include <array>
#include <bit>
#include <cstring>

namespace {

constexpr uint32_t Polynomial = 0x82F63B78;
constexpr int AtOnce = 8; // bytes

using Table = std::array<std::array<uint32_t, 256>, AtOnce>;

// Row n carries a byte over the n bytes behind it.
constexpr Table MakeTable() {
    Table table{};
    for (uint32_t byte = 0; byte < 256; ++byte) {
        uint32_t rest = byte;
        for (int bit = 0; bit < 8; ++bit)
            rest = rest >> 1 ^ (rest & 1 ? Polynomial : 0);
        table[0][byte] = rest;
    }
    for (size_t row = 1; row < AtOnce; ++row)
        for (size_t byte = 0; byte < 256; ++byte)
            table[row][byte] = table[row - 1][byte] >> 8 ^ table[0][table[row - 1][byte] & 255];
    return table;
}
constexpr Table Carry = MakeTable();
static_assert(std::endian::native == std::endian::little);

} // namespace

uint32_t Checksum(uint32_t before, const void *data, int64_t bytes) {
    const auto *at = static_cast<const uint8_t *>(data);
    uint32_t sum = ~before;
    for (; bytes >= AtOnce; bytes -= AtOnce, at += AtOnce) {
        uint64_t word;
        std::memcpy(&word, at, sizeof word);
        word ^= sum;
        sum = 0;
        for (size_t byte = 0; byte < AtOnce; ++byte)
            sum ^= Carry[AtOnce - 1 - byte][word >> 8 * byte & 255];
    }
    for (; bytes > 0; --bytes, ++at)
        sum = sum >> 8 ^ Carry[0][(sum ^ *at) & 255];
    return ~sum;
}
