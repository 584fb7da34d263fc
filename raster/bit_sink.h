#pragma once

#include "raster/bit_surface.h"
#include "raster/runs.h"

namespace kv::raster {

/// Paints the runs of a shape onto a surface, the shape's origin at pixel (x, y) of the surface.
class BitSink final : public RunSink {
  public:
    explicit BitSink(BitSurface& surface, std::int32_t x = 0, std::int32_t y = 0, bool value = true)
        : m_Surface(surface), m_X(x), m_Y(y), m_Value(value) {}

    /// The surface as the shape sees it: the clip to convert with.
    Clip Bounds() const;

    void Row(std::int32_t row, std::span<const Run> runs) override;

  private:
    BitSurface& m_Surface;
    std::int32_t m_X;
    std::int32_t m_Y;
    bool m_Value;
};

}  // namespace kv::raster
