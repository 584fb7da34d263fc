#include "surface/resample.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

#include "base/narrow.h"

// The target is made in strips of columns. Within a strip the horizontal sums of a source row stand
// as doubles, made once and used by every target row that lies between this source row and the
// next; the two rows of sums in use stay in the nearest cache.

namespace kv {
namespace {

constexpr std::size_t kStrip = 256;  // target columns

struct Axis {
    LONG source;  // pixels
    LONG target;
    float factor;
};

// The two source pixels of one target position: value = first * (1 - weight) + second * weight.
struct Tap {
    std::size_t first;
    std::size_t second;
    float weight;
};

// At the edges, where both pixels are one, the weight is 0: the sum is then that pixel, unrounded.
std::optional<Tap> TapAt(LONG position, const Axis& axis) {
    const float at = static_cast<float>(position - axis.target / 2) / axis.factor;
    // A whole number at or below 0 counts as the end of the interval before it.
    const LONG below = TruncateToInt32(at > 0 ? double{at} : double{at} - 1.0);
    const std::int64_t index = std::int64_t{below} + axis.source / 2;
    if (index < -1 || index >= axis.source) {
        return std::nullopt;
    }
    if (index == -1 || index == axis.source - 1) {
        const auto edge = static_cast<std::size_t>(std::max<std::int64_t>(index, 0));
        return Tap{edge, edge, 0.0F};
    }
    const auto first = static_cast<std::size_t>(index);
    return Tap{first, first + 1, at - static_cast<float>(below)};
}

// The taps of a strip's columns. Positions rise with the column, so that those outside the source
// are at the ends.
struct Columns {
    std::size_t outsideBefore = 0;
    std::size_t count = 0;
    std::array<Tap, kStrip> taps;

    Columns(std::size_t from, std::size_t width, const Axis& axis) {
        for (std::size_t i = 0; i < width; ++i) {
            if (const auto tap = TapAt(static_cast<LONG>(from + i), axis)) {
                taps[count++] = *tap;
            } else if (count == 0) {
                ++outsideBefore;
            }
        }
    }
};

using SumRow = std::array<double, kStrip * 4>;

// float(b) * t in single precision, the rest in double: part of the result's definition.
void SumHorizontally(double* sums, const BYTE* row, const Columns& columns) {
    for (std::size_t x = 0; x < columns.count; ++x, sums += 4) {
        const Tap& tap = columns.taps[x];
        const BYTE* const a = row + tap.first * 4;
        const BYTE* const b = row + tap.second * 4;
        for (std::size_t i = 0; i < 4; ++i) {
            sums[i] = double{static_cast<float>(b[i]) * tap.weight} +
                      double{static_cast<float>(a[i])} * (1.0 - double{tap.weight});
        }
    }
}

void MixVertically(BYTE* target, const double* upper, const double* lower, double weight,
                   std::size_t pixels) {
    for (std::size_t i = 0; i < pixels * 4; ++i) {
        target[i] =
            static_cast<BYTE>(static_cast<int>(lower[i] * weight + upper[i] * (1.0 - weight)));
    }
}

// The sums of the two source rows used last.
class SumCache {
  public:
    SumCache(const CKVFrameBuffer& source, const Columns& columns)
        : source_(source), columns_(columns) {}

    /// The sums of two rows that are one or neighbours; they stay until the next call.
    std::pair<const double*, const double*> Rows(std::size_t first, std::size_t second) {
        return {Row(first), Row(second)};
    }

  private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    const double* Row(std::size_t row) {
        const std::size_t slot = row % 2;
        if (rows_[slot] != row) {
            const BYTE* const pixels = source_.GetBufferByte() + row * source_.GetLineByte();
            SumHorizontally(sums_[slot].data(), pixels, columns_);
            rows_[slot] = row;
        }
        return sums_[slot].data();
    }

    const CKVFrameBuffer& source_;
    const Columns& columns_;
    std::array<std::size_t, 2> rows_{kNone, kNone};
    std::array<SumRow, 2> sums_;
};

void ResampleStrip(const CKVFrameBuffer& source, CKVFrameBuffer& target, std::size_t from,
                   std::size_t width, const Axis& across, const Axis& down) {
    const Columns columns(from, width, across);
    SumCache sums(source, columns);
    for (LONG y = 0; y < down.target; ++y) {
        DWORD* const row =
            target.GetBufferDWord() + static_cast<std::size_t>(y) * target.GetWidth() + from;
        const auto tap = TapAt(y, down);
        const std::size_t before = tap ? columns.outsideBefore : width;
        const std::size_t inside = tap ? columns.count : 0;
        std::fill_n(row, before, 0);
        if (tap) {
            const auto [upper, lower] = sums.Rows(tap->first, tap->second);
            MixVertically(reinterpret_cast<BYTE*>(row + before), upper, lower, double{tap->weight},
                          inside);
        }
        std::fill_n(row + before + inside, width - before - inside, 0);
    }
}

}  // namespace

void Resample(const CKVFrameBuffer& source, CKVFrameBuffer& target, float factorX, float factorY) {
    const Axis across{source.m_Width, target.m_Width, factorX};
    const Axis down{source.m_Height, target.m_Height, factorY};
    const std::size_t width = target.GetWidth();
    for (std::size_t x = 0; x < width; x += kStrip) {
        ResampleStrip(source, target, x, std::min(kStrip, width - x), across, down);
    }
}

}  // namespace kv
