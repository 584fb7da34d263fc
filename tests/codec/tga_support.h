#pragma once

#include <initializer_list>

#include <CKVTargaImage.h>

#include "tests/codec/picture_support.h"

namespace tga {

using pictures::Bytes;
using pictures::FillInStretches;
using pictures::Pixels;

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
    return pictures::Load<CKVTargaImage>(bytes, fb, keyFlag);
}

inline Bytes Saved(const CKVFrameBuffer& fb, LONG mode) {
    return pictures::Saved<CKVTargaImage>(fb, mode);
}

}  // namespace tga
