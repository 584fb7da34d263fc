#pragma once

#include <cstdint>
#include <vector>

#include "raster/area.h"

namespace kv::raster {

/// A one-bit picture kept as the areas painted onto its clear ground instead of as bits. What is
/// asked of it in the end is coverage, which it gives without ever holding the enlarged picture.
class Drawing final : public AreaSink {
  public:
    Drawing(std::int32_t width, std::int32_t height) : m_Width(width), m_Height(height) {}

    void Paint(Area area) override;
    /// Clears a rectangle.
    void ClearRect(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom);

    /// The coverage of blocks of scale by scale pixels (1, 4, 8 or 16), row by row into
    /// rows of the given stride, of which the first `columns` bytes are written. Exactly what
    /// counting the set pixels of the picture gives: count * 256 / pixels, and 255 for a full
    /// block. Whole blocks of rows only; columns behind the picture's width are 0.
    void ReadCoverage(std::int32_t scale, std::int32_t columns, std::uint8_t* coverage,
                      std::size_t stride) const;

  private:
    std::int32_t m_Width;
    std::int32_t m_Height;
    std::vector<Area> m_Areas;
};

}  // namespace kv::raster
