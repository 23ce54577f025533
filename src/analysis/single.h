// Single precision: every step is rounded to it, and what becomes a whole number is cut toward zero.
#pragma once

#include <cstdint>
#include <limits>

// What 32 bits can't hold becomes the nearest they can; what is no number becomes 0.
inline int32_t Cut(float value) {
    constexpr float Limit = 2147483648.0F;
    if (value >= Limit)
        return std::numeric_limits<int32_t>::max();
    if (value <= -Limit)
        return std::numeric_limits<int32_t>::min();
    return value == value ? static_cast<int32_t>(value) : 0;
}
