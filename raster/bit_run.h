#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kv::raster {

/// What a row of bits is written in. Words are counted from the row's start, so that the last one
/// may reach beyond the row by less than its own size.
using BitWord = std::uint64_t;

inline constexpr std::uint32_t kWordPixels = 64;

/// Sets or clears the bits of a mask in reading order: its top bit is the leftmost pixel.
inline void ApplyMask(std::uint8_t* bytes, BitWord mask, bool value) {
    mask = __builtin_bswap64(mask);
    BitWord word = 0;
    std::memcpy(&word, bytes, sizeof word);
    word = value ? word | mask : word & ~mask;
    std::memcpy(bytes, &word, sizeof word);
}

/// The pixels of a word from `begin`, 0 to 63, on.
constexpr BitWord MaskFrom(std::uint32_t begin) {
    return ~BitWord{0} >> begin;
}
/// The pixels of a word up to and with `last`, 0 to 63.
constexpr BitWord MaskThrough(std::uint32_t last) {
    return ~BitWord{0} << (kWordPixels - 1 - last);
}

/// Sets or clears pixels begin to end - 1 of a row, at least one.
inline void FillBits(std::uint8_t* row, std::uint32_t begin, std::uint32_t end, bool value) {
    // Beyond this a call of the library's fill is quicker than a loop.
    constexpr std::ptrdiff_t kLong = 256;
    const std::uint32_t last = end - 1;
    const BitWord head = MaskFrom(begin % kWordPixels);
    const BitWord tail = MaskThrough(last % kWordPixels);
    std::uint8_t* word = row + begin / kWordPixels * sizeof(BitWord);
    std::uint8_t* const lastWord = row + last / kWordPixels * sizeof(BitWord);
    if (word == lastWord) {
        ApplyMask(word, head & tail, value);
        return;
    }
    ApplyMask(word, head, value);
    word += sizeof(BitWord);
    const BitWord whole = value ? ~BitWord{0} : 0;
    if (lastWord - word > kLong) {
        std::memset(word, value ? 0xFF : 0, static_cast<std::size_t>(lastWord - word));
        word = lastWord;
    }
    for (; word != lastWord; word += sizeof whole) {
        std::memcpy(word, &whole, sizeof whole);
    }
    ApplyMask(lastWord, tail, value);
}

}  // namespace kv::raster
