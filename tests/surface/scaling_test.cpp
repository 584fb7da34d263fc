#include <algorithm>
#include <limits>
#include <random>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "surface/resample.h"
#include "tests/support/each_level.h"

namespace {

CKVFrameBuffer Noise(LONG width, LONG height) {
    CKVFrameBuffer surface(width, height, 1);
    std::mt19937 random(static_cast<unsigned>(width * height));
    std::generate_n(surface.GetBufferDWord(), surface.GetSize() / 4,
                    [&] { return static_cast<DWORD>(random()); });
    return surface;
}

struct Position {
    int index;  // of the first source pixel
    float weight;
};

// The rule word by word, in the precision that it states.
Position PositionOf(int i, int target, int source, float factor) {
    const int fromCentre = i - target / 2;
    const float at = static_cast<float>(fromCentre) / factor;
    const int whole = at > 0 ? static_cast<int>(at) : static_cast<int>(double{at} - 1.0);
    return {whole + source / 2, at - static_cast<float>(whole)};
}

BYTE SampleAt(const CKVFrameBuffer& source, Position x, Position y, int channel) {
    const int columns = source.m_Width;
    const int rows = source.m_Height;
    if (x.index < -1 || x.index > columns - 1 || y.index < -1 || y.index > rows - 1) {
        return 0;
    }
    const auto across = [&](int row) {
        const BYTE* const bytes =
            source.GetBufferByte() + std::clamp(row, 0, rows - 1) * columns * 4 + channel;
        const double a = bytes[std::max(x.index, 0) * 4];
        if (x.index == -1 || x.index == columns - 1) {
            return a;
        }
        const float weighted = static_cast<float>(bytes[x.index * 4 + 4]) * x.weight;
        return double{weighted} + a * (1.0 - double{x.weight});
    };
    const double upper = across(y.index);
    if (y.index == -1 || y.index == rows - 1) {
        return static_cast<BYTE>(upper);
    }
    const double weight = y.weight;
    return static_cast<BYTE>(across(y.index + 1) * weight + upper * (1.0 - weight));
}

void ExpectResampled(const CKVFrameBuffer& source, const CKVFrameBuffer& target, float factorX,
                     float factorY) {
    const BYTE* byte = target.GetBufferByte();
    for (int y = 0; y < target.m_Height; ++y) {
        const Position row = PositionOf(y, target.m_Height, source.m_Height, factorY);
        for (int x = 0; x < target.m_Width; ++x) {
            const Position column = PositionOf(x, target.m_Width, source.m_Width, factorX);
            for (int channel = 0; channel < 4; ++channel) {
                ASSERT_EQ(*byte++, SampleAt(source, column, row, channel))
                    << x << ", " << y << " of " << target.m_Width << " x " << target.m_Height
                    << " from " << source.m_Width << " x " << source.m_Height;
            }
        }
    }
}

void CheckSize(const CKVFrameBuffer& source, CKVFrameBuffer& target, LONG width, LONG height) {
    ASSERT_EQ(source.SizeChange(&target, width, height), 0);
    ASSERT_EQ(target.GetWH(), CSize(width, height));
    ExpectResampled(source, target, static_cast<float>(width) / static_cast<float>(source.m_Width),
                    static_cast<float>(height) / static_cast<float>(source.m_Height));
}

// Widths around every multiple of a vector and of the strips that are worked on at once. On flat
// colour the precision of the products decides the level.
TEST(Scaling, SizesEqualTheRule) {
    AtEachLevel([] {
        CKVFrameBuffer target;
        for (const LONG from : {1, 2, 3, 4, 5, 8, 33}) {
            for (LONG width = 1; width <= 70; ++width) {
                ASSERT_NO_FATAL_FAILURE(
                    CheckSize(Noise(from, 36 / from + 1), target, width, 71 - width));
            }
        }
        CKVFrameBuffer flat(300, 5, 0);
        flat.ClearCol(0xFFC8640B);
        for (const LONG width : {640, 4095, 4096, 4097, 8200}) {
            ASSERT_NO_FATAL_FAILURE(CheckSize(Noise(300, 5), target, width, 9));
            ASSERT_NO_FATAL_FAILURE(CheckSize(flat, target, width, 9));
        }
    });
}

// The size is cut to whole pixels, the factors are not. Only factors that do not fit the sizes
// reach positions outside the source.
TEST(Scaling, FactorsEqualTheRule) {
    AtEachLevel([] {
        CKVFrameBuffer target;
        const CKVFrameBuffer source = Noise(13, 8);
        for (const float x : {0.08F, 0.3F, 0.77F, 1.0F, 1.7F, 3.99F}) {
            for (const float y : {0.13F, 0.5F, 1.01F, 2.5F, 7.3F}) {
                ASSERT_EQ(source.SizeChangeScale(&target, x, y), 0);
                ASSERT_EQ(target.GetWH(),
                          CSize(static_cast<LONG>(13.0F * x), static_cast<LONG>(8.0F * y)));
                ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, x, y));
                CKVFrameBuffer wide(300, 31, 0);
                wide.ClearCol(0xEEEEEEEE);
                ASSERT_TRUE(kv::Resample(source, wide, x, y));
                ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, wide, x, y));
            }
        }
    });
}

TEST(Scaling, KnownRows) {
    CKVFrameBuffer row(4, 1, 1), target;
    const std::vector<DWORD> levels{10, 21, 30, 40};
    std::copy_n(levels.begin(), 4, row.m_BufferDWord);
    for (const auto& wanted : {levels, {10, 15, 21, 25, 30, 35, 40, 40}, {30}}) {
        ASSERT_EQ(row.SizeChange(&target, static_cast<LONG>(wanted.size()), 1), 0);
        EXPECT_TRUE(std::equal(wanted.begin(), wanted.end(), target.m_BufferDWord));
    }
}

TEST(Scaling, BadArgumentsLeaveTheTargetAndBadSizesEmptyIt) {
    CKVFrameBuffer source = Noise(4, 4), target(3, 3, 1), empty;
    for (const LONG bad : {0, -1}) {
        EXPECT_EQ(source.SizeChange(&target, bad, 5), -1);
        EXPECT_EQ(source.SizeChange(&target, 5, bad), -1);
    }
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    for (const float bad : {0.0F, -1.0F, kInfinity, kInfinity * 0, 536870912.0F}) {
        EXPECT_EQ(source.SizeChangeScale(&target, bad, 1.0F), -1) << bad;
        EXPECT_EQ(source.SizeChangeScale(&target, 1.0F, bad), -1) << bad;
    }
    for (CKVFrameBuffer* const other : {&source, static_cast<CKVFrameBuffer*>(nullptr)}) {
        EXPECT_EQ(source.SizeChange(other, 5, 5), -1);
        EXPECT_EQ(source.SizeChangeScale(other, 2.0F, 2.0F), -1);
    }
    EXPECT_EQ(empty.SizeChange(&target, 5, 5), -1);
    EXPECT_EQ(empty.SizeChangeScale(&target, 1.0F, 1.0F), -1);
    EXPECT_EQ(source.GetSize(), 64U);
    EXPECT_EQ(target.GetSize(), 36U);
    for (const float factor : {0.2F, 500000000.0F}) {
        CKVFrameBuffer replaced(3, 3, 1);
        EXPECT_EQ(source.SizeChangeScale(&replaced, factor, factor), -1);
        EXPECT_EQ(replaced.IsBuffer(), 1) << factor;
    }
}

}  // namespace
