// Runs set or cleared in a one-bit surface.

#include "raster/bit_sink.h"

#include "base/narrow.h"
#include "raster/bit_run.h"

namespace kv::raster {

// A shift may put the bounds past 32 bits; what is lost there no clip can name.
Clip BitSink::Bounds() const {
    const std::int64_t left = -std::int64_t{m_X};
    const std::int64_t top = -std::int64_t{m_Y};
    return {SaturateToInt32(left), SaturateToInt32(top), SaturateToInt32(left + m_Surface.Width()),
            SaturateToInt32(top + m_Surface.Height())};
}

void BitSink::Row(std::int32_t row, std::span<const Run> runs) {
    // Rows of a wide surface lie too far apart for the processor to foresee the next one.
    constexpr std::int32_t kAhead = 4;
    const std::int32_t target = row + m_Y;
    std::uint8_t* const bits = m_Surface.Row(target);
    const std::size_t ahead =
        target < m_Surface.Height() - kAhead ? kAhead * m_Surface.Stride() : 0;
    for (const Run& run : runs) {
        const auto begin = static_cast<std::uint32_t>(run.begin + m_X);
        const auto end = static_cast<std::uint32_t>(run.end + m_X);
        __builtin_prefetch(bits + ahead + begin / 8, 1);
        FillBits(bits, begin, end, m_Value);
    }
}

}  // namespace kv::raster
