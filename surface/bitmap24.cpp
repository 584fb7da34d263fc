#include <cstddef>

#include <CKVFrameBuffer.h>

#include "surface/bgr_rows.h"
#include "surface/holds.h"

namespace {

// Rows of three bytes a pixel, padded to 4 bytes. In 64 bits: a row of a very wide surface has more
// bits than 32 bits count.
std::size_t RowBytes24(DWORD width) {
    return (std::size_t{width} * 24 + 31) / 32 * 4;
}

}  // namespace

int CKVFrameBuffer::CopyBitmap24(BYTE* dst, tagBITMAPINFOHEADER* header, int topDown) const {
    if (dst == nullptr) {
        return -1;
    }
    const kv::SharedHold hold(*this);
    if (m_Alloc == nullptr) {
        return -1;
    }
    const std::size_t rowBytes = RowBytes24(GetWidth());
    const std::size_t height = GetHeight();
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t row = topDown != 0 ? y : height - 1 - y;
        kv::DropKeys(dst + row * rowBytes, m_BufferByte + y * GetLineByte(), GetWidth());
    }
    if (header != nullptr) {
        *header = {};
        header->biSize = sizeof *header;
        header->biWidth = m_Width;
        header->biHeight = topDown == 1 ? -m_Height : m_Height;
        header->biPlanes = 1;
        header->biBitCount = 24;
        header->biSizeImage = static_cast<DWORD>(rowBytes * height);
    }
    return 0;
}
