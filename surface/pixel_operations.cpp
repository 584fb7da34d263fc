// Operations on all pixels of a frame buffer: fills, tints, keys.

#include <algorithm>
#include <cstring>

#include <CKVFrameBuffer.h>

#include "surface/holds.h"
#include "surface/pixel_blend.h"
#include "surface/tone_rows.h"

namespace {

// By copies of a first piece that stays in the nearest cache: copying beats storing once a frame is
// larger than the caches.
void FillPixels(DWORD* pixels, std::size_t count, DWORD colour) {
    constexpr std::size_t kPiece = 1024;
    std::fill_n(pixels, std::min(count, kPiece), colour);
    for (std::size_t done = kPiece; done < count; done += kPiece) {
        std::memcpy(pixels + done, pixels, std::min(kPiece, count - done) * sizeof(DWORD));
    }
}

// Cells of the two colours in turn, the last one cut off.
void FillCells(DWORD* row, std::size_t width, std::size_t cell, DWORD first, DWORD second) {
    for (std::size_t x = 0; x < width; x += cell) {
        std::fill_n(row + x, std::min(cell, width - x), first);
        std::swap(first, second);
    }
}

}  // namespace

void CKVFrameBuffer::Clear() {
    const kv::ExclusiveHold hold(*this);
    if (m_Alloc != nullptr) {
        std::memset(m_BufferByte, 0, m_Size);
    }
}

void CKVFrameBuffer::ClearCol(DWORD colour) {
    const kv::ExclusiveHold hold(*this);
    FillPixels(m_BufferDWord, m_Size / 4, colour);
}

void CKVFrameBuffer::ClearCross(tagPOINT cell, DWORD color1, DWORD color2) {
    const kv::ExclusiveHold hold(*this);
    const auto cellWidth = static_cast<std::size_t>(std::max(cell.x, 2));
    const auto cellHeight = static_cast<std::size_t>(std::max(cell.y, 2));
    const std::size_t width = GetWidth();
    for (std::size_t y = 0; y < GetHeight(); ++y) {
        DWORD* const row = m_BufferDWord + y * width;
        const bool odd = y / cellHeight % 2 != 0;
        if (y == 0 || y == cellHeight) {
            FillCells(row, width, cellWidth, (odd ? color2 : color1) | 0xFF000000,
                      (odd ? color1 : color2) | 0xFF000000);
        } else {
            std::memcpy(row, m_BufferDWord + (odd ? cellHeight * width : 0), GetLineByte());
        }
    }
}

void CKVFrameBuffer::ImageChColor(DWORD colour) {
    const kv::ExclusiveHold hold(*this);
    kv::TintRow(m_BufferDWord, m_Size / 4, colour);
}

void CKVFrameBuffer::ClearKey() {
    const kv::ExclusiveHold hold(*this);
    kv::ClearKeyRow(m_BufferDWord, m_Size / 4);
}

void CKVFrameBuffer::MakeLuminanceKey(DWORD low, DWORD range) {
    const kv::ExclusiveHold hold(*this);
    kv::LuminanceKeyRow(m_BufferDWord, m_Size / 4, low, range);
}

DWORD CKVFrameBuffer::CopyKeyPixcel(DWORD src, DWORD dst) {
    return kv::BlendOver(dst, src);
}

int CKVFrameBuffer::GetKeyFreameBuffer(CKVFrameBuffer* target) const {
    if (target == nullptr || target == this) {
        return -1;
    }
    const kv::SharedHold source(*this);
    const kv::ExclusiveHold hold(*target);
    if (m_Alloc == nullptr) {
        return -1;
    }
    target->UnlockDeleteFrameBuffer();
    if (target->UnlockCreateFrameBuffer(m_Width, m_Height, 0) != 0) {
        return -1;
    }
    std::transform(m_BufferDWord, m_BufferDWord + m_Size / 4, target->m_BufferDWord,
                   [](DWORD pixel) { return (pixel >> 24) * 0x01010101; });
    return 0;
}
