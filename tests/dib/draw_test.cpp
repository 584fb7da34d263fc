#include <climits>
#include <optional>

#include "tests/dib/dib_support.h"

namespace {

// The colour of a stored pixel, the obvious way; x and y from the left and the top.
DWORD ColourAt(const CDib& dib, LONG x, LONG y) {
    const LONG row = dib.GetInvert() == 1 ? y : dib.GetHeight() - 1 - y;
    const auto* bytes =
        static_cast<const BYTE*>(dib.m_Image) + static_cast<std::size_t>(row) * dib.GetLineByte();
    const int bits = dib.GetBitCount();
    DWORD pixel = 0;
    for (int bit = 0; bits <= 8 && bit < bits; ++bit) {
        const int at = x * bits + bit;
        pixel = pixel << 1 | (bytes[at / 8] >> (7 - at % 8) & 1U);
    }
    if (bits <= 8) {
        const tagRGBQUAD& c = dib.m_ColorTable[pixel];
        return DWORD{c.rgbRed} << 16 | DWORD{c.rgbGreen} << 8 | c.rgbBlue;
    }
    std::memcpy(&pixel, bytes + x * bits / 8, static_cast<std::size_t>(bits / 8));
    if (bits == 16) {
        const DWORD r = pixel >> 10 & 31;
        const DWORD g = pixel >> 5 & 31;
        const DWORD b = pixel & 31;
        return (r << 3 | r >> 2) << 16 | (g << 3 | g >> 2) << 8 | (b << 3 | b >> 2);
    }
    return pixel & 0xFFFFFF;
}

struct Span {
    LONG origin, extent;
};

// The source pixel that target pixel `at` shows, both counted as the spans are.
std::optional<LONG> Mapped(LONG at, Span target, Span source, LONG limit) {
    const auto size = [](LONG extent) { return std::abs(std::int64_t{extent}); };
    const std::int64_t m = size(target.extent);
    const std::int64_t n = size(source.extent);
    const std::int64_t first =
        target.extent < 0 ? target.origin - m + 1 : std::int64_t{target.origin};
    if (n == 0 || at < first || at >= first + m) {
        return {};
    }
    __extension__ using Wide = __int128;
    auto step = static_cast<std::int64_t>(static_cast<Wide>(2 * (at - first) + 1) * n / (2 * m));
    if ((target.extent < 0) != (source.extent < 0)) {
        step = n - 1 - step;
    }
    step += source.extent < 0 ? source.origin - n + 1 : std::int64_t{source.origin};
    return step >= 0 && step < limit ? std::optional(static_cast<LONG>(step)) : std::nullopt;
}

void ExpectDrawn(CDib& dib, CRect dest, CRect src) {
    dib::Screen screen(19, 17);
    EXPECT_EQ(dib.Draw(&screen.m_Dc, dest, src), 1);
    const std::vector<DWORD> drawn = screen.Pixels();
    // A bottom-up picture's rows count from below: turned round, its rectangle starts elsewhere.
    Span rows{src.top, src.Height()};
    if (dib.GetInvert() == 0) {
        const LONG low = rows.extent < 0 ? rows.origin + rows.extent + 1 : rows.origin;
        const LONG size = std::abs(rows.extent);
        rows.origin = dib.GetHeight() - low - size + (rows.extent < 0 ? size - 1 : 0);
    }
    for (LONG y = 0; y < 17; ++y) {
        for (LONG x = 0; x < 19; ++x) {
            const auto sx =
                Mapped(x, {dest.left, dest.Width()}, {src.left, src.Width()}, dib.GetWidth());
            const auto sy = Mapped(y, {dest.top, dest.Height()}, rows, dib.GetHeight());
            const DWORD expected = sx && sy ? ColourAt(dib, *sx, *sy) : 0;
            ASSERT_EQ(drawn[static_cast<std::size_t>(y * 19 + x)], expected) << x << ' ' << y;
        }
    }
}

TEST(DibDraw, ShowsTheNearestPixelAtEveryDepth) {
    std::mt19937 random(5);
    const auto between = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (const int bits : dib::kDepths) {
        for (int i = 0; i < 60; ++i) {
            CDib dib(between(1, 23), between(1, 23), bits, i % 2);
            dib::Fill(dib, static_cast<unsigned int>(i), 2);
            const CRect whole(0, 0, dib.GetWidth(), dib.GetHeight());
            CRect dest;
            CRect src;
            for (LONG* edge : {&dest.left, &dest.right, &dest.top, &dest.bottom}) {
                *edge = between(-9, 30);
            }
            for (LONG* edge : {&src.left, &src.right, &src.top, &src.bottom}) {
                *edge = between(-4, 26);
            }
            ExpectDrawn(dib, dest, src);
            ExpectDrawn(dib, dest, whole);
            ExpectDrawn(dib, {3, 2, 3 + dib.GetWidth(), 2 + dib.GetHeight()}, whole);
        }
    }
}

TEST(DibDraw, HugeRectanglesAreCut) {
    CDib dib(3, 3, 24, 1);
    dib::Fill(dib, 1, 1);
    ExpectDrawn(dib, {-1000000000, 0, 1000000000, 9}, {0, 0, 3, 3});
    ExpectDrawn(dib, {0, 0, 19, 17}, {-1000000000, -5, 1000000000, 5});
    ExpectDrawn(dib, {0, 0, INT_MAX, INT_MAX}, {0, 0, INT_MAX, INT_MAX});
}

TEST(DibDraw, WithoutAHeaderOrADeviceNothingIsDrawn) {
    dib::Screen screen(4, 4);
    CDib dib;
    EXPECT_EQ(dib.Draw(&screen.m_Dc, {0, 0}, {4, 4}), 0);
    EXPECT_EQ(dib.DrawVfw(&screen.m_Dc, {0, 0}, {4, 4}), 1);
    EXPECT_EQ(dib.UsePalette(&screen.m_Dc, 0), 0U);
    dib.Create(4, 4, 24, 0);
    dib::Fill(dib, 1);
    EXPECT_EQ(dib.Draw(nullptr, {0, 0}, {4, 4}), 1);
    CBitmap mask;
    mask.CreateBitmap(4, 4, 1, 1, nullptr);
    CDC dc;
    EXPECT_EQ(dib.Draw(&dc, {0, 0}, {4, 4}), 1);
    dc.SelectObject(mask);
    EXPECT_EQ(dib.Draw(&dc, {0, 0}, {4, 4}), 1);
    // Shapes do not draw onto a colour bitmap.
    EXPECT_FALSE(screen.m_Dc.Rectangle(0, 0, 4, 4));
    EXPECT_FALSE(screen.m_Dc.BitBlt(0, 0, 4, 4, nullptr, 0, 0, BLACKNESS));
    EXPECT_EQ(screen.Pixels(), std::vector<DWORD>(16));
}

// A section takes what is drawn in its own format; an 8-bit one is a palette device.
TEST(DibDraw, SectionsAreDrawnOn) {
    CDib source(6, 5, 8, 0);
    dib::Fill(source, 3, 2);
    for (const int bits : dib::kDepths) {
        CDib section(CSize(6, 5), bits);
        for (LONG i = 0; i < section.m_ColorEntries; ++i) {
            section.m_ColorTable[i] = source.m_ColorTable[i];
        }
        const HBITMAP handle = section.CreateSection(nullptr);
        ASSERT_NE(handle, nullptr);
        EXPECT_EQ(section.CreateSection(nullptr), nullptr);
        EXPECT_EQ(dib::Rows(section), dib::Bytes(section.m_SizeImage));
        CDC dc;
        dc.SelectObject(*handle);
        source.Draw(&dc, {0, 0}, {6, 5});
        const std::vector<DWORD> shown = dib::Shown(section);
        const std::vector<DWORD> wanted = dib::Shown(source);
        for (std::size_t i = 0; i < shown.size() && bits >= 16; ++i) {
            const DWORD kept = bits == 16 ? 0xF8F8F8 : 0xFFFFFF;
            EXPECT_EQ(shown[i] & kept, wanted[i] & kept) << bits;
        }
        EXPECT_EQ(shown == wanted, bits == 8 || bits >= 24);
        CDib other(2, 2, 24, 0);
        EXPECT_EQ(other.SetSystemPalette(&dc), bits == 8 ? 1 : 0);
        EXPECT_EQ(section.SetSystemPalette(&dc), 0);
        PALETTEENTRY entry{};
        if (bits == 8) {
            ASSERT_EQ(other.m_Palette->GetPaletteEntries(200, 1, &entry), 1U);
            EXPECT_EQ(entry.peRed, source.m_ColorTable[200].rgbRed);
            EXPECT_EQ(entry.peBlue, source.m_ColorTable[200].rgbBlue);
        }
        section.Empty();  // the context still has the bitmap
        EXPECT_EQ(source.Draw(&dc, {0, 0}, {6, 5}), 1);
    }
    EXPECT_EQ(source.SetSystemPalette(nullptr), 0);
    // Of entries equally near the first one stands for a colour between them.
    CDib between(1, 1, 24, 0);
    std::memcpy(between.m_Image, "\0\0\x14", 4);
    CDib section(CSize(1, 1), 8);
    section.m_ColorTable[3].rgbRed = 10;
    section.m_ColorTable[5].rgbRed = 30;
    CDC dc;
    dc.SelectObject(*section.CreateSection(nullptr));
    between.Draw(&dc, {0, 0}, {1, 1});
    EXPECT_EQ(dib::Rows(section)[0], 3);
}

TEST(DibDraw, BitmapsAndPalettesAreMade) {
    CDib dib(5, 4, 4, 0);
    dib::Fill(dib, 8);
    dib::Screen screen(5, 4);
    const HBITMAP bitmap = dib.CreateBitmap(&screen.m_Dc);
    ASSERT_NE(bitmap, nullptr);
    DeleteObject(bitmap);
    EXPECT_EQ(dib.CreateBitmap(nullptr), nullptr);
    EXPECT_EQ(dib.MakePalette(), 1);
    PALETTEENTRY entries[20] = {};
    EXPECT_EQ(dib.m_Palette->GetPaletteEntries(3, 20, entries), 13U);
    EXPECT_EQ(entries[0].peRed, dib.m_ColorTable[3].rgbRed);
    EXPECT_EQ(entries[0].peGreen, dib.m_ColorTable[3].rgbGreen);
    dib.Draw(&screen.m_Dc, {0, 0}, {5, 4});
    dib.Empty();
    EXPECT_EQ(screen.m_Dc.GetCurrentPalette().GetEntryCount(), 16);
    EXPECT_EQ(CDib(2, 2, 24, 0).MakePalette(), 0);
}

}  // namespace
