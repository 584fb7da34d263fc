// Masks reduced to coverages, at each scale by its own kernel.

#include "effect/coverage/reduction.h"

#include <array>
#include <cstdint>
#include <limits>

#include "base/scale.h"
#include "base/vector.h"
#include "surface/store_result.h"

namespace kv {
namespace {

constexpr std::size_t kBlock = sizeof(Bytes32);

// a + b + c = sum + 2 * carry, in each bit.
KV_FORCE_INLINE void AddBits(const Bytes32& a, const Bytes32& b, const Bytes32& c, Bytes32& sum,
                             Bytes32& carry) {
    const Bytes32 half = a ^ b;
    carry = (a & b) | (half & c);
    sum = half ^ c;
}

// The set bits of each half byte, 0 to 4.
KV_FORCE_INLINE void CountInNibbles(Bytes32& bits) {
    bits -= (bits >> 1) & 0x55;
    bits = (bits & 0x33) + ((bits >> 2) & 0x33);
}

// Loads one vector from each of the rows.
template <int Rows>
KV_FORCE_INLINE void LoadRows(Bytes32 (&rows)[Rows], const BYTE* mask, std::size_t pitch) {
    for (int row = 0; row < Rows; ++row) {
        Load(rows[row], mask + static_cast<std::size_t>(row) * pitch);
    }
}

// The set bits of each byte column over eight rows, 0 to 64. Four full adders fold seven rows into
// ones + 2 * twos + 4 * fours before anything is counted.
KV_FORCE_INLINE void CountEightRows(const BYTE* mask, std::size_t pitch, Bytes32& count) {
    Bytes32 row[8];
    LoadRows(row, mask, pitch);
    Bytes32 sumA, sumB, ones, carryA, carryB, carryC, twos, fours;
    AddBits(row[0], row[1], row[2], sumA, carryA);
    AddBits(row[3], row[4], row[5], sumB, carryB);
    AddBits(sumA, sumB, row[6], ones, carryC);
    AddBits(carryA, carryB, carryC, twos, fours);
    CountInNibbles(row[7]);
    CountInNibbles(ones);
    CountInNibbles(twos);
    CountInNibbles(fours);
    const Bytes32 low = ones + row[7];         // up to 8 a nibble
    const Bytes32 high = twos + (fours << 1);  // up to 12 a nibble
    count = (low & 0x0F) + (low >> 4) + (((high & 0x0F) + (high >> 4)) << 1);
}

// One byte of even, one of odd, and so on.
KV_FORCE_INLINE void StoreInterleaved(BYTE* to, const Bytes32& even, const Bytes32& odd) {
    for (std::size_t half = 0; half < 2; ++half, to += kBlock) {
        Bytes16 evenHalf, oddHalf, first, second;
        Load(evenHalf, reinterpret_cast<const BYTE*>(&even) + half * sizeof(Bytes16));
        Load(oddHalf, reinterpret_cast<const BYTE*>(&odd) + half * sizeof(Bytes16));
        Interleave(evenHalf, oddHalf, first, second);
        Store(to, first);
        Store(to + sizeof(Bytes16), second);
    }
}

// Each reduction turns one vector from every row into its pixels. The last term takes a full
// block's 256 back to 255; in bytes 256 has wrapped to 0 by then.

struct Scale4 {
    static constexpr int kRows = 4;
    static constexpr std::size_t kPixels = 2 * kBlock;
    static KV_FORCE_INLINE void Reduce(const BYTE* mask, std::size_t pitch, BYTE* coverage) {
        Bytes32 row[kRows];
        LoadRows(row, mask, pitch);
        for (Bytes32& bits : row) {
            CountInNibbles(bits);
        }
        const Bytes32 upper = row[0] + row[1];
        const Bytes32 lower = row[2] + row[3];
        const Bytes32 left = (upper >> 4) + (lower >> 4);
        const Bytes32 right = (upper & 0x0F) + (lower & 0x0F);
        const Bytes32 even = (left << 4) - (left >> 4);
        const Bytes32 odd = (right << 4) - (right >> 4);
        StoreInterleaved(coverage, even, odd);
    }
};

struct Scale8 {
    static constexpr int kRows = 8;
    static constexpr std::size_t kPixels = kBlock;
    static KV_FORCE_INLINE void Reduce(const BYTE* mask, std::size_t pitch, BYTE* coverage) {
        Bytes32 count;
        CountEightRows(mask, pitch, count);
        Store(coverage, Bytes32((count << 2) - (count >> 6)));
    }
};

struct Scale16 {
    static constexpr int kRows = 16;
    static constexpr std::size_t kPixels = kBlock / 2;
    static KV_FORCE_INLINE void Reduce(const BYTE* mask, std::size_t pitch, BYTE* coverage) {
        Bytes32 upper, lower;
        CountEightRows(mask, pitch, upper);
        CountEightRows(mask + 8 * pitch, pitch, lower);
        const Words16 pairs = reinterpret_cast<Words16>(Bytes32(upper + lower));
        Words16 count = (pairs & 0xFF) + (pairs >> 8);
        count -= count >> 8;
        const Bytes16 pixels = __builtin_convertvector(count, Bytes16);
        Store(coverage, pixels);
    }
};

template <typename Scale>
KV_FORCE_INLINE void ReduceBody(const BYTE* mask, std::size_t pitch, std::size_t bytes,
                                BYTE* coverage) {
    std::size_t at = 0;
    for (; at + kBlock <= bytes; at += kBlock, coverage += Scale::kPixels) {
        Scale::Reduce(mask + at, pitch, coverage);
    }
    const std::size_t rest = bytes - at;
    if (rest != 0) {
        BYTE last[Scale::kRows][kBlock] = {};
        for (int row = 0; row < Scale::kRows; ++row) {
            std::memcpy(last[row], mask + static_cast<std::size_t>(row) * pitch + at, rest);
        }
        BYTE pixels[Scale::kPixels];
        Scale::Reduce(last[0], kBlock, pixels);
        std::memcpy(coverage, pixels, rest * Scale::kPixels / kBlock);
    }
}

template <typename Scale>
void ReducePlain(const BYTE* mask, std::size_t pitch, std::size_t bytes, BYTE* coverage) {
    ReduceBody<Scale>(mask, pitch, bytes, coverage);
}

template <typename Scale>
KV_TARGET_AVX2 void ReduceAvx2(const BYTE* mask, std::size_t pitch, std::size_t bytes,
                               BYTE* coverage) {
    ReduceBody<Scale>(mask, pitch, bytes, coverage);
}

using EightPixels = std::array<BYTE, 8>;

// The eight pixels of every mask byte at scale 1.
constexpr std::array<EightPixels, 256> kExpanded = [] {
    std::array<EightPixels, 256> table{};
    for (unsigned bits = 0; bits < 256; ++bits) {
        for (unsigned column = 0; column < 8; ++column) {
            table[bits][column] = (bits & (0x80U >> column)) != 0 ? 255 : 0;
        }
    }
    return table;
}();

void Expand(const BYTE* mask, std::size_t /*pitch*/, std::size_t bytes, BYTE* coverage) {
    for (std::size_t at = 0; at < bytes; ++at) {
        std::memcpy(coverage + at * 8, kExpanded[mask[at]].data(), 8);
    }
}

}  // namespace

ReduceRow* ReductionFor(int scale) {
    if (!IsScale(scale)) {
        return nullptr;
    }
    switch (scale) {
        case 4:
            return ForLevel<ReduceRow>(ReducePlain<Scale4>, ReduceAvx2<Scale4>);
        case 8:
            return ForLevel<ReduceRow>(ReducePlain<Scale8>, ReduceAvx2<Scale8>);
        case 16:
            return ForLevel<ReduceRow>(ReducePlain<Scale16>, ReduceAvx2<Scale16>);
        default:
            return Expand;
    }
}

Outcome Reduce(int scale, const CKVMonoBitmap& mask, CKVGrayBitmap& coverage) {
    coverage.Delete();
    ReduceRow* const reduce = ReductionFor(scale);
    if (reduce == nullptr) {
        return Cause::kBadArgument;
    }
    const auto side = static_cast<std::size_t>(scale);
    const std::size_t width = std::size_t{mask.Pitch} * 8 / side;
    const LONG height = mask.Bits != nullptr ? mask.Height / scale : 0;
    if (width > std::numeric_limits<LONG>::max()) {
        return Cause::kTooLarge;
    }
    const int result = coverage.Create(static_cast<LONG>(width), height);
    const Outcome created = MadeStore(result, width * static_cast<std::uint64_t>(height));
    if (coverage.Bits == nullptr) {
        return created;
    }
    for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row) {
        reduce(mask.Bits + row * side * mask.Pitch, mask.Pitch, width * side / 8,
               coverage.Bits + row * coverage.Pitch);
    }
    return created;
}

}  // namespace kv
