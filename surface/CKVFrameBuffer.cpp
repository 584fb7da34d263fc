// The frame buffer's store: made, copied, given back.

#include "CKVFrameBuffer.h"

#include <cstdlib>
#include <cstring>

#include "surface/holds.h"
#include "surface/store_result.h"

namespace {

constexpr std::uintptr_t kAlignment = 128;

// The block is larger than the pixels by the alignment, so that the first pixel can be moved up.
std::uint64_t BlockBytes(LONG width, LONG height) {
    return static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height) * 4 + kAlignment;
}

BYTE* FirstPixel(void* block) {
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t lead = (kAlignment - address % kAlignment) % kAlignment;
    return static_cast<BYTE*>(block) + lead;
}

// The bytes around the pixels are zero whatever becomes of the pixels, so that code which looks
// just past the last pixel sees a defined value.
void ZeroSpareBytes(BYTE* block, BYTE* pixels, std::size_t pixelBytes) {
    const auto lead = static_cast<std::size_t>(pixels - block);
    std::memset(block, 0, lead);
    std::memset(pixels + pixelBytes, 0, kAlignment - lead);
}

// Both surfaces are held by the caller, and to is empty.
void CopyStore(CKVFrameBuffer& to, const CKVFrameBuffer& from) {
    if (from.IsBuffer() == 0 &&
        to.UnlockCreateFrameBuffer(from.m_Width, from.m_Height, 0) == kv::kStoreDone) {
        std::memcpy(to.m_BufferByte, from.m_BufferByte, from.m_Size);
    }
}

}  // namespace

CKVFrameBuffer::CKVFrameBuffer(LONG width, LONG height, int clear) {
    UnlockCreateFrameBuffer(width, height, clear);
}

CKVFrameBuffer::CKVFrameBuffer(const CKVFrameBuffer& other) {
    const kv::SharedHold source(other);
    CopyStore(*this, other);
}

CKVFrameBuffer& CKVFrameBuffer::operator=(const CKVFrameBuffer& other) {
    if (this != &other) {
        const kv::SharedHold source(other);
        const kv::ExclusiveHold target(*this);
        UnlockDeleteFrameBuffer();
        CopyStore(*this, other);
    }
    return *this;
}

CKVFrameBuffer::~CKVFrameBuffer() {
    if (m_Alloc != nullptr) {
        const kv::ExclusiveHold hold(*this);
        UnlockDeleteFrameBuffer();
    }
}

int CKVFrameBuffer::CreateFrameBuffer(LONG width, LONG height, int clear) {
    return Create(width, height, clear != 0);
}

int CKVFrameBuffer::UnlockCreateFrameBuffer(LONG width, LONG height, int clear) {
    return Create(width, height, clear == 1);
}

int CKVFrameBuffer::Create(LONG width, LONG height, bool clear) {
    const kv::ExclusiveHold hold(*this);
    if (m_Alloc != nullptr) {
        return kv::kStoreExists;
    }
    if (width < 1 || height < 1) {
        return kv::kStoreNoSize;
    }
    const std::uint64_t bytes = BlockBytes(width, height);
    if (bytes > kv::kMaxStoreBytes) {
        return kv::kStoreRefused;
    }
    // Zeroed blocks come from calloc: fresh pages are zero already.
    const auto blockSize = static_cast<std::size_t>(bytes);
    void* const block = clear ? std::calloc(blockSize, 1) : std::malloc(blockSize);
    if (block == nullptr) {
        return kv::kStoreRefused;
    }
    m_Alloc = block;
    m_BufferByte = FirstPixel(block);
    m_BufferDWord = reinterpret_cast<DWORD*>(m_BufferByte);
    m_Size = static_cast<DWORD>(bytes - kAlignment);
    m_Width = width;
    m_Height = height;
    if (!clear) {
        ZeroSpareBytes(static_cast<BYTE*>(block), m_BufferByte, m_Size);
    }
    return kv::kStoreDone;
}

int CKVFrameBuffer::DeleteFrameBuffer() {
    const kv::ExclusiveHold hold(*this);
    return UnlockDeleteFrameBuffer();
}

int CKVFrameBuffer::UnlockDeleteFrameBuffer() {
    const int result = m_Alloc != nullptr ? kv::kStoreDone : kv::kStoreMissing;
    std::free(m_Alloc);
    m_Alloc = nullptr;
    m_BufferByte = nullptr;
    m_BufferDWord = nullptr;
    m_Size = 0;
    m_Width = 0;
    m_Height = 0;
    m_Invert = 1;
    return result;
}
