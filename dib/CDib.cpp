// The bitmap object as data: header, colours and rows, and who owns them.

#include "CDib.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <limits>
#include <memory>
#include <utility>

#include "base/narrow.h"
#include "dib/layout.h"
#include "dib/palette.h"
#include "platform/bitmap/format.h"
#include "platform/system/class_record.h"
#include "platform/system/file_mapping.h"
#include "surface/wrap.h"

using kv::dib::kHeaderBytes;

namespace {

// A header in memory that the caller vouches for may tell any number of colours; more than this
// serve no purpose.
constexpr std::size_t kMaxColours = 256;

bool IsDepth(int bitCount) {
    return kv::dib::DefaultColours(bitCount).has_value();
}

std::size_t TableBytes(LONG entries) {
    return std::size_t{static_cast<DWORD>(entries)} * sizeof(tagRGBQUAD);
}

// The bytes of the global block from the address on, or nothing when that is not inside it.
std::size_t BytesInBlock(HGLOBAL block, const void* from) {
    const auto* start = static_cast<const BYTE*>(GlobalLock(block));
    if (start == nullptr) {
        return 0;
    }
    GlobalUnlock(block);
    const std::size_t size = GlobalSize(block);
    const auto* at = static_cast<const BYTE*>(from);
    const bool inside = !std::less<>()(at, start) && std::less<>()(at, start + size);
    return inside ? size - static_cast<std::size_t>(at - start) : 0;
}

}  // namespace

KV_DEFINE_CLASS_RECORD(CDib, 0);

CDib::CDib(CSize size, int bitCount) {
    MakeHeader(size, bitCount, 0);
}

CDib::CDib(int width, int height, int bitCount, int topDown) {
    Create(width, height, bitCount, topDown);
}

CDib::CDib(void* image, CSize size, int bitCount, int topDown) {
    AttachImage(image, size, bitCount, topDown);
}

CDib::~CDib() {
    Empty();
}

int CDib::Create(int width, int height, int bitCount, int topDown) {
    constexpr std::uint64_t kMax = std::numeric_limits<DWORD>::max();
    if (width < 1 || height < 1 || !IsDepth(bitCount) ||
        kv::dib::RowBytes(width, static_cast<unsigned int>(bitCount)) >
            kMax / static_cast<std::uint64_t>(height)) {
        return 0;
    }
    Empty();
    MakeHeader({width, height}, bitCount, topDown);
    m_Image = new BYTE[m_SizeImage];
    m_ImageAlloc = 1;
    return 1;
}

int CDib::AttachImage(void* image, CSize size, int bitCount, int topDown) {
    if (bitCount != 16 && bitCount != 24 && bitCount != 32) {
        return 0;
    }
    Empty();
    MakeHeader(size, bitCount, topDown);
    m_Image = image;
    return 1;
}

int CDib::AttachMemory(void* header, int owned, void* global) {
    Empty();
    const std::size_t blockBytes = BytesInBlock(global, header);
    if (header == nullptr || (blockBytes != 0 && blockBytes < kHeaderBytes)) {
        return 0;
    }
    m_Global = global;
    m_HeaderAlloc = owned == 0 ? 0 : (global != nullptr ? 2 : 1);
    AttachBlock(header, blockBytes);
    return 1;
}

// blockBytes counts from the header on; 0 where it is not known.
void CDib::AttachBlock(void* header, std::size_t blockBytes) {
    m_Header = static_cast<tagBITMAPINFOHEADER*>(header);
    ComputePaletteSize(m_Header->biBitCount);
    ComputeMetrics();
    const std::size_t imageOffset = kHeaderBytes + TableBytes(m_ColorEntries);
    m_Image = static_cast<BYTE*>(header) + imageOffset;
    if (blockBytes == 0) {
        m_HeaderBytes = std::min(imageOffset, kHeaderBytes + kMaxColours * sizeof(tagRGBQUAD));
    } else {
        m_HeaderBytes = std::min(imageOffset, blockBytes);
        m_SizeImage =
            static_cast<DWORD>(std::min<std::size_t>(m_SizeImage, blockBytes - m_HeaderBytes));
    }
    MakePalette();
}

int CDib::MakePalette() {
    if (m_Header == nullptr || m_ColorEntries == 0) {
        return 0;
    }
    DeleteObject(
        std::exchange(m_Palette, kv::dib::TablePalette(HeaderAndColours().subspan(kHeaderBytes))));
    return 1;
}

void CDib::Empty() {
    if (m_File != nullptr) {
        kv::CloseMapped(m_File, m_Mapping, m_View);
    }
    if (m_HeaderAlloc == 1) {
        delete[] reinterpret_cast<BYTE*>(m_Header);
    } else if (m_HeaderAlloc == 2) {
        GlobalUnlock(m_Global);
        GlobalFree(m_Global);
    }
    if (m_ImageAlloc == 1) {
        delete[] static_cast<BYTE*>(m_Image);
    }
    DeleteObject(std::exchange(m_Palette, nullptr));
    DeleteObject(std::exchange(m_Bitmap, nullptr));
    m_ColorTable = nullptr;
    m_Image = nullptr;
    m_Header = nullptr;
    m_Global = nullptr;
    m_HeaderAlloc = 0;
    m_ImageAlloc = 0;
    m_SizeImage = 0;
    m_ColorEntries = 0;
    m_File = nullptr;
    m_Mapping = nullptr;
    m_View = nullptr;
    m_HeaderBytes = 0;
}

LONG CDib::GetHeight() const {
    return kv::SaturateToInt32(std::abs(std::int64_t{m_Header->biHeight}));
}

CSize CDib::GetDimensions() const {
    return m_Header != nullptr ? CSize(GetWidth(), GetHeight()) : CSize(0, 0);
}

DWORD CDib::GetLineByte() const {
    return static_cast<DWORD>(kv::dib::RowBytes(m_Header->biWidth, m_Header->biBitCount));
}

void CDib::ComputePaletteSize(int bitCount) {
    if (m_Header != nullptr && m_Header->biClrUsed != 0) {
        m_ColorEntries = static_cast<LONG>(m_Header->biClrUsed);
    } else if (const auto entries = kv::dib::DefaultColours(bitCount)) {
        m_ColorEntries = *entries;
    }
}

void CDib::ComputeMetrics() {
    m_SizeImage = kv::dib::NarrowedSize(kv::dib::ImageBytes(*m_Header));
    m_ColorTable = reinterpret_cast<tagRGBQUAD*>(m_Header + 1);
}

// For an empty object.
void CDib::MakeHeader(CSize size, int bitCount, int topDown) {
    ComputePaletteSize(bitCount);
    const std::size_t bytes = kHeaderBytes + TableBytes(m_ColorEntries);
    auto* header = reinterpret_cast<tagBITMAPINFOHEADER*>(new BYTE[bytes]());
    header->biSize = kHeaderBytes;
    header->biWidth = size.cx;
    header->biHeight = topDown == 1 ? kv::WrapSub(0, size.cy) : size.cy;
    header->biPlanes = 1;
    header->biBitCount = static_cast<WORD>(bitCount);
    header->biClrUsed = static_cast<DWORD>(m_ColorEntries);
    header->biClrImportant = header->biClrUsed;
    InstallHeader(header, bytes, 1);
}

void CDib::InstallHeader(tagBITMAPINFOHEADER* header, std::size_t bytes, LONG alloc) {
    m_Header = header;
    m_HeaderBytes = bytes;
    m_HeaderAlloc = alloc;
    ComputeMetrics();
}

std::span<const BYTE> CDib::HeaderAndColours() const {
    const std::size_t entries =
        std::min(TableBytes(m_ColorEntries), m_HeaderBytes - kHeaderBytes) / 4;
    return Info().first(kHeaderBytes + entries * 4);
}

std::span<const BYTE> CDib::Info() const {
    return {reinterpret_cast<const BYTE*>(m_Header), m_HeaderBytes};
}

std::span<const BYTE> CDib::Pixels() const {
    return m_Image != nullptr ? std::span(static_cast<const BYTE*>(m_Image), m_SizeImage)
                              : std::span<const BYTE>();
}
