#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

namespace {

constexpr LONG kMax = std::numeric_limits<LONG>::max();

void ExpectEmpty(const CKVFrameBuffer& surface) {
    EXPECT_EQ(surface.IsBuffer(), 1);
    EXPECT_EQ(surface.GetWidth() + surface.GetHeight() + surface.GetSize(), 0U);
    EXPECT_EQ(surface.GetBufferByte(), nullptr);
    EXPECT_EQ(surface.GetBufferDWord(), nullptr);
}

TEST(Store, ResultsOfCreateAndDelete) {
    CKVFrameBuffer surface;
    ExpectEmpty(surface);
    // 32768 * 32768 * 4 wraps to 0 in 32 bits; 1 x 1073741791 is the first height that is too
    // large.
    const LONG cases[][3] = {{0, 5, 4},         {5, 0, 4},          {-1, -1, 4}, {kMax, kMax, 2},
                             {32768, 32768, 2}, {1, 1073741792, 2}, {3, 2, 0}};
    for (const auto& [width, height, result] : cases) {
        EXPECT_EQ(surface.CreateFrameBuffer(width, height, 1), result) << width << " x " << height;
    }
    EXPECT_EQ(surface.GetLineByte(), 12U);
    EXPECT_EQ(surface.GetSize(), 24U);
    EXPECT_EQ(surface.IsBuffer(), 0);
    surface.GetBufferDWord()[5] = 7;
    EXPECT_EQ(surface.CreateFrameBuffer(9, 9, 1), 1);
    EXPECT_EQ(surface.GetBufferDWord()[5], 7U);
    EXPECT_EQ(surface.DeleteFrameBuffer(), 0);
    ExpectEmpty(surface);
    EXPECT_EQ(surface.DeleteFrameBuffer(), 3);
    ExpectEmpty(CKVFrameBuffer(0, 1, 1));
}

// A block that was freed dirty comes back from the allocator, so that what is not cleared shows.
TEST(Store, ClearsPixelsAsAskedAndSpareBytesAlways) {
    for (int i = 0; i < 20; ++i) {
        CKVFrameBuffer surface(5, 5, 0);
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(surface.GetBufferByte()) % 128, 0U);
        auto* const block = static_cast<BYTE*>(surface.m_Alloc);
        const auto isZero = [](BYTE byte) { return byte == 0; };
        EXPECT_TRUE(std::all_of(block, surface.GetBufferByte(), isZero));
        EXPECT_TRUE(std::all_of(surface.GetBufferByte() + 100, block + 228, isZero));
        std::memset(block, 0xEE, 228);
        surface.DeleteFrameBuffer();
        ASSERT_EQ(surface.CreateFrameBuffer(5, 5, 2), 0);
        EXPECT_TRUE(std::all_of(surface.GetBufferByte(), surface.GetBufferByte() + 100, isZero));
    }
}

TEST(Store, CopiesArePixelsOfTheirOwn) {
    CKVFrameBuffer surface(2, 1, 1);
    surface.GetBufferDWord()[1] = 0x12345678;
    CKVFrameBuffer copy(surface);
    CKVFrameBuffer assigned(9, 9, 1);
    assigned = surface;
    CKVFrameBuffer& same = assigned;
    assigned = same;
    surface.GetBufferDWord()[1] = 0;
    for (const CKVFrameBuffer* other : {&copy, &assigned}) {
        ASSERT_EQ(other->GetSize(), 8U);
        EXPECT_EQ(other->GetBufferDWord()[1], 0x12345678U);
    }
    assigned = CKVFrameBuffer();
    ExpectEmpty(assigned);
    ExpectEmpty(CKVFrameBuffer(assigned));
}

TEST(Bitmap24, RowsHeaderAndPadding) {
    CKVFrameBuffer surface(3, 2, 1);
    for (DWORD i = 0; i < 6; ++i) {
        surface.GetBufferDWord()[i] = 0x80030201 + i * 0x10101;
    }
    const std::vector<BYTE> wanted{4, 5, 6, 5, 6, 7, 6, 7, 8, 0xEE, 0xEE, 0xEE,
                                   1, 2, 3, 2, 3, 4, 3, 4, 5, 0xEE, 0xEE, 0xEE};
    for (const int topDown : {0, 1, 2}) {
        std::vector<BYTE> rows(24, 0xEE);
        tagBITMAPINFOHEADER header;
        std::memset(&header, 0xFF, sizeof header);
        ASSERT_EQ(surface.CopyBitmap24(rows.data(), &header, topDown), 0);
        if (topDown != 0) {
            std::rotate(rows.begin(), rows.begin() + 12, rows.end());
        }
        EXPECT_EQ(rows, wanted) << topDown;
        const tagBITMAPINFOHEADER told{40, 3, topDown == 1 ? -2 : 2, 1, 24, 0, 24, 0, 0, 0, 0};
        EXPECT_EQ(std::memcmp(&header, &told, sizeof header), 0) << topDown;
    }
    BYTE byte = 0;
    EXPECT_EQ(surface.CopyBitmap24(nullptr, nullptr, 0), -1);
    EXPECT_EQ(CKVFrameBuffer().CopyBitmap24(&byte, nullptr, 0), -1);
}

}  // namespace
