#pragma once

#include <cstdint>

namespace kv {

/// True for the enlargements that a mask may have, along each axis.
constexpr bool IsScale(std::int64_t scale) {
    return scale == 1 || scale == 4 || scale == 8 || scale == 16;
}

}  // namespace kv
