#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"

namespace {

using effect_test::At;

// Bit by bit: count times 256 over the bits of a block, the full block 255.
int PlainCoverage(const CKVMonoBitmap& mask, int scale, int column, int row) {
    int count = 0;
    for (int y = row * scale; y < (row + 1) * scale; ++y) {
        for (int x = column * scale; x < (column + 1) * scale; ++x) {
            count += mask.Bits[y * static_cast<int>(mask.Pitch) + x / 8] >> (7 - x % 8) & 1;
        }
    }
    return std::min(count * 256 / (scale * scale), 255);
}

TEST(Reduction, CountsTheBitsOfEachBlock) {
    std::mt19937 random(1);
    for (const int scale : {1, 4, 8, 16}) {
        for (int width = 1; width < 1200; width += 1 + width / 5) {
            CKVMonoBitmap mask;
            mask.Create(width, (1 + width % 4) * scale + scale / 2);
            const int kind = width % 3;  // sparse, dense, full
            for (DWORD i = 0; i < mask.Size; ++i) {
                const auto bits = static_cast<BYTE>(random());
                const auto more = static_cast<BYTE>(random());
                mask.Bits[i] =
                    kind == 2 ? 255 : static_cast<BYTE>(kind == 0 ? bits & more : bits | more);
            }
            AtEachLevel([&] {
                CKVGrayBitmap gray;
                ASSERT_EQ(CKVBwDraw().MakeAntiGray(scale, &mask, &gray), 0);
                ASSERT_EQ(gray.Width, static_cast<LONG>(mask.Pitch) * 8 / scale);
                ASSERT_EQ(gray.Height, mask.Height / scale);
                for (LONG y = 0; y < gray.Height; ++y) {
                    for (LONG x = 0; x < gray.Width; ++x) {
                        ASSERT_EQ(At(gray, x, y), PlainCoverage(mask, scale, x, y))
                            << scale << ": " << x << ", " << y;
                    }
                }
            });
        }
    }
}

TEST(Reduction, EveryCountHasItsCoverage) {
    CKVMonoBitmap unscaled;
    CKVGrayBitmap emptied;
    unscaled.Create(8, 15);
    for (const int scale : {3, 16}) {  // no scale, no whole row
        emptied.Create(9, 9);
        EXPECT_EQ(CKVBwDraw().MakeAntiGray(scale, &unscaled, &emptied), scale == 3 ? -1 : 0);
        EXPECT_EQ(emptied.Width + emptied.Height, 0);
    }
    for (const int scale : {4, 8, 16}) {
        for (int count = 0; count <= scale * scale; ++count) {
            CKVMonoBitmap mask;
            mask.Create(scale, scale);
            for (int bit = 0; bit < count; ++bit) {
                mask.Bits[bit / scale * 2 + bit % scale / 8] |=
                    static_cast<BYTE>(0x80 >> bit % scale % 8);
            }
            AtEachLevel([&] {
                CKVGrayBitmap gray;
                ASSERT_EQ(CKVBwDraw().MakeAntiGray(scale, &mask, &gray), 0);
                EXPECT_EQ(gray.Bits[0], std::min(count * 256 / (scale * scale), 255)) << count;
            });
        }
    }
}

TEST(ColourPaint, ScalesEveryKeyByEveryCoverage) {
    CKVGrayBitmap gray;
    gray.Create(256, 3);
    for (DWORD i = 0; i < gray.Size; ++i) {
        gray.Bits[i] = static_cast<BYTE>(i);
    }
    AtEachLevel([&] {
        CKVFrameBuffer layer(3, 3, 1);
        for (DWORD key = 0; key < 256; ++key) {
            const DWORD colour = key << 24 | 0x112233;
            ASSERT_EQ(CKVBwDraw().MakeFb_Color(&gray, &layer, &colour), 0);
            for (DWORD i = 0; i < gray.Size; ++i) {
                const DWORD g = i % 256;
                const DWORD pixel = g == 0 ? 0 : (key * g / 255) << 24 | 0x112233;
                ASSERT_EQ(layer.GetBufferDWord()[i], pixel) << key << " by " << g;
            }
        }
    });
}

TEST(ColourPaint, TakesAnySizeAndRefusesNull) {
    const DWORD colour = 0xFF112233;
    CKVFrameBuffer layer;
    CKVGrayBitmap gray;
    EXPECT_EQ(CKVBwDraw().MakeFb_Color(nullptr, &layer, &colour), -1);
    EXPECT_EQ(CKVBwDraw().MakeFb_Color(&gray, nullptr, &colour), -1);
    for (LONG width = 1; width < 70; ++width) {
        gray.Delete();
        gray.Create(width, 2);
        At(gray, width - 1, 1) = 128;
        EXPECT_EQ(CKVBwDraw().MakeFb_Color(&gray, &layer, &colour), 0);
        EXPECT_EQ(layer.GetWH(), CSize(width, 2));
        EXPECT_EQ(layer.GetBufferDWord()[2 * width - 1], 0x80112233);
    }
    gray.Delete();
    EXPECT_EQ(CKVBwDraw().MakeFb_Color(&gray, &layer, &colour), 0);
    EXPECT_EQ(layer.IsBuffer(), 1);
}

}  // namespace
