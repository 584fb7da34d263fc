// What holds for every object file: damaged files, failing files, textures, archives.

#include <cstring>
#include <limits>
#include <memory>

#include <CDrawGraph.h>
#include <CDrawText.h>
#include <CImgFile.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/support/memory_file.h"

namespace {

using Bytes = std::vector<BYTE>;

template <class Object>
void Paint(Object& object) {
    object.SetBodyGrad(0, 3, -1, -1, 0xFF2040FF, 0xFFFFE080);
    object.SetEdgeType(1, 3, 0);
    object.SetEdgeCol(0xFF102030);
    object.SetShadType(2, 5, 3, 1);
    object.SetShadText(1, "no such texture.tga");
}

template <class Object>
struct Sample;

template <>
struct Sample<CDrawGraph> {
    static constexpr std::size_t kName = 40 + 8 * 3 + 184;  // the first name's length

    static void Fill(CDrawGraph& shape) {
        const tagPOINT corners[] = {{10, 8}, {50, 20}, {20, 44}};
        shape.SetPolyGon(corners, 3);
        shape.SetFillMode(1);
        shape.SetAntiScale(4);
        Paint(shape);
    }
    // A cut list may be too short for its kind.
    static void Draw(CDrawGraph& shape, CKVFrameBuffer& fb) try {
        shape.DrawFrame(&fb);
    } catch (const CInvalidArgException&) {
        EXPECT_LT(shape.GetSize(), 3);
    }
};

template <>
struct Sample<CDrawText> {
    static constexpr std::size_t kName = 316;

    static void Fill(CDrawText& text) {
        text.SetString("Abc");
        text.SetPos(4, 48);
        text.SetAntiScale(4);
        Paint(text);
    }
    static void Draw(CDrawText& text, CKVFrameBuffer& fb) { text.DrawFrame(nullptr, &fb); }
};

// The picture is not stored, so that the object is given it again.
template <>
struct Sample<CImgFile> {
    static constexpr std::size_t kName = 16;

    static void Fill(CImgFile& image) {
        image.SetParam("a name that is long enough to have a block of its own", 7, -3, 1);
    }
    static void Draw(CImgFile& image, CKVFrameBuffer& fb) {
        CKVFrameBuffer picture(20, 20, 1);
        picture.ClearCol(0xFF8040C0);
        image.SetImage(&picture);
        image.DrawFrame(&fb);
    }
};

// Whatever a read left behind, textures point at the object's own strings. They are followed then.
template <class Object>
void ExpectConnected(Object& object) {
    EXPECT_STREQ(object.EffectRecord().BodyText.File, object.m_BodyFile);
    EXPECT_STREQ(object.EffectRecord().ShadText.File, object.m_ShadFile);
    object.EffectRecord().BodyMode = object.EffectRecord().ShadMode = 2;
}
void ExpectConnected(CImgFile&) {}

template <class Object>
class ObjectFile : public testing::Test {
  protected:
    static Bytes Stored() {
        Object object;
        Sample<Object>::Fill(object);
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
    TypeParam object;
    Sample<TypeParam>::Fill(object);
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

// Cut anywhere, the object can be drawn, and its textures point at its own strings.
TYPED_TEST(ObjectFile, CutFilesFail) {
    const Bytes whole = this->Stored();
    for (std::size_t size = 0; size < whole.size(); ++size) {
        MemoryFile file(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        TypeParam object;
        Sample<TypeParam>::Fill(object);
        ASSERT_EQ(object.Read(&file), 0) << size;
        ExpectConnected(object);
        this->Picture(object);
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
    Sample<TypeParam>::Fill(object);
    EXPECT_EQ(object.Read(nullptr), 0);
    EXPECT_EQ(object.Write(nullptr), 0);
    int writes = 0;
    for (int result = 0; result == 0; ++writes) {
        MemoryFile file;
        file.m_CallsUntilThrow = writes;
        result = object.Write(&file);
        EXPECT_EQ(result == 1, file.m_Bytes == whole);
    }
    EXPECT_GT(writes, 5);
    for (int reads = 0, result = 0; result == 0; ++reads) {
        MemoryFile file(whole);
        file.m_CallsUntilThrow = reads;
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
