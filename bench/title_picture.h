#pragma once

#include <random>

#include <CKVFrameBuffer.h>

// What the benchmarks of picture files work on.

inline constexpr LONG kWidth = 1920;
inline constexpr LONG kHeight = 1080;
inline constexpr std::size_t kFrameBytes = std::size_t{kWidth} * kHeight * 4;

/// A title over a picture: in turn flat stretches, short stretches and single pixels.
inline void FillTitle(DWORD* pixels) {
    std::mt19937 random(1);
    for (std::size_t i = 0, left = 0; i < kFrameBytes / 4; ++i, --left) {
        if (left == 0) {
            left = std::size_t{1} << (random() % 9);
            pixels[i] = static_cast<DWORD>(random());
        } else {
            const bool flat = (i / kWidth) % 4 != 0;
            pixels[i] = flat ? pixels[i - 1] : pixels[i - 1] + 0x010101;
        }
    }
}
