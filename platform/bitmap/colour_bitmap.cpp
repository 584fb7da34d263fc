// Bitmaps of plain rows in memory of their own.

#include "platform/bitmap/colour_bitmap.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

namespace kv::dib {

std::shared_ptr<ColourBitmap> ColourBitmap::CreateTrueColour(LONG width, LONG height) {
    return width < 1 || height < 1 ? nullptr : Create(TrueColourFormat(width, height), 32);
}

std::shared_ptr<ColourBitmap> ColourBitmap::Create(const Format& format, unsigned int sourceBits) {
    const std::uint64_t size = format.PlainBytes();
    if (size > static_cast<std::uint64_t>(std::numeric_limits<std::ptrdiff_t>::max())) {
        return nullptr;
    }
    try {
        std::shared_ptr<ColourBitmap> made(new ColourBitmap(format, sourceBits));
        // calloc leaves the pages of a large picture untouched until they are drawn on.
        made->m_Bits.reset(static_cast<BYTE*>(std::calloc(size, 1)));
        return made->m_Bits != nullptr ? made : nullptr;
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

DWORD ColourBitmap::CopyTopDown(std::span<BYTE> bytes) const {
    std::size_t done = 0;
    for (LONG row = 0; row < m_Format.height && done < bytes.size(); ++row) {
        const std::size_t part = std::min(m_Format.stride, bytes.size() - done);
        std::memcpy(bytes.data() + done, Row(row), part);
        done += part;
    }
    return static_cast<DWORD>(done);
}

}  // namespace kv::dib
