#include "platform/gdi/scan_converter.h"

#include <algorithm>
#include <limits>

namespace kv::gdi {

namespace {

using Wide = __int128;

// Within this distance a product of two differences fits 128 bits, and the walk fits 64 bits.
constexpr std::int64_t kFarthest = std::int64_t{1} << 52;
// Factors below this keep the setup of an edge within 64 bits.
constexpr std::int64_t kSmall = std::int64_t{1} << 30;
constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
// Moves per edge after which a row is sorted anew rather than mended.
constexpr std::size_t kMovesPerEdge = 8;

/// Moves the origin to the centre of pixel (0, 0): centres are then whole multiples of kSubpixels.
FixedPoint FromCentre(const FixedPoint& point) {
    return {std::clamp(point.x, -kFarthest, kFarthest) - kSubpixels / 2,
            std::clamp(point.y, -kFarthest, kFarthest) - kSubpixels / 2};
}

/// The first pixel whose centre is at the position or beyond it.
constexpr std::int64_t FirstCentre(std::int64_t position) {
    return (position + kSubpixels - 1) >> kSubpixelBits;
}

template <typename T>
constexpr T FloorDivide(T dividend, T divisor) {
    const T quotient = dividend / divisor;
    return dividend % divisor < 0 ? quotient - 1 : quotient;
}

/// Puts an edge onto the row `drop` below its upper end. The crossing is at
/// (x * height + drop * width) / (height * kSubpixels) columns; the column is its ceiling.
template <typename T>
void Place(ScanConverter::Edge& edge, std::int64_t x, std::int64_t width, std::int64_t height,
           std::int64_t drop) {
    const T crossing = T{x} * height + T{drop} * width;
    const T column = -FloorDivide<T>(-crossing, T{edge.divisor});
    edge.column = static_cast<std::int64_t>(column);
    edge.deficit = static_cast<std::int64_t>(column * edge.divisor - crossing);
}

}  // namespace

void ScanConverter::Convert(const Contours& contours, FillRule rule, const Clip& clip,
                            RunSink& sink) {
    if (clip.left >= clip.right || clip.top >= clip.bottom) {
        return;
    }
    Collect(contours, clip);
    if (m_Edges.empty()) {
        return;
    }
    LinkStarts();
    if (rule == FillRule::kAlternate) {
        Walk<FillRule::kAlternate>(clip, sink);
    } else {
        Walk<FillRule::kWinding>(clip, sink);
    }
}

void ScanConverter::Collect(const Contours& contours, const Clip& clip) {
    m_Edges.clear();
    m_Starts.clear();
    m_FirstRow = clip.bottom;
    m_EndRow = clip.top;
    std::size_t begin = 0;
    for (const std::size_t end : contours.ends) {
        if (begin < end) {
            FixedPoint from = FromCentre(contours.points[end - 1]);
            for (std::size_t i = begin; i < end; ++i) {
                const FixedPoint to = FromCentre(contours.points[i]);
                Add(from, to, clip);
                from = to;
            }
        }
        begin = end;
    }
}

void ScanConverter::Add(const FixedPoint& from, const FixedPoint& to, const Clip& clip) {
    const bool down = from.y < to.y;
    const FixedPoint& upper = down ? from : to;
    const FixedPoint& lower = down ? to : from;
    const std::int64_t first = std::max<std::int64_t>(FirstCentre(upper.y), clip.top);
    const std::int64_t end = std::min<std::int64_t>(FirstCentre(lower.y), clip.bottom);
    // What lies right of the clip has no say within it.
    if (first >= end || FirstCentre(std::min(from.x, to.x)) >= clip.right) {
        return;
    }
    const std::int64_t width = lower.x - upper.x;
    const std::int64_t height = lower.y - upper.y;
    const std::int64_t drop = first * kSubpixels - upper.y;
    Edge edge{.column = clip.left,
              .deficit = 0,
              .columnStep = 0,
              .deficitStep = 0,
              .divisor = height * kSubpixels,
              .endRow = static_cast<std::int32_t>(end),
              .winding = down ? 1 : -1};
    // An edge left of the clip counts where the clip begins.
    if (FirstCentre(std::max(from.x, to.x)) > clip.left) {
        const bool small = std::abs(upper.x) < kSmall && std::abs(width) < kSmall &&
                           height < kSmall && drop < kSmall;
        if (small) {
            Place<std::int64_t>(edge, upper.x, width, height, drop);
        } else {
            Place<Wide>(edge, upper.x, width, height, drop);
        }
        if (end - first > 1) {
            edge.columnStep = FloorDivide(width, height);
            edge.deficitStep = (width - edge.columnStep * height) * kSubpixels;
        }
    }
    m_Edges.push_back(edge);
    m_Starts.push_back({static_cast<std::int32_t>(first), kNone});
    m_FirstRow = std::min(m_FirstRow, static_cast<std::int32_t>(first));
    m_EndRow = std::max(m_EndRow, edge.endRow);
}

void ScanConverter::LinkStarts() {
    const auto rows = static_cast<std::size_t>(std::int64_t{m_EndRow} - m_FirstRow);
    m_Heads.assign(rows, kNone);
    for (std::size_t i = 0; i < m_Starts.size(); ++i) {
        std::uint32_t& head =
            m_Heads[static_cast<std::size_t>(std::int64_t{m_Starts[i].row} - m_FirstRow)];
        m_Starts[i].next = head;
        head = static_cast<std::uint32_t>(i);
    }
}

template <FillRule kRule>
void ScanConverter::Walk(const Clip& clip, RunSink& sink) {
    m_Active.clear();
    m_NextEnd = m_EndRow;
    for (std::int32_t row = m_FirstRow; row < m_EndRow; ++row) {
        Enter(row);
        Sort();
        const std::size_t count = MakeRuns<kRule>(clip);
        if (count > 0) {
            sink.Row(row, std::span<const Run>(m_Runs.data(), count));
        }
        if (row + 1 == m_NextEnd) {
            Retire(row + 1);
        }
        for (Edge& edge : m_Active) {
            edge.Step();
        }
    }
}

/// Drops the edges that end above the row and finds the next row where some end.
void ScanConverter::Retire(std::int32_t row) {
    std::erase_if(m_Active, [row](const Edge& edge) { return edge.endRow == row; });
    m_NextEnd = m_EndRow;
    for (const Edge& edge : m_Active) {
        m_NextEnd = std::min(m_NextEnd, edge.endRow);
    }
}

void ScanConverter::Enter(std::int32_t row) {
    std::uint32_t next = m_Heads[static_cast<std::size_t>(std::int64_t{row} - m_FirstRow)];
    for (; next != kNone; next = m_Starts[next].next) {
        m_Active.push_back(m_Edges[next]);
        m_NextEnd = std::min(m_NextEnd, m_Edges[next].endRow);
    }
}

/// By insertion: from row to row few edges change places. Where very many do, as when thousands
/// begin together, a general sort takes over.
void ScanConverter::Sort() {
    std::size_t moves = kMovesPerEdge * m_Active.size();
    for (std::size_t i = 1; i < m_Active.size(); ++i) {
        if (m_Active[i - 1].column <= m_Active[i].column) {
            continue;
        }
        const Edge edge = m_Active[i];
        std::size_t place = i;
        for (; place > 0 && m_Active[place - 1].column > edge.column && moves > 0; --place) {
            m_Active[place] = m_Active[place - 1];
            --moves;
        }
        m_Active[place] = edge;
        if (moves == 0) {
            std::sort(m_Active.begin(), m_Active.end(),
                      [](const Edge& a, const Edge& b) { return a.column < b.column; });
            return;
        }
    }
}

template <FillRule kRule>
std::size_t ScanConverter::MakeRuns(const Clip& clip) {
    m_Runs.resize(std::max(m_Runs.size(), m_Active.size() / 2 + 1));
    Run* const runs = m_Runs.data();
    std::size_t count = 0;
    std::int32_t inside = 0;
    std::int32_t begin = clip.left;
    const auto close = [&](std::int32_t end) {
        if (begin >= end) {
            return;
        }
        if (count > 0 && runs[count - 1].end == begin) {
            runs[count - 1].end = end;
        } else {
            runs[count++] = {begin, end};
        }
    };
    for (const Edge& edge : m_Active) {
        if (edge.column >= clip.right) {
            break;
        }
        const auto column =
            static_cast<std::int32_t>(std::max<std::int64_t>(edge.column, clip.left));
        const bool wasInside = inside != 0;
        inside = kRule == FillRule::kAlternate ? inside ^ 1 : inside + edge.winding;
        if (!wasInside) {
            begin = column;
        } else if (inside == 0) {
            close(column);
        }
    }
    if (inside != 0) {
        close(clip.right);
    }
    return count;
}

}  // namespace kv::gdi
