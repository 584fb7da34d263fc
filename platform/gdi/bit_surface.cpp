#include "platform/gdi/bit_surface.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>

namespace kv::gdi {

namespace {

// A run is written in 64-bit words counted from the row's start; the last word of the last row may
// reach beyond the rows by less than this.
constexpr std::size_t kSlack = sizeof(std::uint64_t);

/// The mask is in reading order: its top bit is the leftmost pixel.
void Apply(std::uint8_t* bytes, std::uint64_t mask, bool value) {
    if constexpr (std::endian::native == std::endian::little) {
        mask = __builtin_bswap64(mask);
    }
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    word = value ? word | mask : word & ~mask;
    std::memcpy(bytes, &word, sizeof word);
}

}  // namespace

std::shared_ptr<BitSurface> BitSurface::Create(std::int32_t width, std::int32_t height) {
    if (width < 1 || height < 1) {
        return nullptr;
    }
    // At most 2^28 bytes a row and 2^31 rows: no overflow.
    const std::uint64_t stride = (std::uint64_t(width) + 15) / 16 * 2;
    const std::uint64_t size = stride * std::uint64_t(height) + kSlack;
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
    if (begin >= end) {
        return;
    }
    const auto first = static_cast<std::uint32_t>(begin);
    const auto last = static_cast<std::uint32_t>(end - 1);
    const std::uint64_t head = ~std::uint64_t{0} >> (first % 64);
    const std::uint64_t tail = ~std::uint64_t{0} << (63 - last % 64);
    std::uint8_t* const firstWord = Row(row) + first / 64 * sizeof(std::uint64_t);
    std::uint8_t* const lastWord = Row(row) + last / 64 * sizeof(std::uint64_t);
    if (firstWord == lastWord) {
        Apply(firstWord, head & tail, value);
        return;
    }
    Apply(firstWord, head, value);
    std::uint8_t* const middle = firstWord + sizeof(std::uint64_t);
    std::memset(middle, value ? 0xFF : 0, static_cast<std::size_t>(lastWord - middle));
    Apply(lastWord, tail, value);
}

void BitSurface::FillRect(std::int64_t left, std::int64_t top, std::int64_t right,
                          std::int64_t bottom, bool value) {
    const auto begin = static_cast<std::int32_t>(std::clamp<std::int64_t>(left, 0, m_Width));
    const auto end = static_cast<std::int32_t>(std::clamp<std::int64_t>(right, 0, m_Width));
    const auto last = static_cast<std::int32_t>(std::clamp<std::int64_t>(bottom, 0, m_Height));
    auto row = static_cast<std::int32_t>(std::clamp<std::int64_t>(top, 0, m_Height));
    for (; row < last; ++row) {
        FillRun(row, begin, end, value);
    }
}

}  // namespace kv::gdi
