#pragma once

#include <span>

#include "platform/gdi/contours.h"

namespace kv::gdi {

enum class FillRule { kAlternate, kWinding };

/// Pixels begin to end - 1 of one row.
struct Run {
    std::int32_t begin;
    std::int32_t end;
};

/// Takes the covered pixels of a shape row by row, top down. Runs of a row are sorted, disjoint, not
/// empty, and lie within the clip.
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

/// Hands to the sink every pixel within the clip whose centre lies inside the contours. A centre
/// exactly on an outline is inside on left and top sides, outside on right and bottom ones.
void ScanConvert(const Contours& contours, FillRule rule, const Clip& clip, RunSink& sink);

}  // namespace kv::gdi
