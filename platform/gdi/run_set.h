#pragma once

#include <span>
#include <vector>

#include "platform/gdi/scan_converter.h"

namespace kv::gdi {

/// The set pixels of one row: sorted runs that do not touch each other.
class RunSet {
  public:
    void Clear() { m_Runs.clear(); }
    /// Both take sorted, disjoint runs.
    void Add(std::span<const Run> runs);
    void Remove(std::span<const Run> runs);
    std::span<const Run> Runs() const { return m_Runs; }

  private:
    void Append(Run run);

    std::vector<Run> m_Runs;
    std::vector<Run> m_Before;  // working memory, kept from call to call
};

}  // namespace kv::gdi
