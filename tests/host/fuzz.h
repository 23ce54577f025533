// Damaged input, the same for the same seed on every machine, so that a failure names its input.
//
//   for (const uint64_t seed : FuzzSeeds(200)) {
//       SCOPED_TRACE(seed);
//       WriteBytes(root.DataFile("E1_01IND"), DamagedBytes(seed, good));
//       ...
//   }
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace testhost {

// A small generator of its own: the standard library's distributions differ from machine to machine.
class Dice {
public:
    explicit Dice(uint64_t seed) : word(seed) {}
    uint64_t Next();
    // 0 to `below` - 1; 0 for 0.
    size_t Below(size_t below);

private:
    uint64_t word;
};

// 1 to `rounds`; ZENTRIK_FUZZ=N in the environment makes N times as many for a long run by hand.
std::vector<uint64_t> FuzzSeeds(int rounds);
// Random bytes, 0 to `most` of them.
std::vector<uint8_t> FuzzBytes(uint64_t seed, size_t most);
// A few random damages to good bytes: bits flipped, a stretch filled with one byte or with chance, a stretch removed
// or doubled, the end cut off.
std::vector<uint8_t> DamagedBytes(uint64_t seed, std::vector<uint8_t> good);

} // namespace testhost
