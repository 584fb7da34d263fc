#include <limits>

#include <gtest/gtest.h>

#include "platform/font/font_instance.h"
#include "tests/platform/device/text_fixture.h"

namespace kv::font {
namespace {

using namespace device::test;

// Faces with units of 2,048 to the em: cell ascent and descent, average width.
struct Design {
    const char* face;
    int ascent, descent, average;
};
constexpr Design kDesigns[] = {{"IPAGothic", 1802, 401, 1024}, {"@IPAGothic", 1802, 401, 1024},
                               {"IPAMincho", 1802, 455, 1024}, {"IPAPGothic", 1802, 401, 956},
                               {"Arial", 1854, 434, 1208},     {"DejaVu Sans", 1901, 483, 1038}};

TEST(FontMetrics, APositiveHeightIsTheCell) {
    for (const Design& design : kDesigns) {
        for (LONG height = 1; height <= 32767; height += 1 + height / 7) {
            const TEXTMETRICA metrics = Metrics(Describe(design.face, height));
            ASSERT_EQ(metrics.tmHeight, height) << design.face;
            ASSERT_EQ(metrics.tmAscent + metrics.tmDescent, height) << design.face;
            const double unit = double(height) / (design.ascent + design.descent);
            ASSERT_NEAR(metrics.tmAscent, design.ascent * unit, 0.51) << design.face << height;
            ASSERT_NEAR(metrics.tmAveCharWidth, std::max(1.0, design.average * unit), 0.51);
            ASSERT_NEAR(metrics.tmInternalLeading, height - 2048 * unit, 0.51);
        }
    }
}

TEST(FontMetrics, ANegativeHeightIsTheEmAndZeroADefault) {
    for (const Design& design : kDesigns) {
        const TEXTMETRICA metrics = Metrics(Describe(design.face, -2048));
        EXPECT_EQ(metrics.tmAscent, design.ascent);
        EXPECT_EQ(metrics.tmHeight, design.ascent + design.descent);
        EXPECT_EQ(metrics.tmAveCharWidth, design.average);
        EXPECT_EQ(Metrics(Describe(design.face, 0)).tmHeight, kDefaultHeight);
    }
}

TEST(FontMetrics, SizesBeyondAnyMemoryAreRefused) {
    for (const LONG size : {kMaxSize + 1, -kMaxSize - 1, std::numeric_limits<LONG>::min(),
                            std::numeric_limits<LONG>::max()}) {
        CFont font;
        EXPECT_FALSE(font.CreateFontIndirectA(Describe("Arial", size)));
        LOGFONTA wide = Describe("Arial", 20);
        wide.lfWidth = size;
        EXPECT_FALSE(font.CreateFontIndirectA(wide));
    }
    EXPECT_EQ(Metrics(Describe("Arial", kMaxSize)).tmHeight, kMaxSize);
}

TEST(FontMetrics, AWidthStretchesTheLineAlone) {
    const std::string text = Bytes("あAい");
    for (const char* face : {"IPAGothic", "@IPAGothic", "Arial"}) {
        LOGFONTA description = Describe(face, 500);
        const TEXTMETRICA natural = Metrics(description);
        const LONG length = Extent(description, text).cx;
        for (const double factor : {0.5, 1.0, 3.0}) {
            description.lfWidth = static_cast<LONG>(natural.tmAveCharWidth * factor);
            EXPECT_EQ(Metrics(description).tmAveCharWidth, description.lfWidth);
            EXPECT_EQ(Metrics(description).tmAscent, natural.tmAscent);
            const tagSIZE wide = Extent(description, text);
            EXPECT_NEAR(wide.cx, length * factor, factor == 1.0 ? 0 : 7) << face << factor;
            EXPECT_EQ(wide.cy, 500);
            description.lfWidth = -description.lfWidth;
            EXPECT_EQ(Extent(description, text).cx, wide.cx);
        }
    }
}

TEST(FontMetrics, BoldAndItalicAreTakenOrMadeWithTheAdvancesKept) {
    const auto draw = [](LONG weight, BYTE italic) {
        LOGFONTA description = Describe("IPAMincho", 200);
        description.lfWeight = weight;
        description.lfItalic = italic;
        EXPECT_EQ(Extent(description, "I").cx, 91);
        Canvas canvas(300, 200);
        canvas.Draw(description, 50, 0, "I");
        return canvas;
    };
    const Canvas plain = draw(400, 0), bold = draw(700, 0), italic = draw(400, 1);
    const Box before = plain.Ink();
    const Box after = bold.Ink();
    EXPECT_GT(bold.Area(), plain.Area() * 11 / 10);
    EXPECT_NEAR(before.left - after.left, after.right - before.right, 1);
    const double above = Metrics(Describe("IPAMincho", 200)).tmAscent - before.top;
    EXPECT_NEAR(italic.Ink().left, before.left, 2);
    EXPECT_NEAR(italic.Ink().right - before.right, 0.2126 * above, 2);
    // A face of its own has advances of its own.
    LOGFONTA description = Describe("Arial", 200);
    description.lfWeight = 700;
    EXPECT_GT(Extent(description, "j").cx, Extent(Describe("Arial", 200), "j").cx);
}

TEST(FontMetrics, AnUnknownFaceIsTheDefaultOfItsCharacterSet) {
    LOGFONTA unknown = Describe("No Such Face", 100);
    EXPECT_EQ(Metrics(unknown).tmAscent, Metrics(Describe("Arial", 100)).tmAscent);
    unknown.lfCharSet = SHIFTJIS_CHARSET;
    EXPECT_EQ(Extent(unknown, "W").cx, Extent(Describe("MS Gothic", 100), "W").cx);
    EXPECT_EQ(Metrics(unknown).tmCharSet, SHIFTJIS_CHARSET);
}

TEST(Font, OutlivesItsHandleInTheContext) {
    CFont font = MakeFont(Describe("Arial", 40));
    CDC dc;
    EXPECT_TRUE(dc.SelectObject(font).IsNull());
    font.DeleteObject();
    EXPECT_EQ(Extent(dc, "").cy, 40);
    const CFont back = dc.SelectObject(font);
    LOGFONTA read{};
    EXPECT_EQ(GetObjectA(back, 60, &read), 60);
    EXPECT_EQ(read.lfHeight, 40);
    EXPECT_FALSE(dc.TextOutA(0, 0, "a", 1));
}

}  // namespace
}  // namespace kv::font
