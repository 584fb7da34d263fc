#include <cstring>
#include <limits>

#include <CBox.h>
#include <CBwDrawInfo.h>
#include <KVTextureAccess.h>
#include <gtest/gtest.h>
#include <platform/string.h>

#include "tests/effect/coverage.h"

namespace {

using effect_test::BytesOf;
using effect_test::Of;
using effect_test::Quad;

TEST(Box, ClipsOneAxisAfterTheOther) {
    const struct {
        CBox box, clipped;
        int changed;
    } cases[] = {
        {{-10, 5, 30, 200}, {0, 5, 20, 95}, 1},
        {{3, 4, 97, 96}, {3, 4, 97, 96}, 0},
        {{-50, 0, 10, 10}, {0, 0, 0, 10}, 1},
        {{std::numeric_limits<LONG>::min(), 0, -5, 10}, {0, 0, 0, 10}, 1},
        {{150, 0, 10, 10}, {150, 0, 0, 10}, 1},
        {{0, 0, 10, -3}, {0, 0, 10, 0}, 1},
        {{90, 0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF}, {90, 0x7FFFFFFF, 10, 0}, 1},
    };
    for (const auto& c : cases) {
        CBox box = c.box;
        EXPECT_EQ(box.ClipBox(100, 100), c.changed);
        EXPECT_EQ(Of(box), Of(c.clipped));
        EXPECT_EQ(box.ChEria(), c.clipped.width >= 1 && c.clipped.height >= 1 ? 1 : 0);
    }
}

TEST(Box, JoinsAndConverts) {
    CBox box(0, 0, 10, 10);
    box.MaxBox(CBox(20, 20, 5, 5));
    EXPECT_EQ(Of(box), (Quad{0, 0, 25, 25}));
    box.MaxBox(CBox(-4, 2, 0, 0));  // an empty box counts too
    EXPECT_EQ(Of(box), (Quad{-4, 0, 29, 25}));
    box.SetBox(CRect(3, 4, 10, 30));
    EXPECT_EQ(Of(box), (Quad{3, 4, 7, 26}));
    EXPECT_EQ(box.GetRect(), CRect(3, 4, 10, 30));
    EXPECT_EQ(Of(CBox(CPoint(1, 2), CPoint(3, 4))), (Quad{1, 2, 2, 2}));
}

template <typename Bitmap>
void ExpectLifecycle() {
    Bitmap bitmap;
    EXPECT_EQ(bitmap.Delete(), 3);
    EXPECT_EQ(bitmap.Create(0, 5), 4);
    EXPECT_EQ(bitmap.Create(5, -1), 4);
    EXPECT_EQ(bitmap.Create(0x7FFFFFFF, 0x7FFFFFFF), 2);
    EXPECT_EQ(bitmap.Bits, nullptr);
    EXPECT_EQ(bitmap.Create(5, 3), 0);
    bitmap.Bits[1] = 77;
    EXPECT_EQ(bitmap.Create(0, 0), 1);
    EXPECT_EQ(bitmap.Width, 5);

    Bitmap copy(bitmap), assigned;
    assigned = copy;
    assigned.Bits[1] = 1;
    EXPECT_EQ(copy.Bits[1], 77);
    EXPECT_EQ(bitmap.Delete(), 0);
    EXPECT_EQ(bitmap.Width + bitmap.Height, 0);
    copy = bitmap;
    EXPECT_EQ(copy.Base, nullptr);
}

TEST(MaskBitmaps, PitchAndLifecycle) {
    const LONG cases[][4] = {
        {1, 1, 2, 2}, {16, 1, 2, 16}, {17, 3, 4, 18}, {3, 5, 2, 4}, {4, 5, 2, 4}};
    for (const auto& [width, height, monoPitch, grayPitch] : cases) {
        CKVMonoBitmap mono;
        CKVGrayBitmap gray;
        EXPECT_EQ(mono.Create(width, height) + gray.Create(width, height), 0);
        EXPECT_EQ(mono.Pitch, static_cast<DWORD>(monoPitch));
        EXPECT_EQ(gray.Pitch, static_cast<DWORD>(grayPitch));
        EXPECT_EQ(BytesOf(gray), std::vector<BYTE>(static_cast<std::size_t>(grayPitch * height)));
    }
    ExpectLifecycle<CKVMonoBitmap>();
    ExpectLifecycle<CKVGrayBitmap>();
}

TEST(DrawInfo, SnapsTheScaleUpwards) {
    CBwDrawInfo info;
    const LONG pairs[][2] = {{-7, 1}, {1, 1}, {2, 4}, {4, 4}, {5, 8}, {8, 8}, {9, 16}, {99, 16}};
    for (const auto& [asked, stored] : pairs) {
        info.SetAntiScale(asked);
        EXPECT_EQ(info.GetAntiScale(), stored) << asked;
    }
}

// A setter of one layer must reach that layer's fields and no other's.
TEST(DrawInfo, SettersReachTheirOwnFields) {
    CBwDrawInfo info;
    info.SetEdgeType(1, 2, 3);
    info.SetShadType(4, 5, 6, 7);
    info.SetBodyGrad(10, 11, 12, 13, 14, 15);
    info.SetEdgeGrad(20, 21, 22, 23, 24, 25);
    info.SetShadGrad(30, 31, 32, 33, 34, 35);
    info.SetEdgeCol(40);
    const LONG expected[] = {16, 0,  0,  1,  2,  3,  4,  5,  6,  7,  1,  0,  1,  0,  40, 0,  10,
                             11, 12, 13, 14, 15, 20, 21, 22, 23, 24, 25, 30, 31, 32, 33, 34, 35};
    static_assert(sizeof expected == offsetof(tagKVBWDRAWINFO, BodyText));
    EXPECT_EQ(std::memcmp(info.GetInfo(), expected, sizeof expected), 0);
}

TEST(DrawInfo, CopiesOwnTheirNames) {
    CBwDrawInfo copy;
    {
        CBwDrawInfo info;
        info.GetInfo()->EdgeText = {2, strcpy(new char[6], "a.tga")};
        copy = info;
        copy = static_cast<const CBwDrawInfo&>(copy);
        const CBwDrawInfo third(copy);
        EXPECT_NE(third.GetEdgeText_File(), info.GetEdgeText_File());
    }
    CString name;
    LONG mode = 0;
    copy.GetEdgeText(&mode, name);
    EXPECT_EQ(mode, 2);
    EXPECT_TRUE(name == "a.tga");
}

struct Drawing : KVEffectAccess<Drawing>, KVTextureAccess<Drawing> {
    tagKVBWDRAWINFO record{};
    CString m_BodyFile, m_EdgeFile, m_ShadFile;
    tagKVBWDRAWINFO& EffectRecord() { return record; }
    const tagKVBWDRAWINFO& EffectRecord() const { return record; }
    using KVTextureAccess::ConnectAll;
};

TEST(DrawingTextures, PointAtTheObjectsOwnStrings) {
    Drawing drawing;
    drawing.SetBodyText(1, "first.tga");
    EXPECT_EQ(drawing.GetBodyMode(), 2);
    drawing.SetBodyText(0, drawing.GetBodyText_File());  // its own name
    drawing.SetEdgeText(2, "edge.tga");
    drawing.SetBodyCol(7);
    EXPECT_STREQ(drawing.GetBodyText_File(), "first.tga");
    EXPECT_STREQ(drawing.record.BodyText.File, "first.tga");

    Drawing copy = drawing;
    copy.ResetConnect();
    EXPECT_EQ(copy.record.BodyText.File, drawing.GetBodyText_File());  // a colour body is left
    EXPECT_EQ(copy.record.EdgeText.File, copy.GetEdgeText_File());
    copy.ConnectAll();
    EXPECT_EQ(copy.record.BodyText.File, copy.GetBodyText_File());
    copy.SetShadText(3, nullptr);
    EXPECT_STREQ(copy.GetShadText_File(), "");
}

}  // namespace
