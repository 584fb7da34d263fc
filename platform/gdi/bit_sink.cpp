#include "platform/gdi/bit_sink.h"

#include <algorithm>
#include <limits>

namespace kv::gdi {

namespace {

/// A shift may put the bounds past 32 bits; what is lost there no clip can name.
std::int32_t Saturate(std::int64_t value) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(
        value, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
}

}  // namespace

Clip BitSink::Bounds() const {
    const std::int64_t left = -std::int64_t{m_X};
    const std::int64_t top = -std::int64_t{m_Y};
    return {Saturate(left), Saturate(top), Saturate(left + m_Surface.Width()),
            Saturate(top + m_Surface.Height())};
}

void BitSink::Row(std::int32_t row, std::span<const Run> runs) {
    for (const Run& run : runs) {
        m_Surface.FillRun(row + m_Y, run.begin + m_X, run.end + m_X, m_Value);
    }
}

}  // namespace kv::gdi
