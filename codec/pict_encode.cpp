// From the rows of a frame buffer to PICT pixel data.

#include <algorithm>
#include <array>
#include <cstring>
#include <new>
#include <span>
#include <vector>

#include <CKVPictImage.h>

#include "codec/pict_format.h"
#include "codec/pict_packets.h"
#include "codec/pict_planes.h"
#include "codec/transfer.h"

namespace {

using kv::pict::kMaxPacketBytes;
using kv::pict::Packet;

// Literals are copied by blocks, most are short; so much is spare behind both rows.
constexpr std::size_t kFirstBytes = 16;
constexpr std::size_t kSpareBytes = 128;
constexpr std::size_t kCountMost = 0xFF;
constexpr std::size_t kWideCountMost = 0xFFFF;

// What a row takes in literal packets alone.
constexpr std::uint64_t LiteralBytes(DWORD width) {
    const std::uint64_t bytes = std::uint64_t{width} * 4;
    return bytes + (bytes + kMaxPacketBytes - 1) / kMaxPacketBytes;
}

// Both write a packet; the place behind it.
BYTE* PutRun(BYTE* to, BYTE value, std::size_t count) {
    to[0] = static_cast<BYTE>(1 - count);
    to[1] = value;
    return to + 2;
}

BYTE* PutLiterals(BYTE* to, const BYTE* bytes, std::size_t count) {
    to[0] = static_cast<BYTE>(count - 1);
    std::memcpy(to + 1, bytes, kFirstBytes);
    if (count > kFirstBytes) {
        std::memcpy(to + 1 + kFirstBytes, bytes + kFirstBytes, kSpareBytes - kFirstBytes);
    }
    return to + 1 + count;
}

// Packs rows of one width.
class RowPacker {
  public:
    explicit RowPacker(DWORD width)
        : m_Width(width),
          m_RowBytes(std::size_t{width} * 4),
          m_Planes(m_RowBytes + kSpareBytes),
          m_Packed(m_RowBytes * 2 + kSpareBytes),
          m_Packets(m_RowBytes) {}

    // The packets of a row, until the next one is packed.
    std::span<const BYTE> Pack(const BYTE* pixels) {
        kv::pict::SplitIntoPlanes(m_Planes.data(), pixels, m_Width);
        const std::size_t length = PackByRepeats();
        const bool fits = length <= (kv::pict::HasWideCount(m_Width) ? kWideCountMost : kCountMost);
        return std::span(m_Packed).first(fits ? length : PackAsLiterals());
    }

  private:
    std::size_t PackByRepeats() {
        const BYTE* const row = m_Planes.data();
        BYTE* to = m_Packed.data();
        m_Packets.SetRow(row, m_RowBytes);
        for (std::size_t at = 0; at < m_RowBytes;) {
            const Packet packet = m_Packets.At(at);
            to = packet.isRun ? PutRun(to, row[at], packet.count)
                              : PutLiterals(to, row + at, packet.count);
            at += packet.count;
        }
        return static_cast<std::size_t>(to - m_Packed.data());
    }

    std::size_t PackAsLiterals() {
        BYTE* to = m_Packed.data();
        for (std::size_t at = 0; at < m_RowBytes; at += kMaxPacketBytes) {
            to = PutLiterals(to, m_Planes.data() + at, std::min(m_RowBytes - at, kMaxPacketBytes));
        }
        return static_cast<std::size_t>(to - m_Packed.data());
    }

    std::size_t m_Width;
    std::size_t m_RowBytes;
    std::vector<BYTE> m_Planes;  // and zeros, the first of which a row's last byte is compared with
    std::vector<BYTE> m_Packed;
    kv::pict::RowPackets m_Packets;
};

// The length of a literal whose first repeat stands behind count bytes, decided byte by byte: the
// plain form of RowPackets, without memory of its own.
LONG GrownLiteral(const BYTE* bytes, LONG remaining, LONG count) {
    LONG grown = count;
    LONG equals = 0;
    for (LONG at = count; at < remaining && grown < LONG{kMaxPacketBytes}; ++at) {
        if (bytes[at] != bytes[at + 1]) {
            grown += equals;
            equals = 0;
        } else if (++equals > 3) {
            return grown;
        }
    }
    return count;
}

// Writes the count of a row's packets; the place behind it.
BYTE* PutCount(BYTE* dst, std::size_t count, bool isWide) {
    if (isWide) {
        *dst++ = static_cast<BYTE>(count >> 8);
    }
    *dst++ = static_cast<BYTE>(count & 0xFF);
    return dst;
}

}  // namespace

int CKVPictImage::ImgConv_FbToPict(BYTE* dst, DWORD* len, const tagFMT_PICT_PIXMAP*,
                                   const CKVFrameBuffer* fb, DWORD) {
    return ImgConv_Comp32A(fb->m_BufferByte, dst, fb->GetWidth(), fb->GetHeight(), len);
}

int CKVPictImage::ImgConv_Comp32A(const BYTE* src, BYTE* dst, DWORD width, DWORD height,
                                  DWORD* len) try {
    if (LiteralBytes(width) > kWideCountMost) {
        return -1;
    }
    RowPacker packer(width);
    BYTE* end = dst;
    for (DWORD row = 0; row < height; ++row) {
        const auto packed = packer.Pack(src + std::size_t{row} * width * 4);
        end = PutCount(end, packed.size(), kv::pict::HasWideCount(width));
        end = std::ranges::copy(packed, end).out;
    }
    *len += static_cast<DWORD>(end - dst);
    if (*len % 2 != 0) {
        *end = 0;
        ++*len;
    }
    return 0;
} catch (const std::bad_alloc&) {
    return -1;
}

int CKVPictImage::PictCheckComp(const BYTE* bytes, LONG remaining, LONG* isRun) {
    const bool run = bytes[0] == bytes[1];
    const LONG most = std::min(remaining, LONG{kMaxPacketBytes});
    LONG count = 1;
    while (count < most && (bytes[count] == bytes[count + 1]) == run) {
        ++count;
    }
    *isRun = run ? 1 : 0;
    if (count >= most) {
        return count;
    }
    return run || remaining == 2 ? count + 1 : GrownLiteral(bytes, remaining, count);
}
