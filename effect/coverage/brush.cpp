// A table that falls off around its middle.

#include "effect/coverage/brush.h"

#include <algorithm>
#include <cmath>

namespace {

struct Brush {
    std::int64_t half;  // radius at which the ramp ends
    std::int64_t flat;  // radius at which it starts
    int peak;           // value at its start
};

Brush BrushFor(int size, int pen) {
    int peak = 255;
    std::int64_t width = pen;
    if (pen <= 0) {
        peak = pen + 255 > 0 ? pen + 255 : 255;
        width = 1;
    }
    if ((width - size) % 2 != 0) {
        ++width;  // a brush of even size has an even middle
    }
    return {size / 2, (width - 1) / 2, peak};
}

// A ramp without width has an infinite slope; it leaves nothing, not even at its middle.
int Value(const Brush& brush, std::int64_t u, std::int64_t v) {
    if (brush.half == brush.flat) {
        return 0;
    }
    const double slope = brush.peak / static_cast<double>(brush.half - brush.flat);
    const double distance = std::sqrt(static_cast<double>(u * u + v * v));
    const double fall = std::trunc((distance - static_cast<double>(brush.flat)) * slope);
    return static_cast<int>(std::clamp(brush.peak - fall, 0.0, 255.0));
}

}  // namespace

void kv::FillBrush(BYTE* table, int size, int pen) {
    const Brush brush = BrushFor(size, pen);
    for (int row = 0; row < size; ++row) {
        for (int column = 0; column < size; ++column) {
            *table++ = static_cast<BYTE>(Value(brush, brush.half - column, brush.half - row));
        }
    }
}
