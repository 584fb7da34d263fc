// Rows of a soft edge whose radius is too large for squares in 16 bits.

#include <algorithm>

#include "base/scratch.h"
#include "effect/coverage/soft_rows.h"

// The lower envelope of parabolas of equal opening, after A. Meijster, J. Roerdink and W.
// Hesselink, "A general algorithm for computing distance transforms in linear time" (2000).

namespace kv {

bool FarSoftRows::Prepare(int radius, std::size_t width) {
    m_Radius = radius;
    m_Width = width;
    m_Envelope = Scratch<Parabola>(width);
    return m_Envelope != nullptr;
}

std::size_t FarSoftRows::BuildEnvelope(const Distance* vertical) {
    std::size_t count = 0;
    const std::int64_t columns = static_cast<std::int64_t>(m_Width) + 2 * m_Radius;
    const auto at = [](const Parabola& p, std::int64_t x) {
        return (x - p.centre) * (x - p.centre) + p.height;
    };
    for (std::size_t x = 0; x < m_Width; ++x) {
        const std::int64_t distance = vertical[x];
        if (distance == m_Radius) {
            continue;
        }
        Parabola next{static_cast<std::int64_t>(x) + m_Radius, distance * distance, 0};
        while (count > 0 && at(m_Envelope[count - 1], m_Envelope[count - 1].from) >
                                at(next, m_Envelope[count - 1].from)) {
            --count;
        }
        if (count > 0) {
            // Where the two cross. The numerator is not negative: the lower one still is the lower
            // at its first column, which is not.
            const Parabola& low = m_Envelope[count - 1];
            const std::int64_t squares =
                next.centre * next.centre - low.centre * low.centre + next.height - low.height;
            next.from = squares / (2 * (next.centre - low.centre)) + 1;
        }
        if (next.from < columns) {
            m_Envelope[count++] = next;
        }
    }
    return count;
}

void FarSoftRows::Add(const Distance* vertical, BYTE* target) {
    const std::size_t count = BuildEnvelope(vertical);
    const std::int64_t columns = static_cast<std::int64_t>(m_Width) + 2 * m_Radius;
    const std::int64_t outside = std::int64_t{m_Radius} * m_Radius;
    for (std::size_t i = 0; i < count; ++i) {
        const Parabola& low = m_Envelope[i];
        const std::int64_t end = i + 1 < count ? m_Envelope[i + 1].from : columns;
        const std::int64_t begin = std::max(low.from, low.centre - m_Radius);
        for (std::int64_t x = begin; x < std::min(end, low.centre + m_Radius); ++x) {
            const std::int64_t along = x - low.centre;
            const std::int64_t square = along * along + low.height;
            if (square < outside) {
                target[x] = std::max(target[x], SoftValue(square, m_Radius));
            }
        }
    }
}

}  // namespace kv
