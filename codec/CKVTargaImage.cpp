// TGA files: opened, checked, handed to the decoder, and written.

#include "CKVTargaImage.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "base/bytes.h"
#include "base/checked.h"
#include "codec/tga_format.h"
#include "codec/transfer.h"

namespace {

using kv::tga::BytesPerPixel;
using kv::tga::kHeaderBytes;

constexpr DWORD kReadChunk = 4096;
constexpr DWORD kWorstBytesPerPixel = 5;  // every pixel a packet of its own

tagTGA_HEADER ParseHeader(std::span<const BYTE, kHeaderBytes> bytes) {
    kv::ByteReader reader(bytes);
    tagTGA_HEADER header{};
    header.IdLength = reader.U8();
    header.ColorMapType = reader.U8();
    header.ImageType = reader.U8();
    std::ranges::copy(reader.Take(sizeof(header.ColorMapSpec)), header.ColorMapSpec);
    header.XOrigin = reader.U16Le();
    header.YOrigin = reader.U16Le();
    header.Width = reader.U16Le();
    header.Height = reader.U16Le();
    header.PixelDepth = reader.U8();
    header.Descriptor = reader.U8();
    return header;
}

std::array<BYTE, kHeaderBytes> FormatHeader(const tagTGA_HEADER& header) {
    std::array<BYTE, kHeaderBytes> bytes{};
    kv::ByteWriter writer(bytes);
    writer.U8(header.IdLength);
    writer.U8(header.ColorMapType);
    writer.U8(header.ImageType);
    writer.Bytes(header.ColorMapSpec);
    writer.U16Le(header.XOrigin);
    writer.U16Le(header.YOrigin);
    writer.U16Le(header.Width);
    writer.U16Le(header.Height);
    writer.U8(header.PixelDepth);
    writer.U8(header.Descriptor);
    return bytes;
}

bool IsReadable(const tagTGA_HEADER& header) {
    return header.ColorMapType == 0 && kv::tga::IsTrueColour(header.ImageType) &&
           header.PixelDepth != 8 && header.PixelDepth != 16 &&
           (header.Descriptor & kv::tga::kRightToLeft) == 0;
}

bool SkipIdentification(CFile& file, UINT length) {
    std::array<BYTE, std::numeric_limits<BYTE>::max()> dropped;
    return length == 0 || file.Read(dropped.data(), length) >= length;
}

// The most bytes that a decoder can want.
std::uint64_t MostDataBytes(const tagTGA_HEADER& header) {
    const DWORD packet = header.ImageType == kv::tga::kRunLength ? 1 : 0;
    return kv::SaturatedProduct({header.Width, header.Height, packet + BytesPerPixel(header)});
}

}  // namespace

int CKVTargaImage::LoadImg(const char* name, CKVFrameBuffer* fb) {
    return kv::LoadNamed(name, [&](CFile& file) { return LoadImg_Proc(&file, fb); });
}

int CKVTargaImage::LoadImg(CFile* file, CKVFrameBuffer* fb) {
    return LoadImg_Proc(file, fb);
}

int CKVTargaImage::SaveImage(const char* name, const CKVFrameBuffer* fb, LONG mode) {
    return kv::SaveNamed(name, [&](CFile& file) { return SaveImage_Proc(&file, fb, mode); });
}

int CKVTargaImage::SaveImage(CFile* file, const CKVFrameBuffer* fb, LONG mode) {
    return SaveImage_Proc(file, fb, mode);
}

int CKVTargaImage::LoadImg_Proc(CFile* file, CKVFrameBuffer* fb) {
    if (file == nullptr || fb == nullptr || fb->m_BufferByte != nullptr) {
        return -1;
    }
    try {
        std::array<BYTE, kHeaderBytes> bytes{};
        file->SeekToBegin();
        if (file->Read(bytes.data(), kHeaderBytes) < kHeaderBytes) {
            return -1;
        }
        const tagTGA_HEADER header = ParseHeader(bytes);
        if (!IsReadable(header) || !SkipIdentification(*file, header.IdLength)) {
            return -1;
        }
        const kv::FileData data = kv::ReadRest(*file, MostDataBytes(header), kReadChunk);
        return data.bytes == nullptr ? -1
                                     : ImgConv_TgaToFb(data.bytes.get(), data.size, &header, fb);
    } catch (const CFileException&) {
        return -1;
    }
}

int CKVTargaImage::SaveImage_Proc(CFile* file, const CKVFrameBuffer* fb, LONG mode) {
    if (file == nullptr || fb == nullptr || fb->m_BufferByte == nullptr || fb->m_Size == 0 ||
        !kv::tga::FitsHeader(fb->m_Width) || !kv::tga::FitsHeader(fb->m_Height)) {
        return -1;
    }
    const std::uint64_t room =
        kv::SaturatedProduct({fb->GetWidth(), fb->GetHeight(), kWorstBytesPerPixel});
    const kv::ByteBuffer data = kv::AllocateBytes(room);
    if (data == nullptr) {
        return -1;
    }
    tagTGA_HEADER header{};
    DWORD length = 0;
    if (ImgConv_FbToTga(data.get(), &length, &header, fb, static_cast<DWORD>(mode)) != 0) {
        return -1;
    }
    file->SeekToBegin();
    try {
        file->Write(FormatHeader(header).data(), kHeaderBytes);
        kv::WriteChunks(*file, data.get(), length);
    } catch (const CException&) {
        return -1;
    }
    return 0;
}
