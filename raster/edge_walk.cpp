// Edges followed down the rows, four at a time where they go on through a strip.

#include "raster/edge_walk.h"

#include <algorithm>

#include "base/vector.h"

namespace kv::raster {
namespace {

// Sorts what is nearly sorted: by insertion until it has taken very many moves, as when thousands
// of edges enter together.
template <typename T>
void Mend(T* items, std::size_t count) {
    constexpr std::size_t kMovesPerItem = 8;
    std::size_t moves = count * kMovesPerItem;
    for (std::size_t i = 1; i < count; ++i) {
        if (!(items[i] < items[i - 1])) {
            continue;
        }
        const T item = items[i];
        std::size_t place = i;
        do {
            items[place] = items[place - 1];
            --place;
        } while (place > 0 && item < items[place - 1]);
        items[place] = item;
        if (i - place > moves) {
            std::sort(items, items + count);
            return;
        }
        moves -= i - place;
    }
}

using Numbers = SignedQuads4;
constexpr std::size_t kTogether = kLanes<Numbers>;

// Takes four edges through all rows of a strip.
KV_FORCE_INLINE void StepBody(Edge* const* edges, Crossing** rowEnds) {
    const Edge &a = *edges[0], &b = *edges[1], &c = *edges[2], &d = *edges[3];
    Numbers crossing{a.crossing, b.crossing, c.crossing, d.crossing};
    Numbers deficit{a.deficit, b.deficit, c.deficit, d.deficit};
    const Numbers step{a.step, b.step, c.step, d.step};
    const Numbers deficitStep{a.deficitStep, b.deficitStep, c.deficitStep, d.deficitStep};
    const Numbers divisor{a.divisor, b.divisor, c.divisor, d.divisor};
    for (std::int32_t row = 0; row < EdgeWalk::kRows; ++row) {
        Store(rowEnds[row], crossing);
        rowEnds[row] += kTogether;
        const Numbers left = deficit - deficitStep;
        const Numbers borrow = left < 0;
        deficit = left + (borrow & divisor);
        crossing += step + (borrow & kPlace);
    }
    for (std::size_t i = 0; i < kTogether; ++i) {
        edges[i]->crossing = crossing[i];
        edges[i]->deficit = deficit[i];
    }
}

void StepPlain(Edge* const* edges, Crossing** rowEnds) {
    StepBody(edges, rowEnds);
}

KV_TARGET_AVX2 void StepAvx2(Edge* const* edges, Crossing** rowEnds) {
    StepBody(edges, rowEnds);
}

}  // namespace

std::size_t EdgeWalk::StripOf(std::int64_t row) const {
    return static_cast<std::size_t>(row - m_Top) / kRows;
}

void EdgeWalk::Start(EdgeList& edges) {
    m_Edges = edges.Edges();
    m_Walkers.clear();
    m_Heads.clear();
    m_Top = edges.FirstRow();
    m_FirstRow = m_Top - kRows;
    if (m_Edges.empty()) {
        return;
    }
    m_Heads.resize(StripOf(edges.EndRow() - std::int64_t{1}) + 1, kNoEdge);
    for (std::size_t i = 0; i < m_Edges.size(); ++i) {
        Edge& edge = m_Edges[i];
        if (!edge.follows) {
            std::uint32_t& head = m_Heads[StripOf(edge.firstRow)];
            edge.next = head;
            head = static_cast<std::uint32_t>(i);
        }
    }
}

bool EdgeWalk::Next() {
    m_FirstRow += kRows;
    if (StripOf(m_FirstRow) >= m_Heads.size()) {
        return false;
    }
    Enter();
    Mend(m_Walkers.data(), m_Walkers.size());
    MakeRoom();
    Walk();
    return true;
}

void EdgeWalk::Enter() {
    for (std::uint32_t next = m_Heads[StripOf(m_FirstRow)]; next != kNoEdge;
         next = m_Edges[next].next) {
        m_Walkers.push_back({m_Edges[next].crossing, next});
    }
}

void EdgeWalk::MakeRoom() {
    // An odd number of cache lines, so that one place of all the rows is not in one cache set.
    constexpr std::size_t kLine = 64 / sizeof(Crossing);
    m_Stride = ((m_Walkers.size() / kLine + 1) | 1) * kLine;
    m_Crossings.resize(std::max(m_Crossings.size(), m_Stride * kRows));
    for (std::size_t row = 0; row < kRows; ++row) {
        m_RowEnds[row] = m_Crossings.data() + row * m_Stride;
    }
}

void EdgeWalk::Walk() {
    auto* const step = ForLevel(StepPlain, StepAvx2);
    const std::size_t count = m_Walkers.size();
    std::size_t kept = 0;
    for (std::size_t i = 0; i < count;) {
        Edge* four[kTogether];
        const std::size_t through = FindThrough(i, four);
        if (through == kTogether) {
            step(four, m_RowEnds.data());
            for (const Edge* edge : four) {
                m_Walkers[kept++] = {edge->crossing, m_Walkers[i++].edge};
            }
            continue;
        }
        for (const std::size_t end = std::min(i + through + 1, count); i < end; ++i) {
            Walker walker = m_Walkers[i];
            if (WalkOne(walker)) {
                m_Walkers[kept++] = walker;
            }
        }
    }
    m_Walkers.resize(kept);
}

// The edges from a walker on that cross all rows of the strip and the one below it, four at most.
std::size_t EdgeWalk::FindThrough(std::size_t first, Edge** through) {
    const std::size_t most = std::min(kTogether, m_Walkers.size() - first);
    for (std::size_t i = 0; i < most; ++i) {
        through[i] = &m_Edges[m_Walkers[first + i].edge];
        if (through[i]->firstRow > m_FirstRow || through[i]->endRow <= m_FirstRow + kRows) {
            return i;
        }
    }
    return most;
}

// Takes an edge and those that follow it through the strip. False if none of them leaves it.
bool EdgeWalk::WalkOne(Walker& walker) {
    const std::int64_t stripEnd = m_FirstRow + kRows;
    std::int64_t row = std::max<std::int64_t>(m_Edges[walker.edge].firstRow, m_FirstRow);
    for (;;) {
        Edge& edge = m_Edges[walker.edge];
        const std::int64_t end = std::min<std::int64_t>(edge.endRow, stripEnd);
        Crossing crossing = edge.crossing;
        std::int64_t deficit = edge.deficit;
        for (; row < end; ++row) {
            *m_RowEnds[static_cast<std::size_t>(row - m_FirstRow)]++ = crossing;
            const std::int64_t left = deficit - edge.deficitStep;
            const std::int64_t borrow = left >> 63;
            deficit = left + (borrow & edge.divisor);
            crossing += edge.step + (borrow & kPlace);
        }
        if (edge.endRow > stripEnd) {
            edge.crossing = crossing;
            edge.deficit = deficit;
            walker.crossing = crossing;
            return true;
        }
        if (edge.follow == kNoEdge) {
            return false;
        }
        walker.edge = edge.follow;
        if (edge.endRow == stripEnd) {
            walker.crossing = m_Edges[walker.edge].crossing;
            return true;
        }
    }
}

std::span<const Crossing> EdgeWalk::TakeRow(std::int32_t row) {
    Crossing* const begin = m_Crossings.data() + static_cast<std::size_t>(row) * m_Stride;
    const auto count = static_cast<std::size_t>(m_RowEnds[static_cast<std::size_t>(row)] - begin);
    Mend(begin, count);
    return {begin, count};
}

}  // namespace kv::raster
