#include <algorithm>
#include <cstring>

#include "platform/gdi/bit_surface.h"
#include "platform/gdi/dc.h"

bool CBitmap::CreateBitmap(LONG width, LONG height, UINT planes, UINT bitCount, const void* bits) {
    const bool known = planes == 1 && bitCount == 1 && bits == nullptr;
    m_Surface = known ? kv::gdi::BitSurface::Create(width, height) : nullptr;
    return m_Surface != nullptr;
}

DWORD CBitmap::GetBitmapBits(DWORD count, void* bits) const {
    if (!m_Surface || bits == nullptr) {
        return 0;
    }
    const std::size_t size = m_Surface->Stride() * static_cast<std::size_t>(m_Surface->Height());
    const std::size_t copied = std::min<std::size_t>(count, size);
    std::memcpy(bits, m_Surface->Row(0), copied);
    return static_cast<DWORD>(copied);
}
