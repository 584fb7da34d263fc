// The picture formats: a row each, chosen by the extension of a path.

#include <CImgFile.h>
#include <CKVPictImage.h>
#include <CKVTargaImage.h>
#include <platform/exception.h>

#include "image/bmp_image.h"
#include "platform/text/mbcs.h"

namespace {

template <typename Codec>
std::int64_t LoadBy(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    Codec codec;
    if (codec.LoadImg(name, fb) != 0) {
        return -1;
    }
    *keyFlag = codec.GetKeyFlag();
    return 0;
}

template <typename Codec, LONG kMode>
int SaveBy(const char* name, const CKVFrameBuffer* fb) {
    try {
        return Codec().SaveImage(name, fb, kMode) == 0 ? 0 : -1;
    } catch (const CException&) {
        return -1;  // of a target in which one cannot seek
    }
}

// Both calls answer 0, or -1 whatever the cause.
struct Format {
    const char* extension;
    std::int64_t (*load)(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);
    int (*save)(const char* name, const CKVFrameBuffer* fb);
};

constexpr Format kTarga{".tga", LoadBy<CKVTargaImage>, SaveBy<CKVTargaImage, 1>};
constexpr Format kPict{".pct", LoadBy<CKVPictImage>, SaveBy<CKVPictImage, 0>};
constexpr Format kBitmap{".bmp", kv::LoadBmpImage, kv::SaveBmpImage};

// ".jpg" is refused as every extension without a row is.
constexpr Format kFormats[] = {kTarga, kPict, kBitmap};

// Null for a format that is not known.
const Format* FormatOf(const char* path) {
    char drive[3], directory[256], name[256], extension[256];
    if (kv::_splitpath_s(path, drive, directory, name, extension) != 0) {
        return nullptr;
    }
    for (const Format& format : kFormats) {
        if (kv::_mbsicmp(extension, format.extension) == 0) {
            return &format;
        }
    }
    return nullptr;
}

}  // namespace

std::int64_t CImgFile::LoadImg(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    if (fb == nullptr) {
        return -1;
    }
    fb->DeleteFrameBuffer();
    LONG dropped = 0;
    const Format* const format = FormatOf(name);
    if (format == nullptr) {
        return -1;
    }
    const std::int64_t result = format->load(name, fb, keyFlag != nullptr ? keyFlag : &dropped);
    if (result != 0) {
        fb->DeleteFrameBuffer();  // of a broken file the part that was read
    }
    return result;
}

int CImgFile::ImageFileLoad() {
    return static_cast<int>(LoadImg(m_FileName, &m_Img, &m_KeyFlag));
}

int CImgFile::ImageFileSave(const char* name, const CKVFrameBuffer* fb, LONG /*a*/, LONG /*b*/) {
    const Format* const format = FormatOf(name);
    return format != nullptr ? format->save(name, fb) : -1;
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
    return kTarga.load(name, fb, keyFlag);
}

std::int64_t CImgFile::PictImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    return kPict.load(name, fb, keyFlag);
}

std::int64_t CImgFile::BmpImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag) {
    return kBitmap.load(name, fb, keyFlag);
}

std::int64_t CImgFile::JpegImageLoad(const char* /*name*/, CKVFrameBuffer* /*fb*/,
                                     LONG* /*keyFlag*/) {
    return -1;
}

int CImgFile::TgaImageSave(const char* name, const CKVFrameBuffer* fb) {
    return kTarga.save(name, fb);
}

int CImgFile::PictImageSave(const char* name, const CKVFrameBuffer* fb) {
    return kPict.save(name, fb);
}

int CImgFile::BmpImageSave(const char* name, const CKVFrameBuffer* fb) {
    return kBitmap.save(name, fb);
}

int CImgFile::JpegImageSave(const char* /*name*/, const CKVFrameBuffer* /*fb*/, LONG /*a*/,
                            LONG /*b*/) {
    return -1;
}
