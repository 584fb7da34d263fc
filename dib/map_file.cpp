// Bitmaps in mapped files.

#include <algorithm>
#include <cstring>
#include <utility>

#include <CDib.h>

#include "dib/layout.h"
#include "platform/system/file_mapping.h"

using kv::dib::FileHeader;
using kv::dib::kHeaderBytes;

namespace {

// A file being mapped; closed again unless its handles are taken over.
struct Mapped {
    HANDLE file = nullptr;
    HANDLE mapping = nullptr;
    void* view = nullptr;

    Mapped() = default;
    Mapped(const Mapped&) = delete;
    Mapped& operator=(const Mapped&) = delete;
    ~Mapped() { kv::CloseMapped(file, mapping, view); }

    bool Map(DWORD protection, DWORD access, std::uint64_t size) {
        mapping = file != nullptr ? CreateFileMappingA(file, protection, size) : nullptr;
        view = mapping != nullptr ? MapViewOfFile(mapping, access) : nullptr;
        return view != nullptr;
    }

    void GiveTo(CDib& dib) {
        dib.m_File = std::exchange(file, nullptr);
        dib.m_Mapping = std::exchange(mapping, nullptr);
        dib.m_View = std::exchange(view, nullptr);
    }
};

// The rows follow the colours, which follow the header, 14 bytes into the file.
bool HoldsBitmap(std::span<const BYTE> file) {
    FileHeader fileHeader;
    tagBITMAPINFOHEADER header;
    if (file.size() < sizeof fileHeader + sizeof header) {
        return false;
    }
    std::memcpy(&fileHeader, file.data(), sizeof fileHeader);
    std::memcpy(&header, file.data() + sizeof fileHeader, sizeof header);
    const auto usual = kv::dib::DefaultColours(header.biBitCount);
    const std::uint64_t entries =
        header.biClrUsed != 0 ? header.biClrUsed : static_cast<std::uint64_t>(usual.value_or(0));
    const std::uint64_t block = kHeaderBytes + entries * sizeof(tagRGBQUAD);
    const std::uint64_t image = kv::dib::ImageBytes(header);
    return fileHeader.signature == kv::dib::kSignature && block <= file.size() &&
           image <= file.size() && sizeof fileHeader + block + image <= file.size() &&
           kv::dib::HoldsPicture(header, block, image);
}

}  // namespace

int CDib::AttachMapFile(const char* name, int share) {
    Mapped mapped;
    mapped.file = CreateFileA(name, GENERIC_READ, share != 0 ? FILE_SHARE_READ : 0, OPEN_EXISTING);
    if (!mapped.Map(PAGE_READONLY, FILE_MAP_READ, 0)) {
        return 0;
    }
    auto* view = static_cast<BYTE*>(mapped.view);
    if (!HoldsBitmap({view, kv::ViewSize(view)})) {
        return 0;
    }
    Empty();
    mapped.GiveTo(*this);
    AttachBlock(view + sizeof(FileHeader), kv::ViewSize(view) - sizeof(FileHeader));
    return 1;
}

int CDib::CopyToMapFile(const char* name) {
    if (!HasPixels()) {
        return 0;
    }
    const auto info = HeaderAndColours();
    const FileHeader header = kv::dib::MakeFileHeader(info.size(), m_SizeImage);
    Mapped mapped;
    mapped.file = CreateFileA(name, GENERIC_READ | GENERIC_WRITE, 0, CREATE_ALWAYS);
    if (!mapped.Map(PAGE_READWRITE, FILE_MAP_WRITE,
                    std::uint64_t{header.pixelOffset} + m_SizeImage)) {
        return 0;
    }
    auto* view = static_cast<BYTE*>(mapped.view);
    BYTE* image = view + header.pixelOffset;
    std::memcpy(view, &header, sizeof header);
    std::memcpy(view + sizeof header, info.data(), info.size());
    std::memcpy(image, m_Image, m_SizeImage);
    const std::size_t infoBytes = info.size();
    const DWORD imageBytes = m_SizeImage;
    Empty();
    InstallHeader(reinterpret_cast<tagBITMAPINFOHEADER*>(view + sizeof header), infoBytes, 0);
    m_Image = image;
    m_SizeImage = std::min(m_SizeImage, imageBytes);  // the header may tell more
    mapped.GiveTo(*this);
    ComputePaletteSize(m_Header->biBitCount);
    MakePalette();
    return 1;
}
