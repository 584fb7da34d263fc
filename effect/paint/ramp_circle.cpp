#include <algorithm>
#include <cmath>
#include <cstring>

#include "base/scratch.h"
#include "base/vector.h"
#include "effect/paint/ramp.h"

#if KV_HAS_AVX2_PATH
#include <immintrin.h>
#endif

namespace kv {
namespace {

using Doubles4 = double __attribute__((vector_size(32)));

constexpr std::size_t kBlock = 4;
constexpr LONG kLongestReach = 1 << 26;  // two squares of it sum to a whole number in a double

// The colours of a row at the columns 0, 1, 2... from the centre:
//   d = -sqrt(column * column + row * row), byte = trunc(d * step) + byte of the colour.
// Four at a time; the root between the two halves is the level's own. No change leaves 32 bits,
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

void ArcPlain(const Ramp& ramp, double row, std::size_t count, DWORD* pixels) {
    Arc arc(ramp, row);
    for (std::size_t at = 0; at < count; at += kBlock) {
        Doubles4 values;
        arc.NextSquares(values);
        for (std::size_t i = 0; i < kBlock; ++i) {
            values[i] = std::sqrt(values[i]);
        }
        arc.StoreColours(values, pixels + at);
    }
}

#if KV_HAS_AVX2_PATH
KV_TARGET_AVX2 void ArcAvx2(const Ramp& ramp, double row, std::size_t count, DWORD* pixels) {
    Arc arc(ramp, row);
    for (std::size_t at = 0; at < count; at += kBlock) {
        Doubles4 values;
        arc.NextSquares(values);
        values = _mm256_sqrt_pd(values);
        arc.StoreColours(values, pixels + at);
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
    if (std::max(reachX, reachY) > kLongestReach) {
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
