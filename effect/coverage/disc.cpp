// The rows of a rasterised disc.

#include "effect/coverage/disc.h"

#include <cmath>

namespace kv {
namespace {

// The rounded root, by halves upwards.
std::int64_t RoundedRoot(std::int64_t value) {
    return static_cast<std::int64_t>(std::floor(std::sqrt(static_cast<double>(value)) + 0.5));
}

}  // namespace

void DiscHalfWidths(int radius, LONG* half) {
    const std::int64_t r = radius;
    for (std::int64_t row = 0; row <= r; ++row) {
        const std::int64_t rise = r - row;
        std::int64_t x = RoundedRoot(r * r - rise * rise);
        // The flat rows near the top also take the columns whose own height rounds to this row, so
        // that the disc is the same seen along either axis.
        while (x < r && RoundedRoot(r * r - (x + 1) * (x + 1)) == rise) {
            ++x;
        }
        half[row] = static_cast<LONG>(x);
    }
}

}  // namespace kv
