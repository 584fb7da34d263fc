#include <cmath>
#include <limits>
#include <thread>

#include <gtest/gtest.h>

#include "platform/font/font_catalogue.h"
#include "platform/font/free_type.h"
#include "tests/platform/device/text_fixture.h"

namespace kv::device {
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
    constexpr int kSize = 128;
    const font::FreeTypeLibrary library = font::OpenFreeType();
    const font::FaceRecord& record =
        font::FontCatalogue::Get().Find("IPAMincho")->family->faces.front();
    const font::FreeTypeFace face = font::OpenFace(library.get(), record.file, record.index);
    FT_Set_Pixel_Sizes(face.get(), 64, 64);
    for (const char character : std::string("A&g8@Q")) {
        Canvas canvas(kSize, kSize);
        canvas.Draw(Describe("IPAMincho", -64), 20, 10, std::string(1, character));
        const std::vector<char> pixels = canvas.Pixels();
        FT_Load_Char(face.get(), FT_ULong(character), FT_LOAD_NO_HINTING | FT_LOAD_RENDER);
        const FT_Bitmap& expected = face->glyph->bitmap;
        const int left = 20 + face->glyph->bitmap_left;
        const int top = 10 + Metrics(Describe("IPAMincho", -64)).tmAscent - face->glyph->bitmap_top;
        for (int i = 0; i < kSize * kSize; ++i) {
            const auto column = static_cast<unsigned>(i % kSize - left);
            const auto row = static_cast<unsigned>(i / kSize - top);
            const bool within = column < expected.width && row < expected.rows;
            const int coverage =
                within ? expected.buffer[row * unsigned(expected.pitch) + column] : 0;
            // Between them lies the outline itself, where a pixel may go either way.
            if (coverage < 20 || coverage > 235) {
                ASSERT_EQ(pixels[std::size_t(i)] != 0, coverage > 235) << character << i;
            }
        }
    }
}

TEST(TextOut, DownwardsIsTheUprightLineTurnedPixelForPixel) {
    // At 16 units a pixel many outlines run through pixel centres.
    const LOGFONTA fonts[] = {
        Describe("IPAGothic", -128),    Describe("@IPAGothic", 36),
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
    constexpr int kCentre = 300;
    constexpr int kSize = 2 * kCentre;
    Canvas upright(kSize, kSize);
    upright.Draw(Describe("Arial", 80), kCentre, kCentre, "HEH");
    const std::vector<char> pixels = upright.Pixels();
    for (const int angle : {300, 900, 1800, 2345, -1, 3600 + 450}) {
        Canvas turned(kSize, kSize);
        turned.Draw(Describe("Arial", 80, angle), kCentre, kCentre, "HEH");
        const std::vector<char> found = turned.Pixels();
        const double cosine = std::cos(angle * std::acos(-1.0) / 1800.0);
        const double sine = std::sin(angle * std::acos(-1.0) / 1800.0);
        int inked = 0;
        int kept = 0;
        for (int i = 0; i < kSize * kSize; ++i) {
            const double u = i % kSize + 0.5 - kCentre;
            const int line = i / kSize;
            const double v = line + 0.5 - kCentre;
            const auto x = std::size_t(std::clamp(kCentre + u * cosine + v * sine, 0.0, 599.0));
            const auto y = std::size_t(std::clamp(kCentre - u * sine + v * cosine, 0.0, 599.0));
            inked += pixels[std::size_t(i)];
            kept += pixels[std::size_t(i)] & found[y * kSize + x];
        }
        EXPECT_GT(kept, inked * 9 / 10) << angle;
        EXPECT_NEAR(turned.Area(), inked, inked / 20.0) << angle;
    }
}

// Where in a cell of 100 the middle of a character's ink lies, once the line runs downwards.
struct Place {
    int x, y, width, height;
};
Box InkOf(const char* face, const char* character, BYTE italic) {
    Canvas canvas(100, 100);
    canvas.Draw(Styled(face, 100, -900, 400, italic), 100, 0, Bytes(character));
    return canvas.Ink();
}
Place Standing(const char* face, const char* character) {
    const Box ink = InkOf(face, character, 0);
    return {(ink.left + ink.right) / 2, (ink.top + ink.bottom) / 2, ink.right - ink.left,
            ink.bottom - ink.top};
}

TEST(TextOut, VerticalFacesStandTheirDoubleByteCharactersUpright) {
    for (const char* face : {"@IPAGothic", "@IPAMincho", "@IPA Pゴシック"}) {
        EXPECT_GT(Standing(face, "。").x, 60) << face;
        EXPECT_LT(Standing(face, "。").y, 40) << face;
        // An opening bracket closes the upper part of its cell off, a closing one the lower part.
        EXPECT_GT(Standing(face, "「").y, Standing(face, "」").y) << face;
        for (const char* bar : {"ー", "…"}) {
            EXPECT_GT(Standing(face, bar).height, 3 * Standing(face, bar).width) << face << bar;
            EXPECT_NEAR(Standing(face, bar).x, 50, 6) << face << bar;
        }
        EXPECT_NEAR(Standing(face, "国").x, 50, 4) << face;
        EXPECT_NEAR(Standing(face, "国").y, 46, 4) << face;
    }
    // Single-byte characters are the plain face's.
    Canvas plain(300, 80);
    Canvas vertical(300, 80);
    plain.Draw(Describe("IPAMincho", 80), 0, 0, Bytes("Agｶj,"));
    vertical.Draw(Describe("@IPAMincho", 80), 0, 0, Bytes("Agｶj,"));
    EXPECT_EQ(plain.Pixels(), vertical.Pixels());
}

/// How far the upper half of a character's ink reaches further right than the lower half.
int Lean(const char* face, LONG angle, BYTE italic) {
    LOGFONTA description = Styled(face, 100, angle, 400, italic);
    Canvas canvas(160, 100);
    canvas.Draw(description, angle == 0 ? 30 : 130, 0, Bytes("国"));
    const std::vector<char> pixels = canvas.Pixels();
    int reach[2] = {0, 0};
    for (int i = 0; i < 160 * 100; ++i) {
        int& half = reach[i / 160 < 45 ? 0 : 1];
        half = pixels[std::size_t(i)] != 0 ? std::max(half, i % 160) : half;
    }
    return reach[0] - reach[1];
}

TEST(TextOut, UprightCharactersOfAVerticalLineLeanAsInAHorizontalOne) {
    EXPECT_EQ(Lean("IPAGothic", 0, 0), 0);
    EXPECT_GT(Lean("IPAGothic", 0, 1), 5);
    for (const BYTE italic : {BYTE{0}, BYTE{1}}) {
        EXPECT_NEAR(Lean("@IPAGothic", -900, italic), Lean("IPAGothic", 0, italic), 1);
    }
    const Box upright = InkOf("@IPAGothic", "国", 0), slanted = InkOf("@IPAGothic", "国", 1);
    EXPECT_NEAR(upright.left + upright.right, slanted.left + slanted.right, 2);
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
            const bool inside = i % kSize >= box.left && i % kSize < box.right &&
                                i / kSize >= box.top && i / kSize < box.bottom;
            ASSERT_EQ(pixels[std::size_t(i)], inside ? glyphs[std::size_t(i)] : 1) << angle << i;
        }
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
            part.Draw(description, 75 + dx, 75 + dy, text);
            const std::vector<char> pixels = part.Pixels();
            EXPECT_EQ(part.Area(true), part.Area());
            for (int i = 0; i < 151 * 151; ++i) {
                const int x = i % 151 + 75 - dx;
                const int y = i / 151 + 75 - dy;
                if (x >= 0 && x < 301 && y >= 0 && y < 301) {
                    ASSERT_EQ(pixels[std::size_t(i)], expected[std::size_t(y * 301 + x)]);
                }
            }
        }
        constexpr LONG kMin = std::numeric_limits<LONG>::min();
        constexpr LONG kMax = std::numeric_limits<LONG>::max();
        for (const auto& [x, y] : {std::pair(kMin, kMax), {kMax, kMin}, {kMax, kMax}}) {
            Canvas canvas(20, 20);
            EXPECT_TRUE(canvas.Draw(description, x, y, text));
            EXPECT_EQ(canvas.Area(), 0);
        }
        description.lfHeight = 32767;
        Canvas canvas(64, 64);
        EXPECT_TRUE(canvas.Draw(description, angle == -900 ? 16000 : -16000, -16000, text));
    }
}

TEST(TextOut, BoxesStandForWhatNoFaceHas) {
    const LOGFONTA description = Describe("Arial", 100);
    for (const char* bytes : {"\x81\xAD", "\xFF", "\x81"}) {
        Canvas canvas(120, 100);
        canvas.Draw(description, 10, 0, bytes);
        const Box ink = canvas.Ink();
        EXPECT_EQ(ink.bottom, Metrics(description).tmAscent);
        EXPECT_GT((ink.right - ink.left) * (ink.bottom - ink.top), 2 * canvas.Area());
    }
}

TEST(TextOut, ThreadsDrawSideBySide) {
    // One font serves all threads, the others are made by each.
    const CFont shared = MakeFont(Describe("IPAGothic", 30));
    const auto draw = [&](int kind) {
        const char* faces[] = {"@IPAGothic", "IPAMincho", "Arial", "DejaVu Serif"};
        Canvas canvas(700, 700);
        canvas.Draw(Styled(faces[kind], 40, kind % 2 == 0 ? -900 : 0, 700, 0), 300, 20,
                    Bytes(kMixed));
        canvas.dc.SelectObject(shared);
        canvas.dc.TextOutA(0, 600, faces[kind], 5);
        return canvas.Pixels();
    };
    const std::vector<char> expected[] = {draw(0), draw(1), draw(2), draw(3)};
    std::vector<std::thread> threads;
    threads.reserve(8);
    std::vector<int> wrong(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&, i] {
            for (int kind = i; kind < i + 6; ++kind) {
                wrong[std::size_t(i)] += draw(kind % 4) == expected[kind % 4] ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, std::vector<int>(8));
}

}  // namespace
}  // namespace kv::device
