#pragma once

#include <vector>

#include "platform/gdi/bit_run.h"
#include "platform/gdi/bit_surface.h"
#include "platform/gdi/scan_converter.h"

namespace kv::gdi {

/// Paints the runs of shapes turned clockwise by a right angle: pixel (u, v) of a shape goes to
/// pixel (x - 1 - v, y + u) of the surface. They are the very pixels of the upright shape, which
/// turned contours would not give where a pixel's centre lies on an outline.
class TurnedSink final : public RunSink {
  public:
    TurnedSink(BitSurface& surface, std::int32_t x, bool value);

    /// Begins a shape.
    void Begin(std::int32_t y) { m_Y = y; }
    /// The surface as the shape sees it: the clip to convert with.
    Clip Bounds() const;
    void Row(std::int32_t row, std::span<const Run> runs) override;
    /// Ends a shape: only then all of it is on the surface.
    void End();

  private:
    BitSurface& m_Surface;
    std::int32_t m_X;
    std::int32_t m_Y = 0;
    bool m_Value;
    // A run is a stretch of a column. A column of words at a time is collected, as what changes
    // from each row of the surface to the next.
    std::int64_t m_Word = 0;
    std::vector<BitWord> m_Changes;
    std::size_t m_First;  ///< the rows with changes
    std::size_t m_Last = 0;
};

}  // namespace kv::gdi
