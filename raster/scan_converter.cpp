// From the crossings of a row to its runs, by the winding or the alternate rule.

#include "raster/scan_converter.h"

#include <algorithm>
#include <cstring>

namespace kv::raster {

namespace {

// What tells inside from outside, by kind of crossing, met from left to right and added up: the
// winding number, and the parity of the alternate rule as the highest bit, where nothing carries.
// Outside both is 0.
constexpr std::uint64_t kTurns[] = {~std::uint64_t{0}, std::uint64_t{1} << 63, 1};
static_assert(kWindUp == 0 && kFlip == 1 && kWindDown == 2);

std::uint64_t TurnAt(Crossing crossing) {
    return kTurns[crossing & (kPlace - 1)];
}

// Makes one of neighbours that touch and drops empty ones.
std::size_t MergeTouching(Run* runs, std::size_t count) {
    unsigned touching = 0;
    for (std::size_t i = 0; i + 1 < count; ++i) {
        touching |= (runs[i].begin == runs[i].end) | (runs[i].end == runs[i + 1].begin);
    }
    touching |= count > 0 && runs[count - 1].begin == runs[count - 1].end;
    if (touching == 0) {
        return count;
    }
    std::size_t kept = 0;
    for (const Run run : std::span(runs, count)) {
        if (kept > 0 && runs[kept - 1].end == run.begin) {
            runs[kept - 1].end = run.end;
        } else if (run.begin != run.end) {
            runs[kept++] = run;
        }
    }
    return kept;
}

}  // namespace

void ScanConverter::Convert(const Contours& contours, FillRule rule, const Clip& clip,
                            RunSink& sink) {
    Start(clip);
    Add(contours, rule);
    std::int32_t row = 0;
    std::span<const Run> runs;
    while (Next(row, runs)) {
        sink.Row(row, runs);
    }
}

void ScanConverter::Start(const Clip& clip) {
    m_Clip = clip;
    m_Edges.Start(clip);
    m_Walking = false;
}

bool ScanConverter::Next(std::int32_t& row, std::span<const Run>& runs) {
    if (!m_Walking) {
        m_Walk.Start(m_Edges);
        m_Walking = true;
        m_RowsDone = EdgeWalk::kRows;
    }
    for (;; ++m_RowsDone) {
        if (m_RowsDone == EdgeWalk::kRows) {
            if (!m_Walk.Next()) {
                return false;
            }
            m_RowsDone = 0;
        }
        const std::size_t count = MakeRuns(m_Walk.TakeRow(m_RowsDone));
        if (count > 0) {
            row = static_cast<std::int32_t>(m_Walk.FirstRow() + m_RowsDone++);
            runs = std::span<const Run>(m_Runs.data(), count);
            return true;
        }
    }
}

// The runs of a row, in m_Runs. What lies right of the clip may be missing, and so the last
// crossing's partner.
std::size_t ScanConverter::MakeRuns(std::span<const Crossing> crossings) {
    const Crossing* at = crossings.data();
    const Crossing* end = at + crossings.size();
    const Crossing right = m_Clip.right * kPlace;
    while (end != at && end[-1] >= right) {
        --end;
    }
    std::uint64_t inside = 0;
    for (; at != end && *at < (m_Clip.left + 1) * kPlace; ++at) {
        inside += TurnAt(*at);
    }
    m_Runs.resize(std::max(m_Runs.size(), crossings.size() / 2 + 2));
    // Begins and ends by turns. Without branches: where runs begin and end follows no pattern that
    // a processor could foresee.
    auto* const first = reinterpret_cast<char*>(m_Runs.data());
    char* bound = first;
    const auto put = [&](std::int32_t pixel, bool counts) {
        std::memcpy(bound, &pixel, sizeof pixel);
        bound += counts ? sizeof pixel : 0;
    };
    bool open = inside != 0;
    put(m_Clip.left, open);
    for (; at != end; ++at) {
        inside += TurnAt(*at);
        const bool opens = inside != 0;
        put(static_cast<std::int32_t>(*at >> kKindBits), opens != open);
        open = opens;
    }
    put(m_Clip.right, open);
    return MergeTouching(m_Runs.data(), static_cast<std::size_t>(bound - first) / sizeof(Run));
}

}  // namespace kv::raster
