#include "platform/gdi/run_set.h"

#include <algorithm>

namespace kv::gdi {

void RunSet::Append(Run run) {
    if (!m_Runs.empty() && run.begin <= m_Runs.back().end) {
        m_Runs.back().end = std::max(m_Runs.back().end, run.end);
    } else {
        m_Runs.push_back(run);
    }
}

void RunSet::Add(std::span<const Run> runs) {
    if (m_Runs.empty()) {
        m_Runs.assign(runs.begin(), runs.end());
        return;
    }
    m_Before.swap(m_Runs);
    m_Runs.clear();
    auto old = m_Before.begin();
    auto added = runs.begin();
    while (old != m_Before.end() || added != runs.end()) {
        const bool takeOld =
            added == runs.end() || (old != m_Before.end() && old->begin <= added->begin);
        Append(takeOld ? *old++ : *added++);
    }
}

void RunSet::Remove(std::span<const Run> runs) {
    m_Before.swap(m_Runs);
    m_Runs.clear();
    auto removed = runs.begin();
    for (Run run : m_Before) {
        while (removed != runs.end() && removed->end <= run.begin) {
            ++removed;
        }
        for (auto hole = removed; hole != runs.end() && hole->begin < run.end; ++hole) {
            if (hole->begin > run.begin) {
                m_Runs.push_back({run.begin, hole->begin});
            }
            run.begin = std::min(hole->end, run.end);
        }
        if (run.begin < run.end) {
            m_Runs.push_back(run);
        }
    }
}

}  // namespace kv::gdi
