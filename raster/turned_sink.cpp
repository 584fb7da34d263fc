// Runs of rows that become runs of columns, for lines that run downwards.

#include "raster/turned_sink.h"

#include <algorithm>

#include "base/narrow.h"

namespace kv::raster {

TurnedSink::TurnedSink(BitSurface& surface, std::int32_t x, bool value)
    : m_Surface(surface), m_X(x), m_Value(value) {}

void TurnedSink::Begin(std::int32_t y, std::int32_t left, std::int32_t right) {
    const std::int32_t height = m_Surface.Height();
    m_Y = y;
    // A row of the surface at least, since a clip has columns.
    m_Top = std::clamp(SaturateToInt32(std::int64_t{y} + left), 0, height - 1);
    m_Bottom = std::clamp(SaturateToInt32(std::int64_t{y} + right), m_Top + 1, height);
    const auto rows = static_cast<std::size_t>(m_Bottom - m_Top);
    m_Changes.resize(std::max(m_Changes.size(), rows + 1));
}

Clip TurnedSink::Bounds() const {
    return {SaturateToInt32(std::int64_t{m_Top} - m_Y),
            SaturateToInt32(std::int64_t{m_X} - m_Surface.Width()),
            SaturateToInt32(std::int64_t{m_Bottom} - m_Y), m_X};
}

void TurnedSink::Row(std::int32_t row, std::span<const Run> runs) {
    const std::int64_t column = std::int64_t{m_X} - 1 - row;
    if (column / kWordPixels != m_Word) {
        End();
        m_Word = column / kWordPixels;
    }
    const BitWord bit = BitWord{1} << (kWordPixels - 1 - column % kWordPixels);
    for (const Run& run : runs) {
        m_Changes[ChangeAt(run.begin)] ^= bit;
        m_Changes[ChangeAt(run.end)] ^= bit;
    }
    m_First = std::min(m_First, ChangeAt(runs.front().begin));
    m_Last = std::max(m_Last, ChangeAt(runs.back().end));
}

void TurnedSink::End() {
    if (m_First == kNone) {
        return;
    }
    const std::size_t offset = static_cast<std::size_t>(m_Word) * sizeof(BitWord);
    BitWord bits = 0;
    for (std::size_t row = m_First; row < m_Last; ++row) {
        bits ^= m_Changes[row];
        m_Changes[row] = 0;
        if (bits != 0) {
            const auto down = m_Top + static_cast<std::int32_t>(row);
            ApplyMask(m_Surface.Row(down) + offset, bits, m_Value);
        }
    }
    m_Changes[m_Last] = 0;
    m_First = kNone;
    m_Last = 0;
}

}  // namespace kv::raster
