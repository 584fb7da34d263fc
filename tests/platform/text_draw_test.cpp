#include <cmath>
#include <limits>
#include <thread>

#include <gtest/gtest.h>

#include "platform/gdi/font_catalogue.h"
#include "platform/gdi/free_type.h"
#include "tests/platform/text_fixture.h"

namespace kv::gdi {
namespace {

using namespace test;

const char* const kMixed = "（あーいう）「」、。ぁっ—…〜Agj, 龍";

LOGFONTA Styled(const char* face, LONG height, LONG escapement, LONG weight, BYTE italic) {
    LOGFONTA description = Describe(face, height, escapement);
    description.lfWeight = weight;
    description.lfItalic = italic;
    return description;
}

TEST(TextOut, SetsThePixelsInsideTheOutlineAndNoOther) {
    constexpr int kEm = 64;
    constexpr int kSize = 128;
    const FreeTypeLibrary library = OpenFreeType();
    for (const char* family : {"IPAMincho", "Liberation Serif"}) {
        const FaceRecord& record = FontCatalogue::Get().Find(family)->family->faces.front();
        const FreeTypeFace face = OpenFace(library.get(), record.file, record.index);
        FT_Set_Pixel_Sizes(face.get(), kEm, kEm);
        const LOGFONTA description = Describe(family, -kEm);
        for (const char16_t scalar : u"A&g8@Q") {
            if (scalar == 0) {
                continue;
            }
            Canvas canvas(kSize, kSize);
            canvas.Draw(description, 20, 10, std::string(1, static_cast<char>(scalar)));
            const std::vector<char> pixels = canvas.Pixels();
            ASSERT_EQ(FT_Load_Char(face.get(), scalar, FT_LOAD_NO_HINTING | FT_LOAD_RENDER), 0);
            const FT_GlyphSlot slot = face->glyph;
            const int left = 20 + slot->bitmap_left;
            const int top = 10 + Metrics(description).tmAscent - slot->bitmap_top;
            for (int i = 0; i < kSize * kSize; ++i) {
                const int column = i % kSize - left;
                const int row = i / kSize - top;
                const bool within = column >= 0 && column < int(slot->bitmap.width) && row >= 0 &&
                                    row < int(slot->bitmap.rows);
                const int coverage =
                    within ? slot->bitmap.buffer[row * slot->bitmap.pitch + column] : 0;
                // Between them lies the outline itself, where a pixel may go either way.
                if (coverage < 20 || coverage > 235) {
                    ASSERT_EQ(pixels[std::size_t(i)] != 0, coverage > 235)
                        << family << char(scalar) << column << ' ' << row;
                }
            }
        }
    }
}

TEST(TextOut, DownwardsIsTheUprightLineTurnedPixelForPixel) {
    const LOGFONTA fonts[] = {
        Describe("IPAGothic", 37),      Describe("@IPAGothic", 36),
        Describe("@IPAMincho", 96),     Styled("@IPA P明朝", 50, 0, 700, 1),
        Styled("Arial", 61, 0, 700, 1), Describe("DejaVu Serif", 9),
    };
    const std::string text = Bytes(kMixed);
    for (LOGFONTA description : fonts) {
        const tagSIZE extent = Extent(description, text);
        // Room on all sides for what hangs out of the box.
        constexpr int kMargin = 40;
        const int length = extent.cx + 2 * kMargin;
        const int height = extent.cy + 2 * kMargin;
        Canvas upright(length, height);
        ASSERT_TRUE(upright.Draw(description, kMargin, kMargin, text));
        const std::vector<char> expected = upright.Pixels();
        description.lfEscapement = -900;
        for (const int shift : {0, 13, -extent.cx / 2}) {
            Canvas turned(height, length);
            ASSERT_TRUE(turned.Draw(description, height - kMargin + shift, kMargin + shift, text));
            const std::vector<char> pixels = turned.Pixels();
            for (int y = 0; y < length; ++y) {
                for (int x = 0; x < height; ++x) {
                    const int u = y - shift;
                    const int v = height - 1 - (x - shift);
                    const bool within = u >= 0 && u < length && v >= 0 && v < height;
                    ASSERT_EQ(pixels[std::size_t(y * height + x)],
                              within ? expected[std::size_t(v * length + u)] : 0)
                        << description.lfFaceName << ' ' << x << ' ' << y << ' ' << shift;
                }
            }
        }
    }
}

TEST(TextOut, AnyAngleTurnsTheLineAboutTheStartOfItsUpperEdge) {
    constexpr int kCentre = 400;
    Canvas upright(2 * kCentre, 2 * kCentre);
    upright.Draw(Describe("Arial", 80), kCentre, kCentre, "HEH");
    const Box box = upright.Ink();
    for (const int angle : {300, 900, 1350, 1800, 2345, -1, 3600 + 450}) {
        Canvas turned(2 * kCentre, 2 * kCentre);
        turned.Draw(Describe("Arial", 80, angle), kCentre, kCentre, "HEH");
        EXPECT_NEAR(turned.Area(), upright.Area(), upright.Area() / 20) << angle;
        const double radians = angle * std::acos(-1.0) / 1800.0;
        double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;
        for (const double u : {box.left - kCentre, box.right - kCentre}) {
            for (const double v : {box.top - kCentre, box.bottom - kCentre}) {
                const double x = kCentre + u * std::cos(radians) + v * std::sin(radians);
                const double y = kCentre - u * std::sin(radians) + v * std::cos(radians);
                left = std::min(left, x), right = std::max(right, x);
                top = std::min(top, y), bottom = std::max(bottom, y);
            }
        }
        const Box ink = turned.Ink();
        EXPECT_NEAR(ink.left, left, 1.6) << angle;
        EXPECT_NEAR(ink.top, top, 1.6) << angle;
        EXPECT_NEAR(ink.right, right, 1.6) << angle;
        EXPECT_NEAR(ink.bottom, bottom, 1.6) << angle;
    }
}

// Where in a cell of 100 the middle of a character's ink lies, once the line runs downwards.
struct Place {
    int x, y, width, height;
};
Place Standing(const char* face, const char* character) {
    const LOGFONTA description = Describe(face, 100, -900);
    Canvas canvas(100, 100);
    canvas.Draw(description, 100, 0, Bytes(character));
    const Box ink = canvas.Ink();
    return {(ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2, ink.right - ink.left,
            ink.bottom - ink.top};
}

TEST(TextOut, VerticalFacesStandTheirDoubleByteCharactersUpright) {
    for (const char* face : {"@IPAGothic", "@IPAMincho", "@IPA Pゴシック", "@ＭＳ 明朝"}) {
        for (const char* stop : {"。", "、"}) {
            EXPECT_GT(Standing(face, stop).x, 60) << face << stop;
            EXPECT_LT(Standing(face, stop).y, 40) << face << stop;
        }
        // An opening bracket closes the upper part of its cell off, a closing one the lower part.
        EXPECT_GT(Standing(face, "（").y, 50) << face;
        EXPECT_LT(Standing(face, "）").y, 45) << face;
        EXPECT_GT(Standing(face, "（").width, 2 * Standing(face, "（").height) << face;
        EXPECT_GT(Standing(face, "「").y, Standing(face, "」").y) << face;
        for (const char* bar : {"ー", "—", "…", "〜"}) {
            EXPECT_GT(Standing(face, bar).height, 3 * Standing(face, bar).width) << face << bar;
            EXPECT_NEAR(Standing(face, bar).x, 50, 6) << face << bar;
        }
        EXPECT_GT(Standing(face, "ぁ").x, Standing(face, "あ").x + 4) << face;
        EXPECT_NEAR(Standing(face, "国").x, 50, 4) << face;
        EXPECT_NEAR(Standing(face, "国").y, 46, 4) << face;
    }
    // Without the alternates the full stop would keep to the baseline.
    EXPECT_LT(Standing("IPAGothic", "。").x, 40);
    // Single-byte characters are the plain face's.
    Canvas plain(300, 80);
    Canvas vertical(300, 80);
    plain.Draw(Describe("IPAMincho", 80), 0, 0, Bytes("Agｶj,"));
    vertical.Draw(Describe("@IPAMincho", 80), 0, 0, Bytes("Agｶj,"));
    EXPECT_EQ(plain.Bits(), vertical.Bits());
}

/// The box of a line that starts at (200, 200).
Box LineBox(LONG angle, LONG length, LONG height) {
    return angle == 0      ? Box{200, 200, 200 + length, 200 + height}
           : angle == -900 ? Box{200 - height, 200, 200, 200 + length}
                           : Box{200, 200 - length, 200 + height, 200};
}

TEST(TextOut, ClearsTheBoxOfTheWholeLineOnceBeforeAnyGlyph) {
    constexpr int kSize = 400;
    constexpr LONG kExtra = -25;
    const std::string characters[] = {"f", "j", Bytes("あ")};
    for (const LONG angle : {0, -900, 900}) {
        const LOGFONTA description = Styled("Arial", 64, angle, 400, 1);
        // Neighbours overlap and keep their ink: the line is all of its glyphs together.
        std::string text;
        std::vector<char> glyphs(kSize * kSize);
        LONG length = 0;
        for (const std::string& character : characters) {
            Canvas single(kSize, kSize);
            const LONG along = angle == 900 ? -length : length;
            single.Draw(description, angle == 0 ? 200 + along : 200, angle == 0 ? 200 : 200 + along,
                        character);
            const std::vector<char> pixels = single.Pixels();
            std::transform(pixels.begin(), pixels.end(), glyphs.begin(), glyphs.begin(),
                           [](char a, char b) { return static_cast<char>(a | b); });
            text += character;
            length += Extent(description, character).cx + kExtra;
        }
        Canvas canvas(kSize, kSize);
        canvas.dc.SetTextCharacterExtra(kExtra);
        canvas.Draw(description, 200, 200, text);
        EXPECT_EQ(canvas.Pixels(), glyphs) << angle;

        // Over ink, the box and nothing but the box is cleared.
        Canvas inked(kSize, kSize);
        inked.dc.SetBkColor(0xFFFFFF);
        inked.Draw(Describe("Arial", kSize), 0, 0, std::string(9, ' '));
        ASSERT_EQ(inked.Area(), kSize * kSize);
        inked.dc.SetBkColor(0);
        inked.dc.SetTextCharacterExtra(kExtra);
        inked.Draw(description, 200, 200, text);
        const Box box = LineBox(angle, length, 64);
        const std::vector<char> pixels = inked.Pixels();
        for (int i = 0; i < kSize * kSize; ++i) {
            const int x = i % kSize;
            const int y = i / kSize;
            const bool inside = x >= box.left && x < box.right && y >= box.top && y < box.bottom;
            const auto at = static_cast<std::size_t>(i);
            ASSERT_EQ(pixels[at], inside ? glyphs[at] : 1) << angle << ' ' << x << ' ' << y;
        }
    }
}

TEST(TextOut, BlackTextClears) {
    for (const LONG angle : {0, -900}) {
        Canvas white(200, 200);
        white.Draw(Describe("Arial", 90, angle), 100, 100, "E");
        Canvas black(200, 200);
        black.dc.SetBkColor(0xFFFFFF);
        black.dc.SetTextColor(0);
        black.Draw(Describe("Arial", 90, angle), 100, 100, "E");
        EXPECT_EQ(black.Area(), 90 * Extent(Describe("Arial", 90), "E").cx - white.Area()) << angle;
    }
}

TEST(TextOut, ClipsToTheBitmapAndKeepsItsPaddingClear) {
    const std::string text = Bytes("龍f");
    for (const LONG angle : {0, -900, 450}) {
        LOGFONTA description = Describe("@IPAMincho", 60, angle);
        Canvas whole(301, 301);
        whole.Draw(description, 150, 150, text);
        const std::vector<char> expected = whole.Pixels();
        for (const auto& [dx, dy] :
             {std::pair(0, 0), {-60, -70}, {-100, 20}, {33, -120}, {50, 60}}) {
            Canvas part(151, 151);
            part.dc.SetBkColor(0);
            part.Draw(description, 75 + dx, 75 + dy, text);
            const std::vector<char> pixels = part.Pixels();
            int set = 0;
            for (const std::uint8_t byte : part.Bits()) {
                set += __builtin_popcount(byte);
            }
            EXPECT_EQ(set, part.Area());
            for (int i = 0; i < 151 * 151; ++i) {
                const int x = i % 151 + 75 - dx;
                const int y = i / 151 + 75 - dy;
                if (x >= 0 && x < 301 && y >= 0 && y < 301) {
                    ASSERT_EQ(pixels[std::size_t(i)], expected[std::size_t(y * 301 + x)]);
                }
            }
        }
        constexpr LONG kEnds[] = {std::numeric_limits<LONG>::min(),
                                  std::numeric_limits<LONG>::max()};
        for (const LONG x : kEnds) {
            for (const LONG y : kEnds) {
                Canvas canvas(20, 20);
                EXPECT_TRUE(canvas.Draw(description, x, y, text));
                EXPECT_EQ(canvas.Area(), 0);
            }
        }
        description.lfHeight = 32767;
        Canvas canvas(64, 64);
        EXPECT_TRUE(canvas.Draw(description, angle == -900 ? 16000 : -16000, -16000, text));
    }
}

TEST(TextOut, BoxesStandForWhatNoFaceHas) {
    for (const char* bytes : {"\x81\xAD", "\xFF", "\x81"}) {
        Canvas canvas(120, 100);
        canvas.Draw(Describe("Arial", 100), 10, 0, bytes);
        const Box ink = canvas.Ink();
        const int baseline = Metrics(Describe("Arial", 100)).tmAscent;
        EXPECT_EQ(ink.bottom, baseline);
        const int hollow = (ink.right - ink.left) * (ink.bottom - ink.top) - canvas.Area();
        EXPECT_GT(hollow, canvas.Area());
    }
    Canvas linked(120, 100);
    linked.Draw(Describe("Arial", -90), 0, 0, Bytes("国"));
    EXPECT_GT(linked.Area(), 1000);
}

TEST(TextOut, ThreadsDrawSideBySide) {
    const auto draw = [](int kind) {
        const char* faces[] = {"@IPAGothic", "IPAMincho", "Arial", "DejaVu Serif"};
        Canvas canvas(700, 700);
        canvas.Draw(Styled(faces[kind], 40, kind % 2 == 0 ? -900 : 0, 700, 0), 300, 20,
                    Bytes(kMixed));
        return canvas.Bits();
    };
    std::vector<std::vector<std::uint8_t>> expected;
    for (int kind = 0; kind < 4; ++kind) {
        expected.push_back(draw(kind));
    }
    std::vector<std::thread> threads;
    std::vector<int> wrong(8);
    // One font for all of them besides.
    const CFont shared = MakeFont(Describe("IPAGothic", 30));
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&, i] {
            for (int round = 0; round < 6; ++round) {
                const int kind = (i + round) % 4;
                wrong[std::size_t(i)] += draw(kind) == expected[std::size_t(kind)] ? 0 : 1;
                CDC dc;
                dc.SelectObject(shared);
                wrong[std::size_t(i)] += Extent(dc, Bytes("あ")).cx == 28 ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(8));
}

}  // namespace
}  // namespace kv::gdi
