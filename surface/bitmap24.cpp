// Surfaces as rows of 24-bit bitmaps.

#include <cstddef>
#include <cstdint>

#include <CKVFrameBuffer.h>

#include "platform/bitmap/format.h"
#include "surface/bgr_rows.h"
#include "surface/holds.h"

int CKVFrameBuffer::CopyBitmap24(BYTE* dst, tagBITMAPINFOHEADER* header, int topDown) const {
    if (dst == nullptr) {
        return -1;
    }
    const kv::SharedHold hold(*this);
    if (m_Alloc == nullptr) {
        return -1;
    }
    const std::uint64_t rowBytes = kv::dib::RowBytes(m_Width, 24);
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
