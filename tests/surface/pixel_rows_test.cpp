#include "surface/pixel_rows.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "base/cpu.h"

namespace {

// The rules as they are told, one pixel after the other.
DWORD Mix(DWORD dst, DWORD src, DWORD dstWeight, DWORD srcWeight, DWORD total) {
    DWORD result = total << 24;
    for (const int shift : {0, 8, 16}) {
        const DWORD sum = (dst >> shift) % 256 * dstWeight + (src >> shift) % 256 * srcWeight;
        result |= sum / total << shift;
    }
    return result;
}

DWORD ByKey(DWORD dst, DWORD src) {
    const DWORD sa = src >> 24;
    const DWORD da = dst >> 24;
    if (sa == 255 || (sa == 0 && da == 0 && src != 0)) {
        return src;
    }
    const DWORD d = da - da * sa / 255;
    return sa == 0 ? dst : Mix(dst, src, d, sa, d + sa);
}

DWORD ByMask(DWORD dst, DWORD src, DWORD m) {
    const DWORD e = (dst >> 24) * (255 - m) / 255;
    DWORD s = src >> 24;
    DWORD total = s + e;
    if (total > 255) {
        s = 255 - e;
        total = 255;
    }
    if (total == 0) {
        return m != 0 ? src : dst % 0x1000000;
    }
    return Mix(dst, src, e, s, total);
}

class PixelRows : public testing::TestWithParam<kv::CpuLevel> {
  protected:
    void SetUp() override { kv::ForceCpuLevel(GetParam()); }
    void TearDown() override { kv::ForceCpuLevel(kv::DetectedCpuLevel()); }

    // Blends through the rows and through the rules above; dst stands between guard pixels.
    static void ExpectSame(const std::vector<DWORD>& dst, const DWORD* src, const BYTE* mask) {
        const std::size_t count = dst.size() - 2;
        std::vector<DWORD> rows = dst;
        std::vector<DWORD> plain = dst;
        for (std::size_t i = 0; i < count; ++i) {
            plain[i + 1] =
                mask != nullptr ? ByMask(dst[i + 1], src[i], mask[i]) : ByKey(dst[i + 1], src[i]);
        }
        if (mask != nullptr) {
            kv::BlendRowByMask(rows.data() + 1, src, mask, count);
        } else {
            kv::BlendRowByKey(rows.data() + 1, src, count);
        }
        ASSERT_EQ(rows, plain);
    }

    // Colours with many extremes.
    DWORD Colour() {
        const DWORD extremes = random() % 2 == 0 ? 0xFFFFFF : 0;
        return random() % 3 == 0 ? extremes : static_cast<DWORD>(random()) & 0xFFFFFF;
    }

    std::mt19937 random{11};
};

// Every coverage with every pair of keys; the blend by key meets every pair 64 times.
TEST_P(PixelRows, AllCoveragesAndKeyPairs) {
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
TEST_P(PixelRows, RunsAtAllWidths) {
    const auto run = [this](BYTE& key) {
        if (random() % 6 == 0) {
            const BYTE kinds[] = {0, 255, static_cast<BYTE>(random())};
            key = kinds[random() % 3];
        }
        return random() % 16 == 0 ? static_cast<BYTE>(random()) : key;
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

INSTANTIATE_TEST_SUITE_P(Levels, PixelRows,
                         testing::Values(kv::CpuLevel::kBaseline, kv::CpuLevel::kAvx2));

}  // namespace
