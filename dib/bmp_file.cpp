// Bitmaps to and from BMP files.

#include <memory>

#include <CDib.h>

#include "dib/layout.h"
#include "object_file/field_file.h"

using kv::dib::FileHeader;
using kv::dib::kHeaderBytes;

namespace {

bool ReadAll(CFile& file, void* bytes, std::uint64_t count) {
    return file.Read(bytes, static_cast<UINT>(count)) == count;
}

// Not initialised: it is read into.
std::unique_ptr<BYTE[]> NewBlock(std::size_t bytes) {
    return std::make_unique_for_overwrite<BYTE[]>(bytes);
}

}  // namespace

bool CDib::ReadPicture(CFile& file) {
    FileHeader fileHeader;
    if (!ReadAll(file, &fileHeader, sizeof fileHeader) ||
        fileHeader.signature != kv::dib::kSignature ||
        fileHeader.pixelOffset < sizeof fileHeader + kHeaderBytes) {
        return false;
    }
    const std::uint64_t length = file.GetLength();
    const std::uint64_t position = file.GetPosition();
    const std::uint64_t left = position < length ? length - position : 0;
    const std::uint64_t blockBytes = fileHeader.pixelOffset - sizeof fileHeader;
    if (blockBytes > left) {
        return false;
    }
    auto block = NewBlock(blockBytes);
    if (!ReadAll(file, block.get(), blockBytes)) {
        return false;
    }
    const auto* header = reinterpret_cast<const tagBITMAPINFOHEADER*>(block.get());
    const std::uint64_t imageBytes = kv::dib::ImageBytes(*header);
    if (imageBytes > left - blockBytes || !kv::dib::HoldsPicture(*header, blockBytes, imageBytes)) {
        return false;
    }
    InstallHeader(reinterpret_cast<tagBITMAPINFOHEADER*>(block.release()), blockBytes, 1);
    ComputePaletteSize(m_Header->biBitCount);
    auto image = NewBlock(m_SizeImage);
    if (!ReadAll(file, image.get(), m_SizeImage)) {
        return false;
    }
    m_Image = image.release();
    m_ImageAlloc = 1;
    MakePalette();
    return true;
}

int CDib::Read(CFile* file) {
    Empty();
    try {
        if (file != nullptr && ReadPicture(*file)) {
            return 1;
        }
    } catch (...) {  // an application's file may throw what it likes
        return 0;
    }
    Empty();
    return 0;
}

int CDib::Write(CFile* file) {
    if (file == nullptr || !HasPixels()) {
        return 0;
    }
    const auto info = HeaderAndColours();
    const FileHeader header = kv::dib::MakeFileHeader(info.size(), m_SizeImage);
    try {
        file->Write(&header, sizeof header);
        file->Write(info.data(), static_cast<UINT>(info.size()));
        file->Write(m_Image, m_SizeImage);
    } catch (...) {
        return 0;
    }
    return 1;
}

void CDib::Serialize(CArchive& archive) {
    kv::SerializeThroughFile(archive, *this);
}
