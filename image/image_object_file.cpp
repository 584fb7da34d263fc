// The object file of an image: position, copy mode and the picture's path, not the picture.

#include <array>

#include <CImgFile.h>

#include "object_file/field_file.h"

namespace {

constexpr std::array<BYTE, 4> kMagic = {'I', 'F', 'O', '0'};

bool ReadFields(CFile& file, CImgFile& image) {
    kv::FieldReader reader(file);
    std::array<BYTE, kMagic.size()> magic{};  // any four bytes pass
    return reader.Block(magic) && reader.Int32(image.m_AddressX) &&
           reader.Int32(image.m_AddressY) && reader.Int32(image.m_CopyMode) &&
           reader.String(image.m_FileName);
}

bool WriteFields(CFile& file, const CImgFile& image) {
    kv::FieldWriter writer(file);
    writer.Block(kMagic);
    writer.Int32(image.m_AddressX);
    writer.Int32(image.m_AddressY);
    writer.Int32(image.m_CopyMode);
    writer.String(image.m_FileName);
    return true;
}

}  // namespace

int CImgFile::Read(CFile* file) {
    return kv::ObjectFileResult(file, [this](CFile& from) { return ReadFields(from, *this); });
}

int CImgFile::Write(CFile* file) const {
    return kv::ObjectFileResult(file, [this](CFile& to) { return WriteFields(to, *this); });
}

void CImgFile::Serialize(CArchive& archive) {
    kv::SerializeThroughFile(archive, *this);
}
