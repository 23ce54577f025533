// Damaged input from a seed.
#include "fuzz.h"
#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace testhost {

uint64_t Dice::Next() {
    word += 0x9E3779B97F4A7C15u;
    uint64_t mixed = word;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
}

size_t Dice::Below(size_t below) {
    return below == 0 ? 0 : static_cast<size_t>(Next() % below);
}

std::vector<uint64_t> FuzzSeeds(int rounds) {
    const char *times = getenv("ZENTRIK_FUZZ");
    std::vector<uint64_t> seeds(static_cast<size_t>(rounds * std::max(1, times ? atoi(times) : 1)));
    std::iota(seeds.begin(), seeds.end(), uint64_t{1});
    return seeds;
}

std::vector<uint8_t> FuzzBytes(uint64_t seed, size_t most) {
    Dice dice(seed);
    std::vector<uint8_t> bytes(dice.Below(most + 1));
    for (uint8_t &byte : bytes)
        byte = static_cast<uint8_t>(dice.Next());
    return bytes;
}

std::vector<uint8_t> DamagedBytes(uint64_t seed, std::vector<uint8_t> bytes) {
    enum Damage : size_t { FlipBit, FillWithOne, FillWithChance, Remove, Double, CutEnd, DamageCount };
    static constexpr uint8_t fills[] = {0x00, 0xFF, 0x7F, 0x80, 0x01, 0x02};
    Dice dice(seed);
    for (size_t n = dice.Below(6) + 1; n > 0 && !bytes.empty(); --n) {
        const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(dice.Below(bytes.size()));
        const auto left = static_cast<size_t>(bytes.end() - from);
        const auto to = from + static_cast<std::ptrdiff_t>(dice.Below(std::min<size_t>(left, 64)) + 1);
        const std::vector<uint8_t> stretch(from, to);
        switch (dice.Below(DamageCount)) {
        case FlipBit:
            *from = static_cast<uint8_t>(*from ^ 1u << dice.Below(8));
            break;
        case FillWithOne:
            std::fill(from, to, fills[dice.Below(std::size(fills))]);
            break;
        case FillWithChance:
            std::generate(from, to, [&] { return static_cast<uint8_t>(dice.Next()); });
            break;
        case Remove:
            bytes.erase(from, to);
            break;
        case Double:
            bytes.insert(from, stretch.begin(), stretch.end());
            break;
        default:
            bytes.erase(from, bytes.end());
        }
    }
    return bytes;
}

} // namespace testhost
