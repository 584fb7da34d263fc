#include "platform/gdi/turn.h"

#include <algorithm>
#include <array>

#include "platform/gdi/bit_run.h"

namespace kv::gdi {

namespace {

constexpr std::int64_t kSide = kWordPixels;

/// A square of bits, a row a word.
using Tile = std::array<BitWord, kWordPixels>;

/// Exchanges rows and columns: first the two off-diagonal quarters, then those of each quarter,
/// down to single bits (H. S. Warren, "Hacker's Delight", 7-3).
void Transpose(Tile& tile) {
    BitWord mask = 0x00000000FFFFFFFF;
    for (std::size_t half = kWordPixels / 2; half != 0; half /= 2, mask ^= mask << half) {
        for (std::size_t block = 0; block < tile.size(); block += 2 * half) {
            for (std::size_t i = block; i < block + half; ++i) {
                const BitWord swap = (tile[i] ^ (tile[i + half] >> half)) & mask;
                tile[i] ^= swap;
                tile[i + half] ^= swap << half;
            }
        }
    }
}

/// Fills a tile with one word of each row from `row` upwards; rows outside the surface are empty,
/// and words at the right end may bring bits of the next row along. False when no bit is set.
bool LoadUpwards(const BitSurface& source, std::int64_t row, std::int64_t word, Tile& tile) {
    BitWord any = 0;
    const std::size_t offset = static_cast<std::size_t>(word) * sizeof(BitWord);
    for (BitWord& bits : tile) {
        const bool exists = row >= 0 && row < source.Height();
        bits = exists ? LoadWord(source.Row(static_cast<std::int32_t>(row)) + offset) : 0;
        any |= bits;
        --row;
    }
    return any != 0;
}

void Or(BitSurface& target, std::int64_t row, std::int64_t word, BitWord bits) {
    const std::size_t offset = static_cast<std::size_t>(word) * sizeof(BitWord);
    ApplyMask(target.Row(static_cast<std::int32_t>(row)) + offset, bits, true);
}

}  // namespace

void OrTurned(const BitSurface& source, std::int64_t x, std::int64_t y, BitSurface& target) {
    // Farther out than this nothing meets the target.
    constexpr std::int64_t kFar = std::int64_t{1} << 32;
    x = std::clamp(x, -kFar, kFar);
    y = std::clamp(y, -kFar, kFar);
    // Source rows fill target columns x - height to x - 1, source columns target rows from y on.
    const std::int64_t left = std::clamp<std::int64_t>(x - source.Height(), 0, target.Width());
    const std::int64_t right = std::clamp<std::int64_t>(x, 0, target.Width());
    const std::int64_t top = std::clamp<std::int64_t>(-y, 0, source.Width());
    const std::int64_t bottom = std::clamp<std::int64_t>(target.Height() - y, 0, source.Width());
    Tile tile;
    for (std::int64_t u = top / kSide; u * kSide < bottom; ++u) {
        const std::int64_t first = std::max(top, u * kSide);
        const std::int64_t end = std::min(bottom, (u + 1) * kSide);
        for (std::int64_t word = left / kSide; word * kSide < right; ++word) {
            if (!LoadUpwards(source, x - 1 - word * kSide, u, tile)) {
                continue;
            }
            Transpose(tile);
            const auto last =
                static_cast<std::uint32_t>(std::min(right - 1 - word * kSide, kSide - 1));
            for (std::int64_t i = first; i < end; ++i) {
                Or(target, y + i, word,
                   tile[static_cast<std::size_t>(i % kSide)] & MaskThrough(last));
            }
        }
    }
}

}  // namespace kv::gdi
