// The ramp by the distance from a point.

#include <algorithm>
#include <cmath>
#include <cstring>

#include "base/scratch.h"
#include "base/vector.h"
#include "effect/paint/ramp.h"

namespace kv {
namespace {

constexpr std::size_t kBlock = 4;
constexpr LONG kMaxReach = 1 << 26;  // two squares of it sum to a whole number in a double

// The colours of a row at the columns 0, 1, 2... from the centre:
//   d = -sqrt(column * column + row * row), byte = trunc(d * step) + byte of the colour.
// Four at a time. No change leaves 32 bits,
// since no distance exceeds the length by much.
struct Arc {
    Doubles4 columns = {0, 1, 2, 3};
    Doubles4 rowSquare = {};
    Doubles4 step[4];
    Ints4 base[4];

    KV_FORCE_INLINE Arc(const Ramp& ramp, double row) {
        rowSquare += row * row;
        for (int byte = 0; byte < 4; ++byte) {
            step[byte] = Doubles4{} - ramp.step[byte];
            base[byte] = Ints4{} + static_cast<std::int32_t>(ramp.colour >> 8 * byte & 0xFF);
        }
    }

    KV_FORCE_INLINE void NextSquares(Doubles4& squares) {
        squares = columns * columns + rowSquare;
        columns += kBlock;
    }

    KV_FORCE_INLINE void StoreColours(const Doubles4& roots, DWORD* pixels) const {
        Ints4 colours = {};
        for (int byte = 0; byte < 4; ++byte) {
            const Doubles4 change = roots * step[byte];
            const Ints4 sum = __builtin_convertvector(change, Ints4) + base[byte];
            colours |= (sum & 0xFF) << 8 * byte;
        }
        Store(pixels, colours);
    }
};

// Compilers do not take four roots at once of themselves, since a root may report an error.
struct PlainRoots {
    static KV_FORCE_INLINE void Take(Doubles4& values) {
        for (std::size_t i = 0; i < kBlock; ++i) {
            values[i] = std::sqrt(values[i]);
        }
    }
};

#if KV_HAS_AVX2_PATH
struct Avx2Roots {
    KV_TARGET_AVX2 static inline void Take(Doubles4& values) { values = _mm256_sqrt_pd(values); }
};
#else
using Avx2Roots = PlainRoots;
#endif

template <typename Roots>
KV_FORCE_INLINE void ArcBody(const Ramp& ramp, double row, std::size_t count, DWORD* pixels) {
    Arc arc(ramp, row);
    for (std::size_t at = 0; at < count; at += kBlock) {
        Doubles4 values;
        arc.NextSquares(values);
        Roots::Take(values);
        arc.StoreColours(values, pixels + at);
    }
}

void ArcPlain(const Ramp& ramp, double row, std::size_t count, DWORD* pixels) {
    ArcBody<PlainRoots>(ramp, row, count, pixels);
}

KV_TARGET_AVX2 void ArcAvx2(const Ramp& ramp, double row, std::size_t count, DWORD* pixels) {
    ArcBody<Avx2Roots>(ramp, row, count, pixels);
}

}  // namespace

// Four quadrants are parts of one: an arc and its mirror image make a row, and the row stands as
// far above the centre as below it.
bool PaintCircleRamp(const Ramp& ramp, const RampTarget& target) {
    const LONG left = ramp.centreX;
    const LONG reachX = std::max(left, ramp.width - 1 - left);
    const LONG reachY = std::max(ramp.centreY, ramp.height - 1 - ramp.centreY);
    if (std::max(reachX, reachY) > kMaxReach) {
        return false;
    }
    const auto count = static_cast<std::size_t>(reachX) + 1;
    const auto row = Scratch<DWORD>(static_cast<std::size_t>(left) + count + kBlock);
    if (row == nullptr) {
        return false;
    }
    DWORD* const arc = row.get() + left;
    auto* const makeArc = ForLevel(ArcPlain, ArcAvx2);
    const auto place = [&](LONG y) {
        if (y >= 0 && y < ramp.height) {
            std::memcpy(target.Row(y), row.get(), target.width * sizeof(DWORD));
            target.Finish(y);
        }
    };
    for (LONG away = 0; away <= reachY; ++away) {
        makeArc(ramp, away, count, arc);
        std::reverse_copy(arc + 1, arc + 1 + left, row.get());
        place(ramp.centreY + away);
        if (away != 0) {
            place(ramp.centreY - away);
        }
    }
    return true;
}

}  // namespace kv
