#pragma once

#include <algorithm>
#include <random>
#include <vector>

#include <CBox.h>
#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>
#include <gtest/gtest.h>

#include "tests/support/each_level.h"

// Helpers for the effect tests: bitmaps from pictures and random bytes.

namespace effect_test {

inline std::vector<BYTE> BytesOf(const KVBitmap& bitmap) {
    return bitmap.Bits != nullptr ? std::vector<BYTE>(bitmap.Bits, bitmap.Bits + bitmap.Size)
                                  : std::vector<BYTE>();
}

using Quad = std::vector<LONG>;

inline Quad Of(const CBox& box) {
    return {box.x, box.y, box.width, box.height};
}

inline BYTE& At(const CKVGrayBitmap& gray, LONG x, LONG y) {
    return gray.Bits[static_cast<std::size_t>(y) * gray.Pitch + static_cast<std::size_t>(x)];
}

/// A coverage of `zeros` parts in 8 empty pixels, flat runs of one value and random ones, with pad
/// bytes that nobody may read as pixels.
inline void FillRandom(CKVGrayBitmap& gray, LONG width, LONG height, int zeros,
                       std::mt19937& random) {
    gray.Delete();
    gray.Create(width, height);
    for (DWORD i = 0; i < gray.Size; ++i) {
        const bool repeat = i > 0 && random() % 3 != 0;
        const auto fresh =
            static_cast<BYTE>(static_cast<int>(random() % 8) < zeros ? 0 : random() % 256);
        gray.Bits[i] = repeat ? gray.Bits[i - 1] : fresh;
    }
    for (LONG y = 0; y < height && width % 2 != 0; ++y) {
        At(gray, width, y) = 255;
    }
}

}  // namespace effect_test
