#include "platform/gdi/scan_converter.h"

#include <algorithm>
#include <limits>

namespace kv::gdi {

namespace {

using Wide = __int128;

// Within this distance a product of two differences fits 128 bits, and the walk fits 64 bits.
constexpr std::int64_t kFarthest = std::int64_t{1} << 52;
// Factors below this keep the setup of an edge within the 53 bits of a double.
constexpr std::int64_t kSmall = std::int64_t{1} << 26;
constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
// Moves a crossing after which a row is sorted anew rather than mended.
constexpr std::size_t kMovesPerCrossing = 8;

/// Moves the origin to the centre of pixel (0, 0): centres are then whole multiples of kSubpixels.
FixedPoint FromCentre(const FixedPoint& point) {
    return {std::clamp(point.x, -kFarthest, kFarthest) - kSubpixels / 2,
            std::clamp(point.y, -kFarthest, kFarthest) - kSubpixels / 2};
}

/// The first pixel whose centre is at the position or beyond it.
constexpr std::int64_t FirstCentre(std::int64_t position) {
    return (position + kSubpixels - 1) >> kSubpixelBits;
}

struct Division {
    std::int64_t quotient;
    std::int64_t remainder;
};

/// Floor and remainder, for operands up to 2^53 in size. The double quotient is right to half a
/// unit in its last place, so that cut to an integer it is the floor or one more; several times as
/// quick as dividing integers.
Division FloorDivide(std::int64_t dividend, std::int64_t divisor) {
    const auto quotient =
        static_cast<std::int64_t>(static_cast<double>(dividend) / static_cast<double>(divisor));
    const std::int64_t remainder = dividend - quotient * divisor;
    const std::int64_t borrow = remainder >> 63;
    return {quotient + borrow, remainder + (borrow & divisor)};
}

Division FloorDivide(Wide dividend, std::int64_t divisor) {
    const Wide quotient = dividend / divisor;
    const Wide remainder = dividend % divisor;
    const Wide borrow = remainder < 0 ? 1 : 0;
    return {static_cast<std::int64_t>(quotient - borrow),
            static_cast<std::int64_t>(remainder + borrow * divisor)};
}

constexpr std::size_t Index(std::int32_t row, std::int32_t firstRow) {
    return static_cast<std::size_t>(std::int64_t{row} - firstRow);
}

}  // namespace

void ScanConverter::Convert(const Contours& contours, FillRule rule, const Clip& clip,
                            RunSink& sink) {
    Start(contours, rule, clip);
    std::int32_t row = 0;
    std::span<const Run> runs;
    while (Next(row, runs)) {
        sink.Row(row, runs);
    }
}

void ScanConverter::Start(const Contours& contours, FillRule rule, const Clip& clip) {
    m_Edges.clear();
    m_Crossings.clear();
    m_Clip = clip;
    m_Rule = rule;
    m_FirstRow = clip.bottom;
    m_EndRow = clip.top;
    std::size_t begin = 0;
    for (const std::size_t end : contours.ends) {
        AddContour(std::span(contours.points).subspan(begin, end - begin), clip);
        begin = end;
    }
    if (m_Edges.empty() || clip.left >= clip.right) {
        m_NextRow = m_EndRow;
        return;
    }
    ListStarts();
    m_NextRow = m_FirstRow;
}

bool ScanConverter::Next(std::int32_t& row, std::span<const Run>& runs) {
    while (m_NextRow < m_EndRow) {
        row = m_NextRow++;
        const std::size_t count = ConvertRow();
        if (count > 0) {
            runs = std::span<const Run>(m_Runs.data(), count);
            return true;
        }
    }
    return false;
}

void ScanConverter::AddContour(std::span<const FixedPoint> points, const Clip& clip) {
    if (points.empty()) {
        return;
    }
    const std::size_t first = m_Edges.size();
    FixedPoint from = FromCentre(points.back());
    for (const FixedPoint& point : points) {
        const FixedPoint to = FromCentre(point);
        Add(from, to, clip);
        from = to;
    }
    for (std::size_t i = first; i < m_Edges.size(); ++i) {
        Chain(i, i + 1 < m_Edges.size() ? i + 1 : first);
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
    // Filled in place: the compiler's copy of a finished edge reads wider than it has just written.
    Edge& edge = m_Edges.emplace_back();
    edge.column = clip.left;
    edge.divisor = height * kSubpixels;
    edge.firstRow = static_cast<std::int32_t>(first);
    edge.endRow = static_cast<std::int32_t>(end);
    edge.follow = kNone;
    edge.next = kNone;
    edge.winding = down ? 1 : -1;
    // An edge left of the clip counts where the clip begins.
    if (FirstCentre(std::max(from.x, to.x)) > clip.left) {
        if (std::abs(upper.x) < kSmall && std::abs(width) < kSmall && height < kSmall) {
            Place<std::int64_t>(edge, upper.x, width, drop);
        } else {
            Place<Wide>(edge, upper.x, width, drop);
        }
        if (end - first > 1) {
            const auto [step, rest] = FloorDivide(width, height);
            edge.columnStep = step;
            edge.deficitStep = rest * kSubpixels;
        }
    }
    m_FirstRow = std::min(m_FirstRow, edge.firstRow);
    m_EndRow = std::max(m_EndRow, edge.endRow);
}

/// Puts an edge onto the row `drop` below its upper end at x. The crossing is at
/// (x * height + drop * width) / (height * kSubpixels) columns; the column is its ceiling.
template <typename T>
void ScanConverter::Place(Edge& edge, std::int64_t x, std::int64_t width, std::int64_t drop) {
    const T height = edge.divisor / kSubpixels;
    const T crossing = T{x} * height + T{drop} * width;
    const auto [floor, rest] = FloorDivide(-crossing, edge.divisor);
    edge.column = -floor;
    edge.deficit = rest;
}

/// Where two neighbouring sides run on in the same sense, the lower one takes the place of the
/// upper one in the row, which is cheaper than entering anew. Any pair of which one begins where
/// the other ends would do.
void ScanConverter::Chain(std::size_t from, std::size_t to) {
    const bool down = m_Edges[from].winding > 0;
    const std::size_t upper = down ? from : to;
    const std::size_t lower = down ? to : from;
    if (m_Edges[upper].winding == m_Edges[lower].winding &&
        m_Edges[upper].endRow == m_Edges[lower].firstRow) {
        m_Edges[upper].follow = static_cast<std::uint32_t>(lower);
        m_Edges[lower].follows = true;
    }
}

void ScanConverter::ListStarts() {
    m_Heads.assign(Index(m_EndRow, m_FirstRow), kNone);
    for (std::size_t i = 0; i < m_Edges.size(); ++i) {
        if (!m_Edges[i].follows) {
            std::uint32_t& head = m_Heads[Index(m_Edges[i].firstRow, m_FirstRow)];
            m_Edges[i].next = head;
            head = static_cast<std::uint32_t>(i);
        }
    }
}

/// The runs of the row before the next one, in m_Runs.
std::size_t ScanConverter::ConvertRow() {
    const std::int32_t row = m_NextRow - 1;
    m_Moves = m_Crossings.size() * kMovesPerCrossing + 1;
    Advance(row);
    Enter(row);
    if (m_Moves == 0) {
        std::sort(m_Crossings.begin(), m_Crossings.end(),
                  [](const Crossing& a, const Crossing& b) { return a.column < b.column; });
    }
    return m_Rule == FillRule::kAlternate ? MakeAlternateRuns() : MakeWindingRuns();
}

/// Takes the crossings of the row above to this one.
void ScanConverter::Advance(std::int32_t row) {
    // Out of the object, so that the compiler need not fetch them again after every store.
    Edge* const edges = m_Edges.data();
    Crossing* const crossings = m_Crossings.data();
    const std::size_t count = m_Crossings.size();
    std::size_t kept = 0;
    std::int64_t furthest = std::numeric_limits<std::int64_t>::min();
    for (std::size_t i = 0; i < count; ++i) {
        Crossing crossing = crossings[i];
        Edge& edge = edges[crossing.edge];
        if (edge.endRow != row) {
            const std::int64_t left = edge.deficit - edge.deficitStep;
            const std::int64_t borrow = left >> 63;
            edge.deficit = left + (borrow & edge.divisor);
            crossing.column += edge.columnStep - borrow;
        } else if (edge.follow != kNone) {
            crossing.edge = edge.follow;
            crossing.column = edges[edge.follow].column;
        } else {
            continue;
        }
        if (crossing.column >= furthest) {
            furthest = crossing.column;
            crossings[kept++] = crossing;
        } else {
            Insert(kept++, crossing);
        }
    }
    m_Crossings.resize(kept);
}

void ScanConverter::Enter(std::int32_t row) {
    std::uint32_t next = m_Heads[Index(row, m_FirstRow)];
    if (next == kNone) {
        return;
    }
    for (; next != kNone; next = m_Edges[next].next) {
        m_Moves += m_Moves > 0 ? kMovesPerCrossing : 0;
        m_Crossings.emplace_back();
        Insert(m_Crossings.size() - 1, {m_Edges[next].column, next, m_Edges[next].winding});
    }
    m_Runs.resize(std::max(m_Runs.size(), m_Crossings.size() / 2 + 1));
}

/// Puts a crossing where it belongs among the first `place` ones. From row to row few change
/// places; where very many do, as when thousands enter together, the row is left for a general
/// sort.
void ScanConverter::Insert(std::size_t place, const Crossing& crossing) {
    for (; place > 0 && m_Crossings[place - 1].column > crossing.column && m_Moves > 0; --place) {
        m_Crossings[place] = m_Crossings[place - 1];
        --m_Moves;
    }
    m_Crossings[place] = crossing;
}

namespace {

/// Collects the runs of a row, cut to the clip; neighbours that touch become one.
class RunList {
  public:
    RunList(Run* runs, const Clip& clip) : m_Runs(runs), m_Left(clip.left), m_Right(clip.right) {}

    void Add(std::int64_t from, std::int64_t to) {
        const auto begin = static_cast<std::int32_t>(std::max<std::int64_t>(from, m_Left));
        const auto end = static_cast<std::int32_t>(std::min<std::int64_t>(to, m_Right));
        if (begin >= end) {
            return;
        }
        if (m_Count > 0 && m_Runs[m_Count - 1].end == begin) {
            m_Runs[m_Count - 1].end = end;
        } else {
            m_Runs[m_Count++] = {begin, end};
        }
    }
    std::size_t Count() const { return m_Count; }

  private:
    Run* m_Runs;
    std::int32_t m_Left;
    std::int32_t m_Right;
    std::size_t m_Count = 0;
};

}  // namespace

/// Between an odd crossing and the next one it is inside. What lies right of the clip may be
/// missing, and so the last crossing's partner.
std::size_t ScanConverter::MakeAlternateRuns() {
    RunList runs(m_Runs.data(), m_Clip);
    const std::size_t count = m_Crossings.size();
    for (std::size_t i = 0; i < count && m_Crossings[i].column < m_Clip.right; i += 2) {
        runs.Add(m_Crossings[i].column, i + 1 < count ? m_Crossings[i + 1].column : m_Clip.right);
    }
    return runs.Count();
}

std::size_t ScanConverter::MakeWindingRuns() {
    RunList runs(m_Runs.data(), m_Clip);
    std::int32_t winding = 0;
    std::int64_t begin = 0;
    for (const Crossing& crossing : m_Crossings) {
        if (crossing.column >= m_Clip.right) {
            break;
        }
        if (winding == 0) {
            begin = crossing.column;
        }
        winding += crossing.winding;
        if (winding == 0) {
            runs.Add(begin, crossing.column);
        }
    }
    if (winding != 0) {
        runs.Add(begin, m_Clip.right);
    }
    return runs.Count();
}

}  // namespace kv::gdi
