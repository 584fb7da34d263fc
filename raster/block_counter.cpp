// Coverage counted from runs, without a mask.

#include "raster/block_counter.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace kv::raster {

BlockCounter::BlockCounter(std::int32_t scale, std::int32_t columns)
    : m_Shift(std::countr_zero(static_cast<std::uint32_t>(scale))),
      m_Scale(scale),
      m_Ends(static_cast<std::size_t>(columns) + 1),
      m_Steps(static_cast<std::size_t>(columns) + 1),
      m_First(columns),
      m_Last(-1) {}

// A run from the middle of block a to the middle of block b has scale - a's part in a, scale in
// each block between, and b's part in b. Written with the step over a to b alone, a's and b's
// entries take up the differences, which also holds where a and b are one.
void BlockCounter::Add(std::span<const Run> runs) {
    if (runs.empty()) {
        return;
    }
    for (const Run& run : runs) {
        const auto a = static_cast<std::size_t>(run.begin >> m_Shift);
        const auto b = static_cast<std::size_t>(run.end >> m_Shift);
        m_Steps[a] = static_cast<std::int16_t>(m_Steps[a] + m_Scale);
        m_Steps[b] = static_cast<std::int16_t>(m_Steps[b] - m_Scale);
        m_Ends[a] = static_cast<std::int16_t>(m_Ends[a] - (run.begin & (m_Scale - 1)));
        m_Ends[b] = static_cast<std::int16_t>(m_Ends[b] + (run.end & (m_Scale - 1)));
    }
    m_First = std::min(m_First, runs.front().begin >> m_Shift);
    m_Last = std::max(m_Last, runs.back().end >> m_Shift);
}

void BlockCounter::Write(std::uint8_t* coverage) {
    const auto columns = static_cast<std::int32_t>(m_Ends.size()) - 1;
    std::memset(coverage, 0, static_cast<std::size_t>(columns));
    const std::int32_t last = std::min(m_Last, columns - 1);
    const int upshift = 8 - 2 * m_Shift;
    std::int32_t within = 0;
    for (std::int32_t i = m_First; i <= last; ++i) {
        const auto at = static_cast<std::size_t>(i);
        within += m_Steps[at];
        const std::int32_t count = within + m_Ends[at];
        coverage[at] = static_cast<std::uint8_t>(std::min(count << upshift, 255));
    }
    if (m_First <= m_Last) {
        const auto begin = m_First;
        const auto end = m_Last + 1;
        std::fill(m_Ends.begin() + begin, m_Ends.begin() + end, std::int16_t{0});
        std::fill(m_Steps.begin() + begin, m_Steps.begin() + end, std::int16_t{0});
    }
    m_First = columns;
    m_Last = -1;
}

}  // namespace kv::raster
