#include <cstdlib>
#include <cstring>

#include <CKVTargaImage.h>

#include "tests/support/memory_file.h"

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// A picture that was read is written and read again, and stays what it was.
void RoundTrip(const CKVFrameBuffer& fb, LONG mode) {
    MemoryFile file;
    CKVFrameBuffer back;
    Require(CKVTargaImage().SaveImage(&file, &fb, mode) == 0);
    Require(CKVTargaImage().LoadImg(&file, &back) == 0);
    Require(back.m_Width == fb.m_Width && back.m_Height == fb.m_Height);
    Require(std::memcmp(back.m_BufferByte, fb.m_BufferByte, fb.m_Size) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFile file(std::vector<BYTE>(data, data + size));
    CKVFrameBuffer fb;
    CKVTargaImage codec;
    if (codec.LoadImg(&file, &fb) == 0) {
        RoundTrip(fb, 0);
        RoundTrip(fb, 1);
    }
    return 0;
}
