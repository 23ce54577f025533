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

uint32_t SumByTable(uint32_t sum, const uint8_t *at, int64_t bytes) {
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
    return sum;
}

#if defined(__x86_64__) && defined(__GNUC__)
// The machine's own instruction for this polynomial, four times as fast; not every machine has it.
__attribute__((target("sse4.2"))) uint32_t SumByMachine(uint32_t sum, const uint8_t *at, int64_t bytes) {
    uint64_t wide = sum;
    for (; bytes >= AtOnce; bytes -= AtOnce, at += AtOnce) {
        uint64_t word;
        std::memcpy(&word, at, sizeof word);
        wide = __builtin_ia32_crc32di(wide, word);
    }
    sum = static_cast<uint32_t>(wide);
    for (; bytes > 0; --bytes, ++at)
        sum = __builtin_ia32_crc32qi(sum, *at);
    return sum;
}
bool MachineSums() {
    static const bool sums = __builtin_cpu_supports("sse4.2");
    return sums;
}
#else
constexpr auto SumByMachine = SumByTable;
constexpr bool MachineSums() {
    return false;
}
#endif

} // namespace

uint32_t ChecksumByTable(uint32_t before, const void *data, int64_t bytes) {
    return ~SumByTable(~before, static_cast<const uint8_t *>(data), bytes);
}

uint32_t Checksum(uint32_t before, const void *data, int64_t bytes) {
    return ~(MachineSums() ? SumByMachine : SumByTable)(~before, static_cast<const uint8_t *>(data), bytes);
}
