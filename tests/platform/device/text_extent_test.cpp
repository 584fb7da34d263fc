#include <limits>

#include <gtest/gtest.h>

#include "tests/platform/device/text_fixture.h"

namespace kv::device {
namespace {

using namespace test;

// A cell whose em is 2,048 pixels, a pixel a unit: full-width characters take 2,048, others 1,024.
constexpr LONG kCell = 2203;
constexpr LONG kEm = 2048;

TEST(TextExtent, AddsWholePixelAdvancesCharacterByCharacter) {
    EXPECT_EQ(Extent(Describe("IPAGothic", kCell), Bytes("あA、ｱ")).cx, 3 * kEm);
    // What a face lacks a linked one lends at the same em.
    EXPECT_EQ(Extent(Describe("Arial", -1000), Bytes("あｱ")).cx, 1500);
    for (const LONG height : {3, 17, 48, 333}) {
        const LOGFONTA description = Describe("IPAPMincho", height);
        LONG sum = 0;
        for (const char* character : {"A", "V", "f", "i", "。", "あ"}) {
            sum += Extent(description, Bytes(character)).cx;
        }
        EXPECT_EQ(Extent(description, Bytes("AVfi。あ")).cx, sum) << height;
    }
}

TEST(TextExtent, OfNothingHasTheHeightOfTheCellAndAnglesChangeNothing) {
    const LOGFONTA upright = Describe("Arial", 77);
    EXPECT_EQ(Extent(upright, "").cx, 0);
    EXPECT_EQ(Extent(upright, "").cy, 77);
    for (const LONG angle : {-900, 300, 4500, std::numeric_limits<LONG>::min()}) {
        const tagSIZE turned = Extent(Describe("Arial", 77, angle), "Angle");
        EXPECT_EQ(turned.cx, Extent(upright, "Angle").cx);
        EXPECT_EQ(turned.cy, 77);
    }
}

TEST(TextExtent, DoubleByteCharactersOfAVerticalFaceTakeAnEm) {
    const std::string text = Bytes("（いー。");
    EXPECT_LT(Extent(Describe("IPA Pゴシック", kCell), text).cx, 4 * kEm);
    EXPECT_EQ(Extent(Describe("@IPA Pゴシック", kCell), text).cx, 4 * kEm);
    EXPECT_EQ(Extent(Describe("@IPA Pゴシック", kCell), "Wi").cx,
              Extent(Describe("IPA Pゴシック", kCell), "Wi").cx);
}

TEST(TextExtent, SpacingStaysThroughFontChanges) {
    CDC dc;
    dc.SelectObject(MakeFont(Describe("IPAGothic", kCell)));
    EXPECT_EQ(dc.SetTextCharacterExtra(-100), 0);
    EXPECT_EQ(Extent(dc, Bytes("あaあ")).cx, 5 * kEm / 2 - 300);
    dc.SetTextJustification(-30, 1);
    // The ideographic space is no break character.
    EXPECT_EQ(Extent(dc, Bytes("あ a　 ")).cx, 7 * kEm / 2 - 500 - 60);
    dc.SelectObject(MakeFont(Describe("Arial", kCell)));
    EXPECT_EQ(Extent(dc, "  ").cx, Extent(Describe("Arial", kCell), "  ").cx - 260);
    dc.SetTextJustification(0, 0);
    // Sums past 32 bits stop at the end of the range.
    dc.SetTextCharacterExtra(std::numeric_limits<LONG>::max());
    EXPECT_EQ(Extent(dc, "aaa").cx, std::numeric_limits<LONG>::max());
    dc.SetTextCharacterExtra(std::numeric_limits<LONG>::min());
    EXPECT_EQ(Extent(dc, "aaa").cx, std::numeric_limits<LONG>::min());
}

TEST(TextExtent, BytesAreCountedNotTerminated) {
    const LOGFONTA description = Describe("IPAGothic", kCell);
    const std::string text = Bytes("あい");
    EXPECT_EQ(Extent(description, text.substr(0, 2)).cx, kEm);
    // A lead byte at the end, an unassigned code, a zero and a byte without a meaning: one box
    // each, as wide as the character would be.
    EXPECT_EQ(Extent(description, text.substr(0, 3)).cx, 3 * kEm / 2);
    EXPECT_EQ(Extent(description, std::string("\x81\xAD", 2)).cx, kEm);
    EXPECT_EQ(Extent(description, std::string("\0\xFF", 2)).cx, kEm);
    CDC dc;
    dc.SelectObject(MakeFont(description));
    tagSIZE extent{};
    EXPECT_FALSE(dc.GetTextExtentPoint32A("a", -1, &extent));
    EXPECT_FALSE(dc.GetTextExtentPoint32A(nullptr, 1, &extent));
}

}  // namespace
}  // namespace kv::device
