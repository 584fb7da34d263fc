#pragma once

#include <cstddef>

#include <platform/types.h>

#include "base/vector.h"

// Pixels to four planes of one channel each, and back; sixteen pixels at a time.
namespace kv::pict {

constexpr std::size_t kBlock = sizeof(Bytes16);

/// Pairs of bytes, one of each vector in turn.
KV_FORCE_INLINE void StorePairs(BYTE* to, const Bytes16& even, const Bytes16& odd) {
    Words8 first;
    Words8 second;
    Interleave(reinterpret_cast<Words8>(even), reinterpret_cast<Words8>(odd), first, second);
    Store(to, first);
    Store(to + kBlock, second);
}

struct Planes {
    const BYTE* blue;
    const BYTE* green;
    const BYTE* red;
    const BYTE* key;  ///< null: all 255
};

inline void JoinPlanes(BYTE* dst, const Planes& planes, std::size_t width) {
    const Bytes16 solid = ~Bytes16{};
    std::size_t x = 0;
    for (; x + kBlock <= width; x += kBlock) {
        Bytes16 blue, green, red;
        Bytes16 key = solid;
        Load(blue, planes.blue + x);
        Load(green, planes.green + x);
        Load(red, planes.red + x);
        if (planes.key != nullptr) {
            Load(key, planes.key + x);
        }
        Bytes16 blueGreenLow, blueGreenHigh, redKeyLow, redKeyHigh;
        Interleave(blue, green, blueGreenLow, blueGreenHigh);
        Interleave(red, key, redKeyLow, redKeyHigh);
        StorePairs(dst + x * 4, blueGreenLow, redKeyLow);
        StorePairs(dst + x * 4 + 2 * kBlock, blueGreenHigh, redKeyHigh);
    }
    for (; x < width; ++x) {
        dst[x * 4] = planes.blue[x];
        dst[x * 4 + 1] = planes.green[x];
        dst[x * 4 + 2] = planes.red[x];
        dst[x * 4 + 3] = planes.key == nullptr ? BYTE{255} : planes.key[x];
    }
}

/// Into the planes key, red, green and blue, one behind the other.
inline void SplitIntoPlanes(BYTE* key, const BYTE* pixels, std::size_t width) {
    BYTE* const red = key + width;
    BYTE* const green = red + width;
    BYTE* const blue = green + width;
    std::size_t x = 0;
    for (; x + kBlock <= width; x += kBlock) {
        const BYTE* const from = pixels + x * 4;
        Bytes16 first, second, third, fourth;
        Load(first, from);
        Load(second, from + kBlock);
        Load(third, from + 2 * kBlock);
        Load(fourth, from + 3 * kBlock);
        Bytes16 blueRedLow, blueRedHigh, greenKeyLow, greenKeyHigh;
        Separate(first, second, blueRedLow, greenKeyLow);
        Separate(third, fourth, blueRedHigh, greenKeyHigh);
        Bytes16 blues, reds, greens, keys;
        Separate(blueRedLow, blueRedHigh, blues, reds);
        Separate(greenKeyLow, greenKeyHigh, greens, keys);
        Store(blue + x, blues);
        Store(red + x, reds);
        Store(green + x, greens);
        Store(key + x, keys);
    }
    for (; x < width; ++x) {
        blue[x] = pixels[x * 4];
        green[x] = pixels[x * 4 + 1];
        red[x] = pixels[x * 4 + 2];
        key[x] = pixels[x * 4 + 3];
    }
}

}  // namespace kv::pict
