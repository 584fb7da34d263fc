// A one-bit surface: its store, and filling runs and rectangles of it.

#include "raster/bit_surface.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#include "raster/bit_run.h"

namespace kv::raster {

std::shared_ptr<BitSurface> BitSurface::Create(std::int32_t width, std::int32_t height) {
    if (width < 1 || height < 1) {
        return nullptr;
    }
    // At most 2^28 bytes a row and 2^31 rows: no overflow. The word more is what the last run of
    // the last row may reach into.
    const std::uint64_t stride = (std::uint64_t(width) + 15) / 16 * 2;
    const std::uint64_t size = stride * std::uint64_t(height) + sizeof(BitWord);
    std::shared_ptr<BitSurface> surface(new (std::nothrow) BitSurface);
    if (!surface) {
        return nullptr;
    }
    // Unlike new, calloc leaves the pages of a large picture untouched until they are drawn on.
    surface->m_Bits.reset(static_cast<std::uint8_t*>(std::calloc(size, 1)));
    if (!surface->m_Bits) {
        return nullptr;
    }
    surface->m_Stride = stride;
    surface->m_Width = width;
    surface->m_Height = height;
    return surface;
}

void BitSurface::FillRun(std::int32_t row, std::int32_t begin, std::int32_t end, bool value) {
    if (begin < end) {
        FillBits(Row(row), static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(end),
                 value);
    }
}

void BitSurface::FillRect(std::int64_t left, std::int64_t top, std::int64_t right,
                          std::int64_t bottom, bool value) {
    const auto begin = static_cast<std::int32_t>(std::clamp<std::int64_t>(left, 0, m_Width));
    const auto end = static_cast<std::int32_t>(std::clamp<std::int64_t>(right, 0, m_Width));
    const auto last = static_cast<std::int32_t>(std::clamp<std::int64_t>(bottom, 0, m_Height));
    auto row = static_cast<std::int32_t>(std::clamp<std::int64_t>(top, 0, m_Height));
    if (begin == 0 && end == m_Width && !value && row < last) {
        // Whole rows lie behind each other, and their padding is clear anyhow.
        std::memset(Row(row), 0, m_Stride * static_cast<std::size_t>(last - row));
        return;
    }
    for (; row < last; ++row) {
        FillRun(row, begin, end, value);
    }
}

}  // namespace kv::raster
