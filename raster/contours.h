#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kv::raster {

/// A point in fixed point, kSubpixels units to the pixel. Pixel (column c, row r) covers
/// c * kSubpixels to (c + 1) * kSubpixels and is sampled at its centre.
inline constexpr int kSubpixelBits = 8;
inline constexpr std::int64_t kSubpixels = std::int64_t{1} << kSubpixelBits;

struct FixedPoint {
    std::int64_t x;
    std::int64_t y;
};

/// Closed polygons: contour i runs from point ends[i - 1] (0 for the first) to ends[i] - 1 and
/// back.
struct Contours {
    std::vector<FixedPoint> points;
    std::vector<std::size_t> ends;

    void Clear() {
        points.clear();
        ends.clear();
    }
};

/// Which points lie inside contours that cross or wind about each other.
enum class FillRule { kAlternate, kWinding };

}  // namespace kv::raster
