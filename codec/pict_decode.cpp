#include <algorithm>
#include <cstring>

#include <CKVPictImage.h>

#include "base/bytes.h"
#include "base/checked.h"
#include "codec/pict_format.h"
#include "codec/transfer.h"

namespace {

constexpr BYTE kNoOperation = 0x80;

// A packet of three bytes, control byte and word, yields at most 128 pixels.
constexpr std::uint64_t kMostPixelsPerByte = 43;

// The three forms of a stored row. A row wants so many unpacked bytes; the scratch row that takes
// them has at least Room bytes, since packets run on and pixels may lie behind; a row's pixels are
// taken from the first Span bytes of it.

struct Planes32 {
    static constexpr std::size_t kUnit = 1;
    std::size_t plane;
    explicit Planes32(DWORD rowBytes) : plane(rowBytes >> 2) {}
    bool HasWideCount() const { return kv::pict::HasWideCount(plane); }
    std::size_t Wanted() const { return plane * 4; }
    std::size_t Room(std::size_t) const { return plane * 8; }
    std::size_t Span(std::size_t width) const { return plane * 3 + width; }
    void Convert(BYTE* dst, const BYTE* key, std::size_t width) const {
        const BYTE* const red = key + plane;
        const BYTE* const green = red + plane;
        const BYTE* const blue = green + plane;
        for (std::size_t x = 0; x < width; ++x) {
            const BYTE pixel[] = {blue[x], green[x], red[x], key[x]};
            std::memcpy(dst + x * 4, pixel, 4);
        }
    }
};

struct Planes24 {
    static constexpr std::size_t kUnit = 1;
    std::size_t plane;
    explicit Planes24(DWORD rowBytes) : plane(rowBytes >> 2) {}
    bool HasWideCount() const { return kv::pict::HasWideCount(plane); }
    std::size_t Wanted() const { return plane * 3; }
    std::size_t Room(std::size_t width) const { return width * 4; }
    std::size_t Span(std::size_t width) const { return plane * 2 + width; }
    void Convert(BYTE* dst, const BYTE* red, std::size_t width) const {
        const BYTE* const green = red + plane;
        const BYTE* const blue = green + plane;
        for (std::size_t x = 0; x < width; ++x) {
            const BYTE pixel[] = {blue[x], green[x], red[x], 255};
            std::memcpy(dst + x * 4, pixel, 4);
        }
    }
};

struct Words16 {
    static constexpr std::size_t kUnit = 2;
    DWORD rowBytes;
    explicit Words16(DWORD bytes) : rowBytes(bytes) {}
    bool HasWideCount() const { return rowBytes > 250; }
    std::size_t Wanted() const { return rowBytes & ~DWORD{1}; }
    std::size_t Room(std::size_t width) const { return width * 4; }
    std::size_t Span(std::size_t width) const { return width * 2; }
    void Convert(BYTE* dst, const BYTE* words, std::size_t width) const {
        for (std::size_t x = 0; x < width; ++x) {
            const DWORD w = static_cast<DWORD>(words[x * 2] << 8 | words[x * 2 + 1]);
            const DWORD pixel =
                0xFF000000U | (w & 0x7C00U) << 9 | (w & 0x03E0U) << 6 | (w & 0x001FU) << 3;
            std::memcpy(dst + x * 4, &pixel, 4);
        }
    }
};

// Unpacks a row, packet by packet until it has as many bytes as wanted, which the scratch row
// holds; what the last packet brings beyond that goes as far as there is room. False when the data
// ended first.
template <std::size_t kUnit>
bool Unpack(kv::ByteReader data, std::size_t wanted, BYTE* scratch, std::size_t room) {
    for (std::size_t done = 0; done < wanted;) {
        if (data.Remaining() == 0) {
            return false;
        }
        const BYTE control = data.U8();
        if (control == kNoOperation) {
            continue;
        }
        const bool isRun = control > kNoOperation;
        const std::size_t bytes = (isRun ? 257U - control : control + 1U) * kUnit;
        const auto stored = data.Take(isRun ? kUnit : bytes);
        if (stored.size() < (isRun ? kUnit : bytes)) {
            return false;
        }
        const std::size_t part = std::min(bytes, room - done);
        if (!isRun) {
            std::memcpy(scratch + done, stored.data(), part);
        } else if (kUnit == 1) {
            std::memset(scratch + done, stored[0], part);
        } else {
            for (std::size_t i = 0; i < part; ++i) {
                scratch[done + i] = stored[i % kUnit];
            }
        }
        done += bytes;
    }
    return true;
}

template <typename Stored>
int Decode(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size, DWORD rowBytes) {
    const Stored stored(rowBytes);
    const std::size_t room = std::max(stored.Room(width), stored.Wanted());
    const kv::ByteBuffer scratch = kv::AllocateBytes(room);
    if (scratch == nullptr) {
        return -1;
    }
    std::memset(scratch.get(), 0, room);
    const std::size_t countBytes = stored.HasWideCount() ? 2 : 1;
    kv::ByteReader data({src, size});
    for (DWORD row = 0; row < height; ++row) {
        if (data.Remaining() < countBytes) {
            return -1;
        }
        const std::size_t count = stored.HasWideCount() ? data.U16Be() : data.U8();
        if (!Unpack<Stored::kUnit>(data, stored.Wanted(), scratch.get(), room) ||
            stored.Span(width) > room) {
            return -1;
        }
        data.Take(count);
        stored.Convert(dst, scratch.get(), width);
        dst += std::size_t{width} * 4;
    }
    return 0;
}

}  // namespace

int CKVPictImage::ImgConv_PictToFb(const BYTE* src, DWORD size, const tagFMT_PICT_PIXMAP* pm,
                                   CKVFrameBuffer* fb) {
    const LONG width = pm->srcRect.right - pm->srcRect.left;
    const LONG height = pm->srcRect.bottom - pm->srcRect.top;
    if ((pm->packType != 3 && pm->packType != 4) || width < 1 || height < 1) {
        return -1;
    }
    const auto columns = static_cast<DWORD>(width);
    const auto rows = static_cast<DWORD>(height);
    if (!kv::MayHold(size, kv::SaturatedProduct({columns, rows}), kMostPixelsPerByte) ||
        fb->CreateFrameBuffer(width, height, 1) != 0) {
        return -1;
    }
    const bool isPlanes = pm->pixelSize == 32;
    m_KeyFlag = isPlanes && pm->cmpCount == 4 ? 1 : 0;
    const DWORD rowBytes = pm->rowBytes & ~DWORD{kv::pict::kRowBytesFlag};
    if (pm->pixelSize == 16) {
        return ImgConv_Comp16(src, fb->m_BufferByte, columns, rows, size, rowBytes);
    }
    if (isPlanes && pm->cmpCount == 3) {
        return ImgConv_Comp24(src, fb->m_BufferByte, columns, rows, size, rowBytes);
    }
    if (isPlanes && pm->cmpCount == 4) {
        return ImgConv_Comp32(src, fb->m_BufferByte, columns, rows, size, rowBytes);
    }
    return -1;
}

int CKVPictImage::ImgConv_Comp32(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                                 DWORD rowBytes) {
    return Decode<Planes32>(src, dst, width, height, size, rowBytes);
}

int CKVPictImage::ImgConv_Comp24(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                                 DWORD rowBytes) {
    return Decode<Planes24>(src, dst, width, height, size, rowBytes);
}

int CKVPictImage::ImgConv_Comp16(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                                 DWORD rowBytes) {
    return Decode<Words16>(src, dst, width, height, size, rowBytes);
}
