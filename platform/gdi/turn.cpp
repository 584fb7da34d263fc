#include "platform/gdi/turn.h"

#include <algorithm>

namespace kv::gdi {

namespace {

/// Exchanges rows and columns of an 8 by 8 block of bits, one row a byte, the first in the top byte
/// (H. S. Warren, "Hacker's Delight", 7-3).
constexpr std::uint64_t Transpose(std::uint64_t block) {
    std::uint64_t swap = (block ^ (block >> 7)) & 0x00AA00AA00AA00AA;
    block ^= swap ^ (swap << 7);
    swap = (block ^ (block >> 14)) & 0x0000CCCC0000CCCC;
    block ^= swap ^ (swap << 14);
    swap = (block ^ (block >> 28)) & 0x00000000F0F0F0F0;
    return block ^ swap ^ (swap << 28);
}

/// Eight bytes of one column of source bytes, one from each row, rows counted upwards from `row`.
/// Rows outside the surface are empty.
std::uint64_t GatherUpwards(const BitSurface& source, std::int64_t row, std::size_t column) {
    std::uint64_t block = 0;
    for (std::int64_t i = row; i > row - 8; --i) {
        const bool exists = i >= 0 && i < source.Height();
        block = block << 8 | (exists ? source.Row(static_cast<std::int32_t>(i))[column] : 0U);
    }
    return block;
}

/// Sets the eight rows of a block in one column of target bytes, rows outside the surface left out.
void Scatter(std::uint64_t block, BitSurface& target, std::int64_t row, std::size_t column) {
    const std::int64_t end = std::min<std::int64_t>(row + 8, target.Height());
    for (std::int64_t i = std::max<std::int64_t>(row, 0); i < end; ++i) {
        const auto bits = static_cast<std::uint8_t>(block >> (56 - 8 * (i - row)));
        target.Row(static_cast<std::int32_t>(i))[column] |= bits;
    }
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
    for (std::int64_t column = left / 8; column * 8 < right; ++column) {
        const auto visible = static_cast<int>(std::min<std::int64_t>(right - column * 8, 8));
        // Whole columns of the block beyond the target would set padding bits.
        const std::uint64_t mask = (0xFF00U >> visible & 0xFFU) * 0x0101010101010101;
        for (std::int64_t u = top / 8; u * 8 < bottom; ++u) {
            const std::uint64_t block =
                GatherUpwards(source, x - 1 - column * 8, static_cast<std::size_t>(u));
            if (block != 0) {
                Scatter(Transpose(block) & mask, target, y + u * 8,
                        static_cast<std::size_t>(column));
            }
        }
    }
}

}  // namespace kv::gdi
