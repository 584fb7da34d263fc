#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi/contours.h"

namespace kv::gdi {

enum class FillRule { kAlternate, kWinding };

/// Pixels begin to end - 1 of one row.
struct Run {
    std::int32_t begin;
    std::int32_t end;
};

/// Takes the covered pixels of a shape row by row, top down. Runs of a row are sorted, not empty,
/// do not touch each other, and lie within the clip; a row without any is not delivered.
class RunSink {
  public:
    virtual void Row(std::int32_t row, std::span<const Run> runs) = 0;

  protected:
    ~RunSink() = default;
};

/// Half-open pixel bounds.
struct Clip {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

/// Turns contours into runs of pixels. The object keeps its working memory from one call to the
/// next; one serves one thread.
class ScanConverter {
  public:
    /// Hands to the sink every pixel within the clip whose centre lies inside the contours. A
    /// centre exactly on an outline is inside on left and top sides, outside on right and bottom
    /// ones, so that shapes with a common side neither overlap nor leave a gap. Exact for any
    /// coordinate within 2^44 pixels of the origin; points farther out are moved to that distance.
    void Convert(const Contours& contours, FillRule rule, const Clip& clip, RunSink& sink);

    /// The same row by row at the caller's pace: Start, then Next until it gives false. The runs
    /// are good until the next call.
    void Start(const Contours& contours, FillRule rule, const Clip& clip);
    bool Next(std::int32_t& row, std::span<const Run>& runs);

  private:
    /// One side of a contour.
    struct Edge {
        std::int64_t column;       ///< on the first row: first pixel not left of the crossing
        std::int64_t deficit;      ///< column - crossing in units of 1 / divisor, below divisor
        std::int64_t columnStep;   ///< floor of the columns from one row to the next
        std::int64_t deficitStep;  ///< what the floor left out, in units of 1 / divisor
        std::int64_t divisor;
        std::int32_t firstRow;
        std::int32_t endRow;   ///< first row no longer crossed
        std::uint32_t follow;  ///< the side that takes over on the end row
        std::uint32_t next;    ///< another edge that enters on the same row
        std::int32_t winding;
        bool follows;
    };

    /// Where an edge crosses the current row.
    struct Crossing {
        std::int64_t column;
        std::uint32_t edge;
        std::int32_t winding;
    };

    void AddContour(std::span<const FixedPoint> points, const Clip& clip);
    void Add(const FixedPoint& from, const FixedPoint& to, const Clip& clip);
    template <typename T>
    static void Place(Edge& edge, std::int64_t x, std::int64_t width, std::int64_t drop);
    void Chain(std::size_t from, std::size_t to);
    void ListStarts();
    std::size_t ConvertRow();
    void Advance(std::int32_t row);
    void Enter(std::int32_t row);
    void Insert(std::size_t place, const Crossing& crossing);
    std::size_t MakeAlternateRuns();
    std::size_t MakeWindingRuns();

    std::vector<Edge> m_Edges;
    std::vector<std::uint32_t> m_Heads;  // the first of the edges that enter, by row
    std::vector<Crossing> m_Crossings;   // of the current row, sorted
    std::vector<Run> m_Runs;
    std::size_t m_Moves = 0;  // how many more crossings may be moved one by one on this row
    Clip m_Clip{0, 0, 0, 0};
    FillRule m_Rule = FillRule::kAlternate;
    std::int32_t m_FirstRow = 0;
    std::int32_t m_EndRow = 0;
    std::int32_t m_NextRow = 0;
};

}  // namespace kv::gdi
