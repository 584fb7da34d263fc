// Bitmap handles: what pictures they get, and what is read of them.

#include <new>

#include <platform/dc.h>

#include "base/scale.h"
#include "platform/bitmap/colour_bitmap.h"
#include "platform/device/picture.h"

bool CBitmap::CreateBitmap(LONG width, LONG height, UINT planes, UINT bitCount, const void* bits) {
    m_Picture = nullptr;
    if (planes == 1 && bits == nullptr && bitCount == 1) {
        m_Picture = kv::device::MakeBitPicture(width, height);
    } else if (planes == 1 && bits == nullptr && bitCount == 32) {
        m_Picture =
            kv::device::MakeColourPicture(kv::dib::ColourBitmap::CreateTrueColour(width, height));
    }
    return !IsNull();
}

bool CBitmap::CreateDrawing(LONG width, LONG height) {
    m_Picture = nullptr;  // before the new one takes memory
    m_Picture = kv::device::MakeDrawnPicture(width, height);
    return !IsNull();
}

bool CBitmap::IsOneBit() const {
    return !IsNull() && m_Picture->ForShapes() != nullptr;
}

bool CBitmap::GetCoverage(LONG scale, LONG columns, BYTE* coverage, DWORD stride) const {
    if (IsNull() || !kv::IsScale(scale)) {
        return false;
    }
    try {
        return m_Picture->ReadCoverage(scale, columns, coverage, stride);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

DWORD CBitmap::GetBitmapBits(DWORD count, void* bits) const {
    if (IsNull() || bits == nullptr) {
        return 0;
    }
    return static_cast<DWORD>(m_Picture->CopyBits({static_cast<BYTE*>(bits), count}));
}

void DeleteObject(HBITMAP bitmap) {
    delete bitmap;
}
