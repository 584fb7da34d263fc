#include <limits>

#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/effect/plain_render.h"

namespace {

constexpr LONG kMax = std::numeric_limits<LONG>::max();
constexpr LONG kMin = std::numeric_limits<LONG>::min();

using effect_test::Of;
using effect_test::PixelsOf;
using effect_test::Quad;

tagKVBWDRAWINFO Record(LONG x, LONG y) {
    tagKVBWDRAWINFO info{};
    info.AntiScale = 4;
    info.Pos_X = x;
    info.Pos_Y = y;
    info.BodyCol = 0xFF0000FF;
    info.EdgeCol = 0xC000FF00;
    info.ShadCol = 0x80FF0000;
    return info;
}

// A solid mask whose body layer is 20 by 10.
void MakeMask(CKVMonoBitmap& mask, LONG width = 80, LONG height = 40) {
    mask.Delete();
    mask.Create(width, height);
    std::fill_n(mask.Bits, mask.Size, BYTE{255});
}

struct Shape {
    LONG edgeSize, edgeMode, shadowType, shadowSize, softSize;
};

void Apply(const Shape& shape, tagKVBWDRAWINFO& info) {
    info.EdgeType_Size = shape.edgeSize;
    info.EdgeMode = shape.edgeMode;
    info.ShadType_Type = shape.shadowType;
    info.ShadType_Size = shape.shadowSize;
    info.ShadType_SoftSize = shape.softSize;
}

TEST(AreaRender, ArrangesTheLayers) {
    const Quad none{0, 0, 0, 0};
    const struct {
        Shape shape;
        Quad area, body, edge, shadow;
    } cases[] = {
        {{0, 0, 0, 0, 0}, {100, 50, 20, 10}, {0, 0, 20, 10}, none, none},
        {{2, 0, 0, 0, 0}, {98, 48, 24, 14}, {2, 2, 20, 10}, {0, 0, 24, 14}, none},
        {{2, 0, 0, 5, 0}, {98, 48, 29, 19}, {2, 2, 20, 10}, {0, 0, 24, 14}, {5, 5, 24, 14}},
        {{2, 0, 0, -5, 0}, {93, 43, 29, 19}, {7, 7, 20, 10}, {5, 5, 24, 14}, {0, 0, 24, 14}},
        {{0, 0, 1, 3, 0}, {100, 50, 23, 13}, {0, 0, 20, 10}, none, {0, 0, 23, 13}},
        {{0, 0, 1, -3, 0}, {97, 47, 23, 13}, {3, 3, 20, 10}, none, {0, 0, 23, 13}},
        {{2, 9, 0, 5, 0}, {100, 50, 23, 13}, {0, 0, 20, 10}, none, {3, 3, 20, 10}},
        {{0, 0, 2, 5, 0}, {100, 50, 25, 15}, {0, 0, 20, 10}, none, {5, 5, 20, 10}},
        {{0, 0, 2, 1, 4}, {100, 50, 29, 19}, {0, 0, 20, 10}, none, {1, 1, 28, 18}},
        {{0, 0, 2, 0, 4}, {100, 50, 20, 10}, {0, 0, 20, 10}, none, none},
        {{0, 0, 2, 1, -4}, {100, 50, 20, 10}, {0, 0, 20, 10}, none, none},
        {{kMax, 0, 0, 0, 0}, {100, 50, 20, 10}, {0, 0, 20, 10}, none, none},
        {{0, 0, 1, kMin, 0}, {100, 50, 20, 10}, {0, 0, 20, 10}, none, none},
    };
    CKVMonoBitmap mask;
    MakeMask(mask);
    for (const auto& c : cases) {
        tagKVBWDRAWINFO info = Record(100, 50);
        Apply(c.shape, info);
        CKVFrameBuffer fb(3, 3, 1);
        CBox area, body, edge, shadow;
        EXPECT_EQ(CKVBwDraw().SetFb(&fb, &info, &mask, area, body, edge, shadow), 0);
        EXPECT_EQ(Of(area), c.area);
        EXPECT_EQ(Of(body), c.body);
        EXPECT_EQ(Of(edge), c.edge);
        EXPECT_EQ(Of(shadow), c.shadow);
        EXPECT_EQ(fb.GetWH(), CSize(c.area[2], c.area[3]));
    }
}

TEST(Render, ReportsWhatItTouched) {
    const struct {
        LONG x, y;
        Shape shape;
        Quad box;
    } cases[] = {
        {10, 10, {0, 0, 0, 4, 0}, {10, 10, 24, 14}},
        {10, 10, {2, 0, 0, 5, 0}, {8, 8, 29, 19}},
        {10, 10, {2, 0, 1, 5, 0}, {8, 8, 29, 19}},
        {20, 20, {2, 0, 1, -5, 0}, {13, 13, 29, 19}},
        {10, 10, {2, 9, 0, 5, 0}, {10, 10, 23, 13}},
        {10, 10, {0, 0, 2, 7, 0}, {10, 10, 27, 17}},
        {-5, 10, {0, 0, 0, 0, 0}, {0, 10, 15, 10}},
        {500, 10, {0, 0, 0, 0, 0}, {0, 0, 0, 0}},
        // The body lies outside: the shadow's box stands for it.
        {-20, 0, {0, 0, 0, 15, 0}, {0, 15, 15, 10}},
        // The shadow does: the first box is the all-zero one.
        {10, 10, {0, 0, 0, 1000, 0}, {0, 0, 30, 20}},
        {kMax, kMin, {2, 0, 0, 5, 0}, {0, 0, 0, 0}},
        {kMax, kMax, {0, 0, 0, kMax, 0}, {0, 0, 0, 0}},
    };
    CKVMonoBitmap mask;
    MakeMask(mask);
    for (const auto& c : cases) {
        for (const LONG softPen : {0, 1}) {
            tagKVBWDRAWINFO info = Record(c.x, c.y);
            Apply(c.shape, info);
            info.ShadType_SoftPen = softPen;
            CKVFrameBuffer fb(200, 100, 1);
            CBox box;
            EXPECT_EQ(CKVBwDraw().DispFb(&fb, &info, &mask, &box), 0);
            EXPECT_EQ(Of(box), c.box);
        }
    }
}

TEST(Render, FailuresLeaveTheTarget) {
    CKVMonoBitmap mask;
    MakeMask(mask);
    const LONG cases[][2] = {{2, 0}, {0, 0}, {-16, 0}, {4, 3}, {4, -1}};
    for (const auto& [scale, bodyMode] : cases) {
        tagKVBWDRAWINFO info = Record(0, 0);
        Apply({2, 0, 0, 5, 0}, info);
        info.AntiScale = scale;
        info.BodyMode = bodyMode;
        CKVFrameBuffer fb(30, 30, 1);
        CBox box(1, 2, 3, 4), body(box), edge(box), shadow(box);
        EXPECT_EQ(CKVBwDraw().DispFb(&fb, &info, &mask, &box), -1);
        EXPECT_EQ(CKVBwDraw().SetFb(&fb, &info, &mask, box, body, edge, shadow), -1);
        for (const CBox& kept : {box, body, edge, shadow}) {
            EXPECT_EQ(Of(kept), (Quad{1, 2, 3, 4}));
        }
        EXPECT_EQ(PixelsOf(fb), std::vector<DWORD>(900));
    }
}

void PlainRender(CKVFrameBuffer& fb, const tagKVBWDRAWINFO& info, const CKVMonoBitmap& mask) {
    CKVGrayBitmap body;
    CKVFrameBuffer layer;
    CKVBwDraw().MakeAntiGray(info.AntiScale, &mask, &body);
    effect_test::PlainPaint(info.BodyMode, body, layer, info.BodyCol, info.BodyGrad);
    effect_test::PlainStack(fb, info, body, layer);
}

TEST(Render, StacksShadowEdgeBody) {
    std::mt19937 random(7);
    CKVMonoBitmap mask;
    const LONG distances[] = {-6, 0, 5};
    for (int round = 0; round < 200; ++round) {
        MakeMask(mask, static_cast<LONG>(1 + random() % 150), static_cast<LONG>(1 + random() % 90));
        for (DWORD i = 0; i < mask.Size; ++i) {
            const auto bits = random();
            mask.Bits[i] = static_cast<BYTE>(bits & bits >> 8);
        }
        tagKVBWDRAWINFO info = Record(static_cast<LONG>(random() % 40) - 10, 4);
        info.AntiScale = 1 << (round % 4 == 0 ? 0 : round % 4 + 1);
        Apply({static_cast<LONG>(random() % 4), round / 2 % 2, static_cast<LONG>(random() % 4),
               distances[random() % 3], static_cast<LONG>(random() % 5)},
              info);
        info.EdgeType_Type = static_cast<LONG>(random() % 2);
        info.ShadType_SoftPen = static_cast<LONG>(random() % 2);
        info.BodyCol = static_cast<DWORD>(random());
        info.BodyMode = round % 2;
        info.ShadMode = round / 4 % 2;
        for (tagGRADINFO* grad : {&info.BodyGrad, &info.EdgeGrad, &info.ShadGrad}) {
            *grad = {0, 1, -1, -1, static_cast<DWORD>(random()), static_cast<DWORD>(random())};
        }
        CKVFrameBuffer plain(60, 50, 1);
        for (DWORD i = 0; i < 3000; ++i) {
            plain.GetBufferDWord()[i] = random() % 2 != 0 ? static_cast<DWORD>(random()) : 0;
        }
        CKVFrameBuffer fb(plain);
        PlainRender(plain, info, mask);
        CBox box;
        ASSERT_EQ(CKVBwDraw().DispFb(&fb, &info, &mask, &box), 0);
        ASSERT_EQ(PixelsOf(fb), PixelsOf(plain)) << "round " << round;

        // The area render is the same picture by itself.
        CBox area, body, edge, shadow;
        CKVFrameBuffer alone;
        ASSERT_EQ(CKVBwDraw().SetFb(&alone, &info, &mask, area, body, edge, shadow), 0);
        CKVFrameBuffer scene(area.width + 100, area.height + 100, 1);
        CKVFrameBuffer expected(area.width + 100, area.height + 100, 1);
        scene.FbCopy(&alone, 0, 0, area.width, area.height, 50, 50, 0, nullptr);
        info.Pos_X = 50 + body.x;
        info.Pos_Y = 50 + body.y;
        PlainRender(expected, info, mask);
        ASSERT_EQ(PixelsOf(scene), PixelsOf(expected)) << "round " << round;
    }
}

// Records as a damaged file might hold them. Nothing to expect but a result and memory left whole.
TEST(Render, AnyRecordIsSafe) {
    std::mt19937 random(8);
    const LONG odd[] = {0, 1, -1, 3, 16, 40, -7, 100000, kMax, kMin, kMax - 3, 1 << 30};
    const auto any = [&](LONG usual) {
        return random() % 3 != 0 ? usual : odd[random() % std::size(odd)];
    };
    CKVMonoBitmap mask;
    for (int round = 0; round < 4000; ++round) {
        mask.Delete();
        if (round % 16 != 0) {
            MakeMask(mask, 70, 33);
        }
        tagKVBWDRAWINFO info = Record(any(5), any(7));
        Apply({any(2), any(0), any(round % 3), any(4), any(3)}, info);
        info.AntiScale = any(4);
        info.EdgeType_Type = any(0);
        info.EdgeType_SoftPen = any(0);
        info.ShadType_SoftPen = any(0);
        info.BodyMode = any(0);
        info.ShadMode = any(0);
        CKVFrameBuffer fb(20, 20, 1);
        CBox box, body, edge, shadow;
        const int shown = CKVBwDraw().DispFb(&fb, &info, &mask, &box);
        const int set = CKVBwDraw().SetFb(&fb, &info, &mask, box, body, edge, shadow);
        ASSERT_EQ(shown, set);
        ASSERT_TRUE(shown == 0 || shown == -1);
    }
}

// An area that no surface can hold leaves none.
TEST(AreaRender, FarShadowsLeaveNoSurface) {
    CKVMonoBitmap mask;
    MakeMask(mask);
    for (const LONG size : {kMax - 30, -kMax, kMin + 100}) {
        tagKVBWDRAWINFO info = Record(kMax, kMax);
        info.ShadType_Size = size;
        CKVFrameBuffer fb(64, 64, 1);
        CBox area, body, edge, shadow;
        EXPECT_EQ(CKVBwDraw().SetFb(&fb, &info, &mask, area, body, edge, shadow), 0);
        EXPECT_EQ(fb.IsBuffer(), 1) << size;
        EXPECT_GE(shadow.x, 0) << size;
    }
}

}  // namespace
