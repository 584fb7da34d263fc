#pragma once

#include <cstddef>
#include <cstring>

#include <platform/types.h>

// Pixels to four planes of one channel each, and back; sixteen pixels at a time.
namespace kv::pict {

using Bytes16 = BYTE __attribute__((vector_size(16)));
using Words8 = WORD __attribute__((vector_size(16)));

constexpr std::size_t kBlock = sizeof(Bytes16);

inline Bytes16 LoadBytes(const BYTE* from) {
    Bytes16 bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

template <typename V>
void StoreBytes(BYTE* to, const V& bytes) {
    std::memcpy(to, &bytes, sizeof bytes);
}

/// The lower or upper eight bytes of both, in turn.
inline Words8 ZipLow(Bytes16 a, Bytes16 b) {
    return reinterpret_cast<Words8>(
        __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23));
}
inline Words8 ZipHigh(Bytes16 a, Bytes16 b) {
    return reinterpret_cast<Words8>(__builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12,
                                                            28, 13, 29, 14, 30, 15, 31));
}

inline void StoreZipped(BYTE* to, Words8 a, Words8 b) {
    StoreBytes(to, __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11));
    StoreBytes(to + kBlock, __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15));
}

/// Bytes of even or odd number of both.
inline Bytes16 Evens(Bytes16 a, Bytes16 b) {
    return __builtin_shufflevector(a, b, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
}
inline Bytes16 Odds(Bytes16 a, Bytes16 b) {
    return __builtin_shufflevector(a, b, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
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
        const Bytes16 blue = LoadBytes(planes.blue + x);
        const Bytes16 green = LoadBytes(planes.green + x);
        const Bytes16 red = LoadBytes(planes.red + x);
        const Bytes16 key = planes.key == nullptr ? solid : LoadBytes(planes.key + x);
        StoreZipped(dst + x * 4, ZipLow(blue, green), ZipLow(red, key));
        StoreZipped(dst + x * 4 + 2 * kBlock, ZipHigh(blue, green), ZipHigh(red, key));
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
        const Bytes16 first = LoadBytes(from);
        const Bytes16 second = LoadBytes(from + kBlock);
        const Bytes16 third = LoadBytes(from + 2 * kBlock);
        const Bytes16 fourth = LoadBytes(from + 3 * kBlock);
        const Bytes16 blueRedLow = Evens(first, second);
        const Bytes16 blueRedHigh = Evens(third, fourth);
        const Bytes16 greenKeyLow = Odds(first, second);
        const Bytes16 greenKeyHigh = Odds(third, fourth);
        StoreBytes(blue + x, Evens(blueRedLow, blueRedHigh));
        StoreBytes(red + x, Odds(blueRedLow, blueRedHigh));
        StoreBytes(green + x, Evens(greenKeyLow, greenKeyHigh));
        StoreBytes(key + x, Odds(greenKeyLow, greenKeyHigh));
    }
    for (; x < width; ++x) {
        blue[x] = pixels[x * 4];
        green[x] = pixels[x * 4 + 1];
        red[x] = pixels[x * 4 + 2];
        key[x] = pixels[x * 4 + 3];
    }
}

}  // namespace kv::pict
