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

    /// One side of a contour where it crosses the centres of the current row.
    struct Edge {
        std::int64_t column;       ///< first pixel whose centre is at the crossing or right of it
        std::int64_t deficit;      ///< column - crossing in units of 1 / divisor, below divisor
        std::int64_t columnStep;   ///< floor of the columns from one row to the next
        std::int64_t deficitStep;  ///< what the floor left out, in units of 1 / divisor
        std::int64_t divisor;
        std::int32_t endRow;  ///< first row no longer crossed
        std::int32_t winding;

        void Step() {
            const std::int64_t left = deficit - deficitStep;
            const std::int64_t borrow = left >> 63;
            deficit = left + (borrow & divisor);
            column += columnStep - borrow;
        }
    };

  private:
    /// Where an edge begins; edges with the same first row form a list.
    struct Start {
        std::int32_t row;
        std::uint32_t next;
    };

    void Collect(const Contours& contours, const Clip& clip);
    void Add(const FixedPoint& from, const FixedPoint& to, const Clip& clip);
    void LinkStarts();
    template <FillRule kRule>
    void Walk(const Clip& clip, RunSink& sink);
    void Retire(std::int32_t row);
    void Enter(std::int32_t row);
    void Sort();
    template <FillRule kRule>
    std::size_t MakeRuns(const Clip& clip);

    std::vector<Edge> m_Edges;
    std::vector<Start> m_Starts;
    std::vector<std::uint32_t> m_Heads;
    std::vector<Edge> m_Active;
    std::vector<Run> m_Runs;
    std::int32_t m_FirstRow = 0;
    std::int32_t m_EndRow = 0;
    std::int32_t m_NextEnd = 0;
};

}  // namespace kv::gdi
