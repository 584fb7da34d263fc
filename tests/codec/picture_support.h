#pragma once

#include <random>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/support/memory_file.h"

// What the tests of all picture files use.
namespace pictures {

using Bytes = std::vector<BYTE>;

inline Bytes Joined(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

inline Bytes Cut(const Bytes& bytes, std::size_t from, std::size_t to) {
    return {bytes.begin() + static_cast<std::ptrdiff_t>(from),
            bytes.begin() + static_cast<std::ptrdiff_t>(to)};
}

template <typename Codec>
int Load(const Bytes& bytes, CKVFrameBuffer& fb, LONG* keyFlag = nullptr) {
    MemoryFile file(bytes);
    Codec codec;
    const int result = codec.LoadImg(&file, &fb);
    if (keyFlag != nullptr) {
        *keyFlag = codec.GetKeyFlag();
    }
    return result;
}

template <typename Codec>
Bytes Saved(const CKVFrameBuffer& fb, LONG mode) {
    MemoryFile file;
    EXPECT_EQ(Codec().SaveImage(&file, &fb, mode), 0);
    return file.m_Bytes;
}

inline std::vector<DWORD> Pixels(const CKVFrameBuffer& fb) {
    const DWORD* first = fb.GetBufferDWord();
    return first == nullptr ? std::vector<DWORD>()
                            : std::vector<DWORD>(first, first + fb.m_Size / 4);
}

/// Pixels in stretches of equal ones, of all lengths up to longest, so that both kinds of packet
/// come up and rows end within either.
inline void FillInStretches(CKVFrameBuffer& fb, unsigned int seed, DWORD longest) {
    std::mt19937 random(seed);
    DWORD* pixels = fb.GetBufferDWord();
    for (DWORD i = 0, left = 0; i < fb.m_Size / 4; ++i, --left) {
        if (left == 0) {
            left = static_cast<DWORD>(random() % longest + 1);
            pixels[i] = static_cast<DWORD>(random() % 8 * 0x1B0D0703);
        } else {
            pixels[i] = pixels[i - 1];
        }
    }
}

}  // namespace pictures
