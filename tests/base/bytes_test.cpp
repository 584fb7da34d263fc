#include "base/bytes.h"

#include <array>
#include <cstdint>
#include <limits>

#include <gtest/gtest.h>

#include "base/checked.h"

namespace {

TEST(Bytes, ReadingAndWritingStopAtTheEnd) {
    std::array<std::uint8_t, 4> bytes{0, 0, 0, 0xEE};
    kv::ByteWriter writer{std::span(bytes).first(3)};
    writer.U16Le(0x1234);
    writer.U16Le(0x5678);
    EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{0x34, 0x12, 0x78, 0xEE}));

    kv::ByteReader reader{std::span(bytes).first(3)};
    EXPECT_EQ(reader.U16Le(), 0x1234);
    EXPECT_EQ(reader.U16Le(), 0x0078);
    EXPECT_TRUE(reader.Take(1).empty());
}

TEST(Checked, ProductsSaturate) {
    constexpr auto kMax = std::numeric_limits<std::uint64_t>::max();
    EXPECT_EQ(kv::SaturatedProduct({0xFFFFFFFF, 0xFFFFFFFF}), 0xFFFFFFFE00000001);
    EXPECT_EQ(kv::SaturatedProduct({kMax, 1}), kMax);
    EXPECT_EQ(kv::SaturatedProduct({0xFFFFFFFF, 0xFFFFFFFF, 4, 1}), kMax);
    EXPECT_EQ(kv::SaturatedProduct({kMax, kMax, 0}), 0U);
}

}  // namespace
