#pragma once

#include <initializer_list>
#include <random>
#include <vector>

#include <CKVTargaImage.h>
#include <gtest/gtest.h>

#include "tests/support/memory_file.h"

namespace tga {

using Bytes = std::vector<BYTE>;

constexpr unsigned int kTop = 0x20;

/// A file: header, identification of so many bytes, pixel data.
inline Bytes File(unsigned int type, unsigned int width, unsigned int height, unsigned int depth,
                  unsigned int descriptor, const Bytes& data, unsigned int id = 0) {
    Bytes file;
    for (const unsigned int value : {id, 0U, type, 0U, 0U, 0U, 0U, 0U, 0U, 0U, 0U, 0U, width % 256,
                                     width / 256, height % 256, height / 256, depth, descriptor}) {
        file.push_back(static_cast<BYTE>(value));
    }
    file.insert(file.end(), id, 0xEE);
    file.insert(file.end(), data.begin(), data.end());
    return file;
}

inline int Load(const Bytes& bytes, CKVFrameBuffer& fb, LONG* keyFlag = nullptr) {
    MemoryFile file(bytes);
    CKVTargaImage codec;
    const int result = codec.LoadImg(&file, &fb);
    if (keyFlag != nullptr) {
        *keyFlag = codec.GetKeyFlag();
    }
    return result;
}

inline std::vector<DWORD> Pixels(const CKVFrameBuffer& fb) {
    const DWORD* first = fb.GetBufferDWord();
    return first == nullptr ? std::vector<DWORD>()
                            : std::vector<DWORD>(first, first + fb.m_Size / 4);
}

inline Bytes Saved(const CKVFrameBuffer& fb, LONG mode) {
    MemoryFile file;
    EXPECT_EQ(CKVTargaImage().SaveImage(&file, &fb, mode), 0);
    return file.m_Bytes;
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

}  // namespace tga
