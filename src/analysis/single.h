// Single precision: every step is rounded to it, and what becomes a whole number is cut toward zero.
#pragma once

#include <cstdint>
#include <limits>

// What a whole number can't hold becomes the nearest it can; what is no number becomes 0.
template <typename Whole = int32_t> Whole Cut(float value) {
    constexpr float Limit = -static_cast<float>(std::numeric_limits<Whole>::min());
    if (value >= Limit)
        return std::numeric_limits<Whole>::max();
    if (value <= -Limit)
        return std::numeric_limits<Whole>::min();
    return value == value ? static_cast<Whole>(value) : 0;
}
