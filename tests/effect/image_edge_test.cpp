#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/effect/plain_render.h"

namespace {

using effect_test::PixelsOf;

// Keys in solid, empty and half transparent stretches.
void FillRandom(CKVFrameBuffer& fb, LONG width, LONG height, std::mt19937& random) {
    fb.DeleteFrameBuffer();
    fb.CreateFrameBuffer(width, height, 1);
    DWORD key = 0;
    for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
        if (random() % 3 == 0) {
            key = static_cast<DWORD>(random() % 4 == 0 ? 255 : random() % 3 * (random() % 128));
        }
        fb.GetBufferDWord()[i] = static_cast<DWORD>(random() & 0xFFFFFF) | key << 24;
    }
}

TEST(ImageEdge, TakesTheKeysAsCoverage) {
    std::mt19937 random(1);
    CKVFrameBuffer fb;
    CKVGrayBitmap gray;
    for (LONG width = 1; width < 80; ++width) {
        FillRandom(fb, width, 3, random);
        AtEachLevel([&] {
            ASSERT_EQ(CKVBwDraw().KeyToGray(&fb, &gray), 0);
            ASSERT_EQ(gray.Width, width);
            std::vector<BYTE> expected(gray.Size);  // with pad bytes of 0
            for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
                expected[i / fb.GetWidth() * gray.Pitch + i % fb.GetWidth()] =
                    fb.GetBufferByte()[4 * i + 3];
            }
            ASSERT_EQ(effect_test::BytesOf(gray), expected) << width;
        });
    }
}

// Both forms are windows of the scene that a stack made by hand gives, onto another surface and
// onto the picture itself.
TEST(ImageEdge, StacksShadowEdgeAndPicture) {
    std::mt19937 random(2);
    const auto any = [&](DWORD count) { return static_cast<LONG>(random() % count); };
    for (int round = 0; round < 200; ++round) {
        CKVFrameBuffer source;
        FillRandom(source, 1 + any(40), 1 + any(30), random);
        tagKVBWDRAWINFO info{};
        info.EdgeType_Type = round % 2;
        info.EdgeType_Size = any(4);
        info.EdgeCol = 0xFF00FF00;
        info.ShadType_Type = any(3);
        info.ShadType_Size = any(13) - 6;
        info.ShadType_SoftSize = any(5);
        info.ShadCol = 0xC0FF0000;
        info.ShadType_SoftPen = round / 2 % 2;
        info.BodyMode = info.AntiScale = 77;  // have no part in it
        CKVGrayBitmap keys;
        CKVBwDraw().KeyToGray(&source, &keys);
        CBox area, body, edge, shadow;
        CKVFrameBuffer toFit(3, 3, 1), sameSize;
        ASSERT_EQ(source.SetEdge(&toFit, &info, area, body, edge, shadow), 0);
        ASSERT_EQ(source.SetEdgeOrgSize(&sameSize, &info), 0);

        CKVFrameBuffer scene(area.width, area.height, 1), window(source);
        info.Pos_X = body.x;
        info.Pos_Y = body.y;
        effect_test::PlainStack(scene, info, keys, source);
        window.FbCopy(&scene, body.x, body.y, body.width, body.height, 0, 0, 0, nullptr);
        ASSERT_EQ(PixelsOf(toFit), PixelsOf(scene)) << round;
        ASSERT_EQ(PixelsOf(sameSize), PixelsOf(window)) << round;
        ASSERT_EQ(source.SetEdge(&source, &info, area, body, edge, shadow), 0);
        ASSERT_EQ(PixelsOf(source), PixelsOf(scene)) << round;
    }
}

TEST(ImageEdge, NullAndEmpty) {
    CKVFrameBuffer source, target(3, 3, 1);
    tagKVBWDRAWINFO info{};
    info.EdgeType_Size = info.ShadType_Size = 3;
    CBox area(1, 2, 3, 4), body(area), edge(area), shadow(area);
    EXPECT_EQ(source.SetEdge(nullptr, &info, area, body, edge, shadow), -1);
    EXPECT_EQ(source.SetEdgeOrgSize(nullptr, &info), -1);
    EXPECT_EQ(target.GetWH(), CSize(3, 3));
    EXPECT_EQ(effect_test::Of(area), (effect_test::Quad{1, 2, 3, 4}));
    EXPECT_EQ(source.SetEdge(&target, &info, area, body, edge, shadow), 0);
    EXPECT_EQ(target.IsBuffer(), 1);
    EXPECT_EQ(effect_test::Of(shadow), (effect_test::Quad{0, 0, 0, 0}));
}

}  // namespace
