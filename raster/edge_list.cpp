// From contours to edges: the exact crossing of each with the rows of pixel centres.

#include "raster/edge_list.h"

#include <algorithm>

namespace kv::raster {

namespace {

__extension__ using Wide = __int128;

// Within this distance a product of two differences fits 128 bits, and the walk fits 64 bits.
constexpr std::int64_t kFarthest = std::int64_t{1} << 52;
// Factors below this keep the setup of an edge within the 53 bits of a double.
constexpr std::int64_t kSmall = std::int64_t{1} << 26;

// Moves the origin to the centre of pixel (0, 0): centres are then whole multiples of kSubpixels.
FixedPoint FromCentre(const FixedPoint& point) {
    return {std::clamp(point.x, -kFarthest, kFarthest) - kSubpixels / 2,
            std::clamp(point.y, -kFarthest, kFarthest) - kSubpixels / 2};
}

// The first pixel whose centre is at the position or beyond it.
constexpr std::int64_t FirstCentre(std::int64_t position) {
    return (position + kSubpixels - 1) >> kSubpixelBits;
}

struct Division {
    std::int64_t quotient;
    std::int64_t remainder;
};

// Floor and remainder, for operands up to 2^53 in size. The double quotient is right to half a
// unit in its last place, so that cut to an integer it is the floor or one more; several times as
// quick as dividing integers.
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

}  // namespace

void EdgeList::Start(const Clip& clip) {
    m_Edges.clear();
    m_Clip = clip;
    m_FirstRow = clip.bottom;
    m_EndRow = clip.top;
}

void EdgeList::Add(const Contours& contours, FillRule rule) {
    if (m_Clip.left >= m_Clip.right) {
        return;
    }
    std::size_t begin = 0;
    for (const std::size_t end : contours.ends) {
        AddContour(std::span(contours.points).subspan(begin, end - begin), rule);
        begin = end;
    }
}

void EdgeList::AddContour(std::span<const FixedPoint> points, FillRule rule) {
    if (points.empty()) {
        return;
    }
    const std::size_t first = m_Edges.size();
    FixedPoint from = FromCentre(points.back());
    for (const FixedPoint& point : points) {
        const FixedPoint to = FromCentre(point);
        AddSide(from, to, rule);
        from = to;
    }
    for (std::size_t i = first; i < m_Edges.size(); ++i) {
        Chain(i, i + 1 < m_Edges.size() ? i + 1 : first);
    }
}

void EdgeList::AddSide(const FixedPoint& from, const FixedPoint& to, FillRule rule) {
    const bool down = from.y < to.y;
    const FixedPoint& upper = down ? from : to;
    const FixedPoint& lower = down ? to : from;
    const std::int64_t first = std::max<std::int64_t>(FirstCentre(upper.y), m_Clip.top);
    const std::int64_t end = std::min<std::int64_t>(FirstCentre(lower.y), m_Clip.bottom);
    // What lies right of the clip changes nothing within it.
    if (first >= end || FirstCentre(std::min(from.x, to.x)) >= m_Clip.right) {
        return;
    }
    const std::int64_t width = lower.x - upper.x;
    const std::int64_t height = lower.y - upper.y;
    const std::int64_t drop = first * kSubpixels - upper.y;
    // Filled in place: the compiler's copy of a finished edge reads wider than it has just written.
    Edge& edge = m_Edges.emplace_back();
    edge.crossing = m_Clip.left * kPlace;
    edge.divisor = height * kSubpixels;
    edge.firstRow = static_cast<std::int32_t>(first);
    edge.endRow = static_cast<std::int32_t>(end);
    edge.follow = kNoEdge;
    edge.next = kNoEdge;
    edge.down = down;
    // An edge left of the clip counts where the clip begins.
    if (FirstCentre(std::max(from.x, to.x)) > m_Clip.left) {
        if (std::abs(upper.x) < kSmall && std::abs(width) < kSmall && height < kSmall) {
            Place<std::int64_t>(edge, upper.x, width, drop);
        } else {
            Place<Wide>(edge, upper.x, width, drop);
        }
        if (end - first > 1) {
            const auto [step, rest] = FloorDivide(width, height);
            edge.step = step * kPlace;
            edge.deficitStep = rest * kSubpixels;
        }
    }
    const CrossingKind winding = down ? kWindDown : kWindUp;
    edge.crossing += rule == FillRule::kAlternate ? kFlip : winding;
    m_FirstRow = std::min(m_FirstRow, edge.firstRow);
    m_EndRow = std::max(m_EndRow, edge.endRow);
}

// Puts an edge onto the row `drop` below its upper end at x. The crossing is at
// (x * height + drop * width) / (height * kSubpixels) columns; the pixel is its ceiling.
template <typename T>
void EdgeList::Place(Edge& edge, std::int64_t x, std::int64_t width, std::int64_t drop) {
    const T height = edge.divisor / kSubpixels;
    const T crossing = T{x} * height + T{drop} * width;
    const auto [floor, rest] = FloorDivide(-crossing, edge.divisor);
    edge.crossing = -floor * kPlace;
    edge.deficit = rest;
}

// Where two neighbouring sides run on in the same sense, the lower one takes the place of the
// upper one in the row, which is cheaper than entering anew. Any pair of which one begins where
// the other ends would do.
void EdgeList::Chain(std::size_t from, std::size_t to) {
    const bool down = m_Edges[from].down;
    const std::size_t upper = down ? from : to;
    const std::size_t lower = down ? to : from;
    if (m_Edges[upper].down == m_Edges[lower].down &&
        m_Edges[upper].endRow == m_Edges[lower].firstRow) {
        m_Edges[upper].follow = static_cast<std::uint32_t>(lower);
        m_Edges[lower].follows = true;
    }
}

}  // namespace kv::raster
