#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/support/each_level.h"

namespace {

using Pixels = std::vector<DWORD>;

CKVFrameBuffer Surface(LONG width, const Pixels& pixels) {
    CKVFrameBuffer surface(width, static_cast<LONG>(pixels.size()) / width, 1);
    std::copy(pixels.begin(), pixels.end(), surface.GetBufferDWord());
    return surface;
}

// The pixels are as wanted, and the spare bytes behind them still 0.
void ExpectPixels(const CKVFrameBuffer& surface, Pixels wanted) {
    const DWORD* const first = surface.GetBufferDWord();
    wanted.resize(wanted.size() + 4);
    ASSERT_EQ(surface.GetSize() / 4 + 4, wanted.size());
    ASSERT_TRUE(std::equal(wanted.begin(), wanted.end(), first));
}

DWORD Luminance(DWORD pixel) {
    const DWORD sum = (pixel >> 16) % 256 * 19661 + (pixel >> 8) % 256 * 38666 + pixel % 256 * 7209;
    return (sum + 32768) >> 16;
}

DWORD Tinted(DWORD pixel, DWORD colour) {
    DWORD result = pixel & 0xFF000000;
    for (const int shift : {0, 8, 16}) {
        result |= Luminance(pixel) * ((colour >> shift) % 256) / 255 << shift;
    }
    return result;
}

DWORD Keyed(DWORD pixel, DWORD low, DWORD range) {
    const std::int64_t above = std::int64_t{Luminance(pixel)} - low;
    const std::int64_t key = above > range ? 255 : above * 255 / (std::int64_t{range} + 1);
    return pixel % 0x1000000 | static_cast<DWORD>(above <= 0 ? 0 : key) << 24;
}

TEST(PixelOperations, FillsAndCheckPatterns) {
    constexpr LONG kMax = std::numeric_limits<LONG>::max();
    for (const CPoint size :
         {CPoint(1, 1), CPoint(5, 2), CPoint(16, 7), CPoint(205, 5), CPoint(1024, 3)}) {
        CKVFrameBuffer surface(size.x, size.y, 1);
        for (const CPoint cell :
             {CPoint(2, 2), CPoint(1, 1), CPoint(2, 3), CPoint(kMax, -kMax), CPoint(5, 99)}) {
            Pixels wanted;
            for (LONG i = 0; i < size.x * size.y; ++i) {
                const LONG cells =
                    i % size.x / std::max(cell.x, 2) + i / size.x / std::max(cell.y, 2);
                wanted.push_back(cells % 2 == 0 ? 0xFF112233 : 0xFF445566);
            }
            surface.ClearCross(cell, 0x00112233, 0x80445566);
            ASSERT_NO_FATAL_FAILURE(ExpectPixels(surface, wanted)) << size.x << " by " << size.y;
        }
        const Pixels filled(surface.GetSize() / 4, 0x7F010203);
        surface.ClearCol(0x7F010203);
        ASSERT_NO_FATAL_FAILURE(ExpectPixels(surface, filled));
        surface.Clear();
        ASSERT_NO_FATAL_FAILURE(ExpectPixels(surface, Pixels(filled.size())));
    }
}

TEST(PixelOperations, BlendOfOnePixelPair) {
    const DWORD cases[][3] = {{0x00112233, 0xFF445566, 0xFF445566},
                              {0xFF112233, 0x00445566, 0xFF112233},
                              {0x00112233, 0x00000000, 0x00000000},
                              {0x01FF8000, 0x00445566, 0x01FF8000},
                              {0x640A14FF, 0x64C86400, 0xA151329E}};  // d = 100 - 39, A = 161
    for (const auto& [src, dst, result] : cases) {
        EXPECT_EQ(CKVFrameBuffer::CopyKeyPixcel(src, dst), result) << std::hex << src;
    }
}

TEST(PixelOperations, KeyPictureReplacesTheTarget) {
    CKVFrameBuffer empty;
    const CKVFrameBuffer source = Surface(3, {0x80123456, 7, 0xFFFFFFFF});
    for (CKVFrameBuffer target : {empty, CKVFrameBuffer(9, 9, 1)}) {
        ASSERT_EQ(source.GetKeyFreameBuffer(&target), 0);
        EXPECT_EQ(empty.GetKeyFreameBuffer(&target), -1);
        EXPECT_EQ(target.GetKeyFreameBuffer(&target), -1);
        ExpectPixels(target, {0x80808080, 0, 0xFFFFFFFF});
    }
    EXPECT_EQ(source.GetKeyFreameBuffer(nullptr), -1);
    EXPECT_EQ(source.m_ReadCount, 0);
}

TEST(PixelOperations, DoNothingWithoutAStore) {
    CKVFrameBuffer empty;
    empty.ClearCol(1);
    empty.ImageChColor(0xFFFFFF);
    empty.MakeLuminanceKey(40, 99);
    empty.ClearKey();
    empty.ClearCross(CPoint(99, 99), 1, 2);
    empty.Clear();
    EXPECT_EQ(empty.IsBuffer(), 1);
}

// Every grey level, both ends of each channel and random colours, in rows of all widths.
TEST(PixelOperations, TonesEqualTheirFormulas) {
    std::mt19937 random(3);
    Pixels pixels;
    for (DWORD i = 0; i < 20000; ++i) {
        const DWORD ends = (i % 2 + i / 2 % 2 * 0x100 + i / 4 % 2 * 0x10000) * 0xFF;
        pixels.push_back(i < 256 ? i * 0x01010101 : i < 264 ? ends : static_cast<DWORD>(random()));
    }
    const auto check = [&](std::size_t count, const auto& work, const auto& rule) {
        Pixels some(pixels.begin(), pixels.begin() + static_cast<std::ptrdiff_t>(count));
        CKVFrameBuffer surface = Surface(static_cast<LONG>(count), some);
        work(surface);
        std::transform(some.begin(), some.end(), some.begin(), rule);
        ExpectPixels(surface, some);
    };
    const auto checkKey = [&](std::size_t count, DWORD low, DWORD range) {
        check(
            count, [=](CKVFrameBuffer& surface) { surface.MakeLuminanceKey(low, range); },
            [=](DWORD pixel) { return Keyed(pixel, low, range); });
    };
    AtEachLevel([&] {
        for (std::size_t width = 1; width <= 70; ++width) {
            const std::size_t count = width < 70 ? width : pixels.size();
            check(
                count, [](CKVFrameBuffer& surface) { surface.ClearKey(); },
                [](DWORD pixel) { return pixel % 0x1000000; });
            for (const DWORD colour : {0xFFFFFFU, 0U, 0xFF010203U, 0x80FE7F33U}) {
                check(
                    count, [=](CKVFrameBuffer& surface) { surface.ImageChColor(colour); },
                    [=](DWORD pixel) { return Tinted(pixel, colour); });
            }
            checkKey(count, 40, 99);
        }
        for (const DWORD low : {0U, 1U, 254U, 255U, 256U, 0xFFFFFFFFU}) {
            for (const DWORD range : {0U, 99U, 255U, 65025U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
                checkKey(1000, low, range);
            }
        }
        for (DWORD range = 0; range < 66000; range += range < 600 ? 1 : 97) {
            checkKey(256, 0, range);
        }
    });
}

}  // namespace
