#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "raster/contours.h"
#include "raster/runs.h"

namespace kv::raster {

/// Where a side crosses a row, as one number that sorts by place: the first pixel not left of it,
/// times kPlace, plus what it does, a CrossingKind.
using Crossing = std::int64_t;
enum CrossingKind : Crossing { kWindUp = 0, kFlip = 1, kWindDown = 2 };
inline constexpr int kKindBits = 2;
inline constexpr Crossing kPlace = Crossing{1} << kKindBits;

inline constexpr std::uint32_t kNoEdge = std::numeric_limits<std::uint32_t>::max();

/// One side of a contour. From one row to the next its crossing moves by `step`, and by one pixel
/// more where `deficitStep` exceeds the deficit, which then grows by `divisor`.
struct Edge {
    Crossing crossing;         ///< on the row it has come to, at first firstRow
    Crossing step;             ///< the floor of the way to the next row
    std::int64_t deficit;      ///< pixel - crossing in units of 1 / divisor, below divisor
    std::int64_t deficitStep;  ///< what the floor left out, in units of 1 / divisor
    std::int64_t divisor;
    std::int32_t firstRow;
    std::int32_t endRow;   ///< first row no longer crossed
    std::uint32_t follow;  ///< the side that takes over on the end row
    std::uint32_t next;    ///< in a list of edges
    bool down;             ///< the contour runs down along it
    bool follows;          ///< another one's `follow`
};

/// The sides of contours that have a say in the pixels of a clip.
class EdgeList {
  public:
    void Start(const Clip& clip);
    void Add(const Contours& contours, FillRule rule);

    std::span<Edge> Edges() { return m_Edges; }
    /// The rows that are crossed; none when the first is not before the end.
    std::int32_t FirstRow() const { return m_FirstRow; }
    std::int32_t EndRow() const { return m_EndRow; }

  private:
    void AddContour(std::span<const FixedPoint> points, FillRule rule);
    void AddSide(const FixedPoint& from, const FixedPoint& to, FillRule rule);
    template <typename T>
    static void Place(Edge& edge, std::int64_t x, std::int64_t width, std::int64_t drop);
    void Chain(std::size_t from, std::size_t to);

    std::vector<Edge> m_Edges;
    Clip m_Clip{0, 0, 0, 0};
    std::int32_t m_FirstRow = 0;
    std::int32_t m_EndRow = 0;
};

}  // namespace kv::raster
