// Small copies of a picture as files of their own.

#include <CImgFile.h>
#include <platform/exception.h>

#include "platform/text/mbcs.h"

int CImgFile::SaveIcon(const char* name, LONG width, LONG height) try {
    if (m_Img.IsBuffer() != 0 && LoadImg() != 0) {
        return -1;
    }
    CImgFile icon(name, 0, 0, 0);
    if (m_Img.SizeChange(&icon.m_Img, width, height) != 0 || icon.m_FileName.IsEmpty() ||
        icon.m_Img.IsBuffer() != 0) {
        return -1;
    }
    return icon.ImageFileSave(icon.m_FileName, &icon.m_Img, 0, 0);
} catch (const CMemoryException&) {
    return -1;
}

int CImgFile::SaveIconBmp(LONG width, LONG height) {
    char drive[3], directory[256], name[256], extension[256];
    if (m_FileName.IsEmpty() ||
        kv::_splitpath_s(m_FileName, drive, directory, name, extension) != 0) {
        return -1;
    }
    char path[260];
    if (kv::_makepath_s(path, drive, directory, name, "_icon.bmp") != 0) {
        return -1;
    }
    return SaveIcon(path, width, height);
}
