#pragma once

#include <CKVPictImage.h>

#include "tests/codec/picture_support.h"

namespace pict {

using pictures::Bytes;
using pictures::Joined;
using pictures::Pixels;

constexpr std::size_t kHeadBytes = 526;  ///< up to the version number

/// Big-endian words.
inline Bytes Words(const std::vector<unsigned int>& words) {
    Bytes bytes;
    for (const unsigned int word : words) {
        bytes.push_back(static_cast<BYTE>(word >> 8));
        bytes.push_back(static_cast<BYTE>(word & 0xFF));
    }
    return bytes;
}

inline Bytes Head() {
    return Joined(Bytes(512, 0xEE), Words({7, 0, 0, 7, 7, 0x0011, 0x02FF}));
}

/// The pixel map with its opcode.
struct Pixmap {
    unsigned int width;
    unsigned int height;
    unsigned int rowBytes;
    unsigned int bits = 32;
    unsigned int components = 4;
    unsigned int packType = 4;

    operator Bytes() const {
        return Words({0x009A,     0,           255,        rowBytes, 9, 9,  9, 9,   0,
                      packType,   0,           0,          72,       0, 72, 0, 16,  bits,
                      components, 8,           0,          0,        0, 0,  0, 0,   30,
                      40,         30 + height, 40 + width, 9,        9, 9,  9, 0x40});
    }
};

/// A file of opcodes, the pixel map and its rows, without an end.
inline Bytes File(const Bytes& opcodes, const Pixmap& pixmap, const Bytes& rows) {
    return Joined(Joined(Joined(Head(), opcodes), pixmap), rows);
}

inline int Load(const Bytes& bytes, CKVFrameBuffer& fb, LONG* keyFlag = nullptr) {
    return pictures::Load<CKVPictImage>(bytes, fb, keyFlag);
}

}  // namespace pict
