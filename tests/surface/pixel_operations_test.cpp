#include <algorithm>
#include <limits>
#include <random>
#include <thread>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "base/cpu.h"

namespace {

using Pixels = std::vector<DWORD>;

CKVFrameBuffer Surface(LONG width, const Pixels& pixels) {
    CKVFrameBuffer surface(width, static_cast<LONG>(pixels.size()) / width, 1);
    std::copy(pixels.begin(), pixels.end(), surface.GetBufferDWord());
    return surface;
}

Pixels PixelsOf(const CKVFrameBuffer& surface) {
    const DWORD* const first = surface.GetBufferDWord();
    return {first, first + surface.GetSize() / 4};
}

// The spare bytes behind the pixels, which are 0 from the start.
bool SpareBytesUntouched(const CKVFrameBuffer& surface) {
    const BYTE* const end = surface.GetBufferByte() + surface.GetSize();
    const BYTE* const blockEnd = static_cast<BYTE*>(surface.m_Alloc) + surface.GetSize() + 128;
    return std::all_of(end, blockEnd, [](BYTE byte) { return byte == 0; });
}

DWORD Luminance(DWORD pixel) {
    return ((pixel >> 16 & 0xFF) * 19661 + (pixel >> 8 & 0xFF) * 38666 + (pixel & 0xFF) * 7209 +
            32768) >>
           16;
}

DWORD Tinted(DWORD pixel, DWORD color) {
    const DWORD y = Luminance(pixel);
    return (pixel & 0xFF000000) | y * (color >> 16 & 0xFF) / 255 << 16 |
           y * (color >> 8 & 0xFF) / 255 << 8 | y * (color & 0xFF) / 255;
}

DWORD Keyed(DWORD pixel, DWORD low, DWORD range) {
    const DWORD y = Luminance(pixel);
    const std::uint64_t steps = std::uint64_t{range} + 1;
    DWORD key = 0;
    if (y > low) {
        key = y - low > range ? 255 : static_cast<DWORD>((y - low) * 255 / steps);
    }
    return (pixel & 0xFFFFFF) | key << 24;
}

TEST(PixelOperations, FillsWriteEveryPixelAndNothingElse) {
    for (const LONG width : {1, 3, 204, 205, 1000}) {
        const auto count = static_cast<std::size_t>(width) * 5;
        CKVFrameBuffer surface(width, 5, 1);
        for (const DWORD color : {0x7F010203U, 0xFF000000U, 0xEEEEEEEEU}) {
            surface.ClearCol(color);
            EXPECT_EQ(PixelsOf(surface), Pixels(count, color));
        }
        EXPECT_TRUE(SpareBytesUntouched(surface));
        surface.Clear();
        EXPECT_EQ(PixelsOf(surface), Pixels(count, 0));
    }
}

TEST(PixelOperations, CheckPatternRepeatsItsCells) {
    constexpr DWORD kA = 0x00112233;
    constexpr DWORD kB = 0x80445566;
    for (const LONG width : {1, 2, 5, 16}) {
        for (const LONG height : {1, 2, 3, 7, 16}) {
            for (const CPoint cell : {CPoint(2, 2), CPoint(1, 1), CPoint(2, 3), CPoint(5, 4),
                                      CPoint(std::numeric_limits<LONG>::max(), -1),
                                      CPoint(std::numeric_limits<LONG>::min(), 99)}) {
                Pixels wanted;
                for (LONG y = 0; y < height; ++y) {
                    for (LONG x = 0; x < width; ++x) {
                        const LONG cells = x / std::max(cell.x, 2) + y / std::max(cell.y, 2);
                        wanted.push_back((cells % 2 == 0 ? kA : kB) | 0xFF000000);
                    }
                }
                CKVFrameBuffer surface(width, height, 1);
                surface.ClearCross(cell, kA, kB);
                ASSERT_EQ(PixelsOf(surface), wanted) << width << " x " << height;
                ASSERT_TRUE(SpareBytesUntouched(surface));
            }
        }
    }
}

TEST(PixelOperations, BlendOfOnePixelPair) {
    const struct {
        DWORD src, dst, result;
    } cases[] = {{0x00112233, 0xFF445566, 0xFF445566},
                 {0xFF112233, 0x00445566, 0xFF112233},
                 {0x00112233, 0x00000000, 0x00000000},
                 {0x80FF0000, 0xFF0000FF, 0xFF80007F},
                 {0x01FF8000, 0x00445566, 0x01FF8000},
                 // d = 100 - 39 = 61, A = 161
                 {0x640A14FF, 0x64C86400, 0xA151329E}};
    for (const auto& c : cases) {
        EXPECT_EQ(CKVFrameBuffer::CopyKeyPixcel(c.src, c.dst), c.result) << std::hex << c.src;
    }
}

TEST(PixelOperations, KeyPictureReplacesTheTarget) {
    const CKVFrameBuffer source =
        Surface(3, {0x80123456, 0, 0xFFFFFFFF, 0x01000000, 7, 0xFE123456});
    for (CKVFrameBuffer target : {CKVFrameBuffer(), CKVFrameBuffer(9, 9, 1)}) {
        ASSERT_EQ(source.GetKeyFreameBuffer(&target), 0);
        EXPECT_EQ(target.GetWidth(), 3U);
        EXPECT_EQ(PixelsOf(target), (Pixels{0x80808080, 0, 0xFFFFFFFF, 0x01010101, 0, 0xFEFEFEFE}));
        EXPECT_EQ(CKVFrameBuffer().GetKeyFreameBuffer(&target), -1);
        EXPECT_EQ(target.GetSize(), 24U);
        EXPECT_EQ(target.GetKeyFreameBuffer(&target), -1);
        EXPECT_EQ(PixelsOf(target)[0], 0x80808080);
    }
    EXPECT_EQ(source.GetKeyFreameBuffer(nullptr), -1);
    EXPECT_EQ(source.m_ReadCount, 0);
}

TEST(PixelOperations, NothingHappensWithoutAStore) {
    CKVFrameBuffer empty;
    empty.Clear();
    empty.ClearCol(1);
    empty.ClearCross(CPoint(2, 2), 1, 2);
    empty.ImageChColor(1);
    empty.ClearKey();
    empty.MakeLuminanceKey(0, 1);
    EXPECT_EQ(empty.IsBuffer(), 1);
    EXPECT_EQ(empty.CreateFrameBuffer(1, 1, 1), 0);
}

// Readers see one colour everywhere, however the operations of other threads fall in between.
TEST(PixelOperations, EachIsWholeForOtherThreads) {
    CKVFrameBuffer shared(37, 29, 1);
    const auto change = [&shared] {
        for (DWORD i = 0; i < 60; ++i) {
            shared.ClearCol(i * 0x01030507);
            shared.ImageChColor(0xFFFFFF);
            shared.MakeLuminanceKey(40, 99);
            shared.ClearKey();
            shared.Clear();
        }
    };
    const auto look = [&shared] {
        CKVFrameBuffer key, scaled;
        for (int i = 0; i < 60; ++i) {
            ASSERT_EQ(shared.GetKeyFreameBuffer(&key), 0);
            shared.ReadLock();
            ASSERT_EQ(shared.SizeChange(&scaled, 37, 29), 0);
            shared.ReadUnlock();
            for (const CKVFrameBuffer* seen : {&key, &scaled}) {
                const Pixels pixels = PixelsOf(*seen);
                ASSERT_EQ(std::count(pixels.begin(), pixels.end(), pixels[0]), std::ssize(pixels));
            }
        }
    };
    const std::jthread threads[] = {std::jthread(change), std::jthread(look), std::jthread(change),
                                    std::jthread(look)};
}

class Tones : public testing::TestWithParam<kv::CpuLevel> {
  protected:
    void SetUp() override { kv::ForceCpuLevel(GetParam()); }
    void TearDown() override { kv::ForceCpuLevel(kv::DetectedCpuLevel()); }
};

// Every grey level, both ends of each channel, and random colours; all widths around a vector.
TEST_P(Tones, EqualTheirFormulas) {
    std::mt19937 random(3);
    Pixels pixels;
    for (DWORD i = 0; i < 256; ++i) {
        pixels.push_back(i * 0x01010101);
        pixels.push_back(0x12000000 | (i & 1 ? 0xFF : 0) | (i & 2 ? 0xFF00 : 0) |
                         (i & 4 ? 0xFF0000 : 0));
    }
    for (int i = 0; i < 60000; ++i) {
        pixels.push_back(static_cast<DWORD>(random()));
    }
    const auto expectSame = [](const CKVFrameBuffer& surface, Pixels plain, const auto& rule) {
        std::transform(plain.begin(), plain.end(), plain.begin(), rule);
        ASSERT_EQ(PixelsOf(surface), plain);
        ASSERT_TRUE(SpareBytesUntouched(surface));
    };
    for (LONG width = 1; width <= 70; ++width) {
        const std::size_t count = width < 70 ? 1 : pixels.size() / 70;
        const Pixels some(pixels.begin(),
                          pixels.begin() + width * static_cast<std::ptrdiff_t>(count));
        CKVFrameBuffer cleared = Surface(width, some);
        cleared.ClearKey();
        expectSame(cleared, some, [](DWORD pixel) { return pixel & 0xFFFFFF; });
        const DWORD colors[] = {0xFFFFFF, 0, 0x00FF0000, 0xFF010203, static_cast<DWORD>(random())};
        for (const DWORD color : colors) {
            CKVFrameBuffer surface = Surface(width, some);
            surface.ImageChColor(color);
            expectSame(surface, some, [=](DWORD pixel) { return Tinted(pixel, color); });
        }
    }
    for (const DWORD low : {0U, 1U, 10U, 100U, 254U, 255U, 256U, 0xFFFFFFFFU}) {
        for (const DWORD range :
             {0U, 1U, 6U, 99U, 253U, 254U, 255U, 256U, 65024U, 65025U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            CKVFrameBuffer surface = Surface(1, pixels);
            surface.MakeLuminanceKey(low, range);
            expectSame(surface, pixels, [=](DWORD pixel) { return Keyed(pixel, low, range); });
        }
    }
}

// Every quotient that a ramp can ask for.
TEST_P(Tones, LuminanceKeyAtEveryRange) {
    Pixels greys;
    for (DWORD i = 0; i < 256; ++i) {
        greys.push_back(i * 0x010101);
    }
    for (DWORD range = 0; range < 66000; range += range < 600 ? 1 : 97) {
        CKVFrameBuffer surface = Surface(256, greys);
        surface.MakeLuminanceKey(0, range);
        for (DWORD i = 0; i < 256; ++i) {
            ASSERT_EQ(surface.GetBufferDWord()[i], Keyed(greys[i], 0, range)) << i << " " << range;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, Tones,
                         testing::Values(kv::CpuLevel::kBaseline, kv::CpuLevel::kAvx2));

}  // namespace
