// PICT files: opened, checked, handed to the decoder, and written.

#include "CKVPictImage.h"

#include <array>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>

#include "base/bytes.h"
#include "codec/pict_format.h"
#include "codec/pict_opcodes.h"
#include "codec/transfer.h"

namespace {

using kv::pict::OpcodeReader;

constexpr DWORD kReadChunk = 16384;
constexpr DWORD kResolution = 72 << 16;  // 72.0 pixels an inch

tagPICTRECT ReadRect(kv::ByteReader& reader) {
    tagPICTRECT rect{};
    rect.top = reader.U16Be();
    rect.left = reader.U16Be();
    rect.bottom = reader.U16Be();
    rect.right = reader.U16Be();
    return rect;
}

tagFMT_PICT_PIXMAP ParsePixmap(std::span<const BYTE, kv::pict::kPixmapBytes> bytes) {
    kv::ByteReader reader(bytes);
    tagFMT_PICT_PIXMAP pixmap{};
    pixmap.opcode = kv::pict::kDirectBitsRect;
    pixmap.baseAddr = reader.U32Be();
    pixmap.rowBytes = reader.U16Be();
    pixmap.bounds = ReadRect(reader);
    pixmap.pmVersion = reader.U16Be();
    pixmap.packType = reader.U16Be();
    pixmap.packSize = reader.U32Be();
    pixmap.hRes = reader.U32Be();
    pixmap.vRes = reader.U32Be();
    pixmap.pixelType = reader.U16Be();
    pixmap.pixelSize = reader.U16Be();
    pixmap.cmpCount = reader.U16Be();
    pixmap.cmpSize = reader.U16Be();
    pixmap.planeBytes = reader.U32Be();
    pixmap.pmTable = reader.U32Be();
    pixmap.pmReserved = reader.U32Be();
    pixmap.srcRect = ReadRect(reader);
    pixmap.dstRect = ReadRect(reader);
    pixmap.mode = reader.U16Be();
    return pixmap;
}

bool IsVersion2(OpcodeReader& file) {
    const auto bytes = file.Bytes<14>();
    if (!bytes) {
        return false;
    }
    kv::ByteReader reader(*bytes);
    reader.Take(10);  // size and frame
    return reader.U16Be() == kv::pict::kVersionOpcode && reader.U16Be() == kv::pict::kVersion2;
}

bool SkipRegion(OpcodeReader& file) {
    const std::optional<WORD> length = file.Word();  // counts itself
    if (!length || *length < 2) {
        return false;
    }
    file.Skip(*length - 2U);
    return true;
}

bool SkipLongComment(OpcodeReader& file) {
    const std::optional<WORD> kind = file.Word();
    const std::optional<WORD> length = file.Word();
    if (!kind || !length) {
        return false;
    }
    file.Skip(*length);
    return true;
}

// Moves behind the data of an opcode before the pixel map. False for an opcode that tells of no
// such map, and when the file ended. Opcodes that are not known here pass as if they had no data.
bool SkipData(OpcodeReader& file, WORD opcode) {
    switch (opcode) {
        case kv::pict::kClipRegion:
            return SkipRegion(file);
        case kv::pict::kShortComment:
            return file.Word().has_value();
        case kv::pict::kLongComment:
            return SkipLongComment(file);
        case kv::pict::kExtendedHeader:
            return file.Bytes<kv::pict::kExtendedHeaderBytes>().has_value();
        case kv::pict::kBitsRect:
        case kv::pict::kBitsRgn:
        case kv::pict::kPackBitsRect:
        case kv::pict::kPackBitsRgn:
        case kv::pict::kDirectBitsRgn:
        case kv::pict::kEndOfPicture:
            return false;
        default:
            return true;
    }
}

// The first pixel map of the opcodes, which lie back to back.
std::optional<tagFMT_PICT_PIXMAP> FindPixmap(OpcodeReader& file) {
    std::optional<WORD> opcode = file.Word();
    while (opcode && *opcode != kv::pict::kDirectBitsRect) {
        if (!SkipData(file, *opcode)) {
            return std::nullopt;
        }
        opcode = file.Word();
    }
    if (!opcode) {
        return std::nullopt;
    }
    const auto bytes = file.Bytes<kv::pict::kPixmapBytes>();
    return bytes ? std::optional(ParsePixmap(*bytes)) : std::nullopt;
}

// All that stands before the packed rows.
class Head {
  public:
    Head(const CKVFrameBuffer& fb, DWORD length)
        : m_Width(static_cast<WORD>(fb.m_Width)), m_Height(static_cast<WORD>(fb.m_Height)) {
        m_Writer.U16Be(static_cast<WORD>((length + kBytes + 2) & 0xFFFF));
        Rect();
        m_Writer.U16Be(kv::pict::kVersionOpcode);
        m_Writer.U16Be(kv::pict::kVersion2);
        ExtendedHeader();
        Pixmap();
    }

    void Write(CFile& file) const {
        const BYTE* bytes = m_Bytes.data();
        for (const UINT part : {kv::pict::kPreambleBytes, 14U, kv::pict::kExtendedHeaderBytes + 2,
                                kv::pict::kPixmapBytes + 2}) {
            file.Write(bytes, part);
            bytes += part;
        }
    }

  private:
    static constexpr std::size_t kBytes = 622;

    void Rect() {
        m_Writer.U32Be(0);
        m_Writer.U16Be(m_Height);
        m_Writer.U16Be(m_Width);
    }

    void Resolutions() {
        m_Writer.U32Be(kResolution);
        m_Writer.U32Be(kResolution);
    }

    void ExtendedHeader() {
        m_Writer.U16Be(kv::pict::kExtendedHeader);
        m_Writer.U16Be(0xFFFE);  // header version -2
        m_Writer.U16Be(0);
        Resolutions();
        Rect();
        m_Writer.U32Be(0);
    }

    void Pixmap() {
        m_Writer.U16Be(kv::pict::kDirectBitsRect);
        m_Writer.U32Be(0xFF);  // base address: older readers refuse 0
        m_Writer.U16Be(static_cast<WORD>(m_Width * 4 | kv::pict::kRowBytesFlag));
        Rect();
        m_Writer.U16Be(0);
        m_Writer.U16Be(4);  // packed by components
        m_Writer.U32Be(0);
        Resolutions();
        for (const WORD value : std::initializer_list<WORD>{
                 16, 32, 4, 8}) {  // direct colour: bits, components, their bits
            m_Writer.U16Be(value);
        }
        for (int i = 0; i < 3; ++i) {
            m_Writer.U32Be(0);  // plane bytes, colour table, reserved
        }
        Rect();
        Rect();
        m_Writer.U16Be(0x0040);  // the mode that blends
    }

    WORD m_Width;
    WORD m_Height;
    std::array<BYTE, kBytes> m_Bytes{};
    kv::ByteWriter m_Writer{std::span(m_Bytes).subspan(kv::pict::kPreambleBytes)};
};

}  // namespace

int CKVPictImage::LoadImg(const char* name, CKVFrameBuffer* fb) {
    return kv::LoadNamed(name, [&](CFile& file) { return LoadImg_Proc(&file, fb); });
}

int CKVPictImage::LoadImg(CFile* file, CKVFrameBuffer* fb) {
    return LoadImg_Proc(file, fb);
}

int CKVPictImage::SaveImage(const char* name, const CKVFrameBuffer* fb, LONG mode) {
    return kv::SaveNamed(name, [&](CFile& file) { return SaveImage_Proc(&file, fb, mode); });
}

int CKVPictImage::SaveImage(CFile* file, const CKVFrameBuffer* fb, LONG mode) {
    return SaveImage_Proc(file, fb, mode);
}

int CKVPictImage::LoadImg_Proc(CFile* file, CKVFrameBuffer* fb) {
    if (file == nullptr || fb == nullptr || fb->m_BufferByte != nullptr) {
        return -1;
    }
    try {
        OpcodeReader opcodes(*file);
        if (file->Seek(kv::pict::kPreambleBytes, CFile::begin) != kv::pict::kPreambleBytes ||
            !IsVersion2(opcodes)) {
            return -1;
        }
        const std::optional<tagFMT_PICT_PIXMAP> pixmap = FindPixmap(opcodes);
        if (!pixmap) {
            return -1;
        }
        opcodes.Settle();
        const kv::FileData data =
            kv::ReadRest(*file, std::numeric_limits<std::uint64_t>::max(), kReadChunk);
        return data.bytes == nullptr ? -1
                                     : ImgConv_PictToFb(data.bytes.get(), data.size, &*pixmap, fb);
    } catch (const CFileException&) {
        return -1;
    }
}

int CKVPictImage::SaveImage_Proc(CFile* file, const CKVFrameBuffer* fb, LONG mode) {
    if (file == nullptr || fb == nullptr || fb->m_BufferByte == nullptr || fb->m_Size == 0 ||
        !kv::pict::FitsFile(fb->GetWidth(), fb->GetHeight())) {
        return -1;
    }
    const kv::ByteBuffer data =
        kv::AllocateBytes(kv::pict::MostPackedBytes(fb->GetWidth(), fb->GetHeight()));
    DWORD length = 0;
    if (data == nullptr ||
        ImgConv_FbToPict(data.get(), &length, nullptr, fb, static_cast<DWORD>(mode)) != 0) {
        return -1;
    }
    const Head head(*fb, length);
    constexpr std::array<BYTE, 2> kEnd{0, kv::pict::kEndOfPicture};
    file->SeekToBegin();
    try {
        head.Write(*file);
        kv::WriteChunks(*file, data.get(), length);
        kv::WriteChunks(*file, kEnd.data(), kEnd.size());
    } catch (const CException&) {
        return -1;
    }
    return 0;
}

WORD CKVPictImage::ChMsbWORD(const char* p) {
    return kv::ByteReader({reinterpret_cast<const BYTE*>(p), 2}).U16Be();
}

DWORD CKVPictImage::ChMsbDWORD(const char* p) {
    return kv::ByteReader({reinterpret_cast<const BYTE*>(p), 4}).U32Be();
}

tagPICTRECT CKVPictImage::ChMsbRECT(const char* p) {
    kv::ByteReader reader({reinterpret_cast<const BYTE*>(p), 8});
    return ReadRect(reader);
}
