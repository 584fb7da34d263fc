// The bytes of the object files, laid out by hand: every field at its offset, all values distinct.

#include <cstring>
#include <string>

#include <CDrawGraph.h>
#include <CDrawText.h>
#include <CImgFile.h>
#include <gtest/gtest.h>

#include "tests/support/memory_file.h"

namespace {

using Bytes = std::vector<BYTE>;

class Layout {
  public:
    explicit Layout(const char* magic) : bytes(magic, magic + 4) {}

    // Gives the field at this offset a value of its own, here and in the object.
    template <typename Integer>
    void Number(std::size_t offset, Integer& field) {
        field = static_cast<Integer>(0x80A0B000 + offset);
        Put(offset, field);
    }
    template <typename Value>
    void Put(std::size_t offset, Value value) {
        bytes.resize(std::max(bytes.size(), offset + sizeof value));
        std::memcpy(&bytes[offset], &value, sizeof value);  // the test machine is little-endian
    }
    void Append(const CString& text) {
        Put(bytes.size(), text.GetLength());
        const std::string characters(text);
        bytes.insert(bytes.end(), characters.begin(), characters.end());
    }
    void Effect(std::size_t at, tagKVBWDRAWINFO& r) {
        LONG* const fields[] = {&r.AntiScale,        &r.Pos_X,         &r.Pos_Y,
                                &r.EdgeType_Type,    &r.EdgeType_Size, &r.EdgeType_SoftPen,
                                &r.ShadType_Type,    &r.ShadType_Size, &r.ShadType_SoftSize,
                                &r.ShadType_SoftPen, &r.BodyMode,      &r.EdgeMode,
                                &r.ShadMode};
        for (std::size_t i = 0; i < std::size(fields); ++i) {
            Number(at + 4 * i, *fields[i]);
        }
        Number(at + 52, r.BodyCol);
        Number(at + 56, r.EdgeCol);
        Number(at + 60, r.ShadCol);
        tagGRADINFO* const grads[] = {&r.BodyGrad, &r.EdgeGrad, &r.ShadGrad};
        tagTEXTUREINFO* const textures[] = {&r.BodyText, &r.EdgeText, &r.ShadText};
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t grad = at + 64 + 24 * i;
            Number(grad, grads[i]->Mode);
            Number(grad + 4, grads[i]->Patern);
            Number(grad + 8, grads[i]->x);
            Number(grad + 12, grads[i]->y);
            Number(grad + 16, grads[i]->Col1);
            Number(grad + 20, grads[i]->Col2);
            Number(at + 136 + 16 * i, textures[i]->Mode);
        }
        bytes.resize(at + 184);
    }

    Bytes bytes;
};

template <typename Object>
void FillNames(Layout& layout, Object& object) {
    object.m_BodyFile = "body.tga";
    object.m_EdgeFile = "";
    object.m_ShadFile = "\x95\x5C\x8E\xA6.pct";
    layout.Append(object.m_BodyFile);
    layout.Append(object.m_EdgeFile);
    layout.Append(object.m_ShadFile);
}

Layout FilledShape(CDrawGraph& shape) {
    Layout layout("DGO0");
    layout.Number(4, shape.m_GraphType);
    layout.Number(8, shape.m_FillMode);
    layout.Number(12, shape.m_PenSize);
    layout.Number(16, shape.m_PenType);
    layout.Put(20, shape.m_DegStart = -12.75);
    layout.Put(28, shape.m_DegEnd = 1e300);
    constexpr int kPoints = 1300;  // more than are moved at once
    layout.Put(36, kPoints);
    for (int i = 0; i < kPoints; ++i) {
        const tagPOINT point{i - 7, -i * 65537};
        shape.m_Point.Add(point);
        layout.Put(layout.bytes.size(), point);
    }
    layout.Effect(40 + 8 * kPoints, shape.m_Info);
    FillNames(layout, shape);
    return layout;
}

Layout FilledText(CDrawText& text) {
    Layout layout("DTO0");
    tagKVFONTINFO& font = text.m_Font;
    layout.Number(4, font.AntiScale);
    layout.Number(8, font.AspectMode);
    for (std::size_t i = 0; i < sizeof font.FontName - 1; ++i) {
        layout.Put(12 + i, font.FontName[i] = static_cast<char>(0x81 + i));
    }
    LONG* const fields[] = {
        &font.Size_Height,   &font.Size_WidthPer, &font.Dir,           &font.Space,
        &font.SpPer,         &font.Weight,        &font.Italic,        &font.Format,
        &font.Eria_Width,    &font.Eria_Height,   &font.FitMode,       &font.FitStrMax_Max,
        &font.FitStrMax_Min, &font.FitSpMax_Max,  &font.FitSpMax_Min,  &font.Pos_X,
        &font.Pos_Y,         &font.NextAddress_X, &font.NextAddress_Y, &font.AddressMode};
    for (std::size_t i = 0; i < std::size(fields); ++i) {
        layout.Number(48 + 4 * i, *fields[i]);
    }
    layout.Effect(132, font.BwDrawInfo);
    text.m_String = "\x93\xFA\x96\x7B Text";
    layout.Append(text.m_String);
    FillNames(layout, text);
    return layout;
}

Layout FilledImage(CImgFile& image) {
    Layout layout("IFO0");
    layout.Number(4, image.m_AddressX);
    layout.Number(8, image.m_AddressY);
    layout.Number(12, image.m_CopyMode);
    image.m_FileName = "abc";
    layout.Append(image.m_FileName);
    return layout;
}

// What is written is the layout; what is read from the layout writes the same, so every field came
// over. The reserved bytes of the layout are then no zeros, and the magic is another.
template <typename Object, typename Fill>
void CheckLayout(Fill fill, const std::vector<std::size_t>& reserved) {
    Object object;
    const Bytes expected = fill(object).bytes;
    MemoryFile written;
    EXPECT_EQ(object.Write(&written), 1);
    EXPECT_EQ(written.m_Bytes, expected);

    MemoryFile dirty(expected);
    dirty.m_Bytes[0] = 'x';
    for (const std::size_t offset : reserved) {
        dirty.m_Bytes[offset] = 0xEE;
    }
    Object read;
    EXPECT_EQ(read.Read(&dirty), 1);
    EXPECT_EQ(dirty.m_At, expected.size());
    MemoryFile again;
    EXPECT_EQ(read.Write(&again), 1);
    EXPECT_EQ(again.m_Bytes, expected);
}

TEST(ObjectFileLayout, Shape) {
    const std::size_t effect = 40 + 8 * 1300;
    CheckLayout<CDrawGraph>(FilledShape,
                            {effect + 140, effect + 144, effect + 151, effect + 160, effect + 183});
}

TEST(ObjectFileLayout, Text) {
    constexpr std::size_t kNameEnd = 12 + 33;  // a font's name always ends
    CheckLayout<CDrawText>(FilledText, {kNameEnd, 46, 47, 128, 131, 272, 276, 292, 308, 315});
}

TEST(ObjectFileLayout, Image) {
    CheckLayout<CImgFile>(FilledImage, {});
}

TEST(ObjectFileLayout, NewShapeTakes236Bytes) {
    MemoryFile file;
    EXPECT_EQ(CDrawGraph().Write(&file), 1);
    EXPECT_EQ(file.m_Bytes.size(), 236U);
}

}  // namespace
