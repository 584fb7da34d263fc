#include "tests/dib/dib_support.h"

namespace {

// Run-length rows decoded the obvious way into indices, bottom row first.
dib::Bytes Decoded(const dib::Bytes& data, std::size_t width, std::size_t height, int bits) {
    dib::Bytes out(width * height);
    std::size_t x = 0;
    std::size_t y = 0;
    const auto put = [&](unsigned int index) {
        ASSERT_TRUE(x < width && y < height) << "leaves the picture";
        out[y * width + x++] = static_cast<BYTE>(index);
    };
    const auto nibble = [](BYTE both, std::size_t i) {
        return i % 2 == 0 ? both >> 4U : both & 15U;
    };
    for (std::size_t at = 0; at + 1 < data.size();) {
        const std::size_t count = data[at++];
        const BYTE value = data[at++];
        if (count == 0 && value < 2) {
            y += 1;
            x = 0;
            if (value == 1) {
                EXPECT_EQ(at, data.size());
                EXPECT_EQ(y, height);
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            put(bits == 8 ? value : nibble(value, i));
        }
        for (std::size_t i = 0; count == 0 && value > 2 && i < value; ++i) {
            put(bits == 8 ? data.at(at + i) : nibble(data.at(at + i / 2), i));
        }
        if (count == 0 && value > 2) {
            const std::size_t bytes = bits == 8 ? value : (value + 1U) / 2;
            at += bytes + bytes % 2;
        }
    }
    return out;
}

dib::Bytes Indices(const CDib& dib) {
    dib::Bytes out;
    const dib::Bytes rows = dib::Rows(dib);
    for (LONG y = 0; y < dib.GetHeight(); ++y) {
        for (LONG x = 0; x < dib.GetWidth(); ++x) {
            const auto bits = static_cast<std::size_t>(dib.GetBitCount());
            const std::size_t at = static_cast<std::size_t>(x) * bits;
            const BYTE byte = rows[static_cast<std::size_t>(y) * dib.GetLineByte() + at / 8];
            out.push_back(static_cast<BYTE>(byte >> (8 - bits - at % 8) & ((1U << bits) - 1)));
        }
    }
    return out;
}

TEST(DibCompress, RoundTripsAreExact) {
    dib::Screen screen(1, 1);
    for (const int bits : {4, 8}) {
        for (int width = 1; width < 600; width += width < 70 ? 1 : 89) {
            for (const unsigned int longest : {1U, 3U, 9U, 700U}) {
                CDib dib(width, 3, bits, 0);
                dib::Fill(dib, static_cast<unsigned int>(width), longest);
                const dib::Bytes indices = Indices(dib);
                ASSERT_EQ(dib.Compress(&screen.m_Dc, 1), 1);
                EXPECT_EQ(static_cast<DWORD>(dib.m_Header->biCompression),
                          bits == 4 ? BI_RLE4 : BI_RLE8);
                EXPECT_EQ(static_cast<DWORD>(dib.m_Header->biSizeImage), dib.m_SizeImage);
                ASSERT_EQ(Decoded(dib::Rows(dib), static_cast<std::size_t>(width), 3, bits),
                          indices)
                    << width;
                CDib stored;
                ASSERT_EQ(dib::Load(stored, dib::Saved(dib)), 1);
                const std::vector<DWORD> shown = dib::Shown(stored);
                ASSERT_EQ(dib.Compress(&screen.m_Dc, 0), 1);
                EXPECT_EQ(static_cast<DWORD>(dib.m_Header->biCompression), BI_RGB);
                EXPECT_EQ(dib.m_SizeImage, dib.GetLineByte() * 3);
                ASSERT_EQ(Indices(dib), indices) << width;
                ASSERT_EQ(dib::Shown(dib), shown) << width;
            }
        }
    }
}

TEST(DibCompress, RunsMakeItSmall) {
    dib::Screen screen(1, 1);
    CDib dib(1000, 100, 8, 0);
    std::memset(dib.m_Image, 7, dib.m_SizeImage);
    ASSERT_EQ(dib.Compress(&screen.m_Dc, 1), 1);
    EXPECT_EQ(dib.m_SizeImage, 100U * (4 * 2 + 2));
}

TEST(DibCompress, RefusalsChangeNothing) {
    dib::Screen screen(1, 1);
    for (const int bits : {1, 16, 24, 32}) {
        CDib dib(4, 4, bits, 0);
        dib::Fill(dib, 1);
        const dib::Bytes before = dib::Saved(dib);
        EXPECT_EQ(dib.Compress(&screen.m_Dc, 1), 0);
        EXPECT_EQ(dib::Saved(dib), before);
    }
    CDib topDown(4, 4, 8, 1);
    dib::Fill(topDown, 1);
    const dib::Bytes before = dib::Saved(topDown);
    EXPECT_EQ(topDown.Compress(&screen.m_Dc, 1), 0);
    EXPECT_EQ(topDown.Compress(nullptr, 0), 0);
    EXPECT_EQ(dib::Saved(topDown), before);
    EXPECT_EQ(topDown.Compress(&screen.m_Dc, 0), 1);
    EXPECT_EQ(Indices(topDown).size(), 16U);
    CDib section(CSize(4, 4), 8);
    section.CreateSection(&screen.m_Dc);
    EXPECT_EQ(section.Compress(&screen.m_Dc, 1), 0);
    EXPECT_EQ(CDib().Compress(&screen.m_Dc, 1), 0);
}

// Codes laid out by hand; each picture is 4 wide, 3 high, and listed bottom row first.
TEST(DibCompress, ReadsEveryCode) {
    const struct {
        int bits;
        dib::Bytes data, indices;
    } cases[] = {
        {8, {3, 7, 0, 0, 0, 3, 1, 2, 3, 99, 0, 1}, {7, 7, 7, 0, 1, 2, 3, 0, 0, 0, 0, 0}},
        {8, {1, 5, 0, 2, 1, 2, 1, 6, 0, 1, 4, 9}, {5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 6, 0}},
        {8, {1, 5, 0, 2, 1, 0, 1, 6}, {5, 0, 6, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {8, {255, 4, 1, 9, 0, 0, 0, 2, 200, 1, 2, 3}, {4, 4, 4, 4, 0, 0, 0, 0, 0, 0, 0, 0}},
        {8, {0, 200, 1, 2}, {1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {4, {3, 0x12, 0, 0, 0, 3, 0x45, 0x6F, 4, 0x78}, {1, 2, 1, 0, 4, 5, 6, 7}},
        {4, {1, 0xA0, 0, 9, 0x12}, {10, 1, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {4, {0}, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
    };
    dib::Screen screen(1, 1);
    for (const auto& code : cases) {
        dib::Bytes colours(std::size_t{4} << code.bits);
        dib::Bytes file = dib::File(4, 3, code.bits, colours, code.data);
        dib::Put(file, 30, code.bits == 4 ? BI_RLE4 : BI_RLE8);
        dib::Put(file, 34, static_cast<DWORD>(code.data.size()));
        CDib dib;
        ASSERT_EQ(dib::Load(dib, file), 1);
        ASSERT_EQ(dib.Compress(&screen.m_Dc, 0), 1);
        dib::Bytes expected = code.indices;
        expected.resize(12);
        EXPECT_EQ(Indices(dib), expected) << testing::PrintToString(code.data);
        // A picture that claims far more than its data could tell is not made.
        dib::Put(file, 18, 1 << 30);
        dib::Put(file, 22, 1 << 30);
        EXPECT_EQ(dib::Load(dib, file), 1);
        EXPECT_EQ(dib.CreateBitmap(&screen.m_Dc), nullptr);
        EXPECT_EQ(dib.Draw(&screen.m_Dc, {0, 0}, {1, 1}), 1);
    }
}

}  // namespace
