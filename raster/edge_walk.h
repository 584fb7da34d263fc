#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "raster/edge_list.h"

namespace kv::raster {

/// Follows edges down the rows in strips: an edge is taken through all rows of a strip in one go,
/// with its numbers in registers. At the head of a strip the edges stand in the order of their
/// crossings, so that the crossings of each row come out nearly sorted. An object keeps its working
/// memory from one walk to the next.
class EdgeWalk {
  public:
    static constexpr std::int32_t kRows = 16;

    /// Begins above the first strip. The edges must stay until the walk is over, and are changed.
    void Start(EdgeList& edges);
    /// Goes on to the next strip; false behind the last one.
    bool Next();

    std::int64_t FirstRow() const { return m_FirstRow; }
    /// The crossings of a row of the strip, sorted.
    std::span<const Crossing> TakeRow(std::int32_t row);

  private:
    /// An edge on the strip.
    struct Walker {
        Crossing crossing;
        std::uint32_t edge;

        bool operator<(const Walker& other) const { return crossing < other.crossing; }
    };

    std::size_t StripOf(std::int64_t row) const;
    void Enter();
    void MakeRoom();
    void Walk();
    std::size_t FindThrough(std::size_t first, Edge** through);
    bool WalkOne(Walker& walker);

    std::span<Edge> m_Edges;
    std::vector<std::uint32_t> m_Heads;  // the first of the edges that enter, by strip
    std::vector<Walker> m_Walkers;
    std::vector<Crossing> m_Crossings;  // of all rows, m_Stride apart
    std::array<Crossing*, kRows> m_RowEnds{};
    std::size_t m_Stride = 0;
    std::int64_t m_Top = 0;  // the first row of all
    std::int64_t m_FirstRow = 0;
};

}  // namespace kv::raster
