#include "platform/gdi/turned_sink.h"

#include <algorithm>

#include "base/narrow.h"

namespace kv::gdi {

TurnedSink::TurnedSink(BitSurface& surface, std::int32_t x, bool value)
    : m_Surface(surface),
      m_X(x),
      m_Value(value),
      m_Changes(static_cast<std::size_t>(surface.Height()) + 1),
      m_First(m_Changes.size()) {}

Clip TurnedSink::Bounds() const {
    return {SaturateToInt32(-std::int64_t{m_Y}),
            SaturateToInt32(std::int64_t{m_X} - m_Surface.Width()),
            SaturateToInt32(std::int64_t{m_Surface.Height()} - m_Y), m_X};
}

void TurnedSink::Row(std::int32_t row, std::span<const Run> runs) {
    const std::int64_t column = std::int64_t{m_X} - 1 - row;
    if (column / kWordPixels != m_Word) {
        End();
        m_Word = column / kWordPixels;
    }
    const BitWord bit = BitWord{1} << (kWordPixels - 1 - column % kWordPixels);
    for (const Run& run : runs) {
        m_Changes[static_cast<std::size_t>(std::int64_t{run.begin} + m_Y)] ^= bit;
        m_Changes[static_cast<std::size_t>(std::int64_t{run.end} + m_Y)] ^= bit;
    }
    m_First = std::min(m_First, static_cast<std::size_t>(std::int64_t{runs.front().begin} + m_Y));
    m_Last = std::max(m_Last, static_cast<std::size_t>(std::int64_t{runs.back().end} + m_Y));
}

void TurnedSink::End() {
    const std::size_t offset = static_cast<std::size_t>(m_Word) * sizeof(BitWord);
    BitWord bits = 0;
    for (std::size_t row = m_First; row < m_Last; ++row) {
        bits ^= m_Changes[row];
        m_Changes[row] = 0;
        if (bits != 0) {
            ApplyMask(m_Surface.Row(static_cast<std::int32_t>(row)) + offset, bits, m_Value);
        }
    }
    if (m_First < m_Changes.size()) {
        m_Changes[m_Last] = 0;
    }
    m_First = m_Changes.size();
    m_Last = 0;
}

}  // namespace kv::gdi
