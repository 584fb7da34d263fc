#include <climits>
#include <cstring>
#include <random>
#include <string>

#include <CDrawText.h>
#include <KVUtf8.h>
#include <gtest/gtest.h>

#include "platform/gdi/dc.h"

namespace {

constexpr char kLatin[] = "Arial";

struct Layout {
    CKVMonoBitmap mask;
    tagPOINT pos{INT_MIN, INT_MIN};
};

Layout LayOut(CDrawText& text) {
    Layout out;
    EXPECT_EQ(text.NomDispBwBmpH(nullptr, &text.m_Font, text.GetString(), &out.mask, &out.pos), 0);
    return out;
}

CDrawText Line(const char* face, const char* string) {
    CDrawText text;
    text.SetFontName(face);
    text.SetString(string);
    text.SetPos(100, 200);
    return text;
}

// A font that is asked for directly, ready to be measured.
struct Measure {
    CFont font;
    CDC dc;

    Measure(const char* face, LONG height, LONG width) {
        LOGFONTA description{};
        EXPECT_EQ(CKVFont().GetFontLogfont(nullptr, face, &description), 0);
        description.lfHeight = height;
        description.lfWidth = width;
        description.lfWeight = 400;
        EXPECT_TRUE(font.CreateFontIndirectA(description));
        dc.CreateCompatibleDC(nullptr);
        dc.SelectObject(font);
    }
    TEXTMETRICA Metric() {
        TEXTMETRICA metric{};
        dc.GetTextMetricsA(&metric);
        return metric;
    }
};

long SetBits(const CKVMonoBitmap& mask) {
    long count = 0;
    for (DWORD i = 0; i < mask.Size; ++i) {
        count += __builtin_popcount(mask.Bits[i]);
    }
    return count;
}

LONG NextX(CDrawText text) {
    LayOut(text);
    return text.GetNextAddress_X();
}

TEST(HorizontalLine, MaskIsAWholeNumberOfFinalPixels) {
    for (const LONG scale : {1, 4, 8, 16}) {
        CDrawText text = Line(kLatin, "Hxg");
        text.SetSize(33, 100);
        text.SetAntiScale(scale);
        const Layout line = LayOut(text);
        EXPECT_EQ(line.mask.Width % 16, 0);
        EXPECT_EQ(line.mask.Height, 33 * scale);
        EXPECT_GT(SetBits(line.mask), 33 * 33 * scale * scale / 20);
        EXPECT_EQ(line.pos.x, 100);
        // Length, mask and continuation agree to less than a final pixel and the mask's padding.
        const LONG advance = text.GetNextAddress_X() - line.pos.x;
        EXPECT_LE(advance * scale, line.mask.Width);
        EXPECT_GT((advance + 1) * scale + 15, line.mask.Width - 16);
    }
}

TEST(HorizontalLine, BaselineCorrectionSparesJapaneseFaces) {
    CDrawText japanese = Line(CDrawText().GetFontName(), "A"), latin = Line(kLatin, "A");
    japanese.SetSize(48, 100);
    latin.SetSize(48, 100);
    EXPECT_EQ(LayOut(japanese).pos.y, 200 - 48);
    const LONG descent = Measure(kLatin, 48 * 16, 0).Metric().tmDescent;
    EXPECT_EQ(LayOut(latin).pos.y, 200 - 48 + descent / 16 - 2);  // 48 * 0.05 = 2.4
}

TEST(HorizontalLine, WidthFollowsPercentAndAspect) {
    const LONG natural = Measure(kLatin, 32 * 16, 0).Metric().tmAveCharWidth;
    struct {
        LONG percent, aspect;
        double factor;
    } const cases[] = {{100, 1, 1.0}, {100, 0, 1.125}, {0, 0, 1.125}, {50, 1, 0.5}, {200, 0, 2.25}};
    for (const auto& c : cases) {
        CDrawText text = Line(kLatin, "mnmnmnmnmnmnmnmnmnmn");
        text.SetSize(32, c.percent);
        text.SetAspectMode(c.aspect);
        const double length = (NextX(text) - 100) * 16.0;
        Measure asked(kLatin, 32 * 16, static_cast<LONG>((natural * 100 * c.factor + 50) / 100));
        tagSIZE extent{};
        asked.dc.GetTextExtentPoint32A(text.GetString(), 20, &extent);
        EXPECT_NEAR(length, extent.cx, 16.0) << c.percent << ", " << c.aspect;
    }
}

// Extra counts once less than there are characters, a negative one twice less.
TEST(HorizontalLine, SpaceCountsBetweenCharacters) {
    const LONG cases[][3] = {{3, 12, 0}, {10, 40, 0}, {-1, 3, 1}, {-2, 3 * 2, 2}, {-4, 12, 4}};
    for (const auto& [space, five, one] : cases) {
        CDrawText text = Line(CDrawText().GetFontName(), KVFromUtf8("漢字abc"));
        CDrawText single = Line(kLatin, "M");
        const LONG plain = NextX(text);
        const LONG alone = NextX(single);
        text.SetSpace(space);
        single.SetSpace(space);
        EXPECT_EQ(NextX(text), plain + (space > 0 ? five : -five)) << space;
        EXPECT_EQ(NextX(single), alone + one) << space;
    }
}

TEST(HorizontalLine, BlankRuleMovesBlanksOnly) {
    CDrawText text = Line(CDrawText().GetFontName(), "a b c");
    text.SetAspectMode(1);
    text.SetSize(64, 100);
    const LONG plain = NextX(text);
    const LONG average = Measure(text.GetFontName(), 64 * 16, 0).Metric().tmAveCharWidth / 16;
    for (const LONG percent : {100, 50, 200, 1}) {
        text.SetSpPer(percent);
        EXPECT_NEAR(NextX(text) - plain, (percent - 100) / 100.0 * average, 1.0) << percent;
    }
}

TEST(HorizontalLine, AlignsInItsArea) {
    CDrawText text = Line(kLatin, "aligned");
    const LONG length = NextX(text) - 100;
    for (const LONG area : {0, 101, 300}) {
        text.SetEria(area, 7);
        text.SetFormat(1);
        EXPECT_EQ(LayOut(text).pos.x, 100 + area - length);
        text.SetFormat(2);
        EXPECT_EQ(LayOut(text).pos.x, 100 + area / 2 - length / 2);
        EXPECT_EQ(text.GetNextAddress_X(), 100 + area / 2 - length / 2 + length);
    }
}

TEST(HorizontalLine, ContinuesWhereTheLastPieceEnded) {
    CDrawText text = Line(kLatin, "one");
    text.SetAddressMode(1);
    text.SetNextAddress(40, 90);
    const Layout first = LayOut(text);
    EXPECT_EQ(first.pos.x, 40);
    EXPECT_EQ(text.GetNextAddress_Y(), 200);  // the anchor's row, wherever the line began
    const LONG next = text.GetNextAddress_X();
    text.SetString("two");
    const Layout second = LayOut(text);
    EXPECT_EQ(second.pos.x, next);
    EXPECT_EQ(second.pos.y, first.pos.y + 110);
}

TEST(HorizontalLine, ItalicWidensTheMaskOnly) {
    CDrawText text = Line(CDrawText().GetFontName(), KVFromUtf8("斜"));
    text.SetSize(64, 100);
    const Layout upright = LayOut(text);
    const CPoint next = text.GetNextAddress();
    text.SetItalic(1);
    const Layout slanted = LayOut(text);
    EXPECT_EQ(text.GetNextAddress(), next);
    EXPECT_GT(slanted.mask.Width, upright.mask.Width);
}

TEST(HorizontalLine, EmptyTextAndUnknownScaleGiveNoMask) {
    const std::pair<const char*, LONG> cases[] = {{"", 16},   {nullptr, 16}, {"x", 0},
                                                  {"x", -16}, {"x", 2},      {"x", INT_MIN}};
    for (const auto& [string, scale] : cases) {
        CDrawText text = Line(kLatin, string);
        text.SetNextAddress(7, 8);
        text.m_Font.AntiScale = scale;
        Layout line;
        line.mask.Create(16, 16);
        text.NomDispBwBmpH(nullptr, &text.m_Font, string, &line.mask, &line.pos);
        EXPECT_EQ(line.mask.Bits, nullptr);
        EXPECT_EQ(text.GetNextAddress(), scale == 16 ? CPoint(100, 200) : CPoint(7, 8));
    }
}

TEST(FontFbDisp, OtherDirectionsDrawNothing) {
    for (const LONG dir : {-1, 4, INT_MAX}) {
        CDrawText text = Line(kLatin, "x");
        text.m_Font.Dir = dir;
        CKVFrameBuffer fb(64, 64, 1);
        text.m_DispEria = CBox(1, 2, 3, 4);
        EXPECT_EQ(text.DrawFrame(nullptr, &fb), 0);
        EXPECT_EQ(text.m_DispEria.GetRect(), CRect(0, 0, 0, 0));
    }
}

TEST(FontFbDisp, DrawsTheSamePictureAsTheAreaRender) {
    CDrawText text = Line(kLatin, "Area");
    text.SetEdgeType(0, 3, 0);
    text.SetShadType(1, -4, 0, 0);
    CKVFrameBuffer drawn(320, 240, 1), fitted;
    text.DrawFrame(nullptr, &drawn);
    const CBox touched = text.GetDispEria();
    CBox area, body, edge, shadow;
    text.DrawFrameEria(nullptr, &fitted, area, body, edge, shadow);
    EXPECT_EQ(area.GetRect(), touched.GetRect());
    EXPECT_EQ(text.GetDispEria().GetRect(), area.GetRect());
    ASSERT_EQ(fitted.GetWH(), area.Size());
    for (LONG y = 0; y < area.height; ++y) {
        ASSERT_EQ(std::memcmp(fitted.GetBufferDWord() + y * area.width,
                              drawn.GetBufferDWord() + (area.y + y) * 320 + area.x,
                              static_cast<std::size_t>(area.width) * 4),
                  0);
    }
}

// Whatever a hand-filled record holds, a drawing ends and leaves a whole object. Widths and
// distances stay small: large ones ask for gigabytes of mask, and get them where there are some.
TEST(FontFbDisp, HostileRecordsDoNoHarm) {
    std::mt19937 random(1);
    const LONG anything[] = {0, 1, -1, 2, 7, 100, -3000, INT_MAX, INT_MIN};
    const LONG small[] = {0, 1, -1, 90, -200};
    const LONG heights[] = {0, 1, -1, 20, -20, INT_MAX, INT_MIN};
    for (int i = 0; i < 200; ++i) {
        CDrawText text = Line(kLatin, "a \x83\x41\x83");
        tagKVFONTINFO& info = text.m_Font;
        for (LONG* field : {&info.SpPer, &info.Eria_Width, &info.Eria_Height, &info.Format,
                            &info.Pos_X, &info.Pos_Y, &info.NextAddress_X, &info.NextAddress_Y,
                            &info.AddressMode, &info.Italic, &info.Weight}) {
            *field = anything[random() % std::size(anything)];
        }
        info.Size_WidthPer = small[random() % std::size(small)];
        info.Space = small[random() % std::size(small)];
        info.Size_Height = heights[random() % std::size(heights)];
        text.SetAntiScale(static_cast<LONG>(random() % 17));
        if (i % 3 != 0) {  // no end to the name, nor a face to it
            std::memset(info.FontName, i % 3 == 1 ? '\x83' : 'q', sizeof info.FontName);
        }
        if (info.SpPer > 3000 || info.SpPer < -3000) {
            info.SpPer /= 1 << 20;
        }
        CKVFrameBuffer fb(64, 64, 1);
        EXPECT_EQ(text.DrawFrame(nullptr, &fb), 0);
    }
}

}  // namespace
