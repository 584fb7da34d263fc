#include <array>
#include <random>
#include <vector>

#include <gtest/gtest.h>
#include <platform/dc.h>

#include "platform/device/picture.h"
#include "raster/bit_surface.h"

namespace {

TEST(BitmapTest, BitsAreCopiedUpToTheCountAndBadSizesRefused) {
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(17, 2, 1, 1, nullptr));
    bitmap.m_Picture->ForText()->FillRect(0, 0, 17, 2, true);
    std::vector<std::uint8_t> bits(9, 0xAA);
    EXPECT_EQ(bitmap.GetBitmapBits(6, bits.data()), 6U);
    EXPECT_EQ(bits, (std::vector<std::uint8_t>{255, 255, 128, 0, 255, 255, 0xAA, 0xAA, 0xAA}));
    EXPECT_EQ(bitmap.GetBitmapBits(99, bits.data()), 8U);
    for (const auto [width, height, planes, depth] :
         {std::array{0, 5, 1, 1}, {5, 0, 1, 1}, {-3, 5, 1, 1}, {5, 5, 2, 1}, {5, 5, 1, 8}}) {
        EXPECT_FALSE(bitmap.CreateBitmap(width, height, UINT(planes), UINT(depth), nullptr));
        EXPECT_EQ(bitmap.GetBitmapBits(99, bits.data()), 0U);
    }
}

// White and black shapes over each other, kept as bits and as areas.
TEST(BitmapTest, DrawingsCoverWhatBitsAreSet) {
    constexpr LONG kWidth = 70;
    constexpr LONG kHeight = 40;
    std::mt19937 random(5);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<LONG>(low, high)(random);
    };
    for (int round = 0; round < 60; ++round) {
        CBitmap bits;
        CBitmap areas;
        ASSERT_TRUE(bits.CreateBitmap(kWidth, kHeight, 1, 1, nullptr));
        ASSERT_TRUE(areas.CreateDrawing(kWidth, kHeight));
        CDC contexts[2];
        contexts[0].SelectObject(bits);
        contexts[1].SelectObject(areas);
        for (int shape = 0; shape < 6; ++shape) {
            CBrush brush;
            brush.CreateSolidBrush(pick(0, 1) != 0 ? 0xFFFFFF : 0);
            CPen pen;
            pen.CreatePen(PS_SOLID, pick(1, 5), pick(0, 2) != 0 ? 0xFFFFFF : 0);
            const LONG kind = pick(0, 3);
            const LONG left = pick(-20, 60);
            const LONG top = pick(-20, 30);
            const LONG right = pick(0, 90);
            const LONG bottom = pick(0, 60);
            for (CDC& dc : contexts) {
                dc.SelectObject(brush);
                dc.SelectObject(pen);
                if (kind == 0) {
                    dc.BitBlt(left, top, right / 3, bottom / 3, nullptr, 0, 0, BLACKNESS);
                } else if (kind == 1) {
                    dc.Rectangle(left, top, right, bottom);
                } else {
                    dc.Ellipse(left, top, right, bottom);
                }
            }
        }
        std::vector<BYTE> coverage(std::size_t{kWidth} * kHeight);
        ASSERT_TRUE(areas.GetCoverage(1, kWidth, coverage.data(), kWidth));
        for (LONG y = 0; y < kHeight; ++y) {
            for (LONG x = 0; x < kWidth; ++x) {
                const bool set = (bits.m_Picture->ForText()->Row(y)[x / 8] << (x % 8) & 0x80) != 0;
                ASSERT_EQ(coverage[std::size_t(y * kWidth + x)], set ? 255 : 0) << round;
            }
        }
    }
}

}  // namespace
