#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <random>
#include <vector>

#include <CKVFrameBuffer.h>

/// Pictures that the compositing benchmarks share, one full-HD frame each.
namespace bench {

constexpr LONG kWidth = 1920;
constexpr LONG kHeight = 1080;
constexpr std::size_t kPixels = std::size_t{kWidth} * kHeight;

enum Keys : int { kSolid, kEmpty, kRandom, kText };

/// Coverage like a page of text: ring-shaped strokes six pixels wide with soft rims in seven of ten
/// lines, nothing in between.
inline BYTE TextCoverage(LONG x, LONG y) {
    constexpr LONG kCell = 48;
    constexpr LONG kRadius = 16;
    if (y / kCell % 10 >= 7) {
        return 0;
    }
    const LONG u = x % kCell - kCell / 2;
    const LONG v = y % kCell - kCell / 2;
    const LONG fromRing = std::abs(u * u + v * v - kRadius * kRadius) * 64 / kRadius;
    return static_cast<BYTE>(std::clamp<LONG>(512 - fromRing, 0, 255));
}

inline std::vector<BYTE> MakeKeys(Keys kind) {
    std::vector<BYTE> keys(kPixels, kind == kSolid ? BYTE{255} : BYTE{0});
    std::mt19937 random(7);
    for (std::size_t i = 0; i < kPixels && (kind == kRandom || kind == kText); ++i) {
        const auto x = static_cast<LONG>(i % kWidth);
        const auto y = static_cast<LONG>(i / kWidth);
        keys[i] = kind == kText ? TextCoverage(x, y) : static_cast<BYTE>(random());
    }
    return keys;
}

/// Random colours under the keys; nothing at all where the layer is empty or text leaves it free.
inline std::vector<DWORD> MakeLayer(Keys kind, unsigned seed) {
    const std::vector<BYTE> keys = MakeKeys(kind);
    std::vector<DWORD> pixels(kPixels);
    std::mt19937 random(seed);
    for (std::size_t i = 0; i < kPixels; ++i) {
        const DWORD colour = static_cast<DWORD>(random()) & 0x00FFFFFF;
        const bool free = keys[i] == 0 && kind != kRandom;
        pixels[i] = free ? 0 : DWORD{keys[i]} << 24 | colour;
    }
    return pixels;
}

inline CKVFrameBuffer MakeSurface(Keys kind, unsigned seed) {
    const std::vector<DWORD> pixels = MakeLayer(kind, seed);
    CKVFrameBuffer surface(kWidth, kHeight, 0);
    std::copy(pixels.begin(), pixels.end(), surface.GetBufferDWord());
    return surface;
}

}  // namespace bench
