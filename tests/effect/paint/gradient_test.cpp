#include <cmath>
#include <limits>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/support/no_memory.h"

namespace {

using Pixels = std::vector<DWORD>;

constexpr int kMax = std::numeric_limits<int>::max();
constexpr int kMin = std::numeric_limits<int>::min();
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

// Inclusive bounds (10, 20) to (30, 29): 21 by 10; the point lies 13 and 6 from the far bounds.
TEST(Gradient, LengthAndCentre) {
    const int lengths[2][12] = {{21, 10, 31, 31, 15, 15, 15, 10, 5, 15, 15, 21},
                                {27, 13, 40, 40, 20, 20, 20, 14, 7, 21, 21, 21}};
    const auto check = [](int type, int wanted, int x, int y) {
        int cx = -7, cy = -7, length = -7;  // -7: not written
        CKVBwDraw().Pis_Grad_Paint_Set1(type, 17, 26, 10, 20, 30, 29, &cx, &cy, &length);
        EXPECT_EQ(std::vector({length, cx, cy}), std::vector({wanted, x, y})) << type;
    };
    for (int shape = 0; shape < 12; ++shape) {
        const bool centred = shape >= 4 && shape <= 10;
        check(shape, lengths[0][shape], centred ? 20 : -7, centred ? 25 : -7);
        check(shape + 100, lengths[1][shape], centred ? 17 : -7, centred ? 26 : -7);
    }
    for (const int unknown : {-5, 99, kMax, kMin}) {
        check(unknown, 21, -7, -7);
    }
}

// The pixel (13, 27) in the bounds (10, 20) to (30, 29), its centre (17, 24): dx -4, dy 3.
TEST(Gradient, Distance) {
    const double distances[] = {-17, -2, -19, -5, -7, -8, -5, -4, -3, -1, -7, -17};
    for (int shape = 0; shape < 12; ++shape) {
        for (const int form : {0, 100}) {
            double d = 1;
            CKVBwDraw().Pis_Grad_Paint_Conv(shape + form, 13, 27, 10, 20, 30, 29, 17, 24, &d);
            EXPECT_EQ(d, distances[shape]) << shape + form;
        }
    }
}

TEST(Gradient, GeometryTakesAnyNumbers) {
    CKVBwDraw draw;
    int cx = 0, cy = 0, length = 0;
    draw.Pis_Grad_Paint_Set1(104, kMin, kMax, kMin, kMin, kMax, kMax, &cx, &cy, &length);
    EXPECT_EQ(length, kMax);
    draw.Pis_Grad_Paint_Set1(7, 0, 0, 4, 0, 0, 0, &cx, &cy, &length);
    EXPECT_EQ(length, -2);  // -3 / 2, rounded down
    double d = 0;
    draw.Pis_Grad_Paint_Conv(6, kMax, kMax, 0, 0, 0, 0, kMin, kMin, &d);
    EXPECT_NEAR(d, -4294967295.0 * std::sqrt(2.0), 1e-3);
}

TEST(Gradient, MakesThePlainRamp) {
    std::mt19937 random(11);
    const int paterns[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 50, 100, 101, 106, 110, 111};
    const auto check = [&](int width, int height) {
        const int right = width - 1, bottom = height - 1;
        const int points[][2] = {{-1, 0},         {width, 0},   {0, height},
                                 {0, 0},          {right, 0},   {0, bottom},
                                 {right, bottom}, {kMax, kMin}, {width / 3, height / 2}};
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

// The layer of a coverage at each level, and without memory of its own, against the plain ramp
// through it.
void CheckLayer(const CKVGrayBitmap& gray, const tagGRADINFO& grad) {
    Pixels plain = PlainRamp(gray.Width, gray.Height, grad);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const auto width = static_cast<std::size_t>(gray.Width);
        const DWORD g = gray.Bits[i / width * gray.Pitch + i % width];
        plain[i] = g == 0 ? 0 : (plain[i] >> 24) * g / 255 << 24 | (plain[i] & 0xFFFFFF);
    }
    const auto check = [&](int allocations) {
        CKVFrameBuffer layer(2, 2, 1);
        const auto make = [&] { return CKVBwDraw().MakeFb_Grad(&gray, &layer, &grad); };
        ASSERT_EQ(WithAllocations(allocations, make), 0);
        ASSERT_EQ(layer.GetWH(), CSize(gray.Width, gray.Height));
        const DWORD* first = layer.GetBufferDWord();
        ASSERT_EQ(Pixels(first, first + plain.size()), plain);
    };
    AtEachLevel([&] { check(-1); });
    check(0);
}

TEST(Gradient, CoversTheRamp) {
    std::mt19937 random(12);
    CKVGrayBitmap gray;
    for (LONG width = 1; width <= 67; ++width) {
        effect_test::FillRandom(gray, width, 1 + width % 5, 2, random);
        CheckLayer(gray, {77, 1 + width % 6, width / 2, 0, static_cast<DWORD>(random()),
                          static_cast<DWORD>(random())});
    }
    gray.Delete();
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
    EXPECT_EQ(draw.Pis_Grad_Paint(&pixel, kMax, kMin, 0, 0, 1, 2, 3), 0);
    EXPECT_EQ(draw.Pis_Grad_Paint(nullptr, 5, 5, 0, 0, 1, 2, 3), 0);
    EXPECT_EQ(pixel, kGuard);
}

}  // namespace
