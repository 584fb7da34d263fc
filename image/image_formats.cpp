#include <CImgFile.h>
#include <CKVPictImage.h>
#include <CKVTargaImage.h>
#include <platform/exception.h>

#include "platform/text/mbcs.h"

namespace {

enum class Format { kUnknown, kTarga, kPict, kBitmap, kJpeg };

Format FormatOf(const char* path) {
    constexpr struct {
        const char* extension;
        Format format;
    } kFormats[] = {{".tga", Format::kTarga},
                    {".pct", Format::kPict},
                    {".bmp", Format::kBitmap},
                    {".jpg", Format::kJpeg}};
    char drive[3], directory[256], name[256], extension[256];
    if (kv::_splitpath_s(path, drive, directory, name, extension) != 0) {
        return Format::kUnknown;
    }
    for (const auto& known : kFormats) {
        if (kv::_mbsicmp(extension, known.extension) == 0) {
            return known.format;
        }
    }
    return Format::kUnknown;
}

template <typename Codec>
std::int64_t LoadBy(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    Codec codec;
    if (codec.LoadImg(name, fb) != 0) {
        return -1;
    }
    *keyFlag = codec.GetKeyFlag();
    return 0;
}

template <typename Codec>
int SaveBy(const char* name, const CKVFrameBuffer* fb, LONG mode) {
    try {
        return Codec().SaveImage(name, fb, mode) == 0 ? 0 : -1;
    } catch (const CException&) {
        return -1;  // of a target in which one cannot seek
    }
}

}  // namespace

std::int64_t CImgFile::LoadImg(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    if (fb == nullptr) {
        return -1;
    }
    fb->DeleteFrameBuffer();
    LONG dropped = 0;
    LONG* const flag = keyFlag != nullptr ? keyFlag : &dropped;
    std::int64_t result = -1;
    switch (FormatOf(name)) {
        case Format::kTarga:
            result = TgaImageLoad(name, fb, flag);
            break;
        case Format::kPict:
            result = PictImageLoad(name, fb, flag);
            break;
        case Format::kBitmap:
            result = BmpImageLoad(name, fb, flag);
            break;
        case Format::kJpeg:
            result = JpegImageLoad(name, fb, flag);
            break;
        case Format::kUnknown:
            break;
    }
    if (result != 0) {
        fb->DeleteFrameBuffer();  // of a broken file the part that was read
    }
    return result;
}

int CImgFile::ImageFileLoad() {
    return static_cast<int>(LoadImg(m_FileName, &m_Img, &m_KeyFlag));
}

int CImgFile::ImageFileSave(const char* name, const CKVFrameBuffer* fb, LONG a, LONG b) {
    switch (FormatOf(name)) {
        case Format::kTarga:
            return TgaImageSave(name, fb);
        case Format::kPict:
            return PictImageSave(name, fb);
        case Format::kBitmap:
            return BmpImageSave(name, fb);
        case Format::kJpeg:
            return JpegImageSave(name, fb, a, b);
        case Format::kUnknown:
            break;
    }
    return -1;
}

int CImgFile::TgaImageLoad(const char* name) {
    return static_cast<int>(TgaImageLoad(name, &m_Img, &m_KeyFlag));
}

int CImgFile::PictImageLoad(const char* name) {
    return static_cast<int>(PictImageLoad(name, &m_Img, &m_KeyFlag));
}

int CImgFile::BmpImageLoad(const char* name) {
    return static_cast<int>(BmpImageLoad(name, &m_Img, &m_KeyFlag));
}

int CImgFile::JpegImageLoad(const char* name) {
    return static_cast<int>(JpegImageLoad(name, &m_Img, &m_KeyFlag));
}

std::int64_t CImgFile::TgaImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    return LoadBy<CKVTargaImage>(name, fb, keyFlag);
}

std::int64_t CImgFile::PictImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    return LoadBy<CKVPictImage>(name, fb, keyFlag);
}

std::int64_t CImgFile::JpegImageLoad(const char* /*name*/, CKVFrameBuffer* /*fb*/,
                                     LONG* /*keyFlag*/) {
    return -1;
}

int CImgFile::TgaImageSave(const char* name, const CKVFrameBuffer* fb) {
    return SaveBy<CKVTargaImage>(name, fb, 1);
}

int CImgFile::PictImageSave(const char* name, const CKVFrameBuffer* fb) {
    return SaveBy<CKVPictImage>(name, fb, 0);
}

int CImgFile::JpegImageSave(const char* /*name*/, const CKVFrameBuffer* /*fb*/, LONG /*a*/,
                            LONG /*b*/) {
    return -1;
}
