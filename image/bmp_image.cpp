// 24-bit BMP files as pictures; the files themselves are CDib's.

#include "image/bmp_image.h"

#include <memory>
#include <new>

#include <CDib.h>

#include "codec/transfer.h"
#include "platform/bitmap/format.h"
#include "surface/bgr_rows.h"

namespace {

std::uint64_t RowBytes(LONG width) {
    return kv::dib::RowBytes(width, 24);
}

// The compression is not looked at, so the rows may not all be there.
bool IsReadable(const CDib& dib) {
    return dib.GetBitCount() == 24 && dib.GetHeight() > 0 &&
           RowBytes(dib.GetWidth()) <=
               dib.m_SizeImage / static_cast<std::uint64_t>(dib.GetHeight());
}

bool Convert(const CDib& dib, CKVFrameBuffer& fb) {
    if (!IsReadable(dib) || fb.CreateFrameBuffer(dib.GetWidth(), dib.GetHeight(), 0) != 0) {
        return false;
    }
    const auto* rows = static_cast<const BYTE*>(dib.GetImageBuffer());
    const std::size_t rowBytes = dib.GetLineByte();
    const std::size_t height = fb.GetHeight();
    for (std::size_t y = 0; y < height; ++y) {
        const std::size_t stored = dib.GetInvert() != 0 ? y : height - 1 - y;
        kv::AddKeys(fb.m_BufferByte + y * fb.GetLineByte(), rows + stored * rowBytes,
                    fb.GetWidth());
    }
    return true;
}

int Save(const char* name, const CKVFrameBuffer& fb) {
    const CSize size = fb.GetWH();
    if (size.cx < 1 || size.cy < 1) {
        return -1;
    }
    const std::uint64_t rowBytes = RowBytes(size.cx);
    const std::uint64_t bytes = rowBytes * fb.GetHeight();
    const auto rows = std::make_unique_for_overwrite<BYTE[]>(bytes);
    for (std::uint64_t end = rowBytes; end <= bytes; end += rowBytes) {
        std::fill_n(&rows[end - 4], 4, BYTE{0});  // what pads a row
    }
    CDib dib(rows.get(), size, 24, 0);
    if (fb.CopyBitmap24(rows.get(), dib.m_Header, 0) != 0) {
        return -1;
    }
    return kv::SaveNamed(name, [&dib](CFile& file) { return dib.Write(&file) == 1 ? 0 : -1; });
}

}  // namespace

std::int64_t kv::LoadBmpImage(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    try {
        CDib dib;
        const auto read = [&dib](CFile& file) { return dib.Read(&file) == 1 ? 0 : -1; };
        if (LoadNamed(name, read, CFile::shareDenyNone) != 0 || !Convert(dib, *fb)) {
            return -1;
        }
    } catch (const std::bad_alloc&) {
        return -1;
    }
    *keyFlag = 0;
    return 0;
}

int kv::SaveBmpImage(const char* name, const CKVFrameBuffer* fb) {
    try {
        return fb != nullptr && Save(name, *fb) == 0 ? 0 : -1;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}
