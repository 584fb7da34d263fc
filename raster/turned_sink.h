#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "raster/bit_run.h"
#include "raster/bit_surface.h"
#include "raster/runs.h"

namespace kv::raster {

/// Paints the runs of shapes turned clockwise by a right angle: pixel (u, v) of a shape goes to
/// pixel (x - 1 - v, y + u) of the surface. They are the very pixels of the upright shape, which
/// turned contours would not give where a pixel's centre lies on an outline.
class TurnedSink final : public RunSink {
  public:
    TurnedSink(BitSurface& surface, std::int32_t x, bool value);

    /// Begins a shape that lies in its columns from `left` to right - 1. Memory is taken for those
    /// only, since a surface may be as high as a record claims a line to be long.
    void Begin(std::int32_t y, std::int32_t left, std::int32_t right);
    /// The surface and the shape's columns as the shape sees them: the clip to convert with.
    Clip Bounds() const;
    void Row(std::int32_t row, std::span<const Run> runs) override;
    /// Ends a shape: only then all of it is on the surface.
    void End();

  private:
    static constexpr std::size_t kNone = ~std::size_t{0};

    std::size_t ChangeAt(std::int32_t column) const {
        return static_cast<std::size_t>(std::int64_t{column} + m_Y - m_Top);
    }

    BitSurface& m_Surface;
    std::int32_t m_X;
    std::int32_t m_Y = 0;
    bool m_Value;
    // A run is a stretch of a column. A column of words at a time is collected, as what changes
    // from each row of the surface to the next.
    std::int64_t m_Word = 0;
    std::vector<BitWord> m_Changes;
    std::int32_t m_Top = 0;  ///< the surface's row of the first of them
    std::int32_t m_Bottom = 0;
    std::size_t m_First = kNone;  ///< those that are not 0 lie from here
    std::size_t m_Last = 0;       ///< to here
};

}  // namespace kv::raster
