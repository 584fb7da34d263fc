#include "platform/gdi/bit_surface.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "platform/gdi/bit_sink.h"
#include "platform/gdi/dc.h"
#include "platform/gdi/turn.h"

namespace kv::gdi {
namespace {

bool Get(const BitSurface& surface, std::int32_t column, std::int32_t row) {
    return (surface.Row(row)[column / 8] >> (7 - column % 8) & 1) != 0;
}

void Put(BitSurface& surface, std::int32_t column, std::int32_t row, bool value) {
    const auto bit = static_cast<std::uint8_t>(0x80 >> column % 8);
    std::uint8_t& byte = surface.Row(row)[column / 8];
    byte = static_cast<std::uint8_t>(value ? byte | bit : byte & ~bit);
}

/// Random pixels; the padding stays 0.
std::shared_ptr<BitSurface> Noise(std::int32_t width, std::int32_t height, unsigned sparse,
                                  std::mt19937& random) {
    std::shared_ptr<BitSurface> surface = BitSurface::Create(width, height);
    for (std::int32_t row = 0; row < height; ++row) {
        for (std::int32_t column = 0; column < width; ++column) {
            Put(*surface, column, row, random() % sparse == 0);
        }
    }
    return surface;
}

std::vector<std::uint8_t> Bytes(const BitSurface& surface) {
    const std::size_t size = surface.Stride() * static_cast<std::size_t>(surface.Height());
    return {surface.Row(0), surface.Row(0) + size};
}

TEST(BitSurfaceTest, RunsEqualAPixelLoopAtEveryPlace) {
    std::mt19937 random(4);
    for (const std::int32_t width : {1, 7, 16, 17, 63, 64, 65, 131, 200}) {
        for (int round = 0; round < 400; ++round) {
            const auto drawn = Noise(width, 3, 2, random);
            const auto expected = BitSurface::Create(width, 3);
            const auto begin = static_cast<std::int32_t>(random() % unsigned(width));
            const auto end =
                begin + static_cast<std::int32_t>(random() % unsigned(width - begin + 1));
            const auto row = static_cast<std::int32_t>(random() % 3);
            const bool value = round % 2 != 0;
            for (std::int32_t y = 0; y < 3; ++y) {
                for (std::int32_t x = 0; x < width; ++x) {
                    const bool within = y == row && x >= begin && x < end;
                    Put(*expected, x, y, within ? value : Get(*drawn, x, y));
                }
            }
            drawn->FillRun(row, begin, end, value);
            ASSERT_EQ(Bytes(*drawn), Bytes(*expected)) << width << " " << begin << " " << end;
        }
    }
}

TEST(BitSurfaceTest, RectanglesAndShiftedShapesAreClipped) {
    constexpr std::int64_t kFar = std::numeric_limits<std::int64_t>::max();
    const auto surface = BitSurface::Create(19, 2);
    surface->FillRect(-kFar, -kFar, kFar, kFar, true);
    EXPECT_EQ(Bytes(*surface),
              (std::vector<std::uint8_t>{0xFF, 0xFF, 0xE0, 0, 0xFF, 0xFF, 0xE0, 0}));
    surface->FillRect(8, 1, kFar, 2, false);
    surface->FillRect(3, 0, 3, 2, false);
    EXPECT_EQ(Bytes(*surface), (std::vector<std::uint8_t>{0xFF, 0xFF, 0xE0, 0, 0xFF, 0, 0, 0}));

    Contours square{{{0, 0}, {2560, 0}, {2560, 2560}, {0, 2560}}, {4}};
    for (const std::int32_t shift : {-5, 0, 12, 100, std::numeric_limits<std::int32_t>::min()}) {
        const auto drawn = BitSurface::Create(19, 9);
        const auto expected = BitSurface::Create(19, 9);
        BitSink sink(*drawn, shift, shift / 2);
        ScanConverter().Convert(square, FillRule::kWinding, sink.Bounds(), sink);
        expected->FillRect(shift, shift / 2, std::int64_t{shift} + 10, shift / 2 + 10, true);
        EXPECT_EQ(Bytes(*drawn), Bytes(*expected)) << shift;
    }
}

TEST(BitSurfaceTest, TurningEqualsAPixelLoop) {
    std::mt19937 random(5);
    for (int round = 0; round < 600; ++round) {
        const auto size = [&](unsigned most) {
            return static_cast<std::int32_t>(1 + random() % most);
        };
        const auto source = Noise(size(170), size(170), round % 2 == 0 ? 2 : 40, random);
        const auto target = Noise(size(190), size(190), 5, random);
        const std::int64_t x = size(300) - 30;
        const std::int64_t y = size(300) - 190;
        std::vector<std::uint8_t> before = Bytes(*target);
        const auto expected = BitSurface::Create(target->Width(), target->Height());
        std::copy(before.begin(), before.end(), expected->Row(0));
        for (std::int32_t v = 0; v < source->Height(); ++v) {
            for (std::int32_t u = 0; u < source->Width(); ++u) {
                const auto column = static_cast<std::int32_t>(x - 1 - v);
                const auto row = static_cast<std::int32_t>(y + u);
                if (Get(*source, u, v) && column >= 0 && column < target->Width() && row >= 0 &&
                    row < target->Height()) {
                    Put(*expected, column, row, true);
                }
            }
        }
        OrTurned(*source, x, y, *target);
        ASSERT_EQ(Bytes(*target), Bytes(*expected)) << round;
        constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();
        OrTurned(*source, kLeast, kLeast, *target);
        ASSERT_EQ(Bytes(*target), Bytes(*expected));
    }
}

TEST(BitmapTest, BitsAreCopiedUpToTheCountAndBadSizesRefused) {
    CBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateBitmap(17, 2, 1, 1, nullptr));
    bitmap.m_Surface->FillRect(0, 0, 17, 2, true);
    std::vector<std::uint8_t> bits(9, 0xAA);
    EXPECT_EQ(bitmap.GetBitmapBits(6, bits.data()), 6U);
    EXPECT_EQ(bits, (std::vector<std::uint8_t>{255, 255, 128, 0, 255, 255, 0xAA, 0xAA, 0xAA}));
    EXPECT_EQ(bitmap.GetBitmapBits(99, bits.data()), 8U);
    for (const auto [width, height, planes, depth] :
         {std::array{0, 5, 1, 1}, {5, 0, 1, 1}, {-3, 5, 1, 1}, {5, 5, 2, 1}, {5, 5, 1, 8}}) {
        EXPECT_FALSE(bitmap.CreateBitmap(width, height, UINT(planes), UINT(depth), nullptr));
        EXPECT_TRUE(bitmap.IsNull());
    }
    EXPECT_EQ(bitmap.GetBitmapBits(99, bits.data()), 0U);
}

}  // namespace
}  // namespace kv::gdi
