#include <algorithm>
#include <cstring>
#include <new>

#include <platform/dc.h>

#include "platform/dib/colour_bitmap.h"
#include "platform/gdi/bit_surface.h"
#include "platform/gdi/drawing.h"

bool CBitmap::CreateBitmap(LONG width, LONG height, UINT planes, UINT bitCount, const void* bits) {
    *this = CBitmap();
    if (planes == 1 && bits == nullptr && bitCount == 1) {
        m_Surface = kv::gdi::BitSurface::Create(width, height);
    } else if (planes == 1 && bits == nullptr && bitCount == 32) {
        m_Colour = kv::dib::ColourBitmap::CreateTrueColour(width, height);
    }
    return !IsNull();
}

bool CBitmap::CreateDrawing(LONG width, LONG height) {
    *this = CBitmap();
    if (width < 1 || height < 1) {
        return false;
    }
    try {
        m_Drawing = std::make_shared<kv::gdi::Drawing>(width, height);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

bool CBitmap::GetCoverage(LONG scale, LONG columns, BYTE* coverage, DWORD stride) const {
    if (m_Drawing == nullptr || (scale != 1 && scale != 4 && scale != 8 && scale != 16)) {
        return false;
    }
    try {
        m_Drawing->ReadCoverage(scale, columns, coverage, stride);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

DWORD CBitmap::GetBitmapBits(DWORD count, void* bits) const {
    if (m_Colour != nullptr && bits != nullptr) {
        return m_Colour->CopyTopDown({static_cast<BYTE*>(bits), count});
    }
    if (!m_Surface || bits == nullptr) {
        return 0;
    }
    const std::size_t size = m_Surface->Stride() * static_cast<std::size_t>(m_Surface->Height());
    const std::size_t copied = std::min<std::size_t>(count, size);
    std::memcpy(bits, m_Surface->Row(0), copied);
    return static_cast<DWORD>(copied);
}

void DeleteObject(HBITMAP bitmap) {
    delete bitmap;
}
