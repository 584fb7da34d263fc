#pragma once

#include <CKVGrayBitmap.h>
#include <KVDrawInfo.h>

#include "base/outcome.h"

// Edges around a coverage. The target's origin lies radius pixels left of and above the source's.
namespace kv {

struct Edge {
    LONG type;    ///< an EdgeType; any other number is soft
    LONG radius;  ///< below 1: no edge
};

/// By how much the edge's coverage is larger than its source on both axes.
constexpr std::int64_t EdgeGrowth(const Edge& edge) {
    return std::int64_t{2} * edge.radius;
}

/// Where the corner of the edge's coverage lies from the source's on both axes.
constexpr std::int64_t EdgeOffset(const Edge& edge) {
    return -std::int64_t{edge.radius};
}

/// Makes the target the source's edge. Fails with the target unchanged for a radius below 1 and an
/// empty source.
Outcome MakeEdge(const Edge& edge, const CKVGrayBitmap& source, CKVGrayBitmap& target);

/// Each keeps in the target what is greater. They fail with the target unchanged for a negative
/// radius, when the target has not room for 2 * radius more columns and rows than the source has,
/// and when memory runs out.
Outcome GrowHard(LONG radius, const CKVGrayBitmap& source, CKVGrayBitmap& target);
Outcome GrowSoft(LONG radius, const CKVGrayBitmap& source, CKVGrayBitmap& target);

}  // namespace kv
