#pragma once

#include <span>
#include <vector>

#include "raster/runs.h"

namespace kv::raster {

/// The set pixels of one row: sorted runs that do not touch each other.
class RunSet {
  public:
    void Clear() { m_View = {}; }
    /// Both take sorted runs that do not touch each other. The first runs added are not copied:
    /// they must stay until the next Clear.
    void Add(std::span<const Run> runs);
    void Remove(std::span<const Run> runs);
    std::span<const Run> Runs() const { return m_View; }

  private:
    std::span<const Run> m_View;  // of the first runs, or of m_Runs
    std::vector<Run> m_Runs;
    std::vector<Run> m_Next;  // working memory, kept from call to call
};

}  // namespace kv::raster
