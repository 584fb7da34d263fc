// What holds for every object file: damaged files, failing files, textures, archives.

#include <cstring>
#include <limits>
#include <memory>
#include <string>

#include <CDrawGraph.h>
#include <CDrawText.h>
#include <CImgFile.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/fuzz/drawing_bounds.h"
#include "tests/support/memory_file.h"
#include "tests/support/temp_folder.h"

namespace {

using Bytes = std::vector<BYTE>;

constexpr char kNoTexture[] = "no such texture.tga";

// The three paints in turn on body, edge and shadow, and the shadow's forms.
template <typename Object>
void Paint(Object& object, int turn, const char* texture) {
    object.SetEdgeType(turn % 2, 3, 0);
    object.SetShadType(turn % 3, 5, 3, 1);
    if (turn % 3 == 0) {
        object.SetBodyCol(0xFF20A0C0);
        object.SetEdgeText(0, texture);
        object.SetShadGrad(1, 5, 9, 9, 0xFF000000, 0xFF60FF20);
    } else if (turn % 3 == 1) {
        object.SetBodyText(1, texture);
        object.SetEdgeGrad(0, 1, -1, -1, 0xFF00FF00, 0xFFFF0000);
        object.SetShadCol(0xC0504030);
    } else {
        object.SetBodyGrad(0, 3, -1, -1, 0xFF2040FF, 0xFFFFE080);
        object.SetEdgeCol(0xFF102030);
        object.SetShadText(2, texture);
    }
}

// Form by form all there is to store; a paint's turn follows after every kForms.
template <typename Object>
struct Sample;

template <>
struct Sample<CDrawGraph> {
    static constexpr std::size_t kName = 40 + 8 * 4 + 184;  // the first name's length
    static constexpr int kForms = CDrawGraph::kShapeKinds;

    static void Fill(CDrawGraph& shape, int form, const char* texture) {
        const tagPOINT points[] = {{10, 8}, {50, 44}, {12, 10}, {20, 50}};
        shape.SetPolyGon(points, 4);
        shape.m_GraphType = CDrawGraph::kShapeKinds - form % kForms;
        shape.m_DegStart = 20.5;
        shape.m_DegEnd = 250.25;
        shape.SetPenSize(2);
        shape.SetFillMode(form % 2);
        shape.SetAntiScale(4);
        Paint(shape, form / kForms, texture);
    }
    // A list may be too short for its kind.
    static void Draw(CDrawGraph& shape, CKVFrameBuffer& fb) try {
        shape.DrawFrame(&fb);
    } catch (const CInvalidArgException&) {
        EXPECT_LT(shape.GetSize(), 4);
    }
};

template <>
struct Sample<CDrawText> {
    static constexpr std::size_t kName = 316;
    static constexpr int kForms = 8;  // directions, as they come and fitted

    static void Fill(CDrawText& text, int form, const char* texture) {
        text.SetString("Ab \x93\xFA");
        text.SetDir(form % 4);
        text.SetFitMode(form % kForms / 4);
        text.SetEria(40, 40);
        text.SetSize(20, 100);
        text.SetPos(8, form % 2 == 0 ? 40 : 8);
        text.SetAntiScale(4);
        Paint(text, form / kForms, texture);
    }
    static void Draw(CDrawText& text, CKVFrameBuffer& fb) { text.DrawFrame(nullptr, &fb); }
};

// The picture is not stored: it comes from its file, or is given again.
template <>
struct Sample<CImgFile> {
    static constexpr std::size_t kName = 16;
    static constexpr int kForms = 1;

    static void Fill(CImgFile& image, int form, const char* texture) {
        image.SetParam(texture, 7, -3, form);
    }
    static void Draw(CImgFile& image, CKVFrameBuffer& fb) {
        if (image.LoadImg() != 0) {
            CKVFrameBuffer picture(20, 20, 1);
            picture.ClearCol(0xFF8040C0);
            image.SetImage(&picture);
        }
        image.DrawFrame(&fb);
    }
};

void SaveTexture(const std::string& path) {
    CKVFrameBuffer texture(9, 7, 1);
    for (DWORD i = 0; i < 9 * 7; ++i) {
        texture.GetBufferDWord()[i] = 0xC0000000 + i * 0x00030507;
    }
    ASSERT_EQ(CImgFile().SaveImage(&texture, path.c_str()), 0);
}

// Whatever a read left behind, textures point at the object's own strings.
template <typename Object>
void ExpectConnected(Object& object) {
    EXPECT_STREQ(object.EffectRecord().BodyText.File, object.m_BodyFile);
    EXPECT_STREQ(object.EffectRecord().EdgeText.File, object.m_EdgeFile);
    EXPECT_STREQ(object.EffectRecord().ShadText.File, object.m_ShadFile);
}
void ExpectConnected(CImgFile&) {}

template <typename Object>
void FollowTextures(Object& object) {
    object.EffectRecord().BodyMode = object.EffectRecord().ShadMode = 2;
}
void FollowTextures(CImgFile&) {}

template <typename Object>
class ObjectFile : public testing::Test {
  protected:
    static Bytes Stored() {
        Object object;
        Sample<Object>::Fill(object, 1, kNoTexture);
        MemoryFile file;
        EXPECT_EQ(object.Write(&file), 1);
        return file.m_Bytes;
    }
    static Bytes Picture(Object& object) {
        CKVFrameBuffer fb(64, 64, 1);
        Sample<Object>::Draw(object, fb);
        const BYTE* const pixels = fb.GetBufferByte();
        return {pixels, pixels + 64 * 64 * 4};
    }
};

using Objects = testing::Types<CDrawGraph, CDrawText, CImgFile>;
TYPED_TEST_SUITE(ObjectFile, Objects);

TYPED_TEST(ObjectFile, ObjectsOfOneFileDrawAsBefore) {
    const TempFolder folder;
    const std::string texture = folder / "texture.tga";
    SaveTexture(texture);
    for (int form = 0; form < 3 * Sample<TypeParam>::kForms; ++form) {
        SCOPED_TRACE(form);
        TypeParam object;
        Sample<TypeParam>::Fill(object, form, texture.c_str());
        MemoryFile file;
        EXPECT_EQ(TypeParam().Write(&file), 1);
        CArchive storing(&file, CArchive::store);
        object.Serialize(storing);
        file.m_At = 0;

        CArchive loading(&file, CArchive::load);
        const std::unique_ptr<CObject> made(object.GetRuntimeClass()->CreateObject());
        auto& read = dynamic_cast<TypeParam&>(*made);
        read.Serialize(loading);
        read.Serialize(loading);
        EXPECT_EQ(file.m_At, file.m_Bytes.size());
        const Bytes picture = this->Picture(object);
        EXPECT_NE(picture, Bytes(picture.size(), 0));
        EXPECT_EQ(this->Picture(read), picture);
    }
}

// Cut anywhere, the object can be drawn, and its textures point at its own strings.
TYPED_TEST(ObjectFile, CutFilesFail) {
    const Bytes whole = this->Stored();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        MemoryFile file(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        TypeParam object;
        Sample<TypeParam>::Fill(object, 1, kNoTexture);
        ASSERT_EQ(object.Read(&file), 0) << size;
        ExpectConnected(object);
        FollowTextures(object);
        this->Picture(object);
    }
}

TYPED_TEST(ObjectFile, ChangedFilesCanBeDrawn) {
    const Bytes whole = this->Stored();
    for (std::size_t at = 0; at < whole.size(); ++at) {
        for (const BYTE change : {BYTE{0x01}, BYTE{0x80}, BYTE{0xFF}}) {
            MemoryFile file(whole);
            file.m_Bytes[at] ^= change;
            TypeParam object;
            object.Read(&file);
            ExpectConnected(object);
            if (BoundDrawing(object)) {
                this->Picture(object);
            }
        }
    }
}

TYPED_TEST(ObjectFile, LengthsThatLieFail) {
    for (const LONG length :
         {-1, std::numeric_limits<LONG>::min(), 1 << 20, std::numeric_limits<LONG>::max()}) {
        MemoryFile file(this->Stored());
        std::memcpy(&file.m_Bytes[Sample<TypeParam>::kName], &length, 4);
        TypeParam object;
        EXPECT_EQ(object.Read(&file), 0) << length;
        this->Picture(object);
    }
}

TYPED_TEST(ObjectFile, FailingFilesFail) {
    const Bytes whole = this->Stored();
    TypeParam object;
    Sample<TypeParam>::Fill(object, 1, kNoTexture);
    EXPECT_EQ(object.Read(nullptr), 0);
    EXPECT_EQ(object.Write(nullptr), 0);
    int writes = 0;
    for (int result = 0; result == 0; ++writes) {
        MemoryFile file;
        file.m_CallsUntilThrow = writes;
        file.m_ThrowsAnything = writes % 2 == 1;
        result = object.Write(&file);
        EXPECT_EQ(result == 1, file.m_Bytes == whole);
    }
    EXPECT_GT(writes, 5);
    for (int reads = 0, result = 0; result == 0; ++reads) {
        MemoryFile file(whole);
        file.m_CallsUntilThrow = reads;
        file.m_ThrowsAnything = reads % 2 == 1;
        TypeParam read;
        result = read.Read(&file);
        EXPECT_EQ(result == 1, file.m_At == whole.size());
    }
}

TEST(ObjectFileOfAShape, CountsThatLie) {
    CDrawGraph shape;
    const tagRECT rect{1, 2, 3, 4};
    shape.SetRect(&rect);
    MemoryFile file;
    ASSERT_EQ(shape.Write(&file), 1);
    ASSERT_EQ(file.m_Bytes.size(), 252U);

    // As many points as the rest of the file holds, then its end.
    const LONG huge = std::numeric_limits<LONG>::max();
    std::memcpy(&file.m_Bytes[36], &huge, 4);
    file.m_At = 0;
    EXPECT_EQ(shape.Read(&file), 0);
    EXPECT_EQ(shape.GetSize(), (252 - 40) / 8);

    // None: the effect begins where the points would.
    const LONG none = -1;
    std::memcpy(&file.m_Bytes[36], &none, 4);
    file.m_Bytes.erase(file.m_Bytes.begin() + 40, file.m_Bytes.begin() + 56);
    file.m_At = 0;
    EXPECT_EQ(shape.Read(&file), 1);
    EXPECT_EQ(shape.GetSize(), 0);
    EXPECT_EQ(shape.GetGraphType(), CDrawGraph::kRect);
}

}  // namespace
