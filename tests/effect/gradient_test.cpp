#include <cmath>
#include <limits>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"

namespace {

using effect_test::AtEachLevel;
using Pixels = std::vector<DWORD>;

constexpr int kMost = std::numeric_limits<int>::max();
constexpr int kLeast = std::numeric_limits<int>::min();
constexpr DWORD kGuard = 0x5A5A5A5A;

// Pixel by pixel, the rules of the ramp written out.
Pixels PlainRamp(int width, int height, const tagGRADINFO& grad) {
    const bool inside = grad.x >= 0 && grad.x < width && grad.y >= 0 && grad.y < height;
    const bool known = grad.Patern <= 10 && grad.Patern >= (inside ? 0 : 1);
    const int type = known ? grad.Patern + (inside ? 100 : 0) : 0;
    CKVBwDraw draw;
    int cx = 0, cy = 0, length = 0;
    draw.Pis_Grad_Paint_Set1(type, inside ? grad.x : -1, inside ? grad.y : -1, 0, 0, width - 1,
                             height - 1, &cx, &cy, &length);
    Pixels pixels;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            double d = 0;
            draw.Pis_Grad_Paint_Conv(type, x, y, 0, 0, width - 1, height - 1, cx, cy, &d);
            DWORD pixel = 0;
            for (int shift = 0; shift < 32; shift += 8) {
                const int b1 = static_cast<int>(grad.Col1 >> shift & 255);
                const int b2 = static_cast<int>(grad.Col2 >> shift & 255);
                const double step = length == 0 ? 0 : static_cast<double>(b2 - b1) / length;
                const int sum = static_cast<int>(d * step) + b2;
                pixel |= (static_cast<DWORD>(sum) & 255) << shift;
            }
            pixels.push_back(pixel);
        }
    }
    return pixels;
}

Pixels Ramp(int width, int height, const tagGRADINFO& grad) {
    Pixels pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) + 1, kGuard);
    EXPECT_EQ(CKVBwDraw().Pis_Grad_Paint(pixels.data(), width, height, grad.x, grad.y, grad.Col1,
                                         grad.Col2, grad.Patern),
              0);
    EXPECT_EQ(pixels.back(), kGuard);
    pixels.pop_back();
    return pixels;
}

TEST(Gradient, LengthAndCentre) {
    // Inclusive bounds (10, 20) to (30, 29): 21 by 10; the point lies 13 and 6 from the far bounds.
    const struct {
        std::vector<int> types;
        int length, cx, cy;  // -7: not written
    } cases[] = {
        {{0, 11, -5, 99, 111, kMost, kLeast}, 21, -7, -7},
        {{1}, 10, -7, -7},
        {{2, 3}, 31, -7, -7},
        {{4, 5, 6, 9, 10}, 15, 20, 25},
        {{7}, 10, 20, 25},
        {{8}, 5, 20, 25},
        {{100}, 27, -7, -7},
        {{101}, 13, -7, -7},
        {{102, 103}, 40, -7, -7},
        {{104, 105, 106}, 20, 17, 26},
        {{107}, 14, 17, 26},
        {{108}, 7, 17, 26},
        {{109, 110}, 21, 17, 26},
    };
    for (const auto& c : cases) {
        for (const int type : c.types) {
            int cx = -7, cy = -7, length = -7;
            CKVBwDraw().Pis_Grad_Paint_Set1(type, 17, 26, 10, 20, 30, 29, &cx, &cy, &length);
            EXPECT_EQ(std::vector({length, cx, cy}), std::vector({c.length, c.cx, c.cy})) << type;
        }
    }
}

TEST(Gradient, Distance) {
    // The pixel (13, 27) in the bounds (10, 20) to (30, 29), its centre (17, 24): dx -4, dy 3.
    const struct {
        int shape;
        double distance;
    } cases[] = {{0, -17}, {1, -2}, {2, -19}, {3, -5}, {4, -7},  {5, -8},
                 {6, -5},  {7, -4}, {8, -3},  {9, -1}, {10, -7}, {11, -17}};
    for (const auto& c : cases) {
        for (const int form : {0, 100}) {
            double d = 1;
            CKVBwDraw().Pis_Grad_Paint_Conv(c.shape + form, 13, 27, 10, 20, 30, 29, 17, 24, &d);
            EXPECT_EQ(d, c.distance) << c.shape + form;
        }
    }
}

TEST(Gradient, GeometryTakesAnyNumbers) {
    CKVBwDraw draw;
    int cx = 0, cy = 0, length = 0;
    draw.Pis_Grad_Paint_Set1(104, kLeast, kMost, kLeast, kLeast, kMost, kMost, &cx, &cy, &length);
    EXPECT_EQ(length, kMost);
    draw.Pis_Grad_Paint_Set1(4, 0, 0, kMost, kMost, kLeast, kLeast, &cx, &cy, &length);
    EXPECT_EQ(length, kLeast);
    draw.Pis_Grad_Paint_Set1(7, 0, 0, 4, 0, 0, 0, &cx, &cy, &length);
    EXPECT_EQ(length, -2);  // -3 / 2, rounded down
    EXPECT_EQ(cx, 2);
    double d = 0;
    draw.Pis_Grad_Paint_Conv(6, 1 << 30, 1, 0, 0, 0, 0, 0, 0, &d);
    EXPECT_EQ(d, -1073741824.0);
    draw.Pis_Grad_Paint_Conv(6, kMost, kMost, 0, 0, 0, 0, kLeast, kLeast, &d);
    EXPECT_NEAR(d, -4294967295.0 * std::sqrt(2.0), 1e-3);
}

// Values of one channel, from a record with it in every byte.
TEST(Gradient, KnownRamps) {
    const DWORD up = 0xFFFFFFFF;
    const struct {
        int width, height;
        tagGRADINFO grad;
        std::size_t at;
        std::vector<DWORD> bytes;
    } cases[] = {
        {1, 3, {0, 1, -1, 0, 0, up}, 0, {85, 170, 255}},
        {1, 3, {0, 1, -1, 0, up, 0}, 0, {170, 85, 0}},
        {7, 1, {0, 11, -1, 0, 0, up}, 5, {219, 255}},     // a fraction drops toward 0
        {100, 10, {0, 5, -1, 0, 0, up}, 500, {48}},       // beyond the length: wraps
        {5, 4, {0, 6, 0, 0, 0, up}, 0, {255, 255 - 31}},  // a centre in the corner, length 8
        {5, 4, {0, 6, 5, 0, 0, up}, 12, {255}},           // beside the layer: the middle
        {10, 1, {0, 50, 3, 0, 0, up}, 0, {255 - 229}},    // length 10 with a centre too
        {10, 1, {0, 111, 3, 0, 0, up}, 0, {255 - 229}},
        {10, 1, {0, -99, 3, 0, 0, up}, 0, {255 - 229}},
        {10, 1, {0, 0, 3, 0, 0, up}, 0, {255 - 176}},        // but 0 takes it from the point: 13
        {2, 3, {0, 101, -1, 0, 0, up}, 0, {128, 255, 128}},  // no vertical ramp
        {1, 3, {0, 7, -1, 0, 0, up}, 0, {255, 255, 255}},    // no length
        {3, 1, {0, 8, -1, 0, 0, up}, 0, {255, 255, 255}},
    };
    for (const auto& c : cases) {
        const Pixels pixels = Ramp(c.width, c.height, c.grad);
        for (std::size_t i = 0; i < c.bytes.size(); ++i) {
            EXPECT_EQ(pixels[c.at + i], c.bytes[i] * 0x01010101)
                << c.width << " by " << c.height << ", pattern " << c.grad.Patern;
        }
    }
}

TEST(Gradient, MakesThePlainRamp) {
    std::mt19937 random(11);
    const int paterns[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 50, 100, 101, 106, 110, 111};
    const auto check = [&](int width, int height) {
        const int right = width - 1, bottom = height - 1;
        const int points[][2] = {{-1, 0},         {width, 0},      {0, height},
                                 {0, 0},          {right, 0},      {0, bottom},
                                 {right, bottom}, {kMost, kLeast}, {width / 3, height / 2}};
        for (const int patern : paterns) {
            for (const auto& [x, y] : points) {
                const tagGRADINFO grad{
                    0, patern, x, y, static_cast<DWORD>(random()), static_cast<DWORD>(random())};
                const Pixels plain = PlainRamp(width, height, grad);
                AtEachLevel([&] { ASSERT_EQ(Ramp(width, height, grad), plain) << patern; });
            }
        }
    };
    for (int width = 1; width <= 67; ++width) {
        check(width, 1 + width * 7 % 41);
    }
    check(1, 41);
    check(67, 41);
    check(300, 2);
}

// The layer of a coverage at each level, against the plain ramp through it.
void CheckLayer(const CKVGrayBitmap& gray, const tagGRADINFO& grad) {
    Pixels plain = PlainRamp(gray.Width, gray.Height, grad);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const auto width = static_cast<std::size_t>(gray.Width);
        const DWORD g = gray.Bits[i / width * gray.Pitch + i % width];
        plain[i] = g == 0 ? 0 : (plain[i] >> 24) * g / 255 << 24 | (plain[i] & 0xFFFFFF);
    }
    AtEachLevel([&] {
        CKVFrameBuffer layer(2, 2, 1);
        ASSERT_EQ(CKVBwDraw().MakeFb_Grad(&gray, &layer, &grad), 0);
        ASSERT_EQ(layer.GetWH(), CSize(gray.Width, gray.Height));
        const DWORD* first = layer.GetBufferDWord();
        ASSERT_EQ(Pixels(first, first + plain.size()), plain);
    });
}

TEST(Gradient, CoversTheRamp) {
    std::mt19937 random(12);
    CKVGrayBitmap gray;
    for (LONG width = 1; width <= 67; ++width) {
        for (const LONG patern : {1, 2, 5, 6}) {
            effect_test::FillRandom(gray, width, 1 + width % 5, 2, random);
            tagGRADINFO grad{77, patern, width / 2, 0, 0, 0};
            grad.Col1 = static_cast<DWORD>(random());
            grad.Col2 = static_cast<DWORD>(random());
            CheckLayer(gray, grad);
        }
    }
}

TEST(Gradient, ScalesEveryKeyByEveryCoverage) {
    CKVGrayBitmap gray;
    gray.Create(256, 256);
    for (DWORD i = 0; i < gray.Size; ++i) {
        gray.Bits[i] = static_cast<BYTE>(i);
    }
    CheckLayer(gray, {0, 1, -1, -1, 0x00563412, 0xFF563412});  // a row for each key but 0
    CheckLayer(gray, {0, 1, -1, -1, 0x00563412, 0x00563412});
}

TEST(Gradient, BadAndEmptyInput) {
    CKVGrayBitmap gray;
    CKVFrameBuffer layer(3, 3, 1);
    const tagGRADINFO grad{};
    CKVBwDraw draw;
    EXPECT_EQ(draw.MakeFb_Grad(nullptr, &layer, &grad), -1);
    EXPECT_EQ(draw.MakeFb_Grad(&gray, nullptr, &grad), -1);
    EXPECT_EQ(draw.MakeFb_Grad(&gray, &layer, nullptr), -1);
    EXPECT_EQ(layer.GetWidth(), 3U);
    EXPECT_EQ(draw.MakeFb_Grad(&gray, &layer, &grad), 0);
    EXPECT_EQ(layer.IsBuffer(), 1);
    DWORD pixel = kGuard;
    EXPECT_EQ(draw.Pis_Grad_Paint(&pixel, 0, 5, 0, 0, 1, 2, 3), 0);
    EXPECT_EQ(draw.Pis_Grad_Paint(&pixel, kMost, kLeast, 0, 0, 1, 2, 3), 0);
    EXPECT_EQ(draw.Pis_Grad_Paint(nullptr, 5, 5, 0, 0, 1, 2, 3), 0);
    EXPECT_EQ(pixel, kGuard);
}

// Body 4 by 3, edge 8 by 7 around it, shadow of the edge's size 20 further on: each with a vertical
// ramp of its own height.
TEST(Gradient, PaintsEachLayer) {
    CKVMonoBitmap mask;
    mask.Create(16, 12);
    std::fill_n(mask.Bits, mask.Size, BYTE{255});
    tagKVBWDRAWINFO info{};
    info.AntiScale = 4;
    info.Pos_X = info.Pos_Y = 10;
    info.EdgeType_Size = 2;
    info.ShadType_Size = 20;
    info.BodyMode = info.EdgeMode = info.ShadMode = 1;
    info.BodyGrad = {0, 1, -1, -1, 0xFF000000, 0xFFFF0000};
    info.EdgeGrad = {0, 1, -1, -1, 0xFF000000, 0xFF00FF00};
    info.ShadGrad = {0, 1, -1, -1, 0xFF000000, 0xFF0000FF};
    CKVFrameBuffer fb(60, 60, 1);
    CBox box;
    ASSERT_EQ(CKVBwDraw().DispFb(&fb, &info, &mask, &box), 0);
    const auto at = [&](DWORD x, DWORD y) { return fb.GetBufferDWord()[y * 60 + x]; };
    for (DWORD row = 0; row < 3; ++row) {
        EXPECT_EQ(at(11, 10 + row), 0xFF000000 | (85 * (row + 1)) << 16);
    }
    for (const DWORD row : {0U, 1U, 5U, 6U}) {
        const DWORD drop = 255 * (6 - row) / 7;
        EXPECT_EQ(at(12, 8 + row), 0xFF000000 | (255 - drop) << 8);
        EXPECT_EQ(at(32, 28 + row), 0xFF000000 | (255 - drop));
    }
}

}  // namespace
