#pragma once

#include <cstdint>
#include <span>

// What passes between those that find pixels and those that set or count them.
namespace kv::raster {

/// Half-open pixel bounds.
struct Clip {
    std::int32_t left;
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};

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

}  // namespace kv::raster
