// Resampling between the two nearest source pixels along each axis.

#include "surface/resample.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/narrow.h"
#include "base/scratch.h"
#include "surface/resample_rows.h"

// The horizontal sums of a source row stand as doubles, made once and used by every target row that
// lies between this source row and the next. The target is made in strips of columns, so that the
// two rows of sums in use stay in cache; wide ones, since memory is slow in short pieces.

namespace kv {
namespace {

constexpr std::size_t kStrip = 4096;  // target columns

struct Axis {
    LONG source;  // pixels
    LONG target;
    float factor;
};

// Nothing where the position lies outside the source. Where both pixels are one, beyond the edges,
// the weight is 0 or 1, which takes that pixel unrounded.
std::optional<Tap> TapAt(LONG position, const Axis& axis) {
    const LONG fromCentre = position - axis.target / 2;
    const float at = static_cast<float>(fromCentre) / axis.factor;
    // A whole number at or below 0 counts as the end of the interval before it.
    const LONG below = TruncateToInt32(at > 0 ? double{at} : double{at} - 1.0);
    const std::int64_t index = std::int64_t{below} + axis.source / 2;
    if (index < -1 || index >= axis.source) {
        return std::nullopt;
    }
    if (index == -1 || axis.source == 1) {
        return Tap{0, 0.0F};
    }
    if (index == axis.source - 1) {
        return Tap{axis.source - 2, 1.0F};
    }
    return Tap{static_cast<LONG>(index), at - static_cast<float>(below)};
}

// The taps of a strip's columns. Positions rise with the column, so that those outside the source
// are at the ends.
struct Columns {
    Tap* taps;
    std::size_t outsideBefore = 0;
    std::size_t count = 0;

    Columns(Tap* memory, std::size_t from, std::size_t width, const Axis& axis) : taps(memory) {
        for (std::size_t i = 0; i < width; ++i) {
            if (const auto tap = TapAt(static_cast<LONG>(from + i), axis)) {
                taps[count++] = *tap;
            } else if (count == 0) {
                ++outsideBefore;
            }
        }
    }
};

// The sums of the two source rows used last.
class SumCache {
  public:
    // memory holds eight doubles a column.
    SumCache(double* memory, const CKVFrameBuffer& source, const Columns& columns)
        : m_Source(source), m_Columns(columns), m_Sums{memory, memory + columns.count * 4} {}

    // The sums of a source row; they stay until the row after the next is asked for.
    const double* Row(LONG row) {
        const auto slot = static_cast<std::size_t>(row % 2);
        if (m_Rows[slot] != row) {
            m_Rows[slot] = row;
            SumTaps(m_Sums[slot], Pixels(row), m_Columns.taps, m_Columns.count);
        }
        return m_Sums[slot];
    }

  private:
    // Taps read two pixels: a source of one column stands twice.
    const DWORD* Pixels(LONG row) {
        const DWORD* const pixels =
            m_Source.GetBufferDWord() + static_cast<std::size_t>(row) * m_Source.GetWidth();
        if (m_Source.GetWidth() > 1) {
            return pixels;
        }
        m_Twice.fill(*pixels);
        return m_Twice.data();
    }

    const CKVFrameBuffer& m_Source;
    const Columns& m_Columns;
    std::array<LONG, 2> m_Rows{-1, -1};
    std::array<double*, 2> m_Sums;
    std::array<DWORD, 2> m_Twice{};
};

// A row that has all the weight stands for both.
void MixRow(DWORD* target, SumCache& sums, const Tap& tap, std::size_t count) {
    const double* const upper = sums.Row(tap.weight == 1.0F ? tap.first + 1 : tap.first);
    const double* const lower = tap.weight == 0.0F ? upper : sums.Row(tap.first + 1);
    MixSums(target, upper, lower, double{tap.weight}, count);
}

void ResampleStrip(CKVFrameBuffer& target, std::size_t from, std::size_t width,
                   const Columns& columns, SumCache& sums, const Axis& down) {
    for (LONG y = 0; y < down.target; ++y) {
        DWORD* const row =
            target.GetBufferDWord() + static_cast<std::size_t>(y) * target.GetWidth() + from;
        const auto tap = TapAt(y, down);
        const std::size_t before = tap ? columns.outsideBefore : width;
        const std::size_t inside = tap ? columns.count : 0;
        std::fill_n(row, before, 0);
        if (tap) {
            MixRow(row + before, sums, *tap, inside);
        }
        std::fill_n(row + before + inside, width - before - inside, 0);
    }
}

}  // namespace

bool Resample(const CKVFrameBuffer& source, CKVFrameBuffer& target, float factorX, float factorY) {
    const Axis across{source.m_Width, target.m_Width, factorX};
    const Axis down{source.m_Height, target.m_Height, factorY};
    const std::size_t width = target.GetWidth();
    const auto taps = Scratch<Tap>(std::min(kStrip, width));
    const auto sums = Scratch<double>(std::min(kStrip, width) * 8);
    if (taps == nullptr || sums == nullptr) {
        return false;
    }
    for (std::size_t x = 0; x < width; x += kStrip) {
        const std::size_t strip = std::min(kStrip, width - x);
        const Columns columns(taps.get(), x, strip, across);
        SumCache cache(sums.get(), source, columns);
        ResampleStrip(target, x, strip, columns, cache, down);
    }
    return true;
}

}  // namespace kv
