#include <climits>
#include <cstring>

#include <CDrawText.h>
#include <KVUtf8.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "tests/support/thread_sanitizer.h"

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

LONG NextX(CDrawText text) {
    LayOut(text);
    return text.GetNextAddress_X();
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

// What a call adds to the most memory that the process ever held, in MB.
template <typename Call>
LONG MemoryOf(const Call& call) {
    rusage before{}, after{};
    getrusage(RUSAGE_SELF, &before);
    call();
    getrusage(RUSAGE_SELF, &after);
    return static_cast<LONG>((after.ru_maxrss - before.ru_maxrss) / 1024);
}

TEST(HorizontalLine, MaskBeyondTheLargestTakesNoMemory) {
    CDrawText text = Line(kLatin, "xx");
    text.SetAntiScale(1);
    text.SetSize(40, 100);
    text.SetSpace(1 << 30);  // 5 GB
    EXPECT_LT(MemoryOf([&] { EXPECT_EQ(LayOut(text).mask.Bits, nullptr); }), 100);
}

TEST(VerticalLine, MemoryIsThatOfItsPicture) {
    SKIP_UNDER_THREAD_SANITIZER();
    CDrawText text = Line(kLatin, "xx");
    text.SetAntiScale(1);
    text.SetSize(9, 100);
    text.SetSpace(1 << 24);
    Layout line;
    const LONG megabytes = MemoryOf([&] {
        text.NomDispBwBmpV(nullptr, &text.m_Font, text.GetString(), &line.mask, &line.pos);
    });
    EXPECT_EQ(line.mask.Size >> 20, 32U);
    EXPECT_LT(megabytes, 130);  // the bitmap's, the mask's and the fonts'
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

}  // namespace
