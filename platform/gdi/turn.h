#pragma once

#include <cstdint>

#include "platform/gdi/bit_surface.h"

namespace kv::gdi {

/// Sets on the target what is set on the source turned by 90 degrees clockwise: source pixel (u, v)
/// goes to (x - 1 - v, y + u). Clipped to the target, which is another surface.
void OrTurned(const BitSurface& source, std::int64_t x, std::int64_t y, BitSurface& target);

}  // namespace kv::gdi
