// The image object as data, and its picture; the formats of files are in image_formats.cpp.

#include "CImgFile.h"

#include <platform/exception.h>

#include "platform/system/class_record.h"

namespace {

// False when there is no memory for the name; the one before it stays.
bool Store(CString& fileName, const char* name) {
    try {
        fileName = name;
        return true;
    } catch (const CMemoryException&) {
        return false;
    }
}

}  // namespace

KV_DEFINE_CLASS_RECORD(CImgFile, VERSIONABLE_SCHEMA);

CImgFile::CImgFile(const char* name, LONG x, LONG y, LONG mode) {
    SetParam(name, x, y, mode);
}

CImgFile::CImgFile(const CImgFile& other) : CObject() {
    *this = other;
}

CImgFile& CImgFile::operator=(const CImgFile& other) {
    m_FileName = other.m_FileName;
    m_AddressX = other.m_AddressX;
    m_AddressY = other.m_AddressY;
    m_CopyMode = other.m_CopyMode;
    m_Img = other.m_Img;
    return *this;
}

void CImgFile::SetParam(const char* name, LONG x, LONG y, LONG mode) {
    SetFileName(name);
    SetAddress(x, y);
    SetCopyMode(mode);
}

void CImgFile::SetAddress(LONG x, LONG y) {
    m_AddressX = x;
    m_AddressY = y;
}

void CImgFile::GetAddress(LONG* x, LONG* y) const {
    *x = m_AddressX;
    *y = m_AddressY;
}

void CImgFile::GetSize(LONG* w, LONG* h) const {
    *w = m_Img.m_Width;
    *h = m_Img.m_Height;
}

int CImgFile::LoadImg() {
    return m_FileName.IsEmpty() ? -1 : ImageFileLoad();
}

int CImgFile::LoadImg(const char* name) {
    return Store(m_FileName, name) ? LoadImg() : -1;
}

int CImgFile::SaveImage() {
    return m_Img.IsBuffer() != 0 ? -1 : SaveImage(&m_Img);
}

int CImgFile::SaveImage(const char* name) {
    return SaveImage(name, 0, 0);
}

int CImgFile::SaveImage(const char* name, LONG a, LONG b) {
    return Store(m_FileName, name) && m_Img.IsBuffer() == 0 ? SaveByName(&m_Img, a, b) : -1;
}

int CImgFile::SaveImage(const CKVFrameBuffer* fb) {
    return SaveByName(fb, 0, 0);
}

int CImgFile::SaveImage(const CKVFrameBuffer* fb, const char* name) {
    return SaveImage(fb, name, 0, 0);
}

int CImgFile::SaveImage(const CKVFrameBuffer* fb, const char* name, LONG a, LONG b) {
    return Store(m_FileName, name) ? SaveByName(fb, a, b) : -1;
}

int CImgFile::SaveByName(const CKVFrameBuffer* fb, LONG a, LONG b) {
    return m_FileName.IsEmpty() ? -1 : ImageFileSave(m_FileName, fb, a, b);
}

int CImgFile::DeleteImage() {
    m_Img.DeleteFrameBuffer();
    return 0;
}

int CImgFile::SetImage(const CKVFrameBuffer* fb) {
    if (fb == nullptr || fb->IsBuffer() != 0) {
        return -1;
    }
    if (fb == &m_Img) {
        return 0;
    }
    const CSize size = fb->GetWH();
    m_Img.DeleteFrameBuffer();
    if (m_Img.CreateFrameBuffer(size.cx, size.cy, 1) != 0) {
        return -1;
    }
    return m_Img.FbCopy(fb, 0, 0, size.cx, size.cy, 0, 0, 0, nullptr);
}

int CImgFile::CopyImage(const CKVFrameBuffer* src, LONG sx, LONG sy, LONG w, LONG h, LONG dx,
                        LONG dy, LONG mode, CBox* box) {
    return m_Img.FbCopy(src, sx, sy, w, h, dx, dy, mode, box);  // which makes all the tests
}

int CImgFile::DrawFrame(CKVFrameBuffer* target) {
    const int result = target == nullptr
                           ? -1
                           : target->FbCopy(&m_Img, 0, 0, m_Img.m_Width, m_Img.m_Height, m_AddressX,
                                            m_AddressY, m_CopyMode, &m_DispEria);
    if (result != 0) {
        m_DispEria = CBox();
    }
    return result;
}
