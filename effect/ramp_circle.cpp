#include <algorithm>
#include <cmath>
#include <cstring>

#include "effect/ramp.h"
#include "effect/scratch.h"
#include "effect/vector.h"

#if KV_HAS_AVX2_PATH
#include <immintrin.h>
#endif

namespace kv {
namespace {

using Doubles4 = double __attribute__((vector_size(32)));
using Ints4 = std::int32_t __attribute__((vector_size(16)));

constexpr std::size_t kBlock = 4;
constexpr LONG kLongestReach = 1 << 26;  // two squares of it sum to a whole number in a double

// An arc is the colours of a row at the columns 0, 1, 2... from the centre:
//   d = -sqrt(column * column + row * row), byte = trunc(d * step) + byte of the colour.
// The root is the level's own; no change leaves 32 bits, since no distance exceeds the length much.
KV_FORCE_INLINE void Squares(std::size_t column, double rowSquare, Doubles4& squares) {
    const auto x = static_cast<double>(column);
    const Doubles4 columns = {x, x + 1, x + 2, x + 3};
    squares = columns * columns + rowSquare;
}

KV_FORCE_INLINE void StoreColours(const Ramp& ramp, const Doubles4& roots, DWORD* pixels) {
    Ints4 colours = {};
    for (int byte = 0; byte < 4; ++byte) {
        const Doubles4 change = -roots * ramp.step[byte];
        const auto base = static_cast<std::int32_t>(ramp.colour >> 8 * byte & 0xFF);
        const Ints4 sum = __builtin_convertvector(change, Ints4) + base;
        colours |= (sum & 0xFF) << 8 * byte;
    }
    Store(pixels, colours);
}

void ArcPlain(const Ramp& ramp, double rowSquare, std::size_t count, DWORD* arc) {
    for (std::size_t at = 0; at < count; at += kBlock) {
        Doubles4 values;
        Squares(at, rowSquare, values);
        for (std::size_t i = 0; i < kBlock; ++i) {
            values[i] = std::sqrt(values[i]);
        }
        StoreColours(ramp, values, arc + at);
    }
}

#if KV_HAS_AVX2_PATH
KV_TARGET_AVX2 void ArcAvx2(const Ramp& ramp, double rowSquare, std::size_t count, DWORD* arc) {
    for (std::size_t at = 0; at < count; at += kBlock) {
        Doubles4 values;
        Squares(at, rowSquare, values);
        values = _mm256_sqrt_pd(values);
        StoreColours(ramp, values, arc + at);
    }
}
#else
constexpr auto* ArcAvx2 = ArcPlain;
#endif

}  // namespace

// Four quadrants are parts of one: an arc and its mirror image make a row, and the row stands as
// far above the centre as below it.
bool PaintCircleRamp(const Ramp& ramp, const RampTarget& target) {
    const LONG left = ramp.centreX;
    const LONG reachX = std::max(left, ramp.width - 1 - left);
    const LONG reachY = std::max(ramp.centreY, ramp.height - 1 - ramp.centreY);
    const auto count = static_cast<std::size_t>(reachX) + 1;
    const auto row = Scratch<DWORD>(static_cast<std::size_t>(left) + count + kBlock);
    if (row == nullptr || std::max(reachX, reachY) > kLongestReach) {
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
        makeArc(ramp, static_cast<double>(away) * away, count, arc);
        std::reverse_copy(arc + 1, arc + 1 + left, row.get());
        place(ramp.centreY + away);
        if (away != 0) {
            place(ramp.centreY - away);
        }
    }
    return true;
}

}  // namespace kv
