#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "base/scratch.h"

namespace kv::raster {

/// A one-bit picture: bit 7 of a byte is the leftmost pixel, rows are whole 16-bit words, bits that
/// pad a row are always 0.
class BitSurface {
  public:
    /// All pixels 0. Null for a size below 1 by 1 or no memory.
    static std::shared_ptr<BitSurface> Create(std::int32_t width, std::int32_t height);

    std::int32_t Width() const { return m_Width; }
    std::int32_t Height() const { return m_Height; }
    std::size_t Stride() const { return m_Stride; }
    std::uint8_t* Row(std::int32_t row) {
        return m_Bits.get() + m_Stride * static_cast<std::size_t>(row);
    }
    const std::uint8_t* Row(std::int32_t row) const {
        return m_Bits.get() + m_Stride * static_cast<std::size_t>(row);
    }

    /// Sets or clears pixels begin to end - 1 of a row; both within the surface.
    void FillRun(std::int32_t row, std::int32_t begin, std::int32_t end, bool value);
    /// Sets or clears a rectangle, clipped to the surface.
    void FillRect(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
                  bool value);

  private:
    BitSurface() = default;

    std::unique_ptr<std::uint8_t[], FreeBytes> m_Bits;
    std::size_t m_Stride = 0;
    std::int32_t m_Width = 0;
    std::int32_t m_Height = 0;
};

}  // namespace kv::raster
