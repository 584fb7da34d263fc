#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "base/cpu.h"
#include "surface/resample.h"

namespace {

CKVFrameBuffer Noise(LONG width, LONG height, unsigned seed) {
    CKVFrameBuffer surface(width, height, 1);
    std::mt19937 random(seed);
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
    const float at = static_cast<float>(i - target / 2) / factor;
    const int whole = at > 0 ? static_cast<int>(at) : static_cast<int>(double{at} - 1.0);
    return {whole + source / 2, at - static_cast<float>(whole)};
}

double Mixed(float b, double a, float t) {
    const float weighted = b * t;
    return double{weighted} + a * (1.0 - double{t});
}

BYTE SampleAt(const CKVFrameBuffer& source, Position x, Position y, int channel) {
    const int columns = source.m_Width;
    const int rows = source.m_Height;
    if (x.index < -1 || x.index > columns - 1 || y.index < -1 || y.index > rows - 1) {
        return 0;
    }
    const auto byte = [&](int column, int row) {
        column = std::clamp(column, 0, columns - 1);
        row = std::clamp(row, 0, rows - 1);
        return source.GetBufferByte()[(row * columns + column) * 4 + channel];
    };
    const auto across = [&](int row) {
        const BYTE a = byte(x.index, row);
        const bool edge = x.index == -1 || x.index == columns - 1;
        return edge ? double{static_cast<float>(a)} : Mixed(byte(x.index + 1, row), a, x.weight);
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
    for (int y = 0; y < target.m_Height; ++y) {
        const Position row = PositionOf(y, target.m_Height, source.m_Height, factorY);
        for (int x = 0; x < target.m_Width; ++x) {
            const Position column = PositionOf(x, target.m_Width, source.m_Width, factorX);
            const BYTE* const pixel = target.GetBufferByte() + (y * target.m_Width + x) * 4;
            for (int channel = 0; channel < 4; ++channel) {
                ASSERT_EQ(pixel[channel], SampleAt(source, column, row, channel))
                    << x << ", " << y << " of " << target.m_Width << " x " << target.m_Height
                    << " from " << source.m_Width << " x " << source.m_Height;
            }
        }
    }
}

class Scaling : public testing::TestWithParam<kv::CpuLevel> {
  protected:
    void SetUp() override { kv::ForceCpuLevel(GetParam()); }
    void TearDown() override { kv::ForceCpuLevel(kv::DetectedCpuLevel()); }
};

TEST_P(Scaling, EqualsTheRuleAtAllSmallSizes) {
    CKVFrameBuffer target;
    for (const LONG from : {1, 2, 3, 4, 5, 8, 33}) {
        const CKVFrameBuffer source = Noise(from, 36 / from + 1, 5);
        for (LONG width = 1; width <= 70; ++width) {
            const LONG height = 71 - width;
            ASSERT_EQ(source.SizeChange(&target, width, height), 0);
            const float factorX = static_cast<float>(width) / static_cast<float>(source.m_Width);
            const float factorY = static_cast<float>(height) / static_cast<float>(source.m_Height);
            ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, factorX, factorY));
        }
    }
}

// Wider than any block that is worked on at once; colours that are flat, where the precision of the
// products decides the level.
TEST_P(Scaling, EqualsTheRuleAcrossBlocksAndOnFlatColour) {
    CKVFrameBuffer target;
    for (const LONG width : {640, 4095, 4096, 4097, 8200}) {
        CKVFrameBuffer source = Noise(300, 5, 6);
        ASSERT_EQ(source.SizeChange(&target, width, 9), 0);
        const float factorX = static_cast<float>(width) / 300.0F;
        ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, factorX, 9.0F / 5.0F));
        source.ClearCol(0xFFC8640B);
        ASSERT_EQ(source.SizeChange(&target, width, 9), 0);
        ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, factorX, 9.0F / 5.0F));
    }
}

// Positions outside the source on every side, which only factors that do not fit the sizes reach.
TEST_P(Scaling, PixelsBeyondTheEdgeAreTransparentBlack) {
    const CKVFrameBuffer source = Noise(5, 4, 7);
    for (const float factor : {0.3F, 0.9F, 1.0F, 1.7F, 0.01F}) {
        CKVFrameBuffer target(300, 21, 0);
        target.ClearCol(0xEEEEEEEE);
        ASSERT_TRUE(kv::Resample(source, target, factor * 20, factor));
        ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, factor * 20, factor));
    }
}

TEST_P(Scaling, FactorsCutTheSizeAndPlaceTheSamples) {
    CKVFrameBuffer target;
    std::mt19937 random(8);
    for (int i = 0; i < 200; ++i) {
        const CKVFrameBuffer source =
            Noise(static_cast<LONG>(random() % 20 + 1), static_cast<LONG>(random() % 20 + 1), 9);
        const float scaleX = static_cast<float>(random() % 4000 + 1000) / 1000.0F;
        const float scaleY = static_cast<float>(random() % 4000 + 1000) / 1000.0F;
        ASSERT_EQ(source.SizeChangeScale(&target, scaleX, scaleY), 0);
        ASSERT_EQ(target.m_Width, std::trunc(static_cast<float>(source.m_Width) * scaleX));
        ASSERT_EQ(target.m_Height, std::trunc(static_cast<float>(source.m_Height) * scaleY));
        ASSERT_NO_FATAL_FAILURE(ExpectResampled(source, target, scaleX, scaleY));
    }
}

INSTANTIATE_TEST_SUITE_P(Levels, Scaling,
                         testing::Values(kv::CpuLevel::kBaseline, kv::CpuLevel::kAvx2));

TEST(ScalingResults, KnownPictures) {
    CKVFrameBuffer target;
    const CKVFrameBuffer noise = Noise(17, 9, 1);
    ASSERT_EQ(noise.SizeChange(&target, 17, 9), 0);
    EXPECT_TRUE(
        std::equal(noise.m_BufferByte, noise.m_BufferByte + noise.m_Size, target.m_BufferByte));
    CKVFrameBuffer source(4, 1, 1);
    const DWORD levels[] = {10, 21, 30, 40};
    const DWORD doubled[] = {10, 15, 21, 25, 30, 35, 40, 40};
    std::copy_n(levels, 4, source.m_BufferDWord);
    ASSERT_EQ(source.SizeChange(&target, 8, 1), 0);
    EXPECT_TRUE(std::equal(doubled, doubled + 8, target.m_BufferDWord));
    ASSERT_EQ(source.SizeChange(&target, 1, 1), 0);
    EXPECT_EQ(*target.m_BufferDWord, 30U);
    CKVFrameBuffer square(5, 5, 1);
    ASSERT_EQ(square.SizeChangeScale(&target, 0.5F, 0.5F), 0);
    EXPECT_EQ(target.GetWH(), CSize(2, 2));
}

TEST(ScalingResults, BadArgumentsLeaveTheTargetAndBadSizesEmptyIt) {
    CKVFrameBuffer source = Noise(4, 4, 1);
    CKVFrameBuffer target(3, 3, 1);
    const CKVFrameBuffer empty;
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(source.SizeChange(&target, 0, 5), -1);
    EXPECT_EQ(source.SizeChange(&target, 5, -1), -1);
    EXPECT_EQ(source.SizeChange(nullptr, 5, 5), -1);
    EXPECT_EQ(empty.SizeChange(&target, 5, 5), -1);
    for (const float bad : {0.0F, -1.0F, kNan, kInfinity, 536870912.0F}) {
        EXPECT_EQ(source.SizeChangeScale(&target, bad, 1.0F), -1) << bad;
        EXPECT_EQ(source.SizeChangeScale(&target, 1.0F, bad), -1) << bad;
    }
    EXPECT_EQ(source.SizeChangeScale(nullptr, 1.0F, 1.0F), -1);
    EXPECT_EQ(empty.SizeChangeScale(&target, 1.0F, 1.0F), -1);
    EXPECT_EQ(target.GetSize(), 36U);
    const CKVFrameBuffer before = source;
    EXPECT_EQ(source.SizeChange(&source, 5, 5), -1);
    EXPECT_EQ(source.SizeChangeScale(&source, 2.0F, 2.0F), -1);
    EXPECT_TRUE(std::equal(before.m_BufferByte, before.m_BufferByte + 64, source.m_BufferByte));
    for (const float factor : {0.2F, 500000000.0F}) {
        CKVFrameBuffer replaced(3, 3, 1);
        EXPECT_EQ(source.SizeChangeScale(&replaced, factor, factor), -1);
        EXPECT_EQ(replaced.IsBuffer(), 1) << factor;
    }
}

}  // namespace
