#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

namespace kv {

/// The value, or the nearest end of the 32-bit range.
constexpr std::int32_t SaturateToInt32(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

/// Cuts toward zero; beyond the 32-bit range the nearest end, for what is not a number 0.
constexpr std::int32_t TruncateToInt32(double value) {
    if (value != value) {
        return 0;
    }
    return static_cast<std::int32_t>(std::clamp(value,
                                                double{std::numeric_limits<std::int32_t>::min()},
                                                double{std::numeric_limits<std::int32_t>::max()}));
}

}  // namespace kv
