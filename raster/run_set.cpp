// The covered runs of a row, joined with and cut by others.

#include "raster/run_set.h"

#include <algorithm>

namespace kv::raster {

void RunSet::Add(std::span<const Run> runs) {
    if (m_View.empty()) {
        m_View = runs;
        return;
    }
    m_Next.resize(m_View.size() + runs.size());
    Run* out = m_Next.data();
    auto old = m_View.begin();
    auto added = runs.begin();
    const bool addedFirst = !runs.empty() && added->begin < old->begin;
    Run open = addedFirst ? *added++ : *old++;
    while (old != m_View.end() || added != runs.end()) {
        const bool takeOld =
            added == runs.end() || (old != m_View.end() && old->begin <= added->begin);
        const Run next = takeOld ? *old++ : *added++;
        if (next.begin > open.end) {
            *out++ = open;
            open = next;
        } else {
            open.end = std::max(open.end, next.end);
        }
    }
    *out++ = open;
    m_Next.resize(static_cast<std::size_t>(out - m_Next.data()));
    m_Runs.swap(m_Next);
    m_View = m_Runs;
}

void RunSet::Remove(std::span<const Run> runs) {
    m_Next.clear();
    auto removed = runs.begin();
    for (Run run : m_View) {
        while (removed != runs.end() && removed->end <= run.begin) {
            ++removed;
        }
        for (auto hole = removed; hole != runs.end() && hole->begin < run.end; ++hole) {
            if (hole->begin > run.begin) {
                m_Next.push_back({run.begin, hole->begin});
            }
            run.begin = std::min(hole->end, run.end);
        }
        if (run.begin < run.end) {
            m_Next.push_back(run);
        }
    }
    m_Runs.swap(m_Next);
    m_View = m_Runs;
}

}  // namespace kv::raster
