// From TGA pixel data to the rows of a frame buffer.

#include <algorithm>
#include <cstring>

#include <CKVTargaImage.h>

#include "base/bytes.h"
#include "base/checked.h"
#include "codec/tga_format.h"
#include "codec/transfer.h"
#include "surface/bgr_rows.h"

namespace {

// A packet of four bytes, control byte and pixel, yields at most 128 pixels.
constexpr std::uint64_t kMaxPixelsPerByte = 32;

// The rows of a picture in file order, and the place of the next pixel.
class Target {
  public:
    Target(BYTE* pixels, DWORD width, DWORD height, bool topFirst)
        : m_Pixels(pixels), m_Width(width), m_Height(height), m_TopFirst(topFirst) {}

    bool IsFull() const { return m_Row == m_Height; }
    DWORD RowRest() const { return m_Width - m_Column; }

    BYTE* Next() const {
        const std::size_t row = m_TopFirst ? m_Row : m_Height - 1 - m_Row;
        return m_Pixels + (row * m_Width + m_Column) * 4;
    }

    // At most RowRest.
    void Advance(DWORD count) {
        m_Column += count;
        if (m_Column == m_Width) {
            m_Column = 0;
            ++m_Row;
        }
    }

  private:
    BYTE* m_Pixels;
    DWORD m_Width;
    DWORD m_Height;
    DWORD m_Column = 0;
    DWORD m_Row = 0;
    bool m_TopFirst;
};

// The two forms of a stored pixel: how many bytes it takes, and count of them into the frame
// buffer.
struct Stored32 {
    static constexpr std::size_t kBytes = 4;
    static void Copy(BYTE* dst, const BYTE* src, std::size_t count) {
        std::memcpy(dst, src, count * 4);
    }
};

struct Stored24 {
    static constexpr std::size_t kBytes = 3;
    static void Copy(BYTE* dst, const BYTE* src, std::size_t count) {
        kv::AddKeys(dst, src, count);
    }
};

void Repeat(BYTE* dst, DWORD pixel, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        std::memcpy(dst + i * 4, &pixel, 4);
    }
}

template <typename Stored>
int DecodeRaw(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height, DWORD top) {
    if (size < kv::SaturatedProduct({width, height, Stored::kBytes})) {
        return -1;
    }
    Target target(dst, width, height, top != 0);
    kv::ByteReader reader({src, size});
    while (width > 0 && !target.IsFull()) {
        Stored::Copy(target.Next(), reader.Take(width * Stored::kBytes).data(), width);
        target.Advance(width);
    }
    return 0;
}

// Writes up to count copies of a pixel; a run goes on past a row's end and ends with the picture.
void PutRun(Target& target, DWORD pixel, DWORD count) {
    while (count > 0 && !target.IsFull()) {
        const DWORD part = std::min(count, target.RowRest());
        Repeat(target.Next(), pixel, part);
        target.Advance(part);
        count -= part;
    }
}

// Writes literal pixels likewise. False when the data ended first, after the pixels that are whole.
template <typename Stored>
bool PutLiterals(Target& target, kv::ByteReader& reader, DWORD count) {
    while (count > 0 && !target.IsFull()) {
        const DWORD part = std::min(count, target.RowRest());
        const auto bytes = reader.Take(part * Stored::kBytes);
        const auto whole = static_cast<DWORD>(bytes.size() / Stored::kBytes);
        Stored::Copy(target.Next(), bytes.data(), whole);
        target.Advance(whole);
        if (whole < part) {
            return false;
        }
        count -= part;
    }
    return true;
}

template <typename Stored>
int DecodeRunLength(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height, DWORD top) {
    if (width == 0 && height > 0) {
        return -1;  // rows that no pixel fills
    }
    Target target(dst, width, height, top != 0);
    kv::ByteReader reader({src, size});
    while (!target.IsFull()) {
        if (reader.Remaining() == 0) {
            return -1;
        }
        const BYTE control = reader.U8();
        const DWORD count = (control & kv::tga::kCountBits) + 1U;
        if ((control & kv::tga::kRunBit) == 0) {
            if (!PutLiterals<Stored>(target, reader, count)) {
                return -1;
            }
            continue;
        }
        const auto bytes = reader.Take(Stored::kBytes);
        if (bytes.size() < Stored::kBytes) {
            return -1;
        }
        DWORD pixel = 0;
        Stored::Copy(reinterpret_cast<BYTE*>(&pixel), bytes.data(), 1);
        PutRun(target, pixel, count);
    }
    return 0;
}

}  // namespace

int CKVTargaImage::ImgConv_TgaToFb(const BYTE* src, DWORD size, const tagTGA_HEADER* hdr,
                                   CKVFrameBuffer* fb) {
    const std::uint64_t pixels = kv::SaturatedProduct({hdr->Width, hdr->Height});
    if (!kv::tga::IsTrueColour(hdr->ImageType) || !kv::MayHold(size, pixels, kMaxPixelsPerByte) ||
        fb->CreateFrameBuffer(hdr->Width, hdr->Height, 1) != 0) {
        return -1;
    }
    const bool hasKeys = kv::tga::BytesPerPixel(*hdr) == 4;
    const auto decode =
        hdr->ImageType == kv::tga::kRunLength
            ? (hasKeys ? &CKVTargaImage::ImgConv_Comp32 : &CKVTargaImage::ImgConv_Comp24)
            : (hasKeys ? &CKVTargaImage::ImgConv_UnComp32 : &CKVTargaImage::ImgConv_UnComp24);
    const DWORD top = hdr->Descriptor & kv::tga::kTopRowFirst;
    if ((this->*decode)(src, size, fb->m_BufferByte, hdr->Width, hdr->Height, top) != 0) {
        return -1;
    }
    m_KeyFlag = hasKeys ? 1 : 0;
    return 0;
}

int CKVTargaImage::ImgConv_UnComp32(const BYTE* src, DWORD size, BYTE* dst, DWORD width,
                                    DWORD height, DWORD top) {
    return DecodeRaw<Stored32>(src, size, dst, width, height, top);
}

int CKVTargaImage::ImgConv_UnComp24(const BYTE* src, DWORD size, BYTE* dst, DWORD width,
                                    DWORD height, DWORD top) {
    return DecodeRaw<Stored24>(src, size, dst, width, height, top);
}

int CKVTargaImage::ImgConv_Comp32(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                                  DWORD top) {
    return DecodeRunLength<Stored32>(src, size, dst, width, height, top);
}

int CKVTargaImage::ImgConv_Comp24(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                                  DWORD top) {
    return DecodeRunLength<Stored24>(src, size, dst, width, height, top);
}
