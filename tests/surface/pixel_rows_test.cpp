#include "surface/pixel_rows.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "surface/pixel_blend.h"
#include "tests/support/each_level.h"

namespace {

// Worked by hand.
TEST(PixelBlend, ByKey) {
    const DWORD cases[][3] = {{0x80112233, 0xFF445566, 0xFF445566},
                              {0x01112233, 0x00445566, 0x01112233},
                              {0x00112233, 0x00445566, 0x00445566},
                              {0x00112233, 0x00000000, 0x00112233},
                              {0x00FFFFFF, 0x01020304, 0x01020304},
                              {0xFF0000FF, 0x80FF0000, 0xFF80007F},   // d = 255 - 128
                              {0x64C86400, 0x640A14FF, 0xA151329E}};  // d = 100 - 39
    for (const auto& [dst, src, result] : cases) {
        EXPECT_EQ(kv::BlendByKey(dst, src), result) << std::hex << dst << " " << src;
    }
}

TEST(PixelBlend, ByMask) {
    const DWORD cases[][4] = {{0x80112233, 0x40445566, 255, 0x40445566},
                              {0x80112233, 0x00445566, 255, 0x00445566},
                              {0xFF112233, 0x80445566, 0, 0xFF112233},
                              {0x00112233, 0x00445566, 0, 0x00112233},
                              {0x00112233, 0x00445566, 1, 0x00445566},
                              {0x80C86400, 0x400A14FF, 128, 0x7F683B80},   // e = 63, A = 127
                              {0xFFC86400, 0xC00A14FF, 100, 0xFF7D4464},   // e = 155, A at most 255
                              {0xFFC86400, 0x640A14FF, 200, 0x9B4D30A4}};  // e = 55, A = 155
    for (const auto& [dst, src, mask, result] : cases) {
        EXPECT_EQ(kv::BlendByMask(dst, src, mask), result) << std::hex << dst << " " << src;
    }
}

class PixelRows : public testing::Test {
  protected:
    // Blends by rows and pixel by pixel; dst stands between guard pixels.
    static void ExpectSame(const std::vector<DWORD>& dst, const DWORD* src, const BYTE* mask) {
        const std::size_t count = dst.size() - 2;
        std::vector<DWORD> plain = dst;
        for (std::size_t i = 0; i < count; ++i) {
            plain[i + 1] = mask != nullptr ? kv::BlendByMask(dst[i + 1], src[i], mask[i])
                                           : kv::BlendByKey(dst[i + 1], src[i]);
        }
        AtEachLevel([&] {
            std::vector<DWORD> rows = dst;
            if (mask != nullptr) {
                kv::BlendRowByMask(rows.data() + 1, src, mask, count);
            } else {
                kv::BlendRowByKey(rows.data() + 1, src, count);
            }
            ASSERT_EQ(rows, plain);
        });
    }

    // Colours with many extremes.
    DWORD Colour() {
        const DWORD extremes = m_Random() % 2 == 0 ? 0xFFFFFF : 0;
        return m_Random() % 3 == 0 ? extremes : static_cast<DWORD>(m_Random()) & 0xFFFFFF;
    }

    std::mt19937 m_Random{11};
};

// Every coverage with every pair of keys; the blend by key meets every pair 64 times.
TEST_F(PixelRows, AllCoveragesAndKeyPairs) {
    std::vector<DWORD> dst(258);
    std::vector<DWORD> src(256);
    for (DWORD& pixel : src) {
        pixel = Colour();
    }
    for (DWORD m = 0; m < 256; ++m) {
        const std::vector<BYTE> mask(256, static_cast<BYTE>(m));
        for (DWORD da = 0; da < 256; ++da) {
            const DWORD colour = Colour();
            for (DWORD sa = 0; sa < 256; ++sa) {
                dst[sa + 1] = da << 24 | (colour + sa * 0x010305) % 0x1000000;
                src[sa] = sa << 24 | src[sa] % 0x1000000;
            }
            ASSERT_NO_FATAL_FAILURE(ExpectSame(dst, src.data(), mask.data())) << m << " " << da;
            if (m % 4 == 0) {
                ASSERT_NO_FATAL_FAILURE(ExpectSame(dst, src.data(), nullptr)) << da;
            }
        }
    }
}

// Widths, alignments and runs of solid, empty and mixed pixels that begin and end anywhere.
TEST_F(PixelRows, RunsAtAllWidths) {
    const auto run = [this](BYTE& key) {
        if (m_Random() % 6 == 0) {
            const BYTE kinds[] = {0, 255, static_cast<BYTE>(m_Random())};
            key = kinds[m_Random() % 3];
        }
        return m_Random() % 16 == 0 ? static_cast<BYTE>(m_Random()) : key;
    };
    BYTE keys[3] = {};
    for (std::size_t width = 0; width < 70; ++width) {
        for (std::size_t offset = 0; offset < 24; ++offset) {
            std::vector<DWORD> dst(width + 2);
            std::vector<DWORD> src(width + offset);
            std::vector<BYTE> mask(width + offset);
            for (DWORD& pixel : dst) {
                pixel = DWORD{run(keys[0])} << 24 | Colour();
            }
            for (std::size_t i = 0; i < src.size(); ++i) {
                src[i] = DWORD{run(keys[1])} << 24 | Colour();
                mask[i] = run(keys[2]);
            }
            ASSERT_NO_FATAL_FAILURE(ExpectSame(dst, src.data() + offset, nullptr));
            ASSERT_NO_FATAL_FAILURE(ExpectSame(dst, src.data() + offset, mask.data() + offset));
        }
    }
}

}  // namespace
