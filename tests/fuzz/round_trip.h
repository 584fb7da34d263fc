#pragma once

#include <cstdlib>
#include <cstring>

#include <CKVFrameBuffer.h>

#include "tests/support/memory_file.h"

inline void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// A picture that was read is written and read again, and stays what it was.
template <typename Codec>
void RoundTrip(const CKVFrameBuffer& fb, LONG mode) {
    MemoryFile file;
    CKVFrameBuffer back;
    Require(Codec().SaveImage(&file, &fb, mode) == 0);
    Require(Codec().LoadImg(&file, &back) == 0);
    Require(back.m_Width == fb.m_Width && back.m_Height == fb.m_Height);
    Require(std::memcmp(back.m_BufferByte, fb.m_BufferByte, fb.m_Size) == 0);
}
