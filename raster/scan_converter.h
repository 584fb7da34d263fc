#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "raster/contours.h"
#include "raster/edge_list.h"
#include "raster/edge_walk.h"
#include "raster/runs.h"

namespace kv::raster {

/// Turns contours into runs of pixels. The object keeps its working memory from one call to the
/// next; one serves one thread.
class ScanConverter {
  public:
    /// Hands to the sink every pixel within the clip whose centre lies inside the contours. A
    /// centre exactly on an outline is inside on left and top sides, outside on right and bottom
    /// ones, so that shapes with a common side neither overlap nor leave a gap. Exact for any
    /// coordinate within 2^44 pixels of the origin; points farther out are moved to that distance.
    void Convert(const Contours& contours, FillRule rule, const Clip& clip, RunSink& sink);

    /// The same row by row at the caller's pace: Start, Add, then Next until it gives false. Runs
    /// are good until the next call. Contours of the alternate rule may be joined by others of the
    /// winding rule, which gives the pixels inside either.
    void Start(const Clip& clip);
    void Add(const Contours& contours, FillRule rule) { m_Edges.Add(contours, rule); }
    bool Next(std::int32_t& row, std::span<const Run>& runs);

  private:
    std::size_t MakeRuns(std::span<const Crossing> crossings);

    Clip m_Clip{0, 0, 0, 0};
    EdgeList m_Edges;
    EdgeWalk m_Walk;
    std::int32_t m_RowsDone = 0;  // of the walk's strip
    bool m_Walking = false;
    std::vector<Run> m_Runs;
};

}  // namespace kv::raster
