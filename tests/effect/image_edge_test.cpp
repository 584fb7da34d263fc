#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/effect/plain_render.h"

namespace {

using effect_test::Of;
using effect_test::PixelsOf;
using effect_test::Quad;

tagKVBWDRAWINFO Record(LONG edge, LONG shadowType, LONG shadow, LONG soft) {
    tagKVBWDRAWINFO info{};
    info.Pos_X = 100;
    info.Pos_Y = 50;
    info.EdgeType_Size = edge;
    info.ShadType_Type = shadowType;
    info.ShadType_Size = shadow;
    info.ShadType_SoftSize = soft;
    info.EdgeCol = 0xFF00FF00;
    info.ShadCol = 0xFFFF0000;
    return info;
}

void Fill(CKVFrameBuffer& fb, LONG width, LONG height, DWORD colour) {
    fb.DeleteFrameBuffer();
    fb.CreateFrameBuffer(width, height, 1);
    std::fill_n(fb.GetBufferDWord(), fb.GetSize() / 4, colour);
}

// Solid, empty and half transparent stretches.
void FillRandom(CKVFrameBuffer& fb, LONG width, LONG height, std::mt19937& random) {
    Fill(fb, width, height, 0);
    DWORD key = 0;
    for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
        if (random() % 3 == 0) {
            key = static_cast<DWORD>(random() % 4 == 0 ? 255 : random() % 3 * (random() % 128));
        }
        fb.GetBufferDWord()[i] = static_cast<DWORD>(random() & 0xFFFFFF) | key << 24;
    }
}

TEST(KeyToGray, TakesTheKeys) {
    std::mt19937 random(1);
    effect_test::AtEachLevel([&] {
        for (LONG width = 1; width < 80; ++width) {
            CKVFrameBuffer fb;
            FillRandom(fb, width, 3, random);
            CKVGrayBitmap gray;
            gray.Create(2, 2);
            ASSERT_EQ(CKVBwDraw().KeyToGray(&fb, &gray), 0);
            ASSERT_EQ(gray.Width, width);
            std::vector<BYTE> expected(gray.Size);
            for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
                expected[i / fb.GetWidth() * gray.Pitch + i % fb.GetWidth()] =
                    fb.GetBufferByte()[4 * i + 3];
            }
            ASSERT_EQ(effect_test::BytesOf(gray), expected) << width;
        }
    });
    CKVGrayBitmap gray;
    gray.Create(2, 2);
    CKVFrameBuffer empty;
    EXPECT_EQ(CKVBwDraw().KeyToGray(nullptr, &gray), -1);
    EXPECT_EQ(gray.Width, 2);
    EXPECT_EQ(CKVBwDraw().KeyToGray(&empty, &gray), 0);
    EXPECT_EQ(gray.Bits, nullptr);
    EXPECT_EQ(CKVBwDraw().KeyToGray(&empty, nullptr), -1);
}

TEST(ImageEdge, ArrangesTheLayers) {
    const Quad none{0, 0, 0, 0};
    const struct {
        tagKVBWDRAWINFO info;
        Quad area, body, edge, shadow;
    } cases[] = {
        {Record(0, 0, 0, 0), {100, 50, 10, 10}, {0, 0, 10, 10}, none, none},
        {Record(3, 0, 0, 0), {97, 47, 16, 16}, {3, 3, 10, 10}, {0, 0, 16, 16}, none},
        {Record(0, 0, 4, 0), {100, 50, 14, 14}, {0, 0, 10, 10}, none, {4, 4, 10, 10}},
        {Record(0, 0, -4, 0), {96, 46, 14, 14}, {4, 4, 10, 10}, none, {0, 0, 10, 10}},
        {Record(2, 2, 1, 3), {98, 48, 21, 21}, {2, 2, 10, 10}, {0, 0, 14, 14}, {1, 1, 20, 20}},
    };
    for (const DWORD colour : {0xFF123456U, 0x00123456U}) {  // the keys change no size
        CKVFrameBuffer source;
        Fill(source, 10, 10, colour);
        for (const auto& c : cases) {
            tagKVBWDRAWINFO info = c.info;
            CKVFrameBuffer fb(3, 3, 1), sameSize;
            CBox area, body, edge, shadow;
            EXPECT_EQ(source.SetEdge(&fb, &info, area, body, edge, shadow), 0);
            EXPECT_EQ(Of(area), c.area);
            EXPECT_EQ(Of(body), c.body);
            EXPECT_EQ(Of(edge), c.edge);
            EXPECT_EQ(Of(shadow), c.shadow);
            EXPECT_EQ(fb.GetWH(), CSize(c.area[2], c.area[3]));
            EXPECT_EQ(source.SetEdgeOrgSize(&sameSize, &info), 0);
            EXPECT_EQ(sameSize.GetWH(), CSize(10, 10));
        }
    }
}

TEST(ImageEdge, ASolidPictureHidesAllButItsCorners) {
    CKVFrameBuffer source, result;
    Fill(source, 10, 10, 0xFF123456);
    tagKVBWDRAWINFO info = Record(3, 0, 0, 0);
    ASSERT_EQ(source.SetEdgeOrgSize(&result, &info), 0);
    EXPECT_EQ(PixelsOf(result), PixelsOf(source));
    CBox area, body, edge, shadow;
    ASSERT_EQ(source.SetEdge(&result, &info, area, body, edge, shadow), 0);
    const DWORD* pixels = result.GetBufferDWord();
    EXPECT_EQ(pixels[0], 0U);                   // the edge's rounded corner
    EXPECT_EQ(pixels[8], info.EdgeCol);         // its upper side
    EXPECT_EQ(pixels[8 * 16 + 8], 0xFF123456);  // the picture
}

// Both forms are windows of the scene that a stack made by hand gives.
TEST(ImageEdge, StacksShadowEdgeAndPicture) {
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        CKVFrameBuffer source;
        FillRandom(source, static_cast<LONG>(1 + random() % 40),
                   static_cast<LONG>(1 + random() % 30), random);
        tagKVBWDRAWINFO info =
            Record(static_cast<LONG>(random() % 4), static_cast<LONG>(random() % 3),
                   static_cast<LONG>(random() % 13) - 6, static_cast<LONG>(random() % 5));
        info.EdgeType_Type = round % 2;
        info.ShadType_SoftPen = round / 2 % 2;
        info.BodyMode = 77;  // has no part in it, as the scale
        info.AntiScale = -1;
        CKVGrayBitmap keys;
        CKVBwDraw().KeyToGray(&source, &keys);
        CBox area, body, edge, shadow;
        CKVFrameBuffer toFit, sameSize;
        ASSERT_EQ(source.SetEdge(&toFit, &info, area, body, edge, shadow), 0);
        ASSERT_EQ(source.SetEdgeOrgSize(&sameSize, &info), 0);

        CKVFrameBuffer scene(area.width, area.height, 1), window(source);
        info.Pos_X = body.x;
        info.Pos_Y = body.y;
        effect_test::PlainStack(scene, info, keys, source);
        window.FbCopy(&scene, body.x, body.y, body.width, body.height, 0, 0, 0, nullptr);
        ASSERT_EQ(PixelsOf(toFit), PixelsOf(scene)) << round;
        ASSERT_EQ(PixelsOf(sameSize), PixelsOf(window)) << round;

        // Onto itself.
        CKVFrameBuffer copy(source);
        ASSERT_EQ(copy.SetEdgeOrgSize(&copy, &info), 0);
        ASSERT_EQ(PixelsOf(copy), PixelsOf(window)) << round;
        ASSERT_EQ(source.SetEdge(&source, &info, area, body, edge, shadow), 0);
        ASSERT_EQ(PixelsOf(source), PixelsOf(scene)) << round;
    }
}

TEST(ImageEdge, NullAndEmpty) {
    CKVFrameBuffer source, target(3, 3, 1);
    tagKVBWDRAWINFO info = Record(3, 0, 4, 0);
    CBox area(1, 2, 3, 4), body(area), edge(area), shadow(area);
    EXPECT_EQ(source.SetEdge(nullptr, &info, area, body, edge, shadow), -1);
    EXPECT_EQ(source.SetEdgeOrgSize(nullptr, &info), -1);
    EXPECT_EQ(source.SetEdge(&target, nullptr, area, body, edge, shadow), -1);
    EXPECT_EQ(CKVBwDraw().SetImgEdgeShadow(&target, &info, nullptr, area, body, edge, shadow), -1);
    EXPECT_EQ(target.GetWH(), CSize(3, 3));
    EXPECT_EQ(Of(area), (Quad{1, 2, 3, 4}));
    EXPECT_EQ(source.SetEdge(&target, &info, area, body, edge, shadow), 0);
    EXPECT_EQ(target.IsBuffer(), 1);
    EXPECT_EQ(Of(shadow), (Quad{0, 0, 0, 0}));
}

}  // namespace
