#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "raster/runs.h"

namespace kv::raster {

/// Counts the set pixels of one row of square blocks from the runs of its pixel rows.
class BlockCounter {
  public:
    /// scale: pixels of a block along each axis, a power of two up to 16.
    BlockCounter(std::int32_t scale, std::int32_t columns);

    /// Runs within the columns.
    void Add(std::span<const Run> runs);
    /// Writes the coverage of every block, count * 256 / pixels and 255 for a full one, and starts
    /// anew.
    void Write(std::uint8_t* coverage);

  private:
    std::int32_t m_Shift;
    std::int32_t m_Scale;
    // What a run has in the blocks at its ends, and the rise and fall of what it has in each block
    // between them.
    std::vector<std::int16_t> m_Ends;
    std::vector<std::int16_t> m_Steps;
    std::int32_t m_First;  // the blocks that were touched
    std::int32_t m_Last;
};

}  // namespace kv::raster
