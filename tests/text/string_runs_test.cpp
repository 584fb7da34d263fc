#include <string>
#include <vector>

#include <CKVFont.h>
#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

// Two double-byte characters; the second one's trail byte is a backslash.
const std::string kKan = "\x8A\xBF";
const std::string kHyo = "\x95\x5C";
const std::string kCircle = "\x81\x9B";
const std::string kHalfKana = "\xB1";

TEST(SplitMultiAndSingle, CutsRunsAndCountsCells) {
    const struct {
        const char* what;
        std::string text;
        Strings parts;
        std::string multi;
    } cases[] = {
        {"empty", "", {""}, ""},
        {"mixed", "AB" + kKan + " C", {"AB", kKan, "C"}, kCircle + kKan + kCircle},
        {"trailing blank", kKan + " ", {kKan, ""}, kKan},
        {"leading blank", " A", {"A"}, kCircle},
        {"only blanks", "  ", {""}, ""},
        {"blanks in a row", "A   B", {"A", "B"}, kCircle + kCircle},
        {"single after multi", kKan + kHyo + "1", {kKan + kHyo, "1"}, kKan + kHyo + kCircle},
        {"half-width kana", kHalfKana + "A" + kKan, {kHalfKana + "A", kKan}, kCircle + kKan},
        {"lone lead byte", kKan + "\x8A", {kKan, "\x8A"}, kKan + kCircle},
        {"blank as trail byte", "\x8A ", {"\x8A "}, "\x8A "},
    };
    for (const auto& c : cases) {
        CStringArray parts;
        CString multi;
        CKVFont().SplitMultiAndSingle(c.text.c_str(), parts, multi);
        Strings got;
        for (int i = 0; i < parts.GetSize(); ++i) {
            got.emplace_back(parts[i]);
        }
        EXPECT_EQ(got, c.parts) << c.what;
        EXPECT_EQ(std::string(multi), c.multi) << c.what;
    }
}

// Strings may hold zeros, and a zero may be the break character.
TEST(ChBreakChar, ReplacesBlanksByBytes) {
    struct {
        wchar_t breakChar;
        int result;
        char blank;
    } const cases[] = {{32, 0, ' '},     {0, 1, '\0'},   {0xA0, 1, '\xA0'},
                       {255, 1, '\xFF'}, {256, -1, ' '}, {300, -1, ' '}};
    for (const auto& c : cases) {
        CString text("a\0 b  c", 7);
        EXPECT_EQ(CKVFont().ChBreakChar(text, c.breakChar), c.result);
        const char b = c.blank;
        const char wanted[] = {'a', 0, b, 'b', b, b, 'c'};
        EXPECT_TRUE(text == CString(wanted, 7)) << c.result;
    }
}

}  // namespace
