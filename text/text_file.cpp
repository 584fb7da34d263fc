// The object file of a text: the parameter record, the text and the texture names.

#include <array>
#include <cstddef>
#include <iterator>

#include <CDrawText.h>

#include "object_file/effect_block.h"
#include "object_file/field_file.h"

namespace {

constexpr std::array<BYTE, 4> kMagic = {'D', 'T', 'O', '0'};
constexpr std::size_t kRecordSize = 312;

// In stored order. What is skipped are the gaps that alignment leaves in the record.
template <typename Fields>
void VisitRecord(Fields& fields, tagKVFONTINFO& font) {
    fields.Field(font.AntiScale);
    fields.Field(font.AspectMode);
    fields.Field(font.FontName);
    fields.Skip(2);
    for (LONG* field :
         {&font.Size_Height,   &font.Size_WidthPer, &font.Dir,           &font.Space,
          &font.SpPer,         &font.Weight,        &font.Italic,        &font.Format,
          &font.Eria_Width,    &font.Eria_Height,   &font.FitMode,       &font.FitStrMax_Max,
          &font.FitStrMax_Min, &font.FitSpMax_Max,  &font.FitSpMax_Min,  &font.Pos_X,
          &font.Pos_Y,         &font.NextAddress_X, &font.NextAddress_Y, &font.AddressMode}) {
        fields.Field(*field);
    }
    fields.Skip(4);
    kv::VisitEffect(fields, font.BwDrawInfo);
}

bool ReadFields(CFile& file, CDrawText& text) {
    kv::FieldReader reader(file);
    std::array<BYTE, kMagic.size()> magic{};  // any four bytes pass
    return reader.Block(magic) && reader.Record<kRecordSize>([&text](auto& fields) {
        VisitRecord(fields, text.m_Font);
    }) && reader.String(text.m_String) &&
           reader.String(text.m_BodyFile) && reader.String(text.m_EdgeFile) &&
           reader.String(text.m_ShadFile);
}

bool WriteFields(CFile& file, const CDrawText& text) {
    kv::FieldWriter writer(file);
    writer.Block(kMagic);
    tagKVFONTINFO font = text.m_Font;
    writer.Record<kRecordSize>([&font](auto& fields) { VisitRecord(fields, font); });
    for (const CString* string :
         {&text.m_String, &text.m_BodyFile, &text.m_EdgeFile, &text.m_ShadFile}) {
        writer.String(*string);
    }
    return true;
}

}  // namespace

int CDrawText::Read(CFile* file) {
    const int result =
        kv::ObjectFileResult(file, [this](CFile& from) { return ReadFields(from, *this); });
    *std::rbegin(m_Font.FontName) = '\0';  // GetFontName promises an end; a broken file has none
    ConnectAll();  // the strings may have moved, whatever became of the rest
    return result;
}

int CDrawText::Write(CFile* file) const {
    return kv::ObjectFileResult(file, [this](CFile& to) { return WriteFields(to, *this); });
}

void CDrawText::Serialize(CArchive& archive) {
    kv::SerializeThroughFile(archive, *this);
}
