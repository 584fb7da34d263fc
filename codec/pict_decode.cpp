// From PICT pixel data to the rows of a frame buffer.

#include <algorithm>
#include <cstring>
#include <map>
#include <new>
#include <span>
#include <vector>

#include <CKVPictImage.h>

#include "base/bytes.h"
#include "base/checked.h"
#include "base/cpu.h"
#include "codec/pict_format.h"
#include "codec/pict_planes.h"
#include "codec/transfer.h"

namespace {

constexpr BYTE kNoOperation = 0x80;

// A packet of three bytes, control byte and word, yields at most 128 pixels.
constexpr std::uint64_t kMaxPixelsPerByte = 43;

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
        kv::pict::JoinPlanes(dst, {red + 2 * plane, red + plane, red, key}, width);
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
        kv::pict::JoinPlanes(dst, {red + 2 * plane, red + plane, red, nullptr}, width);
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

// A packet into a row: bytes copied, or one unit repeated. Where a packet of the largest size would
// fit on both sides, fixed sizes are written, one for short packets and one for all others, since
// that is faster; the packets that follow write over what was too much.
template <std::size_t kUnit>
struct PutPacket {
    static constexpr std::size_t kMaxBytes = 128 * kUnit;
    static constexpr std::size_t kShortBytes = 32;

    static void Copy(BYTE* to, const BYTE* from, std::size_t bytes, bool isRoomy) {
        if (!isRoomy) {
            std::memcpy(to, from, bytes);
            return;
        }
        std::memcpy(to, from, kShortBytes);
        if (bytes > kShortBytes) {
            std::memcpy(to + kShortBytes, from + kShortBytes, kMaxBytes - kShortBytes);
        }
    }

    static void Repeat(BYTE* to, const BYTE* unit, std::size_t bytes, bool isRoomy) {
        if (!isRoomy) {
            Fill(to, unit, bytes);
            return;
        }
        Fill(to, unit, kShortBytes);
        if (bytes > kShortBytes) {
            Fill(to + kShortBytes, unit, kMaxBytes - kShortBytes);
        }
    }

  private:
    static KV_FORCE_INLINE void Fill(BYTE* to, const BYTE* unit, std::size_t bytes) {
        if (kUnit == 1) {
            std::memset(to, *unit, bytes);
            return;
        }
        for (std::size_t i = 0; i < bytes; i += kUnit) {
            std::memcpy(to + i, unit, kUnit);
        }
    }
};

// Where no-operations end. Rows may overlap when their counts lie, so that each of them would walk
// through the same ones again; long stretches are remembered by their ends, with their starts.
class NoOperations {
  public:
    explicit NoOperations(std::span<const BYTE> data) : m_Data(data) {}

    std::size_t EndFrom(std::size_t at) {
        const auto known = m_Stretches.upper_bound(at);
        if (known != m_Stretches.end() && known->second <= at) {
            return known->first;
        }
        std::size_t end = at;
        while (end < m_Data.size() && m_Data[end] == kNoOperation) {
            ++end;
        }
        if (end - at >= kLong) {
            m_Stretches[end] = at;
        }
        return end;
    }

  private:
    static constexpr std::size_t kLong = 64;

    std::span<const BYTE> m_Data;
    std::map<std::size_t, std::size_t> m_Stretches;
};

// Unpacks the rows of a picture one by one.
template <typename Stored>
class Unpacker {
  public:
    Unpacker(const Stored& stored, std::size_t width, std::span<const BYTE> data)
        : m_CountBytes(stored.HasWideCount() ? 2 : 1),
          m_Wanted(stored.Wanted()),
          m_Row(std::max(stored.Room(width), m_Wanted)),
          m_Data(data),
          m_NoOperations(data) {}

    // The scratch row, with what earlier rows left behind their bytes.
    std::span<const BYTE> Row() const { return m_Row; }

    // False when the data ended first.
    bool Next() {
        kv::ByteReader rows(m_Data.subspan(m_At));
        if (rows.Remaining() < m_CountBytes) {
            return false;
        }
        const std::size_t count = m_CountBytes == 2 ? rows.U16Be() : rows.U8();
        const bool isWhole = Unpack(rows);
        rows.Take(count);
        m_At = m_Data.size() - rows.Remaining();
        return isWhole;
    }

  private:
    using Put = PutPacket<Stored::kUnit>;

    // Packet by packet, until there are as many bytes as wanted. What the last packet brings beyond
    // that goes as far as there is room.
    bool Unpack(kv::ByteReader packets) {
        for (std::size_t done = 0; done < m_Wanted;) {
            if (packets.Remaining() == 0) {
                return false;
            }
            const BYTE control = packets.U8();
            if (control == kNoOperation) {
                const std::size_t at = m_Data.size() - packets.Remaining();
                packets.Take(m_NoOperations.EndFrom(at) - at);
                continue;
            }
            const bool isRun = control > kNoOperation;
            const std::size_t bytes = (isRun ? 257U - control : control + 1U) * Stored::kUnit;
            const bool isRoomy = std::min(m_Wanted - done, packets.Remaining()) >= Put::kMaxBytes;
            const auto stored = packets.Take(isRun ? Stored::kUnit : bytes);
            if (stored.size() < (isRun ? Stored::kUnit : bytes)) {
                return false;
            }
            const std::size_t part = std::min(bytes, m_Row.size() - done);
            if (isRun) {
                Put::Repeat(m_Row.data() + done, stored.data(), part, isRoomy);
            } else {
                Put::Copy(m_Row.data() + done, stored.data(), part, isRoomy);
            }
            done += bytes;
        }
        return true;
    }

    std::size_t m_CountBytes;
    std::size_t m_Wanted;
    std::vector<BYTE> m_Row;
    std::span<const BYTE> m_Data;
    std::size_t m_At = 0;
    NoOperations m_NoOperations;
};

template <typename Stored>
int Decode(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size, DWORD rowBytes) try {
    const Stored stored(rowBytes);
    Unpacker<Stored> unpacker(stored, width, {src, size});
    for (DWORD row = 0; row < height; ++row) {
        if (!unpacker.Next() || stored.Span(width) > unpacker.Row().size()) {
            return -1;
        }
        stored.Convert(dst, unpacker.Row().data(), width);
        dst += std::size_t{width} * 4;
    }
    return 0;
} catch (const std::bad_alloc&) {
    return -1;
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
    if (!kv::MayHold(size, kv::SaturatedProduct({columns, rows}), kMaxPixelsPerByte) ||
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
